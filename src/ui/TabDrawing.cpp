#include "ui/TabDrawing.h"

#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QStyleOption>
#include <QTabBar>
#include <QVariant>

#include <algorithm>
#include <string>

namespace veridane::ui::TabDrawing {
namespace {

// Half of the gap between two tabs. The toolkit knows of no gap: their rectangles meet in it.
constexpr int halfGap = metrics::space2;

std::string symbolOf(const QStyleOptionTab& option, const QWidget* bar) {
    const auto* tabs = qobject_cast<const QTabBar*>(bar);
    return tabs ? tabs->tabData(option.tabIndex).toString().toStdString() : std::string();
}

/// What is filled: the rectangle without the gaps around it.
QRect shapeOf(const QStyleOptionTab& option) {
    return option.rect.adjusted(halfGap, metrics::space8, -halfGap, -metrics::space8);
}

void fill(const Theme& theme, const QStyleOptionTab& option, QPainter& painter) {
    const ThemeColours& colours = theme.colours();
    const QRect shape = shapeOf(option);
    if (option.state.testFlag(QStyle::State_Selected))
        painting::fillRounded(painter, shape, metrics::tabRadius, colours.activeRow);
    else if (option.state.testFlag(QStyle::State_Sunken))
        painting::fillRounded(painter, shape, metrics::tabRadius, colours.pressed);
    else if (option.state.testFlag(QStyle::State_MouseOver))
        painting::fillRounded(painter, shape, metrics::tabRadius, colours.hover);

    // Tabs take no focus from a click, so that all that is to be known is whether the keyboard has
    // moved it in this window at all; at first it is here without anybody's doing.
    constexpr auto byKeyboard = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((option.state & byKeyboard) == byKeyboard)
        painting::strokeInside(painter, shape.adjusted(-halfGap, -halfGap, halfGap, halfGap),
                               metrics::tabRadius + halfGap, colours.focusRing,
                               metrics::focusRingWidth);
}

} // namespace

void setSymbol(QTabBar& bar, int tab, std::string_view name) {
    bar.setTabData(tab, toQString(name));
}

int stripHeight(const Theme& theme) {
    return theme.scaled(metrics::tabStripHeight);
}

QSize size(const Theme& theme, const QStyleOptionTab& option) {
    const QFontMetrics widest(theme.font(TextStyle::captionMedium));
    const int label = widest.horizontalAdvance(option.text) + 2 * metrics::space10;
    return {std::max(metrics::tabWidth, label) + 2 * halfGap, stripHeight(theme)};
}

void drawTab(const Theme& theme, const QStyleOptionTab& option, QPainter& painter,
             const QWidget* bar) {
    painter.save();
    fill(theme, option, painter);
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    const Tone tone = isChosen ? Tone::accent : Tone::secondary;
    const TextStyle style = isChosen ? TextStyle::captionMedium : TextStyle::caption;
    const int textHeight = theme.lineHeight(style);
    const int contents = metrics::tabSymbol + metrics::tabSymbolGap + textHeight;
    QRect line = shapeOf(option);
    line.setTop(line.top() + (line.height() - contents + 1) / 2);
    line.setHeight(metrics::tabSymbol);
    theme.drawSymbol(painter, line, symbolOf(option, bar), metrics::tabSymbol, tone);
    line.translate(0, metrics::tabSymbol + metrics::tabSymbolGap);
    line.setHeight(textHeight);
    painter.setFont(theme.font(style));
    painter.setPen(theme.textColour(tone));
    painter.drawText(line, Qt::AlignCenter | Qt::TextHideMnemonic, option.text);
    painter.restore();
}

void drawEdge(const Theme& theme, const QRect& rect, QPainter& painter) {
    painter.fillRect(rect.x(), rect.y(), rect.width(), metrics::hairline,
                     theme.colours().separator);
}

} // namespace veridane::ui::TabDrawing
