#include "ui/ResultsTableView.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/EmptyStateView.h"
#include "ui/ResultsTable.h"
#include "ui/Text.h"

#include <QPushButton>
#include <QStackedLayout>

namespace veridane::ui {

ResultsTableView::ResultsTableView(ScanCoordinator& coordinator, Workspace& workspace,
                                   Preferences& preferences, const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_stack(new QStackedLayout(this)),
      m_table(new ResultsTable(coordinator, workspace, preferences, theme)),
      m_emptyState(new EmptyStateView(theme, "magnifyingglass")), m_button(new QPushButton),
      m_refresh([this] { refresh(); }) {
    setObjectName(QStringLiteral("resultsTableView"));
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    m_emptyState->setObjectName(QStringLiteral("emptyStateView"));
    m_button->setObjectName(QStringLiteral("startScanButton"));
    setButtonRole(*m_button, ButtonRole::prominentLarge);
    connect(m_button, &QPushButton::clicked, this, [this] { m_coordinator.startScan(); });
    m_emptyState->setButton(m_button);
    m_stack->addWidget(m_emptyState);
    m_stack->addWidget(m_table);
    retranslate();
    m_refresh.on(coordinator.items());
    m_refresh.on(coordinator.nativeCounterpartKeys());
    m_refresh.on(coordinator.isScanning());
    m_refresh.on(coordinator.statusFilter());
    m_refresh.on(coordinator.kindFilter());
    m_refresh.on(coordinator.vendorFilter());
    m_refresh.on(coordinator.searchText());
    m_refresh.on(coordinator.selection());
    m_refresh.now();
}

ResultsTableView::~ResultsTableView() = default;

void ResultsTableView::retranslate() {
    m_emptyState->setTexts(
        localized("Noch kein Scan"),
        localized("Starte einen Scan, um zu sehen, welche Programme Rosetta benötigen."));
    m_button->setText(toQString(localized("Jetzt scannen")));
}

void ResultsTableView::refresh() {
    const bool isEmpty = m_coordinator.items().get().empty() && !m_coordinator.isScanning().get();
    m_table->refresh();
    m_stack->setCurrentWidget(isEmpty ? static_cast<QWidget*>(m_emptyState) : m_table);
    setFocusProxy(isEmpty ? static_cast<QWidget*>(m_button) : m_table);
}

} // namespace veridane::ui
