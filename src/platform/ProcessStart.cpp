#include "platform/ProcessStart.h"

#include <spawn.h>
#include <unistd.h>

#include <csignal>

#ifdef __APPLE__
#include <crt_externs.h>
#endif

namespace veridane {
namespace {

char** environment() {
#ifdef __APPLE__
    return *_NSGetEnviron();
#else
    return environ;
#endif
}

/// How the new process differs from this one.
class Attributes {
public:
    Attributes() {
        ::posix_spawnattr_init(&m_attributes);
        sigset_t signals;
        sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&m_attributes, &signals);
        // That we ignore them is of our own making, and would be inherited. What else is ignored
        // was so from the start, and is meant for the new process as well.
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGXFSZ);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signals);
        // Closing the terminal that this one came from is to be no hang-up for it.
        ::posix_spawnattr_setflags(&m_attributes,
                                   static_cast<short>(POSIX_SPAWN_SETSIGMASK |
                                                      POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID));
    }
    ~Attributes() { ::posix_spawnattr_destroy(&m_attributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    [[nodiscard]] const posix_spawnattr_t* get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

} // namespace

std::optional<int> startProcess(const std::vector<std::string>& command) {
    if (command.empty())
        return std::nullopt;
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str())); // which is not written to
    arguments.push_back(nullptr);
    const Attributes attributes;
    pid_t process = 0;
    if (::posix_spawn(&process, arguments.front(), nullptr, attributes.get(), arguments.data(),
                      environment()) != 0)
        return std::nullopt;
    return process;
}

} // namespace veridane
