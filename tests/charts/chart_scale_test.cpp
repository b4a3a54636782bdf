#include "charts/chart_scale.h"

#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

struct UnitCase {
    double value;
    double unit;
    QString text;
};

struct StepCase {
    double value;
    double step;
};

QStringList Texts(const std::vector<double>& values)
{
    QStringList texts;
    for (const double value : values)
        texts << GraduationText(value, u',');
    return texts;
}

} // namespace

TEST(VerticalUnit, FollowsTheLargestValue)
{
    const UnitCase cases[]{{0.02, 0.1, u"x0,1 "_s},
                           {0.9999, 0.1, u"x0,1 "_s},
                           {1, 1, u""_s},
                           {99.99, 1, u""_s},
                           {100, 10, u"x10 "_s},
                           {999.9, 10, u"x10 "_s},
                           {1000, 100, u"x100 "_s},
                           {9999, 100, u"x100 "_s},
                           {10000, 1000, u"x1000 "_s},
                           {99999, 1000, u"x1000 "_s},
                           {100000, 1e4, u"x10000 "_s},
                           {999999, 1e4, u"x10000 "_s},
                           {1000000, 1e5, u"x100000 "_s},
                           {9999999, 1e5, u"x100000 "_s},
                           {10000000, 1e6, u"x1000000 "_s},
                           {99999999, 1e6, u"x1000000 "_s},
                           {100000000, 1e7, u"x10000000 "_s}};
    for (const UnitCase& c : cases) {
        const ScaleUnit unit = VerticalUnit(c.value);
        EXPECT_EQ(unit.size, c.unit) << c.value;
        EXPECT_EQ(unit.text, c.text) << c.value;
    }
}

TEST(VerticalUnit, TheTwoLargestPrefixesAreNeverReached)
{
    EXPECT_EQ(VerticalUnit(1e9).text, u"x10000000 "_s);
    EXPECT_EQ(VerticalUnit(1e12).text, u"x10000000 "_s);
}

TEST(HorizontalUnit, HasATableOfItsOwn)
{
    const UnitCase cases[]{{0.0005, 0.0001, u"x0,0001 mol)"_s},
                           {0.00999, 0.0001, u"x0,0001 mol)"_s},
                           {0.01, 0.001, u"x0,001 mol)"_s},
                           {0.0999, 0.001, u"x0,001 mol)"_s},
                           {0.1, 0.01, u"x0,01 mol)"_s},
                           {0.999, 0.01, u"x0,01 mol)"_s},
                           {1, 0.1, u"x0,1 mol)"_s},
                           {9.99, 0.1, u"x0,1 mol)"_s},
                           {10, 1, u"mol)"_s},
                           {99.9, 1, u"mol)"_s},
                           {100, 10, u"x10 mol)"_s},
                           {999, 10, u"x10 mol)"_s},
                           {1000, 100, u"x100 mol)"_s},
                           {9999, 100, u"x100 mol)"_s},
                           {10000, 1000, u"x1000 mol)"_s},
                           {99999, 1000, u"x1000 mol)"_s},
                           {100000, 1e4, u"x10000 mol)"_s},
                           {999999, 1e4, u"x10000 mol)"_s},
                           {1000000, 1e5, u"x100000 mol)"_s},
                           {9999999, 1e5, u"x100000 mol)"_s},
                           {10000000, 1e6, u"x1000000 mol)"_s},
                           {99999999, 1e6, u"x1000000 mol)"_s},
                           {100000000, 1e7, u"x10000000 mol)"_s},
                           {1e10, 1e7, u"x10000000 mol)"_s}};
    for (const UnitCase& c : cases) {
        const ScaleUnit unit = HorizontalUnit(c.value);
        EXPECT_EQ(unit.size, c.unit) << c.value;
        EXPECT_EQ(unit.text, c.text) << c.value;
    }
}

TEST(PickStep, ClimbsItsLadder)
{
    const StepCase cases[]{{0, 0.1},      {0.5, 0.1},      {1.5, 0.2},      {3, 0.5},       {7, 1},
                           {15, 2},       {50, 5},         {150, 10},       {250, 20},      {700, 50},
                           {1500, 100},   {2500, 200},     {5000, 500},     {15000, 1000},  {25000, 2000},
                           {70000, 5000}, {150000, 10000}, {250000, 20000}, {700000, 50000}};
    for (const StepCase& c : cases)
        EXPECT_EQ(PickStep(c.value), c.step) << c.value;
}

TEST(PickStep, LimitBelongsToTheStepBelow)
{
    const StepCase cases[]{{1, 0.1},        {2, 0.2},        {5, 0.5},        {10, 1},       {20, 2},
                           {100, 5},        {200, 10},       {300, 20},       {1000, 50},    {2000, 100},
                           {3000, 200},     {10000, 500},    {20000, 1000},   {30000, 2000}, {100000, 5000},
                           {200000, 10000}, {300000, 20000}, {1000000, 50000}};
    for (const StepCase& c : cases)
        EXPECT_EQ(PickStep(c.value), c.step) << c.value;
    EXPECT_EQ(PickStep(1.001), 0.2);
    EXPECT_EQ(PickStep(100.001), 10);
    EXPECT_EQ(PickStep(1000.001), 100);
    EXPECT_EQ(PickStep(1000001), 100000);
}

TEST(PickStep, GoesOnByDecadesToItsLastStep)
{
    // In the decade of 10^9: a tenth up to 2 x 10^9, a fifth up to 3 x 10^9, a half up to 10^10.
    EXPECT_EQ(PickStep(2e9), 1e8);
    EXPECT_EQ(PickStep(3e9), 2e8);
    EXPECT_EQ(PickStep(1e10), 5e8);
    EXPECT_EQ(PickStep(1.5e10), 1e9);
    EXPECT_EQ(PickStep(1e15), 1e9);
}

TEST(AxisScale, WholeTopStaysAsItIs)
{
    // 0.5 / 0.1 = 5; 5 x 1000 = 5000, step 500 / 1000 = 0.5.
    const AxisScale scale = ScaleFor(0.5, 0.1, 1000);

    EXPECT_DOUBLE_EQ(scale.top, 5);
    EXPECT_DOUBLE_EQ(scale.step, 0.5);
}

TEST(AxisScale, BrokenTopIsRaisedToWholeSteps)
{
    // 38.4 x 1000 = 38400, step 5: (floor(38.4 / 5) + 1) x 5 = (7 + 1) x 5 = 40.
    EXPECT_DOUBLE_EQ(ScaleFor(38.4, 1, 1000).top, 40);
    // 2.3 x 1000 = 2300, step 0.2: (floor(11.5) + 1) x 0.2 = 2.4.
    EXPECT_DOUBLE_EQ(ScaleFor(2.3, 1, 1000).top, 2.4);
}

TEST(AxisScale, BrokenTopOnALineOfTheGridIsRaisedByOneStep)
{
    // 1200, step 0.1: (floor(12) + 1) x 0.1 = 1.3.
    EXPECT_DOUBLE_EQ(ScaleFor(1.2, 1, 1000).top, 1.3);
    // 1500, step 0.1: (15 + 1) x 0.1.
    EXPECT_DOUBLE_EQ(ScaleFor(1.5, 1, 1000).top, 1.6);
}

TEST(AxisScale, WholeTopNeedNotBeALineOfTheGrid)
{
    // 33 is whole: it stays, although the step is 5.
    const AxisScale scale = ScaleFor(33, 1, 1000);

    EXPECT_DOUBLE_EQ(scale.top, 33);
    EXPECT_DOUBLE_EQ(scale.step, 5);
}

TEST(AxisScale, TopsNearAWholeNumberCountAsWhole)
{
    EXPECT_DOUBLE_EQ(ScaleFor(6.999995, 1, 1000).top, 6.999995); // 0.000005 off.
    // 0.00002 off: 6999.98, step 0.5, (floor(13.99996) + 1) x 0.5 = 7.
    EXPECT_DOUBLE_EQ(ScaleFor(6.99998, 1, 1000).top, 7);
    // 7.00002: (floor(14.00004) + 1) x 0.5 = 7.5.
    EXPECT_DOUBLE_EQ(ScaleFor(7.00002, 1, 1000).top, 7.5);
}

TEST(AxisScale, NoiseOfADivisionDoesNotCrossALimit)
{
    // 3 x 0.1 is a little more than 0.3, yet it is 3 units: 3000, step 0.2.
    const AxisScale scale = ScaleFor(3 * 0.1, 0.1, 1000);

    EXPECT_EQ(scale.top, 3);
    EXPECT_DOUBLE_EQ(scale.step, 0.2);
}

TEST(AxisScale, StepFollowsTheSliderSteps)
{
    // 5 x 100000 = 500000, step 50000 / 100000 = 0.5: the same picture at a finer slider.
    EXPECT_DOUBLE_EQ(ScaleFor(0.0005, 0.0001, 100000).step, 0.5);
    EXPECT_DOUBLE_EQ(ScaleFor(0.0005, 0.0001, 100000).top, 5);
}

TEST(AxisScale, NothingToShowStillHasAnAxis)
{
    const AxisScale scale = ScaleFor(0, 0.1, 1000);

    EXPECT_GT(scale.top, 0);
    EXPECT_GT(scale.step, 0);
}

TEST(AxisScale, LinesStayCountableHoweverLargeTheValue)
{
    EXPECT_LT(Graduations(ScaleFor(1e200, 1e7, 1000)).size(), 110U);
}

TEST(Graduations, RunFromZeroToHalfAStepPastTheTop)
{
    // Top 5, step 0.5: 0 to 5.25.
    EXPECT_EQ(Texts(Graduations({0.1, 5, 0.5})),
              (QStringList{u"0"_s, u"0,5"_s, u"1"_s, u"1,5"_s, u"2"_s, u"2,5"_s, u"3"_s, u"3,5"_s, u"4"_s,
                           u"4,5"_s, u"5"_s}));
    // Top 23, step 5: up to 25.5, so 25 has its line.
    EXPECT_EQ(Texts(Graduations({1, 23, 5})),
              (QStringList{u"0"_s, u"5"_s, u"10"_s, u"15"_s, u"20"_s, u"25"_s}));
    // Top 22: up to 24.5.
    EXPECT_EQ(Texts(Graduations({1, 22, 5})), (QStringList{u"0"_s, u"5"_s, u"10"_s, u"15"_s, u"20"_s}));
}

TEST(Graduations, LabelHasFourDecimalsAtMostAndTheSystemsSign)
{
    EXPECT_EQ(GraduationText(0.1 + 0.2, u','), u"0,3"_s);
    EXPECT_EQ(GraduationText(0.00025, u'.'), u"0.0003"_s);
    EXPECT_EQ(GraduationText(0.0005, u','), u"0,0005"_s);
    EXPECT_EQ(GraduationText(12, u','), u"12"_s);
    EXPECT_EQ(GraduationText(0, u','), u"0"_s);
}

} // namespace stoikal
