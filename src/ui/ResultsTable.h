#pragma once

#include "ui/ResultsDelegate.h"
#include "ui/ResultsModel.h"
#include "ui/Retranslated.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPoint>
#include <QTreeView>

#include <memory>
#include <optional>

class QMenu;

namespace veridane {
class Workspace;
}

namespace veridane::ui {

class Preferences;
class ResultsHeader;

/// The rows of a scan's result. What is selected here is the coordinator's selection, and the other
/// way round.
class ResultsTable : public Retranslated<QTreeView> {
    Q_OBJECT

public:
    /// All of it must outlive the table.
    ResultsTable(ScanCoordinator& coordinator, Workspace& workspace, Preferences& preferences,
                 const Theme& theme, QWidget* parent = nullptr);
    ~ResultsTable() override;

    /// Shows the coordinator's rows and selection. The row at the upper edge stays there, or the
    /// next one if it has gone; the top of the list stays the top.
    void refresh();

    /// What can be done with an item, wherever the filters have left it. Null without an item.
    [[nodiscard]] std::unique_ptr<QMenu> contextMenu(const std::optional<Uuid>& id);

    /// Finds names.
    void keyboardSearch(const QString& text) override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                 const QModelIndex& index) const override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void timerEvent(QTimerEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void retranslate() final;
    void showSelection();
    void writeSelection();
    bool selectFirst();
    void checkUpdate(const QModelIndex& index);
    void showContextMenu(int row, const QPoint& place);
    [[nodiscard]] QPoint rowCentre(int row) const; // on the screen

    void hover(std::optional<QPoint> point);
    void updateRow(int row);
    void setRing(bool isShown);
    [[nodiscard]] int selectedRow() const;
    [[nodiscard]] QModelIndex linkAt(const QPoint& point) const;
    template <typename Function>
    void forVisibleWheels(const Function& function) const;

    ScanCoordinator& m_coordinator;
    Workspace& m_workspace;
    ResultsModel m_model;
    ResultsDelegate m_delegate;
    ResultsHeader* m_header;    // the toolkit's child
    bool m_isRefreshing = true; // what is selected meanwhile is not the user's choice

    std::optional<QPoint> m_pointer; // while it is over the rows
    int m_hoveredRow = -1;
    int m_hoveredLink = -1; // rows
    int m_pressedLink = -1;
    std::optional<Uuid> m_pressedId;
    bool m_showsRing = false;
    QBasicTimer m_wheelTimer;
    QElapsedTimer m_sinceSearch;
};

} // namespace veridane::ui
