#pragma once

#include "model/ScanItem.h"
#include "platform/HttpClient.h"

#include <functional>
#include <string>

namespace veridane {

/// Asks on demand whether a newer version of an object exists. Nothing here ever fails: what cannot
/// be reached or read is a result as well.
namespace UpdateChecker {

/// Called once with the result, on a thread of the client or, if there is nothing to ask, within
/// the call. Not at all if the client goes first.
using OnResult = std::function<void(UpdateCheckResult)>;

/// Who is asked, and how.
struct Sources {
    HttpClient& client;
    std::string storeLookup; // scheme, host and port of the lookup service
};

/// Whether objects of its source are looked up at all.
[[nodiscard]] bool hasSource(const ScanItem& item);

/// Starts the check of one object and returns at once. Safe on any thread.
void check(const ScanItem& item, const Sources& sources, OnResult onResult);

} // namespace UpdateChecker
} // namespace veridane
