#include "ui/DetailHeader.h"

#include "model/ScanItem.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/WrapLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace veridane::ui {

DetailHeader::DetailHeader(const Theme& theme, QWidget* parent)
    : QWidget(parent), m_symbol(new SymbolLabel(theme, {}, metrics::detailSymbol,
                                                metrics::detailSymbolBox, Tone::accent)),
      m_name(new WrapLabel(theme, TextStyle::title2)),
      m_kind(new Label(theme, TextStyle::callout, Tone::secondary)) {
    m_name->setFont(theme.verbatimFont(TextStyle::title2));
    m_name->setObjectName(QStringLiteral("detailNameLabel"));
    m_kind->setObjectName(QStringLiteral("detailKindLabel"));
    auto* texts = makeColumn(nullptr, metrics::space2);
    texts->addWidget(m_name);
    texts->addWidget(m_kind);
    auto* row = makeRow(this, metrics::space12);
    row->addWidget(m_symbol);
    row->addLayout(texts, 1);
}

void DetailHeader::showItem(const ScanItem& item) {
    m_symbol->setSymbol(symbolName(item.kind), Tone::accent);
    m_name->setText(shown(item.name));
    m_kind->setText(toQString(displayName(item.kind)));
}

} // namespace veridane::ui
