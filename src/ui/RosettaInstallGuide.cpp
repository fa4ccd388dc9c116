#include "ui/RosettaInstallGuide.h"

#include "coordination/Workspace.h"
#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WrapLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace veridane::ui {
namespace {

/// The number of a step on its disc.
class StepNumber : public Label {
public:
    StepNumber(const Theme& theme, std::size_t number)
        : Label(theme, TextStyle::headline, Tone::onAccent) {
        setAlignment(Qt::AlignCenter);
        setText(QString::number(number));
        const int diameter = theme.scaled(metrics::stepCircle);
        setFixedSize(diameter, diameter);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painting::fillRounded(painter, rect(), width() / 2.0, theme().colours().accent);
        painter.end();
        Label::paintEvent(event);
    }
};

} // namespace

RosettaInstallGuide::RosettaInstallGuide(Workspace& workspace, const Theme& theme,
                                         CommandBox::Delay delay)
    : m_workspace(workspace), m_theme(theme),
      m_introduction(new WrapLabel(theme, TextStyle::body, Tone::secondary)),
      m_note(new WrapLabel(theme, TextStyle::caption, Tone::secondary)) {
    setObjectName(QStringLiteral("RosettaInstallGuide"));
    setFixedWidth(theme.scaled(metrics::guideWidth));
    auto* column = makeColumn(this, metrics::space16);
    column->setContentsMargins(metrics::space24, metrics::space24, metrics::space24,
                               metrics::space24);
    column->addLayout(makeTitle());
    column->addWidget(m_introduction);
    column->addLayout(makeStep(0));
    column->addLayout(makeManualWay(std::move(delay)));
    column->addWidget(m_note);
    column->addLayout(makeClosingRow());
    retranslate();
}

QLayout* RosettaInstallGuide::makeTitle() {
    m_title = new Label(m_theme, TextStyle::title2);
    auto* row = makeRow(nullptr, metrics::space10);
    row->addWidget(new SymbolLabel(m_theme, "arrow.down.app.fill", metrics::sheetTitleSymbol,
                                   metrics::sheetTitleSymbol, Tone::accent));
    row->addWidget(m_title, 1);
    return row;
}

QLayout* RosettaInstallGuide::makeStep(std::size_t index) {
    m_steps.at(index) = {new Label(m_theme, TextStyle::headline),
                         new WrapLabel(m_theme, TextStyle::callout, Tone::secondary)};
    auto* texts = makeColumn(nullptr, metrics::space2);
    texts->addWidget(m_steps.at(index).title);
    texts->addWidget(m_steps.at(index).text);
    auto* row = makeRow(nullptr, metrics::space12);
    row->addWidget(new StepNumber(m_theme, index + 1), 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    return row;
}

QLayout* RosettaInstallGuide::makeManualWay(CommandBox::Delay delay) {
    m_openTerminal = new QPushButton;
    m_openTerminal->setObjectName(QStringLiteral("openTerminalButton"));
    setButtonRole(*m_openTerminal, ButtonRole::borderedSmall);
    setButtonSymbol(*m_openTerminal, "terminal");
    connect(m_openTerminal, &QPushButton::clicked, this,
            [this] { m_workspace.openApplication("Terminal"); });

    auto* column = makeColumn(nullptr, metrics::space10);
    column->setContentsMargins(metrics::space2, 0, 0, 0);
    column->addLayout(makeStep(1));
    column->addWidget(new CommandBox(QString::fromLatin1(command), m_theme, std::move(delay)));
    column->addWidget(m_openTerminal, 0, Qt::AlignLeft);
    return column;
}

QLayout* RosettaInstallGuide::makeClosingRow() {
    m_done = new QPushButton;
    m_done->setObjectName(QStringLiteral("doneButton"));
    m_done->setDefault(true);
    setButtonRole(*m_done, ButtonRole::prominent);
    connect(m_done, &QPushButton::clicked, this, &RosettaInstallGuide::closeRequested);
    auto* row = makeRow();
    row->addStretch();
    row->addWidget(m_done);
    return row;
}

void RosettaInstallGuide::retranslate() {
    m_title->setText(toQString(localized("Rosetta 2 installieren")));
    setAccessibleName(m_title->text());
    m_introduction->setText(toQString(
        localized("Rosetta 2 lässt sich nicht als Datei herunterladen – macOS installiert es bei "
                  "Bedarf selbst. Es gibt zwei Wege:")));
    m_steps[0].title->setText(toQString(localized("Automatisch (am einfachsten)")));
    m_steps[0].text->setText(toQString(
        localized("Starte eine beliebige Intel-App. macOS fragt dann, ob Rosetta installiert "
                  "werden soll – bestätige und gib dein Passwort ein.")));
    m_steps[1].title->setText(toQString(localized("Manuell im Terminal")));
    m_steps[1].text->setText(toQString(
        localized("Öffne die Terminal-App, gib diesen Befehl ein und drücke Enter. Tippe danach "
                  "den Buchstaben A, um die Lizenz zu akzeptieren:")));
    m_openTerminal->setText(withoutMnemonics(localized("Terminal öffnen")));
    m_note->setText(toQString(
        localized("Hinweis: Apple stellt Rosetta 2 bis einschließlich macOS 27 bereit; ab macOS 28 "
                  "nur noch für einzelne ältere, nicht mehr gepflegte Spiele.")));
    m_done->setText(withoutMnemonics(localized("Fertig")));
}

} // namespace veridane::ui
