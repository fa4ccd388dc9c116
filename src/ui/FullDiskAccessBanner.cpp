#include "ui/FullDiskAccessBanner.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WrapLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace veridane::ui {

FullDiskAccessBanner::FullDiskAccessBanner(ScanCoordinator& coordinator, const Theme& theme,
                                           QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_theme(theme),
      m_refresh([this] { setVisible(!m_coordinator.hasFullDiskAccess().get()); }),
      m_title(new WrapLabel(theme, TextStyle::calloutSemibold)),
      m_hint(new WrapLabel(theme, TextStyle::caption, Tone::secondary)),
      m_openSettings(new QPushButton) {
    setObjectName(QStringLiteral("FullDiskAccessBanner"));
    m_openSettings->setObjectName(QStringLiteral("openSystemSettingsButton"));
    setButtonRole(*m_openSettings, ButtonRole::borderedSmall);
    connect(m_openSettings, &QPushButton::clicked, this,
            [this] { m_coordinator.openFullDiskAccessSettings(); });

    auto* texts = makeColumn(nullptr, metrics::space2);
    texts->addWidget(m_title);
    texts->addWidget(m_hint);
    auto* row = makeRow(this, metrics::space10);
    row->setContentsMargins(metrics::space10, metrics::space10, metrics::space10, metrics::space10);
    row->addWidget(new SymbolLabel(theme, "lock.shield", metrics::bannerSymbol,
                                   metrics::bannerSymbol, Tone::orange));
    row->addLayout(texts, 1);
    row->addWidget(m_openSettings);

    m_refresh.on(coordinator.hasFullDiskAccess());
    retranslate();
    m_refresh.now();
}

FullDiskAccessBanner::~FullDiskAccessBanner() = default;

void FullDiskAccessBanner::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter(this).fillRect(rect(), m_theme.tint(Tone::orange, opacity::banner));
}

void FullDiskAccessBanner::retranslate() {
    m_title->setText(toQString(localized("Vollständiger Festplattenzugriff empfohlen")));
    m_hint->setText(toQString(localized("Für einen vollständigen Scan \"Veridane\" unter "
                                        "Datenschutz → Festplattenvollzugriff aktivieren.")));
    m_openSettings->setText(withoutMnemonics(localized("Systemeinstellungen öffnen")));
}

} // namespace veridane::ui
