#pragma once

#include "model/ScanProgress.h"

#include <cstddef>
#include <ostream>

namespace veridane::cli {

/// One line on a terminal that shows how far a scan is; erased on destruction. Never wider than
/// the terminal, as what has wrapped cannot be erased.
class ProgressBar {
public:
    ProgressBar(std::ostream& terminal, std::size_t columns)
        : m_terminal(terminal), m_columns(columns) {}
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(const ScanProgress& progress);

private:
    std::ostream& m_terminal;
    std::size_t m_columns;
    bool m_isShown = false;
};

} // namespace veridane::cli
