#include "ui/ResultsModel.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/Text.h"
#include "ui/UpdateCell.h"

#include <algorithm>
#include <utility>

namespace veridane::ui {
namespace {

// Each costs the view a walk over its rows; beyond these one new beginning is cheaper.
constexpr std::size_t maxRuns = 24;

} // namespace

ResultsModel::ResultsModel(const ScanCoordinator& coordinator, QObject* parent)
    : QAbstractTableModel(parent), m_coordinator(coordinator) {}

ResultsModel::~ResultsModel() = default;

int ResultsModel::refresh(int anchor) {
    std::vector<Row> rows = currentRows();
    const int last = static_cast<int>(rows.size()) - 1;
    const auto difference = differenceTo(rows, anchor);
    if (!difference || difference->runs.size() > maxRuns) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    } else {
        apply(difference->runs, rows);
        showUpdateResults(rows);
    }
    return std::min(difference ? difference->anchor : anchor, last);
}

std::vector<ResultsModel::Row> ResultsModel::currentRows() const {
    const std::vector<ScanItem>& items = m_coordinator.items().get();
    std::vector<Row> rows;
    const ItemReferences shown = m_coordinator.filteredItems();
    rows.reserve(shown.size());
    for (const ScanItem* item : shown)
        rows.push_back(
            {static_cast<std::size_t>(item - items.data()), item->id, item->updateResult});
    return rows;
}

/// Nothing if other items, or another order, stand behind the rows. Filters leave the order as it
/// is, so that the old and the new rows can be walked side by side.
std::optional<ResultsModel::Difference> ResultsModel::differenceTo(const std::vector<Row>& rows,
                                                                   int anchor) const {
    const std::vector<ScanItem>& items = m_coordinator.items().get();
    std::vector<char> isOld(items.size()), isNew(items.size());
    for (const Row& row : m_rows) {
        if (row.place >= items.size() || items[row.place].id != row.id)
            return std::nullopt;
        isOld[row.place] = true;
    }
    for (const Row& row : rows)
        isNew[row.place] = true;

    Difference result;
    std::size_t before = 0;
    std::size_t now = 0;
    while (before < m_rows.size() || now < rows.size()) {
        const auto firstGone = before;
        while (before < m_rows.size() && !isNew[m_rows[before].place])
            ++before;
        const auto firstCome = now;
        while (now < rows.size() && !isOld[rows[now].place])
            ++now;
        if (before > firstGone)
            result.runs.push_back(
                {false, static_cast<int>(firstCome), static_cast<int>(before - firstGone)});
        if (now > firstCome)
            result.runs.push_back(
                {true, static_cast<int>(firstCome), static_cast<int>(now - firstCome)});
        const bool hasKept = before < m_rows.size() && now < rows.size();
        if (hasKept ? m_rows[before].place != rows[now].place
                    : before < m_rows.size() || now < rows.size())
            return std::nullopt;
        if (anchor >= 0 && static_cast<std::size_t>(anchor) >= firstGone)
            result.anchor = static_cast<int>(now);
        before += hasKept;
        now += hasKept;
    }
    return result;
}

void ResultsModel::apply(const std::vector<Run>& runs, const std::vector<Row>& rows) {
    for (const Run& run : runs) {
        const int last = run.first + run.count - 1;
        if (run.hasCome) {
            beginInsertRows({}, run.first, last);
            m_rows.insert(m_rows.begin() + run.first, rows.begin() + run.first,
                          rows.begin() + last + 1);
            endInsertRows();
        } else {
            beginRemoveRows({}, run.first, last);
            m_rows.erase(m_rows.begin() + run.first, m_rows.begin() + last + 1);
            endRemoveRows();
        }
    }
}

void ResultsModel::showUpdateResults(const std::vector<Row>& rows) {
    std::vector<std::pair<int, int>> changed; // first and last row
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (m_rows[i].updateResult == rows[i].updateResult)
            continue;
        m_rows[i].updateResult = rows[i].updateResult;
        const int row = static_cast<int>(i);
        if (!changed.empty() && changed.back().second == row - 1)
            changed.back().second = row;
        else
            changed.emplace_back(row, row);
    }
    if (changed.size() > maxRuns)
        changed = {{changed.front().first, changed.back().second}};
    constexpr int column = static_cast<int>(ResultsColumn::update);
    for (const auto& [first, last] : changed)
        Q_EMIT dataChanged(index(first, column), index(last, column));
}

void ResultsModel::retranslate() {
    constexpr int lastColumn = int{resultsColumnCount} - 1;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, lastColumn);
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, lastColumn));
}

const ScanItem* ResultsModel::item(int row) const {
    if (row < 0 || row >= rowCount())
        return nullptr;
    // Between a write of the items and the refresh after it, views ask for rows of the old ones.
    const std::vector<ScanItem>& items = m_coordinator.items().get();
    const auto& [place, id, shown] = m_rows[static_cast<std::size_t>(row)];
    return place < items.size() && items[place].id == id ? &items[place] : nullptr;
}

std::optional<Uuid> ResultsModel::idAt(int row) const {
    if (row < 0 || row >= rowCount())
        return std::nullopt;
    return m_rows[static_cast<std::size_t>(row)].id;
}

int ResultsModel::rowOf(const Uuid& id) const {
    const auto found = std::ranges::find(m_rows, id, &Row::id);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int ResultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ResultsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int{resultsColumnCount};
}

QString ResultsModel::text(const ScanItem& item, ResultsColumn column) const {
    constexpr auto absent = "—";
    switch (column) {
    case ResultsColumn::name:
        return toQString(item.name);
    case ResultsColumn::assessment:
        return toQString(m_coordinator.recommendation(item).verdict);
    case ResultsColumn::architecture:
        return toQString(item.architecture.summaryText());
    case ResultsColumn::vendor:
        return toQString(item.vendor.value_or(absent));
    case ResultsColumn::version:
        return toQString(item.version.value_or(absent));
    case ResultsColumn::update:
        return UpdateCell(item).text();
    }
    return {};
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
    const ScanItem* shown = index.isValid() ? item(index.row()) : nullptr;
    if (!shown)
        return {};
    const ResultsColumn column = columnOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return text(*shown, column);
    case Qt::AccessibleDescriptionRole:
        if (column == ResultsColumn::name && shown->hasHiddenRosettaDependency())
            return toQString(localized("Native App mit eingebetteten Intel-Komponenten – einige "
                                       "Funktionen benötigen Rosetta"));
        return {};
    case Qt::ToolTipRole:
        if (column == ResultsColumn::assessment)
            return toQString(m_coordinator.recommendation(*shown).advice);
        if (column == ResultsColumn::update && !UpdateCell(*shown).reason().isEmpty())
            return UpdateCell(*shown).reason();
        return {};
    case ItemRole:
        return QVariant::fromValue(shown);
    default:
        return {};
    }
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount() ||
        (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
        return {};
    switch (static_cast<ResultsColumn>(section)) {
    case ResultsColumn::name:
        return toQString(localized("Name"));
    case ResultsColumn::assessment:
        return toQString(localized("Einschätzung"));
    case ResultsColumn::architecture:
        return toQString(localized("Architektur"));
    case ResultsColumn::vendor:
        return toQString(localized("Hersteller"));
    case ResultsColumn::version:
        return toQString(localized("Version"));
    case ResultsColumn::update:
        return toQString(localized("Update"));
    }
    return {};
}

Qt::ItemFlags ResultsModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

} // namespace veridane::ui
