#include "ui/AboutSettingsView.h"

#include "coordination/MakerSite.h"
#include "coordination/ProgramVersion.h"
#include "coordination/Workspace.h"
#include "platform/Language.h"
#include "ui/AppsCard.h"
#include "ui/BrandPicture.h"
#include "ui/Card.h"
#include "ui/Divider.h"
#include "ui/Layouts.h"
#include "ui/LinkButton.h"
#include "ui/LinkRow.h"
#include "ui/Metrics.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WrapLabel.h"

#include <QCoreApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include <cstddef>
#include <string>

namespace veridane::ui {
namespace {

struct LegalPage {
    const char* name; // of the row
    const char* symbol;
    const char* path; // on the maker's site
};
constexpr LegalPage legalPages[] = {
    {"termsLinkRow", "doc.text", "/agb"},
    {"privacyLinkRow", "hand.raised", "/datenschutz"},
    {"legalNoticeLinkRow", "building.columns", "/impressum"},
    {"withdrawalLinkRow", "arrow.uturn.backward", "/widerruf"},
    {"helpLinkRow", "questionmark.circle", "/help"},
};

std::string runningVersion() {
    const QByteArray program = QFile::encodeName(QCoreApplication::applicationFilePath());
    return programVersion(FileSystem("/"), Path(program.toStdString()));
}

Label* makeCentred(const Theme& theme, TextStyle style, Tone tone) {
    auto* label = new Label(theme, style, tone);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

AboutSettingsView::AboutSettingsView(Workspace& workspace, const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_workspace(workspace), m_theme(theme) {
    auto* blocks = new QWidget;
    auto* column = makeColumn(blocks, metrics::space18);
    column->setContentsMargins(metrics::space18, metrics::space18, metrics::space18,
                               metrics::space18);
    column->addWidget(makeHeaderCard());
    column->addWidget(makeAppsCard());
    column->addWidget(makeLegalCard());
    column->addWidget(makeFooter());
    column->addStretch();

    auto* scrollArea = makeScrollArea(blocks);
    scrollArea->setObjectName(QStringLiteral("aboutScrollArea"));
    scrollArea->setFocusPolicy(Qt::NoFocus); // the links have it
    makeColumn(this)->addWidget(scrollArea);
    retranslate();
}

QWidget* AboutSettingsView::makeHeaderCard() {
    auto* name = makeCentred(m_theme, TextStyle::title2, Tone::primary);
    name->setText(QStringLiteral("Veridane"));
    m_maker = makeCentred(m_theme, TextStyle::callout, Tone::secondary);
    m_version = makeCentred(m_theme, TextStyle::caption, Tone::secondary);
    m_version->setObjectName(QStringLiteral("versionLabel"));

    auto* card = new Card(m_theme, CardStyle::tinted, metrics::largeCardRadius);
    auto* column = makeColumn(card, metrics::space8);
    column->setContentsMargins(metrics::space18, metrics::space18, metrics::space18,
                               metrics::space18);
    column->addWidget(BrandPicture::applicationIcon(m_theme, metrics::aboutIcon), 0,
                      Qt::AlignHCenter);
    for (Label* line : {name, m_maker, m_version})
        column->addWidget(line);
    return card;
}

QWidget* AboutSettingsView::makeAppsCard() {
    auto* card = new AppsCard(m_theme);
    card->setObjectName(QStringLiteral("appsCard"));
    connect(card, &AppsCard::clicked, this, [this] { m_workspace.openAddress(MakerSite::root()); });
    return card;
}

QWidget* AboutSettingsView::makeLegalCard() {
    constexpr int overhang = metrics::linkRowOverhang;
    m_legalTitle = new Label(m_theme, TextStyle::headline);
    m_legalTitle->setContentsMargins(overhang, 0, overhang, metrics::space2);

    auto* card = new Card(m_theme, CardStyle::plain, metrics::largeCardRadius);
    auto* column = makeColumn(card, metrics::space4);
    column->setContentsMargins(metrics::space16 - overhang, metrics::space16,
                               metrics::space16 - overhang, metrics::space16);
    column->addWidget(m_legalTitle);
    for (const LegalPage& page : legalPages) {
        if (!m_links.empty()) {
            auto* line = makeRow();
            line->setContentsMargins(overhang, 0, overhang, 0);
            line->addWidget(new Divider(m_theme));
            column->addLayout(line);
        }
        auto* link = new LinkRow(m_theme, page.symbol);
        link->setObjectName(QLatin1String(page.name));
        connect(link, &LinkRow::clicked, this,
                [this, path = page.path] { m_workspace.openAddress(MakerSite::page(path)); });
        column->addWidget(link);
        m_links.push_back(link);
    }
    return card;
}

QWidget* AboutSettingsView::makeFooter() {
    auto* contact = new LinkButton(m_theme, TextStyle::callout);
    contact->setObjectName(QStringLiteral("contactLinkButton"));
    contact->setTitle(MakerSite::contactAddress);
    connect(contact, &LinkButton::clicked, this, [this] {
        m_workspace.openAddress(std::string("mailto:").append(MakerSite::contactAddress));
    });
    m_rights = new WrapLabel(m_theme, TextStyle::caption2, Tone::secondary);
    m_rights->setAlignment(Qt::AlignCenter);

    auto* footer = new QWidget;
    auto* column = makeColumn(footer, metrics::space2);
    column->addWidget(contact, 0, Qt::AlignHCenter);
    column->addWidget(m_rights);
    return footer;
}

void AboutSettingsView::retranslate() {
    m_maker->setText(toQString(localized("by Mirefold Software")));
    m_version->setText(toQString(localized("Version %@", runningVersion())));
    m_legalTitle->setText(toQString(localized("Rechtliches")));
    const std::string titles[] = {
        localized("AGB / Nutzungsbedingungen"),
        localized("Datenschutz"),
        localized("Impressum"),
        localized("Widerrufsbelehrung"),
        localized("Hilfe & Support"),
    };
    static_assert(std::size(titles) == std::size(legalPages));
    for (std::size_t index = 0; index < m_links.size(); ++index)
        m_links[index]->setTitle(titles[index]);
    m_rights->setText(toQString(localized("© 2026 Mirefold Software. Alle Rechte vorbehalten.")));
}

} // namespace veridane::ui
