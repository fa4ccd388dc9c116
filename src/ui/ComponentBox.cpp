#include "ui/ComponentBox.h"

#include "platform/Language.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SelectableLabel.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace veridane::ui {
namespace {

constexpr std::size_t maxNamedComponents = 40; // some bundles carry thousands

} // namespace

ComponentBox::ComponentBox(const Theme& theme, QWidget* parent)
    : TintedBox(theme, {.fill = opacity::componentBox, .border = 0, .radius = metrics::boxRadius},
                parent),
      m_theme(theme), m_title(new WrapLabel(theme, TextStyle::headline, Tone::orange)),
      m_explanation(new WrapLabel(theme, TextStyle::caption, Tone::secondary)),
      m_paths(makeColumn(nullptr, metrics::componentGap)),
      m_further(new Label(theme, TextStyle::caption, Tone::secondary)) {
    setObjectName(QStringLiteral("componentBox"));
    setTone(Tone::orange);
    m_title->setObjectName(QStringLiteral("componentsTitleLabel"));
    m_explanation->setObjectName(QStringLiteral("componentsExplanationLabel"));
    m_further->setObjectName(QStringLiteral("furtherComponentsLabel"));

    auto* heading = makeRow(nullptr, metrics::space6);
    heading->addWidget(new SymbolLabel(theme, "eye.trianglebadge.exclamationmark", metrics::symbol,
                                       metrics::symbol, Tone::orange));
    heading->addWidget(m_title, 1);
    auto* column = makeColumn(this, metrics::space8);
    column->setContentsMargins(metrics::space10, metrics::space10, metrics::space10,
                               metrics::space10);
    column->addLayout(heading);
    column->addWidget(m_explanation);
    column->addLayout(m_paths);
    column->addWidget(m_further);
}

SelectableLabel& ComponentBox::row(std::size_t index) {
    while (m_rows.size() <= index) {
        m_rows.push_back(
            new SelectableLabel(m_theme, TextStyle::monospacedCaption, Tone::secondary, this));
        m_rows.back()->setObjectName(QStringLiteral("componentLabel"));
        m_paths->addWidget(m_rows.back());
    }
    return *m_rows[index];
}

void ComponentBox::showComponents(const std::vector<std::string>& components) {
    const std::size_t named = std::min(components.size(), maxNamedComponents);
    for (std::size_t index = 0; index < named; ++index) {
        row(index).setText(shown(components[index]));
        row(index).show();
    }
    for (std::size_t index = named; index < m_rows.size(); ++index)
        m_rows[index]->hide();
    m_title->setText(toQString(
        localized("Eingebettete Intel-Komponenten (%@)", std::to_string(components.size()))));
    m_explanation->setText(toQString(localized(
        "Die Haupt-App läuft nativ auf Apple Silicon. Diese eingebetteten Komponenten sind jedoch "
        "nur als Intel (x86_64) vorhanden und benötigen Rosetta 2. Apple stellt Rosetta 2 bis "
        "einschließlich macOS 27 bereit; ab macOS 28 nur noch für einzelne alte Spiele – danach "
        "funktionieren diese Teile (Plugins, Hintergrunddienste, Hilfsprozesse) nicht mehr.")));
    m_further->setText(
        toQString(localized("… und %@ weitere", std::to_string(components.size() - named))));
    m_further->setVisible(components.size() > named);
    setVisible(!components.empty());
}

} // namespace veridane::ui
