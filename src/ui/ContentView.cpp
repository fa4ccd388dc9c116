#include "ui/ContentView.h"

#include "coordination/ScanCoordinator.h"
#include "ui/Bar.h"
#include "ui/DetailView.h"
#include "ui/Divider.h"
#include "ui/FullDiskAccessBanner.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Preferences.h"
#include "ui/ResultsTableView.h"
#include "ui/RosettaInstallGuide.h"
#include "ui/Sheet.h"
#include "ui/SidebarView.h"
#include "ui/SummaryHeaderView.h"
#include "ui/Theme.h"
#include "ui/WelcomeView.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace veridane::ui {
namespace {

QString windowLayout() {
    return QStringLiteral("mainWindow");
}
QString columnsLayout() {
    return QStringLiteral("mainWindowColumns");
}

struct ColumnWidths {
    int sidebar;
    int detail;
};

/// The widths of the outer columns, kept as two numbers: the toolkit's own form holds more, and a
/// damaged one would turn the columns into rows.
ColumnWidths widthsFrom(const QByteArray& kept, const Theme& theme) {
    const QList<QByteArray> words = kept.split(' ');
    if (words.size() != 2) // with the line beside them they are as wide as they should be
        return {theme.scaled(metrics::sidebarIdeal) - metrics::hairline,
                theme.scaled(metrics::detailIdeal) - metrics::hairline};
    return {std::clamp(words[0].toInt(), theme.scaled(metrics::sidebarMinimum),
                       theme.scaled(metrics::sidebarMaximum)),
            std::clamp(words[1].toInt(), theme.scaled(metrics::detailMinimum),
                       theme.scaled(metrics::detailMaximum))};
}

} // namespace

ContentView::ContentView(const ContentServices& services, std::vector<std::string> launchArguments,
                         QWidget* parent)
    : QMainWindow(parent), m_services(services), m_launchArguments(std::move(launchArguments)),
      m_outerColumns(new QSplitter(Qt::Horizontal)), m_innerColumns(new QSplitter(Qt::Horizontal)) {
    setObjectName(QStringLiteral("ContentView"));
    setWindowTitle(QStringLiteral("Veridane"));
    setMinimumSize(metrics::windowMinimumWidth, metrics::windowMinimumHeight);

    auto* sidebar = new SidebarView(services.coordinator, services.theme);
    sidebar->setMinimumWidth(services.theme.scaled(metrics::sidebarMinimum));
    sidebar->setMaximumWidth(services.theme.scaled(metrics::sidebarMaximum));
    auto* bar = new Bar(services.coordinator, services.savePanel, services.theme);
    connect(bar, &Bar::settingsRequested, this, &ContentView::settingsRequested);
    auto* detail = new DetailView(services.coordinator, services.workspace, services.theme);
    detail->setMinimumWidth(services.theme.scaled(metrics::detailMinimum));
    detail->setMaximumWidth(services.theme.scaled(metrics::detailMaximum));
    connect(detail, &DetailView::rosettaGuideRequested, this, &ContentView::showRosettaGuide);

    m_innerColumns->addWidget(makeContentColumn());
    m_innerColumns->addWidget(detail);
    auto* rest = new QWidget;
    auto* restColumn = makeColumn(rest);
    restColumn->addWidget(bar);
    restColumn->addWidget(m_innerColumns, 1);
    m_outerColumns->addWidget(sidebar);
    m_outerColumns->addWidget(rest);
    for (QSplitter* columns : {m_outerColumns, m_innerColumns})
        columns->setChildrenCollapsible(false);
    m_outerColumns->setStretchFactor(0, 0);
    m_outerColumns->setStretchFactor(1, 1);
    m_innerColumns->setStretchFactor(0, 1);
    m_innerColumns->setStretchFactor(1, 0);
    // The columns of a splitter stand in the tree of assistive technology in the opposite order of
    // their insertion, unless their stacking says otherwise.
    rest->lower();
    sidebar->lower();
    detail->lower();
    m_innerColumns->widget(0)->lower();
    setCentralWidget(m_outerColumns);
    restoreLayout();
}

ContentView::~ContentView() = default;

QWidget* ContentView::makeContentColumn() {
    auto* content = new QWidget;
    content->setMinimumWidth(metrics::contentMinimum);
    auto* column = makeColumn(content);
    column->addWidget(new FullDiskAccessBanner(m_services.coordinator, m_services.theme));
    column->addWidget(new SummaryHeaderView(m_services.coordinator, m_services.theme));
    column->addWidget(new Divider(m_services.theme));
    m_results = new ResultsTableView(m_services.coordinator, m_services.workspace,
                                     m_services.preferences, m_services.theme);
    column->addWidget(m_results, 1);
    return content;
}

void ContentView::restoreLayout() {
    const QSize available = screen()->availableSize();
    resize(QSize(metrics::windowWidth, metrics::windowHeight).boundedTo(available));
    restoreGeometry(m_services.preferences.layout(windowLayout()));
    const ColumnWidths widths =
        widthsFrom(m_services.preferences.layout(columnsLayout()), m_services.theme);
    m_outerColumns->setSizes({widths.sidebar, width() - widths.sidebar});
    m_innerColumns->setSizes({width() - widths.sidebar - widths.detail, widths.detail});
}

void ContentView::saveLayout() {
    m_services.preferences.setLayout(windowLayout(), saveGeometry());
    m_services.preferences.setLayout(columnsLayout(),
                                     QByteArray::number(m_outerColumns->sizes().first()) + ' ' +
                                         QByteArray::number(m_innerColumns->sizes().last()));
}

void ContentView::closeEvent(QCloseEvent* event) {
    saveLayout();
    QMainWindow::closeEvent(event);
}

// Not by a proxy: with one, the Tab key comes back to the table from the end of the window, and
// never to what stands in front of it.
void ContentView::focusInEvent(QFocusEvent* event) {
    m_results->setFocus(event->reason());
}

void ContentView::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter(this).fillRect(rect(), m_services.theme.colours().window);
}

void ContentView::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (std::exchange(m_hasStarted, true))
        return;
    setFocus(); // which the table gets
    // In a turn of its own, so that the window is there before the work begins.
    QMetaObject::invokeMethod(this, &ContentView::runStartTask, Qt::QueuedConnection);
}

void ContentView::runStartTask() {
    const bool isSeeded =
        std::ranges::find(m_launchArguments, "UITEST_SEED_DATA") != m_launchArguments.end();
    if (m_services.makeWelcome && !isSeeded)
        showWelcome();
    ScanCoordinator& coordinator = m_services.coordinator;
    coordinator.applyUITestSeed(m_launchArguments);
    if (!coordinator.hasScannedOnce().get() && !coordinator.isScanning().get())
        coordinator.startScan();
}

/// One at a time: assistive technology can press what lies behind a sheet.
template <typename View>
void ContentView::openSheet(std::unique_ptr<View> view, void (View::*endOfView)()) {
    if (m_sheet && m_sheet->isVisible())
        return;
    View* const content = view.release();
    m_sheet = new Sheet(m_services.theme, content, *this);
    connect(content, endOfView, m_sheet, &QWidget::close);
}

void ContentView::showWelcome() {
    openSheet(m_services.makeWelcome(), &WelcomeView::dismissed);
}

void ContentView::showRosettaGuide() {
    openSheet(std::make_unique<RosettaInstallGuide>(m_services.workspace, m_services.theme),
              &RosettaInstallGuide::closeRequested);
}

} // namespace veridane::ui
