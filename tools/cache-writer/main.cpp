#include "coordination/ScanCacheStore.h"
#include "sample-items/SampleItems.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using namespace veridane;
using Items = std::vector<ScanItem>;

constexpr int broken = 1, misused = 2;

/// One is larger than the other, so that a mixture of both shows.
std::vector<Items> results() {
    return {sample::sampleItems(600, 1), sample::sampleItems(1200, 2)};
}

/// Ends when everything is saved.
void saveEach(const std::string& directory, const std::vector<Items>& results) {
    ScanCacheStore store(directory);
    for (const Items& items : results)
        store.save(items, {}, now());
}

bool isWhole(const std::string& directory) {
    const auto snapshot = ScanCacheStore(directory).load();
    return snapshot && std::ranges::any_of(
                           results(), [&](const Items& items) { return snapshot->items == items; });
}

} // namespace

/// Saves two results in turn until it is killed, or tells whether the kept one is one of them.
int main(int argumentCount, char** arguments) {
    const std::string_view mode = argumentCount == 3 ? arguments[1] : "";
    if (mode == "--check")
        return isWhole(arguments[2]) ? EXIT_SUCCESS : broken;
    if (mode != "--once" && mode != "--forever") {
        std::fputs("usage: veridane-cache-writer --once|--forever|--check DIR\n", stderr);
        return misused;
    }
    const auto both = results();
    do
        saveEach(arguments[2], both);
    while (mode == "--forever");
    return EXIT_SUCCESS;
}
