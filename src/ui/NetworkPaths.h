#pragma once

#include "coordination/NetworkMonitor.h"

#include <memory>

namespace veridane::ui {

/// The watcher of this system: the toolkit's where it follows the service that manages the
/// network, else one of the kernel's own news. Where there is neither, the machine counts as
/// online. For the main thread, where it also calls.
[[nodiscard]] std::unique_ptr<PathWatcher> makePathWatcher();

} // namespace veridane::ui
