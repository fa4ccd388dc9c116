#include "ui/ButtonDrawing.h"

#include "ui/ButtonRole.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace veridane::ui::ButtonDrawing {
namespace {

struct Shape {
    int height;
    int padding; // left and right of the label
    int radius;
};

Shape shapeOf(ButtonRole role) {
    switch (role) {
    case ButtonRole::bordered:
    case ButtonRole::prominent:
        return {metrics::buttonHeight, metrics::space12, metrics::buttonRadius};
    case ButtonRole::borderedSmall:
        return {metrics::smallButtonHeight, metrics::space10, metrics::smallButtonRadius};
    case ButtonRole::prominentLarge:
        return {metrics::largeButtonHeight, metrics::space16, metrics::largeButtonRadius};
    case ButtonRole::action:
        return {metrics::actionHeight, metrics::space10, metrics::buttonRadius};
    case ButtonRole::tool:
        return {metrics::toolButtonHeight, metrics::toolButtonPadding, metrics::largeButtonRadius};
    }
    return {};
}

bool isProminent(ButtonRole role) {
    return role == ButtonRole::prominent || role == ButtonRole::prominentLarge;
}

bool has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

bool isPressed(const QStyleOption& option) {
    return has(option, QStyle::State_Sunken) || has(option, QStyle::State_On);
}

bool isHovered(const QStyleOption& option) {
    return has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled);
}

/// What Return presses in a dialog of the toolkit stands out like in ours.
ButtonRole roleOf(const QStyleOptionButton& option, const QWidget* widget) {
    const ButtonRole role = buttonRole(widget);
    const bool isDefault = option.features.testFlag(QStyleOptionButton::DefaultButton);
    return isDefault && role == ButtonRole::bordered ? ButtonRole::prominent : role;
}

int symbolSize(ButtonRole role) {
    return role == ButtonRole::borderedSmall ? metrics::smallSymbol : metrics::symbol;
}

int symbolGap(ButtonRole role) {
    return role == ButtonRole::action ? metrics::space8 : metrics::space6;
}

/// Where the symbol stands for the button's purpose it has the colour of what can be pressed.
Tone symbolTone(ButtonRole role) {
    return role == ButtonRole::bordered || role == ButtonRole::action ? Tone::accent
                                                                      : Tone::secondary;
}

QFont fontOf(const Theme& theme, ButtonRole role) {
    if (isProminent(role))
        return theme.font(TextStyle::bodyMedium);
    return theme.font(role == ButtonRole::borderedSmall ? TextStyle::callout : TextStyle::body);
}

/// Draws symbol and text from `x` on, with the middle of the rectangle.
void drawSymbolAndText(const Theme& theme, QPainter& painter, QRect rect, const QWidget* widget,
                       ButtonRole role, const QString& text, const QColor& colour) {
    const std::string symbol = buttonSymbol(widget);
    if (!symbol.empty()) {
        const int size = symbolSize(role);
        theme.drawSymbol(painter, QRect(rect.x(), rect.y(), size, rect.height()), symbol, size,
                         symbolTone(role));
        rect.setLeft(rect.left() + size + symbolGap(role));
    }
    painter.setFont(fontOf(theme, role));
    painter.setPen(colour);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic, text);
}

void drawBordered(const Theme& theme, const QStyleOption& option, QPainter& painter,
                  double radius) {
    const ThemeColours& colours = theme.colours();
    painting::fillRounded(painter, option.rect, radius, colours.control);
    if (isPressed(option) || isHovered(option))
        painting::fillRounded(painter, option.rect, radius,
                              isPressed(option) ? colours.pressed : colours.hover);
    painting::strokeInside(painter, option.rect, radius, colours.controlBorder, metrics::hairline);
}

int contentWidth(const Theme& theme, const QWidget* widget, ButtonRole role, const QString& text) {
    const int textWidth =
        QFontMetrics(fontOf(theme, role)).size(Qt::TextHideMnemonic, text).width();
    return buttonSymbol(widget).empty() ? textWidth
                                        : textWidth + symbolSize(role) + symbolGap(role);
}

} // namespace

void drawBevel(const Theme& theme, const QStyleOptionButton& option, QPainter& painter,
               const QWidget* widget) {
    const ThemeColours& colours = theme.colours();
    const ButtonRole role = roleOf(option, widget);
    const double radius = shapeOf(role).radius;
    painter.save();
    if (!has(option, QStyle::State_Enabled))
        painter.setOpacity(opacity::disabled);
    if (isProminent(role)) {
        painting::fillRounded(painter, option.rect, radius,
                              isPressed(option)   ? colours.accentPressed
                              : isHovered(option) ? colours.accentHover
                                                  : colours.accent);
    } else {
        drawBordered(theme, option, painter, radius);
    }
    painter.restore();
}

void drawLabel(const Theme& theme, const QStyleOptionButton& option, QPainter& painter,
               const QWidget* widget) {
    const ButtonRole role = roleOf(option, widget);
    painter.save();
    if (!has(option, QStyle::State_Enabled))
        painter.setOpacity(opacity::disabled);
    const int width = contentWidth(theme, widget, role, option.text);
    const int left =
        role == ButtonRole::action ? shapeOf(role).padding : (option.rect.width() - width) / 2;
    const QRect rect(option.rect.x() + left, option.rect.y(), width, option.rect.height());
    drawSymbolAndText(theme, painter, rect, widget, role, option.text,
                      theme.textColour(isProminent(role) ? Tone::onAccent : Tone::primary));
    painter.restore();
}

QSize size(const Theme& theme, const QStyleOptionButton& option, const QWidget* widget) {
    const ButtonRole role = roleOf(option, widget);
    const Shape shape = shapeOf(role);
    return {contentWidth(theme, widget, role, option.text) + 2 * shape.padding,
            theme.scaled(shape.height)};
}

void drawTool(const Theme& theme, const QStyleOptionToolButton& option, QPainter& painter,
              const QWidget* widget) {
    const Shape shape = shapeOf(ButtonRole::tool);
    painter.save();
    if (!has(option, QStyle::State_Enabled))
        painter.setOpacity(opacity::disabled);
    if (isPressed(option) || isHovered(option))
        painting::fillRounded(painter, option.rect, shape.radius,
                              isPressed(option) ? theme.colours().pressed : theme.colours().hover);
    const QRect rect = option.rect.adjusted(shape.padding, 0, -shape.padding, 0);
    drawSymbolAndText(theme, painter, rect, widget, ButtonRole::tool, option.text,
                      theme.textColour(Tone::primary));
    if (option.features.testFlag(QStyleOptionToolButton::HasMenu)) {
        const QRect chevron(rect.right() + 1 - metrics::chevron, rect.y(), metrics::chevron,
                            rect.height());
        theme.drawSymbol(painter, chevron, "chevron.down", metrics::chevron, Tone::secondary);
    }
    painter.restore();
}

QSize toolSize(const Theme& theme, const QStyleOptionToolButton& option) {
    const Shape shape = shapeOf(ButtonRole::tool);
    int width = metrics::symbol + metrics::space6 + 2 * shape.padding +
                QFontMetrics(fontOf(theme, ButtonRole::tool))
                    .size(Qt::TextHideMnemonic, option.text)
                    .width();
    if (option.features.testFlag(QStyleOptionToolButton::HasMenu))
        width += metrics::space6 + metrics::chevron;
    return {width, theme.scaled(shape.height)};
}

void drawPopUp(const Theme& theme, const QStyleOptionComboBox& option, QPainter& painter) {
    painter.save();
    if (!has(option, QStyle::State_Enabled))
        painter.setOpacity(opacity::disabled);
    drawBordered(theme, option, painter, metrics::buttonRadius);
    const QRect rect = option.rect.adjusted(metrics::popUpPadding, 0, -metrics::space8, 0);
    painter.setFont(theme.font(TextStyle::body));
    painter.setPen(theme.textColour(Tone::primary));
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter, option.currentText);
    const QRect chevron(rect.right() + 1 - metrics::popUpChevron, rect.y(), metrics::popUpChevron,
                        rect.height());
    theme.drawSymbol(painter, chevron, "chevron.up.chevron.down", metrics::popUpChevron,
                     Tone::secondary);
    painter.restore();
}

QSize popUpSize(const Theme& theme, const QSize& text) {
    return {text.width() + metrics::popUpPadding + 2 * metrics::space8 + metrics::popUpChevron,
            theme.scaled(metrics::buttonHeight)};
}

} // namespace veridane::ui::ButtonDrawing
