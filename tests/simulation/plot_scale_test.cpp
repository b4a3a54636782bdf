#include "simulation/plot_scale.h"

#include <gtest/gtest.h>

namespace stoikal {
namespace {

void ExpectNumbers(std::int32_t particleMax, double step, std::int64_t top)
{
    const VerticalScale scale = ScaleOfNumbers(particleMax);
    EXPECT_EQ(scale.step, step) << particleMax;
    EXPECT_EQ(scale.top, top) << particleMax;
}

void ExpectQuotient(double quotientMax, double step, std::int64_t top)
{
    const VerticalScale scale = ScaleOfQuotient(quotientMax);
    EXPECT_DOUBLE_EQ(scale.step, step) << quotientMax;
    EXPECT_EQ(scale.top, top) << quotientMax;
}

} // namespace

TEST(ScaleOfNumbers, TakesTheLastStepThatFitsTenTimes)
{
    ExpectNumbers(220, 20, 220); // 220 / 20 = 11, 220 / 50 = 4.4.
    ExpectNumbers(99, 5, 100); // 99 / 5 = 19.8, 99 / 10 = 9.9: 20 steps of 5.
    ExpectNumbers(100, 10, 100); // exactly ten.
    ExpectNumbers(101, 10, 110);
    ExpectNumbers(1000, 100, 1000);
    ExpectNumbers(499, 20, 500); // 499 / 50 = 9.98: 25 steps of 20.
    ExpectNumbers(500, 50, 500);
    ExpectNumbers(20, 2, 20);
    ExpectNumbers(21, 2, 22);
}

TEST(ScaleOfNumbers, KeepsAStepOf1ForFewParticles)
{
    ExpectNumbers(9, 1, 9);
    ExpectNumbers(1, 1, 1);
    ExpectNumbers(10, 1, 10);
}

TEST(ScaleOfNumbers, EndsAt1WithoutParticles)
{
    ExpectNumbers(0, 1, 1);
}

TEST(ScaleOfNumbers, WalksThroughTheWholeSeries)
{
    // At ten times a step of the series it is the step itself.
    for (const int step : {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000})
        ExpectNumbers(10 * step, step, 10 * step);
}

TEST(ScaleOfNumbers, StaysAtTheLastStepPastTheSeries)
{
    ExpectNumbers(1'000'000, 20000, 1'000'000);
    ExpectNumbers(1'000'001, 20000, 1'020'000);
}

TEST(ScaleOfQuotient, GoesTo2InTenthsOfTwo)
{
    ExpectQuotient(2, 0.2, 2);
}

TEST(ScaleOfQuotient, WalksThroughTheWholeSeries)
{
    for (const double step : {0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2000.0,
                              5000.0, 10000.0, 20000.0})
        ExpectQuotient(10 * step, step, static_cast<std::int64_t>(10 * step));
}

TEST(ScaleOfQuotient, BeginsItsStepsBelow1)
{
    // 0.6 / 0.05 = 12, 0.6 / 0.1 = 6. The top of 2 is the least.
    ExpectQuotient(0.6, 0.05, 2);
    // 1.5 / 0.1 = 15, 1.5 / 0.2 = 7.5.
    ExpectQuotient(1.5, 0.1, 2);
    // 0.3 / 0.05 = 6: no step of the series fits, the 1 of the beginning stays.
    ExpectQuotient(0.3, 1, 2);
    ExpectQuotient(0, 1, 2);
}

TEST(ScaleOfQuotient, TakesTheNextMultipleRoundedToAnInteger)
{
    // Steps of 0.2: 25 tenths are no multiple of 2, so 13 x 0.2 = 2.6: 3.
    ExpectQuotient(2.5, 0.2, 3);
    // 24 tenths are: 12 x 0.2 = 2.4, which rounds to 2.
    ExpectQuotient(2.4, 0.2, 2);
    // Steps of 0.5: 72 tenths, 15 x 0.5 = 7.5, the even 8.
    ExpectQuotient(7.2, 0.5, 8);
    // 62 tenths, 13 x 0.5 = 6.5, the even 6.
    ExpectQuotient(6.2, 0.5, 6);
}

TEST(ScaleOfQuotient, TellsAMultipleFromRoundedIntegers)
{
    // Steps of 2: 20.4 is taken as 20, a multiple: floor(10.2) x 2 = 20.
    ExpectQuotient(20.4, 2, 20);
    // 20.6 is taken as 21, none: (10 + 1) x 2 = 22.
    ExpectQuotient(20.6, 2, 22);
}

TEST(ScaleOfQuotient, Reaches10000InStepsOf1000)
{
    ExpectQuotient(10000, 1000, 10000);
}

TEST(ScaleOfQuotient, HoldsATopWiderThan16Bits)
{
    // 499 x 499 = 249001: 12.45 steps of 20000, so 13.
    ExpectQuotient(249001, 20000, 260000);
}

} // namespace stoikal
