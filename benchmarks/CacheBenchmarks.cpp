#include "coordination/ScanCacheStore.h"
#include "model/JsonForms.h"
#include "model/SnapshotReader.h"
#include "sample-items/SampleItems.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>

namespace veridane {
namespace {

constexpr std::size_t itemCount = 10'000;

const CachedScanSnapshot& snapshot() {
    static const CachedScanSnapshot made{1, Date(), {}, sample::sampleItems(itemCount)};
    return made;
}

void countBytes(benchmark::State& state, const std::string& text) {
    state.counters["bytes"] = static_cast<double>(text.size());
}

/// A folder that is gone with this object.
class Folder {
public:
    Folder() {
        std::string name = std::filesystem::temp_directory_path() / "veridane-XXXXXX";
        if (::mkdtemp(name.data()) != nullptr)
            m_path = name;
    }
    ~Folder() { std::filesystem::remove_all(m_path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

void save(const std::string& directory) {
    ScanCacheStore(directory).save(snapshot().items, {}, Date()); // waits for the end of it
}

// With the flush to the disk, which is most of it.
void cacheSaved(benchmark::State& state) {
    const Folder folder;
    for (auto _ : state)
        save(folder.path());
}
BENCHMARK(cacheSaved)->Unit(benchmark::kMillisecond)->UseRealTime();

// File and all: what the window waits for.
void cacheLoaded(benchmark::State& state) {
    const Folder folder;
    save(folder.path());
    const ScanCacheStore store(folder.path());
    if (store.load() != snapshot())
        state.SkipWithError("what was saved does not come back");
    for (auto _ : state)
        benchmark::DoNotOptimize(store.load());
}
BENCHMARK(cacheLoaded)->Unit(benchmark::kMillisecond)->UseRealTime();

void snapshotWritten(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(json::snapshotText(snapshot()));
    countBytes(state, json::snapshotText(snapshot()));
}
BENCHMARK(snapshotWritten)->Unit(benchmark::kMillisecond);

void snapshotRead(benchmark::State& state) {
    const std::string text = json::snapshotText(snapshot());
    for (auto _ : state)
        benchmark::DoNotOptimize(json::readSnapshot(text));
    countBytes(state, text);
}
BENCHMARK(snapshotRead)->Unit(benchmark::kMillisecond);

// The library's tree alone, of which the records would still have to be made.
void snapshotReadAsTree(benchmark::State& state) {
    const std::string text = json::snapshotText(snapshot());
    for (auto _ : state)
        benchmark::DoNotOptimize(nlohmann::json::parse(text));
    countBytes(state, text);
}
BENCHMARK(snapshotReadAsTree)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veridane
