#pragma once

#include <QString>
#include <cstdint>

namespace stoikal {

/// The end of the time axis at the start of a run, in seconds.
constexpr double kFirstTimeMax = 40;

/// Seconds of a run since its start, cut down to whole tenths.
double RunSecondsAt(std::int64_t counter, std::int64_t clockStart, std::int64_t countsPerSecond);

/// A time cut to tenths as a whole number of them, so that two times can be
/// compared exactly: 0.3 - 0.2 is no tenth in binary fractions.
std::int64_t Tenths(double seconds);

/// Hours, minutes and seconds, two digits each: 3725.9 is "01:02:05".
QString ClockReading(double runSeconds);

/// The next end of the time axis once a run has passed the present one: the
/// next multiple of half the axis behind the time, rounded to a multiple of ten.
/// So 40 goes to 60, then to 90, to 140 (135 rounded) and to 210.
double ExtendedTimeMax(double timeMax, double runSeconds);

} // namespace stoikal
