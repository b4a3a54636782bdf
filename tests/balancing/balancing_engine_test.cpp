#include "balancing/balancing_engine.h"

#include "balancing/engine_texts.h"
#include "balancing/recording_observer.h"
#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

const QString kTenAtoms = u"HHeLiBeBCNOFNe"_s;

/// A balancing with all that was told of it.
struct Balanced {
    BalancingResult result;
    RecordingObserver observer;
};

Balanced Balance(const BalancingTask& task, std::vector<bool> answers = {})
{
    Balanced balanced;
    balanced.observer.answers = std::move(answers);
    balanced.result = BalanceEquation(task, balanced.observer);
    EXPECT_EQ(static_cast<std::size_t>(balanced.observer.questions.size()), balanced.observer.answers.size())
        << "an answer was left over";
    return balanced;
}

Balanced Balance(const std::array<const char16_t*, 6>& molecules, std::vector<bool> answers = {})
{
    return Balance(Task(molecules), std::move(answers));
}

Coefficients Scaled(int lastIndex, Coefficients values)
{
    ScaleToIntegers(lastIndex, values);
    return values;
}

} // namespace

TEST(BalanceEquation, SolvesDirectlyWithAsManyAtomsAsUnknowns)
{
    // H2 fixed at 1: H2O 1, O2 0.5; by 2: 2, 1, 2.
    const Balanced water = Balance({u"H2", u"O2", u"", u"H2O", u"", u""});

    EXPECT_EQ(water.result.coefficients, (Coefficients{2, 1, 0, 2, 0, 0}));
    EXPECT_EQ(water.observer.text, Line(u"2 H2 + O2 -----> 2 H2O"_s) + u'\n');
    EXPECT_EQ(water.observer.resultsWritten, 1);
    EXPECT_FALSE(water.result.failed);
    EXPECT_FALSE(water.result.stopped);
    EXPECT_EQ(water.observer.searchesBegun, 0);
}

TEST(BalanceEquation, SolvesWithMoreAtomsThanUnknowns)
{
    // Ca(OH)2 + 2 HCl: four atoms, four molecules.
    const Balanced lime = Balance({u"Ca(OH)2", u"HCl", u"", u"CaCl2", u"H2O", u""});
    EXPECT_EQ(lime.result.coefficients, (Coefficients{1, 2, 0, 1, 2, 0}));
    // Five atoms, three molecules: copper sulphate gives its water back.
    const Balanced hydrate = Balance({u"CuSO4", u"H2O", u"", u"CuSO4,5H2O", u"", u""});
    EXPECT_EQ(hydrate.result.coefficients, (Coefficients{1, 5, 0, 1, 0, 0}));
    EXPECT_EQ(hydrate.observer.text, Line(u"CuSO4 + 5 H2O -----> CuSO4,5H2O"_s) + u'\n');
}

TEST(BalanceEquation, AddsARowForTheCharge)
{
    // By atoms alone Fe{3+} + Cu = Fe{2+} + Cu{2+} is balanced; the charge wants 2, 1, 2, 1.
    const Balanced iron = Balance({u"Fe{3+}", u"Cu", u"", u"Fe{2+}", u"Cu{2+}", u""});
    EXPECT_EQ(iron.result.coefficients, (Coefficients{2, 1, 0, 2, 1, 0}));
}

TEST(BalanceEquation, BalancesAHalfEquationWithABareCharge)
{
    // Cr 1 -> 1, charge 3 - e = 0.
    const Balanced chromium = Balance({u"Cr{3+}", u"{-}", u"", u"Cr", u"", u""});
    EXPECT_EQ(chromium.observer.text, Line(u"Cr{3+} + 3 {-} -----> Cr"_s) + u'\n');
}

TEST(BalanceEquation, FixesTheFirstMoleculeThatIsThere)
{
    // Positions 1 and 2, 4 and 5: N2 fixed at 1 gives H2 3, NH3 2.
    const Balanced ammonia = Balance({u"", u"N2", u"H2", u"", u"", u"NH3"});
    EXPECT_EQ(ammonia.result.coefficients, (Coefficients{0, 1, 3, 0, 0, 2}));
}

TEST(BalanceEquation, CountsEachMoleculeOfASideUnderItsOwnSign)
{
    // Six molecules, five atoms and the charge; hand check: charge 5 x 2 - 1 + 8 = 17 = 2 + 15.
    const Balanced permanganate = Balance({u"MnO4{-}", u"Fe{2+}", u"H{+}", u"Mn{2+}", u"Fe{3+}", u"H2O"});
    EXPECT_EQ(permanganate.result.coefficients, (Coefficients{1, 5, 8, 1, 5, 4}));
}

TEST(BalanceEquation, TakesTheShortcutOfAllOnes)
{
    const Balanced same = Balance({u"H2", u"", u"O2", u"", u"O2", u"H2"});
    EXPECT_EQ(same.result.coefficients, (Coefficients{1, 0, 1, 0, 1, 1}));
    EXPECT_EQ(same.observer.text, Line(u"H2 + O2 -----> O2 + H2"_s) + u'\n');
    EXPECT_EQ(same.observer.resultsWritten, 1);

    // The direct way would find no pivot for the second unknown and fail.
    const Balanced salt = Balance({u"NaCl", u"", u"", u"NaCl", u"", u""});
    EXPECT_EQ(salt.observer.text, Line(u"NaCl -----> NaCl"_s) + u'\n');

    // Two atoms, six molecules: the sum of each row is 0, so no search either.
    const Balanced many = Balance({u"H2", u"O2", u"H2O", u"H2O2", u"H", u"HO"}, {});
    EXPECT_EQ(many.result.coefficients, (Coefficients{1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(many.observer.searchesBegun, 0);
}

TEST(BalanceEquation, TakesNoShortcutWhenOnlyTheChargeIsUnbalanced)
{
    const Balanced copper = Balance({u"Ag{+}", u"Cu", u"", u"Ag", u"Cu{2+}", u""});
    EXPECT_EQ(copper.result.coefficients, (Coefficients{2, 1, 0, 2, 1, 0}));
}

TEST(BalanceEquation, CallsAnEquationWithoutAtomsBalanced)
{
    const Balanced empty = Balance({u"", u"", u"", u"", u"", u""});
    EXPECT_EQ(empty.observer.text, Line(u" -----> "_s) + u'\n');
    const Balanced digits = Balance({u"2", u"", u"", u"3", u"", u""});
    EXPECT_EQ(digits.result.coefficients, (Coefficients{1, 0, 0, 1, 0, 0}));
}

TEST(BalanceEquation, WritesOnesWhenTheyAreAskedFor)
{
    BalancingTask task = Task({u"H2", u"O2", u"", u"H2O", u"", u""});
    task.showsOnes = true;
    task.number = 12;
    EXPECT_EQ(Balance(task).observer.text, u"¤) Equation n°12  : 2 H2 + 1 O2 -----> 2 H2O\n\n"_s);
}

TEST(BalanceEquation, WritesCommentAndStatesWithoutAnExtraLineBreakInTheEditor)
{
    BalancingTask task = Task({u"H2", u"O2", u"", u"H2O", u"", u""});
    task.mode = BalancingTask::Mode::Editor;
    task.comment = u"Synthèse de l'eau"_s;
    task.states = {u"g"_s, u"g"_s, u""_s, u"l"_s, u""_s, u""_s};
    const QString line = u"Synthèse de l'eau\n     2 H2 (g) + O2 (g) -----> 2 H2O (l)\n"_s;
    EXPECT_EQ(Balance(task).observer.text, line);

    // The shortcut writes no extra one either.
    task.molecules[1] = u""_s;
    task.molecules[3] = u"H2"_s;
    EXPECT_EQ(Balance(task).observer.text, u"Synthèse de l'eau\n     H2 (g) -----> H2 (l)\n"_s);
}

TEST(BalanceEquation, ShowsTheEditorsLineAboveAFailureToo)
{
    BalancingTask task = Task({u"H2", u"", u"", u"O2", u"", u""});
    task.mode = BalancingTask::Mode::Editor;
    task.comment = u"Faux"_s;
    task.states[0] = u"g"_s;
    EXPECT_EQ(Balance(task).observer.text,
              u"Faux\n     0 H2 (g) -----> 0 O2\n"_s + FailureHead()
                  + u"il n'y a pas les mêmes types d'atomes dans les réactifs et les produits : "
                    "l'atome H présent dans les réactifs n'est pas présent dans les produits.\n\n"_s);
}

TEST(BalanceEquation, FailsAtASmallLetterWithoutASymbol)
{
    const Balanced slip = Balance({u"H2", u"O2", u"", u"h2O", u"", u""});

    EXPECT_TRUE(slip.result.failed);
    EXPECT_EQ(
        slip.observer.text,
        Line(u"0 H2 + 0 O2 -----> 0 h2O"_s) + FailureHead()
            + u"Erreur dans la saisie du symbole d'un atome pour la molécule h2O à la 4ème position.\n\n"_s);
    EXPECT_EQ(slip.observer.resultsWritten, 1) << "a failure can be saved, too";
    EXPECT_EQ(slip.result.coefficients, Coefficients{});
}

TEST(BalanceEquation, ReadsNoMoleculeBehindARefusedOne)
{
    // The brace of the second would be a fault, its letter a second failure.
    const Balanced slip = Balance({u"H2", u"oO", u"x{", u"H2O", u"", u""});
    EXPECT_EQ(slip.observer.text.count(u"ECHEC"_s), 1);
    EXPECT_TRUE(slip.observer.text.contains(u"la molécule oO à la 2ème position."_s));
    EXPECT_TRUE(slip.observer.questions.isEmpty());
}

TEST(BalanceEquation, ShowsZerosAboveAnEarlyFailure)
{
    const Balanced early = Balance({u"H2", u"O2", u"", u"H2O", u"Na", u""});
    EXPECT_EQ(early.observer.text,
              Line(u"0 H2 + 0 O2 -----> 0 H2O + 0 Na"_s) + FailureHead()
                  + u"il n'y a pas les mêmes types d'atomes dans les réactifs et les produits.\n\n"_s);
    EXPECT_TRUE(early.result.failed);
    const Balanced refused = Balance({u"H2", u"O2", u"x", u"H2O", u"", u""});
    EXPECT_TRUE(refused.observer.text.startsWith(Line(u"0 H2 + 0 O2 + 0 x -----> 0 H2O"_s)));
}

TEST(BalanceEquation, NamesTheFirstAtomThatTheProductsLack)
{
    const Balanced hydrogen = Balance({u"H2", u"", u"", u"O2", u"", u""});
    EXPECT_EQ(hydrogen.observer.text,
              Line(u"0 H2 -----> 0 O2"_s) + FailureHead()
                  + u"il n'y a pas les mêmes types d'atomes dans les réactifs et les produits : "
                    "l'atome H présent dans les réactifs n'est pas présent dans les produits.\n\n"_s);
    const Balanced sodium = Balance({u"HNa", u"ClK", u"", u"HCl", u"CaMg", u""});
    EXPECT_TRUE(sodium.observer.text.contains(u"l'atome Na présent"_s));
    EXPECT_EQ(sodium.observer.text.count(u"ECHEC"_s), 1);
}

TEST(BalanceEquation, AsksAboutAnUnknownSymbolOfEachSideAndKeepsItOnYes)
{
    // 2 Xx + O2 -> 2 XxO like any metal.
    const Balanced made = Balance({u"Xx", u"O2", u"", u"XxO", u"", u""}, {true, true});

    EXPECT_EQ(made.observer.questions,
              (QStringList{u"Le symbole Xx présent dans les réactifs n'est pas le symbole d'un atome connu.\n"
                           "Souhaitez-vous néanmoins conserver ce symbole ?"_s,
                           u"Le symbole Xx présent dans les produits n'est pas le symbole d'un atome connu.\n"
                           "Souhaitez-vous néanmoins conserver ce symbole ?"_s}));
    EXPECT_EQ(made.observer.titles,
              (QStringList{u"Symbole d'atome inconnu"_s, u"Symbole d'atome inconnu"_s}));
    EXPECT_EQ(made.observer.text, Line(u"2 Xx + O2 -----> 2 XxO"_s) + u'\n');
}

TEST(BalanceEquation, AsksOnceForASymbolOfSeveralMoleculesAndForLateElements)
{
    const Balanced late = Balance({u"Ds", u"DsO2", u"", u"DsO", u"", u""}, {true, true});
    EXPECT_EQ(late.result.coefficients, (Coefficients{1, 1, 0, 2, 0, 0}));
}

TEST(BalanceEquation, StopsOnNoButStillAsksAboutTheOthersOfThatSide)
{
    const Balanced refused = Balance({u"Xx", u"YyO2", u"Zz", u"XxO", u"YyZz", u""}, {false, true, false});

    ASSERT_EQ(refused.observer.questions.size(), 3);
    EXPECT_TRUE(refused.observer.questions[1].startsWith(u"Le symbole Yy présent dans les réactifs"_s));
    EXPECT_TRUE(refused.observer.questions[2].startsWith(u"Le symbole Zz présent dans les réactifs"_s));
    const QString line = Line(u"0 Xx + 0 YyO2 + 0 Zz -----> 0 XxO + 0 YyZz"_s);
    EXPECT_EQ(refused.observer.text,
              line + FailureHead() + u"le symbole Xx n'est pas un symbole connu d'atome.\n\n"_s + line
                  + FailureHead() + u"le symbole Zz n'est pas un symbole connu d'atome.\n\n"_s);
    EXPECT_TRUE(refused.result.failed);
}

TEST(BalanceEquation, StopsOnNoAmongTheProducts)
{
    const Balanced refused = Balance({u"H2", u"O2", u"", u"XxO", u"Yy", u""}, {false, true});

    ASSERT_EQ(refused.observer.questions.size(), 2);
    EXPECT_TRUE(refused.observer.questions[0].startsWith(u"Le symbole Xx présent dans les produits"_s));
    EXPECT_EQ(refused.observer.text,
              Line(u"0 H2 + 0 O2 -----> 0 XxO + 0 Yy"_s) + FailureHead()
                  + u"le symbole Xx n'est pas un symbole connu d'atome.\n\n"_s)
        << "the sides are not compared any more";
}

TEST(BalanceEquation, CallsAContradictionImpossible)
{
    // H wants 1, O wants 2 of H2O2: the last pivot wipes the answer to 0.
    const Balanced contradiction = Balance({u"H2O", u"", u"", u"H2O2", u"", u""});
    EXPECT_EQ(contradiction.observer.text,
              Line(u"H2O -----> 0 H2O2"_s) + FailureHead() + u"équation chimique impossible à équilibrer.\n"_s
                  + QString(15, u' ') + u" ? H2O ----->  ? H2O2\n\n"_s);
    EXPECT_TRUE(contradiction.result.failed);
    EXPECT_EQ(contradiction.result.coefficients, (Coefficients{1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(contradiction.observer.resultsWritten, 1);
}

TEST(BalanceEquation, CallsANegativeCoefficientImpossible)
{
    // C: 1 + b = c, O: b = 2c, so c = -1 and b = -2.
    const Balanced negative = Balance({u"C", u"CO", u"", u"CO2", u"", u""});
    EXPECT_EQ(negative.observer.text,
              Line(u"C + -2 CO -----> -1 CO2"_s) + FailureHead()
                  + u"équation chimique impossible à équilibrer.\n"_s + QString(15, u' ')
                  + u" ? C +  ? CO ----->  ? CO2\n\n"_s);
}

TEST(BalanceEquation, CallsAZeroCoefficientImpossible)
{
    // H: 2 = 2c; O: 1 + 2b = c, so b = 0.
    const Balanced zero = Balance({u"H2O", u"O2", u"", u"H2O", u"", u""});
    EXPECT_TRUE(zero.observer.text.startsWith(Line(u"H2O + 0 O2 -----> H2O"_s) + FailureHead()));
    EXPECT_TRUE(zero.result.failed);
}

TEST(BalanceEquation, CallsAMixtureWithoutASinglePivotImpossible)
{
    // C and H say the same: after C3H6 no pivot is left, the reduction stops with
    // 2/3 and 0. By 3: 3, 2, 0 (7, 2, 2 would be a solution).
    const Balanced alkenes = Balance({u"C2H4", u"", u"", u"C3H6", u"C4H8", u""});
    EXPECT_TRUE(alkenes.observer.text.startsWith(Line(u"3 C2H4 -----> 2 C3H6 + 0 C4H8"_s) + FailureHead()));
}

TEST(BalanceEquation, AddsTheLineBreakBehindASuccessOnlyInTheWindow)
{
    EXPECT_TRUE(Balance({u"N2", u"H2", u"", u"NH3", u"", u""}).observer.text.endsWith(u"NH3\n\n"_s));
    BalancingTask task = Task({u"N2", u"H2", u"", u"NH3", u"", u""});
    task.mode = BalancingTask::Mode::Editor;
    EXPECT_EQ(Balance(task).observer.text, u"N2 + 3 H2 -----> 2 NH3\n"_s);
}

TEST(BalanceEquation, FaultsAtTenAtomsOnEachSide)
{
    const QString nine = kTenAtoms.chopped(2);
    BalancingTask task = Task({u"", u"", u"", u"", u"", u""});
    task.molecules[0] = nine;
    task.molecules[3] = nine;
    EXPECT_EQ(Balance(task).result.coefficients, (Coefficients{1, 0, 0, 1, 0, 0}));
    task.molecules[1] = u"Ne"_s;
    task.molecules[4] = u"Ne"_s;
    RecordingObserver observer;
    EXPECT_THROW(BalanceEquation(task, observer), FatalFault);
    EXPECT_EQ(observer.text, u""_s);
}

TEST(BalanceEquation, NamesAMissingAtomBeforeItFaultsAtTen)
{
    BalancingTask task = Task({u"", u"", u"", u"", u"", u""});
    task.molecules[0] = kTenAtoms;
    task.molecules[3] = u"Na"_s + kTenAtoms.chopped(2);
    EXPECT_TRUE(Balance(task).observer.text.contains(u"l'atome Ne présent dans les réactifs"_s));
}

TEST(BalanceEquation, DropsAnEleventhAtomOfASideWithoutAWord)
{
    // Na is left out among the reactants: ten against nine, no question about Xx.
    BalancingTask task = Task({u"", u"NaXx", u"", u"", u"", u""});
    task.molecules[0] = kTenAtoms;
    task.molecules[3] = kTenAtoms.chopped(2);
    EXPECT_TRUE(Balance(task).observer.text.contains(
        u"les mêmes types d'atomes dans les réactifs et les produits.\n"_s));
    // Ten of each side again, the eleventh unnoticed: the fault of ten.
    task.molecules[4] = u"Ne"_s;
    RecordingObserver observer;
    EXPECT_THROW(BalanceEquation(task, observer), FatalFault);
    EXPECT_TRUE(observer.questions.isEmpty());
}

TEST(BalanceEquation, FaultsAtAFormulaBeyondTheLimits)
{
    RecordingObserver observer;
    EXPECT_THROW(BalanceEquation(Task({u"Fe{3+", u"", u"", u"Fe", u"", u""}), observer), FatalFault);
    EXPECT_THROW(BalanceEquation(Task({u"H40000", u"", u"", u"H", u"", u""}), observer), FatalFault);
    EXPECT_EQ(observer.text, u""_s);
}

TEST(BalanceEquation, FaultsAtACommonDenominatorBeyondSixteenBits)
{
    // HO fixed at 1: H181 = 1/181, O182 = 1/182, and 181 x 182 = 32942.
    RecordingObserver observer;
    EXPECT_THROW(BalanceEquation(Task({u"HO", u"", u"", u"H181", u"O182", u""}), observer), FatalFault);
    EXPECT_EQ(observer.text, u""_s);
    // 180 x 181 = 32580 still fits.
    const Balanced fits = Balance({u"HO", u"", u"", u"H180", u"O181", u""});
    EXPECT_EQ(fits.result.coefficients, (Coefficients{32580, 0, 0, 181, 180, 0}));
}

TEST(BalanceEquation, LeavesFractionsWhereADenominatorPasses32000)
{
    // One atom of 32003: 1/32003, never scaled.
    const Balanced fraction = Balance({u"H", u"", u"", u"H32003", u"", u""});
    EXPECT_EQ(fraction.result.coefficients, (Coefficients{1, 0, 0, 1.0 / 32003, 0, 0}));
    EXPECT_FALSE(fraction.result.failed);
}

TEST(ScaleToIntegers, TakesTheCommonDenominator)
{
    // Denominators 1, 2, 3, 4, 1: common 12.
    EXPECT_EQ(Scaled(5, {1, 0.5, 1.0 / 3, 0.75, 2, 0}), (Coefficients{12, 6, 4, 9, 24, 0}));
    EXPECT_EQ(Scaled(5, {0.5, 1, 1, 0, 0, 0}), (Coefficients{1, 2, 2, 0, 0, 0}));
}

TEST(ScaleToIntegers, LeavesACommonFactor)
{
    EXPECT_EQ(Scaled(5, {2, 2, 4, 0, 6, 8}), (Coefficients{2, 2, 4, 0, 6, 8}));
}

TEST(ScaleToIntegers, WorksToTheLastIndex)
{
    EXPECT_EQ(Scaled(1, {0.5, 1, 0.25, 0.1, 0, 0}), (Coefficients{1, 2, 0.25, 0.1, 0, 0}));
}

TEST(ScaleToIntegers, ScalesNegativeValues)
{
    EXPECT_EQ(Scaled(5, {1, -0.5, -1.0 / 3, 0, 0, 0}), (Coefficients{6, -3, -2, 0, 0, 0}));
}

TEST(ScaleToIntegers, TakesWhatIsWithin1e9AsWhole)
{
    EXPECT_EQ(Scaled(5, {3 + 5e-10, 3 - 5e-10, -2 - 5e-10, -2 + 5e-10, 0.5, 0}),
              (Coefficients{6, 6, -4, -4, 1, 0}));
    // 2e-9 off: 1 + 2e-9 has no denominator up to 32000, so nothing changes.
    const Coefficients off{1 + 2e-9, 0.5, 0, 0, 0, 0};
    EXPECT_EQ(Scaled(5, off), off);
}

TEST(ScaleToIntegers, LeavesAllValuesWhereADenominatorPasses32000)
{
    EXPECT_EQ(Scaled(5, {1.0 / 32000, 1, 0, 0, 0, 0}), (Coefficients{1, 32000, 0, 0, 0, 0}));
    const Coefficients beyond{0.5, 0.25, 0, 0, 0, 1.0 / 32003};
    EXPECT_EQ(Scaled(5, beyond), beyond);
}

TEST(ScaleToIntegers, FaultsAtACommonDenominatorBeyondSixteenBits)
{
    // 181 x 182 = 32942.
    Coefficients values{1.0 / 181, 1.0 / 182, 0, 0, 0, 0};
    EXPECT_THROW(ScaleToIntegers(5, values), FatalFault);
    // 32767 = 7 x 31 x 151 itself fits: 217 x 151.
    EXPECT_EQ(Scaled(5, {1.0 / 217, 1.0 / 151, 0, 0, 0, 0}), (Coefficients{151, 217, 0, 0, 0, 0}));
}

TEST(ScaleToIntegers, ChecksTheCommonDenominatorBehindTheDivision)
{
    // 20000 x 10000 is beyond 16 bits, divided by their 10000 it is 20000.
    EXPECT_EQ(Scaled(5, {1.0 / 20000, 1.0 / 10000, 0, 0, 0, 0}), (Coefficients{1, 2, 0, 0, 0, 0}));
    // 30000 x 20000 / 10000 = 60000.
    Coefficients values{1.0 / 30000, 1.0 / 20000, 0, 0, 0, 0};
    EXPECT_THROW(ScaleToIntegers(5, values), FatalFault);
}

TEST(BalanceEquation, SaysWhenNothingWasFoundAndNothingFailed)
{
    // Six molecules of one atom: an excess of 5, one free position. The one row
    // gives one value, the other four stay 0: no attempt holds, and no next choice.
    BalancingTask task;
    task.mode = BalancingTask::Mode::Editor;
    task.molecules = {QStringLiteral("C"),  QStringLiteral("C2"), QStringLiteral("C3"),
                      QStringLiteral("C4"), QStringLiteral("C5"), QStringLiteral("C6")};
    RecordingObserver observer;

    const BalancingResult result = BalanceEquation(task, observer);

    EXPECT_TRUE(result.foundNothing);
    EXPECT_FALSE(result.failed);
    EXPECT_FALSE(result.stopped);
}

} // namespace stoikal
