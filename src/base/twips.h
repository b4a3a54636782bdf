#pragma once

#include <cstdint>

namespace stoikal {

/// Lengths of windows: 15 to a logical pixel. 32 bits, since a screen of 3840
/// pixels has 57600 of them.
using Twips = std::int32_t;

constexpr Twips kTwipsPerPixel = 15;

constexpr Twips FromPixels(int pixels)
{
    return pixels * kTwipsPerPixel;
}

/// To the nearest pixel.
constexpr int ToPixels(Twips twips)
{
    return (twips + (twips < 0 ? -kTwipsPerPixel / 2 : kTwipsPerPixel / 2)) / kTwipsPerPixel;
}

} // namespace stoikal
