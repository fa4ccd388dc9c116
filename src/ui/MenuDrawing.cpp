#include "ui/MenuDrawing.h"

#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QGuiApplication>
#include <QPainter>
#include <QStyleOption>

#include <utility>

namespace veridane::ui::MenuDrawing {
namespace {

bool isSeparator(const QStyleOptionMenuItem& option) {
    return option.menuItemType == QStyleOptionMenuItem::Separator;
}

/// The entry's text and, behind a tab, its shortcut.
std::pair<QString, QString> textsOf(const QStyleOptionMenuItem& option) {
    const qsizetype tab = option.text.indexOf(QLatin1Char('\t'));
    if (tab < 0)
        return {option.text, QString()};
    return {option.text.left(tab), option.text.mid(tab + 1)};
}

} // namespace

bool canHaveRoundCorners() {
    // An X server without a compositor shows black corners, and does not tell the toolkit.
    return QGuiApplication::platformName() != QLatin1String("xcb");
}

void drawPanel(const Theme& theme, const QRect& rect, QPainter& painter) {
    const double radius = canHaveRoundCorners() ? metrics::menuRadius : 0;
    const ThemeColours& colours = theme.colours();
    painting::fillRounded(painter, rect, radius, colours.popover);
    painting::strokeInside(painter, rect, radius, colours.border, metrics::hairline);
}

void drawEntry(const Theme& theme, const QStyleOptionMenuItem& option, QPainter& painter) {
    const ThemeColours& colours = theme.colours();
    if (isSeparator(option)) {
        painter.fillRect(QRect(option.rect.x() + metrics::space10, option.rect.center().y(),
                               option.rect.width() - 2 * metrics::space10, metrics::hairline),
                         colours.separator);
        return;
    }
    painter.save();
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isSelected = isEnabled && option.state.testFlag(QStyle::State_Selected);
    if (!isEnabled)
        painter.setOpacity(opacity::disabled);
    if (isSelected)
        painting::fillRounded(painter, option.rect, metrics::menuEntryRadius, colours.accent);
    const auto [text, shortcut] = textsOf(option);
    const QRect rect = option.rect.adjusted(metrics::space10, 0, -metrics::space10, 0);
    painter.setFont(theme.font(TextStyle::body));
    painter.setPen(theme.textColour(isSelected ? Tone::onAccent : Tone::primary));
    painter.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextHideMnemonic, text);
    painter.setPen(theme.textColour(isSelected ? Tone::onAccent : Tone::secondary));
    painter.drawText(rect, Qt::AlignVCenter | Qt::AlignRight, shortcut);
    painter.restore();
}

QSize entrySize(const Theme& theme, const QStyleOptionMenuItem& option) {
    if (isSeparator(option))
        return {2 * metrics::space10, 2 * metrics::space4 + metrics::hairline};
    const QFontMetrics font(theme.font(TextStyle::body));
    const auto [text, shortcut] = textsOf(option);
    int width = font.size(Qt::TextHideMnemonic, text).width() + 2 * metrics::space10;
    if (!shortcut.isEmpty())
        width += metrics::space24 + font.horizontalAdvance(shortcut);
    return {width, theme.lineHeight(TextStyle::body) + 2 * metrics::menuPadding};
}

void drawTitle(const Theme& theme, const QStyleOptionMenuItem& option, QPainter& painter) {
    const bool isOpen = option.state.testFlag(QStyle::State_Sunken);
    const bool isHovered = option.state.testFlag(QStyle::State_Selected);
    const int room = (option.rect.height() - titleSize(theme, option).height()) / 2;
    const QRect rect = option.rect.adjusted(0, room, 0, -room);
    if (isOpen || isHovered)
        painting::fillRounded(painter, rect, metrics::buttonRadius,
                              isOpen ? theme.colours().pressed : theme.colours().hover);
    painter.save();
    painter.setFont(theme.font(TextStyle::body));
    painter.setPen(theme.textColour(Tone::secondary));
    painter.drawText(rect, Qt::AlignCenter | Qt::TextHideMnemonic, option.text);
    painter.restore();
}

QSize titleSize(const Theme& theme, const QStyleOptionMenuItem& option) {
    const QFontMetrics font(theme.font(TextStyle::body));
    return {font.size(Qt::TextHideMnemonic, option.text).width() + 2 * metrics::space8,
            theme.lineHeight(TextStyle::body) + 2 * metrics::menuPadding};
}

} // namespace veridane::ui::MenuDrawing
