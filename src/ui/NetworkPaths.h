#pragma once

#include "coordination/NetworkMonitor.h"

#include <memory>

namespace veridane::ui {

/// The watcher of this system: the toolkit's where it has one, else the kernel's news of addresses
/// on Linux. Where there is neither, the machine counts as online. For the main thread.
[[nodiscard]] std::unique_ptr<PathWatcher> makePathWatcher();

} // namespace veridane::ui
