#pragma once

#include <QByteArrayView>
#include <algorithm>
#include <cstdint>
#include <optional>

namespace stoikal {

/// Above every real size, and small enough to be added up without harm.
constexpr std::int64_t kTooLarge = std::int64_t{1} << 60U;

/// The number of 4 or 8 bytes at a place, low byte first; kTooLarge behind the
/// end of the bytes and for every number above it.
inline std::int64_t NumberAt(QByteArrayView bytes, std::int64_t place, int size)
{
    if (place < 0 || place > bytes.size() - size)
        return kTooLarge;
    std::uint64_t number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = (number << 8U) | static_cast<unsigned char>(bytes[place + i]);
    return number > static_cast<std::uint64_t>(kTooLarge) ? kTooLarge : static_cast<std::int64_t>(number);
}

/// A number in groups of 7 bits, high group first, each but the last with its
/// top bit set; `place` moves behind it. Nothing when it does not end before
/// `end`; kTooLarge when it has more than 60 bits.
inline std::optional<std::int64_t> TakePackedNumber(QByteArrayView bytes, qsizetype end, qsizetype& place)
{
    std::uint64_t number = 0;
    for (int groups = 0; groups < 9 && place < end; ++groups) {
        const auto byte = static_cast<unsigned char>(bytes[place++]);
        number = (number << 7U) | (byte & 0x7FU);
        if (byte < 0x80)
            return static_cast<std::int64_t>(std::min(number, static_cast<std::uint64_t>(kTooLarge)));
    }
    return std::nullopt;
}

} // namespace stoikal
