#include "ui/SegmentedControl.h"

#include "ui/ChoiceGroup.h"
#include "ui/FocusRing.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/PaintedButton.h"
#include "ui/Painting.h"
#include "ui/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

namespace veridane::ui {

class SegmentedControl::Segment : public PaintedButton {
public:
    explicit Segment(const Theme& theme) : PaintedButton(theme) {
        setCheckable(true);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        setRing(*this, {.gap = 0, .radius = metrics::segmentRadius});
    }

    [[nodiscard]] QSize sizeHint() const override {
        const QFontMetrics widest(theme().font(TextStyle::calloutMedium));
        return {widest.horizontalAdvance(title()) + 2 * metrics::space12,
                theme().scaled(metrics::segmentHeight)};
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        Q_UNUSED(event);
        QPainter painter(this);
        const ThemeColours& colours = theme().colours();
        if (isChecked()) {
            painting::fillRounded(painter, rect(), metrics::segmentRadius, colours.control);
            painting::strokeInside(painter, rect(), metrics::segmentRadius, colours.controlBorder,
                                   metrics::hairline);
        } else {
            paintState(painter, metrics::segmentRadius);
        }
        painter.setFont(theme().font(isChecked() ? TextStyle::calloutMedium : TextStyle::callout));
        painter.setPen(colours.text);
        painter.drawText(rect(), Qt::AlignCenter, title());
    }
};

SegmentedControl::SegmentedControl(const Theme& theme, int segments, QWidget* parent)
    : QWidget(parent), m_theme(theme), m_group(new ChoiceGroup(this)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* row = makeRow(this);
    row->setContentsMargins(metrics::space2, metrics::space2, metrics::space2, metrics::space2);
    for (int index = 0; index < segments; ++index) {
        auto* segment = new Segment(theme);
        m_group->addButton(segment, index);
        row->addWidget(segment);
    }
    connect(m_group, &QButtonGroup::idClicked, this, &SegmentedControl::chosen);
}

void SegmentedControl::setTitle(int segment, const std::string& title) {
    this->segment(segment).setTitle(title);
    updateGeometry();
}

void SegmentedControl::choose(int segment) {
    m_group->choose(m_group->button(segment));
}

PaintedButton& SegmentedControl::segment(int index) const {
    return static_cast<PaintedButton&>(*m_group->button(index));
}

void SegmentedControl::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), metrics::segmentTrackRadius,
                          faded(m_theme.colours().quaternary, opacity::segmentTrack));
}

} // namespace veridane::ui
