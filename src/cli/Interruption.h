#pragma once

#include "platform/Descriptor.h"

#include <csignal>
#include <stop_token>
#include <thread>
#include <vector>

namespace veridane::cli {

/// While it lives, the first of the signals that end a program, Ctrl-C among them, requests a stop
/// in place of ending the process; the same one again ends it. One that is ignored stays so. At
/// most one at a time.
class Interruption {
public:
    Interruption();
    ~Interruption() { release(); }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] std::stop_token token() const { return m_stop.get_token(); }

    /// The signals do again what they did before. A stop that came earlier has been requested by
    /// then.
    void release();

    /// Once it is released: ends the process by the signal that requested the stop, so that whoever
    /// waits for the process learns of it. Returns if that was Ctrl-C, which has an exit status.
    void endAsAsked() const;

private:
    struct Listened {
        int signal;
        struct sigaction old;
    };

    void listenTo(int signal);
    bool startListener();

    std::stop_source m_stop;
    std::vector<Listened> m_listened;
    Descriptor m_readEnd;
    Descriptor m_writeEnd;
    std::jthread m_listener;
};

} // namespace veridane::cli
