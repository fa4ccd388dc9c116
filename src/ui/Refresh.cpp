#include "ui/Refresh.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace veridane::ui {

Refresh::Refresh(std::function<void()> refresh) : m_refresh(std::move(refresh)) {}

void Refresh::request() {
    if (std::exchange(m_isRequested, true))
        return;
    QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
}

void Refresh::now() {
    m_isRequested = false;
    QCoreApplication::removePostedEvents(this, QEvent::UpdateRequest);
    m_refresh();
}

bool Refresh::event(QEvent* event) {
    if (event->type() != QEvent::UpdateRequest)
        return QObject::event(event);
    now();
    return true;
}

} // namespace veridane::ui
