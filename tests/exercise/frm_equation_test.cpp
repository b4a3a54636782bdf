#include "exercise/windows/frm_equation.h"
#include "forms/window_events.h"

#include "exercise/equation_bench.h"
#include "forms/colours.h"

#include <QCloseEvent>
#include <QImage>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using FrmEquation = EquationBench;

const QByteArray kWater = "H2+O2=H2O/2,1,2\n";
const QByteArray kWaterThenCarbon = "H2+O2=H2O/2,1,2\nC+O2=CO2/1,1,1\n";
const QStringList kWaterAnswer{u"2"_s, u"1"_s, u""_s, u"2"_s};
const QStringList kNothing{};

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;

} // namespace

TEST_F(FrmEquation, ShowsTheFirstEquationWithEmptyBoxes)
{
    Open(kWaterThenCarbon);

    EXPECT_EQ(window->windowTitle(), u"Equation n°1"_s);
    EXPECT_EQ(Species(0).text(), u"H2"_s);
    EXPECT_EQ(Species(1).text(), u"O2"_s);
    EXPECT_EQ(Species(3).text(), u"H2O"_s);
    EXPECT_EQ(Boxes(), u"|||||"_s);
    EXPECT_EQ(Score().text(), u"0"_s);
    EXPECT_EQ(Other().text(), u"Valider équation"_s);
    EXPECT_EQ(run.State().MaxScore, 5);
    ExpectBand(colours::kInfoTip);
    EXPECT_EQ(window->focusWidget(), &Box(0));
}

TEST_F(FrmEquation, GivesFivePointsForARightAnswer)
{
    Open(kWater);
    Answer(kWaterAnswer);

    EXPECT_EQ(Score().text(), u"5"_s);
    EXPECT_EQ(run.State().Score, 5);
    EXPECT_EQ(Journal(), (QStringList{u"  N°1 : "_s, u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s}));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmEquation, ShowsTheNextEquationAtOnceOnTheGreenBand)
{
    Open(kWaterThenCarbon);
    Answer(kWaterAnswer);

    EXPECT_EQ(window->windowTitle(), u"Equation n°2"_s);
    EXPECT_EQ(Species(0).text(), u"C"_s);
    EXPECT_EQ(Boxes(), u"|||||"_s);
    EXPECT_EQ(run.State().MaxScore, 10);
    ExpectBand(QColor::fromRgb(kGreen));
    EXPECT_EQ(window->grab().toImage().pixel(2, 2), kGreen);
    EXPECT_EQ(Plus(0).grab().toImage().pixel(1, 1), kGreen);
}

TEST_F(FrmEquation, EndsAFlashAfterASecondAndAHalf)
{
    Open(kWaterThenCarbon);
    Answer(kWaterAnswer);
    EXPECT_EQ(Flash().interval(), 1500);
    EXPECT_TRUE(Flash().isActive());
    EXPECT_FALSE(Other().isEnabled());

    Tick(Flash());

    ExpectBand(colours::kInfoTip);
    EXPECT_FALSE(Flash().isActive());
    EXPECT_TRUE(Other().isEnabled());
    EXPECT_EQ(window->focusWidget(), &Box(0));
}

TEST_F(FrmEquation, JudgesNothingDuringAFlash)
{
    Open(kWaterThenCarbon);
    Answer(kWaterAnswer);
    QTest::mouseClick(&Other(), Qt::LeftButton);

    EXPECT_EQ(run.State().Score, 5);
    EXPECT_EQ(window->windowTitle(), u"Equation n°2"_s);
    EXPECT_EQ(Journal().size(), 2);
}

TEST_F(FrmEquation, TakesTwoPointsForAWrongAnswerAndEmptiesTheBoxes)
{
    Open(kWater);
    state.Score = 5;
    Answer({u"3"_s, u""_s, u""_s, u"2"_s});

    EXPECT_EQ(Score().text(), u"3"_s);
    ExpectBand(QColor::fromRgb(kRed));
    EXPECT_EQ(window->grab().toImage().pixel(2, 2), kRed);
    EXPECT_TRUE(Flash().isActive());
    EXPECT_EQ(Flash().interval(), 1500);
    EXPECT_FALSE(Other().isEnabled());
    EXPECT_EQ(Boxes(), u"|||||"_s);
    EXPECT_TRUE(Box(0).isEnabled());
    EXPECT_TRUE(run.State().AnswerOpen);
    EXPECT_EQ(window->windowTitle(), u"Equation n°1"_s);
    EXPECT_EQ(Journal(), (QStringList{u"  N°1 : "_s, u"3 H2 +  O2 ---> 2 H2O : FAUX - Score : 3"_s}));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmEquation, CountsTheAtomsOfTheEmptiedBoxes)
{
    Open(kWater);
    state.Score = 5;
    Answer({u"3"_s, u""_s, u""_s, u"2"_s});

    EXPECT_EQ(Totals(run.Reactants()), u"H2 O2"_s);
}

TEST_F(FrmEquation, ShowsTheSolutionAtTheFirstMistakeOfARun)
{
    Open(kWater);
    Answer({u"3"_s});

    EXPECT_EQ(Score().text(), u"0"_s);
    ExpectBand(QColor::fromRgb(kRed));
    EXPECT_TRUE(Flash().isActive());
    EXPECT_EQ(Boxes(), u"2|1|0|2|0|0"_s); // the hidden ones hold the file's 0
    for (int slot = 0; slot < 6; ++slot)
        EXPECT_FALSE(Box(slot).isEnabled()) << slot;
    EXPECT_FALSE(run.State().AnswerOpen);
    EXPECT_EQ(Journal().last(), u"3 H2 +  O2 --->  H2O : FAUX - Score : 0"_s);
}

TEST_F(FrmEquation, LeavesTheShownSolutionUntilThePupilGoesOn)
{
    Open(kWaterThenCarbon);
    Answer({u"3"_s});
    Tick(Flash());

    EXPECT_EQ(Boxes(), u"2|1|0|2|0|0"_s);
    EXPECT_FALSE(Box(0).isEnabled());
    EXPECT_TRUE(Other().isEnabled());
    ExpectBand(colours::kInfoTip);
}

TEST_F(FrmEquation, MovesOnWithoutPointsBehindAShownSolution)
{
    Open(kWaterThenCarbon);
    Answer({u"3"_s});
    Tick(Flash());
    Click(Other());

    EXPECT_EQ(window->windowTitle(), u"Equation n°2"_s);
    EXPECT_EQ(Score().text(), u"0"_s);
    EXPECT_EQ(Boxes(), u"|||||"_s);
    EXPECT_TRUE(Box(0).isEnabled());
    EXPECT_TRUE(Other().isEnabled());
    EXPECT_FALSE(Flash().isActive());
    ExpectBand(colours::kInfoTip);
    EXPECT_TRUE(run.State().AnswerOpen);
    EXPECT_EQ(window->focusWidget(), &Box(0));
    EXPECT_EQ(Journal().mid(2),
              (QStringList{u"  N°1 : "_s, u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 0"_s}));
}

TEST_F(FrmEquation, JudgesTheEquationBehindAShownSolutionAfresh)
{
    Open(kWaterThenCarbon);
    Answer({u"3"_s});
    Tick(Flash());
    Click(Other());
    Answer(kNothing);

    EXPECT_EQ(Score().text(), u"5"_s);
}

TEST_F(FrmEquation, FallsFromFiveToZeroInThreeWrongAnswers)
{
    Open(kWaterThenCarbon);
    Answer(kWaterAnswer);
    ASSERT_EQ(Score().text(), u"5"_s);

    Answer({u"3"_s});
    EXPECT_EQ(Score().text(), u"3"_s);
    EXPECT_TRUE(run.State().AnswerOpen);
    Answer({u"3"_s});
    EXPECT_EQ(Score().text(), u"1"_s);
    EXPECT_TRUE(run.State().AnswerOpen);
    EXPECT_EQ(Boxes(), u"|||||"_s);
    Answer({u"3"_s});
    EXPECT_EQ(Score().text(), u"0"_s);
    EXPECT_FALSE(run.State().AnswerOpen);
    EXPECT_EQ(Boxes(), u"1|1|0|1|0|0"_s);
    EXPECT_EQ(Journal().size(), 8); // two lines an answer
}

TEST_F(FrmEquation, TakesEmptyBoxesForOneAndFillsThem)
{
    Open("C+O2=CO2/1,1,1\n");
    Click(Other());

    EXPECT_EQ(Score().text(), u"5"_s);
    EXPECT_EQ(Boxes(), u"1|1|1|1|1|1"_s); // no equation follows: they stay to be seen
    EXPECT_EQ(Journal().last(), u"1 C + 1 O2 ---> 1 CO2 : CORRECT - Score : 5"_s);
}

TEST_F(FrmEquation, SaysThatThereIsASimplerAnswer)
{
    Open(kWaterThenCarbon);
    state.Score = 3;
    Answer({u"4"_s, u"2"_s, u""_s, u"4"_s});

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"Votre résultat est correct,\n mais il y a plus simple !"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Information);
    EXPECT_EQ(run.State().Score, 3);
    EXPECT_FALSE(Flash().isActive());
    ExpectBand(colours::kInfoTip);
    EXPECT_TRUE(Other().isEnabled());
    EXPECT_EQ(window->windowTitle(), u"Equation n°1"_s);
    EXPECT_EQ(Box(0).text(), u"4"_s);
    EXPECT_EQ(Box(1).text(), u"2"_s);
    EXPECT_EQ(Box(3).text(), u"4"_s);
    EXPECT_EQ(window->focusWidget(), &Box(0));
    EXPECT_EQ(Journal(), (QStringList{u"  N°1 : "_s, u"4 H2 + 2 O2 ---> 4 H2O : FAUX - Score : 3"_s}));
}

TEST_F(FrmEquation, FillsTheEmptyBoxesBeforeItSaysThatThereIsASimplerAnswer)
{
    Open("O2=O3/3,2\n");
    Answer({u"6"_s, u""_s, u""_s, u"4"_s}); // twice 3 and 2

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(Boxes(), u"6|1|1|4|1|1"_s);
}

TEST_F(FrmEquation, SeesNoSimplerAnswerThanSixThreeNine)
{
    Open("H2S+SO2=S+H2O/2,1,3,2\n");
    // 2 divides 6 and not 3; 3 is not asked any more.
    Answer({u"6"_s, u"3"_s, u""_s, u"9"_s, u"6"_s});

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Score().text(), u"5"_s);
    EXPECT_EQ(Journal().last(), u"6 H2S + 3 SO2 ---> 9 S + 6 H2O : FAUX - Score : 5"_s);
}

TEST_F(FrmEquation, IsWrongWithoutAWordOnTheReasonWhenOnlyTheChargesDiffer)
{
    Open("Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\n");
    state.Score = 5;
    Click(Other()); // Fe 1 and Cu 1 on both sides, charges 3 and 2 + 2

    EXPECT_EQ(Score().text(), u"3"_s);
    ExpectBand(QColor::fromRgb(kRed));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmEquation, WritesTheSpeciesAsTheyAreShown)
{
    Open("Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\n");
    Answer({u"2"_s, u""_s, u""_s, u"2"_s});

    EXPECT_EQ(Species(0).text(), u"Fe3+"_s);
    EXPECT_EQ(Journal().last(), u"2 Fe3+ + 1 Cu ---> 2 Fe2+ + 1 Cu2+ : CORRECT - Score : 5"_s);
}

TEST_F(FrmEquation, WritesAnEmptySecondReactantAsABlank)
{
    Open("CaCO3=CaO+CO2/1,1,1\n");
    state.Score = 5;
    Answer({u"2"_s});

    // "2 CaCO3", " + ", nothing, a blank, nothing, " ---> ", nothing, a blank ...
    EXPECT_EQ(Journal().last(), u"2 CaCO3 +   --->  CaO +  CO2 : FAUX - Score : 3"_s);
}

TEST_F(FrmEquation, WritesThreeSpeciesOfEachSide)
{
    Open("K+Na+Li=K+Na+Li/1,1,1,1,1,1\n");
    Answer(kNothing);

    EXPECT_EQ(Journal().last(), u"1 K + 1 Na + 1 Li ---> 1 K + 1 Na + 1 Li : CORRECT - Score : 5"_s);
}

TEST_F(FrmEquation, TellsOnceThatTheJournalCannotBeWritten)
{
    Open(kWater);
    journal.Close();
    state.Score = 9;
    Answer({u"3"_s});
    Answer({u"3"_s});

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.contains(journal.Path()));
    EXPECT_EQ(Score().text(), u"5"_s); // the run goes on
}

TEST_F(FrmEquation, LetsATeacherShowTheSolutionAndThePupilEarnItsPoints)
{
    Open(kWater);
    window->ShowSolution();

    EXPECT_EQ(Boxes(), u"2|1|0|2|0|0"_s);
    EXPECT_TRUE(Box(0).isEnabled());
    EXPECT_TRUE(run.State().AnswerOpen);
    Click(Other());
    EXPECT_EQ(Score().text(), u"5"_s);
    EXPECT_EQ(Journal().last(), u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s);
}

TEST_F(FrmEquation, EmptiesItsBoxesAndCountsAgain)
{
    Open(kWater);
    Fill({u"4"_s, u"2"_s, u""_s, u"7"_s});
    window->EmptyCoefficients();

    EXPECT_EQ(Boxes(), u"|||||"_s);
    EXPECT_EQ(Totals(run.Reactants()), u"H2 O2"_s);
    EXPECT_EQ(Totals(run.Products()), u"H2 O1"_s);
}

TEST_F(FrmEquation, TellsOnceThatTheFileIsAtItsEnd)
{
    Open("H2+O2=H2O/2,1,2\n' the end\n");
    Answer(kWaterAnswer);

    EXPECT_EQ(ends, 1);
    EXPECT_EQ(window->windowTitle(), u"Equation n°1"_s);
}

TEST_F(FrmEquation, LeavesScoreAndJournalAloneOnceTheFileIsAtItsEnd)
{
    Open(kWater);
    Answer({u"9"_s});
    ASSERT_EQ(Boxes(), u"2|1|0|2|0|0"_s);
    Tick(Flash());
    QTest::mouseClick(&Other(), Qt::LeftButton);
    const QStringList written = Journal();

    // Nothing is left to be reached; what was on its way already does nothing either.
    EXPECT_FALSE(Other().isEnabled());
    EXPECT_FALSE(Box(0).isEnabled());
    Other().click();
    QTest::mouseClick(&Other(), Qt::LeftButton);
    window->ReadNextEquation();

    EXPECT_EQ(ends, 1);
    EXPECT_EQ(Score().text(), u"0"_s);
    EXPECT_EQ(Journal(), written);
}

TEST_F(FrmEquation, MayBeFreedInTheClickThatEndsTheFile)
{
    Open(kWater);
    frmEquation* const raw = window.get();
    QObject::connect(raw, &frmEquation::EndOfFileReached, [this, raw] {
        window.release()->hide();
        raw->deleteLater();
    });
    bool isFreed = false;
    QObject::connect(raw, &QObject::destroyed, [&isFreed] { isFreed = true; });

    Answer(kWaterAnswer);
    Settle();

    EXPECT_TRUE(isFreed);
    EXPECT_EQ(Journal().last(), u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s);
}

TEST_F(FrmEquation, DoesNothingWithoutAFile)
{
    Open(kWaterThenCarbon);
    run.Close();
    window->ReadNextEquation();

    EXPECT_EQ(ends, 0);
    EXPECT_EQ(window->windowTitle(), u"Equation n°1"_s);
    EXPECT_EQ(Species(0).text(), u"H2"_s);
}

TEST_F(FrmEquation, StartsASecondRunAtZero)
{
    Open(kWater);
    Answer(kWaterAnswer);
    ASSERT_EQ(Score().text(), u"5"_s);

    Open(kWater);

    EXPECT_EQ(Score().text(), u"0"_s);
    EXPECT_EQ(window->windowTitle(), u"Equation n°1"_s);
    EXPECT_EQ(run.State().MaxScore, 5);
}

TEST_F(FrmEquation, SaysTheVerdictInWordsToo)
{
    Open(kWaterThenCarbon);
    QLabel& verdict = Control<QLabel>(*window, "lblVerdict");
    EXPECT_EQ(verdict.text(), u""_s);

    Answer(kWaterAnswer);
    EXPECT_EQ(verdict.text(), u"Bonne réponse\u00A0: 5 points de plus."_s);
    Tick(Flash());
    EXPECT_EQ(verdict.text(), u""_s);
    Answer({u"2"_s});
    EXPECT_EQ(verdict.text(), u"Réponse fausse\u00A0: 2 points de moins."_s);
}

TEST_F(FrmEquation, ForgetsTheWordsOfAShownSolutionWhenItMovesOn)
{
    Open(kWaterThenCarbon);
    QLabel& verdict = Control<QLabel>(*window, "lblVerdict");
    Answer({u"2"_s}); // Wrong at a score of 0: the solution is shown.
    Tick(Flash());
    ASSERT_NE(verdict.text(), u""_s);
    EXPECT_TRUE(Other().hasFocus()) << "the boxes are disabled: the button is what goes on";

    Click(Other());

    EXPECT_EQ(window->windowTitle(), u"Equation n°2"_s);
    EXPECT_EQ(verdict.text(), u""_s);
}

TEST_F(FrmEquation, TellsOfTheMouseOverIt)
{
    const WindowEvents events;
    Open(kWater);
    int moved = 0;
    QObject::connect(&events, &WindowEvents::PointerMoved, window.get(), [&moved] { ++moved; });

    QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), window->mapToGlobal(QPointF(5, 5)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &move);

    EXPECT_EQ(moved, 1);
}

TEST_F(FrmEquation, LeavesItsClosingAndItsHelpToOthers)
{
    const WindowEvents events;
    Open(kWater);
    int closes = 0;
    int helps = 0;
    QObject::connect(window.get(), &Form::CloseAsked, window.get(), [&closes] { ++closes; });
    QObject::connect(&events, &WindowEvents::HelpRequested, window.get(), [&helps] { ++helps; });

    window->close();
    EXPECT_EQ(closes, 1);
    EXPECT_TRUE(window->isVisible());
    Press(Box(0), Qt::Key_F1);
    EXPECT_EQ(helps, 1);
}

} // namespace stoikal
