#pragma once

#include <QChar>
#include <QString>
#include <cstdint>
#include <vector>

namespace stoikal {

/// The unit that an axis counts in, and how its title names it.
struct ScaleUnit {
    double size = 1;
    QString text;
};

/// The unit of the vertical axis for the largest value to show, in mol or g:
/// 0.1 and "x0,1 " below 1, 1 and no text below 100, 10 and "x10 " below 1000,
/// and so on by powers of ten up to 10000000.
ScaleUnit VerticalUnit(double largest);

/// The unit of the horizontal axis for the greatest progress, in mol: 0.0001 and
/// "x0,0001 mol)" below 0.01, then a hundredth of the decade up to 10000000.
ScaleUnit HorizontalUnit(double xmax);

/// The step of a graduation for a value: 0.1 up to 1, 0.2 up to 2, 0.5 up to 5,
/// 1 up to 10, 2 up to 20, 5 up to 100, then in each decade a tenth of it up to
/// its double, a fifth up to its triple, a half up to its end. 1000000000 is the
/// last step. The limits belong to the step below.
double PickStep(double value);

/// How an axis counts: in steps, from 0 to its top, in its unit.
struct AxisScale {
    double unit = 1;
    double top = 1; ///< in units
    double step = 1; ///< in units
};

/// The scale that shows values up to the largest one. Its top is largest / unit,
/// raised to a whole number of steps when it is no integer to 0.00001.
AxisScale ScaleFor(double largest, double unit, std::int32_t xmaxScale);

/// The values of the lines of a grid: from 0 by steps up to the top and half a step.
std::vector<double> Graduations(const AxisScale& scale);

/// A value of a graduation in plain form with four decimals at most.
QString GraduationText(double value, QChar separator);

} // namespace stoikal
