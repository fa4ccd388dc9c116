#include "ui/Layouts.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace veridane::ui {
namespace {

template <typename Layout>
Layout* make(QWidget* widget, int spacing) {
    auto* layout = new Layout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

} // namespace

QVBoxLayout* makeColumn(QWidget* widget, int spacing) {
    return make<QVBoxLayout>(widget, spacing);
}

QHBoxLayout* makeRow(QWidget* widget, int spacing) {
    return make<QHBoxLayout>(widget, spacing);
}

QScrollArea* makeScrollArea(QWidget* content) {
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(content);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false); // which the area has turned on
    return area;
}

} // namespace veridane::ui
