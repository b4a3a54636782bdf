#include "curves_fixture.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using TimeAxisOfARun = Curves;
using SamplingOfARun = Curves;
using StrokesOfTheCurves = Curves;
using NumbersTyped = Curves;
using ReadingThePlot = Curves;

} // namespace

TEST_F(TimeAxisOfARun, DoesNotChangeAtExactly40Seconds)
{
    Start(kTyped);
    const int drawn = board.axesDrawn;

    Tick(400, kTyped);

    EXPECT_EQ(curves.TimeMax(), 40);
    EXPECT_EQ(board.axesDrawn, drawn);
}

TEST_F(TimeAxisOfARun, GrowsPast40SecondsAndDrawsAllAgain)
{
    Start(kTyped);
    Tick(1, kTyped);
    Tick(200, kTyped);
    const int drawn = board.axesDrawn;

    curves.BeginTick(401);

    EXPECT_EQ(curves.TimeMax(), 60);
    EXPECT_EQ(board.axesDrawn, drawn + 1);
    EXPECT_EQ(board.axes.end, 60);
    // Samples 0 to 2: two strokes of four curves.
    EXPECT_EQ(board.lines.size(), 8U);
}

TEST_F(TimeAxisOfARun, EndsAt40AgainAtTheNextStart)
{
    Start(kTyped);
    Tick(1000, kTyped);
    EXPECT_EQ(curves.TimeMax(), 120);

    curves.StartRun(5000, kTyped);

    EXPECT_EQ(curves.TimeMax(), 40);
    EXPECT_EQ(board.axes.end, 40);
    EXPECT_TRUE(board.lines.empty());
    EXPECT_EQ(curves.RunSeconds(), 0);
}

TEST_F(TimeAxisOfARun, CountsFromTheStartOfTheRun)
{
    curves.StartRun(5000, kTyped);

    curves.BeginTick(5037);

    EXPECT_EQ(curves.RunSeconds(), 3.7);
}

TEST_F(SamplingOfARun, TakesTheFirstTickAlways)
{
    Start(kTyped);

    Tick(1, {199, 149, 51, 21, 50});

    EXPECT_EQ(curves.Samples().SampleIndex(), 2);
    EXPECT_EQ(curves.Samples().At(0).counts, kTyped);
    EXPECT_EQ(curves.Samples().At(1).counts, KindNumbers({199, 149, 51, 21, 50}));
    EXPECT_EQ(curves.Samples().At(1).seconds, 0.1);
}

TEST_F(SamplingOfARun, GoesOnWithThePeriodOfTheFirstSample)
{
    Start(kTyped);
    Tick(3, kTyped); // The first one: a period of 0.3 s.

    Tick(4, kTyped);
    Tick(5, kTyped);
    EXPECT_EQ(curves.Samples().SampleIndex(), 2);

    Tick(6, kTyped);
    EXPECT_EQ(curves.Samples().SampleIndex(), 3);
    EXPECT_EQ(curves.Samples().At(2).seconds, 0.6);
}

TEST_F(SamplingOfARun, TakesThePeriodAsTheTickBeganAndNotAsItEnds)
{
    Start(kTyped);
    Tick(0, kTyped); // Within the first tenth: a sample at 0, and still no period.
    Tick(0, kTyped);

    EXPECT_EQ(curves.Samples().SampleIndex(), 3);
}

TEST_F(SamplingOfARun, DrawsNothingAgainWhenItIsHalved)
{
    Start(kTyped);
    const int drawn = board.axesDrawn;
    for (int tenths = 1; tenths <= 399; ++tenths)
        Tick(tenths, kTyped);
    EXPECT_EQ(curves.Samples().SampleIndex(), 400);
    EXPECT_EQ(board.axesDrawn, drawn);

    for (int tenths = 400; tenths < 999; ++tenths)
        Tick(tenths, kTyped);
    EXPECT_EQ(curves.Samples().SampleIndex(), 999);
    const int drawnBefore = board.axesDrawn;
    const std::size_t linesBefore = board.lines.size();
    Tick(999, kTyped);

    EXPECT_EQ(curves.Samples().SampleIndex(), 500);
    EXPECT_EQ(board.axesDrawn, drawnBefore);
    EXPECT_EQ(board.lines.size(), linesBefore + 4);

    // The next stroke starts from sample 499, that of 99.8 s.
    Tick(1000, kTyped);
    EXPECT_EQ(board.lines.back().from.x(), 99.8);
    EXPECT_EQ(board.lines.back().to.x(), 100);
}

TEST_F(SamplingOfARun, KeepsHistoryAndClockOfAStoppedRun)
{
    Start(kTyped);
    Tick(1, kTyped);
    Tick(2, kTyped);

    curves.optY_Click(PlotQuantity::Quotient);
    curves.optY_Click(PlotQuantity::ParticleNumbers);

    EXPECT_EQ(curves.RunSeconds(), 0.2);
    EXPECT_EQ(board.lines.size(), 8U);
}

TEST_F(SamplingOfARun, IsForgottenByAReset)
{
    Start(kTyped);
    Tick(500, kTyped);
    const int drawn = board.axesDrawn;

    curves.ResetSimHistory({1, 2, 3, 4, 5});

    EXPECT_EQ(curves.Samples().SampleIndex(), 1);
    EXPECT_EQ(curves.Samples().At(0).counts, KindNumbers({1, 2, 3, 4, 5}));
    EXPECT_EQ(curves.TimeMax(), 40);
    // What is on the plot stays there until the axes are drawn.
    EXPECT_EQ(board.axesDrawn, drawn);
    EXPECT_FALSE(board.lines.empty());
}

TEST_F(StrokesOfTheCurves, JoinTheNumbersOfTwoSamplesInTheColourOfEachKind)
{
    Start(kTyped);

    Tick(1, {199, 149, 51, 21, 50});

    ASSERT_EQ(board.lines.size(), 4U);
    const std::array<double, 4> from{200, 150, 50, 20};
    const std::array<double, 4> to{199, 149, 51, 21};
    for (std::size_t kind = 0; kind < 4; ++kind) {
        EXPECT_EQ(board.lines[kind].from, QPointF(0, from.at(kind))) << kind;
        EXPECT_EQ(board.lines[kind].to, QPointF(0.1, to.at(kind))) << kind;
        EXPECT_EQ(board.lines[kind].kind, kind) << kind;
    }
}

TEST_F(StrokesOfTheCurves, JoinTwoQuotientsInTheColourOfA)
{
    Start({20, 10, 60, 30, 0}, PlotQuantity::Quotient);

    Tick(1, {20, 10, 60, 20, 0}); // 60 x 20 / 20 / 10 = 6.

    ASSERT_EQ(board.lines.size(), 1U);
    EXPECT_EQ(board.lines[0].from, QPointF(0, 9));
    EXPECT_EQ(board.lines[0].to, QPointF(0.1, 6));
    EXPECT_EQ(board.lines[0].kind, kKindA);
}

TEST_F(StrokesOfTheCurves, AreOnlyTheLastOneAtASample)
{
    Start(kTyped);
    Tick(1, kTyped);
    Tick(2, kTyped);

    Tick(3, kTyped);

    EXPECT_EQ(board.lines.size(), 12U);
}

TEST_F(StrokesOfTheCurves, AreNoneForASingleSample)
{
    Start(kTyped);

    curves.RedrawSimCurves(1);

    EXPECT_TRUE(board.lines.empty());
}

TEST_F(StrokesOfTheCurves, RaiseTheQuotientNowToANewerOneAndDrawTheRestAgain)
{
    Start({20, 10, 60, 30, 0}, PlotQuantity::Quotient);
    Tick(10, {20, 10, 60, 30, 0}); // Sample 1 at 1 s: 9.
    Tick(11, {20, 10, 60, 10, 0}); // No sample yet: 3.
    EXPECT_EQ(curves.QuotientNow(), 3);
    const int drawn = board.axesDrawn;

    curves.DrawSimSegment(1);

    EXPECT_EQ(curves.QuotientNow(), 9);
    EXPECT_EQ(board.axesDrawn, drawn + 1);
    // Samples 0 to 0 have no stroke; the one asked for follows.
    ASSERT_EQ(board.lines.size(), 1U);
    EXPECT_EQ(board.lines[0].to, QPointF(1, 9));
}

TEST_F(NumbersTyped, SetTheMostThatACurveCanReach)
{
    // max(min(A, B) + max(C, D), max(A, B) + min(C, D)).
    curves.TakeNumbers({200, 150, 50, 20, 50}); // 150 + 50 = 200, 200 + 20 = 220.
    EXPECT_EQ(curves.ParticleMax(), 220);
    curves.TakeNumbers({10, 30, 5, 100, 0}); // 10 + 100 = 110, 30 + 5 = 35.
    EXPECT_EQ(curves.ParticleMax(), 110);
    curves.TakeNumbers({0, 0, 0, 0, 500}); // The solvent has no curve.
    EXPECT_EQ(curves.ParticleMax(), 0);
}

TEST_F(NumbersTyped, GiveAScaleOf1WithoutParticles)
{
    curves.TakeNumbers({0, 0, 0, 0, 0});

    EXPECT_EQ(board.axes.top, 1);
}

TEST_F(NumbersTyped, StartTheTimeAxisAgain)
{
    Start(kTyped);
    Tick(500, kTyped);

    curves.TakeNumbers({20, 10, 60, 30, 0});

    EXPECT_EQ(curves.TimeMax(), 40);
    EXPECT_EQ(board.axes.end, 40);
    EXPECT_TRUE(board.lines.empty());
}

TEST_F(NumbersTyped, SetTheQuotientByTheirOwnRule)
{
    curves.TakeNumbers({20, 10, 60, 30, 0});
    EXPECT_EQ(curves.QuotientNow(), 9);
    EXPECT_EQ(curves.QuotientMax(), 9);

    // 10000, where a start says 10000 / 50.
    curves.TakeNumbers({0, 50, 60, 30, 0});
    EXPECT_EQ(curves.QuotientNow(), 10000);
    EXPECT_EQ(curves.QuotientMax(), 10000);

    curves.TakeNumbers(kTyped);
    EXPECT_EQ(curves.QuotientNow(), 2);
    EXPECT_EQ(curves.QuotientMax(), 2);
}

TEST_F(ReadingThePlot, UsesTheCoordinatesOfTheAxesDrawn)
{
    Start(kTyped);

    // From (0, 224.4) to (40.4, -2.2).
    EXPECT_EQ(curves.ToPlot({0, 0}), QPointF(0, 224.4));
    EXPECT_EQ(curves.ToPlot({1, 1}), QPointF(40.4, -2.2));
    EXPECT_EQ(curves.ToPlot({0.5, 0.5}), QPointF(20.2, 111.1));
}

TEST_F(ReadingThePlot, IsInNumbersOfParticlesAfterTypingWhateverIsShown)
{
    Start(kTyped, PlotQuantity::Quotient);
    curves.TakeNumbers({99, 0, 0, 0, 0});

    curves.ReadTypedScale();

    // 99 and not the 100 of the axis: 99 + 0.02 x 99 = 100.98.
    EXPECT_DOUBLE_EQ(curves.ToPlot({0, 0}).y(), 100.98);
    EXPECT_DOUBLE_EQ(curves.ToPlot({1, 1}).y(), -0.99);
    curves.DrawSimAxes();
    EXPECT_DOUBLE_EQ(curves.ToPlot({0, 0}).y(), 10100); // 10000 x 1.01.
}

TEST_F(ReadingThePlot, KeepsTheAxesCoordinatesWithoutParticles)
{
    curves.TakeNumbers({0, 0, 0, 0, 0});

    curves.ReadTypedScale();

    EXPECT_DOUBLE_EQ(curves.ToPlot({0, 0}).y(), 1.02);
}

TEST_F(ReadingThePlot, TellsTheAxisUnderTheMouse)
{
    Start(kTyped);
    EXPECT_EQ(curves.ReadOut({12.4, 99.6}), u"Temps : 12 s ; Nombre de particules : 100"_s);

    curves.optY_Click(PlotQuantity::Quotient);
    EXPECT_EQ(curves.ReadOut({12.4, 1.25}), u"Temps : 12 s ; Quotient de réaction : 1,25"_s);
}

} // namespace stoikal
