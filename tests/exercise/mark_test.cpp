#include "exercise/mark.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(Mark, IsTheScoreOutOfTwenty)
{
    EXPECT_DOUBLE_EQ(Mark(5, 10), 10.0); // 5 * 20 / 10
    EXPECT_DOUBLE_EQ(Mark(10, 10), 20.0);
    EXPECT_DOUBLE_EQ(Mark(0, 10), 0.0);
}

TEST(Mark, KeepsItsFraction)
{
    EXPECT_DOUBLE_EQ(Mark(7, 15), 140.0 / 15.0); // 7 * 20 / 15 = 9.33...
}

TEST(Mark, IsZeroWhereNoPointCouldBeWon)
{
    EXPECT_EQ(Mark(0, 0), 0.0);
    EXPECT_EQ(Mark(5, 0), 0.0);
}

TEST(Mark, DoesNotOverflowWithLargeScores)
{
    // Twenty times this score would pass 64 bits.
    EXPECT_DOUBLE_EQ(Mark(4'000'000'000'000'000'000, 8'000'000'000'000'000'000), 10.0);
}

TEST(MarkText, ShowsAWholeMarkWithoutDecimals)
{
    EXPECT_EQ(MarkText(10.0, u','), u"Votre note est de : 10/20"_s);
    EXPECT_EQ(MarkText(0.0, u','), u"Votre note est de : 0/20"_s);
}

TEST(MarkText, ShowsAFractionWithOneDecimal)
{
    EXPECT_EQ(MarkText(140.0 / 15.0, u','), u"Votre note est de : 9,3/20"_s);
    EXPECT_EQ(MarkText(12.5, u'.'), u"Votre note est de : 12.5/20"_s);
}

TEST(MarkText, LeavesNoDanglingSignWhenTheFractionRoundsAway)
{
    EXPECT_EQ(MarkText(19.96, u','), u"Votre note est de : 20/20"_s);
    EXPECT_EQ(MarkText(9.04, u','), u"Votre note est de : 9/20"_s);
}

TEST(TimeText, ShowsOneDecimalAlways)
{
    EXPECT_EQ(TimeText(12.3, u','), u"Temps mis : 12,3 s"_s);
    EXPECT_EQ(TimeText(12.0, u'.'), u"Temps mis : 12.0 s"_s);
    EXPECT_EQ(TimeText(0.0, u','), u"Temps mis : 0,0 s"_s);
}

TEST(TimeText, RoundsHalfAwayFromZero)
{
    EXPECT_EQ(TimeText(44.15, u','), u"Temps mis : 44,2 s"_s);
}

} // namespace stoikal
