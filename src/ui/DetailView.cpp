#include "ui/DetailView.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/ActionButtons.h"
#include "ui/ComponentBox.h"
#include "ui/DetailHeader.h"
#include "ui/EmptyStateView.h"
#include "ui/FactRows.h"
#include "ui/FocusRing.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/UpdateBlock.h"
#include "ui/VerdictBox.h"

#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <initializer_list>
#include <utility>

namespace veridane::ui {

DetailView::DetailView(ScanCoordinator& coordinator, Workspace& workspace, const Theme& theme,
                       QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_theme(theme),
      m_refresh([this] { refresh(); }), m_emptyState(new EmptyStateView(theme, "sidebar.right")),
      m_header(new DetailHeader(theme)), m_verdict(new VerdictBox(theme)),
      m_facts(new FactRows(theme)), m_components(new ComponentBox(theme)),
      m_updates(new UpdateBlock(coordinator, theme)),
      m_actions(new ActionButtons(coordinator, workspace)) {
    setObjectName(QStringLiteral("DetailView"));
    m_scrollArea = makeScrollArea(makeBlocks());
    m_scrollArea->setObjectName(QStringLiteral("detailScrollArea"));
    setRing(*m_scrollArea, {.gap = insideGap});
    connect(m_actions, &ActionButtons::rosettaGuideRequested, this,
            &DetailView::rosettaGuideRequested);

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
    for (QWidget* block : std::initializer_list<QWidget*>{m_header, m_verdict, m_facts,
                                                          m_components, m_updates, m_actions})
        column->addWidget(block);
    column->addStretch();
    return blocks;
}

void DetailView::retranslate() {
    m_refresh.now();
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
    // All changes are one: each row that appears would have all the others laid out anew.
    QLayout& blocks = *m_scrollArea->widget()->layout();
    blocks.setEnabled(false);
    m_scrollArea->setAccessibleName(shown(item.name));
    m_header->showItem(item);
    m_verdict->showRecommendation(recommendation);
    m_facts->showItem(item);
    m_components->showComponents(item.intelComponents);
    m_updates->showItem(item);
    m_actions->showFor(recommendation.urgency);
    blocks.setEnabled(true);
    if (std::exchange(m_shown, item.id) != item.id)
        m_scrollArea->verticalScrollBar()->setValue(0);
}

} // namespace veridane::ui
