#include "sample-items/SampleItems.h"

#include <array>
#include <cstdio>
#include <iterator>
#include <random>
#include <string>

namespace veridane::sample {
namespace {

constexpr const char* words[] = {"Studio", "Helper",  "Audio",  "Sync", "Photo",  "Manager",
                                 "Player", "Backup",  "Editor", "Mail", "Update", "Service",
                                 "Cloud",  "Monitor", "Remote", "Größe"};

class Samples {
public:
    explicit Samples(unsigned variant) : m_variant(variant), m_random(variant) {}

    ScanItem next() {
        ScanItem item;
        item.id = nextId();
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

    Uuid nextId() {
        std::array<char, 40> text{};
        std::snprintf(text.data(), text.size(), "%08X-0000-4000-8000-%012X", m_variant, ++m_count);
        return Uuid::parse(text.data()).value_or(Uuid());
    }

    unsigned m_variant;
    unsigned m_count = 0;
    std::mt19937 m_random;
};

} // namespace

std::vector<ScanItem> sampleItems(std::size_t count, unsigned variant) {
    Samples samples(variant);
    std::vector<ScanItem> items;
    items.reserve(count);
    while (items.size() < count)
        items.push_back(samples.next());
    return items;
}

} // namespace veridane::sample
