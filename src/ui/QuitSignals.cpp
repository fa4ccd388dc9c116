#include "ui/QuitSignals.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace veridane::ui {
namespace {

// A signal handler can reach nothing but a global, and do little more than write to a pipe.
volatile std::sig_atomic_t writeEnd = -1;

constexpr int signalsToQuit[] = {SIGINT, SIGTERM, SIGHUP};

extern "C" void tellLoop(int) {
    const int saved = errno;
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    errno = saved;
}

void setHandler(void (*from)(int), void (*to)(int)) {
    for (const int signal : signalsToQuit) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != from)
            continue;
        action.sa_handler = to;
        action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

QuitSignals::QuitSignals() {
    int ends[2];
    if (::pipe(ends) != 0) // then signals simply end the process
        return;
    m_readEnd = Descriptor(ends[0]);
    m_writeEnd = Descriptor(ends[1]);
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    m_notifier.emplace(m_readEnd.get(), QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this] {
        char byte = 0;
        if (::read(m_readEnd.get(), &byte, 1) == 1)
            QCoreApplication::quit();
    });
    writeEnd = m_writeEnd.get();
    setHandler(SIG_DFL, tellLoop);
}

QuitSignals::~QuitSignals() {
    setHandler(tellLoop, SIG_DFL);
    writeEnd = -1;
}

} // namespace veridane::ui
