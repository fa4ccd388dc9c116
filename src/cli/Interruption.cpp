#include "cli/Interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

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

void handle(int signal) {
    struct sigaction action {};
    action.sa_handler = passOn;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    ::sigaction(signal, &action, nullptr);
}

} // namespace

Interruption::Interruption() {
    int ends[2];
    if (::pipe(ends) != 0)
        return;
    for (const int end : ends)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    m_readEnd = ends[0];
    writeEnd = ends[1];
    m_listener = std::jthread([this] {
        char byte = 0;
        if (::read(m_readEnd, &byte, 1) == 1)
            m_stop.request_stop();
    });
    handle(SIGINT);
    handle(SIGTERM);
}

Interruption::~Interruption() {
    if (m_readEnd < 0)
        return;
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    const int end = writeEnd;
    writeEnd = -1;
    ::close(end); // ends the listener's read
    m_listener.join();
    ::close(m_readEnd);
}

} // namespace veridane::cli
