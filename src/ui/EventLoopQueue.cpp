#include "ui/EventLoopQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimerEvent>

#include <cstddef>
#include <utility>

namespace veridane::ui {

void EventLoopQueue::post(std::function<void()> task) {
    m_tasks.add(std::move(task));
    if (!m_isAwaited.exchange(true))
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool EventLoopQueue::event(QEvent* event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    // Posted events that post further ones never end their turn. A timer of no time fires once in
    // each, after what the user does.
    startTimer(0);
    return true;
}

void EventLoopQueue::timerEvent(QTimerEvent* event) {
    killTimer(event->timerId());
    // Before the count: what comes after it asks for a turn of its own.
    m_isAwaited = false;
    // One by one from the list itself: a task that waits in a dialog must not hold up the others.
    for (std::size_t left = m_tasks.size(); left > 0; --left) {
        if (const auto task = m_tasks.takeFirst())
            task();
    }
}

} // namespace veridane::ui
