#pragma once

#include "ui/ResultsColumns.h"

#include <QHeaderView>

namespace veridane::ui {

class Preferences;
class Theme;

/// The titles of the table's columns, and their widths: those that the user has dragged, which are
/// kept for the next start, and a share of the table's width for the others. A double click beside
/// a title takes back the dragging.
class ResultsHeader : public QHeaderView {
    Q_OBJECT

public:
    /// Both must outlive the header.
    ResultsHeader(Preferences& preferences, const Theme& theme, QWidget* parent = nullptr);

    /// Shares a table's width out.
    void fit(int available);

    [[nodiscard]] QSize sizeHint() const override;
    void setModel(QAbstractItemModel* model) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;

private:
    void share();
    void keepDragged(int column, int width);
    void forgetDragged(int column);
    void store();

    Preferences& m_preferences;
    const Theme& m_theme;
    PerColumn<ColumnLimits> m_limits;
    ResultsColumns::Dragged m_dragged;
    int m_available = 0;
    bool m_isSharing = false;
    bool m_isPressed = false;
};

} // namespace veridane::ui
