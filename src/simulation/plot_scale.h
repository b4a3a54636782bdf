#pragma once

#include <cstdint>

namespace stoikal {

/// The vertical axis of the plot: grid lines from 0 to `top`, `step` apart.
struct VerticalScale {
    double step = 1;
    std::int64_t top = 1; ///< Ymax
};

/// The axis for numbers of particles up to `particleMax`. The step is the last of
/// 1, 2, 5, 10, 20 ... 20000 that fits ten times at least; the top is the next
/// multiple of it, and at least 1. 220 gives a step of 20 and a top of 220.
VerticalScale ScaleOfNumbers(std::int32_t particleMax);

/// The axis for a reaction quotient up to `quotientMax`: the steps begin with
/// 0.05, 0.1, 0.2, 0.5; the top is rounded to an integer and at least 2. Whether
/// the quotient is a multiple of the step is told from rounded integers, so a top
/// may lie below it by a fraction: 20.4 in steps of 2 has its top at 20.
VerticalScale ScaleOfQuotient(double quotientMax);

} // namespace stoikal
