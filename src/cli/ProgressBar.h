#pragma once

#include "model/ScanProgress.h"

#include <ostream>

namespace veridane::cli {

/// One line on a terminal that shows how far a scan is; erased on destruction.
class ProgressBar {
public:
    explicit ProgressBar(std::ostream& terminal) : m_terminal(terminal) {}
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(const ScanProgress& progress);

private:
    std::ostream& m_terminal;
    bool m_isShown = false;
};

} // namespace veridane::cli
