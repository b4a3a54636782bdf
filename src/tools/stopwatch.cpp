#include "tools/stopwatch.h"

#include "base/number_text.h"

#include <cmath>

namespace stoikal {

void Stopwatch::StartOrSuspend(std::int64_t counter)
{
    switch (m_state) {
    case State::AtRest:
        RestartFrom(counter);
        break;
    case State::Running:
        m_state = State::Suspended;
        break;
    case State::Suspended:
        // The start is kept: the time spent suspended counts.
        m_state = State::Running;
        break;
    }
}

void Stopwatch::RestartFrom(std::int64_t counter)
{
    m_chronoStart = counter;
    m_state = State::Running;
}

double Stopwatch::SecondsAt(std::int64_t counter, double bankedSeconds) const
{
    return static_cast<double>(counter - m_chronoStart) / static_cast<double>(m_countsPerSecond)
        + bankedSeconds;
}

QString StopwatchReading(double seconds, QChar separator)
{
    const double minutes = std::floor(seconds / 60);
    return FormatMask(minutes, u"00", separator) + QLatin1Char(':')
        + FormatMask(seconds - 60 * minutes, u"00.0", separator);
}

bool AlarmSounds(double seconds, int intervalSeconds)
{
    const double withinMinute = seconds - 60 * std::floor(seconds / 60);
    const double behindMultiple
        = std::fabs(seconds - std::floor(seconds / intervalSeconds) * intervalSeconds);
    return std::floor(withinMinute) != 0 && behindMultiple < 0.2;
}

} // namespace stoikal
