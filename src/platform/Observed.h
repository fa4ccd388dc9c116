#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace veridane {

/// Keeps an observation alive; it ends with this object, or with the observed value if that goes
/// first.
class Subscription {
public:
    Subscription() = default;

private:
    template <typename T>
    friend class Observed;
    using Observer = std::function<void()>;

    explicit Subscription(std::shared_ptr<const Observer> observer)
        : m_observer(std::move(observer)) {}

    std::shared_ptr<const Observer> m_observer;
};

/// A value that tells its observers when it has changed. For one thread. Observers may read and
/// write any value, and come and go, while they are told; one that comes meanwhile is told from the
/// next change on.
template <typename T>
class Observed {
public:
    Observed() = default;
    explicit Observed(T value) : m_value(std::move(value)) {}
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;

    [[nodiscard]] const T& get() const { return m_value; }

    /// Calls `observer` after every change for as long as the subscription lives.
    [[nodiscard]] Subscription observe(std::function<void()> observer) const {
        auto shared = std::make_shared<const std::function<void()>>(std::move(observer));
        std::erase_if(m_observers, [](const auto& known) { return known.expired(); });
        m_observers.push_back(shared);
        return Subscription(std::move(shared));
    }

    /// Writes the value, and tells the observers unless it is equal to the old one.
    void set(T value) {
        if (replace(std::move(value)))
            notify();
    }

    /// The two halves of `set`, for values that change together: whoever is told of one of them
    /// must find all of them written. Gives whether the value has changed.
    [[nodiscard]] bool replace(T value) {
        if (m_value == value)
            return false;
        m_value = std::move(value);
        return true;
    }
    void notify() const {
        // A copy, because observers may come and go, and take this object with them.
        const auto observers = m_observers;
        for (const auto& observer : observers) {
            if (const auto alive = observer.lock())
                (*alive)();
        }
    }

    /// Changes the value in its place, for one that is dear to copy: `change` takes it by reference
    /// and gives whether it has changed something.
    template <typename Change>
    void change(const Change& change) {
        if (change(m_value))
            notify();
    }

private:
    T m_value{};
    mutable std::vector<std::weak_ptr<const std::function<void()>>> m_observers;
};

} // namespace veridane
