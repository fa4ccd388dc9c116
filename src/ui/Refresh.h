#pragma once

#include "platform/Observed.h"

#include <QObject>

#include <functional>
#include <vector>

namespace veridane::ui {

/// Refreshes a view once per turn of the event loop, however many of the values that it shows have
/// changed in it.
class Refresh : public QObject {
public:
    explicit Refresh(std::function<void()> refresh);

    /// Refreshes after each change of `value`, which must outlive this object.
    template <typename T>
    void on(const Observed<T>& value) {
        m_subscriptions.push_back(value.observe([this] { request(); }));
    }

    /// Refreshes at the end of this turn.
    void request();

    /// Refreshes at once, and no more in this turn.
    void now();

protected:
    bool event(QEvent* event) override;

private:
    std::function<void()> m_refresh;
    std::vector<Subscription> m_subscriptions;
    bool m_isRequested = false;
};

} // namespace veridane::ui
