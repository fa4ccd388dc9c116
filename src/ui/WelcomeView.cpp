#include "ui/WelcomeView.h"

#include "platform/Language.h"
#include "platform/MainQueue.h"
#include "ui/BrandPicture.h"
#include "ui/ButtonRole.h"
#include "ui/Divider.h"
#include "ui/FocusRing.h"
#include "ui/Layouts.h"
#include "ui/MakerCard.h"
#include "ui/Metrics.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WrapLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <cstddef>
#include <utility>
#include <variant>

namespace veridane::ui {

WelcomeView::WelcomeView(WelcomeServices services, const Theme& theme)
    : m_client(services.client), m_queue(services.queue), m_theme(theme),
      m_network(std::move(services.watcher), services.queue),
      m_pictures(services.client, services.queue), m_self(std::make_shared<WelcomeView*>(this)),
      m_refresh([this] { refresh(); }),
      m_makerCard(new MakerCard(m_pictures, services.workspace, theme)) {
    setObjectName(QStringLiteral("WelcomeView"));
    setMaximumSize(theme.scaled(metrics::welcomeWidth), theme.scaled(metrics::welcomeHeight));
    m_page = makeScrollArea(makePage());
    m_page->setObjectName(QStringLiteral("welcomeScrollArea"));
    setRing(*m_page, {.gap = insideGap, .radius = metrics::sheetRadius});
    auto* column = makeColumn(this);
    column->addWidget(m_page, 1);
    column->addWidget(new Divider(theme));
    column->addWidget(makeBottomBar());

    m_refresh.on(m_network.isOnline());
    m_refresh.on(m_apps);
    retranslate();
}

WelcomeView::~WelcomeView() {
    m_network.stop();
}

QWidget* WelcomeView::makePage() {
    auto* page = new QWidget;
    auto* column = makeColumn(page, metrics::space18);
    column->setContentsMargins(metrics::space24, metrics::space24 + metrics::space8,
                               metrics::space24, metrics::space24);
    m_introduction = new WrapLabel(m_theme, TextStyle::callout, Tone::secondary);
    m_introduction->setAlignment(Qt::AlignCenter);
    column->addWidget(BrandPicture::applicationIcon(m_theme, metrics::welcomeIcon), 0,
                      Qt::AlignHCenter);
    column->addLayout(makeGreeting());
    column->addWidget(m_introduction);
    column->addLayout(makeFeatures());
    column->addWidget(new Divider(m_theme));
    column->addWidget(m_makerCard);
    column->addStretch();
    return page;
}

QLayout* WelcomeView::makeGreeting() {
    m_title = new Label(m_theme, TextStyle::title2);
    m_title->setAlignment(Qt::AlignCenter);
    m_subtitle = new WrapLabel(m_theme, TextStyle::callout, Tone::secondary);
    m_subtitle->setAlignment(Qt::AlignCenter);
    auto* column = makeColumn(nullptr, metrics::space4);
    column->addWidget(m_title);
    column->addWidget(m_subtitle);
    return column;
}

QLayout* WelcomeView::makeFeatures() {
    constexpr std::array symbols = {"magnifyingglass", "exclamationmark.triangle.fill",
                                    "checkmark.seal.fill"};
    auto* column = makeColumn(nullptr, metrics::space10);
    for (std::size_t index = 0; index < symbols.size(); ++index) {
        m_features.at(index) = new WrapLabel(m_theme, TextStyle::callout);
        auto* row = makeRow(nullptr, metrics::space10);
        row->addWidget(new SymbolLabel(m_theme, symbols.at(index), metrics::symbol,
                                       metrics::featureSymbolBox, Tone::accent),
                       0, Qt::AlignTop);
        row->addWidget(m_features.at(index), 1);
        column->addLayout(row);
    }
    return column;
}

QWidget* WelcomeView::makeBottomBar() {
    m_start = new QPushButton;
    m_start->setObjectName(QStringLiteral("dismissButton"));
    m_start->setDefault(true);
    setButtonRole(*m_start, ButtonRole::prominent);
    connect(m_start, &QPushButton::clicked, this, &WelcomeView::dismissed);
    auto* bar = new QWidget;
    auto* row = makeRow(bar);
    row->setContentsMargins(metrics::space16, metrics::space16, metrics::space16, metrics::space16);
    row->addStretch();
    row->addWidget(m_start);
    return bar;
}

void WelcomeView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (std::exchange(m_hasStarted, true))
        return;
    m_network.start();
    fetchCatalogue();
}

void WelcomeView::fetchCatalogue() {
    AppCatalogue::fetchRemote(
        m_client, [weak = std::weak_ptr(m_self), &queue = m_queue](AppCatalogue::Outcome outcome) {
            queue.post([weak, outcome = std::move(outcome)] {
                if (const auto self = weak.lock())
                    (*self)->finish(outcome);
            });
        });
}

void WelcomeView::finish(const AppCatalogue::Outcome& outcome) {
    const auto* remote = std::get_if<std::vector<MirefoldApp>>(&outcome);
    m_isBuiltIn = !remote || remote->empty();
    m_apps.set(m_isBuiltIn ? AppCatalogue::builtIn() : *remote);
}

/// The page scrolls from the button as well, which has the focus at first.
void WelcomeView::keyPressEvent(QKeyEvent* event) {
    QScrollBar& bar = *m_page->verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageDown:
        return bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_PageUp:
        return bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_Home:
        return bar.triggerAction(QAbstractSlider::SliderToMinimum);
    case Qt::Key_End:
        return bar.triggerAction(QAbstractSlider::SliderToMaximum);
    default:
        QWidget::keyPressEvent(event);
    }
}

void WelcomeView::refresh() {
    m_makerCard->setApps(m_apps.get());
    m_makerCard->setCatalogueVisible(m_network.isOnline().get() && !m_apps.get().empty());
}

void WelcomeView::retranslate() {
    m_title->setText(toQString(localized("Willkommen bei Veridane")));
    setAccessibleName(m_title->text());
    m_page->setAccessibleName(m_title->text());
    m_subtitle->setText(toQString(localized("Dein Begleiter für den Übergang zu macOS 27")));
    m_introduction->setText(toQString(
        localized("Apple lässt Rosetta 2 – die Übersetzung, mit der Intel-Apps auf Apple Silicon "
                  "laufen – auslaufen: bis einschließlich macOS 27 ist es verfügbar, ab macOS 28 "
                  "nur noch für einzelne alte Spiele. Veridane prüft deinen Mac und zeigt dir, "
                  "welche Programme und Komponenten Rosetta 2 benötigen – damit du rechtzeitig auf "
                  "native Versionen umsteigen kannst.")));
    m_features[0]->setText(toQString(
        localized("Scannt Programme, Plugins, Hintergrunddienste und Tools auf deinem Mac.")));
    m_features[1]->setText(
        toQString(localized("Zeigt klar, welche Programme und Komponenten Rosetta 2 benötigen.")));
    m_features[2]->setText(toQString(
        localized("Sagt dir, ob dein Mac für macOS 27 bereit ist – und was vorher zu tun ist.")));
    m_start->setText(withoutMnemonics(localized("Los geht's")));
    if (m_isBuiltIn)
        m_apps.set(AppCatalogue::builtIn());
}

} // namespace veridane::ui
