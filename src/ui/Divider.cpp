#include "ui/Divider.h"

#include "ui/Metrics.h"
#include "ui/Theme.h"

#include <QPainter>

namespace veridane::ui {

Divider::Divider(const Theme& theme, QWidget* parent) : QWidget(parent), m_theme(theme) {
    setFixedHeight(metrics::hairline);
}

void Divider::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter(this).fillRect(rect(), m_theme.colours().separator);
}

} // namespace veridane::ui
