#include "ui/EventLoopQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimerEvent>

#include <utility>

namespace veridane::ui {

void EventLoopQueue::post(std::function<void()> task) {
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
        if (std::exchange(m_isAwaited, true))
            return;
    }
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
    // One by one from the queue itself: a task that waits in a dialog must not hold up the others.
    for (std::size_t left = startTurn(); left > 0; --left) {
        if (const auto task = takeFirst())
            task();
    }
}

/// Gives the number of tasks that wait at its beginning.
std::size_t EventLoopQueue::startTurn() {
    const std::lock_guard lock(m_mutex);
    m_isAwaited = false;
    return m_tasks.size();
}

std::function<void()> EventLoopQueue::takeFirst() {
    const std::lock_guard lock(m_mutex);
    if (m_tasks.empty())
        return {};
    std::function<void()> task = std::move(m_tasks.front());
    m_tasks.pop_front();
    return task;
}

} // namespace veridane::ui
