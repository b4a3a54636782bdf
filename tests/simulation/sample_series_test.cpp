#include "simulation/sample_series.h"

#include <gtest/gtest.h>

namespace stoikal {
namespace {

constexpr KindNumbers kTyped{200, 150, 50, 20, 30};

KindNumbers Only(std::int32_t a)
{
    return {a, 0, 0, 0, 0};
}

/// Samples 1 to `last`, a tenth of a second apart, with their number as A.
SampleSeries FilledTo(int last)
{
    SampleSeries series;
    series.Reset(kTyped);
    for (int k = 1; k <= last; ++k) {
        series.Store(Only(k), k / 10.0);
        series.Advance();
    }
    return series;
}

} // namespace

TEST(SampleSeries, BeginsWithTheNumbersTyped)
{
    SampleSeries series = FilledTo(3);

    series.Reset(kTyped);

    EXPECT_EQ(series.SampleIndex(), 1);
    EXPECT_EQ(series.At(0).counts, kTyped);
    EXPECT_EQ(series.At(0).seconds, 0);
    for (int k = 1; k <= 3; ++k) {
        EXPECT_EQ(series.At(k).counts, KindNumbers{}) << k;
        EXPECT_EQ(series.At(k).seconds, 0) << k;
    }
}

TEST(SampleSeries, HasNoPeriodBeforeTheFirstSample)
{
    SampleSeries series;
    series.Reset(kTyped);

    EXPECT_EQ(series.Gap(), 0);
    EXPECT_TRUE(series.IsDue(0.1, series.Gap()));
    EXPECT_TRUE(series.IsDue(0, series.Gap()));
}

TEST(SampleSeries, TakesTheTimeOfTheFirstSampleAsItsPeriod)
{
    SampleSeries series;
    series.Reset(kTyped);
    series.Store(kTyped, 0.3);
    series.Advance();

    EXPECT_EQ(series.Gap(), 0.3);
    EXPECT_FALSE(series.IsDue(0.5, series.Gap()));
    EXPECT_TRUE(series.IsDue(0.6, series.Gap()));
}

TEST(SampleSeries, LosesNoSampleToBinaryFractions)
{
    // 0.3 - 0.2 is a little less than 0.1 in binary; it is a whole period all the same.
    SampleSeries series = FilledTo(2);

    for (int tenths = 3; tenths < 200; ++tenths) {
        ASSERT_TRUE(series.IsDue(tenths / 10.0, series.Gap())) << tenths;
        ASSERT_FALSE(series.IsDue((tenths - 1) / 10.0, series.Gap())) << tenths;
        series.Store(kTyped, tenths / 10.0);
        series.Advance();
    }
}

TEST(SampleSeries, HalvesItselfAt1000Samples)
{
    const SampleSeries full = FilledTo(998);
    EXPECT_EQ(full.SampleIndex(), 999);

    const SampleSeries halved = FilledTo(999);

    // Entry k is what was entry 2k: 499 was 998.
    EXPECT_EQ(halved.SampleIndex(), 500);
    EXPECT_EQ(halved.At(0).counts, kTyped);
    EXPECT_EQ(halved.At(1).counts, Only(2));
    EXPECT_EQ(halved.At(250).counts, Only(500));
    EXPECT_EQ(halved.At(499).counts, Only(998));
    EXPECT_EQ(halved.At(499).seconds, 99.8);
}

TEST(SampleSeries, LeavesTheSecondHalfToBeWrittenOver)
{
    const SampleSeries halved = FilledTo(999);

    EXPECT_EQ(halved.At(500).counts, Only(500));
    EXPECT_EQ(halved.At(999).counts, Only(999));
}

TEST(SampleSeries, DoublesItsPeriodWhenItIsHalved)
{
    const SampleSeries halved = FilledTo(999);

    EXPECT_DOUBLE_EQ(halved.Gap(), 0.2);
    // The newest sample is now that of 99.8 s.
    EXPECT_FALSE(halved.IsDue(99.9, halved.Gap()));
    EXPECT_TRUE(halved.IsDue(100.0, halved.Gap()));
}

TEST(SampleSeries, HoldsAnyLengthOfARun)
{
    SampleSeries series;
    series.Reset(kTyped);
    // Three hours of ticks.
    for (int tenths = 1; tenths <= 3 * 36000; ++tenths) {
        if (!series.IsDue(tenths / 10.0, series.Gap()))
            continue;
        series.Store(kTyped, tenths / 10.0);
        series.Advance();
        ASSERT_GE(series.SampleIndex(), 2);
        ASSERT_LT(series.SampleIndex(), SampleSeries::kCapacity);
    }
    // Halved at 1000, 2000, 4000 ... 64000 samples' worth of tenths: a period of 12.8 s.
    EXPECT_DOUBLE_EQ(series.Gap(), 12.8);
}

} // namespace stoikal
