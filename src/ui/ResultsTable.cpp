#include "ui/ResultsTable.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/FocusRing.h"
#include "ui/ResultsHeader.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/UpdateCell.h"
#include "updates/UpdateChecker.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHoverEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QTimerEvent>

#include <algorithm>
#include <utility>
#include <vector>

namespace veridane::ui {
namespace {

constexpr int wheelInterval = 80; // milliseconds from one spoke to the next
constexpr int updateColumn = static_cast<int>(ResultsColumn::update);

const ScanItem* itemWith(const Uuid& id, const std::vector<ScanItem>& items) {
    const auto found = std::ranges::find(items, id, &ScanItem::id);
    return found == items.end() ? nullptr : &*found;
}

} // namespace

ResultsTable::ResultsTable(ScanCoordinator& coordinator, Workspace& workspace,
                           Preferences& preferences, const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_workspace(workspace),
      m_model(coordinator), m_delegate(coordinator, theme),
      m_header(new ResultsHeader(preferences, theme, this)) {
    setObjectName(QStringLiteral("resultsTable"));
    setHeader(m_header);
    // A double click beside a title is the header's own affair.
    disconnect(m_header, &QHeaderView::sectionHandleDoubleClicked, this, nullptr);
    setItemDelegate(&m_delegate);
    setModel(&m_model);
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setExpandsOnDoubleClick(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    viewport()->setAttribute(Qt::WA_Hover);
    retranslate();
    m_isRefreshing = false;
}

ResultsTable::~ResultsTable() = default;

void ResultsTable::retranslate() {
    m_model.retranslate();
    setAccessibleName(toQString(localized("Ergebnisse")));
}

void ResultsTable::refresh() {
    const QScopedValueRollback guard(m_isRefreshing, true);
    // Selecting a row, which the toolkit does by itself when the selected one goes, scrolls to it.
    setAutoScroll(false);
    const int offset = verticalScrollBar()->value();
    const QModelIndex top = offset > 0 ? indexAt({0, 0}) : QModelIndex();
    const int cut = top.isValid() ? -visualRect(top).y() : 0;
    const int anchor = m_model.refresh(top.row());
    showSelection();
    executeDelayedItemsLayout();
    if (top.isValid() && anchor >= 0)
        verticalScrollBar()->setValue(anchor * rowHeight(m_model.index(0, 0)) + cut);
    setAutoScroll(true);
    hover(m_pointer);
}

void ResultsTable::showSelection() {
    const std::optional<Uuid>& id = m_coordinator.selection().get();
    const int shown = selectedRow();
    if (id ? m_model.idAt(shown) == id : shown < 0)
        return;
    const int row = id ? m_model.rowOf(*id) : -1;
    if (row < 0)
        selectionModel()->clearSelection();
    else
        selectionModel()->setCurrentIndex(
            m_model.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ResultsTable::writeSelection() {
    const std::optional<Uuid> id = m_model.idAt(selectedRow());
    // The rows may be older than the coordinator's list.
    const bool isShown =
        id && std::ranges::any_of(m_coordinator.filteredItems(),
                                  [&](const ScanItem* item) { return item->id == *id; });
    m_coordinator.setSelection(isShown ? id : std::nullopt);
}

void ResultsTable::selectionChanged(const QItemSelection& selected,
                                    const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    for (const QItemSelection& changed : {selected, deselected}) {
        for (const QItemSelectionRange& range : changed)
            updateRow(range.top());
    }
    if (!m_isRefreshing)
        writeSelection();
}

int ResultsTable::selectedRow() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

// Actions

std::unique_ptr<QMenu> ResultsTable::contextMenu(const std::optional<Uuid>& id) {
    const ScanItem* item = id ? itemWith(*id, m_coordinator.items().get()) : nullptr;
    if (!item)
        return nullptr;
    auto menu = std::make_unique<QMenu>(this);
    menu->setObjectName(QStringLiteral("resultsContextMenu"));
    menu->addAction(toQString(localized("Im Finder zeigen")), this,
                    [this, path = Path(item->path)] { m_workspace.revealFile(path); });
    if (UpdateChecker::hasSource(*item))
        menu->addAction(toQString(localized("Update prüfen")), this,
                        [this, id = *id] { m_coordinator.checkUpdate(id); });
    return menu;
}

void ResultsTable::contextMenuEvent(QContextMenuEvent* event) {
    // A right click has selected its row already.
    const bool hasPointer = event->reason() == QContextMenuEvent::Mouse;
    if (hasPointer)
        showContextMenu(indexAt(event->pos()).row(), event->globalPos());
    else
        showContextMenu(selectedRow(), rowCentre(selectedRow()));
}

void ResultsTable::showContextMenu(int row, const QPoint& place) {
    auto menu = contextMenu(m_model.idAt(row));
    if (!menu)
        return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu.release()->popup(place);
}

QPoint ResultsTable::rowCentre(int row) const {
    return viewport()->mapToGlobal(visualRect(m_model.index(row, 0)).center());
}

void ResultsTable::checkUpdate(const QModelIndex& index) {
    const ScanItem* item = m_model.item(index.row());
    if (item && UpdateCell(*item).isLink())
        m_coordinator.checkUpdate(item->id);
}

void ResultsTable::keyPressEvent(QKeyEvent* event) {
    setRing(true);
    const bool isSearching =
        m_sinceSearch.isValid() && m_sinceSearch.elapsed() < QApplication::keyboardInputInterval();
    switch (event->key()) {
    case Qt::Key_Space:
        if (isSearching) // for a name with a blank in it
            break;
        checkUpdate(m_model.index(selectedRow(), updateColumn)); // the current row may be unmarked
        return;
    case Qt::Key_F10: // the menu key of keyboards that have none
        if (event->modifiers() != Qt::ShiftModifier)
            break;
        showContextMenu(selectedRow(), rowCentre(selectedRow()));
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
        if (selectFirst())
            return;
        break;
    default:
        break;
    }
    QTreeView::keyPressEvent(event);
}

/// Where nothing is selected, the first key selects the current row and does not go on from it.
bool ResultsTable::selectFirst() {
    if (selectionModel()->hasSelection() || m_model.rowCount() == 0)
        return false;
    setCurrentIndex(currentIndex().isValid() ? currentIndex() : m_model.index(0, 0));
    return true;
}

void ResultsTable::keyboardSearch(const QString& text) {
    // The toolkit searches the column of the last click.
    if (currentIndex().column() > 0)
        selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0),
                                          QItemSelectionModel::NoUpdate);
    m_sinceSearch.start();
    QTreeView::keyboardSearch(text);
}

void ResultsTable::mousePressEvent(QMouseEvent* event) {
    setRing(false);
    QTreeView::mousePressEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    m_pressedLink = linkAt(event->position().toPoint()).row();
    m_pressedId = m_model.idAt(m_pressedLink);
    updateRow(m_pressedLink);
}

void ResultsTable::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex link = linkAt(event->position().toPoint());
    const bool isSame = link.isValid() && m_model.idAt(link.row()) == m_pressedId;
    updateRow(std::exchange(m_pressedLink, -1));
    m_pressedId.reset();
    if (isSame)
        checkUpdate(link);
}

QModelIndex ResultsTable::linkAt(const QPoint& point) const {
    const QModelIndex index = indexAt(point);
    if (index.column() != updateColumn ||
        !m_delegate.linkRect(visualRect(index), index).contains(point))
        return {};
    return index;
}

// Pointer and focus

bool ResultsTable::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        hover(static_cast<QHoverEvent*>(event)->position().toPoint());
        break;
    case QEvent::HoverLeave:
        hover(std::nullopt);
        break;
    default:
        break;
    }
    return QTreeView::viewportEvent(event);
}

void ResultsTable::hover(std::optional<QPoint> point) {
    m_pointer = point;
    const int row = point ? indexAt(*point).row() : -1;
    const int link = point ? linkAt(*point).row() : -1;
    if (row == m_hoveredRow && link == m_hoveredLink)
        return;
    updateRow(std::exchange(m_hoveredRow, row));
    m_hoveredLink = link;
    updateRow(row);
}

/// With the row above, whose line depends on it.
void ResultsTable::updateRow(int row) {
    if (row < 0)
        return;
    const QRect rect = visualRect(m_model.index(row, 0));
    viewport()->update(0, rect.y() - rect.height(), viewport()->width(), 2 * rect.height());
}

void ResultsTable::setRing(bool isShown) {
    if (std::exchange(m_showsRing, isShown) != isShown)
        updateRow(currentIndex().row());
}

void ResultsTable::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    if (!isInterruption(event->reason()))
        setRing(comesFromKeyboard(event->reason()));
}

void ResultsTable::scrollContentsBy(int dx, int dy) {
    QTreeView::scrollContentsBy(dx, dy);
    hover(m_pointer);
}

void ResultsTable::resizeEvent(QResizeEvent* event) {
    m_header->fit(viewport()->width());
    QTreeView::resizeEvent(event);
}

// Painting

void ResultsTable::drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                           const QModelIndex& index) const {
    const int row = index.row();
    const int selected = selectedRow();
    const auto isMarked = [&](int some) {
        return some == m_hoveredRow || some == selected;
    };
    RowLook look;
    look.isHovered = row == m_hoveredRow;
    look.isSelected = row == selected;
    look.hasRing = m_showsRing && hasFocus() && row == currentIndex().row();
    look.hasLine = !isMarked(row) && !isMarked(row + 1);
    m_delegate.paintRow(
        *painter,
        {-m_header->offset(), options.rect.y(), m_header->length(), options.rect.height()}, look);
    for (int column = 0; column < m_model.columnCount(); ++column) {
        QStyleOptionViewItem cell = options;
        cell.rect.setX(columnViewportPosition(column));
        cell.rect.setWidth(columnWidth(column));
        if (!cell.rect.intersects(viewport()->rect()))
            continue;
        cell.state.setFlag(QStyle::State_MouseOver, row == m_hoveredLink);
        cell.state.setFlag(QStyle::State_Sunken, row == m_pressedLink && row == m_hoveredLink);
        m_delegate.paint(painter, cell, m_model.index(row, column));
    }
}

void ResultsTable::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (m_wheelTimer.isActive() || style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0)
        return;
    forVisibleWheels([this](const QModelIndex&) { m_wheelTimer.start(wheelInterval, this); });
}

void ResultsTable::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_wheelTimer.timerId()) {
        QTreeView::timerEvent(event);
        return;
    }
    // The next painting starts it again, if a wheel is in sight by then.
    bool hasWheel = false;
    m_delegate.turnWheels();
    forVisibleWheels([&](const QModelIndex& index) {
        hasWheel = true;
        update(index);
    });
    if (!hasWheel)
        m_wheelTimer.stop();
}

template <typename Function>
void ResultsTable::forVisibleWheels(const Function& function) const {
    if (!isVisible())
        return;
    const QModelIndex first = indexAt({0, 0});
    for (int row = first.row(); row >= 0 && row < m_model.rowCount(); ++row) {
        const QModelIndex index = m_model.index(row, updateColumn);
        if (visualRect(index).y() >= viewport()->height())
            return;
        if (ResultsDelegate::hasWheel(index))
            function(index);
    }
}

} // namespace veridane::ui
