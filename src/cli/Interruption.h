#pragma once

#include <stop_token>
#include <thread>

namespace veridane::cli {

/// While it lives, the first Ctrl-C (or SIGTERM) requests a stop in place of ending the process; a
/// second one ends it. At most one at a time.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] std::stop_token token() const { return m_stop.get_token(); }

private:
    std::stop_source m_stop;
    int m_readEnd = -1;
    std::jthread m_listener;
};

} // namespace veridane::cli
