#include "ui/ActionButtons.h"

#include "coordination/ScanCoordinator.h"
#include "coordination/Workspace.h"
#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/FittingRowLayout.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Text.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace veridane::ui {

ActionButtons::ActionButtons(ScanCoordinator& coordinator, Workspace& workspace, QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_workspace(workspace) {
    auto* searches = new FittingRowLayout(metrics::space8);
    auto* others = new FittingRowLayout(metrics::space8);
    auto* column = makeColumn(this, metrics::space8);
    column->setContentsMargins(0, metrics::space4, 0, 0);
    column->addLayout(searches);
    column->addLayout(others);
    m_searchNative = addButton(*searches, "searchNativeButton", "magnifyingglass");
    m_searchAppStore = addButton(*searches, "searchAppStoreButton", "bag");
    m_reveal = addButton(*others, "revealButton", "folder");
    m_installRosetta = addButton(*others, "installRosettaButton", "arrow.down.app");
    connect(m_searchNative, &QPushButton::clicked, this, &ActionButtons::searchNativeVersion);
    connect(m_searchAppStore, &QPushButton::clicked, this, &ActionButtons::searchAppStore);
    connect(m_reveal, &QPushButton::clicked, this, &ActionButtons::reveal);
    connect(m_installRosetta, &QPushButton::clicked, this, &ActionButtons::rosettaGuideRequested);
    retranslate();
}

// Also while there is nothing to show them for: assistive technology finds them all the same.
void ActionButtons::retranslate() {
    m_searchNative->setText(withoutMnemonics(localized("Nach nativer Version suchen")));
    m_searchAppStore->setText(withoutMnemonics(localized("Im App Store suchen")));
    m_reveal->setText(withoutMnemonics(localized("Im Finder zeigen")));
    m_installRosetta->setText(withoutMnemonics(localized("Rosetta 2 installieren?")));
}

QPushButton* ActionButtons::addButton(FittingRowLayout& row, const char* name,
                                      std::string_view symbol) {
    auto* button = new QPushButton;
    button->setObjectName(QString::fromLatin1(name));
    setButtonRole(*button, ButtonRole::action);
    setButtonSymbol(*button, symbol);
    row.addWidget(button);
    return button;
}

void ActionButtons::showFor(Urgency urgency) {
    const bool needsRosetta = needsAttention(urgency);
    const bool hasBetter = needsRosetta || urgency == Urgency::switchToNative;
    m_searchNative->setVisible(hasBetter);
    m_searchAppStore->setVisible(hasBetter);
    m_installRosetta->setVisible(needsRosetta);
}

void ActionButtons::searchNativeVersion() {
    if (const auto item = m_coordinator.selectedItem())
        m_coordinator.searchNativeVersionOnline(*item);
}

void ActionButtons::searchAppStore() {
    if (const auto item = m_coordinator.selectedItem())
        m_coordinator.searchInAppStore(*item);
}

void ActionButtons::reveal() {
    if (const auto item = m_coordinator.selectedItem())
        m_workspace.revealFile(Path(item->path));
}

} // namespace veridane::ui
