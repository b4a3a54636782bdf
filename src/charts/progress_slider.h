#pragma once

#include <QChar>
#include <QString>
#include <cstdint>

namespace stoikal {

/// The slider of the evolution window counts in whole steps of the progress:
/// `xmaxScale` steps a mol.

/// Its end: the greatest progress in steps to the nearest whole number, ties to
/// the even one; 1 when not even one step fits. A FatalFault past 32 bits.
std::int32_t SliderMax(double xmax, std::int32_t xmaxScale);

/// The distance of its ticks for that end.
std::int32_t TickFrequency(std::int32_t max);

/// How far the keys move it.
struct SliderChanges {
    int small = 1; ///< by an arrow
    int large = 5; ///< by a page
};

/// For the greatest progress in mol.
SliderChanges SliderChangesFor(double xmax);

/// Where the next tick of the animation moves it: a fiftieth of the way on, one
/// step at least, to the nearest whole number and not past the end.
std::int32_t NextAnimationValue(std::int32_t value, double xmax, std::int32_t xmaxScale);

/// A progress in mol as a person reads it: "0,0 mol", "5,0 x0,0001 mol",
/// "0,125 mol", "2,50 mol", "12,5 mol", "50 mol".
QString ProgressText(double progress, QChar separator);

} // namespace stoikal
