#pragma once

#include "platform/Date.h"
#include "platform/SerialWorker.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace veridane {

/// Appends what happened to a text file, one event a line:
/// "[2027-03-01T09:30:00Z] event=scan_completed items=412 kindFilter=none", with the fields in the
/// order of their keys. Failures are passed over: the program is the same with and without a log.
class StabilityLogger {
public:
    using Fields = std::map<std::string, std::string>;
    using Clock = std::function<Date()>;

    /// `directory` is made with the first line; without one nothing is written. `clock` is asked at
    /// each writing, on the logger's own thread.
    explicit StabilityLogger(std::optional<std::string> directory, Clock clock = now);

    /// Waits until every line is written.
    ~StabilityLogger() = default;

    /// Returns at once and touches no file; the line is written on a thread of its own, in the
    /// order of the calls. Safe on any thread. A line feed in a value becomes a blank, everything
    /// else is written as it is.
    void log(std::string event, Fields fields);

private:
    std::optional<std::string> m_directory;
    Clock m_clock;
    SerialWorker m_worker; // last: its tasks use everything above
};

} // namespace veridane
