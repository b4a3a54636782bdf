#include "simulation/reaction_quotient.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(QuotientOfTick, DividesProductsByReactants)
{
    // 60 x 30 / 20 / 10 = 9.
    EXPECT_EQ(QuotientOfTick({20, 10, 60, 30, 7}), 9);
    EXPECT_EQ(QuotientOfTick({20, 10, 0, 30, 7}), 0);
}

TEST(QuotientOfTick, Is10000WithoutAOrWithoutBWhateverTheProducts)
{
    EXPECT_EQ(QuotientOfTick({0, 10, 60, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfTick({20, 0, 60, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfTick({0, 10, 0, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfTick({20, 0, 0, 0, 0}), 10000);
    EXPECT_EQ(QuotientOfTick({0, 0, 0, 0, 0}), 10000);
}

TEST(QuotientOfStart, IsNeverBelow2)
{
    // 50 x 20 / 200 / 150 = 0.0333...
    EXPECT_EQ(QuotientOfStart({200, 150, 50, 20, 50}), 2);
    // 60 x 30 / 20 / 10 = 9.
    EXPECT_EQ(QuotientOfStart({20, 10, 60, 30, 0}), 9);
}

TEST(QuotientOfStart, DividesThe10000OfAMissingAByB)
{
    EXPECT_EQ(QuotientOfStart({0, 50, 60, 30, 0}), 200); // 10000 / 50.
    EXPECT_EQ(QuotientOfStart({0, 50, 0, 0, 0}), 200);
}

TEST(QuotientOfStart, Is10000WithoutB)
{
    EXPECT_EQ(QuotientOfStart({20, 0, 60, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfStart({0, 0, 0, 0, 0}), 10000);
}

TEST(QuotientOfNumbers, Is10000WithoutAOrWithoutB)
{
    EXPECT_EQ(QuotientOfNumbers({0, 50, 60, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfNumbers({20, 0, 0, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfNumbers({0, 0, 0, 0, 0}), 10000);
}

TEST(QuotientOfNumbers, IsAtLeast2)
{
    EXPECT_EQ(QuotientOfNumbers({200, 150, 50, 20, 50}), 2);
    EXPECT_EQ(QuotientOfNumbers({20, 10, 60, 30, 0}), 9);
}

TEST(QuotientOfSample, Is10000OnlyWhereProductsMeetNoA)
{
    EXPECT_EQ(QuotientOfSample({20, 10, 60, 30, 7}), 9);
    EXPECT_EQ(QuotientOfSample({0, 10, 60, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfSample({0, 0, 60, 30, 0}), 10000);
}

TEST(QuotientOfSample, StaysAt0WhereTheTickSays10000)
{
    // No A, and no C: the curve lies at 0 while the tick's quotient is 10000.
    EXPECT_EQ(QuotientOfSample({0, 10, 0, 30, 0}), 0);
    EXPECT_EQ(QuotientOfNewestSample({0, 10, 0, 30, 0}), 0);
    EXPECT_EQ(QuotientOfTick({0, 10, 0, 30, 0}), 10000);
}

TEST(QuotientOfSample, FailsOnAWithoutB)
{
    EXPECT_THROW(static_cast<void>(QuotientOfSample({20, 0, 60, 30, 0})), FatalFault);
    EXPECT_THROW(static_cast<void>(QuotientOfSample({20, 0, 0, 30, 0})), FatalFault);
}

TEST(QuotientOfSample, NamesTheDivisionInItsFault)
{
    try {
        static_cast<void>(QuotientOfSample({12, 0, 60, 30, 0}));
        FAIL() << "no fault";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.Cause(),
                  u"division par zéro dans la courbe du quotient de réaction Qr. Il n'y a aucune particule B "
                  "alors que A en compte 12\u00A0: Qr = C x D / (A x B) n'est pas défini."_s);
    }
}

TEST(QuotientOfSample, BlamesNoFileForItsDivision)
{
    try {
        static_cast<void>(QuotientOfSample({12, 0, 60, 30, 0}));
        FAIL() << "no fault";
    } catch (const FatalFault& fault) {
        // The exercise that is open beside the simulation has nothing to do with it.
        EXPECT_EQ(fault.At(u"/depot/chimie1.Avt"_s, 3, u"A=B"_s).File(), QString());
    }
}

TEST(QuotientOfNewestSample, Is10000OnAWithoutB)
{
    EXPECT_EQ(QuotientOfNewestSample({20, 0, 60, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfNewestSample({20, 0, 0, 30, 0}), 10000);
    EXPECT_EQ(QuotientOfNewestSample({20, 10, 60, 30, 0}), 9);
    EXPECT_EQ(QuotientOfNewestSample({0, 0, 60, 30, 0}), 10000);
}

} // namespace stoikal
