#include "simulation/run_clock.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(RunClock, CutsTheTimeDownToTenths)
{
    // 1000 counts a second: 1259 counts are 1.259 s, of which 12 tenths are whole.
    EXPECT_EQ(RunSecondsAt(5259, 4000, 1000), 1.2);
    EXPECT_EQ(RunSecondsAt(4099, 4000, 1000), 0.0);
    EXPECT_EQ(RunSecondsAt(4100, 4000, 1000), 0.1);
    EXPECT_EQ(RunSecondsAt(4000, 4000, 1000), 0.0);
}

TEST(RunClock, CountsByTheFrequencyOfTheCounter)
{
    // 2,500,000,000 counts of a nanosecond are 2.5 s.
    EXPECT_EQ(RunSecondsAt(2'500'000'007, 7, 1'000'000'000), 2.5);
}

TEST(RunClock, ShowsHoursMinutesAndSecondsInTwoDigitsEach)
{
    EXPECT_EQ(ClockReading(0), u"00:00:00"_s);
    EXPECT_EQ(ClockReading(7.9), u"00:00:07"_s);
    EXPECT_EQ(ClockReading(59.9), u"00:00:59"_s);
    EXPECT_EQ(ClockReading(60), u"00:01:00"_s);
    EXPECT_EQ(ClockReading(3599.9), u"00:59:59"_s);
    // 3725 s = 1 h (3600) + 2 min (120) + 5 s.
    EXPECT_EQ(ClockReading(3725.9), u"01:02:05"_s);
    EXPECT_EQ(ClockReading(36000), u"10:00:00"_s);
}

TEST(RunClock, ComparesTimesByWholeTenths)
{
    EXPECT_EQ(Tenths(0.3), 3);
    EXPECT_EQ(Tenths(0.7), 7);
    EXPECT_EQ(Tenths(1234.5), 12345);
}

TEST(TimeAxis, GrowsFrom40To60To90To140)
{
    // h = 20, floor(40.1 / 20) + 1 = 3: 60.
    EXPECT_EQ(ExtendedTimeMax(40, 40.1), 60);
    // h = 30, floor(60.1 / 30) + 1 = 3: 90.
    EXPECT_EQ(ExtendedTimeMax(60, 60.1), 90);
    // h = 45, floor(90.1 / 45) + 1 = 3: 135, which is 13.5 tens: 14 tens.
    EXPECT_EQ(ExtendedTimeMax(90, 90.1), 140);
    // h = 70, 3 x 70 = 210.
    EXPECT_EQ(ExtendedTimeMax(140, 140.1), 210);
    // h = 105, 3 x 105 = 315: 31.5 tens go up to 32.
    EXPECT_EQ(ExtendedTimeMax(210, 210.1), 320);
}

TEST(TimeAxis, ReachesBeyondATimeThatIsFarAhead)
{
    // h = 20, floor(100 / 20) + 1 = 6: 120.
    EXPECT_EQ(ExtendedTimeMax(40, 100), 120);
    // h = 20, floor(99.9 / 20) + 1 = 5: 100.
    EXPECT_EQ(ExtendedTimeMax(40, 99.9), 100);
}

TEST(TimeAxis, RoundsToAnIntegerOfEvenTiesBeforeTheTens)
{
    // h = 3.5: floor(24 / 3.5) + 1 = 7, 24.5: the even 24 and not 25, so 2 tens.
    EXPECT_EQ(ExtendedTimeMax(7, 24), 20);
    // h = 7.5: floor(37 / 7.5) + 1 = 5, 37.5: the even 38, so 4 tens.
    EXPECT_EQ(ExtendedTimeMax(15, 37), 40);
}

} // namespace stoikal
