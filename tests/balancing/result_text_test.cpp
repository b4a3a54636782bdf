#include "balancing/result_text.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

/// What a failure begins with: 15 blanks.
const QString kFailure = QString(15, u' ') + u"ECHEC : "_s;

BalancingTask Water()
{
    BalancingTask task;
    task.number = 3;
    task.molecules = {u"H2"_s, u"O2"_s, u""_s, u"H2O"_s, u""_s, u""_s};
    return task;
}

} // namespace

TEST(ResultText, WritesTheNumberAndTheEquation)
{
    EXPECT_EQ(result_text::Line(Water(), {2, 1, 0, 2, 0, 0}),
              u"¤) Equation n°3  : 2 H2 + O2 -----> 2 H2O\n"_s);
}

TEST(ResultText, WritesOnesOnlyWhenTheyAreAskedFor)
{
    BalancingTask task = Water();
    task.showsOnes = true;
    EXPECT_EQ(result_text::Line(task, {2, 1, 0, 2, 0, 0}),
              u"¤) Equation n°3  : 2 H2 + 1 O2 -----> 2 H2O\n"_s);
}

TEST(ResultText, WritesNumbersInPlainForm)
{
    EXPECT_EQ(result_text::Line(Water(), {0, -2, 0, 0.5, 0, 0}),
              u"¤) Equation n°3  : 0 H2 + -2 O2 -----> 0.5 H2O\n"_s);
    EXPECT_EQ(result_text::Line(Water(), {-0.0, 1e15, 0, 1.0000000001, 0, 0}),
              u"¤) Equation n°3  : 0 H2 + 1000000000000000 O2 -----> 1.0000000001 H2O\n"_s);
}

TEST(ResultText, PassesOverEmptyPositionsAnywhere)
{
    BalancingTask task = Water();
    task.molecules = {u""_s, u"A"_s, u"B"_s, u""_s, u"C"_s, u"D"_s};
    EXPECT_EQ(result_text::Line(task, {7, 2, 3, 7, 4, 5}),
              u"¤) Equation n°3  : 2 A + 3 B -----> 4 C + 5 D\n"_s);
    task.molecules = {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s};
    EXPECT_EQ(result_text::Line(task, {1, 1, 1, 1, 1, 1}),
              u"¤) Equation n°3  : A + B + C -----> D + E + F\n"_s);
}

TEST(ResultText, KeepsTheArrowOfAnEquationWithoutMolecules)
{
    BalancingTask task;
    task.number = 1;
    EXPECT_EQ(result_text::Line(task, {}), u"¤) Equation n°1  :  -----> \n"_s);
    task.mode = BalancingTask::Mode::Editor;
    EXPECT_EQ(result_text::Line(task, {}), u"\n"_s) << "the editor's line has no arrow where nothing stands";
}

TEST(ResultText, WritesNoNumberInTheEditor)
{
    BalancingTask task = Water();
    task.mode = BalancingTask::Mode::Editor;
    EXPECT_EQ(result_text::Line(task, {2, 1, 0, 2, 0, 0}), u"2 H2 + O2 -----> 2 H2O\n"_s);
}

TEST(ResultText, PutsTheCommentAboveTheEquationInTheEditor)
{
    BalancingTask task = Water();
    task.mode = BalancingTask::Mode::Editor;
    task.comment = u"Synthèse de l'eau"_s;
    EXPECT_EQ(result_text::Line(task, {2, 1, 0, 2, 0, 0}),
              u"Synthèse de l'eau\n     2 H2 + O2 -----> 2 H2O\n"_s);
}

TEST(ResultText, WritesStatesInTheEditor)
{
    BalancingTask task = Water();
    task.mode = BalancingTask::Mode::Editor;
    task.states = {u"g"_s, u""_s, u"s"_s, u"l"_s, u"aq"_s, u""_s};
    EXPECT_EQ(result_text::Line(task, {2, 1, 0, 2, 0, 0}), u"2 H2 (g) + O2 -----> 2 H2O (l)\n"_s);
}

TEST(ResultText, WritesNeitherStatesNorCommentInTheWindow)
{
    BalancingTask task = Water();
    task.states.fill(u"g"_s);
    task.comment = u"Synthèse"_s;
    EXPECT_EQ(result_text::Line(task, {2, 1, 0, 2, 0, 0}), u"¤) Equation n°3  : 2 H2 + O2 -----> 2 H2O\n"_s);
}

TEST(ResultText, LeavesPercentSignsInFormulasAlone)
{
    BalancingTask task = Water();
    task.molecules[0] = u"%1%2"_s;
    EXPECT_EQ(result_text::Line(task, {2, 1, 0, 2, 0, 0}),
              u"¤) Equation n°3  : 2 %1%2 + O2 -----> 2 H2O\n"_s);
    EXPECT_EQ(
        result_text::WrongSymbol(u"%2%1"_s, 4),
        kFailure
            + u"Erreur dans la saisie du symbole d'un atome pour la molécule %2%1 à la 4ème position.\n\n"_s);
}

TEST(ResultText, FaultsAtANumberWithoutAText)
{
    EXPECT_THROW(result_text::Line(Water(), {std::numeric_limits<double>::infinity(), 1, 0, 1, 0, 0}),
                 FatalFault);
}

TEST(ResultText, NamesTheMoleculeOfAWrongSymbol)
{
    EXPECT_EQ(
        result_text::WrongSymbol(u"h2O"_s, 1),
        kFailure
            + u"Erreur dans la saisie du symbole d'un atome pour la molécule h2O à la 1ème position.\n\n"_s);
}

TEST(ResultText, NamesTheAtomThatIsMissing)
{
    EXPECT_EQ(
        result_text::AtomMissing(u"Na"_s),
        kFailure
            + u"il n'y a pas les mêmes types d'atomes dans les réactifs et les produits : l'atome Na présent dans les réactifs n'est pas présent dans les produits.\n\n"_s);
}

TEST(ResultText, NamesNoAtomWhenTheNumbersDiffer)
{
    EXPECT_EQ(result_text::DifferentAtoms(),
              kFailure + u"il n'y a pas les mêmes types d'atomes dans les réactifs et les produits.\n\n"_s);
}

TEST(ResultText, NamesARefusedSymbol)
{
    EXPECT_EQ(result_text::SymbolRefused(u"Xx"_s),
              kFailure + u"le symbole Xx n'est pas un symbole connu d'atome.\n\n"_s);
}

TEST(ResultText, ShowsAnImpossibleEquationWithQuestionMarks)
{
    BalancingTask task = Water();
    EXPECT_EQ(result_text::Impossible(task),
              kFailure + u"équation chimique impossible à équilibrer.\n"_s + QString(15, u' ')
                  + u" ? H2 +  ? O2 ----->  ? H2O\n\n"_s);
}

TEST(ResultText, AsksToWait)
{
    EXPECT_EQ(result_text::PleaseWait(), u"Veuillez patienter pendant les calculs ...\n"_s);
}

TEST(ResultText, AsksAboutAnUnknownSymbolOfEitherSide)
{
    EXPECT_EQ(result_text::UnknownSymbolTitle(), u"Symbole d'atome inconnu"_s);
    EXPECT_EQ(result_text::UnknownSymbolQuestion(u"Xx"_s, true),
              u"Le symbole Xx présent dans les réactifs n'est pas le symbole d'un atome connu.\n"
              "Souhaitez-vous néanmoins conserver ce symbole ?"_s);
    EXPECT_EQ(result_text::UnknownSymbolQuestion(u"Xx"_s, false),
              u"Le symbole Xx présent dans les produits n'est pas le symbole d'un atome connu.\n"
              "Souhaitez-vous néanmoins conserver ce symbole ?"_s);
}

} // namespace stoikal
