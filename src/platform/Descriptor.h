#pragma once

#include <utility>

namespace veridane {

/// The one owner of a file descriptor.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int value) : m_value(value) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept : m_value(std::exchange(other.m_value, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            close();
            m_value = std::exchange(other.m_value, -1);
        }
        return *this;
    }

    [[nodiscard]] int get() const { return m_value; }
    [[nodiscard]] explicit operator bool() const { return m_value >= 0; }

    /// Gives the descriptor away; the caller closes it.
    [[nodiscard]] int release() { return std::exchange(m_value, -1); }

    void close();

private:
    int m_value = -1;
};

} // namespace veridane
