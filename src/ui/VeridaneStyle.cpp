#include "ui/VeridaneStyle.h"

#include "ui/ButtonDrawing.h"
#include "ui/FocusRing.h"
#include "ui/MenuDrawing.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/ScrollBarDrawing.h"
#include "ui/TabDrawing.h"
#include "ui/Theme.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace veridane::ui {
namespace {

template <typename Option>
const Option& as(const QStyleOption* option) {
    return *qstyleoption_cast<const Option*>(option);
}

/// The controls of dialogs that are not ours show the keyboard's focus as well.
void giveDefaultRing(QWidget& widget) {
    if (hasRing(widget))
        return;
    if (qobject_cast<QLineEdit*>(&widget))
        setRing(widget, {.gap = 0, .radius = metrics::fieldRadius});
    else if (qobject_cast<QPushButton*>(&widget) || qobject_cast<QComboBox*>(&widget) ||
             qobject_cast<QToolButton*>(&widget))
        setRing(widget, {.radius = metrics::buttonRadius});
}

void drawMenuEntry(const Theme& theme, QStyleOptionMenuItem entry, QPainter& painter,
                   const QWidget* widget) {
    // The list of a pop-up fills its entries with the window's colour, from edge to edge.
    if (qobject_cast<const QComboBox*>(widget)) {
        constexpr int inset = metrics::menuPadding - metrics::hairline;
        painter.fillRect(entry.rect, theme.colours().popover);
        entry.rect.adjust(inset, 0, -inset, 0);
    }
    MenuDrawing::drawEntry(theme, entry, painter);
}

void drawProgress(const Theme& theme, const QStyleOptionProgressBar& option, QPainter& painter) {
    const std::int64_t range = std::int64_t{option.maximum} - option.minimum;
    if (range <= 0)
        return;
    QRectF rect = option.rect;
    rect.setWidth(rect.width() * static_cast<double>(option.progress - option.minimum) /
                  static_cast<double>(range));
    if (rect.width() <= 0)
        return;
    // Short parts keep the shape of the end of the track.
    painter.save();
    painter.setClipRect(rect);
    rect.setWidth(std::max<double>(rect.width(), metrics::progressHeight));
    painting::fillRounded(painter, rect, metrics::progressHeight / 2.0, theme.colours().accentTint);
    painter.restore();
}

} // namespace

VeridaneStyle::VeridaneStyle(const Theme& theme)
    : QProxyStyle(QStringLiteral("fusion")), m_theme(theme) {}

QPalette VeridaneStyle::themePalette() const {
    const ThemeColours& colours = m_theme.colours();
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, colours.window},
        {QPalette::Base, colours.content},
        {QPalette::AlternateBase, colours.content},
        {QPalette::WindowText, colours.text},
        {QPalette::Text, colours.text},
        {QPalette::ButtonText, colours.text},
        {QPalette::BrightText, colours.onAccent},
        {QPalette::PlaceholderText, colours.secondary},
        {QPalette::Button, colours.control},
        {QPalette::Highlight, colours.accent},
        {QPalette::HighlightedText, colours.onAccent},
        {QPalette::Link, colours.accentText},
        {QPalette::LinkVisited, colours.accentText},
        {QPalette::ToolTipBase, colours.popover},
        {QPalette::ToolTipText, colours.text},
        {QPalette::Mid, blended(colours.separator, colours.window)},
        {QPalette::Light, colours.control},
        {QPalette::Midlight, colours.control},
        {QPalette::Dark, blended(colours.controlBorder, colours.window)},
        {QPalette::Shadow, blended(colours.controlBorder, colours.window)},
    };
    QPalette palette;
    for (const auto& [role, colour] : roles)
        palette.setColor(QPalette::All, role, colour);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded(colours.text, opacity::disabled));
    return palette;
}

void VeridaneStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    giveDefaultRing(*widget);
    // The list of a pop-up stands on the surface of menus. The class has no header; under another
    // name the list would have the surface of the table, which is close.
    if (const auto* list = qobject_cast<QAbstractItemView*>(widget);
        list && list->parentWidget() && list->parentWidget()->inherits("QComboBoxPrivateContainer"))
        list->viewport()->setBackgroundRole(QPalette::ToolTipBase);
    if (qobject_cast<QMenu*>(widget) && MenuDrawing::canHaveRoundCorners())
        widget->setAttribute(Qt::WA_TranslucentBackground);
    if (qobject_cast<QTabBar*>(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (qobject_cast<QScrollBar*>(widget)) {
        // It lies over rows that are painted below it.
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
        widget->setAutoFillBackground(false);
    }
}

int VeridaneStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
    case PM_ScrollView_ScrollBarOverlap:
        return metrics::scrollBarExtent;
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_SplitterWidth:
        return metrics::hairline;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return metrics::focusRingGap + metrics::focusRingWidth;
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return metrics::menuPadding;
    case PM_MenuBarPanelWidth:
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin:
        return 0;
    case PM_MenuBarItemSpacing:
        return metrics::space4;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_ToolTipLabelFrameWidth:
        return metrics::space8;
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int VeridaneStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returnData) const {
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_ScrollBar_Transient: // those fade away, and with them the sign that there is more
    case SH_FocusFrame_Mask:     // that cuts off the bends of the ring
    case SH_UnderlineShortcut:   // the letters are told by the keyboard's own help alone
        return 0;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_TabBar_Alignment:
        return Qt::AlignCenter;
    case SH_TabBar_SelectMouseType: // like all that is pressed
        return QEvent::MouseButtonRelease;
    case SH_FocusFrame_AboveWidget:
    case SH_ComboBox_Popup:
    case SH_MenuBar_MouseTracking:
    case SH_Menu_MouseTracking:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

void VeridaneStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    const ThemeColours& colours = m_theme.colours();
    switch (element) {
    case PE_PanelItemViewRow:
    case PE_FrameFocusRect:
    case PE_FrameMenu:
    case PE_FrameTabBarBase:
        return;
    case PE_FrameTabWidget:
        TabDrawing::drawEdge(m_theme, option->rect, *painter);
        return;
    case PE_PanelMenu:
        MenuDrawing::drawPanel(m_theme, option->rect, *painter);
        return;
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, colours.popover);
        painting::strokeInside(*painter, option->rect, 0, colours.border, metrics::hairline);
        return;
    case PE_PanelLineEdit:
        painter->save();
        if (!option->state.testFlag(State_Enabled))
            painter->setOpacity(opacity::disabled);
        painting::fillRounded(*painter, option->rect, metrics::fieldRadius, colours.control);
        if (!option->state.testFlag(State_HasFocus)) // the ring takes its place
            painting::strokeInside(*painter, option->rect, metrics::fieldRadius,
                                   colours.controlBorder, metrics::hairline);
        painter->restore();
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void VeridaneStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case CE_PushButtonBevel:
        ButtonDrawing::drawBevel(m_theme, as<QStyleOptionButton>(option), *painter, widget);
        return;
    case CE_PushButtonLabel:
        ButtonDrawing::drawLabel(m_theme, as<QStyleOptionButton>(option), *painter, widget);
        return;
    case CE_ProgressBarGroove:
        painting::fillRounded(*painter, option->rect, metrics::progressHeight / 2.0,
                              m_theme.colours().quaternary);
        return;
    case CE_ProgressBarContents:
        drawProgress(m_theme, as<QStyleOptionProgressBar>(option), *painter);
        return;
    case CE_MenuItem:
        drawMenuEntry(m_theme, as<QStyleOptionMenuItem>(option), *painter, widget);
        return;
    case CE_MenuBarItem:
        MenuDrawing::drawTitle(m_theme, as<QStyleOptionMenuItem>(option), *painter);
        return;
    case CE_ComboBoxLabel: // drawn with the pop-up
    case CE_MenuBarEmptyArea:
    case CE_MenuEmptyArea:
        return;
    case CE_TabBarTab:
        TabDrawing::drawTab(m_theme, as<QStyleOptionTab>(option), *painter, widget);
        return;
    case CE_Splitter:
        painter->fillRect(option->rect, m_theme.colours().window);
        painter->fillRect(option->rect, m_theme.colours().separator);
        return;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void VeridaneStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    switch (control) {
    case CC_ScrollBar:
        ScrollBarDrawing::draw(m_theme, as<QStyleOptionSlider>(option), *painter);
        return;
    case CC_ToolButton:
        // The buttons inside of fields have nothing but their picture.
        if (as<QStyleOptionToolButton>(option).text.isEmpty())
            break;
        ButtonDrawing::drawTool(m_theme, as<QStyleOptionToolButton>(option), *painter, widget);
        return;
    case CC_ComboBox:
        ButtonDrawing::drawPopUp(m_theme, as<QStyleOptionComboBox>(option), *painter);
        return;
    default:
        break;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect VeridaneStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                    SubControl subControl, const QWidget* widget) const {
    if (control != CC_ScrollBar)
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    const auto& slider = as<QStyleOptionSlider>(option);
    const QRect thumb = ScrollBarDrawing::thumb(slider);
    const bool isHorizontal = slider.orientation == Qt::Horizontal;
    QRect rect = slider.rect;
    switch (subControl) {
    case SC_ScrollBarSlider:
        return thumb;
    case SC_ScrollBarGroove:
        return rect;
    case SC_ScrollBarSubPage:
        isHorizontal ? rect.setRight(thumb.left() - 1) : rect.setBottom(thumb.top() - 1);
        return rect;
    case SC_ScrollBarAddPage:
        isHorizontal ? rect.setLeft(thumb.right() + 1) : rect.setTop(thumb.bottom() + 1);
        return rect;
    default:
        return {};
    }
}

QRect VeridaneStyle::subElementRect(SubElement element, const QStyleOption* option,
                                    const QWidget* widget) const {
    switch (element) {
    case SE_ProgressBarGroove:
    case SE_ProgressBarContents:
        return option->rect;
    case SE_TabWidgetTabBar: {
        const QSize bar = as<QStyleOptionTabWidgetFrame>(option).tabBarSize;
        return {(option->rect.width() - bar.width()) / 2, 0, bar.width(),
                TabDrawing::stripHeight(m_theme)};
    }
    case SE_TabWidgetTabPane: // with the line at the lower edge of the strip
        return option->rect.adjusted(0, TabDrawing::stripHeight(m_theme) - metrics::hairline, 0, 0);
    case SE_TabWidgetTabContents:
        return option->rect.adjusted(0, TabDrawing::stripHeight(m_theme), 0, 0);
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

QSize VeridaneStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                      const QSize& size, const QWidget* widget) const {
    switch (type) {
    case CT_PushButton:
        return ButtonDrawing::size(m_theme, as<QStyleOptionButton>(option), widget);
    case CT_ToolButton:
        if (as<QStyleOptionToolButton>(option).text.isEmpty())
            break;
        return ButtonDrawing::toolSize(m_theme, as<QStyleOptionToolButton>(option));
    case CT_ComboBox:
        return ButtonDrawing::popUpSize(m_theme, size);
    case CT_TabBarTab:
        return TabDrawing::size(m_theme, as<QStyleOptionTab>(option));
    case CT_MenuItem:
        return MenuDrawing::entrySize(m_theme, as<QStyleOptionMenuItem>(option));
    case CT_MenuBarItem:
        return MenuDrawing::titleSize(m_theme, as<QStyleOptionMenuItem>(option));
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

} // namespace veridane::ui
