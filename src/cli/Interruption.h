#pragma once

#include <csignal>
#include <stop_token>
#include <thread>

namespace veridane::cli {

/// While it lives, the first Ctrl-C requests a stop in place of ending the process; a second one
/// ends it. Where Ctrl-C is ignored it stays so. At most one at a time.
class Interruption {
public:
    Interruption();
    ~Interruption() { release(); }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] std::stop_token token() const { return m_stop.get_token(); }

    /// Ctrl-C does again what it did before. A stop that came earlier has been requested by then.
    void release();

private:
    bool listen();

    std::stop_source m_stop;
    struct sigaction m_oldAction {};
    int m_readEnd = -1;
    std::jthread m_listener;
};

} // namespace veridane::cli
