#pragma once

#include <QString>
#include <cstdint>

namespace stoikal {

/// What the stopwatch shows, and what a run had used before its last restart.
struct StopwatchSeconds {
    double ElapsedSeconds = 0;
    double BankedSeconds = 0;
};

/// A stopwatch without a window and without a clock: the caller gives the
/// counter's reading. Suspending stops the display, not the time: the start is
/// set only at rest, or by `RestartFrom`.
class Stopwatch
{
public:
    enum class State { AtRest, Running, Suspended };

    explicit Stopwatch(std::int64_t countsPerSecond)
        : m_countsPerSecond(countsPerSecond)
    {
    }

    State CurrentState() const { return m_state; }

    /// The user's button: starts, suspends, goes on.
    void StartOrSuspend(std::int64_t counter);

    /// The exercise's own restart: the time runs from this reading.
    void RestartFrom(std::int64_t counter);

    /// Back to rest.
    void Reset() { m_state = State::AtRest; }

    /// Seconds since the start, added to those banked before it.
    double SecondsAt(std::int64_t counter, double bankedSeconds) const;

private:
    std::int64_t m_countsPerSecond;
    std::int64_t m_chronoStart = 0;
    State m_state = State::AtRest;
};

/// Minutes, seconds and tenths as the stopwatch shows them: 75.5 is "01:15,5".
/// The seconds are rounded by themselves: 59.96 shows "00:60,0".
QString StopwatchReading(double seconds, QChar separator);

/// Whether the alarm sounds: for a fifth of a second at each multiple of the
/// interval (in seconds, from 1). At whole minutes it is silent: the seconds
/// must not be 0.
bool AlarmSounds(double seconds, int intervalSeconds);

} // namespace stoikal
