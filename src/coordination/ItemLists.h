#pragma once

#include "coordination/StatusFilter.h"
#include "model/ScanItem.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {

class Collation;
class NativeCounterparts;

/// What the user has narrowed the table to. As constructed it lets everything through.
struct ItemFilters {
    StatusFilter status = StatusFilter::all;
    std::optional<ItemKind> kind;
    std::optional<std::string> vendor; // equal to the item's, case counting
    std::string searchText;            // a part of name, vendor, identifier and path, in any case
};

/// A vendor and the number of its objects.
struct VendorCount {
    std::string vendor;
    std::size_t count = 0;

    bool operator==(const VendorCount&) const = default;
};

/// Items in some order; never null, valid as long as the list that they stand in.
using ItemReferences = std::vector<const ScanItem*>;

/// The lists and counts that are derived from a list of items. What each item contributes to them
/// (judgement, place in the order, text that is searched) is worked out once, on construction, so
/// that a keystroke costs no more than a look through the texts.
class ItemLists {
public:
    /// The items must stay where they are; of what is written to them meanwhile, only the update
    /// result does not matter.
    ItemLists(std::span<const ScanItem> items, const NativeCounterparts& counterparts,
              const Collation& collation);

    /// What passes all filters, by urgency and then by name; equal ones in the order of the items.
    [[nodiscard]] ItemReferences filtered(const ItemFilters& filters) const;

    /// Where the item with that identifier stands among the items.
    [[nodiscard]] std::optional<std::size_t> indexOf(const Uuid& id) const;

    /// Whether `filtered` has the item with that identifier, without making the list.
    [[nodiscard]] bool shows(const Uuid& id, const ItemFilters& filters) const;

    /// In the order of the items.
    [[nodiscard]] ItemReferences statusFiltered(StatusFilter filter) const;

    /// The kinds of what passes, in declared order.
    [[nodiscard]] std::vector<ItemKind> kinds(StatusFilter filter) const;

    /// The vendors of what passes and is of that kind, each once, without empty ones, by plain
    /// comparison of their characters.
    [[nodiscard]] std::vector<VendorCount> vendors(StatusFilter filter, ItemKind kind) const;

    [[nodiscard]] std::size_t count(StatusFilter filter) const;
    [[nodiscard]] std::size_t count(Urgency urgency) const;
    [[nodiscard]] std::size_t count(StatusFilter filter, ItemKind kind) const;
    [[nodiscard]] std::size_t count(StatusFilter filter, ItemKind kind,
                                    std::string_view vendor) const;

private:
    /// One item, in a row with the others in the order of the table.
    struct Entry {
        const ScanItem* item = nullptr;
        Urgency urgency = Urgency::unknown;
        std::size_t textEnd = 0; // in `m_texts`; it begins where the one before ends
    };

    [[nodiscard]] std::optional<std::size_t> placeOf(const Uuid& id) const;
    [[nodiscard]] std::string_view textOf(std::size_t place) const;
    [[nodiscard]] bool isShown(std::size_t place, const ItemFilters& filters,
                               std::string_view query) const;

    std::span<const ScanItem> m_items;
    std::vector<Urgency> m_urgencies; // of each item
    std::vector<Entry> m_entries;
    std::vector<std::size_t> m_byIdentifier; // places of entries
    std::string m_texts;                     // what is searched, in lower case, one after the other
};

} // namespace veridane
