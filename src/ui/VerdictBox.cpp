#include "ui/VerdictBox.h"

#include "model/Recommendation.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SymbolLabel.h"
#include "ui/SymbolLook.h"
#include "ui/Text.h"
#include "ui/WrapLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace veridane::ui {

VerdictBox::VerdictBox(const Theme& theme, QWidget* parent)
    : TintedBox(theme,
                {.fill = opacity::verdictFill,
                 .border = opacity::verdictBorder,
                 .radius = metrics::verdictBoxRadius},
                parent),
      m_symbol(
          new SymbolLabel(theme, {}, metrics::verdictSymbol, metrics::verdictSymbol, Tone::gray)),
      m_verdict(new WrapLabel(theme, TextStyle::headline)),
      m_advice(new WrapLabel(theme, TextStyle::callout, Tone::secondary)) {
    m_verdict->setObjectName(QStringLiteral("verdictLabel"));
    m_advice->setObjectName(QStringLiteral("adviceLabel"));
    auto* row = makeRow(nullptr, metrics::space8);
    row->addWidget(m_symbol);
    row->addWidget(m_verdict, 1);
    auto* column = makeColumn(this, metrics::space8);
    column->setContentsMargins(metrics::space12, metrics::space12, metrics::space12,
                               metrics::space12);
    column->addLayout(row);
    column->addWidget(m_advice);
}

void VerdictBox::showRecommendation(const Recommendation& recommendation) {
    const SymbolLook look = lookOf(recommendation.urgency);
    setTone(look.tone);
    m_symbol->setSymbol(look.symbol, look.tone);
    m_verdict->setTone(look.tone);
    m_verdict->setText(toQString(recommendation.verdict));
    m_advice->setText(toQString(recommendation.advice));
}

} // namespace veridane::ui
