#include "ui/MakerCard.h"

#include "coordination/MakerSite.h"
#include "coordination/Workspace.h"
#include "platform/Language.h"
#include "ui/BrandPicture.h"
#include "ui/ButtonRole.h"
#include "ui/CatalogueRow.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WrapLabel.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <cstddef>
#include <utility>

namespace veridane::ui {

namespace {

/// What the keyboard comes to before a widget.
QWidget* focusableBefore(QWidget& widget) {
    QWidget* before = widget.previousInFocusChain();
    while (before->focusPolicy() == Qt::NoFocus && before != &widget)
        before = before->previousInFocusChain();
    return before;
}

} // namespace

MakerCard::MakerCard(PictureLoader& pictures, Workspace& workspace, const Theme& theme,
                     QWidget* parent)
    : Retranslated(theme, CardStyle::tinted, metrics::largeCardRadius, parent),
      m_pictures(pictures), m_workspace(workspace), m_theme(theme),
      m_service(new WrapLabel(theme, TextStyle::calloutMedium)),
      m_invitation(new WrapLabel(theme, TextStyle::callout, Tone::secondary)),
      m_moreApps(new QPushButton) {
    makeCatalogue();
    for (WrapLabel* label : {m_service, m_invitation})
        label->setAlignment(Qt::AlignCenter);
    m_moreApps->setObjectName(QStringLiteral("moreAppsButton"));
    setButtonSymbol(*m_moreApps, "square.grid.2x2.fill");
    connect(m_moreApps, &QPushButton::clicked, this,
            [this] { m_workspace.openAddress(MakerSite::root()); });

    auto* column = makeColumn(this, metrics::space12);
    column->setContentsMargins(metrics::space16, metrics::space16, metrics::space16,
                               metrics::space16);
    column->addWidget(BrandPicture::makerLogo(theme, metrics::logoHeight), 0, Qt::AlignHCenter);
    column->addWidget(m_service);
    column->addWidget(m_invitation);
    column->addWidget(m_catalogue);
    column->addWidget(m_moreApps, 0, Qt::AlignHCenter);
    retranslate();
}

void MakerCard::makeCatalogue() {
    m_catalogue = new QWidget;
    m_catalogueTitle = new Label(m_theme, TextStyle::subheadline);
    m_rowColumn = makeColumn(m_catalogue, metrics::space6);
    m_rowColumn->setContentsMargins(0, metrics::space4, 0, 0);
    m_rowColumn->addWidget(m_catalogueTitle);
    m_catalogue->hide();
}

void MakerCard::setApps(std::vector<MirefoldApp> apps) {
    m_apps = std::move(apps);
    while (m_rows.size() > m_apps.size()) {
        delete m_rows.back();
        m_rows.pop_back();
    }
    while (m_rows.size() < m_apps.size()) {
        auto* row = new CatalogueRow(m_pictures, m_theme);
        row->setObjectName(QStringLiteral("catalogueRow"));
        connect(row, &QAbstractButton::clicked, this,
                [this, index = m_rows.size()] { open(m_apps[index]); });
        m_rowColumn->addWidget(row);
        QWidget::setTabOrder(focusableBefore(*m_moreApps), row); // else it comes behind all others
        m_rows.push_back(row);
    }
    for (std::size_t index = 0; index < m_apps.size(); ++index)
        m_rows[index]->setApp(m_apps[index]);
}

void MakerCard::setCatalogueVisible(bool isVisible) {
    m_catalogue->setVisible(isVisible);
}

void MakerCard::open(const MirefoldApp& app) {
    m_workspace.openAddress(AppCatalogue::destination(app));
}

void MakerCard::retranslate() {
    m_service->setText(
        toQString(localized("Veridane ist ein kostenloser Service von Mirefold Software.")));
    m_invitation->setText(
        toQString(localized("Wir freuen uns, wenn du dir unsere weiteren Apps anschaust.")));
    m_catalogueTitle->setText(toQString(localized("Unsere Apps")));
    m_moreApps->setText(withoutMnemonics(localized("Weitere Apps entdecken")));
}

} // namespace veridane::ui
