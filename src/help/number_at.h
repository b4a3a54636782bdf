#pragma once

#include <QByteArrayView>
#include <cstdint>

namespace stoikal {

/// Above every real size, and small enough to be added up without harm.
constexpr std::int64_t kTooLarge = std::int64_t{1} << 60U;

/// The number of 4 or 8 bytes at a position, low byte first; kTooLarge after
/// the end of the bytes and for every number above it.
inline std::int64_t NumberAt(QByteArrayView bytes, std::int64_t position, int size)
{
    if (position < 0 || position > bytes.size() - size)
        return kTooLarge;
    std::uint64_t number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = (number << 8U) | static_cast<unsigned char>(bytes[position + i]);
    return number > static_cast<std::uint64_t>(kTooLarge) ? kTooLarge : static_cast<std::int64_t>(number);
}

} // namespace stoikal
