#include "ui/CatalogueRow.h"

#include "ui/FocusRing.h"
#include "ui/HelpTags.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/PictureLoader.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace veridane::ui {

CatalogueRow::CatalogueRow(PictureLoader& pictures, const Theme& theme, QWidget* parent)
    : PaintedButton(theme, parent), m_pictures(pictures) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setRing(*this, {.radius = metrics::boxRadius});
}

void CatalogueRow::setApp(const MirefoldApp& app) {
    if (app.iconURL != m_app.iconURL) {
        m_icon = {};
        m_wish.reset();
    }
    m_app = app;
    setTitle(shown(app.name).toStdString());
    m_tagline = shown(app.tagline);
    setAccessibleDescription(m_tagline);
    update();
}

// Not before: what is never seen need not be fetched. And again if it has not come while the
// machine was offline.
void CatalogueRow::showEvent(QShowEvent* event) {
    PaintedButton::showEvent(event);
    if (!m_icon.isNull() || !m_app.iconURL || !m_wish.expired())
        return;
    const auto wish = std::make_shared<const std::string>(*m_app.iconURL);
    m_wish = wish; // which ends with the handler, also where no picture comes
    m_pictures.load(*wish, [row = QPointer(this), wish](const QImage& picture) {
        if (!row || row->m_app.iconURL != *wish)
            return;
        row->m_icon = picture;
        row->update();
    });
}

int CatalogueRow::textHeight() const {
    return theme().lineHeight(TextStyle::calloutSemibold) + metrics::catalogueTextGap +
           theme().lineHeight(TextStyle::caption);
}

QSize CatalogueRow::sizeHint() const {
    return {0, std::max(metrics::catalogueIcon, textHeight()) + 2 * metrics::space8};
}

QRect CatalogueRow::textRect() const {
    const int left = metrics::space8 + metrics::catalogueIcon + metrics::space10;
    const int right = metrics::space8 + metrics::linkArrow + metrics::space10 + metrics::space4;
    return rect().adjusted(left, 0, -right, 0);
}

bool CatalogueRow::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return PaintedButton::event(event);
    const int width = textRect().width();
    const auto isCut = [&](TextStyle style, const QString& text) {
        return QFontMetrics(theme().verbatimFont(style)).horizontalAdvance(text) > width;
    };
    if (isCut(TextStyle::caption, m_tagline) || isCut(TextStyle::calloutSemibold, title()))
        showHelpTag(*static_cast<QHelpEvent*>(event), title() + QStringLiteral(" – ") + m_tagline,
                    *this);
    return true;
}

void CatalogueRow::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    const ThemeColours& colours = theme().colours();
    painting::fillRounded(painter, rect(), metrics::boxRadius,
                          faded(colours.quaternary, opacity::quietFill));
    paintState(painter, metrics::boxRadius);
    paintIcon(painter, {metrics::space8, (height() - metrics::catalogueIcon) / 2,
                        metrics::catalogueIcon, metrics::catalogueIcon});
    theme().drawSymbol(
        painter, {width() - metrics::space8 - metrics::linkArrow, 0, metrics::linkArrow, height()},
        "arrow.up.right", metrics::linkArrow, Tone::secondary);

    QRect line = textRect();
    const auto drawLine = [&](TextStyle style, const QColor& colour, const QString& text) {
        line.setHeight(theme().lineHeight(style));
        painter.setFont(theme().verbatimFont(style));
        painter.setPen(colour);
        painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, line.width()));
        line.moveTop(line.bottom() + 1 + metrics::catalogueTextGap);
    };
    line.setTop((height() - textHeight() + 1) / 2);
    drawLine(TextStyle::calloutSemibold, colours.text, title());
    drawLine(TextStyle::caption, colours.secondary, m_tagline);
}

void CatalogueRow::paintIcon(QPainter& painter, const QRect& rect) const {
    if (m_icon.isNull()) {
        painting::fillRounded(painter, rect, metrics::catalogueIconRadius,
                              theme().tint(Tone::accent, opacity::iconPlaceholder));
        theme().drawSymbol(painter, rect, "app.fill", metrics::placeholderSymbol, Tone::accent);
        return;
    }
    // As a brush and not by clipping, whose edges are jagged.
    QBrush brush(m_icon);
    brush.setTransform(QTransform::fromTranslate(rect.x(), rect.y())
                           .scale(static_cast<double>(rect.width()) / m_icon.width(),
                                  static_cast<double>(rect.height()) / m_icon.height()));
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(rect, metrics::catalogueIconRadius, metrics::catalogueIconRadius);
    painter.restore();
}

} // namespace veridane::ui
