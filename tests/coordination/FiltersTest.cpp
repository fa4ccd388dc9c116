#include "CoordinatorFixture.h"
#include "platform/Locale.h"
#include "platform/Text.h"

#include <algorithm>
#include <random>

namespace veridane::test {
namespace {

using enum CompatibilityStatus;

class Filters : public CoordinatorTest {
protected:
    static ScanItem item(const std::string& name, CompatibilityStatus status, ItemKind kind,
                         std::optional<std::string> vendor = std::nullopt) {
        ScanItem result = sampleItem(name, status, kind);
        result.vendor = std::move(vendor);
        return result;
    }
    static std::size_t sanitized(const std::string& lines) {
        std::size_t count = 0;
        for (std::size_t at = 0; (at = lines.find("event=selection_sanitized", at)) != lines.npos;
             ++at)
            ++count;
        return count;
    }
};

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
            items.push_back(item(anyOf(names), static_cast<CompatibilityStatus>(random() % 4),
                                 static_cast<ItemKind>(random() % 3), anyOf(vendors)));
            items.back().path = "/Applications/" + std::to_string(i);
            if (random() % 3 == 0)
                items.back().intelComponents = {"x"};
            if (random() % 2 == 0)
                items.back().bundleIdentifier = anyOf(names);
        }
        return items;
    };
    for (int step = 0; step < 300; ++step) {
        switch (random() % 8) {
        case 0:
            show(anyItems());
            break;
        case 1:
            coordinator->setKindFilter(std::nullopt);
            break;
        case 2:
            coordinator->setKindFilter(static_cast<ItemKind>(random() % 3));
            break;
        case 3:
            coordinator->setVendorFilter(anyOf(vendors));
            break;
        case 4:
        case 5:
            coordinator->setStatusFilter(static_cast<StatusFilter>(random() % statusFilterCount));
            break;
        default:
            coordinator->setSearchText(anyOf(searches));
        }
        Texts shown;
        for (const ScanItem* item : coordinator->filteredItems())
            shown.push_back(item->path);
        ASSERT_EQ(shown, plainlyFiltered(*coordinator)) << "step " << step;
    }
}

TEST_F(Filters, CountsAndChoicesObeyTheirOwnFiltersAlone) {
    show({item("a", native, ItemKind::audioPlugin, "Zeta"),
          item("b", native, ItemKind::audioPlugin, "apple"),
          item("c", native, ItemKind::audioPlugin, "Apple"),
          item("d", native, ItemKind::audioPlugin, "Apple"),
          item("e", native, ItemKind::audioPlugin, ""), item("f", native, ItemKind::audioPlugin),
          item("g", needsRosetta, ItemKind::audioPlugin, "Apple"),
          item("h", incompatible, ItemKind::application),
          item("i", unknown, ItemKind::application)});
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
    const std::vector<ScanItem> items = {item("a", native, ItemKind::audioPlugin, "Acme"),
                                         item("b", needsRosetta, ItemKind::audioPlugin, "Acme"),
                                         item("c", incompatible, ItemKind::audioPlugin, "Other")};
    show(items);
    const auto vendor = [&] {
        return coordinator->vendorFilter().get();
    };
    coordinator->setKindFilter(ItemKind::audioPlugin);
    coordinator->setVendorFilter("Acme");
    coordinator->setStatusFilter(StatusFilter::needsAttention);
    EXPECT_EQ(vendor(), "Acme");
    coordinator->setStatusFilter(StatusFilter::notRelevant);
    EXPECT_EQ(vendor(), std::nullopt);

    coordinator->setStatusFilter(StatusFilter::all);
    for (const auto& kind : {std::optional<ItemKind>(), std::optional(ItemKind::application)}) {
        coordinator->setKindFilter(ItemKind::audioPlugin);
        coordinator->setVendorFilter("Acme");
        coordinator->setKindFilter(kind);
        EXPECT_EQ(vendor(), std::nullopt);
    }

    coordinator->setKindFilter(ItemKind::audioPlugin);
    coordinator->setVendorFilter("Acme");
    show({items[2]});
    EXPECT_EQ(vendor(), "Acme") << "a scan leaves the filters alone";
    EXPECT_TRUE(shownNames().empty());
}

TEST_F(Filters, WhatIsHiddenLosesTheSelectionOnce) {
    const ScanItem kept = item("Kept", needsRosetta, ItemKind::audioPlugin, "Acme");
    const ScanItem hidden = item("Hidden", native, ItemKind::application);
    coordinator->setSearchText("x"); // nothing to select, nothing to clear
    show({kept, hidden});
    const std::function<void()> writes[] = {
        [&] { coordinator->setStatusFilter(StatusFilter::needsAttention); },
        [&] { coordinator->setKindFilter(ItemKind::audioPlugin); },
        [&] { coordinator->setVendorFilter("Acme"); },
        [&] { coordinator->setSearchText("KEPT"); },
    };
    const auto selection = [&] {
        return coordinator->selection().get();
    };
    for (const auto& write : writes) {
        coordinator->setStatusFilter(StatusFilter::all);
        coordinator->setKindFilter(std::nullopt);
        coordinator->setSearchText("");
        EXPECT_EQ(selection(), std::nullopt) << "nothing brings it back";
        coordinator->setSelection(hidden.id);
        EXPECT_EQ(coordinator->selectedItem(), hidden);
        write();
        EXPECT_EQ(selection(), std::nullopt) << &write - writes;
        coordinator->setSelection(hidden.id);
        EXPECT_EQ(selection(), hidden.id) << "a write of its own clears nothing";
        EXPECT_EQ(coordinator->selectedItem(), std::nullopt);
        write(); // the same value
        EXPECT_EQ(selection(), std::nullopt) << &write - writes;
    }
    coordinator->setSelection(hidden.id);
    coordinator->checkUpdate(kept.id); // writes the items
    EXPECT_EQ(selection(), std::nullopt);
    coordinator->startScan();
    coordinator->setSelection(hidden.id);
    finishScan();
    EXPECT_EQ(selection(), std::nullopt);
    EXPECT_EQ(sanitized(log()), 10u);
}

TEST_F(Filters, ATwinMovesAnItemToAnotherFilter) {
    ScanItem intel = item("Old Name", needsRosetta, ItemKind::application);
    ScanItem twin = item("New Name", native, ItemKind::application);
    const ScanItem service = item("MAIL", native, ItemKind::launchService);
    const ScanItem mail = item("Mail", needsRosetta, ItemKind::application);
    show({intel, twin, mail, service});
    EXPECT_EQ(coordinator->count(StatusFilter::switchToNative), 0u);
    intel.bundleIdentifier = twin.bundleIdentifier = ""; // empty, but the same
    ScanItem capital = item("MAIL", native, ItemKind::application);
    show({intel, twin, mail, capital});
    EXPECT_EQ(coordinator->count(StatusFilter::switchToNative), 2u);
    EXPECT_TRUE(coordinator->hasNativeCounterpart(twin)) << "identifier and name decide alone";
    EXPECT_EQ(coordinator->count(StatusFilter::needsAttention), 0u);
}

TEST(StatusFilter, EachHasItsNameInTheLogAndItsLabel) {
    const std::pair<std::string, std::string> expected[] = {
        {"all", "Alle"},
        {"needsAttention", "Handlungsbedarf"},
        {"breaksOnMacOS28", "Benötigt Rosetta 2"},
        {"partiallyAffected", "Teilweise betroffen"},
        {"switchToNative", "Native verfügbar"},
        {"ready", "Bereit"},
        {"notRelevant", "Kein Rosetta-Thema"},
    };
    for (std::size_t i = 0; i < statusFilterCount; ++i) {
        const auto filter = static_cast<StatusFilter>(i);
        EXPECT_EQ(std::pair(std::string(rawString(filter)), displayName(filter)), expected[i]);
    }
}

TEST_F(Filters, ALineFeedInAFilterStaysInItsLogLine) {
    coordinator->setVendorFilter("Acme\nSoftware = GmbH");
    coordinator->logEvent("vendor_filter_changed");
    EXPECT_TRUE(log().ends_with("event=vendor_filter_changed filtered=0 isScanning=false items=0 "
                                "kindFilter=none statusFilter=all vendorFilter=Acme Software = "
                                "GmbH\n"));
}

} // namespace
} // namespace veridane::test
