#include "ui/DetailView.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "platform/Text.h"
#include "ui/EmptyStateView.h"
#include "ui/FocusRing.h"
#include "ui/Label.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SymbolLabel.h"
#include "ui/SymbolLook.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/TintedBox.h"
#include "ui/WrapLabel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

namespace veridane::ui {

DetailView::DetailView(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent)
    : QWidget(parent), m_coordinator(coordinator), m_theme(theme), m_refresh([this] { refresh(); }),
      m_emptyState(new EmptyStateView(theme, "sidebar.right")) {
    setObjectName(QStringLiteral("DetailView"));
    m_scrollArea = makeScrollArea(makeBlocks());
    m_scrollArea->setObjectName(QStringLiteral("detailScrollArea"));
    setRing(*m_scrollArea, {.gap = -metrics::focusRingWidth}); // inside

    auto* column = makeColumn(this);
    column->addWidget(m_emptyState);
    column->addWidget(m_scrollArea);

    m_refresh.on(coordinator.selection());
    m_refresh.on(coordinator.items());
    m_refresh.now();
}

DetailView::~DetailView() = default;

QWidget* DetailView::makeBlocks() {
    auto* blocks = new QWidget;
    auto* column = makeColumn(blocks, metrics::space16);
    column->setContentsMargins(metrics::space16, metrics::space16, metrics::space16,
                               metrics::space16);
    column->addWidget(makeHeader());
    column->addWidget(makeVerdictBox());
    column->addStretch();
    return blocks;
}

QWidget* DetailView::makeHeader() {
    m_kindSymbol =
        new SymbolLabel(m_theme, {}, metrics::detailSymbol, metrics::detailSymbolBox, Tone::accent);
    m_name = new WrapLabel(m_theme, TextStyle::title2);
    m_name->setFont(m_theme.verbatimFont(TextStyle::title2));
    m_name->setObjectName(QStringLiteral("detailNameLabel"));
    m_kind = new Label(m_theme, TextStyle::callout, Tone::secondary);
    m_kind->setObjectName(QStringLiteral("detailKindLabel"));
    auto* texts = makeColumn(nullptr, metrics::space2);
    texts->addWidget(m_name);
    texts->addWidget(m_kind);

    auto* header = new QWidget;
    auto* row = makeRow(header, metrics::space12);
    row->addWidget(m_kindSymbol);
    row->addLayout(texts, 1);
    return header;
}

QWidget* DetailView::makeVerdictBox() {
    m_urgencySymbol =
        new SymbolLabel(m_theme, {}, metrics::verdictSymbol, metrics::verdictSymbol, Tone::gray);
    m_verdict = new WrapLabel(m_theme, TextStyle::headline);
    m_verdict->setObjectName(QStringLiteral("verdictLabel"));
    m_advice = new WrapLabel(m_theme, TextStyle::callout, Tone::secondary);
    m_advice->setObjectName(QStringLiteral("adviceLabel"));
    auto* row = makeRow(nullptr, metrics::space8);
    row->addWidget(m_urgencySymbol);
    row->addWidget(m_verdict, 1);

    m_verdictBox = new TintedBox(m_theme, {.fill = opacity::verdictFill,
                                           .border = opacity::verdictBorder,
                                           .radius = metrics::verdictBoxRadius});
    auto* column = makeColumn(m_verdictBox, metrics::space8);
    column->setContentsMargins(metrics::space12, metrics::space12, metrics::space12,
                               metrics::space12);
    column->addLayout(row);
    column->addWidget(m_advice);
    return m_verdictBox;
}

void DetailView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        m_refresh.now();
    QWidget::changeEvent(event);
}

void DetailView::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter(this).fillRect(rect(), m_theme.colours().detail);
}

void DetailView::refresh() {
    const auto item = m_coordinator.selectedItem();
    m_emptyState->setTexts(localized("Kein Objekt ausgewählt"),
                           localized("Wähle links ein Programm, um Details zu sehen."));
    m_emptyState->setVisible(!item);
    m_scrollArea->setVisible(item.has_value());
    if (item)
        showItem(*item);
}

void DetailView::showItem(const ScanItem& item) {
    const Recommendation recommendation = m_coordinator.recommendation(item);
    const SymbolLook look = lookOf(recommendation.urgency);
    m_kindSymbol->setSymbol(symbolName(item.kind), Tone::accent);
    m_name->setText(toQString(text::printable(item.name)));
    m_scrollArea->setAccessibleName(m_name->text());
    m_kind->setText(toQString(displayName(item.kind)));
    m_verdictBox->setTone(look.tone);
    m_urgencySymbol->setSymbol(look.symbol, look.tone);
    m_verdict->setTone(look.tone);
    m_verdict->setText(toQString(recommendation.verdict));
    m_advice->setText(toQString(recommendation.advice));
}

} // namespace veridane::ui
