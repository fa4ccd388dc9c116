// The part of the coordinator that narrows its items: filters, selection, derived lists and counts.

#include "coordination/ScanCoordinator.h"
#include "platform/Locale.h"

#include <algorithm>
#include <utility>

namespace veridane {

template <typename T>
void ScanCoordinator::writeFilter(Observed<T>& field, T value) {
    m_shownItems.reset();
    field.set(std::move(value));
}

void ScanCoordinator::setStatusFilter(StatusFilter filter) {
    writeFilter(m_statusFilter, filter);
    clearUnavailableVendor();
    sanitizeSelection();
}

void ScanCoordinator::setKindFilter(std::optional<ItemKind> kind) {
    writeFilter(m_kindFilter, kind);
    if (!m_kindFilter.get())
        setVendorFilter(std::nullopt);
    clearUnavailableVendor();
    sanitizeSelection();
}

void ScanCoordinator::setVendorFilter(std::optional<std::string> vendor) {
    writeFilter(m_vendorFilter, std::move(vendor));
    sanitizeSelection();
}

void ScanCoordinator::setSearchText(std::string text) {
    writeFilter(m_searchText, std::move(text));
    sanitizeSelection();
}

void ScanCoordinator::setSelection(std::optional<Uuid> id) {
    m_selection.set(id);
}

void ScanCoordinator::clearUnavailableVendor() {
    if (!m_vendorFilter.get())
        return;
    const std::vector<std::string> vendors = availableVendors();
    if (std::ranges::find(vendors, *m_vendorFilter.get()) == vendors.end())
        setVendorFilter(std::nullopt);
}

void ScanCoordinator::sanitizeSelection() {
    const auto& id = m_selection.get();
    if (!id || lists().shows(*id, filters()))
        return;
    m_selection.set(std::nullopt);
    logEvent("selection_sanitized");
}

const ItemLists& ScanCoordinator::lists() const {
    if (!m_lists)
        m_lists.emplace(m_items.get(), m_nativeCounterpartKeys.get(), Collation());
    return *m_lists;
}

ItemFilters ScanCoordinator::filters() const {
    return {.status = m_statusFilter.get(),
            .kind = m_kindFilter.get(),
            .vendor = m_vendorFilter.get(),
            .searchText = m_searchText.get()};
}

const ItemReferences& ScanCoordinator::shownItems() const {
    if (!m_shownItems)
        m_shownItems = lists().filtered(filters());
    return *m_shownItems;
}

ItemReferences ScanCoordinator::filteredItems() const {
    return shownItems();
}

std::optional<ScanItem> ScanCoordinator::selectedItem() const {
    const auto& id = m_selection.get();
    if (!id || !lists().shows(*id, filters()))
        return std::nullopt;
    return m_items.get()[*lists().indexOf(*id)];
}

ItemReferences ScanCoordinator::statusFilteredItems() const {
    return lists().statusFiltered(m_statusFilter.get());
}

std::vector<ItemKind> ScanCoordinator::availableKinds() const {
    return lists().kinds(m_statusFilter.get());
}

std::vector<std::string> ScanCoordinator::availableVendors() const {
    std::vector<std::string> vendors;
    for (VendorCount& vendor : availableVendorCounts())
        vendors.push_back(std::move(vendor.vendor));
    return vendors;
}

std::vector<VendorCount> ScanCoordinator::availableVendorCounts() const {
    if (!m_kindFilter.get())
        return {};
    return lists().vendors(m_statusFilter.get(), *m_kindFilter.get());
}

std::size_t ScanCoordinator::count(StatusFilter filter) const {
    return lists().count(filter);
}

std::size_t ScanCoordinator::count(Urgency urgency) const {
    return lists().count(urgency);
}

std::size_t ScanCoordinator::attentionCount() const {
    return lists().count(StatusFilter::needsAttention);
}

std::size_t ScanCoordinator::count(ItemKind kind) const {
    return lists().count(m_statusFilter.get(), kind);
}

std::size_t ScanCoordinator::count(std::string_view vendor) const {
    if (!m_kindFilter.get())
        return 0;
    return lists().count(m_statusFilter.get(), *m_kindFilter.get(), vendor);
}

bool ScanCoordinator::matchesStatusFilter(const ScanItem& item, StatusFilter filter) const {
    return passes(urgencyOf(item, m_nativeCounterpartKeys.get()), filter);
}

bool ScanCoordinator::hasNativeCounterpart(const ScanItem& item) const {
    return m_nativeCounterpartKeys.get().has(item);
}

Recommendation ScanCoordinator::recommendation(const ScanItem& item) const {
    return recommendationFor(item, m_nativeCounterpartKeys.get());
}

} // namespace veridane
