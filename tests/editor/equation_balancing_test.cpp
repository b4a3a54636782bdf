#include "editor/equation_balancing.h"

#include "balancing/recording_observer.h"
#include "base/fatal_fault.h"
#include "editor/equation_file_io.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using Texts = std::array<QString, WorkEquation::kSlots>;

WorkEquation Equation(const char* line)
{
    return ReadEquations(line, {}).equations.at(0);
}

WorkEquation Balanced(const char* line)
{
    WorkEquation equation = Equation(line);
    RecordingObserver observer;
    try {
        EnterBalancing(equation, 1, false, observer);
    } catch (const FatalFault&) {
        EXPECT_TRUE(equation.HasFailed());
    }
    return equation;
}

QString Listing(const std::vector<WorkEquation>& equations, bool showsComments = false)
{
    return PreviewListing().Text(u"Tête"_s, equations, showsComments);
}

} // namespace

TEST(EnterBalancing, EntersTheCoefficientsAsText)
{
    WorkEquation equation = Equation("H2+O2=H2O");
    RecordingObserver observer;

    EnterBalancing(equation, 1, false, observer);

    EXPECT_EQ(equation.ECHEC, u"0"_s);
    EXPECT_EQ(equation.Coeff, (Texts{u"2"_s, u"1"_s, u""_s, u"2"_s, u""_s, u""_s}));
    EXPECT_EQ(observer.text, u"2 H2 + O2 -----> 2 H2O\n"_s);
}

TEST(EnterBalancing, FailureMarksTheEquationAndLeavesItsCoefficients)
{
    WorkEquation equation = Equation("H2=O2/3,4");
    RecordingObserver observer;

    EnterBalancing(equation, 1, false, observer);

    EXPECT_EQ(equation.ECHEC, u"1"_s);
    EXPECT_EQ(equation.Coeff, (Texts{u"3"_s, u""_s, u""_s, u"4"_s, u""_s, u""_s}));
}

TEST(EnterBalancing, SuccessTakesTheMarkOfAFailureAway)
{
    WorkEquation equation = Equation("H2+O2=H2O");
    equation.ECHEC = u"1"_s;
    RecordingObserver observer;

    EnterBalancing(equation, 1, false, observer);

    EXPECT_EQ(equation.ECHEC, u"0"_s);
}

TEST(EnterBalancing, NoSolutionIsAFailureEvenWhenTheEngineSaysNothing)
{
    // Six molecules of one atom: an excess of 5, which ends without a word.
    EXPECT_EQ(Balanced("C+C2+C3=C4+C5+C6").ECHEC, u"1"_s);
}

TEST(EnterBalancing, FaultMarksTheEquationAndPassesOn)
{
    WorkEquation equation = Equation("H{=H");
    RecordingObserver observer;

    EXPECT_THROW(EnterBalancing(equation, 1, false, observer), FatalFault);
    EXPECT_EQ(equation.ECHEC, u"1"_s);
    EXPECT_EQ(Balanced("H{=H").ECHEC, u"1"_s);
}

TEST(EnterBalancing, UnknownSymbolIsAskedAboutAndKeptOnYes)
{
    WorkEquation equation = Equation("Xx+O2=XxO");
    RecordingObserver observer;
    observer.answers = {true, true};

    EnterBalancing(equation, 1, false, observer);

    EXPECT_EQ(observer.questions.size(), 2) << "on each side";
    EXPECT_EQ(equation.Coeff, (Texts{u"2"_s, u"1"_s, u""_s, u"2"_s, u""_s, u""_s}));
}

TEST(EnterBalancing, WritesStatesAndTheCommentWhenItIsToBeShown)
{
    WorkEquation equation = Equation("H2<g>+O2=H2O<l>");
    equation.Comment = u"Eau"_s;
    RecordingObserver with;
    RecordingObserver without;

    EnterBalancing(equation, 1, true, with);
    EnterBalancing(equation, 1, false, without);

    EXPECT_EQ(with.text, u"Eau\n     2 H2 (g) + O2 -----> 2 H2O (l)\n"_s);
    EXPECT_EQ(without.text, u"2 H2 (g) + O2 -----> 2 H2O (l)\n"_s);
}

TEST(EnterBalancing, FormulasAreTrimmed)
{
    WorkEquation equation;
    equation.Molecule = {u" H2 "_s, u"Cl2"_s, u""_s, u"HCl"_s, u""_s, u""_s};

    EXPECT_EQ(TaskOf(equation, 1, false).molecules[0], u"H2"_s);
}

TEST(WorkEquation, NeedsTheEngineUntilItHasAllItsCoefficients)
{
    EXPECT_TRUE(Equation("H2+O2=H2O").NeedsBalancing());
    EXPECT_TRUE(Equation("H2+O2=H2O/2,1").NeedsBalancing());
    EXPECT_FALSE(Equation("H2+O2=H2O/4,2,4").NeedsBalancing());
    EXPECT_TRUE(Balanced("H2=O2/1,1").NeedsBalancing()) << "a failure";
    EXPECT_FALSE(Balanced("H2+O2=H2O").NeedsBalancing());
}

TEST(WorkEquation, OtherFormulasLeaveNoCoefficientAndNoVerdict)
{
    WorkEquation equation = Balanced("H2+O2=H2O");
    const WorkEquation before = equation;

    equation.SetFormulas(before.Molecule);
    EXPECT_EQ(equation, before);

    equation.SetFormulas({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s, {}, {}});
    EXPECT_EQ(equation.Molecule[1], u"Cl2"_s);
    EXPECT_EQ(equation.Coeff, Texts());
    EXPECT_EQ(equation.ECHEC, QString());
}

TEST(PreviewListing, ShowsTheHeadAndEachEquationWithItsNumber)
{
    EXPECT_EQ(Listing({Equation("H2+O2=H2O/2,1,2"), Equation("C+O2=CO2/1,1,1")}),
              u"Tête\n\n1) 2 H2 + O2 -----> 2 H2O\n2) C + O2 -----> CO2\n"_s);
}

TEST(PreviewListing, ShowsTheCoefficientsThatTheFileHolds)
{
    EXPECT_EQ(Listing({Equation("H2+O2=H2O/4,2,4")}), u"Tête\n\n1) 4 H2 + 2 O2 -----> 4 H2O\n"_s);
}

TEST(PreviewListing, SaysWhereCoefficientsAreMissingAndBalancesNothing)
{
    const QString missing = u"     Les coefficients manquent\u00A0: ils seront calculés quand vous passerez "
                            "par cette équation.\n"_s;

    EXPECT_EQ(Listing({Equation("H2+O2=H2O"), Equation("H2+O2=H2O/2,1")}),
              u"Tête\n\n1) H2 + O2 -----> H2O\n"_s + missing + u"2) 2 H2 + O2 -----> H2O\n"_s + missing);
}

TEST(PreviewListing, ShowsCommentsWhenTheyAreMarked)
{
    WorkEquation equation = Equation("H2+O2=H2O/2,1,2");
    equation.Comment = u"Eau"_s;

    EXPECT_EQ(Listing({equation}, true), u"Tête\n\n1) Eau\n     2 H2 + O2 -----> 2 H2O\n"_s);
    EXPECT_EQ(Listing({equation}, false), u"Tête\n\n1) 2 H2 + O2 -----> 2 H2O\n"_s);
}

TEST(PreviewListing, NamesTheCauseOfAFailure)
{
    EXPECT_EQ(
        Listing({Balanced("H2=O2"), Equation("C=C/1,1")}),
        u"Tête\n\n1) 0 H2 -----> 0 O2\n"
        "               ECHEC : il n'y a pas les mêmes types d'atomes dans les réactifs et les produits : "
        "l'atome H présent dans les réactifs n'est pas présent dans les produits.\n\n"
        "2) C -----> C\n"_s);
}

TEST(PreviewListing, RefusedSymbolIsTheCauseOfAFailureThatItAloneExplains)
{
    WorkEquation equation = Equation("Xx+O2=XxO");
    RecordingObserver observer;
    observer.answers = {false};
    EnterBalancing(equation, 1, false, observer);
    ASSERT_EQ(equation.ECHEC, u"1"_s);

    EXPECT_TRUE(
        Listing({equation})
            .contains(u"               ECHEC : le symbole Xx n'est pas un symbole connu d'atome.\n\n"_s));
}

TEST(PreviewListing, FaultAndASearchWithoutResultAreFailuresToo)
{
    const QString text = Listing({Balanced("H{=H"), Balanced("C+C2+C3=C4+C5+C6")});

    EXPECT_EQ(text.count(u"               ECHEC : "_s), 2) << text.toStdString();
    EXPECT_FALSE(text.contains(u"Veuillez patienter"_s));
}

TEST(PreviewListing, BlankEquationIsAnEmptyLine)
{
    EXPECT_EQ(Listing({WorkEquation()}), u"Tête\n\n1) \n"_s);
}

TEST(PreviewListing, ForgetsNothingWhenAnEquationChanges)
{
    PreviewListing listing;
    const QString before = listing.Text({}, {Balanced("H2=O2")}, false);
    const QString after = listing.Text({}, {Balanced("H2=N2")}, false);

    EXPECT_TRUE(before.contains(u"O2"_s));
    EXPECT_TRUE(after.contains(u"N2"_s));
    EXPECT_FALSE(after.contains(u"O2"_s));
}

} // namespace stoikal
