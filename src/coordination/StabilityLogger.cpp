#include "coordination/StabilityLogger.h"

#include "platform/SystemCalls.h"
#include "platform/UserDirectories.h"

#include <sys/stat.h>

#include <algorithm>
#include <utility>

namespace veridane {
namespace {

constexpr mode_t newFileMode = 0600; // names of programs and makers are nobody else's business

std::string lineOf(Date date, const std::string& event, const StabilityLogger::Fields& fields) {
    std::string line = "[" + formatISO8601(date) + "] event=" + event + " ";
    const char* separator = "";
    for (auto [key, value] : fields) {
        std::ranges::replace(value, '\n', ' ');
        line.append(separator).append(key).append("=").append(value);
        separator = " ";
    }
    return line + "\n";
}

bool isRegular(const struct stat& status) {
    return S_ISREG(status.st_mode);
}

/// Open for this line alone: the user may delete the file at any time.
void append(const std::string& path, const std::string& line) {
    struct stat status {};
    // Asked before opening: opening a device can already do something to it.
    if (::stat(path.c_str(), &status) == 0 && !isRegular(status))
        return;
    const Descriptor file = openForWriting(path, O_APPEND | O_CREAT | O_NONBLOCK, newFileMode);
    if (!file || ::fstat(file.get(), &status) != 0 || !isRegular(status))
        return;
    // In one piece, so that the lines of two programs do not mix.
    static_cast<void>(uninterrupted([&] { return ::write(file.get(), line.data(), line.size()); }));
}

} // namespace

StabilityLogger::StabilityLogger(std::optional<std::string> directory, Clock clock)
    : m_directory(std::move(directory)), m_clock(std::move(clock)) {}

void StabilityLogger::log(std::string event, Fields fields) {
    if (!m_directory)
        return;
    m_worker.post([this, event = std::move(event), fields = std::move(fields)] {
        if (!makeDirectories(*m_directory))
            append(*m_directory + "/stability.log", lineOf(m_clock(), event, fields));
    });
}

} // namespace veridane
