#include "cli/Interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <utility>

namespace veridane::cli {
namespace {

// A signal handler can reach nothing but a global, and do little more than write to a pipe.
volatile std::sig_atomic_t writeEnd = -1;
volatile std::sig_atomic_t lastSignal = 0;

extern "C" void passOn(int signal) {
    const int saved = errno;
    const char byte = 1;
    lastSignal = signal;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    errno = saved;
}

} // namespace

Interruption::Interruption() {
    lastSignal = 0;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        listenTo(signal);
}

void Interruption::listenTo(int signal) {
    struct sigaction old {};
    // So a shell starts what runs in the background: Ctrl-C is meant for somebody else. With nohup
    // the same holds for the terminal's end.
    if (::sigaction(signal, nullptr, &old) != 0 || old.sa_handler == SIG_IGN)
        return;
    if (!m_readEnd && !startListener())
        return;
    struct sigaction action {};
    action.sa_handler = passOn;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    if (::sigaction(signal, &action, nullptr) == 0)
        m_listened.push_back({signal, old});
}

// Without it, as where no more threads are allowed, a signal simply ends the process.
bool Interruption::startListener() {
    int ends[2];
    if (::pipe(ends) != 0)
        return false;
    Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    for (const int end : ends)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    try {
        m_listener = std::jthread([this, end = reading.get()] {
            char byte = 0;
            if (::read(end, &byte, 1) == 1)
                m_stop.request_stop();
        });
    } catch (const std::exception&) {
        return false;
    }
    m_readEnd = std::move(reading);
    m_writeEnd = std::move(writing);
    writeEnd = m_writeEnd.get();
    return true;
}

void Interruption::release() {
    if (!m_readEnd)
        return;
    for (const Listened& listened : m_listened)
        ::sigaction(listened.signal, &listened.old, nullptr);
    m_listened.clear();
    writeEnd = -1;
    m_writeEnd.close(); // ends the listener's read
    m_listener.join();
    m_readEnd.close();
}

void Interruption::endAsAsked() const {
    const int signal = lastSignal;
    if (m_stop.stop_requested() && signal != SIGINT)
        ::raise(signal);
}

} // namespace veridane::cli
