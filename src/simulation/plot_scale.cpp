#include "simulation/plot_scale.h"

#include "simulation/reaction_quotient.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr double kLeastSteps = 10;
constexpr int kLastPowerOfFive = 4;

/// The last number 2^j x 5^i that fits ten times into the value; 1 when none
/// does. The numbers rise, so the first that does not fit ends the search.
double StepFor(double value, int firstPowerOfFive, int firstPowerOfTwo)
{
    double step = 1;
    for (int i = firstPowerOfFive; i <= kLastPowerOfFive; ++i) {
        for (int j = std::max(i - 1, firstPowerOfTwo); j <= i + 1; ++j) {
            const double number = std::pow(2.0, j) * std::pow(5.0, i);
            if (value / number < kLeastSteps)
                return step;
            step = number;
        }
    }
    return step;
}

std::int64_t Rounded(double value)
{
    // Ties to the even integer.
    return static_cast<std::int64_t>(std::nearbyint(value));
}

bool IsMultiple(double value, double step)
{
    const double unit = step < 1 ? 10 : 1;
    // Half a tenth rounds to none: every value is a multiple of nothing.
    const std::int64_t wholeStep = Rounded(unit * step);
    return wholeStep == 0 || Rounded(unit * value) % wholeStep == 0;
}

std::int64_t TopFor(double value, double step)
{
    const double steps = std::floor(value / step) + (IsMultiple(value, step) ? 0 : 1);
    return Rounded(steps * step);
}

} // namespace

VerticalScale ScaleOfNumbers(std::int32_t particleMax)
{
    const double step = StepFor(particleMax, 0, 0);
    return {step, std::max<std::int64_t>(TopFor(particleMax, step), 1)};
}

VerticalScale ScaleOfQuotient(double quotientMax)
{
    const double step = StepFor(quotientMax, -1, -2);
    return {step, std::max<std::int64_t>(TopFor(quotientMax, step), Rounded(kLeastQuotientMax))};
}

} // namespace stoikal
