#include "ui/FittingRowLayout.h"

#include <algorithm>

namespace veridane::ui {

FittingRowLayout::FittingRowLayout(int spacing) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(spacing);
}

FittingRowLayout::~FittingRowLayout() = default;

void FittingRowLayout::addItem(QLayoutItem* item) {
    m_items.emplace_back(item);
    invalidate();
}

int FittingRowLayout::count() const {
    return static_cast<int>(m_items.size());
}

QLayoutItem* FittingRowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FittingRowLayout::takeAt(int index) {
    if (!itemAt(index))
        return nullptr;
    QLayoutItem* item = m_items[static_cast<std::size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

std::vector<FittingRowLayout::Place> FittingRowLayout::places(const QRect& rect) const {
    std::vector<Place> places;
    int needed = -spacing();
    for (const auto& item : m_items) {
        if (item->isEmpty())
            continue;
        places.push_back({item.get(), {rect.topLeft(), item->sizeHint()}});
        needed += places.back().rect.width() + spacing();
    }
    const bool fits = needed <= rect.width();
    int x = rect.x();
    int y = rect.y();
    int shown = static_cast<int>(places.size());
    int spare = rect.width() - needed;
    for (Place& place : places) {
        place.rect.moveTopLeft({x, y});
        if (!fits) {
            place.rect.setWidth(rect.width());
            y += place.rect.height() + spacing();
            continue;
        }
        const int share = spare / shown--; // each grows alike, to the last pixel
        spare -= share;
        place.rect.setWidth(place.rect.width() + share);
        x += place.rect.width() + spacing();
    }
    return places;
}

int FittingRowLayout::heightForWidth(int width) const {
    int height = 0;
    for (const Place& place : places({0, 0, width, 0}))
        height = std::max(height, place.rect.y() + place.rect.height());
    return height;
}

QSize FittingRowLayout::minimumSize() const {
    QSize size(0, 0);
    for (const auto& item : m_items)
        if (!item->isEmpty())
            size = size.expandedTo(item->minimumSize());
    return size;
}

void FittingRowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    for (const Place& place : places(rect))
        place.item->setGeometry(place.rect);
}

} // namespace veridane::ui
