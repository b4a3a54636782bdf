#include "exercise/exercise_run.h"

#include "base/fatal_fault.h"
#include "equation_files/equation_line.h"
#include "open_run.h"
#include "support/qt_printers.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using Step = ExerciseRun::Step;
using Verdict = ExerciseRun::Verdict;

/// A run over an equation file of its own.
struct Bench {
    QTemporaryDir folder;
    RunState state;
    ExerciseRun run{state};

    explicit Bench(const QByteArray& text) { Open(text); }

    void Open(const QByteArray& text) { OpenRun(run, folder.filePath(u"chimie.Equ"_s), text); }

    /// Types the coefficients and validates them, as the window does.
    Verdict Answer(const ExerciseRun::Texts& coefficients)
    {
        run.Compose(coefficients);
        return run.Judge(coefficients);
    }
};

/// The kinds in use of a list as "H4 O2", coefficients included.
QString Totals(const AtomList& list)
{
    QStringList kinds;
    for (size_t i = 0; i < static_cast<size_t>(list.Kinds); ++i)
        kinds << list.Symbol.at(i) + QString::number(list.TotalCount.at(i));
    return kinds.join(u' ');
}

const ExerciseRun::Texts kEmpty{};

} // namespace

TEST(ExerciseRun, ReadsTheEquationsInTheOrderOfTheFile)
{
    Bench bench("H2+O2=H2O/2,1,2\nC+O2=CO2/1,1,1\n");

    EXPECT_EQ(bench.run.ReadNextEquation(), Step::Equation);
    EXPECT_EQ(bench.run.Record().Slots[0].Molecule, u"H2"_s);
    EXPECT_EQ(bench.run.State().NumEquation, 1);
    EXPECT_EQ(bench.run.ReadNextEquation(), Step::Equation);
    EXPECT_EQ(bench.run.Record().Slots[0].Molecule, u"C"_s);
    EXPECT_EQ(bench.run.State().NumEquation, 2);
    EXPECT_EQ(bench.run.ReadNextEquation(), Step::EndOfFile);
}

TEST(ExerciseRun, PassesOverCommentsAndEmptyLines)
{
    Bench bench("' title\n\n   ' more\nH2+O2=H2O/2,1,2\n");

    EXPECT_EQ(bench.run.ReadNextEquation(), Step::Equation);

    EXPECT_EQ(bench.run.State().NumEquation, 1);
    EXPECT_EQ(bench.run.State().NumeroLigne, 4);
    EXPECT_EQ(bench.run.State().LigneEquation, u"H2+O2=H2O/2,1,2"_s);
}

TEST(ExerciseRun, EndsBehindTrailingComments)
{
    Bench bench("C+O2=CO2/1,1,1\n' the end\n   ' really\n");

    EXPECT_EQ(bench.run.ReadNextEquation(), Step::Equation);

    EXPECT_EQ(bench.run.ReadNextEquation(), Step::EndOfFile);
}

TEST(ExerciseRun, IsOverOnceTheEndOfTheFileWasReached)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    const ExerciseRun::Texts right{u"2"_s, u"1"_s, u""_s, u"2"_s, u""_s, u""_s};
    bench.run.ReadNextEquation();
    ASSERT_EQ(bench.Answer(right), Verdict::Right);
    EXPECT_TRUE(bench.run.IsUnderWay());
    EXPECT_FALSE(bench.run.IsOver());

    EXPECT_EQ(bench.run.ReadNextEquation(), Step::EndOfFile);
    EXPECT_TRUE(bench.run.IsOver());
    EXPECT_FALSE(bench.run.IsUnderWay());
    EXPECT_TRUE(bench.run.IsOpen());

    EXPECT_EQ(bench.run.ReadNextEquation(), Step::RunIsOver);
    EXPECT_EQ(bench.Answer(right), Verdict::RunIsOver);
    EXPECT_EQ(bench.Answer(kEmpty), Verdict::RunIsOver);
    bench.run.PassStep();
    EXPECT_FALSE(bench.run.FailStep());
    EXPECT_EQ(bench.run.State().Score, 5);
    EXPECT_EQ(bench.run.State().MaxScore, 5);

    bench.run.Close();
    EXPECT_FALSE(bench.run.IsOver());
    bench.Open("C+O2=CO2/1,1,1\n");
    EXPECT_EQ(bench.run.ReadNextEquation(), Step::Equation);
}

TEST(ExerciseRun, GivesAndTakesPointsForTheStepsOfATable)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();

    bench.run.PassStep();
    EXPECT_EQ(bench.run.State().Score, 5);
    EXPECT_FALSE(bench.run.FailStep()); // 5 - 2
    EXPECT_FALSE(bench.run.FailStep()); // 3 - 2
    EXPECT_TRUE(bench.run.FailStep()); // 1 - 2, the floor is 0
    EXPECT_EQ(bench.run.State().Score, 0);
}

TEST(ExerciseRun, ReadsNothingWithoutAFile)
{
    RunState state;
    ExerciseRun run(state);
    EXPECT_FALSE(run.IsOpen());
    EXPECT_EQ(run.ReadNextEquation(), Step::NoFile);

    Bench bench("C+O2=CO2/1,1,1\n");
    EXPECT_TRUE(bench.run.IsOpen());
    bench.run.Close();
    EXPECT_FALSE(bench.run.IsOpen());
    EXPECT_EQ(bench.run.ReadNextEquation(), Step::NoFile);
    EXPECT_EQ(bench.run.State().NumEquation, 0);
}

TEST(ExerciseRun, CountsThePointsThatCouldBeWonWhileReading)
{
    Bench bench("H2+O2=H2O/2,1,2\nN2+H2=NH3\nC+O2=CO2/\nH2+O2=H2O/2,1,2#Q1,Q2,Q3\n");

    bench.run.ReadNextEquation();
    EXPECT_EQ(bench.run.State().MaxScore, 5); // coefficients
    bench.run.ReadNextEquation();
    EXPECT_EQ(bench.run.State().MaxScore, 10); // without "/" 5 too
    bench.run.ReadNextEquation();
    EXPECT_EQ(bench.run.State().MaxScore, 10); // nothing behind "/": 0
    bench.run.ReadNextEquation();
    EXPECT_EQ(bench.run.State().MaxScore, 20); // 5 for the coefficients, 5 for the data
}

TEST(ExerciseRun, StartsOverWithEachFile)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    bench.Answer({u"2"_s, u"1"_s, u""_s, u"2"_s, u""_s, u""_s});
    ASSERT_EQ(bench.run.State().Score, 5);

    bench.Open("H2+O2=H2O/2,1,2\n");

    EXPECT_EQ(bench.run.State().Score, 0);
    EXPECT_EQ(bench.run.State().MaxScore, 0);
    EXPECT_EQ(bench.run.State().NumEquation, 0);
    EXPECT_EQ(bench.run.ReadNextEquation(), Step::Equation);
    EXPECT_EQ(bench.run.State().NumEquation, 1);
}

TEST(ExerciseRun, JudgesAgainInTheFileAfterAShownSolution)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    ASSERT_EQ(bench.Answer(kEmpty), Verdict::WrongAndSolved);

    bench.Open("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();

    EXPECT_EQ(bench.Answer({u"2"_s, u"1"_s, u""_s, u"2"_s, u""_s, u""_s}), Verdict::Right);
}

TEST(ExerciseRun, TellsOfEachEquationWhetherItIsCharged)
{
    Bench bench("Ag{+}+Cl{-}=AgCl/1,1,1\nC+O2=CO2/1,1,1\n");

    bench.run.ReadNextEquation();
    EXPECT_TRUE(bench.run.State().ChargesPresentes);
    bench.run.ReadNextEquation();
    EXPECT_FALSE(bench.run.State().ChargesPresentes);
}

TEST(ExerciseRun, LeavesThePlaceOfAFaultyLineInTheState)
{
    Bench bench("' title\nC+O2=CO2/1,1,1\nH2+O2\n");
    bench.run.ReadNextEquation();

    EXPECT_THROW(bench.run.ReadNextEquation(), FatalFault);

    EXPECT_EQ(bench.run.State().NumeroLigne, 3);
    EXPECT_EQ(bench.run.State().LigneEquation, u"H2+O2"_s);
    EXPECT_EQ(bench.run.State().MaxScore, 5);
    EXPECT_EQ(bench.run.Record().Slots[0].Molecule, u"C"_s);
}

TEST(ExerciseRun, HandsTheFaultsOfDataOnAsTheyAre)
{
    Bench tooMany("A=B/1,1#Q1,Q2,Q3,Q4\n");
    EXPECT_THROW(tooMany.run.ReadNextEquation(), DataSyntaxError);

    Bench none("A=B/1,1#Q0,Q0\n");
    EXPECT_THROW(none.run.ReadNextEquation(), MissingDataError);
}

TEST(ExerciseRun, CountsTheAtomsWithTheCoefficientsOfTheBoxes)
{
    Bench bench("Ca(OH)2+HCl=CaCl2+H2O/1,2,1,2\n");
    bench.run.ReadNextEquation();

    bench.run.Compose({u"3"_s, u"2"_s, u""_s, u""_s, u"10"_s, u""_s});

    // 3 Ca(OH)2: Ca 3, O 6, H 6; 2 HCl: H 2, Cl 2.
    EXPECT_EQ(Totals(bench.run.Reactants()), u"Ca3 O6 H8 Cl2"_s);
    // CaCl2: Ca 1, Cl 2; 10 H2O: H 20, O 10, in the places of the reactants.
    EXPECT_EQ(Totals(bench.run.Products()), u"Ca1 O10 H20 Cl2"_s);
}

TEST(ExerciseRun, TakesZeroAndAnEmptyBoxAsOne)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();

    bench.run.Compose({u"0"_s, u""_s, u""_s, u"00"_s, u""_s, u""_s});

    EXPECT_EQ(Totals(bench.run.Reactants()), u"H2 O2"_s);
    EXPECT_EQ(Totals(bench.run.Products()), u"H2 O1"_s);
}

TEST(ExerciseRun, ReadsTheWholeValueOfABox)
{
    EXPECT_EQ(CoefficientOf(u""_s), 1);
    EXPECT_EQ(CoefficientOf(u"0"_s), 1);
    EXPECT_EQ(CoefficientOf(u"00"_s), 1);
    EXPECT_EQ(CoefficientOf(u"a"_s), 1);
    EXPECT_EQ(CoefficientOf(u"1"_s), 1);
    EXPECT_EQ(CoefficientOf(u"07"_s), 7);
    EXPECT_EQ(CoefficientOf(u"12"_s), 12);
    EXPECT_EQ(CoefficientOf(u"99"_s), 99);
}

TEST(ExerciseRun, CountsAnewAtEachComposition)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    bench.run.Compose({u"12"_s, u"7"_s, u""_s, u"9"_s, u""_s, u""_s});

    bench.run.Compose(kEmpty);

    EXPECT_EQ(Totals(bench.run.Reactants()), u"H2 O2"_s);
    EXPECT_EQ(Totals(bench.run.Products()), u"H2 O1"_s);
}

TEST(ExerciseRun, NamesTheUnknownSymbolsReactantsFirst)
{
    Bench bench("Xx+O2=Zz+Yyy/1,1,1,1\n");
    bench.run.ReadNextEquation();

    EXPECT_EQ(bench.run.Compose(kEmpty), (QStringList{u"Xx"_s, u"Zz"_s, u"Yyy"_s}));
    EXPECT_EQ(bench.run.Compose(kEmpty).size(), 3); // at each composition
}

TEST(ExerciseRun, CannotCountASpeciesThatBeginsWithASmallLetter)
{
    Bench bench("cO+O2=CO2/1,1,1\n");
    bench.run.ReadNextEquation();

    EXPECT_THROW(bench.run.Compose(kEmpty), FatalFault);
}

TEST(ExerciseRun, SumsTheChargesIntoTheState)
{
    Bench bench("Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\n");
    bench.run.ReadNextEquation();

    bench.run.Compose({u"5"_s, u""_s, u""_s, u"2"_s, u"3"_s, u""_s});

    EXPECT_EQ(bench.run.State().ChargeTotalReactants, 15); // 5 * 3
    EXPECT_EQ(bench.run.State().ChargeTotalProducts, 10); // 2 * 2 + 3 * 2
}

TEST(ExerciseRun, CountsOneSpeciesAlone)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    bench.run.Compose(kEmpty);

    const AtomList water = bench.run.ComposeSlot(3, {u"7"_s, u""_s, u""_s, u"2"_s, u""_s, u""_s});

    EXPECT_EQ(Totals(water), u"H4 O2"_s); // 2 H2O
    EXPECT_EQ(Totals(bench.run.Reactants()), u"H2 O2"_s); // the sides stay as they were
}

TEST(ExerciseRun, GivesFivePointsForARightAnswer)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();

    EXPECT_EQ(bench.Answer({u"2"_s, u""_s, u""_s, u"2"_s, u""_s, u""_s}), Verdict::Right);

    EXPECT_EQ(bench.run.State().Score, 5);
    EXPECT_TRUE(bench.run.State().AnswerOpen);
}

TEST(ExerciseRun, TakesTwoPointsForAWrongAnswer)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    bench.state.Score = 5;

    EXPECT_EQ(bench.Answer(kEmpty), Verdict::Wrong);

    EXPECT_EQ(bench.run.State().Score, 3);
    EXPECT_TRUE(bench.run.State().AnswerOpen);
}

TEST(ExerciseRun, ShowsTheSolutionOnceTheScoreHasFallenToZero)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    bench.state.Score = 5;

    EXPECT_EQ(bench.Answer(kEmpty), Verdict::Wrong); // 5 - 2
    EXPECT_EQ(bench.run.State().Score, 3);
    EXPECT_EQ(bench.Answer(kEmpty), Verdict::Wrong); // 3 - 2
    EXPECT_EQ(bench.run.State().Score, 1);
    EXPECT_EQ(bench.Answer(kEmpty), Verdict::WrongAndSolved); // 1 - 2, the floor is 0
    EXPECT_EQ(bench.run.State().Score, 0);
    EXPECT_FALSE(bench.run.State().AnswerOpen);
}

TEST(ExerciseRun, JudgesNothingWhileTheSolutionIsShown)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    ASSERT_EQ(bench.Answer(kEmpty), Verdict::WrongAndSolved);

    EXPECT_EQ(bench.Answer({u"2"_s, u"1"_s, u""_s, u"2"_s, u""_s, u""_s}), Verdict::SolutionWasShown);

    EXPECT_EQ(bench.run.State().Score, 0);
    bench.run.MoveOn();
    EXPECT_TRUE(bench.run.State().AnswerOpen);
}

TEST(ExerciseRun, NeitherGivesNorTakesForAReducibleAnswer)
{
    Bench bench("H2+O2=H2O/2,1,2\n");
    bench.run.ReadNextEquation();
    bench.state.Score = 3;

    EXPECT_EQ(bench.Answer({u"4"_s, u"2"_s, u""_s, u"4"_s, u""_s, u""_s}), Verdict::Reducible);

    EXPECT_EQ(bench.run.State().Score, 3);
    EXPECT_TRUE(bench.run.State().AnswerOpen);
}

TEST(ExerciseRun, LooksForACommonFactorInTheVisibleBoxesOnly)
{
    Bench bench("N2O4=NO2/1,2\n");
    bench.run.ReadNextEquation();

    // 3 divides 3 and 6; the four hidden boxes hold 1.
    EXPECT_EQ(bench.Answer({u"3"_s, u"1"_s, u"1"_s, u"6"_s, u"1"_s, u"1"_s}), Verdict::Reducible);
}

TEST(ExerciseRun, TakesAnAnswerWhoseFirstPrimeFailsForSimple)
{
    Bench bench("H2S+SO2=S+H2O/2,1,3,2\n");
    bench.run.ReadNextEquation();

    // 2 divides 6 but not 3, and 3 is then no longer asked.
    EXPECT_EQ(bench.Answer({u"6"_s, u"3"_s, u""_s, u"9"_s, u"6"_s, u""_s}), Verdict::Right);
}

TEST(ExerciseRun, WantsTheChargesToBalanceToo)
{
    Bench bench("Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\n");
    bench.run.ReadNextEquation();
    bench.state.Score = 5;

    // Fe 1 and Cu 1 on both sides, but the charges are 3 and 2 + 2.
    EXPECT_EQ(bench.Answer(kEmpty), Verdict::Wrong);
    // 2 * 3 and 2 * 2 + 2.
    EXPECT_EQ(bench.Answer({u"2"_s, u""_s, u""_s, u"2"_s, u""_s, u""_s}), Verdict::Right);
}

TEST(ExerciseRun, ForgetsTheChargesOfTheEquationBefore)
{
    Bench bench("Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\nC+O2=CO2/1,1,1\n");
    bench.run.ReadNextEquation();
    bench.run.Compose(kEmpty);
    bench.run.ReadNextEquation();

    EXPECT_EQ(bench.Answer(kEmpty), Verdict::Right);

    EXPECT_EQ(bench.run.State().ChargeTotalReactants, 0);
    EXPECT_EQ(bench.run.State().ChargeTotalProducts, 0);
}

} // namespace stoikal
