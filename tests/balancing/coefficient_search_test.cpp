#include "balancing/coefficient_search.h"

#include "balancing/engine_texts.h"
#include "balancing/recording_observer.h"
#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

const QString kWait = u"Veuillez patienter pendant les calculs ...\n"_s;

/// A system of one row with these cells, 0 for an empty position.
SearchSystem OneRow(const std::array<double, 6>& cells, int excess)
{
    SearchSystem system;
    system.excess = excess;
    for (std::size_t position = 0; position < cells.size(); ++position) {
        system.matrix.cells[0][position] = cells[position];
        system.present[position] = cells[position] != 0;
    }
    return system;
}

/// How many attempts stand for one, choice after choice: 22500 over the product
/// of the marked positions' last values 15, 15, 10, 10, 1, 1.
std::vector<int> FirstReports(const RecordingObserver& observer)
{
    std::vector<int> first;
    for (const ReportedChoice& choice : observer.choices)
        first.push_back(choice.first);
    return first;
}

/// C + CO -> CO2 + C2O5: O per C is at most 1 on the left, at least 2 on the right.
const std::array<const char16_t*, 6> kNoSolution{u"C", u"CO", u"", u"CO2", u"C2O5", u""};

} // namespace

TEST(CoefficientSearch, KeepsTheSolutionOfSmallestSum)
{
    // C fixed at a, O2 at b: CO = 2a - 2b and CO2 = 2b - a, so b < a < 2b. The sum
    // a + b + a is smallest at a = 3, b = 2.
    RecordingObserver observer;
    const BalancingResult result = BalanceEquation(Task({u"C", u"O2", u"", u"CO", u"CO2", u""}), observer);

    EXPECT_EQ(result.coefficients, (Coefficients{3, 2, 0, 2, 1, 0}));
    EXPECT_EQ(observer.text, kWait + Line(u"3 C + 2 O2 -----> 2 CO + CO2"_s) + u'\n');
    EXPECT_EQ(observer.resultsWritten, 1);
    EXPECT_FALSE(result.failed || result.stopped);
    EXPECT_EQ(observer.searchesBegun, 1);
    EXPECT_EQ(observer.searchesEnded, 1);
    EXPECT_EQ(observer.choices.size(), 1U) << "no other choice once one gave a solution";
}

TEST(CoefficientSearch, WritesNoExtraLineBreakInTheEditor)
{
    RecordingObserver observer;
    BalancingTask task = Task({u"C", u"O2", u"", u"CO", u"CO2", u""});
    task.mode = BalancingTask::Mode::Editor;
    BalanceEquation(task, observer);
    EXPECT_EQ(observer.text, kWait + u"3 C + 2 O2 -----> 2 CO + CO2\n"_s);
}

TEST(CoefficientSearch, KeepsTheFirstOfEqualSums)
{
    // With p CN2O and q C2NO: C = p + 2q, N = 2p + q, O3 = (p + q) / 3, so p + q is
    // a multiple of 3. (1, 2) and (2, 1) give 5, 4, 1, 1, 2 and 4, 5, 1, 2, 1, both
    // of sum 13; the value of position 1 is the outer counter, so N = 4 comes first.
    RecordingObserver observer;
    const BalancingResult result
        = BalanceEquation(Task({u"C", u"N", u"O3", u"CN2O", u"C2NO", u""}), observer);
    EXPECT_EQ(result.coefficients, (Coefficients{5, 4, 1, 1, 2, 0}));
}

TEST(CoefficientSearch, ScalesTheFractionsOfAnAttempt)
{
    // C = 3p + 17q and N = 17p + 3q with p and q at least 1: 20, 20, 1, 1 is the
    // smallest, and 20 is beyond the counters; C = N = 1 gives p = q = 1/20.
    RecordingObserver observer;
    const BalancingResult result
        = BalanceEquation(Task({u"C", u"N", u"", u"C3N17", u"C17N3", u""}), observer);
    EXPECT_EQ(result.coefficients, (Coefficients{20, 20, 0, 1, 1, 0}));
}

TEST(CoefficientSearch, GoesOnToTheChoiceThatGivesASolution)
{
    // H = 40p + 50q and O = p + q: H / O lies between 40 and 50, out of reach of
    // 1 to 15 each. O and H40O fixed at 2 and 1: H50O = 1, H = 90. Positions (1, 3)
    // are the ninth choice: (0, 1) to (0, 5), (1, 0), (1, 1), (1, 2), (1, 3).
    RecordingObserver observer;
    const BalancingResult result = BalanceEquation(Task({u"H", u"O", u"", u"H40O", u"H50O", u""}), observer);
    EXPECT_EQ(result.coefficients, (Coefficients{90, 2, 0, 1, 1, 0}));
    EXPECT_EQ(observer.choices.size(), 9U);
    EXPECT_EQ(observer.text, kWait + Line(u"90 H + 2 O -----> H40O + H50O"_s) + u'\n');
}

TEST(CoefficientSearch, DropsAChoiceThatIsSingularWithoutTestingForTheEnd)
{
    // Row 0 alone: positions 1, 2 and 3 hold 1, -1 and -1, position 0 a molecule
    // with 0. While it is the first unknown, the corner is 0.
    SearchSystem system = OneRow({0, 1, -1, 0, 0, 0}, 2);
    system.present[0] = true;
    RecordingObserver observer;
    const SearchResult result = SearchCoefficients(system, observer, Attempts::OnlyDifferent);
    // (0, 1): position 2 takes the value of position 1.
    EXPECT_EQ(result.end, SearchResult::End::Found);
    EXPECT_EQ(result.coefficients, (Coefficients{1, 1, 1, 0, 0, 0}));

    // With both signs alike nothing is solved. Position 0 unmarked: singular.
    system.matrix.At(0, 2) = 1;
    RecordingObserver all;
    EXPECT_THROW(SearchCoefficients(system, all, Attempts::OnlyDifferent), FatalFault);
    // (0, 1) to (0, 5), then (1, 0): six choices without an early end; (1, 1) has
    // position 0 in front and breaks off at the first attempt, its bar left open.
    ASSERT_GE(all.choices.size(), 7U);
    for (std::size_t choice = 0; choice < 6; ++choice)
        EXPECT_TRUE(all.choices[choice].ended) << choice;
    EXPECT_FALSE(all.choices[6].ended);
    EXPECT_EQ(all.choices[6].calls, 1);
}

TEST(CoefficientSearch, FaultsWhenTheChoicesRunOut)
{
    // As above: (4, 5) is singular, so the end is not noticed there; (5, 5), too,
    // and a sixth position does not exist. 6 x 6 choices without (0, 0).
    SearchSystem system = OneRow({0, 1, 1, 0, 0, 0}, 2);
    system.present[0] = true;
    RecordingObserver observer;
    EXPECT_THROW(SearchCoefficients(system, observer, Attempts::OnlyDifferent), FatalFault);
    EXPECT_EQ(observer.choices.size(), 35U);

    // The same by formulas: "2" has no atom, O-3 counts -3 and adds to the O2.
    RecordingObserver whole;
    EXPECT_THROW(BalanceEquation(Task({u"2", u"O2", u"", u"O-3", u"", u""}), whole), FatalFault);
    EXPECT_EQ(whole.text, kWait);
}

TEST(CoefficientSearch, TakesTheCornerAloneForSingular)
{
    // HCl and H2Cl2 have H and Cl alike, but the corner holds -2. With H2 at a and
    // Cl2 at b the reduction stops half done: HCl = 2a, H2Cl2 = 2a - 2b. Of these
    // a = 2, b = 1 has the smallest sum, and nothing is put back into the rows.
    RecordingObserver observer;
    BalanceEquation(Task({u"H2", u"Cl2", u"", u"HCl", u"H2Cl2", u""}), observer);
    EXPECT_EQ(observer.text, kWait + Line(u"2 H2 + Cl2 -----> 4 HCl + 2 H2Cl2"_s) + u'\n');
}

TEST(CoefficientSearch, FailsWithTheLastCoefficientsBehindTheLastChoice)
{
    // The last choice is (4, 5), both at 1: C + CO - CO2 = 2 and CO - 2 CO2 = 5. Two
    // rows for three unknowns: CO2 is left over and takes 0, so CO = 5, C = 2 - 5.
    RecordingObserver observer;
    const BalancingResult result = BalanceEquation(Task(kNoSolution), observer);

    EXPECT_EQ(observer.text,
              kWait + Line(u"-3 C + 5 CO -----> 0 CO2 + C2O5"_s) + FailureHead()
                  + u"équation chimique impossible à équilibrer.\n"_s + QString(15, u' ')
                  + u" ? C +  ? CO ----->  ? CO2 +  ? C2O5\n\n"_s);
    EXPECT_TRUE(result.failed);
    EXPECT_FALSE(result.stopped);
    EXPECT_EQ(observer.searchesEnded, 1);
}

TEST(CoefficientSearch, LetsBRestartAtZeroAndMeetA)
{
    RecordingObserver observer;
    BalanceEquation(Task(kNoSolution), observer);
    EXPECT_EQ(FirstReports(observer),
              (std::vector<int>{
                  100,  150,  150,  1500, 1500, // A = 0: B = 1 to 5
                  100,  1500, 150,  150,  1500,  1500, // A = 1: B = 0 to 5, (1, 1) marks one position
                  150,  150,  2250, 225,  2250,  2250, // A = 2
                  150,  150,  225,  2250, 2250,  2250, // A = 3
                  1500, 1500, 2250, 2250, 22500, 22500 // A = 4: ends at (4, 5)
              }));
}

TEST(CoefficientSearch, AdvancesThreePositionsFromTheLast)
{
    // All cells alike: no solution. (0, 1, 2) to (0, 1, 5), then C from 0 again.
    RecordingObserver observer;
    const SearchResult result
        = SearchCoefficients(OneRow({1, 1, 0, 1, 1, 0}, 3), observer, Attempts::OnlyDifferent);

    EXPECT_EQ(result.end, SearchResult::End::Impossible);
    const std::vector<int> first = FirstReports(observer);
    // A = 0: B = 1 has 4, B = 2 to 5 have 6 each; A = 1 to 3 have 36 each; A = 4 has
    // 30 for B = 0 to 4, and the search ends at (4, 5, 0): 28 + 108 + 31.
    ASSERT_EQ(first.size(), 167U);
    EXPECT_EQ(std::vector<int>(first.begin(), first.begin() + 10),
              (std::vector<int>{
                  10, 10, 100, 100, // (0, 1, C), C = 2 to 5
                  150, 10, 150, 15, 150, 150 // (0, 2, C), C = 0 to 5
              }));
    EXPECT_EQ(first[28], 100) << "(1, 0, 0)";
    EXPECT_EQ(first.back(), 1500) << "(4, 5, 0)";
}

TEST(CoefficientSearch, FixesThreePositionsAtAnExcessOfThree)
{
    // O + O2 -> O3 + O4: choice (0, 1, 2) leaves two unknowns for one row. (0, 1, 3)
    // solves 4d = a + 2b - 3c; with c = d = 1, a + 2b = 7: a = 1, b = 3, sum 6.
    RecordingObserver observer;
    const BalancingResult result = BalanceEquation(Task({u"O", u"O2", u"", u"O3", u"O4", u""}), observer);
    EXPECT_EQ(result.coefficients, (Coefficients{1, 3, 0, 1, 1, 0}));
    EXPECT_EQ(FirstReports(observer), (std::vector<int>{10, 10}));
}

TEST(CoefficientSearch, EndsWithNeitherResultNorFailureAboveAnExcessOfThree)
{
    RecordingObserver observer;
    const BalancingResult result = BalanceEquation(Task({u"O", u"O2", u"", u"O3", u"O4", u"O5"}), observer);

    EXPECT_FALSE(result.failed || result.stopped);
    EXPECT_EQ(observer.text, kWait);
    EXPECT_EQ(observer.resultsWritten, 0);
    EXPECT_EQ(observer.searchesBegun, 1);
    EXPECT_EQ(observer.searchesEnded, 0) << "the pointer is left as it is";
    // Position 0 alone is free: one choice of 15 values, no other.
    ASSERT_EQ(observer.choices.size(), 1U);
    EXPECT_EQ(observer.choices[0].calls, 15);
    EXPECT_EQ(observer.choices[0].last, 22500);
    EXPECT_TRUE(observer.choices[0].ended);
}

TEST(CoefficientSearch, IgnoresASingularCornerAboveAnExcessOfThree)
{
    // The first unknown is 0 in the one row: still all attempts are made.
    SearchSystem system = OneRow({1, 0, 2, 3, 4, 0}, 4);
    system.present[1] = true;
    RecordingObserver observer;
    EXPECT_EQ(SearchCoefficients(system, observer, Attempts::OnlyDifferent).end, SearchResult::End::Nothing);
    EXPECT_EQ(observer.choices.size(), 1U);
    EXPECT_EQ(observer.choices[0].calls, 15);
}

TEST(CoefficientSearch, CountsFixedEmptyPositionsInTheSum)
{
    // Choice (0, 1) with position 1 empty: position 3 is half of position 0. At
    // a = b = 1 all are doubled, the empty position too: 2, 2, 1, sum 5. At a = 2
    // nothing is to be scaled: 2, 1, 1, sum 4.
    RecordingObserver observer;
    const SearchResult result
        = SearchCoefficients(OneRow({1, 0, 0, -2, 0, 0}, 2), observer, Attempts::OnlyDifferent);
    EXPECT_EQ(result.coefficients, (Coefficients{2, 1, 0, 1, 0, 0}));
}

TEST(CoefficientSearch, WalksTheBarToItsEndInEachChoice)
{
    for (const Attempts attempts : {Attempts::OnlyDifferent, Attempts::All}) {
        RecordingObserver observer;
        BalanceEquation(Task({u"C", u"O2", u"", u"CO", u"CO2", u""}), observer, attempts);
        ASSERT_EQ(observer.choices.size(), 1U);
        EXPECT_EQ(observer.choices[0].attempts, 22500);
        EXPECT_EQ(observer.choices[0].last, 22500);
        EXPECT_EQ(observer.choices[0].calls, attempts == Attempts::All ? 22500 : 225);
        EXPECT_TRUE(observer.choices[0].rises);
        EXPECT_TRUE(observer.choices[0].ended);
    }
    RecordingObserver observer;
    BalanceEquation(Task(kNoSolution), observer);
    for (const ReportedChoice& choice : observer.choices) {
        EXPECT_EQ(choice.attempts, 22500);
        EXPECT_EQ(choice.last, 22500);
        EXPECT_TRUE(choice.rises && choice.ended);
    }
}

TEST(CoefficientSearch, StopsWhenTheObserverGivesUp)
{
    for (const int stopAtChoice : {1, 4}) {
        RecordingObserver observer;
        observer.stopAtChoice = stopAtChoice;
        const BalancingResult result = BalanceEquation(Task(kNoSolution), observer);

        EXPECT_TRUE(result.stopped);
        EXPECT_FALSE(result.failed);
        EXPECT_EQ(observer.text, kWait);
        EXPECT_EQ(observer.resultsWritten, 0);
        EXPECT_EQ(observer.choices.size(), static_cast<std::size_t>(stopAtChoice));
        EXPECT_EQ(observer.choices.back().calls, 1);
        EXPECT_EQ(observer.searchesEnded, 1);
    }
}

TEST(CoefficientSearch, EndsAsWellWithAllAttemptsWhenNothingIsFound)
{
    // Neither result nor failure; a failure behind 29 choices.
    for (const auto& molecules :
         {std::array<const char16_t*, 6>{u"O", u"O2", u"", u"O3", u"O4", u"O5"}, kNoSolution}) {
        RecordingObserver different;
        RecordingObserver all;
        const BalancingResult a = BalanceEquation(Task(molecules), different, Attempts::OnlyDifferent);
        const BalancingResult b = BalanceEquation(Task(molecules), all, Attempts::All);
        EXPECT_EQ(a.coefficients, b.coefficients);
        EXPECT_EQ(a.failed, b.failed);
        EXPECT_EQ(different.text, all.text);
        EXPECT_EQ(different.choices.size(), all.choices.size());
    }
}

TEST(CoefficientSearch, FaultsAsWellWithAllAttemptsWhenTheChoicesRunOut)
{
    RecordingObserver all;
    EXPECT_THROW(BalanceEquation(Task({u"2", u"O2", u"", u"O-3", u"", u""}), all, Attempts::All), FatalFault);
    EXPECT_EQ(all.choices.size(), 35U);
    EXPECT_EQ(all.choices.front().calls, 22500);
    EXPECT_EQ(all.choices.back().calls, 1);
}

TEST(CoefficientSearch, FaultsWhereASumPassesThirtyTwoBits)
{
    // 1 A + 1 B -> x C with 10^10 atoms in A and in B and one in C: x = 2 * 10^10,
    // above 2^31 - 1 = 2147483647.
    RecordingObserver observer;
    EXPECT_THROW(SearchCoefficients(OneRow({1e10, 1e10, -1, 0, 0, 0}, 2), observer, Attempts::OnlyDifferent),
                 FatalFault);

    // With 10^4 in each: 1 + 1 + 2 * 10^4, and 15 + 15 + 30 * 10^4 for the largest
    // values tried, are below it.
    RecordingObserver below;
    const SearchResult result
        = SearchCoefficients(OneRow({1e4, 1e4, -1, 0, 0, 0}, 2), below, Attempts::OnlyDifferent);
    EXPECT_EQ(result.end, SearchResult::End::Found);
    EXPECT_EQ(result.coefficients, (Coefficients{1, 1, 2e4, 0, 0, 0}));
}

} // namespace stoikal
