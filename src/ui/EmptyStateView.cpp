#include "ui/EmptyStateView.h"

#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/SymbolLabel.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/WrapLabel.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace veridane::ui {

EmptyStateView::EmptyStateView(const Theme& theme, std::string_view symbol, QWidget* parent)
    : QWidget(parent), m_title(new Label(theme, TextStyle::title2)),
      m_description(new WrapLabel(theme, TextStyle::callout, Tone::secondary)),
      m_column(makeColumn(this)) {
    m_title->setAlignment(Qt::AlignCenter);
    m_description->setAlignment(Qt::AlignCenter);
    m_description->setMaximumWidth(metrics::emptyStateTextWidth);
    m_column->setContentsMargins(metrics::space16, 0, metrics::space16,
                                 2 * metrics::emptyStateLift);
    m_column->addStretch();
    m_column->addWidget(new SymbolLabel(theme, symbol, metrics::emptyStateSymbol,
                                        metrics::emptyStateSymbol, Tone::tertiary),
                        0, Qt::AlignHCenter);
    m_column->addSpacing(metrics::emptyStateTitleGap);
    m_column->addWidget(m_title);
    m_column->addSpacing(metrics::emptyStateTextGap);
    m_column->addWidget(m_description, 0, Qt::AlignHCenter);
    m_column->addStretch();
}

void EmptyStateView::setTexts(std::string_view title, std::string_view description) {
    m_title->setText(toQString(title));
    m_description->setText(toQString(description));
}

void EmptyStateView::setButton(QPushButton* button) {
    const int end = m_column->count() - 1; // in front of the stretch
    m_column->insertSpacing(end, metrics::emptyStateButtonGap);
    m_column->insertWidget(end + 1, button, 0, Qt::AlignHCenter);
}

} // namespace veridane::ui
