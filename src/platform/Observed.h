#pragma once

#include <functional>
#include <memory>
#include <type_traits>
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

    /// Changes the value in its place, for one that is dear to copy: `change` takes it by reference
    /// and gives whether it has changed something.
    template <typename Change>
    void change(const Change& change) {
        if (change(m_value))
            notify();
    }

private:
    friend class JointWrite;

    /// Whether the value has changed.
    bool replace(T value) {
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

    T m_value{};
    mutable std::vector<std::weak_ptr<const std::function<void()>>> m_observers;
};

/// Writes values that change together: whoever is told of one of them finds all of them written.
class JointWrite {
public:
    template <typename T>
    void set(Observed<T>& target, std::type_identity_t<T> value) {
        if (target.replace(std::move(value)))
            m_changed.emplace_back([&target] { target.notify(); });
    }

    /// Tells the observers of what has changed, in the order of writing.
    void notify() const {
        for (const auto& notifyOne : m_changed)
            notifyOne();
    }

private:
    std::vector<std::function<void()>> m_changed;
};

} // namespace veridane
