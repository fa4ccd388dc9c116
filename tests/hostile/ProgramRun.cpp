#include "hostile/ProgramRun.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veridane::test {

#ifdef VERIDANE_CLI
Program::Program() : m_file(::open(VERIDANE_CLI, O_RDONLY | O_CLOEXEC)) {}
#else
Program::Program() = default;
#endif

Program::Run Program::run(const std::vector<std::string>& arguments) const {
    std::vector<std::string> texts{"veridane-cli"};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);

    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit few{64, 64};
        ::setrlimit(RLIMIT_NOFILE, &few);
        ::fexecve(m_file.get(), pointers.data(), environ);
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status))
        return {};
    return {WEXITSTATUS(status), usage.ru_maxrss};
}

} // namespace veridane::test
