#include "ui/FactRow.h"

#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SelectableLabel.h"
#include "ui/Text.h"

#include <QHBoxLayout>

namespace veridane::ui {

FactRow::FactRow(const Theme& theme, std::string_view field, FactStyle style, QWidget* parent)
    : QWidget(parent), m_title(new Label(theme, TextStyle::callout, Tone::secondary)),
      m_value(new SelectableLabel(theme, style == FactStyle::monospaced
                                             ? TextStyle::monospacedCallout
                                             : TextStyle::callout)) {
    m_title->setObjectName(toQString(field) + QStringLiteral("TitleLabel"));
    m_title->setFixedWidth(theme.scaled(metrics::factLabelWidth));
    m_value->setObjectName(toQString(field) + QStringLiteral("ValueLabel"));
    auto* row = makeRow(this);
    row->setContentsMargins(0, metrics::space4, 0, metrics::space4);
    row->addWidget(m_title, 0, Qt::AlignTop);
    row->addWidget(m_value, 1);
}

void FactRow::setFact(std::string_view title, const std::optional<std::string>& value) {
    m_title->setText(toQString(title));
    setVisible(value.has_value());
    if (value)
        m_value->setText(shown(*value));
}

} // namespace veridane::ui
