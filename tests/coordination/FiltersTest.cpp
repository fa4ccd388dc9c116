#include "coordination/CoordinatorFixture.h"
#include "platform/Locale.h"
#include "platform/Text.h"

#include <algorithm>
#include <random>

namespace veridane::test {
namespace {

using enum CompatibilityStatus;

using Filters = CoordinatorTest;

/// The same list, worked out from scratch by the plain rule.
Texts plainlyFiltered(const ScanCoordinator& coordinator) {
    const Collation collation;
    const std::string query = text::lowercased(coordinator.searchText().get());
    std::vector<const ScanItem*> kept;
    for (const ScanItem& item : coordinator.items().get()) {
        const std::string all = item.name + " " + item.vendor.value_or("") + " " +
                                item.bundleIdentifier.value_or("") + " " + item.path;
        if (coordinator.matchesStatusFilter(item, coordinator.statusFilter().get()) &&
            (!coordinator.kindFilter().get() || item.kind == coordinator.kindFilter().get()) &&
            (!coordinator.vendorFilter().get() ||
             item.vendor == coordinator.vendorFilter().get()) &&
            text::lowercased(all).find(query) != std::string::npos)
            kept.push_back(&item);
    }
    std::ranges::stable_sort(kept, [&](const ScanItem* a, const ScanItem* b) {
        const Urgency ofA = coordinator.recommendation(*a).urgency;
        const Urgency ofB = coordinator.recommendation(*b).urgency;
        return ofA != ofB ? ofA < ofB : collation.key(a->name) < collation.key(b->name);
    });
    Texts paths;
    for (const ScanItem* item : kept)
        paths.push_back(item->path);
    return paths;
}

TEST_F(Filters, TheRememberedListsEqualFreshOnesAfterEveryWrite) {
    std::mt19937 random(7);
    const auto anyOf = [&](const auto& values) {
        return values[random() % std::size(values)];
    };
    const std::string names[] = {"Mail", "MAIL", "Äpfel", "apfel", "Zeta", "İstanbul", "ΟΔΟΣ", ""};
    const std::optional<std::string> vendors[] = {std::nullopt, "", "Acme", "acme"};
    const std::string searches[] = {"",  "mail", "APFEL acme", "οδος", " ", "/applications/1",
                                    "i̇", "1m"};
    const auto anyItems = [&] {
        std::vector<ScanItem> items;
        for (int i = 0; i < 60; ++i) {
            items.push_back(sampleItem(anyOf(names), static_cast<CompatibilityStatus>(random() % 4),
                                       static_cast<ItemKind>(random() % 3), anyOf(vendors)));
            items.back().path = "/Applications/" + std::to_string(i);
            if (random() % 3 == 0)
                items.back().intelComponents = {"x"};
            if (random() % 2 == 0)
                items.back().bundleIdentifier = anyOf(names);
        }
        return items;
    };
    const std::function<void()> writes[] = {
        [&] { show(anyItems()); },
        [&] { coordinator->setKindFilter(std::nullopt); },
        [&] { coordinator->setKindFilter(static_cast<ItemKind>(random() % 3)); },
        [&] { coordinator->setVendorFilter(anyOf(vendors)); },
        [&] {
            coordinator->setStatusFilter(static_cast<StatusFilter>(random() % statusFilterCount));
        },
        [&] { coordinator->setSearchText(anyOf(searches)); },
    };
    for (int step = 0; step < 300; ++step) {
        anyOf(writes)();
        Texts shown;
        for (const ScanItem* item : coordinator->filteredItems())
            shown.push_back(item->path);
        ASSERT_EQ(shown, plainlyFiltered(*coordinator)) << "step " << step;
    }
}

TEST_F(Filters, CountsAndChoicesObeyTheirOwnFiltersAlone) {
    show({sampleItem("a", native, ItemKind::audioPlugin, "Zeta"),
          sampleItem("b", native, ItemKind::audioPlugin, "apple"),
          sampleItem("c", native, ItemKind::audioPlugin, "Apple"),
          sampleItem("d", native, ItemKind::audioPlugin, "Apple"),
          sampleItem("e", native, ItemKind::audioPlugin, ""),
          sampleItem("f", native, ItemKind::audioPlugin),
          sampleItem("g", needsRosetta, ItemKind::audioPlugin, "Apple"),
          sampleItem("h", incompatible, ItemKind::application),
          sampleItem("i", unknown, ItemKind::application)});
    coordinator->setSearchText("nowhere");
    EXPECT_EQ(coordinator->count(StatusFilter::all), 9u);
    EXPECT_EQ(coordinator->count(StatusFilter::notRelevant), 2u);
    EXPECT_EQ(coordinator->count(Urgency::ready), 6u);
    EXPECT_EQ(coordinator->attentionCount(), 1u);
    EXPECT_EQ(coordinator->count("Apple"), 0u) << "no vendors without a kind";
    EXPECT_TRUE(coordinator->availableVendors().empty());
    EXPECT_EQ(coordinator->availableKinds(),
              (std::vector{ItemKind::application, ItemKind::audioPlugin}));

    coordinator->setStatusFilter(StatusFilter::ready);
    coordinator->setKindFilter(ItemKind::audioPlugin);
    EXPECT_EQ(coordinator->availableKinds(), std::vector{ItemKind::audioPlugin});
    EXPECT_EQ(coordinator->availableVendors(), (Texts{"Apple", "Zeta", "apple"}));
    EXPECT_EQ(coordinator->count(ItemKind::application), 0u);
    EXPECT_EQ(coordinator->count(ItemKind::audioPlugin), 6u);
    EXPECT_EQ(coordinator->count("Apple"), 2u);
    EXPECT_EQ(coordinator->statusFilteredItems().size(), 6u);
}

TEST_F(Filters, AVendorStaysAsLongAsTheOtherFiltersLeaveSomethingOfIt) {
    const std::vector<ScanItem> items = {
        sampleItem("a", native, ItemKind::audioPlugin, "Acme"),
        sampleItem("b", needsRosetta, ItemKind::audioPlugin, "Acme"),
        sampleItem("c", incompatible, ItemKind::audioPlugin, "Other")};
    show(items);
    const auto& vendor = coordinator->vendorFilter();
    coordinator->setKindFilter(ItemKind::audioPlugin);
    coordinator->setVendorFilter("Acme");
    coordinator->setStatusFilter(StatusFilter::needsAttention);
    EXPECT_EQ(vendor.get(), "Acme");
    coordinator->setStatusFilter(StatusFilter::notRelevant);
    EXPECT_EQ(vendor.get(), std::nullopt);

    coordinator->setStatusFilter(StatusFilter::all);
    for (const auto& kind : {std::optional<ItemKind>(), std::optional(ItemKind::application)}) {
        coordinator->setKindFilter(ItemKind::audioPlugin);
        coordinator->setVendorFilter("Acme");
        coordinator->setKindFilter(kind);
        EXPECT_EQ(vendor.get(), std::nullopt);
    }

    coordinator->setKindFilter(ItemKind::audioPlugin);
    coordinator->setVendorFilter("Acme");
    show({items[2]});
    EXPECT_EQ(vendor.get(), "Acme") << "a scan leaves the filters alone";
    EXPECT_TRUE(shownNames().empty());
}

TEST_F(Filters, WhatIsHiddenLosesTheSelection) {
    const ScanItem kept = sampleItem("Kept", needsRosetta, ItemKind::audioPlugin, "Acme");
    const ScanItem hidden = sampleItem("Hidden", native, ItemKind::application);
    show({kept, hidden});
    const std::function<void()> writes[] = {
        [&] { coordinator->setStatusFilter(StatusFilter::needsAttention); },
        [&] { coordinator->setKindFilter(ItemKind::audioPlugin); },
        [&] { coordinator->setVendorFilter("Acme"); },
        [&] { coordinator->setSearchText("KEPT"); },
    };
    const auto& selection = coordinator->selection();
    for (const auto& write : writes) {
        coordinator->setStatusFilter(StatusFilter::all);
        coordinator->setKindFilter(std::nullopt);
        coordinator->setSearchText("");
        EXPECT_EQ(selection.get(), std::nullopt) << "nothing brings it back";
        coordinator->setSelection(hidden.id);
        EXPECT_EQ(coordinator->selectedItem(), hidden);
        write();
        EXPECT_EQ(selection.get(), std::nullopt) << &write - writes;
    }
    coordinator->setSelection(hidden.id);
    EXPECT_EQ(coordinator->selectedItem(), std::nullopt);
    coordinator->checkUpdate(kept.id); // writes the items
    EXPECT_EQ(selection.get(), std::nullopt);
    EXPECT_NE(log().find("event=selection_sanitized filtered=1"), std::string::npos);
}

} // namespace
} // namespace veridane::test
