#include "cli/Interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>

namespace veridane::cli {
namespace {

// A signal handler can reach nothing but a global, and do little more than write to a pipe.
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void passOn(int) {
    const int saved = errno;
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    errno = saved;
}

} // namespace

Interruption::Interruption() {
    // So a shell starts what runs in the background: Ctrl-C is meant for somebody else.
    if (::sigaction(SIGINT, nullptr, &m_oldAction) != 0 || m_oldAction.sa_handler == SIG_IGN)
        return;
    if (!listen())
        return;
    struct sigaction action {};
    action.sa_handler = passOn;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    ::sigaction(SIGINT, &action, nullptr);
}

// Without it, as where no more threads are allowed, Ctrl-C simply ends the process.
bool Interruption::listen() {
    int ends[2];
    if (::pipe(ends) != 0)
        return false;
    for (const int end : ends)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    try {
        m_listener = std::jthread([this, readEnd = ends[0]] {
            char byte = 0;
            if (::read(readEnd, &byte, 1) == 1)
                m_stop.request_stop();
        });
    } catch (const std::exception&) {
        for (const int end : ends)
            ::close(end);
        return false;
    }
    m_readEnd = ends[0];
    writeEnd = ends[1];
    return true;
}

void Interruption::release() {
    if (m_readEnd < 0)
        return;
    ::sigaction(SIGINT, &m_oldAction, nullptr);
    const int end = writeEnd;
    writeEnd = -1;
    ::close(end); // ends the listener's read
    m_listener.join();
    ::close(m_readEnd);
    m_readEnd = -1;
}

} // namespace veridane::cli
