#include "ui/ResultsHeader.h"

#include "ui/Metrics.h"
#include "ui/Preferences.h"
#include "ui/Theme.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <string_view>

namespace veridane::ui {
namespace {

QString layoutName() {
    return QStringLiteral("resultColumns");
}

/// The rows' inset belongs to the outer columns, so that the table has no margins of its own.
int insetOf(int column) {
    return column == 0 || column == int{resultsColumnCount} - 1 ? metrics::tableRowInset : 0;
}

bool isFixed(int column) {
    const auto [minimum, ideal] = resultsColumnLimits[static_cast<std::size_t>(column)];
    return minimum == ideal;
}

} // namespace

ResultsHeader::ResultsHeader(Preferences& preferences, const Theme& theme, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_preferences(preferences), m_theme(theme) {
    std::ranges::transform(resultsColumnLimits, m_limits.begin(), [&](const ColumnLimits& limits) {
        return ColumnLimits{theme.scaled(limits.minimum), theme.scaled(limits.ideal)};
    });
    const QByteArray stored = preferences.layout(layoutName());
    m_dragged = ResultsColumns::decoded(
        std::string_view(stored.constData(), static_cast<std::size_t>(stored.size())));
    setSectionsMovable(false);
    setSectionsClickable(false);
    setHighlightSections(false);
    setStretchLastSection(false);
    setMinimumSectionSize(
        std::ranges::min(m_limits, {}, [](const auto& limits) { return limits.minimum; }).minimum);
    setMaximumSectionSize(maxColumnWidth);
    connect(this, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { keepDragged(column, width); });
    connect(this, &QHeaderView::sectionHandleDoubleClicked, this, &ResultsHeader::forgetDragged);
}

void ResultsHeader::setModel(QAbstractItemModel* model) {
    const QScopedValueRollback guard(m_isSharing, true);
    QHeaderView::setModel(model);
    for (int column = 0; column < count(); ++column)
        setSectionResizeMode(column, isFixed(column) ? Fixed : Interactive);
}

void ResultsHeader::fit(int available) {
    m_available = available;
    share();
}

void ResultsHeader::share() {
    const QScopedValueRollback guard(m_isSharing, true);
    const PerColumn<int> widths =
        ResultsColumns::widths(m_available - 2 * metrics::tableRowInset, m_dragged, m_limits);
    for (int column = 0; column < count(); ++column)
        resizeSection(column, widths[static_cast<std::size_t>(column)] + insetOf(column));
}

void ResultsHeader::keepDragged(int column, int width) {
    if (m_isSharing)
        return;
    if (isFixed(column)) {
        share();
        return;
    }
    const auto place = static_cast<std::size_t>(column);
    m_dragged[place] = std::max(width - insetOf(column), m_limits[place].minimum);
    if (m_isPressed) {
        // The others wait for the end of the dragging: the edge stays under the pointer.
        const QScopedValueRollback guard(m_isSharing, true);
        resizeSection(column, *m_dragged[place] + insetOf(column));
        return;
    }
    share();
    store();
}

void ResultsHeader::forgetDragged(int column) {
    m_dragged[static_cast<std::size_t>(column)].reset();
    share();
    store();
}

void ResultsHeader::store() {
    const auto state = QByteArray::fromStdString(ResultsColumns::encoded(m_dragged));
    if (state != m_preferences.layout(layoutName()))
        m_preferences.setLayout(layoutName(), state);
}

void ResultsHeader::mousePressEvent(QMouseEvent* event) {
    m_isPressed = true;
    QHeaderView::mousePressEvent(event);
}

void ResultsHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    m_isPressed = false;
    share();
    store();
}

QSize ResultsHeader::sizeHint() const {
    // The rows begin a little below the line.
    return {QHeaderView::sizeHint().width(),
            m_theme.scaled(metrics::tableHeaderHeight) + metrics::space2};
}

void ResultsHeader::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), m_theme.colours().content);
    const int height = m_theme.scaled(metrics::tableHeaderHeight);
    for (int column = 0; column < count(); ++column)
        paintSection(&painter, {sectionViewportPosition(column), 0, sectionSize(column), height},
                     column);
    painter.fillRect(0, height - metrics::hairline, width(), metrics::hairline,
                     m_theme.colours().separator);
}

void ResultsHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    if (column > 0)
        painter->fillRect(rect.x(), rect.y() + (rect.height() - metrics::headerTick) / 2,
                          metrics::hairline, metrics::headerTick, m_theme.colours().separator);
    const QRect text =
        rect.adjusted(metrics::cellPaddingLeft + (column == 0 ? metrics::tableRowInset : 0), 0,
                      -metrics::cellPaddingRight, 0);
    const QFont font = m_theme.font(TextStyle::captionMedium);
    painter->setFont(font);
    painter->setPen(m_theme.colours().secondary);
    painter->drawText(
        text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        QFontMetrics(font).elidedText(model()->headerData(column, Qt::Horizontal).toString(),
                                      Qt::ElideRight, text.width()));
}

} // namespace veridane::ui
