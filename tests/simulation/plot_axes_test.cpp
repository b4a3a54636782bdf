#include "simulation/plot_axes.h"

#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QStringList Texts(const std::vector<PlotLabel>& labels)
{
    QStringList texts;
    for (const PlotLabel& label : labels)
        texts << label.text;
    return texts;
}

PlotAxes Numbers(double timeMax = 40)
{
    return AxesOf(PlotQuantity::ParticleNumbers, {20, 220}, timeMax, u',');
}

PlotAxes Quotients(const VerticalScale& scale)
{
    return AxesOf(PlotQuantity::Quotient, scale, 40, u',');
}

} // namespace

TEST(PlotAxes, LeaveRoomAroundTheNumbers)
{
    const PlotAxes axes = Numbers();

    // m = 0.02 x 220 = 4.4: from 224.4 to -2.2, and 40 x 1.01 = 40.4 across.
    EXPECT_DOUBLE_EQ(axes.scale.top, 224.4);
    EXPECT_DOUBLE_EQ(axes.scale.bottom, -2.2);
    EXPECT_DOUBLE_EQ(axes.scale.right, 40.4);
}

TEST(PlotAxes, LeaveOneHundredthAroundTheQuotient)
{
    const PlotAxes axes = Quotients({1, 10});

    EXPECT_DOUBLE_EQ(axes.scale.top, 10.1);
    EXPECT_DOUBLE_EQ(axes.scale.bottom, -0.1);
    EXPECT_DOUBLE_EQ(axes.scale.right, 40.4);
}

TEST(PlotAxes, DrawALevelLineAStepUpToTheTop)
{
    const PlotAxes axes = Numbers();

    // 0, 20 ... 220.
    ASSERT_EQ(axes.levels.size(), 12U);
    EXPECT_EQ(axes.levels.front(), 0);
    EXPECT_EQ(axes.levels[1], 20);
    EXPECT_EQ(axes.levels.back(), 220);
    EXPECT_EQ(axes.top, 220);
    EXPECT_EQ(axes.end, 40);
}

TEST(PlotAxes, PrintNumbersPlainWithABlankAndWithoutTheZero)
{
    const PlotAxes axes = Numbers();

    ASSERT_EQ(axes.levelLabels.size(), 11U);
    EXPECT_EQ(axes.levelLabels.front().text, u"20 "_s);
    EXPECT_EQ(axes.levelLabels.front().at, 20);
    EXPECT_EQ(axes.levelLabels.back().text, u"220 "_s);
}

TEST(PlotAxes, PrintTheQuotientWithOneDecimalBelowAStepOf1)
{
    const QStringList expected{u"0,2 "_s, u"0,4 "_s, u"0,6 "_s, u"0,8 "_s, u"1,0 "_s,
                               u"1,2 "_s, u"1,4 "_s, u"1,6 "_s, u"1,8 "_s, u"2,0 "_s};

    EXPECT_EQ(Texts(Quotients({0.2, 2}).levelLabels), expected);
}

TEST(PlotAxes, PrintTheQuotientWithoutDecimalsFromAStepOf1)
{
    EXPECT_EQ(Texts(Quotients({1, 3}).levelLabels), QStringList({u"1 "_s, u"2 "_s, u"3 "_s}));
}

TEST(PlotAxes, DrawTheQuotientsLinesToHalfAStepBeyondTheTop)
{
    // A top of 3 in steps of 0.2: 15 x 0.2 is a hair above 3 and still drawn.
    const PlotAxes fine = Quotients({0.2, 3});
    ASSERT_EQ(fine.levels.size(), 16U);
    EXPECT_DOUBLE_EQ(fine.levels.back(), 3);
    // A top of 2 in steps of 1: 3 is more than half a step above.
    const PlotAxes coarse = Quotients({1, 2});
    ASSERT_EQ(coarse.levels.size(), 3U);
    EXPECT_EQ(coarse.levels.back(), 2);
}

TEST(PlotAxes, DivideTheTimeByTen)
{
    const PlotAxes axes = Numbers(140);

    ASSERT_EQ(axes.times.size(), 11U);
    EXPECT_EQ(axes.times.front(), 0);
    EXPECT_EQ(axes.times[1], 14);
    EXPECT_EQ(axes.times.back(), 140);
    EXPECT_EQ(Texts(axes.timeLabels),
              QStringList({u"14"_s, u"28"_s, u"42"_s, u"56"_s, u"70"_s, u"84"_s, u"98"_s, u"112"_s, u"126"_s,
                           u"140"_s}));
    EXPECT_EQ(axes.timeLabels.front().at, 14);
}

TEST(PlotAxes, CarryTheirTitles)
{
    EXPECT_EQ(Numbers().levelTitle, u"Nombre de particules"_s);
    EXPECT_EQ(Quotients({0.2, 2}).levelTitle, u"Quotient de réaction Qr"_s);
    EXPECT_EQ(Numbers().timeTitle, u"Temps (en s)"_s);
}

TEST(ScaleOfTypedNumbers, SpansTheNumbersAndTheFirst40Seconds)
{
    // m = 0.02 x 99 = 1.98: 99 + 1.98, and -0.99.
    const PlotScale scale = ScaleOfTypedNumbers(99);

    EXPECT_DOUBLE_EQ(scale.top, 100.98);
    EXPECT_DOUBLE_EQ(scale.bottom, -0.99);
    EXPECT_DOUBLE_EQ(scale.right, 40.4);
}

TEST(CurveReadOut, TellsTimeAndNumberAsIntegers)
{
    EXPECT_EQ(CurveReadOut(PlotQuantity::ParticleNumbers, 12.4, 99.5, u','),
              u"Temps : 12 s ; Nombre de particules : 100"_s);
}

TEST(CurveReadOut, TellsTheQuotientWithTwoDecimalsBelow2)
{
    EXPECT_EQ(CurveReadOut(PlotQuantity::Quotient, 12.5, 1.994, u','),
              u"Temps : 13 s ; Quotient de réaction : 1,99"_s);
    EXPECT_EQ(CurveReadOut(PlotQuantity::Quotient, 0, 1.999, u'.'),
              u"Temps : 0 s ; Quotient de réaction : 2.00"_s);
}

TEST(CurveReadOut, TellsTheQuotientAsAnIntegerFrom2)
{
    EXPECT_EQ(CurveReadOut(PlotQuantity::Quotient, 3, 2, u','), u"Temps : 3 s ; Quotient de réaction : 2"_s);
    EXPECT_EQ(CurveReadOut(PlotQuantity::Quotient, 3, 9.6, u','),
              u"Temps : 3 s ; Quotient de réaction : 10"_s);
}

} // namespace stoikal
