#pragma once

#include <QAbstractItemDelegate>
#include <QFont>

namespace veridane {
class ScanCoordinator;
struct ScanItem;
} // namespace veridane

namespace veridane::ui {

class Theme;

/// How a row of the table looks.
struct RowLook {
    bool isHovered = false;
    bool isSelected = false;
    bool hasRing = false; // of the keyboard's focus
    bool hasLine = false; // below it
};

/// Paints the table's rows and cells, and shows what a cell has no room for. In the option of the
/// last column `State_MouseOver` means a pointer over its link, and `State_Sunken` a pressed one.
class ResultsDelegate : public QAbstractItemDelegate {
    Q_OBJECT

public:
    /// Both must outlive the delegate.
    ResultsDelegate(const ScanCoordinator& coordinator, const Theme& theme,
                    QObject* parent = nullptr);

    /// What lies under a row's cells; `rect` is as wide as all of them.
    void paintRow(QPainter& painter, const QRect& rect, const RowLook& look) const;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// Where the link stands in a cell of that place; empty without one.
    [[nodiscard]] QRect linkRect(const QRect& cell, const QModelIndex& index) const;
    /// Whether a wheel turns in the cell.
    [[nodiscard]] static bool hasWheel(const QModelIndex& index);

    void turnWheels() { ++m_wheelStep; }

private:
    struct Content;
    struct Places;
    [[nodiscard]] Content contentOf(const QModelIndex& index) const;
    [[nodiscard]] Places placesIn(const QRect& cell, const Content& content,
                                  const QModelIndex& index) const;
    [[nodiscard]] QString helpTagAt(const QPoint& point, const QRect& cell,
                                    const QModelIndex& index) const;

    const ScanCoordinator& m_coordinator;
    const Theme& m_theme;
    // Asking the theme for a font costs more than drawing with it.
    QFont m_nameFont, m_verdictFont, m_architectureFont, m_detailFont;
    QFont m_captionFont, m_captionMediumFont, m_linkFont;
    int m_wheelStep = 0;
};

} // namespace veridane::ui
