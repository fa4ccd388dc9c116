#pragma once

#include "model/UpdateCheckResult.h"
#include "platform/Uuid.h"
#include "ui/ResultsColumns.h"

#include <QAbstractTableModel>

#include <cstddef>
#include <optional>
#include <vector>

namespace veridane {
class ScanCoordinator;
struct ScanItem;
} // namespace veridane

namespace veridane::ui {

/// The items that the filters of a coordinator leave, one a row. Rows change in `refresh` only; a
/// row whose item has gone meanwhile shows nothing until then.
class ResultsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role : int {
        /// The record behind a row, as `const ScanItem*`: valid until the next write of the items.
        ItemRole = Qt::UserRole
    };

    [[nodiscard]] static ResultsColumn columnOf(const QModelIndex& index) {
        return static_cast<ResultsColumn>(index.column());
    }

    /// The coordinator must outlive the model. Empty until the first refresh.
    explicit ResultsModel(const ScanCoordinator& coordinator, QObject* parent = nullptr);
    ~ResultsModel() override;

    /// Shows what the coordinator has now. Tells exactly what has changed; where much has come and
    /// gone, or the order is another one, the model is reset. Gives where the row `anchor` stands
    /// now, or the one that has come nearest to its place; -1 if there is no row.
    int refresh(int anchor = -1);

    /// After a change of the language.
    void retranslate();

    /// Null for no row and for one whose item has gone; valid until the next write of the items.
    [[nodiscard]] const ScanItem* item(int row) const;
    [[nodiscard]] std::optional<Uuid> idAt(int row) const;
    /// The first row of that item, or -1.
    [[nodiscard]] int rowOf(const Uuid& id) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        std::size_t place = 0; // among the coordinator's items
        Uuid id;
        UpdateCheckResult updateResult; // as it is shown
    };
    /// Rows that have come or gone next to each other; `first` counts the rows as they are when all
    /// runs before are done.
    struct Run {
        bool hasCome = false;
        int first = 0;
        int count = 0;
    };
    struct Difference {
        std::vector<Run> runs;
        int anchor = -1; // where it is now
    };

    [[nodiscard]] std::vector<Row> currentRows() const;
    [[nodiscard]] std::optional<Difference> differenceTo(const std::vector<Row>& rows,
                                                         int anchor) const;
    void apply(const std::vector<Run>& runs, const std::vector<Row>& rows);
    void showUpdateResults(const std::vector<Row>& rows);
    [[nodiscard]] QString text(const ScanItem& item, ResultsColumn column) const;

    const ScanCoordinator& m_coordinator;
    std::vector<Row> m_rows;
};

} // namespace veridane::ui
