#include "ui/SummaryHeaderView.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "platform/Locale.h"
#include "ui/Label.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/ReadinessButton.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/Tile.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace veridane::ui {
namespace {

struct TileRow {
    const char* name;
    SymbolLook look;
    StatusFilter filter;
};
constexpr TileRow tileRows[] = {
    {"total", {"square.grid.2x2", Tone::secondary}, StatusFilter::all},
    {"breaksOnMacOS28", {"xmark.octagon.fill", Tone::red}, StatusFilter::breaksOnMacOS28},
    {"partiallyAffected",
     {"exclamationmark.triangle.fill", Tone::yellow},
     StatusFilter::partiallyAffected},
    {"switchToNative", {"arrow.2.squarepath", Tone::blue}, StatusFilter::switchToNative},
    {"ready", {"checkmark.circle.fill", Tone::green}, StatusFilter::ready},
};

std::string tileTitle(StatusFilter filter) {
    switch (filter) {
    case StatusFilter::all:
        return localized("Gesamt");
    case StatusFilter::breaksOnMacOS28:
        return localized("Benötigt Rosetta");
    case StatusFilter::partiallyAffected:
        return localized("Teilweise betroffen");
    case StatusFilter::switchToNative:
        return localized("Intel-Reste");
    case StatusFilter::ready:
        return localized("Bereit");
    case StatusFilter::needsAttention:
    case StatusFilter::notRelevant:
        break; // no tile
    }
    return {};
}

// The toolkit's bar counts in int; targets beyond that keep their proportion.
std::pair<int, int> barValues(const ScanProgress& progress) {
    if (progress.total < 1)
        return {0, 1};
    const std::int64_t completed = std::clamp<std::int64_t>(progress.completed, 0, progress.total);
    const std::int64_t scale = 1 + progress.total / std::numeric_limits<int>::max();
    return {static_cast<int>(completed / scale), static_cast<int>(progress.total / scale)};
}

} // namespace

SummaryHeaderView::SummaryHeaderView(ScanCoordinator& coordinator, const Theme& theme,
                                     QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_theme(theme),
      m_refresh([this] { refresh(); }) {
    setObjectName(QStringLiteral("SummaryHeaderView"));
    auto* column = makeColumn(this);
    column->addWidget(makeProgressForm());
    column->addWidget(makeOverviewForm());

    m_refresh.on(coordinator.items());
    m_refresh.on(coordinator.isScanning());
    m_refresh.on(coordinator.progress());
    m_refresh.on(coordinator.statusFilter());
    m_refresh.on(coordinator.lastScanDate());
    retranslate();
}

SummaryHeaderView::~SummaryHeaderView() = default;

QWidget* SummaryHeaderView::makeProgressForm() {
    m_progressForm = new QWidget(this);
    m_bar = new QProgressBar;
    m_bar->setObjectName(QStringLiteral("scanProgressBar"));
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(metrics::progressHeight);
    m_count = new TabularLabel(m_theme, TextStyle::caption, Tone::secondary);
    m_count->setObjectName(QStringLiteral("progressCountLabel"));
    m_count->setAlignment(Qt::AlignRight);
    m_phase = new Label(m_theme, TextStyle::caption, Tone::secondary);
    m_phase->setObjectName(QStringLiteral("progressPhaseLabel"));

    auto* row = makeRow(nullptr, metrics::space10);
    row->addWidget(m_bar, 1, Qt::AlignVCenter);
    row->addWidget(m_count);
    auto* column = makeColumn(m_progressForm, metrics::space4);
    column->setContentsMargins(metrics::space12, metrics::space12, metrics::space12,
                               metrics::space12);
    column->addLayout(row);
    column->addWidget(m_phase);
    return m_progressForm;
}

QWidget* SummaryHeaderView::makeReadyLine() {
    m_readyLine = new QWidget;
    m_readyText = new Label(m_theme, TextStyle::calloutMedium);
    m_readyText->setObjectName(QStringLiteral("readyLabel"));
    auto* row = makeRow(m_readyLine, metrics::space8);
    row->setContentsMargins(metrics::readinessOverhang, metrics::space2, metrics::readinessOverhang,
                            metrics::space2);
    row->addWidget(new SymbolLabel(m_theme, "checkmark.seal.fill", metrics::symbol, metrics::symbol,
                                   Tone::green));
    row->addWidget(m_readyText, 1);
    m_readyLine->setFixedHeight(m_readiness->sizeHint().height()); // which stands in its place
    return m_readyLine;
}

QWidget* SummaryHeaderView::makeOverviewForm() {
    m_overviewForm = new QWidget(this);
    m_readiness = new ReadinessButton(m_theme);
    m_readiness->setObjectName(QStringLiteral("readinessButton"));
    connect(m_readiness, &QAbstractButton::clicked, this,
            [this] { showFilter(StatusFilter::needsAttention); });

    auto* tiles = makeRow(nullptr, metrics::space12);
    tiles->setContentsMargins(metrics::readinessOverhang, metrics::space2,
                              metrics::readinessOverhang, 0);
    for (const TileRow& row : tileRows) {
        auto* tile = new Tile(m_theme, row.look, row.filter);
        tile->setObjectName(toQString(std::string(row.name) + "Tile"));
        connect(tile, &QAbstractButton::clicked, this,
                [this, filter = row.filter] { showFilter(filter); });
        tiles->addWidget(tile, 1);
        m_tiles.push_back(tile);
    }
    m_lastScan = new Label(m_theme, TextStyle::caption, Tone::secondary);
    m_lastScan->setObjectName(QStringLiteral("lastScanLabel"));
    m_lastScan->setAlignment(Qt::AlignCenter);
    m_lastScan->setContentsMargins(0, metrics::space4, 0, 0);

    // The statement is higher and wider than its text, for the fill of a hovered one: what stands
    // around it comes as much closer, and keeps its own distance by margins.
    auto* column = makeColumn(m_overviewForm, metrics::space6);
    column->setContentsMargins(metrics::space12 - metrics::readinessOverhang,
                               metrics::space12 - metrics::space2,
                               metrics::space12 - metrics::readinessOverhang, metrics::space12);
    column->addWidget(makeReadyLine());
    column->addWidget(m_readiness);
    column->addLayout(tiles);
    column->addWidget(m_lastScan);
    return m_overviewForm;
}

void SummaryHeaderView::showFilter(StatusFilter filter) {
    m_coordinator.setStatusFilter(filter);
    m_coordinator.logEvent("status_filter_changed");
}

void SummaryHeaderView::retranslate() {
    m_readyText->setText(toQString(localized("Bereit – keine App ist auf Rosetta angewiesen.")));
    m_readiness->setAction(localized("Anzeigen"));
    m_readiness->setToolTip(toQString(localized("Diese Apps anzeigen")));
    for (Tile* tile : m_tiles)
        tile->setTitle(tileTitle(tile->filter()));
    m_refresh.now();
}

void SummaryHeaderView::refresh() {
    const bool showsProgress =
        m_coordinator.isScanning().get() && m_coordinator.progress().get().has_value();
    if (showsProgress)
        refreshProgress();
    else
        refreshOverview();
    m_progressForm->setVisible(showsProgress);
    m_overviewForm->setVisible(!showsProgress);
}

void SummaryHeaderView::refreshProgress() {
    const ScanProgress& progress = *m_coordinator.progress().get();
    const auto [value, maximum] = barValues(progress);
    m_bar->setRange(0, maximum);
    m_bar->setValue(value);
    m_bar->setAccessibleName(toQString(progress.phase));
    m_count->setText(
        toQString(std::to_string(progress.completed) + '/' + std::to_string(progress.total)));
    m_phase->setText(toQString(progress.phase));
}

void SummaryHeaderView::refreshOverview() {
    const bool hasItems = !m_coordinator.items().get().empty();
    const std::size_t affected = m_coordinator.attentionCount();
    m_readyLine->setVisible(hasItems && affected == 0);
    m_readiness->setVisible(hasItems && affected > 0);
    m_readiness->setTitle(
        localized("%@ Apps/Komponenten benötigen Rosetta 2.", std::to_string(affected)));
    for (Tile* tile : m_tiles) {
        tile->setCount(m_coordinator.count(tile->filter()));
        tile->setChecked(tile->filter() == m_coordinator.statusFilter().get());
    }
    const auto& date = m_coordinator.lastScanDate().get();
    m_lastScan->setVisible(date.has_value());
    if (date)
        m_lastScan->setText(
            toQString(localized("Zuletzt aktualisiert: %@",
                                formatAbbreviatedDateTime(*date, QLocale().name().toStdString()))));
}

} // namespace veridane::ui
