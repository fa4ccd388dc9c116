#include "ui/GeneralSettingsView.h"

#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/Card.h"
#include "ui/Divider.h"
#include "ui/FocusRing.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/PaintedButton.h"
#include "ui/Preferences.h"
#include "ui/Relauncher.h"
#include "ui/SegmentedControl.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WrapLabel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <cstddef>
#include <string>

namespace veridane::ui {
namespace {

/// A row of a group, with a line above it but for the first; its widgets are added from the left.
QHBoxLayout* addRow(QVBoxLayout& group, const Theme& theme, bool isFirst = false) {
    auto* widget = new QWidget;
    widget->setMinimumHeight(metrics::settingsRowHeight - (isFirst ? 0 : metrics::hairline));
    if (!isFirst)
        group.addWidget(new Divider(theme));
    auto* row = makeRow(widget, metrics::space10);
    row->setContentsMargins(metrics::space12, metrics::space4, metrics::space12, metrics::space4);
    group.addWidget(widget);
    return row;
}

} // namespace

GeneralSettingsView::GeneralSettingsView(Preferences& preferences, Relauncher& relauncher,
                                         const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_preferences(preferences), m_relauncher(relauncher), m_theme(theme),
      m_refresh([this] { refresh(); }) {
    m_appearanceTitle = new Label(theme, TextStyle::headline);
    m_languageTitle = new Label(theme, TextStyle::headline);
    for (Label* title : {m_appearanceTitle, m_languageTitle})
        title->setContentsMargins(metrics::space2, 0, metrics::space2, 0);
    auto* column = makeColumn(this, metrics::space6);
    column->setContentsMargins(metrics::settingsMargin, metrics::space18, metrics::settingsMargin,
                               metrics::space18);
    column->addWidget(m_appearanceTitle);
    column->addWidget(makeAppearanceGroup());
    column->addSpacing(metrics::space12);
    column->addWidget(m_languageTitle);
    column->addWidget(makeLanguageGroup());
    column->addStretch();

    m_refresh.on(preferences.appearanceRaw());
    m_refresh.on(preferences.languageRaw());
    retranslate();
}

GeneralSettingsView::~GeneralSettingsView() = default;

QWidget* GeneralSettingsView::makeAppearanceGroup() {
    auto* card = new Card(m_theme, CardStyle::plain, metrics::settingsGroupRadius);
    auto* rows = makeColumn(card);
    m_modeLabel = new Label(m_theme, TextStyle::body);
    m_modes = new SegmentedControl(m_theme, static_cast<int>(appearanceModes.size()));
    for (std::size_t index = 0; index < appearanceModes.size(); ++index)
        m_modes->segment(static_cast<int>(index))
            .setObjectName(
                toQString(std::string(rawString(appearanceModes.at(index))) + "Segment"));
    connect(m_modes, &SegmentedControl::chosen, this, [this](int segment) {
        m_preferences.setAppearanceMode(appearanceModes.at(static_cast<std::size_t>(segment)));
    });
    auto* choice = addRow(*rows, m_theme, true);
    choice->addWidget(m_modeLabel, 1);
    choice->addWidget(m_modes);

    m_modeSymbol = new SymbolLabel(m_theme, {}, metrics::symbol, metrics::symbol, Tone::accent);
    m_modeDescription = new WrapLabel(m_theme, TextStyle::callout, Tone::secondary);
    auto* description = addRow(*rows, m_theme);
    description->addWidget(m_modeSymbol);
    description->addWidget(m_modeDescription, 1);
    return card;
}

QWidget* GeneralSettingsView::makeLanguageGroup() {
    auto* card = new Card(m_theme, CardStyle::plain, metrics::settingsGroupRadius);
    auto* rows = makeColumn(card);
    m_languageLabel = new Label(m_theme, TextStyle::body);
    m_languages = new QComboBox;
    m_languages->setObjectName(QStringLiteral("languageComboBox"));
    setRing(*m_languages, {.radius = metrics::buttonRadius});
    for (const AppLanguage language : appLanguages)
        m_languages->addItem(toQString(label(language)));
    connect(m_languages, &QComboBox::activated, this, &GeneralSettingsView::chooseLanguage);
    auto* row = addRow(*rows, m_theme, true);
    row->addWidget(m_languageLabel, 1);
    row->addWidget(m_languages);
    m_languageLabel->setBuddy(m_languages); // on Linux the name of a pop-up is its choice
    rows->addWidget(makeRestartHint());
    return card;
}

QWidget* GeneralSettingsView::makeRestartHint() {
    m_restartText = new WrapLabel(m_theme, TextStyle::callout, Tone::secondary);
    m_restart = new QPushButton;
    m_restart->setObjectName(QStringLiteral("restartButton"));
    m_restart->setAutoDefault(false); // Return anywhere in the window would press it
    setButtonRole(*m_restart, ButtonRole::borderedSmall);
    connect(m_restart, &QPushButton::clicked, this, [this] { m_relauncher.relaunch(); });

    m_restartHint = new QWidget;
    m_restartHint->hide();
    auto* row = addRow(*makeColumn(m_restartHint), m_theme);
    row->addWidget(new SymbolLabel(m_theme, "arrow.clockwise.circle", metrics::restartSymbol,
                                   metrics::restartSymbol, Tone::orange));
    row->addWidget(m_restartText, 1);
    row->addSpacing(metrics::space10 + metrics::space8);
    row->addWidget(m_restart);
    return m_restartHint;
}

void GeneralSettingsView::chooseLanguage(int index) {
    const AppLanguage language = appLanguages.at(static_cast<std::size_t>(index));
    if (m_preferences.languageRaw().get() == rawString(language))
        return; // the entry that was chosen already
    m_preferences.setAppLanguage(language);
    m_preferences.applyLanguage(m_preferences.appLanguage());
    m_restartHint->show();
}

void GeneralSettingsView::retranslate() {
    m_appearanceTitle->setText(toQString(localized("Darstellung")));
    m_modeLabel->setText(toQString(localized("Erscheinungsmodus")));
    for (std::size_t index = 0; index < appearanceModes.size(); ++index)
        m_modes->setTitle(static_cast<int>(index), label(appearanceModes.at(index)));
    m_languageTitle->setText(toQString(localized("Sprache")));
    m_languageLabel->setText(m_languageTitle->text());
    m_languages->setAccessibleName(m_languageTitle->text());
    m_languages->view()->setAccessibleName(m_languageTitle->text());
    for (std::size_t index = 0; index < appLanguages.size(); ++index)
        m_languages->setItemText(static_cast<int>(index), toQString(label(appLanguages.at(index))));
    m_restartText->setText(
        toQString(localized("Für die vollständige Umstellung die App neu starten.")));
    m_restart->setText(withoutMnemonics(localized("Jetzt neu starten")));
    m_refresh.now();
}

void GeneralSettingsView::refresh() {
    const AppearanceMode mode = m_preferences.appearanceMode();
    // A text that names no mode is followed as the system's, but it is no choice of the user's.
    const bool isKnown = m_preferences.appearanceRaw().get() == rawString(mode);
    m_modes->choose(isKnown ? static_cast<int>(mode) : -1);
    m_modeSymbol->setSymbol(symbolName(mode), Tone::accent);
    m_modeDescription->setText(toQString(description(mode)));
    m_languages->setCurrentIndex(static_cast<int>(m_preferences.appLanguage()));
}

} // namespace veridane::ui
