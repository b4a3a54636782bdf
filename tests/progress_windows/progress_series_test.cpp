#include "progress_windows/progress_bench.h"

#include "base/fatal_fault.h"
#include "forms/colours.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A line with a datum of each kind; the water's volume is not asked.
const QByteArray kMixed("CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#M8,V26.88,Q0,Q0\n");

using ProgressSeries = ProgressBench;

} // namespace

TEST_F(ProgressSeries, BeginsWithTheMolarMasses)
{
    OpenSeries(kCarbon);

    EXPECT_EQ(Instruction(), u"Calculez les masses molaires moléculaires"_s);
    EXPECT_EQ(Row("txtMasMol"), u"|||||"_s);
    EXPECT_EQ(Open("txtMasMol"), u"0 1 3"_s);
    EXPECT_EQ(Cell("txtMasMol", 1).toolTip(), u"Saisissez ici la masse molaire de la molécule O2"_s);
    EXPECT_FALSE(ValidateMasses().isEnabled());
    EXPECT_FALSE(ValidateTable().isEnabled());
    EXPECT_FALSE(Next().isVisible());
    EXPECT_FALSE(Drawings().isVisible());
    EXPECT_TRUE(Cell("txtMasMol", 0).hasFocus());
}

TEST_F(ProgressSeries, ShowsTheGivenDataInClosedBoxes)
{
    OpenSeries(kMixed);

    EXPECT_EQ(Row("txtMasse"), u"8|||||"_s);
    EXPECT_EQ(Row("txtVolGaz"), u"|26.88||||"_s);
    EXPECT_EQ(Row("txtQmat0"), u"|||0|0|"_s);
    EXPECT_EQ(Row("txtQmati"), u"ni(0)-1*xmax|ni(1)-2*xmax||1*xmax|2*xmax|"_s);
    EXPECT_EQ(Row("txtQmatf"), u"|||||"_s);
    for (const char* const array : {"txtMasse", "txtVolGaz", "txtQmat0", "txtQmati", "txtQmatf"})
        EXPECT_EQ(Open(array), QString()) << array;
}

TEST_F(ProgressSeries, EnablesTheFirstButtonOnceEachMassIsANumberOtherThanZero)
{
    OpenSeries(kCarbon);
    FillRow("txtMasMol", {u"12"_s, u"32"_s});
    EXPECT_FALSE(ValidateMasses().isEnabled());
    Type(Cell("txtMasMol", 3), u"0,0"_s);
    EXPECT_FALSE(ValidateMasses().isEnabled());

    Type(Cell("txtMasMol", 3), u"1"_s);
    EXPECT_TRUE(ValidateMasses().isEnabled());

    Press(Cell("txtMasMol", 3), Qt::Key_Backspace);
    EXPECT_FALSE(ValidateMasses().isEnabled());
}

TEST_F(ProgressSeries, OpensTheTableForTheRightMolarMasses)
{
    OpenSeries(kCarbon);

    AnswerMasses({u"12"_s, u"32,0"_s, {}, u"44.01"_s});

    EXPECT_EQ(run.State().Score, 5);
    EXPECT_EQ(Score().text(), u"5"_s);
    ExpectBand(colours::kFlashRight);
    EXPECT_TRUE(Flash().isActive());
    EXPECT_EQ(Flash().interval(), 1500);
    EXPECT_EQ(Open("txtMasMol"), QString());
    EXPECT_EQ(Red("txtMasMol"), QString());
    EXPECT_FALSE(ValidateMasses().isEnabled());
    EXPECT_EQ(Instruction(), u"Complétez le tableau d'avancement"_s);
    EXPECT_EQ(equationsDone, 0);
    EXPECT_FALSE(Next().isVisible());
}

TEST_F(ProgressSeries, AsksForWhatIsNotGivenAndForVolumesOfGases)
{
    OpenSeries(kMixed);

    AnswerMasses({u"16"_s, u"32"_s, {}, u"44"_s, u"18"_s});

    EXPECT_EQ(Open("txtMasse"), u"1 3 4"_s);
    EXPECT_EQ(Open("txtVolGaz"), u"0 3"_s);
    EXPECT_EQ(Open("txtQmat0"), u"0 1"_s);
    EXPECT_EQ(Open("txtQmati"), QString());
    EXPECT_EQ(Open("txtQmatf"), u"0 1 3 4"_s);
    EXPECT_TRUE(Cell("txtMasse", 1).hasFocus());
}

TEST_F(ProgressSeries, GreysTheVolumeOfWhatIsNoGas)
{
    OpenSeries(kMixed);

    EXPECT_EQ(Cell("txtVolGaz", 4).palette().color(QPalette::Base), QColor(0xE0, 0xE0, 0xE0));
    // A gas has a white one, before it can be typed in too.
    ASSERT_FALSE(Cell("txtVolGaz", 3).isEnabled());
    EXPECT_EQ(Cell("txtVolGaz", 3).palette().color(QPalette::Base), QColor(Qt::white));

    AnswerMasses({u"16"_s, u"32"_s, {}, u"44"_s, u"18"_s});
    EXPECT_EQ(Cell("txtVolGaz", 3).palette().color(QPalette::Base), QColor(Qt::white));
}

TEST_F(ProgressSeries, FlashesForTheTimeOfTheTimer)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();

    Tick(Flash());

    ExpectBand(colours::kInfoTip);
    EXPECT_FALSE(Flash().isActive());
}

TEST_F(ProgressSeries, LeavesTheKeyboardWhereItIsWhenTheFlashEnds)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    Cell("txtQmatf", 3).setFocus();

    Tick(Flash());

    EXPECT_TRUE(Cell("txtQmatf", 3).hasFocus());
}

TEST_F(ProgressSeries, StaysWithWrongMolarMassesWhilePointsAreLeft)
{
    OpenSeries(kCarbon + kCarbon);
    PassMassesOfCarbon();
    FillCarbon();
    Click(ValidateTable());
    Click(Next());
    ASSERT_EQ(run.State().Score, 10);

    AnswerMasses({u"12"_s, u"16"_s, {}, u"44"_s});

    EXPECT_EQ(Score().text(), u"8"_s);
    ExpectBand(colours::kFlashWrong);
    EXPECT_EQ(Red("txtMasMol"), u"1"_s);
    EXPECT_EQ(Row("txtMasMol"), u"12|16||44||"_s);
    EXPECT_EQ(Open("txtMasMol"), u"0 1 3"_s);
    EXPECT_EQ(Open("txtMasse"), QString());

    AnswerMasses({{}, u"32"_s});
    EXPECT_EQ(Score().text(), u"13"_s);
    EXPECT_EQ(Red("txtMasMol"), QString());
    EXPECT_EQ(Open("txtMasse"), u"0 1 3"_s);
}

TEST_F(ProgressSeries, TurnsARedValueBlackWhenThePupilComesToIt)
{
    OpenSeries(kCarbon + kCarbon);
    PassMassesOfCarbon();
    FillRow("txtMasse", {u"1"_s, u"1"_s, {}, u"1"_s});
    FillRow("txtVolGaz", {{}, u"44,8"_s, {}, u"44,8"_s});
    FillRow("txtQmatf", {u"1"_s, u"0"_s, {}, u"2"_s});
    Click(ValidateTable());
    ASSERT_EQ(Red("txtMasse"), u"0 1 3"_s);

    Cell("txtMasse", 1).setFocus();

    EXPECT_EQ(Red("txtMasse"), u"0 3"_s);
}

TEST_F(ProgressSeries, GivesTheMolarMassesWhenTheScoreFallsToZero)
{
    OpenSeries(kCarbon);

    AnswerMasses({u"12"_s, u"16"_s, {}, u"28"_s});

    EXPECT_EQ(Score().text(), u"0"_s);
    ExpectBand(colours::kFlashWrong);
    // The true values stand in the place of the red ones alone, with one decimal.
    EXPECT_EQ(Row("txtMasMol"), u"12|32,0||44,0||"_s);
    EXPECT_EQ(Red("txtMasMol"), u"1 3"_s);
    EXPECT_EQ(Open("txtMasMol"), QString());
    EXPECT_FALSE(ValidateMasses().isEnabled());
    EXPECT_EQ(Instruction(), u"Complétez le tableau d'avancement"_s);
    EXPECT_EQ(Open("txtMasse"), u"0 1 3"_s);
    EXPECT_EQ(equationsDone, 0);
}

TEST_F(ProgressSeries, EnablesTheSecondButtonOnceTheTableIsComplete)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    FillRow("txtMasse", {u"36"_s, u"64"_s, {}, u"88"_s});
    FillRow("txtVolGaz", {{}, u"44,8"_s, {}, u"44,8"_s});
    FillRow("txtQmatf", {u"1"_s, u"0"_s});
    EXPECT_FALSE(ValidateTable().isEnabled());

    Type(Cell("txtQmatf", 3), u"2"_s);
    EXPECT_TRUE(ValidateTable().isEnabled());
}

TEST_F(ProgressSeries, LeavesTheSecondButtonWhenABoxIsEmptiedAgain)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    FillCarbon();

    Cell("txtQmatf", 3).setFocus();
    Press(Cell("txtQmatf", 3), Qt::Key_Backspace);
    ASSERT_EQ(Cell("txtQmatf", 3).text(), QString());
    EXPECT_TRUE(ValidateTable().isEnabled());
    Click(ValidateTable());

    // An empty box is 0, and 2 mol were made.
    EXPECT_EQ(Red("txtQmatf"), u"3"_s);
    EXPECT_EQ(run.State().Score, 3);
}

TEST_F(ProgressSeries, PassesATableThatIsRight)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    FillCarbon();

    Click(ValidateTable());

    EXPECT_EQ(Score().text(), u"10"_s);
    EXPECT_EQ(run.State().MaxScore, 10);
    ExpectBand(colours::kFlashRight);
    EXPECT_EQ(equationsDone, 1);
    for (const char* const array : {"txtMasse", "txtVolGaz", "txtQmat0", "txtQmatf"})
        EXPECT_EQ(Open(array), QString()) << array;
    EXPECT_EQ(Row("txtMasse"), u"36|64||88||"_s);
    EXPECT_FALSE(ValidateTable().isEnabled());
    EXPECT_TRUE(Next().isVisible());
    EXPECT_TRUE(Next().hasFocus());
    EXPECT_TRUE(Drawings().isVisible());
    EXPECT_TRUE(Drawings().isEnabled());
    EXPECT_FALSE(Drawings().isChecked());
}

TEST_F(ProgressSeries, AllowsFivePercentInTheTable)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    // 36.03 - 34.3 is 4.8 %, 64.0 + 3.1 4.8 %; 0.04 for the O2 that is used up.
    FillRow("txtMasse", {u"34,3"_s, u"67,1"_s, {}, u"88"_s});
    FillRow("txtVolGaz", {{}, u"47"_s, {}, u"42,6"_s});
    FillRow("txtQmatf", {u"1,05"_s, u"0,04"_s, {}, u"1,9"_s});

    Click(ValidateTable());

    EXPECT_EQ(Score().text(), u"10"_s);
}

TEST_F(ProgressSeries, ShowsEachWrongValueOfATableInRed)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    // 33 is 8 % off, 0.06 too much of nothing.
    FillRow("txtMasse", {u"33"_s, u"64"_s, {}, u"88"_s});
    FillRow("txtVolGaz", {{}, u"44,8"_s, {}, u"22,4"_s});
    FillRow("txtQmatf", {u"1"_s, u"0,06"_s, {}, u"2"_s});

    Click(ValidateTable());

    EXPECT_EQ(Score().text(), u"3"_s);
    ExpectBand(colours::kFlashWrong);
    EXPECT_EQ(Red("txtMasse"), u"0"_s);
    EXPECT_EQ(Red("txtVolGaz"), u"3"_s);
    EXPECT_EQ(Red("txtQmatf"), u"1"_s);
    EXPECT_EQ(Row("txtMasse"), u"33|64||88||"_s);
    EXPECT_EQ(equationsDone, 0);
    EXPECT_FALSE(Next().isVisible());
}

TEST_F(ProgressSeries, PassesACorrectedTable)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    FillCarbon();
    FillRow("txtMasse", {u"33"_s});
    Click(ValidateTable());
    ASSERT_EQ(run.State().Score, 3);

    FillRow("txtMasse", {u"36"_s});
    Click(ValidateTable());

    EXPECT_EQ(run.State().Score, 8);
    EXPECT_EQ(equationsDone, 1);
}

TEST_F(ProgressSeries, GivesTheTableWhenTheScoreFallsToZero)
{
    OpenSeries(kCarbon);
    AnswerMasses({u"12"_s, u"16"_s, {}, u"28"_s});
    FillCarbon();
    FillRow("txtMasse", {u"33"_s});

    Click(ValidateTable());

    EXPECT_EQ(run.State().Score, 0);
    // 36.0321, 63.9976, 88.019 g; 44.8 L.
    EXPECT_EQ(Row("txtMasse"), u"36,0|64,0||88,0||"_s);
    EXPECT_EQ(Row("txtVolGaz"), u"|44,8||44,8||"_s);
    EXPECT_EQ(Row("txtQmat0"), u"3,0|2,0||0||"_s);
    EXPECT_EQ(Row("txtQmati"), u"3,0-1*xmax|2,0-1*xmax||1*xmax||"_s);
    EXPECT_EQ(Row("txtQmatf"), u"1,00|0||2,0||"_s);
    for (const char* const array : {"txtMasse", "txtVolGaz", "txtQmat0", "txtQmatf"})
        EXPECT_EQ(Open(array), QString()) << array;
    EXPECT_FALSE(ValidateTable().isEnabled());
    EXPECT_TRUE(Next().isVisible());
    EXPECT_TRUE(Drawings().isVisible());
    EXPECT_EQ(equationsDone, 1);
}

TEST_F(ProgressSeries, ShowsTheIntermediateStateOfATypedAmount)
{
    OpenSeries(kMixed);
    AnswerMasses({u"16"_s, u"32"_s, {}, u"44"_s, u"18"_s});

    Type(Cell("txtQmat0", 0), u"0,5"_s);
    EXPECT_EQ(Cell("txtQmati", 0).text(), u"0,5-1*xmax"_s);
    Press(Cell("txtQmat0", 0), Qt::Key_Backspace);
    EXPECT_EQ(Cell("txtQmati", 0).text(), u"ni(0)-1*xmax"_s);
    Press(Cell("txtQmat0", 0), Qt::Key_Backspace);
    Press(Cell("txtQmat0", 0), Qt::Key_Backspace);
    EXPECT_EQ(Cell("txtQmati", 0).text(), u"ni(0)-1*xmax"_s);
}

TEST_F(ProgressSeries, GoesOnToTheNextEquationAllInBlack)
{
    OpenSeries(kCarbon + "CaCO3<s>=CaO<s>+CO2<g>/1,1,1#Q0.5\n");
    AnswerMasses({u"12"_s, u"16"_s, {}, u"28"_s});
    FillCarbon();
    FillRow("txtMasse", {u"33"_s});
    Click(ValidateTable());
    ASSERT_EQ(Red("txtMasse"), u"0"_s);

    Click(Next());

    EXPECT_EQ(window->windowTitle(), u"Equation n°2"_s);
    EXPECT_EQ(run.State().MaxScore, 20);
    for (const char* const array : {"txtMasMol", "txtMasse", "txtVolGaz", "txtQmat0", "txtQmatf"})
        EXPECT_EQ(Red(array), QString()) << array;
    EXPECT_EQ(Row("txtMasMol"), u"|||||"_s);
    EXPECT_EQ(Row("txtMasse"), u"|||||"_s);
    EXPECT_EQ(Open("txtMasMol"), u"0 3 4"_s);
    EXPECT_EQ(Row("txtQmati"), u"0.5-1*xmax|||1*xmax|1*xmax|"_s);
    EXPECT_FALSE(Next().isVisible());
    EXPECT_FALSE(Drawings().isVisible());
    EXPECT_FALSE(ValidateTable().isEnabled());
    EXPECT_EQ(Instruction(), u"Calculez les masses molaires moléculaires"_s);
    EXPECT_TRUE(Cell("txtMasMol", 0).hasFocus());
}

TEST_F(ProgressSeries, UnchecksTheDrawingsAtTheNextEquation)
{
    OpenSeries(kCarbon + kCarbon);
    PassMassesOfCarbon();
    FillCarbon();
    Click(ValidateTable());
    Click(Drawings());
    ASSERT_EQ(drawingsToggled, QList<int>({1}));

    Click(Next());

    EXPECT_FALSE(Drawings().isChecked());
    EXPECT_EQ(drawingsToggled, QList<int>({1, 0}));
}

TEST_F(ProgressSeries, EndsALineWithoutDataWithItsMolarMasses)
{
    OpenSeries("'Voir #2\nC+O2=CO2/1,1,1\n");

    PassMassesOfCarbon();

    EXPECT_EQ(run.State().Score, 5);
    EXPECT_EQ(run.State().MaxScore, 5);
    EXPECT_EQ(equationsDone, 1);
    EXPECT_TRUE(Next().isVisible());
    EXPECT_EQ(Open("txtMasse"), QString());
    EXPECT_FALSE(ValidateTable().isEnabled());
    EXPECT_FALSE(Drawings().isEnabled());
    EXPECT_EQ(Instruction(), u"Pas de données\u00A0: passez à l'équation suivante"_s);
}

TEST_F(ProgressSeries, EndsALineWithoutDataAtAScoreOfZeroToo)
{
    OpenSeries("'Voir #2\nC+O2=CO2/1,1,1\n");

    AnswerMasses({u"12"_s, u"16"_s, {}, u"44"_s});

    EXPECT_EQ(Row("txtMasMol"), u"12|32,0||44||"_s);
    EXPECT_EQ(equationsDone, 1);
    EXPECT_EQ(run.State().Score, 0);
}

TEST_F(ProgressSeries, JudgesAVolumeByTheSettingOfTheMolarVolume)
{
    SetMolarVolume(u"24"_s);
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    FillCarbon();
    // 2 x 24 = 48, and 44.8 is 6.7 % off.
    Click(ValidateTable());
    EXPECT_EQ(Red("txtVolGaz"), u"1 3"_s);

    FillRow("txtVolGaz", {{}, u"48"_s, {}, u"48"_s});
    Click(ValidateTable());
    EXPECT_EQ(equationsDone, 1);
}

TEST_F(ProgressSeries, FollowsANewMolarVolumeWithItsTruthAlone)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();
    FillCarbon();
    const QString before = Row("txtVolGaz");

    SetMolarVolume(u"24"_s);
    pane->FollowMolarVolume();

    EXPECT_EQ(Row("txtVolGaz"), before);
    EXPECT_DOUBLE_EQ(pane->Table().Volume[1], 48);
    Click(ValidateTable());
    EXPECT_EQ(Red("txtVolGaz"), u"1 3"_s);
}

TEST_F(ProgressSeries, NamesAnUnknownAtomWithTheExerciseOutOfTheWay)
{
    bool isHidden = false;
    messages.whileOpen = [this, &isHidden](const Message& message) {
        if (message.title == u"Symbole d'atome inconnu"_s)
            isHidden = !window->isVisible();
    };
    OpenSeries(kCarbon + "Xy<s>+O2<g>=CO2<g>/1,1,1#Q1\n");
    PassMassesOfCarbon();
    FillCarbon();
    Click(ValidateTable());
    messages.shown.clear();

    Click(Next());

    QStringList titles;
    for (const Message& message : messages.shown)
        titles << message.title;
    // One for the molar mass, one for the composition of the atoms.
    EXPECT_EQ(titles,
              QStringList({u"Symbole d'atome inconnu"_s, u"Stoikal - Erreur dans le fichier chimie.Equ"_s}));
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    EXPECT_TRUE(
        messages.shown[0].text.startsWith(u"Le symbole 'Xy' n'est pas le symbole d'un atome connu."_s));
    EXPECT_TRUE(isHidden);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ProgressSeries, EndsAtACoefficientOfZeroInTheFile)
{
    EXPECT_THROW(OpenSeries("C<s>+O2<g>=CO2<g>/1,0,1#Q3\n"), FatalFault);
}

TEST_F(ProgressSeries, ReturnsFromTheDataToTheFirstMolarMass)
{
    OpenSeries(kCarbon);
    Click(Data());
    EXPECT_EQ(dataToggled, QList<int>({1}));
    Cell("txtMasMol", 3).setFocus();

    pane->SetShowsData(false);

    EXPECT_EQ(dataToggled, QList<int>({1, 0}));
    EXPECT_TRUE(Cell("txtMasMol", 0).hasFocus());
    pane->SetShowsData(false);
    EXPECT_EQ(dataToggled.size(), 2);
}

} // namespace stoikal
