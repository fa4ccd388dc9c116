#include "ui/SidebarView.h"

#include "coordination/ScanCoordinator.h"
#include "platform/Language.h"
#include "ui/BrandPicture.h"
#include "ui/Card.h"
#include "ui/ChoiceGroup.h"
#include "ui/DisclosureButton.h"
#include "ui/Label.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SidebarRow.h"
#include "ui/SymbolLabel.h"
#include "ui/SymbolLook.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace veridane::ui {
namespace {

SymbolLook lookOf(StatusFilter filter) {
    switch (filter) {
    case StatusFilter::all:
        return {"square.grid.2x2", Tone::secondary};
    case StatusFilter::needsAttention:
        return {"exclamationmark.triangle.fill", Tone::orange};
    case StatusFilter::breaksOnMacOS28:
        return {"circle.fill", Tone::red};
    case StatusFilter::partiallyAffected:
        return {"circle.fill", Tone::yellow};
    case StatusFilter::switchToNative:
        return {"circle.fill", Tone::blue};
    case StatusFilter::ready:
        return {"circle.fill", Tone::green};
    case StatusFilter::notRelevant:
        return {"minus.circle", Tone::secondary};
    }
    return {};
}

int symbolSizeOf(const SymbolLook& look) {
    return look.symbol == "circle.fill" ? metrics::statusDot : metrics::symbol;
}

} // namespace

SidebarView::SidebarView(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_coordinator(coordinator), m_theme(theme),
      m_refresh([this] { refresh(); }), m_statusRows(new ChoiceGroup(this)),
      m_kindRows(new ChoiceGroup(this)), m_vendorRows(new ChoiceGroup(this)) {
    setObjectName(QStringLiteral("SidebarView"));

    auto* list = new QWidget;
    list->setObjectName(QStringLiteral("sidebarList"));
    auto* rows = makeColumn(list);
    rows->setContentsMargins(metrics::space10, 0, metrics::space10, metrics::space10);
    m_systemTitle = addSectionTitle(*rows, metrics::space10);
    rows->addWidget(makeSystemLines());
    m_statusTitle = addSectionTitle(*rows, metrics::sectionGap);
    addStatusRows(*rows);
    m_kindTitle = addSectionTitle(*rows, metrics::sectionGap);
    addKindRows(*rows);
    rows->addSpacing(metrics::space8);
    addVendorGroup(*rows);
    rows->addStretch();

    auto* scrollArea = makeScrollArea(list);
    scrollArea->setFocusPolicy(Qt::NoFocus); // the rows have it
    auto* column = makeColumn(this);
    column->addWidget(makeHeaderCard());
    column->addWidget(scrollArea, 1);

    m_refresh.on(coordinator.items());
    m_refresh.on(coordinator.statusFilter());
    m_refresh.on(coordinator.kindFilter());
    m_refresh.on(coordinator.vendorFilter());
    retranslate();
    m_refresh.now();
}

SidebarView::~SidebarView() = default;

QSize SidebarView::sizeHint() const {
    return {m_theme.scaled(metrics::sidebarIdeal), QWidget::sizeHint().height()};
}

QWidget* SidebarView::makeHeaderCard() {
    auto* name = new Label(m_theme, TextStyle::headline);
    name->setText(QStringLiteral("Veridane"));
    m_maker = new Label(m_theme, TextStyle::caption2, Tone::secondary);

    auto* texts = makeColumn(nullptr, metrics::hairline);
    texts->addWidget(name);
    texts->addWidget(m_maker);
    auto* card = new Card(m_theme, CardStyle::tinted, metrics::headerCardRadius);
    auto* row = makeRow(card, metrics::space10);
    row->setContentsMargins(metrics::space12, metrics::space10, metrics::space12, metrics::space10);
    row->addWidget(BrandPicture::applicationIcon(m_theme, metrics::applicationIcon));
    row->addLayout(texts, 1);
    row->setAlignment(texts, Qt::AlignVCenter);

    auto* frame = new QWidget;
    auto* margins = makeColumn(frame);
    margins->setContentsMargins(metrics::space10, metrics::space12, metrics::space10,
                                metrics::space8);
    margins->addWidget(card);
    return frame;
}

QWidget* SidebarView::makeSystemLines() {
    const SystemInfo& info = m_coordinator.systemInfo();
    const auto addLine = [this](QVBoxLayout& lines, const char* symbol, Tone symbolTone,
                                Tone textTone) {
        auto* label = new Label(m_theme, TextStyle::callout, textTone);
        auto* line = makeRow(nullptr, metrics::space8);
        line->addWidget(new SymbolLabel(m_theme, symbol, metrics::symbol, metrics::sidebarSymbolBox,
                                        symbolTone));
        line->addWidget(label, 1);
        lines.addLayout(line);
        return label;
    };
    auto* widget = new QWidget;
    auto* lines = makeColumn(widget, metrics::space6);
    lines->setContentsMargins(metrics::space6, metrics::space2, metrics::space6, metrics::space2);
    m_processor =
        addLine(*lines, info.isAppleSilicon ? "cpu" : "cpu.fill", Tone::primary, Tone::primary);
    const Tone rosettaTone = info.rosettaInstalled ? Tone::secondary : Tone::orange;
    m_rosetta = addLine(*lines, info.rosettaInstalled ? "checkmark.seal" : "seal", rosettaTone,
                        rosettaTone);
    auto* version = new Label(m_theme, TextStyle::caption, Tone::secondary);
    version->setText(toQString(info.osVersion));
    lines->addWidget(version);
    return widget;
}

Label* SidebarView::addSectionTitle(QVBoxLayout& column, int room) {
    auto* title = new Label(m_theme, TextStyle::subheadline, Tone::secondary);
    title->setContentsMargins(metrics::space6, room, metrics::space6, metrics::space4);
    column.addWidget(title);
    return title;
}

void SidebarView::addStatusRows(QVBoxLayout& column) {
    for (int index = 0; index < static_cast<int>(statusFilterCount); ++index) {
        const auto filter = static_cast<StatusFilter>(index);
        const SymbolLook look = lookOf(filter);
        auto* row = new SidebarRow(m_theme, {.symbol = std::string(look.symbol),
                                             .tone = look.tone,
                                             .symbolSize = symbolSizeOf(look),
                                             .height = metrics::statusRowHeight});
        row->setObjectName(toQString("status" + std::string(rawString(filter)) + "SidebarRow"));
        m_statusRows->addButton(row, index);
        column.addWidget(row);
    }
    connect(m_statusRows, &ChoiceGroup::idClicked, this, [this](int id) {
        const auto filter = static_cast<StatusFilter>(id);
        if (filter == m_coordinator.statusFilter().get())
            return; // it was selected before
        m_coordinator.setStatusFilter(filter);
        m_coordinator.logEvent("status_filter_changed");
    });
}

SidebarRow* SidebarView::addRow(QVBoxLayout& column, ChoiceGroup& group, std::string_view symbol,
                                bool isVerbatim) {
    auto* row = new SidebarRow(m_theme, {.symbol = std::string(symbol), .isVerbatim = isVerbatim});
    group.addButton(row);
    column.addWidget(row);
    return row;
}

void SidebarView::addKindRows(QVBoxLayout& column) {
    m_allKinds = addRow(column, *m_kindRows, "square.grid.2x2");
    m_allKinds->setObjectName(QStringLiteral("allKindsSidebarRow"));
    connect(m_allKinds, &QAbstractButton::clicked, this, [this] { chooseKind(std::nullopt); });
    for (std::size_t index = 0; index < itemKindCount; ++index) {
        const auto kind = static_cast<ItemKind>(index);
        SidebarRow* row = addRow(column, *m_kindRows, symbolName(kind));
        row->setObjectName(toQString(std::string(rawString(kind)) + "SidebarRow"));
        connect(row, &QAbstractButton::clicked, this, [this, kind] { chooseKind(kind); });
        m_kinds.at(index) = row;
    }
}

void SidebarView::addVendorGroup(QVBoxLayout& column) {
    m_vendorsExpanded = new DisclosureButton(m_theme, "building.2");
    m_vendorsExpanded->setObjectName(QStringLiteral("vendorsDisclosureButton"));
    m_vendorsExpanded->setChecked(true);
    column.addWidget(m_vendorsExpanded);
    m_vendorGroup = new QWidget;
    m_vendorColumn = makeColumn(m_vendorGroup);
    m_allVendors = addRow(*m_vendorColumn, *m_vendorRows, "building.2");
    m_allVendors->setObjectName(QStringLiteral("allVendorsSidebarRow"));
    connect(m_allVendors, &QAbstractButton::clicked, this, [this] { chooseVendor(std::nullopt); });
    connect(m_vendorsExpanded, &QAbstractButton::toggled, m_vendorGroup, &QWidget::setVisible);
    column.addWidget(m_vendorGroup);
}

void SidebarView::chooseKind(std::optional<ItemKind> kind) {
    m_coordinator.setKindFilter(kind == m_coordinator.kindFilter().get() ? std::nullopt : kind);
    m_coordinator.logEvent("kind_filter_changed");
}

void SidebarView::chooseVendor(std::optional<std::string> vendor) {
    if (vendor == m_coordinator.vendorFilter().get())
        vendor.reset();
    m_coordinator.setVendorFilter(std::move(vendor));
    m_coordinator.logEvent("vendor_filter_changed");
}

void SidebarView::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter(this).fillRect(rect(), m_theme.colours().sidebar);
}

void SidebarView::retranslate() {
    const SystemInfo& info = m_coordinator.systemInfo();
    m_maker->setText(toQString(localized("by Mirefold Software")));
    m_systemTitle->setText(toQString(localized("System")));
    m_processor->setText(
        toQString(info.isAppleSilicon ? localized("Apple Silicon") : localized("Intel-Mac")));
    m_rosetta->setText(toQString(info.rosettaInstalled ? localized("Rosetta 2 installiert")
                                                       : localized("Rosetta 2 nicht installiert")));
    m_statusTitle->setText(toQString(localized("Status")));
    for (QAbstractButton* row : m_statusRows->buttons())
        static_cast<SidebarRow*>(row)->setTitle(
            displayName(static_cast<StatusFilter>(m_statusRows->id(row))));
    m_kindTitle->setText(toQString(localized("Nach Art")));
    m_allKinds->setTitle(localized("Alle Arten"));
    for (std::size_t index = 0; index < itemKindCount; ++index)
        m_kinds.at(index)->setTitle(displayName(static_cast<ItemKind>(index)));
    m_vendorsExpanded->setTitle(localized("Hersteller"));
    m_allVendors->setTitle(localized("Alle Hersteller"));
}

void SidebarView::refresh() {
    for (QAbstractButton* button : m_statusRows->buttons()) {
        const auto filter = static_cast<StatusFilter>(m_statusRows->id(button));
        static_cast<SidebarRow*>(button)->setCount(m_coordinator.count(filter));
    }
    m_statusRows->choose(
        m_statusRows->button(static_cast<int>(m_coordinator.statusFilter().get())));
    refreshKinds();
    refreshVendors();
}

void SidebarView::refreshKinds() {
    const std::vector<ItemKind> available = m_coordinator.availableKinds();
    const auto& chosen = m_coordinator.kindFilter().get();
    m_kindTitle->setVisible(!available.empty());
    m_allKinds->setVisible(!available.empty());
    m_allKinds->setCount(m_coordinator.statusFilteredItems().size());
    for (std::size_t index = 0; index < itemKindCount; ++index) {
        const auto kind = static_cast<ItemKind>(index);
        m_kinds.at(index)->setVisible(std::ranges::find(available, kind) != available.end());
        m_kinds.at(index)->setCount(m_coordinator.count(kind));
    }
    m_kindRows->choose(chosen ? m_kinds.at(static_cast<std::size_t>(*chosen)) : m_allKinds);
}

void SidebarView::refreshVendors() {
    const std::vector<VendorCount> available = m_coordinator.availableVendorCounts();
    const auto& filter = m_coordinator.vendorFilter().get();
    const auto& kind = m_coordinator.kindFilter().get();
    m_vendorsExpanded->setVisible(!available.empty());
    m_vendorGroup->setVisible(!available.empty() && m_vendorsExpanded->isChecked());
    m_allVendors->setCount(kind ? m_coordinator.count(*kind) : 0);
    while (m_vendors.size() < available.size())
        addVendorRow();
    const SidebarRow* chosen = filter ? nullptr : m_allVendors;
    for (std::size_t index = 0; index < m_vendors.size(); ++index) {
        auto& [row, vendor] = m_vendors[index];
        row->setVisible(index < available.size());
        if (index >= available.size())
            continue;
        vendor = available[index].vendor;
        row->setTitle(shown(vendor).toStdString());
        row->setCount(available[index].count);
        if (vendor == filter)
            chosen = row;
    }
    m_vendorRows->choose(chosen);
}

// The rows are used again for other vendors: making hundreds of them costs more than all the rest.
void SidebarView::addVendorRow() {
    SidebarRow* row = addRow(*m_vendorColumn, *m_vendorRows, "person.circle", true);
    row->setObjectName(QStringLiteral("vendorSidebarRow"));
    connect(row, &QAbstractButton::clicked, this,
            [this, index = m_vendors.size()] { chooseVendor(m_vendors[index].vendor); });
    setTabOrder(m_vendors.empty() ? m_allVendors : m_vendors.back().row, row);
    m_vendors.push_back({row, {}});
}

} // namespace veridane::ui
