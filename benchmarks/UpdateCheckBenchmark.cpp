// How long it takes to check 200 objects whose feeds lie on 40 hosts that each take a second to
// answer: as a whole program, because what counts is the clock and not the processor.

#include "platform/CurlHttpClient.h"
#include "platform/DrainedQueue.h"
#include "support/LoopbackServer.h"
#include "updates/UpdateChecker.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace veridane::benchmarks {
namespace {

using Seconds = std::chrono::duration<double>;

constexpr int objectCount = 200;
constexpr int hostCount = 40;
constexpr std::chrono::seconds answerTime(1);

std::vector<ScanItem> itemsOf(const test::LoopbackServer& server) {
    std::vector<ScanItem> items(objectCount);
    for (int i = 0; i < objectCount; ++i) {
        ScanItem& item = items[static_cast<std::size_t>(i)];
        const std::string host = "127.0.0." + std::to_string(i % hostCount + 1);
        item.updateSource = UpdateSource::sparkle;
        item.sparkleFeedURL = server.url("/feed" + std::to_string(i) + ".xml", host);
        item.buildNumber = "1";
    }
    return items;
}

int run() {
    ::setenv("no_proxy", "*", 1);
    const test::LoopbackServer server([](const auto&, auto& connection) {
        std::this_thread::sleep_for(answerTime);
        connection.answer(200, "<rss><item><sparkle:version>2</sparkle:version></item></rss>");
    });
    const std::vector<ScanItem> items = itemsOf(server);

    DrainedQueue queue;
    CurlHttpClient client;
    int completed = 0;
    int newer = 0;
    const auto start = std::chrono::steady_clock::now();
    for (const ScanItem& item : items) {
        UpdateChecker::check(item, {client, {}}, [&](const UpdateCheckResult& result) {
            queue.post([&, result] {
                ++completed;
                newer += result == UpdateCheckResult::updateAvailable("2");
            });
        });
    }
    queue.drainUntil([&] { return completed == objectCount; });
    const Seconds taken = std::chrono::steady_clock::now() - start;

    const Seconds oneByOne = objectCount * answerTime;
    std::printf("%d objects on %d hosts: %.2f s, %.4f of one after the other; %d answered\n",
                objectCount, hostCount, taken.count(), taken / oneByOne, newer);
    return newer == objectCount ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace veridane::benchmarks

int main() {
    return veridane::benchmarks::run();
}
