#include "charts/progress_slider.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(SliderMax, IsTheGreatestProgressInSteps)
{
    EXPECT_EQ(SliderMax(0.5, 1000), 500);
    EXPECT_EQ(SliderMax(0.0005, 100000), 50);
}

TEST(SliderMax, IsRoundedToTheNearestWholeNumberTiesToEven)
{
    EXPECT_EQ(SliderMax(2.0 / 3, 1000), 667); // 666.67.
    EXPECT_EQ(SliderMax(1.0 / 3, 1000), 333); // 333.33.
    EXPECT_EQ(SliderMax(0.0625, 1000), 62); // 62.5.
    EXPECT_EQ(SliderMax(0.1875, 1000), 188); // 187.5.
}

TEST(SliderMax, IsOneWhenNotEvenOneStepFits)
{
    EXPECT_EQ(SliderMax(0.0004, 1000), 1); // 0.4.
    EXPECT_EQ(SliderMax(0.0009, 1000), 1); // 0.9: its whole part is 0.
    EXPECT_EQ(SliderMax(0, 1000), 1);
}

TEST(SliderMax, PastThirtyTwoBitsIsAFault)
{
    EXPECT_EQ(SliderMax(2147483, 1000), 2147483000);
    EXPECT_THROW(SliderMax(2147484, 1000), FatalFault); // 2147484000 > 2147483647.
    EXPECT_THROW(SliderMax(1e300, 1000), FatalFault);
}

TEST(TickFrequency, ClimbsItsLadderEachBoundIncluded)
{
    struct Rung {
        std::int32_t upTo;
        std::int32_t tick;
    };
    const Rung ladder[]{{20, 1},
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
                        {1000000000, 50000000}};
    std::int32_t below = 0;
    for (const Rung& rung : ladder) {
        EXPECT_EQ(TickFrequency(below + 1), rung.tick) << below + 1;
        EXPECT_EQ(TickFrequency(rung.upTo), rung.tick) << rung.upTo;
        below = rung.upTo;
    }
    EXPECT_EQ(TickFrequency(1000000001), 100000000);
    EXPECT_EQ(TickFrequency(2147483647), 100000000);
}

TEST(SliderChanges, FollowTheGreatestProgress)
{
    struct Case {
        double xmax;
        int small;
        int large;
    };
    const Case cases[]{{0.001, 1, 5},
                       {4.999, 1, 5},
                       {5, 10, 50},
                       {9.99, 10, 50},
                       {10, 100, 500},
                       {49.9, 100, 500},
                       {50, 1000, 5000},
                       {99.9, 1000, 5000},
                       {100, 10000, 50000},
                       {499, 10000, 50000},
                       {500, 100000, 500000},
                       {999, 100000, 500000},
                       {1000, 1000000, 5000000},
                       {1e6, 1000000, 5000000}};
    for (const Case& c : cases) {
        EXPECT_EQ(SliderChangesFor(c.xmax).small, c.small) << c.xmax;
        EXPECT_EQ(SliderChangesFor(c.xmax).large, c.large) << c.xmax;
    }
}

TEST(ProgressAnimation, GoesOnByAFiftieth)
{
    EXPECT_EQ(NextAnimationValue(0, 0.5, 1000), 10); // 500 / 50.
    EXPECT_EQ(NextAnimationValue(200, 0.5, 1000), 210);
}

TEST(ProgressAnimation, EachValueIsRounded)
{
    // 667 / 50 = 13.333, from 0: 13.3, 26.3; the rounded value is the next beginning.
    EXPECT_EQ(NextAnimationValue(0, 2.0 / 3, 1000), 13);
    EXPECT_EQ(NextAnimationValue(13, 2.0 / 3, 1000), 26);
    // 625 / 50 = 12.5: ties go to the even number.
    EXPECT_EQ(NextAnimationValue(0, 0.625, 1000), 12);
    EXPECT_EQ(NextAnimationValue(13, 0.625, 1000), 26); // 25.5.
    EXPECT_EQ(NextAnimationValue(14, 0.625, 1000), 26); // 26.5.
}

TEST(ProgressAnimation, GoesOnByOneStepAtLeast)
{
    EXPECT_EQ(NextAnimationValue(0, 0.03, 1000), 1); // 30 / 50 = 0.6.
    EXPECT_EQ(NextAnimationValue(7, 0.03, 1000), 8);
}

TEST(ProgressAnimation, RunTakesFiftyTicksOrAsManyAsTheEndHasSteps)
{
    const auto ticks = [](double xmax, std::int32_t scale) {
        std::int32_t value = 0;
        int count = 0;
        for (; value < SliderMax(xmax, scale) && count < 1000; ++count)
            value = NextAnimationValue(value, xmax, scale);
        return count;
    };
    EXPECT_EQ(ticks(0.5, 1000), 50); // 500 by 10.
    EXPECT_EQ(ticks(0.05, 1000), 50); // 50 by 1.
    EXPECT_EQ(ticks(0.03, 1000), 30); // Below 50 steps: one a tick.
    EXPECT_EQ(ticks(0.0004, 1000), 1);
}

TEST(ProgressAnimation, EndsAtTheEnd)
{
    EXPECT_EQ(NextAnimationValue(495, 0.5, 1000), 500);
    EXPECT_EQ(NextAnimationValue(500, 0.5, 1000), 500);
    EXPECT_EQ(NextAnimationValue(2147480000, 2147483, 1000), 2147483000);
}

TEST(ProgressText, NothingYet)
{
    EXPECT_EQ(ProgressText(0, u','), u"0,0 mol"_s);
}

TEST(ProgressText, BelowAThousandthCountsInTenThousandths)
{
    EXPECT_EQ(ProgressText(0.0005, u','), u"5,0 x0,0001 mol"_s);
    EXPECT_EQ(ProgressText(0.00000001, u','), u"0,0 x0,0001 mol"_s); // 0.0001 of them.
    EXPECT_EQ(ProgressText(0.00099, u','), u"9,9 x0,0001 mol"_s);
}

TEST(ProgressText, DecimalsShrinkAsItGrows)
{
    EXPECT_EQ(ProgressText(0.001, u','), u"0,001 mol"_s);
    EXPECT_EQ(ProgressText(0.5, u','), u"0,500 mol"_s);
    EXPECT_EQ(ProgressText(0.9994, u','), u"0,999 mol"_s);
    EXPECT_EQ(ProgressText(1, u','), u"1,00 mol"_s);
    EXPECT_EQ(ProgressText(9.994, u','), u"9,99 mol"_s);
    EXPECT_EQ(ProgressText(10, u','), u"10,0 mol"_s);
    EXPECT_EQ(ProgressText(49.94, u','), u"49,9 mol"_s);
    EXPECT_EQ(ProgressText(50, u','), u"50 mol"_s);
    EXPECT_EQ(ProgressText(1234.5, u','), u"1235 mol"_s); // Half away from zero.
}

TEST(ProgressText, HasTheSystemsSign)
{
    EXPECT_EQ(ProgressText(0.125, u'.'), u"0.125 mol"_s);
    // The unit is a fixed text.
    EXPECT_EQ(ProgressText(0.0005, u'.'), u"5.0 x0,0001 mol"_s);
}

} // namespace stoikal
