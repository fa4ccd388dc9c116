#include "ui/AppsCard.h"

#include "platform/Language.h"
#include "ui/Card.h"
#include "ui/FocusRing.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/WrapLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace veridane::ui {

AppsCard::AppsCard(const Theme& theme, QWidget* parent)
    : Retranslated(theme, parent), m_title(new WrapLabel(theme, TextStyle::headline)),
      m_tagline(new WrapLabel(theme, TextStyle::callout, Tone::secondary)),
      m_call(new WrapLabel(theme, TextStyle::calloutSemibold, Tone::accent)) {
    auto* texts = makeColumn(nullptr, metrics::space2);
    texts->addWidget(m_title);
    texts->addWidget(m_tagline);
    texts->addSpacing(metrics::space2);
    texts->addWidget(m_call);

    auto* row = makeRow(this, metrics::space12);
    row->setContentsMargins(metrics::space16, metrics::space16, metrics::space16, metrics::space16);
    row->addWidget(new SymbolLabel(theme, "square.grid.2x2.fill", metrics::appsSymbol,
                                   metrics::appsSymbol, Tone::accent));
    row->addLayout(texts, 1);
    row->addSpacing(metrics::space8);
    row->addWidget(new SymbolLabel(theme, "arrow.up.right", metrics::aboutArrow,
                                   metrics::aboutArrow, Tone::secondary));
    for (QWidget* part : findChildren<QWidget*>())
        part->setAttribute(Qt::WA_TransparentForMouseEvents);

    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setRing(*this, {.radius = metrics::largeCardRadius});
    retranslate();
}

void AppsCard::retranslate() {
    const std::string title = localized("Weitere Apps von Mirefold Software");
    setTitle(title);
    m_title->setText(toQString(title));
    m_tagline->setText(toQString(localized("Kleine Werkzeuge, die ihren Platz kennen.")));
    m_call->setText(toQString(localized("Alle Apps entdecken")));
    setAccessibleDescription(m_tagline->text() + QLatin1Char(' ') + m_call->text());
}

QSize AppsCard::sizeHint() const {
    return layout()->totalSizeHint();
}

QSize AppsCard::minimumSizeHint() const {
    return layout()->totalMinimumSize();
}

void AppsCard::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    paintCard(painter, rect(), theme(), CardStyle::tinted, metrics::largeCardRadius);
    paintState(painter, metrics::largeCardRadius);
}

} // namespace veridane::ui
