#include "ItemSamples.h"

#include <iterator>
#include <random>
#include <string>

namespace veridane::benchmarks {
namespace {

constexpr const char* words[] = {"Studio", "Helper",  "Audio",  "Sync", "Photo",  "Manager",
                                 "Player", "Backup",  "Editor", "Mail", "Update", "Service",
                                 "Cloud",  "Monitor", "Remote", "Größe"};

class Samples {
public:
    ScanItem next() {
        ScanItem item;
        item.id = Uuid::random();
        item.name = word() + " " + word() + " " + std::to_string(m_random() % 1000);
        item.kind = static_cast<ItemKind>(m_random() % itemKindCount);
        item.path = "/Users/anna/Library/Application Support/" + word() + "/" + item.name + ".app";
        item.status = static_cast<CompatibilityStatus>(m_random() % compatibilityStatusCount);
        item.architecture = {.architectures = {CPUArch::x86_64, CPUArch::arm64}, .isMachO = true};
        if (m_random() % 10 == 0)
            item.intelComponents.assign(20, "Contents/Frameworks/" + word() +
                                                ".framework/Versions/A/Helpers/" + word());
        item.vendor = word() + " Software GmbH " + std::to_string(m_random() % 300);
        item.teamIdentifier = "ABCDE12345";
        item.bundleIdentifier = "com.example." + word() + std::to_string(m_random() % 100'000);
        item.version = "12.4." + std::to_string(m_random() % 50);
        item.buildNumber = std::to_string(m_random() % 5000);
        item.categoryDescription = "Productivity";
        item.sizeOnDisk = static_cast<std::int64_t>(m_random());
        item.lastModified = Date(std::chrono::seconds(1'700'000'000 + m_random() % 10'000'000));
        item.updateSource = static_cast<UpdateSource>(m_random() % updateSourceCount);
        item.sparkleFeedURL = "https://updates.example.com/" + word() + "/appcast.xml";
        return item;
    }

private:
    std::string word() { return words[m_random() % std::size(words)]; }

    std::mt19937 m_random{1};
};

} // namespace

std::vector<ScanItem> sampleItems(std::size_t count) {
    Samples samples;
    std::vector<ScanItem> items;
    items.reserve(count);
    while (items.size() < count)
        items.push_back(samples.next());
    return items;
}

} // namespace veridane::benchmarks
