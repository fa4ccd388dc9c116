#pragma once

#include "platform/MainQueue.h"
#include "platform/TaskList.h"

#include <QObject>

#include <atomic>
#include <functional>

namespace veridane::ui {

/// The main queue of a window: its tasks run in the event loop of the thread that made it. What
/// tasks post runs in a later turn, so that the user's input always comes in between. Tasks that no
/// loop runs any more are dropped with the queue.
class EventLoopQueue : public QObject, public MainQueue {
public:
    void post(std::function<void()> task) override;

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    TaskList m_tasks;
    std::atomic<bool> m_isAwaited = false; // a turn for what waits has been asked for
};

} // namespace veridane::ui
