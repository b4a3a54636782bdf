#include "tools/stopwatch.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <limits>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using State = Stopwatch::State;

constexpr std::int64_t kCountsPerSecond = 10;

QString Reading(double seconds)
{
    return StopwatchReading(seconds, u',');
}

} // namespace

TEST(Stopwatch, IsAtRestFirst)
{
    EXPECT_EQ(Stopwatch(kCountsPerSecond).CurrentState(), State::AtRest);
}

TEST(Stopwatch, StartsIsSuspendedAndGoesOn)
{
    Stopwatch watch(kCountsPerSecond);

    watch.StartOrSuspend(100);
    EXPECT_EQ(watch.CurrentState(), State::Running);
    watch.StartOrSuspend(200);
    EXPECT_EQ(watch.CurrentState(), State::Suspended);
    watch.StartOrSuspend(300);
    EXPECT_EQ(watch.CurrentState(), State::Running);
    watch.StartOrSuspend(400);
    EXPECT_EQ(watch.CurrentState(), State::Suspended);
}

TEST(Stopwatch, CountsFromItsStart)
{
    Stopwatch watch(kCountsPerSecond);
    watch.StartOrSuspend(100);

    EXPECT_DOUBLE_EQ(watch.SecondsAt(100, 0), 0.0);
    EXPECT_DOUBLE_EQ(watch.SecondsAt(115, 0), 1.5); // (115 - 100) / 10
}

TEST(Stopwatch, CountsTheTimeSpentSuspended)
{
    Stopwatch watch(kCountsPerSecond);
    watch.StartOrSuspend(100);
    watch.StartOrSuspend(150); // suspended at 5 s
    watch.StartOrSuspend(250); // for 10 s

    EXPECT_DOUBLE_EQ(watch.SecondsAt(260, 0), 16.0); // 5 + 10 + 1
}

TEST(Stopwatch, AddsTheSecondsBanked)
{
    Stopwatch watch(kCountsPerSecond);
    watch.StartOrSuspend(100);

    EXPECT_DOUBLE_EQ(watch.SecondsAt(115, 20.25), 21.75); // 1.5 + 20.25
}

TEST(Stopwatch, TakesANewStartBehindAReset)
{
    Stopwatch watch(kCountsPerSecond);
    watch.StartOrSuspend(100);
    watch.Reset();

    watch.StartOrSuspend(500);

    EXPECT_EQ(watch.CurrentState(), State::Running);
    EXPECT_DOUBLE_EQ(watch.SecondsAt(520, 0), 2.0);
}

TEST(Stopwatch, GoesToRestFromEachState)
{
    Stopwatch running(kCountsPerSecond);
    running.StartOrSuspend(1);
    running.Reset();
    EXPECT_EQ(running.CurrentState(), State::AtRest);

    Stopwatch suspended(kCountsPerSecond);
    suspended.StartOrSuspend(1);
    suspended.StartOrSuspend(2);
    suspended.Reset();
    EXPECT_EQ(suspended.CurrentState(), State::AtRest);

    Stopwatch atRest(kCountsPerSecond);
    atRest.Reset();
    EXPECT_EQ(atRest.CurrentState(), State::AtRest);
}

TEST(Stopwatch, IsRestartedByTheExerciseFromEachState)
{
    Stopwatch watch(kCountsPerSecond);
    watch.RestartFrom(100);
    EXPECT_EQ(watch.CurrentState(), State::Running);

    watch.RestartFrom(200); // while it runs
    EXPECT_DOUBLE_EQ(watch.SecondsAt(210, 0), 1.0);

    watch.StartOrSuspend(220);
    watch.RestartFrom(300); // while it is suspended
    EXPECT_EQ(watch.CurrentState(), State::Running);
    EXPECT_DOUBLE_EQ(watch.SecondsAt(310, 0), 1.0);
}

TEST(Stopwatch, CountsOnWithALargeCounter)
{
    constexpr std::int64_t kStart = std::numeric_limits<std::int64_t>::max() - 100;
    Stopwatch watch(kCountsPerSecond);
    watch.StartOrSuspend(kStart);

    EXPECT_DOUBLE_EQ(watch.SecondsAt(kStart + 50, 0), 5.0);
}

TEST(StopwatchReading, ShowsMinutesSecondsAndTenths)
{
    EXPECT_EQ(Reading(0), u"00:00,0"_s);
    EXPECT_EQ(Reading(1.5), u"00:01,5"_s);
    EXPECT_EQ(Reading(75.5), u"01:15,5"_s); // 60 + 15.5
    EXPECT_EQ(Reading(3599.5), u"59:59,5"_s);
}

TEST(StopwatchReading, KeepsOnCountingMinutesBehindAnHour)
{
    EXPECT_EQ(Reading(3600), u"60:00,0"_s);
    EXPECT_EQ(Reading(6000), u"100:00,0"_s);
}

TEST(StopwatchReading, RoundsTheSecondsByThemselves)
{
    EXPECT_EQ(Reading(59.94), u"00:59,9"_s);
    EXPECT_EQ(Reading(59.96), u"00:60,0"_s); // the minute is not carried
    EXPECT_EQ(Reading(60), u"01:00,0"_s);
}

TEST(StopwatchReading, RoundsHalfATenthUp)
{
    EXPECT_EQ(Reading(2.25), u"00:02,3"_s);
}

TEST(StopwatchReading, HasTheSeparatorOfTheSystem)
{
    EXPECT_EQ(StopwatchReading(75.5, u'.'), u"01:15.5"_s);
}

TEST(StopwatchAlarm, SoundsForAFifthOfASecondAtEachMultiple)
{
    EXPECT_TRUE(AlarmSounds(5.0, 5));
    EXPECT_TRUE(AlarmSounds(5.1, 5));
    EXPECT_FALSE(AlarmSounds(5.25, 5));
    EXPECT_FALSE(AlarmSounds(4.9, 5));
    EXPECT_TRUE(AlarmSounds(10.1, 5));
}

TEST(StopwatchAlarm, IsSilentAtWholeMinutes)
{
    EXPECT_FALSE(AlarmSounds(60.0, 5)); // the seconds are 0
    EXPECT_FALSE(AlarmSounds(60.1, 5)); // their whole part is 0
    EXPECT_FALSE(AlarmSounds(120.0, 10));
    EXPECT_TRUE(AlarmSounds(65.0, 5));
}

TEST(StopwatchAlarm, IsSilentAtTheStart)
{
    EXPECT_FALSE(AlarmSounds(0.0, 1));
    EXPECT_FALSE(AlarmSounds(0.1, 5));
}

TEST(StopwatchAlarm, SoundsEachSecondButForTheWholeMinutes)
{
    int sounded = 0;
    for (int second = 0; second < 180; ++second)
        sounded += AlarmSounds(second, 1) ? 1 : 0;

    EXPECT_EQ(sounded, 177); // 180 seconds less 0, 60 and 120
}

TEST(StopwatchAlarm, CountsMultiplesOfTheWholeTimeNotOfTheMinute)
{
    EXPECT_TRUE(AlarmSounds(63.0, 7)); // 9 * 7
    EXPECT_FALSE(AlarmSounds(67.0, 7)); // 7 s into the minute
    EXPECT_TRUE(AlarmSounds(70.0, 7));
}

} // namespace stoikal
