#include "charts/progress_slider.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"
#include "base/number_text.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

std::int32_t RoundToEven32(double value)
{
    // The default rounding mode of the machine is "to nearest, ties to even".
    const double rounded = std::nearbyint(value);
    if (!(std::fabs(rounded) < 1e18))
        throw FatalFault(u"un nombre entier dépasse la capacité permise."_s);
    return Checked32(static_cast<std::int64_t>(rounded));
}

} // namespace

std::int32_t SliderMax(double xmax, std::int32_t xmaxScale)
{
    const double steps = xmax * xmaxScale;
    return std::floor(steps) == 0 ? 1 : RoundToEven32(steps);
}

std::int32_t TickFrequency(std::int32_t max)
{
    constexpr std::int32_t kLadder[][2]{
        {20, 1},
        {200, 10},
        {400, 20},
        {1000, 50},
        {2000, 100},
        {4000, 200},
        {10000, 500},
        {20000, 1000},
        {40000, 2000},
        {100000, 5000},
        {200000, 10000},
        {400000, 20000},
        {1000000, 50000},
        {2000000, 100000},
        {4000000, 200000},
        {10000000, 500000},
        {20000000, 1000000},
        {40000000, 2000000},
        {100000000, 5000000},
        {200000000, 10000000},
        {400000000, 20000000},
        {1000000000, 50000000},
    };
    for (const auto& [upTo, tick] : kLadder) {
        if (max <= upTo)
            return tick;
    }
    return 100000000;
}

SliderChanges SliderChangesFor(double xmax)
{
    constexpr double kBounds[]{5, 10, 50, 100, 500, 1000};
    int small = 1;
    for (const double bound : kBounds) {
        if (xmax < bound)
            break;
        small *= 10;
    }
    return {small, 5 * small};
}

std::int32_t NextAnimationValue(std::int32_t value, double xmax, std::int32_t xmaxScale)
{
    constexpr double kTicks = 50;
    const double step = std::max(1.0, xmax * xmaxScale / kTicks);
    const double end = SliderMax(xmax, xmaxScale);
    return RoundToEven32(std::min(end, value + step));
}

QString ProgressText(double progress, QChar separator)
{
    if (progress < 0.00000001)
        return FormatMask(0, u"0.0", separator) + u" mol"_s;
    if (progress < 0.001)
        return FormatMask(progress * 10000, u"0.0", separator) + u" x0,0001 mol"_s;
    const QStringView mask = progress < 1 ? u"0.000"
        : progress < 10                   ? u"0.00"
        : progress < 50                   ? u"0.0"
                                          : u"0";
    return FormatMask(progress, mask, separator) + u" mol"_s;
}

} // namespace stoikal
