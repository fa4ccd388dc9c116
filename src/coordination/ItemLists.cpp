#include "coordination/ItemLists.h"

#include "model/NativeCounterparts.h"
#include "platform/Locale.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <tuple>
#include <utility>

namespace veridane {
namespace {

/// A query may span two neighbouring fields.
std::string searchedText(const ScanItem& item) {
    std::string text = item.name;
    for (const auto& part : {item.vendor, item.bundleIdentifier}) {
        text += ' ';
        text += part.value_or("");
    }
    text += ' ';
    text += item.path;
    return text::lowercased(text);
}

} // namespace

ItemLists::ItemLists(std::span<const ScanItem> items, const NativeCounterparts& counterparts,
                     const Collation& collation)
    : m_items(items) {
    std::vector<std::string> nameKeys;
    for (const ScanItem& item : items) {
        m_urgencies.push_back(urgencyOf(item, counterparts));
        nameKeys.push_back(collation.key(item.name));
    }
    std::vector<std::size_t> order(items.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t i) {
        return std::tuple<Urgency, const std::string&, std::size_t>(m_urgencies[i], nameKeys[i], i);
    });
    m_entries.reserve(items.size());
    for (const std::size_t i : order) {
        m_texts += searchedText(items[i]);
        m_entries.push_back({&items[i], m_urgencies[i], m_texts.size()});
    }
    m_byIdentifier.resize(items.size());
    std::iota(m_byIdentifier.begin(), m_byIdentifier.end(), std::size_t{0});
    // Of several with the same, as a file may have them, the first one counts.
    std::ranges::sort(m_byIdentifier, {}, [this](std::size_t place) {
        return std::pair(m_entries[place].item->id, m_entries[place].item);
    });
}

ItemReferences ItemLists::filtered(const ItemFilters& filters) const {
    const std::string query = text::lowercased(filters.searchText);
    ItemReferences result;
    for (std::size_t place = 0; place < m_entries.size(); ++place) {
        if (isShown(place, filters, query))
            result.push_back(m_entries[place].item);
    }
    return result;
}

bool ItemLists::shows(const Uuid& id, const ItemFilters& filters) const {
    const auto place = placeOf(id);
    return place && isShown(*place, filters, text::lowercased(filters.searchText));
}

bool ItemLists::isShown(std::size_t place, const ItemFilters& filters,
                        std::string_view query) const {
    const Entry& entry = m_entries[place];
    return passes(entry.urgency, filters.status) &&
           (!filters.kind || entry.item->kind == filters.kind) &&
           (!filters.vendor || entry.item->vendor == filters.vendor) &&
           text::contains(textOf(place), query);
}

std::optional<std::size_t> ItemLists::indexOf(const Uuid& id) const {
    const auto place = placeOf(id);
    if (!place)
        return std::nullopt;
    return static_cast<std::size_t>(m_entries[*place].item - m_items.data());
}

std::optional<std::size_t> ItemLists::placeOf(const Uuid& id) const {
    const auto idAt = [this](std::size_t place) -> const Uuid& {
        return m_entries[place].item->id;
    };
    const auto found = std::ranges::lower_bound(m_byIdentifier, id, {}, idAt);
    if (found == m_byIdentifier.end() || idAt(*found) != id)
        return std::nullopt;
    return *found;
}

std::string_view ItemLists::textOf(std::size_t place) const {
    const std::size_t begin = place == 0 ? 0 : m_entries[place - 1].textEnd;
    return std::string_view(m_texts).substr(begin, m_entries[place].textEnd - begin);
}

ItemReferences ItemLists::statusFiltered(StatusFilter filter) const {
    ItemReferences result;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (passes(m_urgencies[i], filter))
            result.push_back(&m_items[i]);
    }
    return result;
}

std::vector<ItemKind> ItemLists::kinds(StatusFilter filter) const {
    std::array<bool, itemKindCount> present{};
    for (const ScanItem* item : statusFiltered(filter))
        present[static_cast<std::size_t>(item->kind)] = true;
    std::vector<ItemKind> result;
    for (std::size_t kind = 0; kind < itemKindCount; ++kind) {
        if (present[kind])
            result.push_back(static_cast<ItemKind>(kind));
    }
    return result;
}

std::vector<VendorCount> ItemLists::vendors(StatusFilter filter, ItemKind kind) const {
    // Bytes of UTF-8 stand in the order of the characters.
    std::map<std::string_view, std::size_t> counts;
    for (const ScanItem* item : statusFiltered(filter)) {
        if (item->kind == kind && item->vendor && !item->vendor->empty())
            ++counts[*item->vendor];
    }
    std::vector<VendorCount> result;
    result.reserve(counts.size());
    for (const auto& [vendor, count] : counts)
        result.push_back({std::string(vendor), count});
    return result;
}

std::size_t ItemLists::count(StatusFilter filter) const {
    const auto isIn = [&](Urgency urgency) {
        return passes(urgency, filter);
    };
    return static_cast<std::size_t>(std::ranges::count_if(m_urgencies, isIn));
}

std::size_t ItemLists::count(Urgency urgency) const {
    return static_cast<std::size_t>(std::ranges::count(m_urgencies, urgency));
}

std::size_t ItemLists::count(StatusFilter filter, ItemKind kind) const {
    const auto isOfKind = [&](const ScanItem* item) {
        return item->kind == kind;
    };
    return static_cast<std::size_t>(std::ranges::count_if(statusFiltered(filter), isOfKind));
}

std::size_t ItemLists::count(StatusFilter filter, ItemKind kind, std::string_view vendor) const {
    const auto isFromVendor = [&](const ScanItem* item) {
        return item->kind == kind && item->vendor == vendor;
    };
    return static_cast<std::size_t>(std::ranges::count_if(statusFiltered(filter), isFromVendor));
}

} // namespace veridane
