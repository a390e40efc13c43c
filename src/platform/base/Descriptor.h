#pragma once

#include <unistd.h>
#include <utility>

namespace kestro {

/// Owns one file descriptor, or none, and closes it. Any thread.
class Descriptor final {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept
        : m_number(other.release())
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        if (this == &other) return *this;
        reset();
        m_number = other.release();
        return *this;
    }

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }
    /// Gives the descriptor away.
    int release() { return std::exchange(m_number, -1); }
    void reset() { static_cast<void>(close()); }
    /// Closes it now; false where there is none, or where what was written does not reach its place.
    [[nodiscard]] bool close() { return m_number >= 0 && ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number = -1;
};

} // namespace kestro
