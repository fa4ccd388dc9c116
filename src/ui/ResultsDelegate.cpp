#include "ui/ResultsDelegate.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Text.h"
#include "ui/HelpTags.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/RecommendationCell.h"
#include "ui/ResultsModel.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/UpdateCell.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>

#include <algorithm>
#include <string_view>

namespace veridane::ui {
namespace {

constexpr qsizetype maxPaintedLength = 400; // no column shows more; laying out a novel takes time
constexpr qsizetype maxTagLength = 1000;

const ScanItem* itemOf(const QModelIndex& index) {
    return index.data(ResultsModel::ItemRole).value<const ScanItem*>();
}

/// Names of files may hold line ends, and signs that turn the letters after them around.
QString inOneLine(QString text) {
    text.truncate(maxPaintedLength);
    return toQString(text::printable(text.toStdString()));
}

} // namespace

/// One line of text with what stands beside it.
struct ResultsDelegate::Content {
    QString text;
    const QFont* font = nullptr;
    Tone tone = Tone::secondary;
    std::string_view symbol = {};
    int symbolSize = 0; // 0: nothing in front of the text
    Tone symbolTone = Tone::secondary;
    bool hasBadge = false;
    bool isChecking = false;
    bool isLink = false;
};

struct ResultsDelegate::Places {
    QRect symbol;
    QRect text; // as wide as the text
    QRect badge;
    QString shown; // what fits
    bool isCut = false;
};

ResultsDelegate::ResultsDelegate(const ScanCoordinator& coordinator, const Theme& theme,
                                 QObject* parent)
    : QAbstractItemDelegate(parent), m_coordinator(coordinator), m_theme(theme),
      m_nameFont(theme.verbatimFont(TextStyle::body)), m_verdictFont(theme.font(TextStyle::body)),
      m_architectureFont(theme.font(TextStyle::monospacedCallout)),
      m_detailFont(theme.verbatimFont(TextStyle::callout)),
      m_captionFont(theme.verbatimFont(TextStyle::caption)),
      m_captionMediumFont(theme.verbatimFont(TextStyle::captionMedium)),
      m_linkFont(theme.font(TextStyle::callout)) {}

QSize ResultsDelegate::sizeHint(const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    Q_UNUSED(option);
    Q_UNUSED(index);
    return {0, m_theme.scaled(metrics::tableRowHeight)};
}

void ResultsDelegate::paintRow(QPainter& painter, const QRect& rect, const RowLook& look) const {
    const ThemeColours& colours = m_theme.colours();
    const QRect surface = rect.adjusted(metrics::tableRowInset, 0, -metrics::tableRowInset, 0);
    if (look.isSelected || look.isHovered)
        painting::fillRounded(painter, surface, metrics::tableRowRadius,
                              look.isSelected ? colours.selectedRow : colours.hover);
    if (look.hasRing)
        painting::strokeInside(painter, surface, metrics::tableRowRadius, colours.focusRing,
                               metrics::focusRingWidth);
    if (!look.hasLine)
        return;
    painter.fillRect(QRect(rect.x() + metrics::tableLineInset, rect.bottom(),
                           rect.width() - 2 * metrics::tableLineInset, metrics::hairline),
                     faded(colours.separator, opacity::rowLine));
}

ResultsDelegate::Content ResultsDelegate::contentOf(const QModelIndex& index) const {
    const ScanItem* item = itemOf(index);
    if (!item)
        return {};
    Content content;
    content.text = index.data().toString();
    content.font = &m_detailFont;
    switch (ResultsModel::columnOf(index)) {
    case ResultsColumn::name:
        content.font = &m_nameFont;
        content.tone = Tone::primary;
        content.symbol = symbolName(item->kind);
        content.symbolSize = metrics::symbol;
        content.hasBadge = item->hasHiddenRosettaDependency();
        break;
    case ResultsColumn::architecture:
        content.font = &m_architectureFont;
        break;
    case ResultsColumn::assessment:
    case ResultsColumn::vendor:
    case ResultsColumn::version:
        break;
    case ResultsColumn::update: {
        const UpdateCell cell(*item);
        content.font = cell.isLink()                              ? &m_linkFont
                       : cell.style() == TextStyle::captionMedium ? &m_captionMediumFont
                                                                  : &m_captionFont;
        content.tone = content.symbolTone = cell.tone();
        content.symbol = cell.symbol();
        content.isChecking = cell.isChecking();
        content.isLink = cell.isLink();
        if (content.isChecking || !content.symbol.empty())
            content.symbolSize = metrics::updateSymbol;
        break;
    }
    }
    return content;
}

ResultsDelegate::Places ResultsDelegate::placesIn(const QRect& cell, const Content& content,
                                                  const QModelIndex& index) const {
    const ResultsColumn column = ResultsModel::columnOf(index);
    int left = cell.x() + metrics::cellPaddingLeft;
    int right = cell.x() + cell.width() - metrics::cellPaddingRight;
    if (column == ResultsColumn::name)
        left += metrics::tableRowInset;
    if (column == ResultsColumn::update)
        right = cell.x() + cell.width() - metrics::scrollThumbRoom;
    Places places;
    if (content.symbolSize > 0) {
        places.symbol = {left, cell.y(), content.symbolSize, cell.height()};
        left += content.symbolSize +
                (column == ResultsColumn::update ? metrics::space4 : metrics::cellGap);
    }
    if (content.hasBadge)
        right -= metrics::cellGap + metrics::symbol;
    const int room = std::max(0, right - left);
    if (column == ResultsColumn::assessment || !content.font) {
        places.text = {left, cell.y(), room, cell.height()};
        return places;
    }
    const QFontMetrics fontMetrics(*content.font);
    places.shown = inOneLine(content.text);
    int width = fontMetrics.horizontalAdvance(places.shown);
    places.isCut = width > room || content.text.size() > maxPaintedLength;
    if (width > room) {
        places.shown = fontMetrics.elidedText(places.shown, Qt::ElideRight, room);
        width = std::min(room, fontMetrics.horizontalAdvance(places.shown));
    }
    places.text = {left, cell.y(), width, cell.height()};
    if (content.hasBadge)
        places.badge = {left + width + metrics::cellGap, cell.y(), metrics::symbol, cell.height()};
    return places;
}

void ResultsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const ScanItem* item = itemOf(index);
    if (!item)
        return;
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    const Content content = contentOf(index);
    const Places places = placesIn(option.rect, content, index);
    if (ResultsModel::columnOf(index) == ResultsColumn::assessment) {
        const Recommendation recommendation = m_coordinator.recommendation(*item);
        RecommendationCell(recommendation).paint(*painter, places.text, m_verdictFont, m_theme);
        painter->restore();
        return;
    }
    if (content.isChecking) {
        QRect wheel(0, 0, content.symbolSize, content.symbolSize);
        wheel.moveCenter(places.symbol.center());
        paintWheel(*painter, wheel, m_theme.colours().secondary, m_wheelStep);
    } else if (content.symbolSize > 0) {
        m_theme.drawSymbol(*painter, places.symbol, content.symbol, content.symbolSize,
                           content.symbolTone);
    }
    QFont font = *content.font;
    font.setUnderline(content.isLink && option.state.testFlag(QStyle::State_MouseOver));
    const bool isPressed = content.isLink && option.state.testFlag(QStyle::State_Sunken);
    painter->setFont(font);
    painter->setPen(isPressed ? m_theme.colours().accentPressed : m_theme.textColour(content.tone));
    // A hair more room than measured: the last letter may lean over its advance.
    painter->drawText(places.text.adjusted(0, 0, metrics::space2, 0),
                      Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, places.shown);
    if (content.hasBadge)
        m_theme.drawSymbol(*painter, places.badge, "eye.trianglebadge.exclamationmark",
                           metrics::symbol, Tone::yellow);
    painter->restore();
}

QRect ResultsDelegate::linkRect(const QRect& cell, const QModelIndex& index) const {
    const Content content = contentOf(index);
    if (!content.isLink)
        return {};
    const int height = m_theme.lineHeight(TextStyle::callout) + 2 * metrics::space4;
    QRect rect = placesIn(cell, content, index).text;
    rect.setY(cell.y() + (cell.height() - height) / 2);
    rect.setHeight(height);
    return rect.adjusted(-metrics::space4, 0, metrics::space4, 0);
}

bool ResultsDelegate::hasWheel(const QModelIndex& index) {
    const ScanItem* item = itemOf(index);
    return item && UpdateCell(*item).isChecking();
}

QString ResultsDelegate::helpTagAt(const QPoint& point, const QRect& cell,
                                   const QModelIndex& index) const {
    const Content content = contentOf(index);
    const Places places = placesIn(cell, content, index);
    if (places.badge.contains(point))
        return index.data(Qt::AccessibleDescriptionRole).toString();
    QString tag = index.data(Qt::ToolTipRole).toString();
    if (!tag.isEmpty())
        return tag;
    return places.isCut ? content.text : QString();
}

bool ResultsDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return false;
    showHelpTag(*event, helpTagAt(event->pos(), option.rect, index).left(maxTagLength),
                *view->viewport(), option.rect);
    return true;
}

} // namespace veridane::ui
