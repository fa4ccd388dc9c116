#pragma once

#include "platform/Descriptor.h"

#include <QSocketNotifier>

#include <optional>

namespace veridane::ui {

/// While it lives, the first Ctrl-C, hang-up or request to terminate quits the application as the
/// user would, so that all that is kept gets written. A second one ends the process. What is
/// ignored stays so. At most one at a time.
class QuitSignals {
public:
    QuitSignals();
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    Descriptor m_readEnd;
    Descriptor m_writeEnd;
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace veridane::ui
