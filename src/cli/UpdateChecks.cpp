#include "cli/UpdateChecks.h"

#include "cli/ProgressBar.h"
#include "platform/CurlHttpClient.h"
#include "platform/DrainedQueue.h"
#include "platform/Language.h"
#include "updates/StoreLookup.h"
#include "updates/UpdateChecker.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace veridane::cli {

bool canAskTheStore(const Console& console) {
    const std::string service = storeLookupService();
    if ((service.starts_with("http://") || service.starts_with("https://")) &&
        storeLookupUrl(service, "com.example"))
        return true;
    complain(console, "VERIDANE_STORE_LOOKUP: " + service + " is no http or https address");
    return false;
}

void checkUpdates(std::vector<ScanItem>& items, const ScanArguments& arguments,
                  const Console& console, const std::stop_token& stop) {
    std::optional<ProgressBar> bar;
    if (arguments.showsProgress && console.showsProgress)
        bar.emplace(console.err, console.columns);
    ScanProgress progress{.phase = localized("Prüfe Updates …"),
                          .total = std::ranges::count_if(items, UpdateChecker::hasSource)};
    const auto show = [&] {
        if (bar)
            bar->show(progress);
    };

    DrainedQueue queue;
    CurlHttpClient client(HttpSettings::ofEnvironment()); // gone before the queue that it posts to
    const UpdateChecker::Sources sources{client, storeLookupService()};
    show();
    for (ScanItem& item : items) {
        if (!UpdateChecker::hasSource(item))
            continue;
        UpdateChecker::check(item, sources, [&](UpdateCheckResult result) {
            queue.post([&, result = std::move(result)] {
                item.updateResult = result;
                ++progress.completed;
                show();
            });
        });
    }
    const std::stop_callback wakeUp(stop, [&queue] { queue.post([] {}); });
    queue.drainUntil([&] { return stop.stop_requested() || progress.completed == progress.total; });
}

} // namespace veridane::cli
