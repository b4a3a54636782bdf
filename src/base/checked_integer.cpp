#include "base/checked_integer.h"

#include "base/fatal_fault.h"

#include <cmath>
#include <limits>

namespace stoikal {
namespace {

template <typename Integer>
Integer Checked(std::int64_t value)
{
    if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
        throw FatalFault(QStringLiteral("un nombre entier dépasse la capacité permise (%1).").arg(value));
    }
    return static_cast<Integer>(value);
}

} // namespace

std::int16_t Checked16(std::int64_t value)
{
    return Checked<std::int16_t>(value);
}

std::int32_t Checked32(std::int64_t value)
{
    return Checked<std::int32_t>(value);
}

std::int16_t RoundToEven16(double value)
{
    // The default rounding mode of the machine is "to nearest, ties to even".
    const double rounded = std::nearbyint(value);
    if (!(std::fabs(rounded) < 1e9))
        throw FatalFault(QStringLiteral("un nombre entier dépasse la capacité permise."));
    return Checked16(static_cast<std::int64_t>(rounded));
}

int CountOrOne(double typed)
{
    const int whole = RoundToEven16(std::trunc(typed));
    return whole == 0 ? 1 : whole;
}

} // namespace stoikal
