#pragma once

#include <cstdint>

namespace stoikal {

/// The value as a 16-bit signed integer. What does not fit is a FatalFault,
/// never a wrap.
std::int16_t Checked16(std::int64_t value);

/// The value as a 32-bit signed integer. What does not fit is a FatalFault.
std::int32_t Checked32(std::int64_t value);

/// The nearest integer, ties to the even one, as a 16-bit signed integer.
/// What does not fit, or is no number, is a FatalFault.
std::int16_t RoundToEven16(double value);

/// A count typed into a box as its whole value: 0 and an empty box count as 1.
int CountOrOne(double typed);

} // namespace stoikal
