#include "ui/UpdateBlock.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/FactRow.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Text.h"
#include "ui/WrapLabel.h"
#include "updates/UpdateChecker.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace veridane::ui {

UpdateBlock::UpdateBlock(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator),
      m_title(new Label(theme, TextStyle::headline)), m_source(new FactRow(theme, "updateSource")),
      m_appcast(new FactRow(theme, "appcast", FactStyle::monospaced)),
      m_statusTitle(new Label(theme, TextStyle::callout, Tone::secondary)),
      m_status(new WrapLabel(theme, TextStyle::callout)), m_check(new QPushButton) {
    m_title->setObjectName(QStringLiteral("updatesTitleLabel"));
    m_statusTitle->setObjectName(QStringLiteral("updateStatusTitleLabel"));
    m_statusTitle->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    m_status->setFont(theme.verbatimFont(TextStyle::callout)); // it names versions
    m_status->setObjectName(QStringLiteral("updateStatusLabel"));
    m_check->setObjectName(QStringLiteral("checkUpdateButton"));
    setButtonRole(*m_check, ButtonRole::borderedSmall);
    connect(m_check, &QPushButton::clicked, this, &UpdateBlock::checkSelected);

    auto* status = makeRow(nullptr, metrics::space8);
    status->addWidget(m_statusTitle);
    status->addWidget(m_status);
    status->addWidget(m_check);
    status->addStretch(1);
    auto* column = makeColumn(this, metrics::space8);
    column->addWidget(m_title);
    column->addWidget(m_source);
    column->addWidget(m_appcast);
    column->addLayout(status);
    retranslate();
}

void UpdateBlock::retranslate() {
    m_title->setText(toQString(localized("Updates")));
    m_statusTitle->setText(toQString(localized("Status:")));
    m_check->setText(withoutMnemonics(localized("Prüfen")));
}

void UpdateBlock::showItem(const ScanItem& item) {
    m_source->setFact(localized("Quelle"), displayName(item.updateSource));
    m_appcast->setFact(localized("Appcast"), item.sparkleFeedURL);
    m_status->setText(shown(displayName(item.updateResult)));
    m_check->setVisible(UpdateChecker::hasSource(item));
}

void UpdateBlock::checkSelected() {
    if (const auto item = m_coordinator.selectedItem())
        m_coordinator.checkUpdate(item->id);
}

} // namespace veridane::ui
