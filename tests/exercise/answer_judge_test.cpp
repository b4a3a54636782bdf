#include "exercise/answer_judge.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array<bool, 6> kAllVisible{true, true, true, true, true, true};

/// An equation without charges whose species are named by slot; an empty name is
/// an empty slot.
struct Sides {
    AtomList reactants;
    AtomList products;
    std::array<int, 6> coefficients{};
    std::array<bool, 6> visible{};

    Sides(const std::array<QString, 6>& molecules, const std::array<int, 6>& typed)
        : coefficients(typed)
    {
        std::vector<SpeciesInput> species;
        for (std::size_t i = 0; i < molecules.size(); ++i) {
            species.push_back({molecules[i], typed[i]});
            visible[i] = !molecules[i].isEmpty();
        }
        ComputeComposition(reactants, std::span(species).first(3));
        ComputeComposition(products, std::span(species).last(3));
        AlignAtomLists(reactants, products);
    }

    Balance Verdict() const { return Judge({reactants, products, false, {}, coefficients, visible}); }
};

Balance JudgeWater(const std::array<int, 6>& typed)
{
    return Sides({u"H2"_s, u"O2"_s, u""_s, u"H2O"_s, u""_s, u""_s}, typed).Verdict();
}

AtomList OneAtom(const QString& symbol, std::int16_t total)
{
    AtomList list;
    list.Symbol[0] = symbol;
    list.TotalCount[0] = total;
    list.Kinds = 1;
    return list;
}

} // namespace

// The verdict.

TEST(AnswerJudge, AnswerThatBalancesIsRight)
{
    EXPECT_EQ(JudgeWater({2, 1, 1, 2, 1, 1}), Balance::Right);
}

TEST(AnswerJudge, AnswerThatDoesNotBalanceIsUnbalanced)
{
    EXPECT_EQ(JudgeWater({1, 1, 1, 1, 1, 1}), Balance::Unbalanced);
    EXPECT_EQ(JudgeWater({2, 1, 1, 1, 1, 1}), Balance::Unbalanced);
}

TEST(AnswerJudge, OnesEverywhereAreRightWhereTheyBalance)
{
    EXPECT_EQ(Sides({u"C"_s, u"O2"_s, u""_s, u"CO2"_s, u""_s, u""_s}, {1, 1, 1, 1, 1, 1}).Verdict(),
              Balance::Right);
}

TEST(AnswerJudge, MultipleOfTheAnswerIsReducible)
{
    EXPECT_EQ(JudgeWater({4, 2, 1, 4, 1, 1}), Balance::Reducible);
}

TEST(AnswerJudge, TwoTwoTwoIsReducible)
{
    EXPECT_EQ(Sides({u"C"_s, u"O2"_s, u""_s, u"CO2"_s, u""_s, u""_s}, {2, 2, 1, 2, 1, 1}).Verdict(),
              Balance::Reducible);
}

TEST(AnswerJudge, SixThreeNineIsRight)
{
    // 6 + 3 = 9 atoms of hydrogen; 2 divides the 6 and not the 3, so 3 is not seen.
    EXPECT_EQ(Sides({u"H"_s, u"H"_s, u""_s, u"H"_s, u""_s, u""_s}, {6, 3, 1, 9, 1, 1}).Verdict(),
              Balance::Right);
}

TEST(AnswerJudge, UnbalancedComesBeforeReducible)
{
    EXPECT_EQ(JudgeWater({2, 2, 1, 2, 1, 1}), Balance::Unbalanced);
}

TEST(AnswerJudge, HiddenBoxesDoNotHinderTheReduction)
{
    // 3 and 3 with ones in the four hidden boxes.
    EXPECT_EQ(Sides({u"O3"_s, u""_s, u""_s, u"O3"_s, u""_s, u""_s}, {3, 1, 1, 3, 1, 1}).Verdict(),
              Balance::Reducible);
}

// Balance.

TEST(AnswerBalance, ComparesEachPlaceOfTheLists)
{
    AtomList reactants;
    AtomList products;
    for (std::size_t place = 0; place < 11; ++place) {
        SCOPED_TRACE(place);
        reactants.TotalCount[place] = 1;
        EXPECT_FALSE(IsBalanced({reactants, products}));
        products.TotalCount[place] = 1;
        EXPECT_TRUE(IsBalanced({reactants, products}));
    }
}

TEST(AnswerBalance, TrustsTheAlignment)
{
    // An element of one side only, in equal number to another of the other side only.
    EXPECT_TRUE(IsBalanced({OneAtom(u"Fe"_s, 2), OneAtom(u"Cu"_s, 2)}));
    EXPECT_FALSE(IsBalanced({OneAtom(u"Fe"_s, 2), OneAtom(u"Cu"_s, 3)}));
}

TEST(AnswerBalance, ChargesHaveToAgreeToo)
{
    const AtomList atoms = OneAtom(u"Fe"_s, 1);

    EXPECT_TRUE(IsBalanced({atoms, atoms, true, {3, 3}}));
    EXPECT_FALSE(IsBalanced({atoms, atoms, true, {3, 2}}));
    EXPECT_EQ(Judge({atoms, atoms, true, {3, 2}, {1, 1, 1, 1, 1, 1}, kAllVisible}), Balance::Unbalanced);
}

TEST(AnswerBalance, AgreeingChargesDoNotMendTheAtoms)
{
    EXPECT_FALSE(IsBalanced({OneAtom(u"Fe"_s, 1), OneAtom(u"Fe"_s, 2), true, {3, 3}}));
}

TEST(AnswerBalance, ChargesAreNotLookedAtInAnUnchargedEquation)
{
    const AtomList atoms = OneAtom(u"Fe"_s, 1);

    EXPECT_TRUE(IsBalanced({atoms, atoms, false, {3, 2}}));
}

// The test for a simpler answer.

TEST(AnswerReduction, SeesEachPrimeUpToTwentyNine)
{
    for (const int prime : {2, 3, 5, 7, 11, 13, 17, 19, 23, 29}) {
        SCOPED_TRACE(prime);
        EXPECT_TRUE(IsReducible({prime, 2 * prime, prime, prime, 3 * prime, prime}, kAllVisible));
    }
}

TEST(AnswerReduction, DoesNotSeeThirtyOne)
{
    EXPECT_FALSE(IsReducible({31, 31, 31, 31, 31, 31}, kAllVisible));
}

TEST(AnswerReduction, OnesAreNotReducible)
{
    EXPECT_FALSE(IsReducible({1, 1, 1, 1, 1, 1}, kAllVisible));
}

TEST(AnswerReduction, PrimesThatDoNotDivideTheFirstCoefficientArePassedOver)
{
    // 2 does not divide the first 3, so its failure at the second does not count; 3 divides all.
    EXPECT_TRUE(IsReducible({3, 6, 9, 3, 3, 3}, kAllVisible));
}

TEST(AnswerReduction, AFailureAtOnePrimeDisablesAllLaterOnes)
{
    // 3 divides all, but 2 divides 6 and not 3.
    EXPECT_FALSE(IsReducible({6, 3, 9, 1, 1, 1}, {true, true, true, false, false, false}));
    EXPECT_FALSE(IsReducible({6, 1, 1, 9, 1, 1}, {true, false, false, true, false, false}));
}

TEST(AnswerReduction, AnEarlierPrimeThatDividesAllEndsTheSearch)
{
    EXPECT_TRUE(IsReducible({6, 2, 4, 8, 2, 2}, kAllVisible));
}

TEST(AnswerReduction, LooksAtVisibleBoxesOnly)
{
    EXPECT_TRUE(IsReducible({3, 1, 1, 3, 1, 1}, {true, false, false, true, false, false}));
    for (std::size_t slot = 1; slot < 6; ++slot) {
        SCOPED_TRACE(slot);
        std::array<bool, 6> visible{true, false, false, false, false, false};
        visible[slot] = true;
        EXPECT_FALSE(IsReducible({3, 1, 1, 1, 1, 1}, visible));
    }
}

// The score.

TEST(AnswerScore, RightAnswerWinsFive)
{
    EXPECT_EQ(AfterRight(0), 5);
    EXPECT_EQ(AfterRight(3), 8);
}

TEST(AnswerScore, ScoreOutsideThirtyTwoBitsIsAFault)
{
    EXPECT_THROW(AfterRight(std::numeric_limits<std::int32_t>::max()), FatalFault);
}

TEST(AnswerScore, WrongAnswerLosesTwo)
{
    EXPECT_EQ(AfterWrong(12), 10);
}

TEST(AnswerScore, NeverFallsBelowZero)
{
    EXPECT_EQ(AfterWrong(2), 0);
    EXPECT_EQ(AfterWrong(1), 0);
    EXPECT_EQ(AfterWrong(0), 0);
}

TEST(AnswerScore, ThreeWrongAnswersFromFiveGiveThreeOneZero)
{
    EXPECT_EQ(AfterWrong(5), 3);
    EXPECT_EQ(AfterWrong(AfterWrong(5)), 1);
    EXPECT_EQ(AfterWrong(AfterWrong(AfterWrong(5))), 0);
}
