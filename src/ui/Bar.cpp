#include "ui/Bar.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/FocusRing.h"
#include "ui/Label.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/ReportExport.h"
#include "ui/SearchField.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QShortcut>
#include <QToolButton>

#include <string>

namespace veridane::ui {

Bar::Bar(ScanCoordinator& coordinator, SavePanel& savePanel, const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_savePanel(savePanel), m_theme(theme),
      m_refresh([this] { refresh(); }) {
    setFixedHeight(theme.scaled(metrics::barHeight));

    auto* title = new Label(theme, TextStyle::barTitle);
    title->setText(QStringLiteral("Veridane"));
    title->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* menuBar = new QMenuBar;
    menuBar->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_fileMenu = menuBar->addMenu(QString());
    m_viewMenu = menuBar->addMenu(QString());
    makeActions();
    makeMenus();
    makeTools();
    makeSearchField();

    auto* row = makeRow(this, metrics::space4);
    row->setContentsMargins(metrics::space12, 0, metrics::space12, metrics::hairline);
    row->addWidget(title);
    row->addSpacing(metrics::barTitleGap);
    row->addWidget(menuBar, 0, Qt::AlignVCenter);
    row->addStretch();
    for (QToolButton* tool : {m_scan, m_checkUpdates, m_export, m_settings})
        row->addWidget(tool);
    row->addSpacing(metrics::space12);
    row->addWidget(m_searchField);

    m_refresh.on(coordinator.items());
    m_refresh.on(coordinator.isScanning());
    m_refresh.on(coordinator.searchText());
    retranslate();
    m_refresh.now();
}

Bar::~Bar() = default;

void Bar::makeActions() {
    const auto make = [this](const char* name, const auto& act) {
        auto* action = new QAction(this);
        action->setObjectName(toQString(name));
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    m_scanAgain = make("scanAgainAction", [this] { m_coordinator.startScan(); });
    m_scanAgain->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    m_exportCSV =
        make("exportCSVAction", [this] { ReportExport::exportCSV(m_coordinator, m_savePanel); });
    m_exportJSON =
        make("exportJSONAction", [this] { ReportExport::exportJSON(m_coordinator, m_savePanel); });
    m_exportMarkdown = make("exportMarkdownAction",
                            [this] { ReportExport::exportMarkdown(m_coordinator, m_savePanel); });
    m_openSettings = make("settingsAction", [this] { Q_EMIT settingsRequested(); });
    m_openSettings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    m_openSettings->setMenuRole(QAction::PreferencesRole);
    m_quit = make("quitAction", [] { QApplication::quit(); });
    m_quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    m_quit->setMenuRole(QAction::QuitRole);
}

void Bar::makeMenus() {
    const QList<QAction*> exports = {m_exportCSV, m_exportJSON, m_exportMarkdown};
    m_fileMenu->addActions(exports);
    m_fileMenu->addSeparator();
    m_fileMenu->addAction(m_openSettings);
    m_fileMenu->addAction(m_quit);
    m_viewMenu->addAction(m_scanAgain);
    m_exportMenu = new QMenu(this);
    m_exportMenu->setObjectName(QStringLiteral("exportMenu"));
    m_exportMenu->addActions(exports);
}

QToolButton* Bar::makeTool(const char* name, const char* symbol) {
    auto* tool = new QToolButton;
    tool->setObjectName(toQString(name));
    setButtonSymbol(*tool, symbol);
    tool->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tool->setFocusPolicy(Qt::TabFocus);
    setRing(*tool, {.radius = metrics::largeButtonRadius});
    return tool;
}

void Bar::makeTools() {
    m_scan = makeTool("scanButton", "arrow.clockwise");
    connect(m_scan, &QToolButton::clicked, this, [this] { m_coordinator.startScan(); });
    m_checkUpdates = makeTool("checkUpdatesButton", "arrow.down.circle");
    connect(m_checkUpdates, &QToolButton::clicked, this,
            [this] { m_coordinator.checkAllUpdates(); });
    m_export = makeTool("exportButton", "square.and.arrow.up");
    m_export->setMenu(m_exportMenu);
    m_export->setPopupMode(QToolButton::InstantPopup);
    m_settings = makeTool("settingsButton", "gearshape");
    connect(m_settings, &QToolButton::clicked, this, &Bar::settingsRequested);
}

void Bar::makeSearchField() {
    m_searchField = new SearchField(m_theme);
    m_searchField->setObjectName(QStringLiteral("searchLineEdit"));
    m_searchField->setText(toQString(m_coordinator.searchText().get()));
    connect(m_searchField, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_coordinator.setSearchText(text.toStdString());
        m_coordinator.logEvent("search_text_changed");
    });
    auto* find = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    connect(find, &QShortcut::activated, m_searchField, [this] {
        m_searchField->setFocus(Qt::ShortcutFocusReason);
        m_searchField->selectAll();
    });
}

void Bar::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.colours().window);
    painter.fillRect(0, height() - metrics::hairline, width(), metrics::hairline,
                     m_theme.colours().separator);
}

void Bar::retranslate() {
    // Alt and the first letter open them, in each language.
    m_fileMenu->setTitle(QLatin1Char('&') + toQString(localized("Datei")));
    m_viewMenu->setTitle(QLatin1Char('&') + toQString(localized("Ansicht")));
    m_scanAgain->setText(toQString(localized("Erneut scannen")));
    m_exportCSV->setText(toQString(localized("Als CSV exportieren …")));
    m_exportJSON->setText(toQString(localized("Als JSON exportieren …")));
    m_exportMarkdown->setText(toQString(localized("Als Markdown-Bericht …")));
    m_openSettings->setText(toQString(localized("Einstellungen")));
    m_quit->setText(toQString(localized("Beenden")));

    m_scan->setText(toQString(localized("Scannen")));
    m_scan->setToolTip(toQString(
        localized("Mac erneut scannen – findet Apps & Komponenten, die Rosetta 2 benötigen (⌘R)")));
    m_checkUpdates->setText(toQString(localized("Updates prüfen")));
    m_checkUpdates->setToolTip(
        toQString(localized("Nach neueren App-Versionen suchen (Mac App Store & Sparkle)")));
    m_export->setText(toQString(localized("Exportieren")));
    m_export->setToolTip(
        toQString(localized("Ergebnis exportieren – als CSV, JSON oder Markdown-Bericht")));
    m_settings->setText(toQString(localized("Einstellungen")));
    m_settings->setToolTip(toQString(
        localized("Einstellungen öffnen – Sprache, Erscheinungsbild & Rechtliches (⌘,)")));
}

void Bar::refresh() {
    const bool isScanning = m_coordinator.isScanning().get();
    const bool hasItems = !m_coordinator.items().get().empty();
    if (isScanning && m_scan->hasFocus())
        window()->setFocus(); // else the toolkit gives it to the next tool, which opens a menu
    m_scan->setEnabled(!isScanning);
    m_scanAgain->setEnabled(!isScanning);
    m_checkUpdates->setEnabled(!isScanning && hasItems);
    m_export->setEnabled(hasItems);
    for (QAction* action : {m_exportCSV, m_exportJSON, m_exportMarkdown})
        action->setEnabled(hasItems);
    // Not the other way round: not every text of the field comes back from UTF-8 as it was.
    const std::string& searched = m_coordinator.searchText().get();
    if (m_searchField->text().toStdString() != searched)
        m_searchField->setText(toQString(searched));
}

} // namespace veridane::ui
