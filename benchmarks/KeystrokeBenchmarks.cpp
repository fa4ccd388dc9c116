#include "BenchCoordinator.h"
#include "platform/Locale.h"
#include "platform/Text.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace veridane::benchmarks {
namespace {

// As somebody types: everything matches, then less and less, and back.
constexpr const char* typed[] = {"s", "st", "studio", "studio he", "studio", "st", "s", ""};

/// A write of the search text with all that follows: the selection is held against what is shown,
/// the window logs the change, the table reads its list.
void keystroke(benchmark::State& state) {
    BenchCoordinator window(static_cast<std::size_t>(state.range(0)));
    ScanCoordinator& coordinator = window.coordinator();
    coordinator.setSearchText("studio he");
    coordinator.setSelection(coordinator.filteredItems().back()->id);
    std::size_t shown = 0;
    std::size_t key = 0;
    for (auto _ : state) {
        coordinator.setSearchText(typed[key++ % std::size(typed)]);
        coordinator.logEvent("search_text_changed");
        shown += coordinator.filteredItems().size();
    }
    if (!coordinator.selection().get())
        state.SkipWithError("the selection was lost");
    state.counters["shown"] =
        benchmark::Counter(static_cast<double>(shown), benchmark::Counter::kAvgIterations);
}

/// The same list with nothing remembered, once: a view and the log would each pay this.
void plainFilter(benchmark::State& state) {
    const std::vector<ScanItem> items =
        sample::sampleItems(static_cast<std::size_t>(state.range(0)));
    const NativeCounterparts counterparts(items);
    const Collation collation;
    std::size_t key = 0;
    for (auto _ : state) {
        const std::string query = text::lowercased(typed[key++ % std::size(typed)]);
        std::vector<const ScanItem*> kept;
        for (const ScanItem& item : items) {
            const std::string all = item.name + " " + item.vendor.value_or("") + " " +
                                    item.bundleIdentifier.value_or("") + " " + item.path;
            if (text::lowercased(all).find(query) != std::string::npos)
                kept.push_back(&item);
        }
        std::ranges::stable_sort(kept, [&](const ScanItem* a, const ScanItem* b) {
            const Urgency ofA = urgencyOf(*a, counterparts), ofB = urgencyOf(*b, counterparts);
            return ofA != ofB ? ofA < ofB : collation.key(a->name) < collation.key(b->name);
        });
        benchmark::DoNotOptimize(kept.data());
    }
}

/// What a finished scan costs the window: the new items, and the first read of its list.
void newItems(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const std::vector<ScanItem> items = sample::sampleItems(count);
    for (auto _ : state) {
        const NativeCounterparts counterparts(items);
        const ItemLists lists(items, counterparts, Collation());
        benchmark::DoNotOptimize(lists.filtered({}).data());
    }
}

BENCHMARK(keystroke)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(plainFilter)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(newItems)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veridane::benchmarks
