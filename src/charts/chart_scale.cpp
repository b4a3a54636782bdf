#include "charts/chart_scale.h"

#include "base/number_text.h"

#include <cmath>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

/// The largest unit of both axes, for 100000000 and above.
constexpr double kLargestUnit = 1e7;

/// The unit whose hundredfold is the first above the value.
double UnitBelow(double value, double smallest)
{
    double unit = smallest;
    while (unit < kLargestUnit && value >= 100 * unit)
        unit *= 10;
    return unit;
}

/// "x100 " for 100 and nothing for 1.
QString WholePrefix(double unit)
{
    return unit > 1 ? u"x%1 "_s.arg(PlainNumber(unit)) : QString();
}

} // namespace

ScaleUnit VerticalUnit(double largest)
{
    if (largest < 1)
        return {0.1, u"x0,1 "_s};
    const double unit = UnitBelow(largest, 1);
    return {unit, WholePrefix(unit)};
}

ScaleUnit HorizontalUnit(double xmax)
{
    if (xmax < 0.01)
        return {0.0001, u"x0,0001 mol)"_s};
    if (xmax < 0.1)
        return {0.001, u"x0,001 mol)"_s};
    if (xmax < 1)
        return {0.01, u"x0,01 mol)"_s};
    if (xmax < 10)
        return {0.1, u"x0,1 mol)"_s};
    const double unit = UnitBelow(xmax, 1);
    return {unit, WholePrefix(unit) + u"mol)"_s};
}

double PickStep(double value)
{
    constexpr double kFirst[][2]{{1, 0.1}, {2, 0.2}, {5, 0.5}, {10, 1}, {20, 2}, {100, 5}};
    for (const auto& [limit, step] : kFirst) {
        if (value <= limit)
            return step;
    }
    constexpr double kLastDecade = 1e10;
    for (double decade = 100; decade < kLastDecade; decade *= 10) {
        if (value <= 2 * decade)
            return decade / 10;
        if (value <= 3 * decade)
            return decade / 5;
        if (value <= 10 * decade)
            return decade / 2;
    }
    return kLastDecade / 10;
}

AxisScale ScaleFor(double largest, double unit, std::int32_t xmaxScale)
{
    AxisScale scale;
    scale.unit = unit;
    double top = largest / unit;
    // Noise of a division must not carry a whole number over a limit.
    constexpr double kNoise = 1e-9;
    if (std::fabs(top - std::round(top)) < kNoise)
        top = std::round(top);
    // Nothing to show still has an axis.
    if (top <= 0)
        top = 1;
    scale.step = PickStep(top * xmaxScale) / xmaxScale;
    // Beyond the last step of the ladder a drawing would have lines without end.
    constexpr double kMostSteps = 100;
    while (top / scale.step > kMostSteps)
        scale.step *= 10;
    constexpr double kTolerance = 0.00001;
    if (std::fabs(top - std::round(top)) > kTolerance)
        top = (std::floor(top / scale.step + kNoise) + 1) * scale.step;
    scale.top = top;
    return scale;
}

std::vector<double> Graduations(const AxisScale& scale)
{
    std::vector<double> values;
    const double end = scale.top + scale.step / 2;
    for (int i = 0; i * scale.step <= end; ++i)
        values.push_back(i * scale.step);
    return values;
}

QString GraduationText(double value, QChar separator)
{
    return FormatMask(value, u"0.####", separator);
}

} // namespace stoikal
