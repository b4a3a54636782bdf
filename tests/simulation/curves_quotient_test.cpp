#include "curves_fixture.h"

#include "base/fatal_fault.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using QuotientOfARun = Curves;
using ZoomOfTheQuotient = Curves;

} // namespace

TEST_F(QuotientOfARun, StartsWithTheRuleOfTheStart)
{
    Start({0, 50, 60, 30, 0});

    EXPECT_EQ(curves.QuotientNow(), 200); // 10000 / 50.
    EXPECT_EQ(curves.QuotientMax(), 200);
}

TEST_F(QuotientOfARun, FollowsTheRuleOfTheTick)
{
    Start(kTyped);

    Tick(1, {20, 10, 60, 30, 0});
    EXPECT_EQ(curves.QuotientNow(), 9);

    Tick(2, {0, 10, 0, 30, 0});
    EXPECT_EQ(curves.QuotientNow(), 10000);
}

TEST_F(QuotientOfARun, OnlyRaisesItsScale)
{
    Start(kTyped);

    Tick(1, {20, 10, 60, 30, 0});
    EXPECT_EQ(curves.QuotientMax(), 9);
    Tick(2, {20, 10, 6, 30, 0});

    EXPECT_EQ(curves.QuotientNow(), 0.9);
    EXPECT_EQ(curves.QuotientMax(), 9);
}

TEST_F(QuotientOfARun, DrawsAllAgainWhenItPassesTheScaleShown)
{
    Start(kTyped, PlotQuantity::Quotient);
    Tick(1, kTyped);
    const int drawn = board.axesDrawn;

    Tick(2, {20, 10, 60, 30, 0});

    EXPECT_EQ(board.axesDrawn, drawn + 1);
    // 9 / 0.5 = 18: 90 tenths are a multiple of 5, the top is 9.
    EXPECT_EQ(board.axes.top, 9);
    EXPECT_EQ(curves.QuotientMax(), 9);
}

TEST_F(QuotientOfARun, DrawsNothingAgainWhileNumbersAreShown)
{
    Start(kTyped);
    const int drawn = board.axesDrawn;

    Tick(1, {20, 10, 60, 30, 0});

    EXPECT_EQ(board.axesDrawn, drawn);
}

TEST_F(QuotientOfARun, CanLieAt0UnderAScaleOf10000)
{
    Start({5, 10, 0, 30, 0}, PlotQuantity::Quotient);

    Tick(1, {0, 10, 0, 30, 0});

    EXPECT_EQ(curves.QuotientMax(), 10000);
    EXPECT_EQ(board.axes.top, 10000);
    EXPECT_EQ(board.lines.back().to, QPointF(0.1, 0));
}

TEST_F(QuotientOfARun, Is10000OnTheCurveOnceAIsUsedUp)
{
    Start({5, 10, 20, 30, 0}, PlotQuantity::Quotient);

    Tick(1, {0, 5, 25, 35, 0});
    Tick(2, {0, 5, 25, 35, 0});

    EXPECT_EQ(board.lines.back().from.y(), 10000);
    EXPECT_EQ(board.lines.back().to.y(), 10000);
}

TEST_F(QuotientOfARun, EndsInAFaultOneSampleAfterBIsUsedUp)
{
    Start({10, 5, 20, 30, 0}, PlotQuantity::Quotient);

    // The newest sample alone may be without B: 10000.
    Tick(1, {5, 0, 25, 35, 0});
    EXPECT_EQ(board.lines.back().to, QPointF(0.1, 10000));

    curves.BeginTick(2);
    EXPECT_THROW(curves.EndTick({5, 0, 25, 35, 0}), FatalFault);
}

TEST_F(QuotientOfARun, EndsInAFaultAtOnceWhenItBeginsWithoutB)
{
    Start({10, 0, 20, 30, 0}, PlotQuantity::Quotient);

    curves.BeginTick(1);
    EXPECT_THROW(curves.EndTick({10, 0, 20, 30, 0}), FatalFault);
}

TEST_F(QuotientOfARun, LetsARunWithoutBGoOnWhileNumbersAreShown)
{
    Start({10, 0, 20, 30, 0});

    for (int tenths = 1; tenths < 20; ++tenths)
        Tick(tenths, {10, 0, 20, 30, 0});

    EXPECT_EQ(curves.Samples().SampleIndex(), 20);
    EXPECT_THROW(curves.optY_Click(PlotQuantity::Quotient), FatalFault);
}

TEST_F(QuotientOfARun, MayLackBothReactants)
{
    Start({0, 0, 20, 30, 0}, PlotQuantity::Quotient);

    Tick(1, {0, 0, 20, 30, 0});
    Tick(2, {0, 0, 20, 30, 0});

    EXPECT_EQ(board.lines.back().from.y(), 10000);
    EXPECT_EQ(board.lines.back().to.y(), 10000);
}

TEST_F(ZoomOfTheQuotient, EndsTheScaleAtTheClickAndDrawsAgain)
{
    Start({20, 10, 60, 30, 0}, PlotQuantity::Quotient);
    Tick(1, {20, 10, 60, 30, 0});
    const int drawn = board.axesDrawn;

    curves.picCourbe_MouseUp(4);

    EXPECT_EQ(curves.QuotientMax(), 4);
    EXPECT_EQ(board.axesDrawn, drawn + 1);
    EXPECT_EQ(board.axes.top, 4);
    EXPECT_EQ(board.lines.size(), 1U);
}

TEST_F(ZoomOfTheQuotient, NeverGoesBelow2ByAClick)
{
    Start({20, 10, 60, 30, 0}, PlotQuantity::Quotient);

    curves.picCourbe_MouseUp(1.2);
    EXPECT_EQ(curves.QuotientMax(), 2);

    curves.picCourbe_MouseUp(-3);
    EXPECT_EQ(curves.QuotientMax(), 2);
}

TEST_F(ZoomOfTheQuotient, GoesBackToThePresentQuotientByADoubleClick)
{
    Start(kTyped, PlotQuantity::Quotient);
    Tick(1, {20, 10, 60, 30, 0});
    Tick(2, {20, 10, 40, 30, 0}); // 6.
    const int drawn = board.axesDrawn;

    curves.picCourbe_DblClick();

    EXPECT_EQ(curves.QuotientMax(), 6);
    EXPECT_EQ(board.axesDrawn, drawn + 1);
}

TEST_F(ZoomOfTheQuotient, IsAtLeast2OnceTheAxesAreDrawn)
{
    Start(kTyped, PlotQuantity::Quotient);
    Tick(1, {20, 10, 6, 20, 0}); // 0.6.

    curves.picCourbe_DblClick();

    EXPECT_EQ(curves.QuotientMax(), 2);
}

TEST_F(ZoomOfTheQuotient, StaysForLaterWhileNumbersAreShown)
{
    Start(kTyped);
    const int drawn = board.axesDrawn;

    curves.picCourbe_MouseUp(77);
    EXPECT_EQ(curves.QuotientMax(), 77);
    EXPECT_EQ(board.axesDrawn, drawn);

    Tick(1, {20, 10, 6, 20, 0}); // 0.6.
    curves.picCourbe_DblClick();
    EXPECT_EQ(curves.QuotientMax(), 0.6);
    EXPECT_EQ(board.axesDrawn, drawn);
}

TEST_F(ZoomOfTheQuotient, BeginsWithThePresentQuotientWhenTheCurveIsChosen)
{
    Start(kTyped);
    Tick(1, {20, 10, 60, 30, 0});
    curves.picCourbe_MouseUp(77);

    curves.optY_Click(PlotQuantity::Quotient);

    EXPECT_EQ(curves.QuotientMax(), 9);
    EXPECT_EQ(board.axes.levelTitle, u"Quotient de réaction Qr"_s);
    EXPECT_EQ(board.lines.size(), 1U);
}

TEST_F(ZoomOfTheQuotient, BeginsAt2ForASmallQuotient)
{
    Start(kTyped);
    Tick(1, kTyped); // 0.03.

    curves.optY_Click(PlotQuantity::Quotient);

    EXPECT_EQ(curves.QuotientMax(), 2);
}

TEST_F(ZoomOfTheQuotient, IsLeftAloneWhenNumbersAreChosen)
{
    Start({20, 10, 60, 30, 0}, PlotQuantity::Quotient);
    curves.picCourbe_MouseUp(4);
    const int drawn = board.axesDrawn;

    curves.optY_Click(PlotQuantity::ParticleNumbers);

    EXPECT_EQ(curves.QuotientMax(), 4);
    EXPECT_EQ(board.axesDrawn, drawn + 1);
    EXPECT_EQ(board.axes.levelTitle, u"Nombre de particules"_s);
}

} // namespace stoikal
