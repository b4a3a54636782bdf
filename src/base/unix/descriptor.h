#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace stoikal {

/// What a call of the system gives once no signal interrupts it any more.
template <typename Call>
auto Uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// A descriptor of the system that is closed with this.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(Descriptor&& other) noexcept
        : m_number(other.Release())
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }
    /// Gives the number away; it is the taker's to close.
    int Release() { return std::exchange(m_number, -1); }

private:
    int m_number = -1;
};

} // namespace stoikal
