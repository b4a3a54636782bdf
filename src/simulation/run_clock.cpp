#include "simulation/run_clock.h"

#include "base/number_text.h"

#include <cmath>

namespace stoikal {
namespace {

QString TwoDigits(double whole)
{
    return FormatMask(whole, u"00", QLatin1Char('.'));
}

} // namespace

double RunSecondsAt(std::int64_t counter, std::int64_t clockStart, std::int64_t countsPerSecond)
{
    const auto counts = static_cast<double>(counter - clockStart);
    return std::floor(10.0 * counts / static_cast<double>(countsPerSecond)) / 10.0;
}

std::int64_t Tenths(double seconds)
{
    return std::llround(seconds * 10.0);
}

QString ClockReading(double runSeconds)
{
    const double hours = std::floor(runSeconds / 3600.0);
    const double minutes = std::floor((runSeconds - 3600.0 * hours) / 60.0);
    const double seconds = std::floor(runSeconds - 60.0 * minutes - 3600.0 * hours);
    return QStringLiteral("%1:%2:%3").arg(TwoDigits(hours), TwoDigits(minutes), TwoDigits(seconds));
}

double ExtendedTimeMax(double timeMax, double runSeconds)
{
    const double half = timeMax / 2.0;
    const double next = (std::floor(runSeconds / half) + 1.0) * half;
    // First to an integer, ties to the even one; then to tens, a half upwards.
    return std::round(std::nearbyint(next) / 10.0) * 10.0;
}

} // namespace stoikal
