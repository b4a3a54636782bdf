#include "shell_fixture.h"

#include "shell/help_topics.h"
#include "shell/run_controller.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// 3 mol of C, 2 mol of O2: 1 mol of C is left, 2 mol of CO2 are made.
const QString kCarbon = u"C<s>+O2<g>=CO2<g>/1,1,1#Q3,Q2,Q0"_s;
/// 0.5 mol of limestone.
const QString kLime = u"CaCO3<s>=CaO<s>+CO2<g>/1,1,1#Q0.5,Q0,Q0"_s;

/// A pupil with a file of progress, through the menu and the real windows.
class ProgressOfAFile : public StartedShellTest
{
protected:
    void OpenProgressFile(const QStringList& lines, const char* option)
    {
        AnswerDialog(WriteEquations(lines, u"Avancement.Avt"_s), 1);
        if (State().pupil.NomEleve.isEmpty())
            IdentifyWhenAsked();
        script.On("frmChoixSimul", [option](QWidget& window) {
            Click(Control<QAbstractButton>(window, option));
            Click(Control<QAbstractButton>(window, "cmdChoix"));
        });
        Choose("Mnu_Open(1)");
        Settle();
    }
    void OpenSeries(const QStringList& lines) { OpenProgressFile(lines, "optSimul(0)"); }
    void OpenSimulation(const QStringList& lines) { OpenProgressFile(lines, "optSimul(1)"); }

    QLineEdit& Cell(const char* array, int slot)
    {
        return Control<QLineEdit>(Exercise(), qPrintable(ArrayName(array, slot)));
    }
    QAbstractButton& Button(const char* name) { return Control<QAbstractButton>(Exercise(), name); }
    QString Shown(const char* array, int slot) { return Cell(array, slot).text(); }

    /// Types a row from the left; an empty text leaves its box alone.
    void FillRow(const char* array, const QStringList& texts)
    {
        for (int slot = 0; slot < texts.size(); ++slot) {
            if (texts[slot].isEmpty())
                continue;
            Cell(array, slot).setFocus();
            Type(Cell(array, slot), texts[slot]);
        }
    }

    void AnswerMasses(const QStringList& masses)
    {
        FillRow("txtMasMol", masses);
        Click(Button("cmdValidMassMol"));
    }

    /// The table of `kCarbon`: 36.0, 64.0, 88.0 g and twice 44.8 L.
    void AnswerCarbonTable()
    {
        FillRow("txtMasse", {u"36"_s, u"64"_s, {}, u"88"_s});
        FillRow("txtVolGaz", {{}, u"44,8"_s, {}, u"44,8"_s});
        FillRow("txtQmatf", {u"1"_s, u"0"_s, {}, u"2"_s});
        Click(Button("cmdValidMVQ"));
    }

    /// The table of `kLime`: 50.0 g give 28.0 g and 22.0 g, 11.2 L.
    void AnswerLimeTable()
    {
        FillRow("txtMasse", {u"50"_s, {}, {}, u"28"_s, u"22"_s});
        FillRow("txtVolGaz", {{}, {}, {}, {}, u"11,2"_s});
        FillRow("txtQmatf", {u"0"_s, {}, {}, u"0,5"_s, u"0,5"_s});
        Click(Button("cmdValidMVQ"));
    }

    void SolveCarbon()
    {
        AnswerMasses({u"12"_s, u"32"_s, {}, u"44"_s});
        AnswerCarbonTable();
    }

    QString LastRun() { return JournalText().section(Hyphens() + u"\r\n"_s, -1); }
};

} // namespace

TEST_F(ProgressOfAFile, IsOpenedByItsOwnEntry)
{
    OpenSeries({kCarbon});

    EXPECT_EQ(Setting("Options", "Files by default"), u"AVT"_s);
    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.dialogs.asked[0].filter, 1);
    EXPECT_EQ(Exercise().windowTitle(), u"Equation n°1"_s);
    EXPECT_TRUE(Cell("txtMasMol", 0).isVisible());
    EXPECT_TRUE(Cell("txtMasMol", 0).hasFocus());
}

TEST_F(ProgressOfAFile, PlaysASeriesToItsMark)
{
    OpenSeries({kCarbon, kLime});
    SolveCarbon();
    Click(Button("cmdNext"));
    // 40 for CaO is wrong: 56.1.
    AnswerMasses({u"100"_s, {}, {}, u"40"_s, u"44"_s});
    EXPECT_EQ(Control<QLabel>(Exercise(), "lblScore").text(), u"8"_s);
    Cell("txtMasMol", 3).setFocus();
    Type(Cell("txtMasMol", 3), u"56"_s);
    Click(Button("cmdValidMassMol"));
    AnswerLimeTable();
    QString mark;
    script.On("frmNote", [&mark](QWidget& note) {
        mark = Control<QLabel>(note, "lblNote").text();
        Click(Control<QPushButton>(note, "cmdStay"));
    });

    Click(Button("cmdNext"));
    Settle();

    // 10 - 2 + 5 + 5 = 18 of 20.
    EXPECT_EQ(mark, u"Votre note est de : 18/20"_s);
    // No line per answer.
    EXPECT_EQ(LastRun(), u" -------> Note : 18,00/20 - Temps écoulé : 00,00 s\r\n"_s);
    EXPECT_EQ(TextOfFile(EquationFolder() + u"/HighScore.txt"_s),
              AsFileText({u"#Avancement.Avt"_s, u"DUPONT©18©0"_s}));
    ExpectFreeMode();
}

TEST_F(ProgressOfAFile, CountsNoTimeBetweenTwoEquations)
{
    OpenSeries({kCarbon, kCarbon});
    AnswerMasses({u"12"_s, u"32"_s, {}, u"44"_s});
    ClockReaches(200);
    AnswerCarbonTable();
    EXPECT_FALSE(Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono").isActive());
    EXPECT_DOUBLE_EQ(State().stopwatch.BankedSeconds, 20);
    ClockReaches(500);
    EXPECT_DOUBLE_EQ(State().stopwatch.ElapsedSeconds, 20);

    Click(Button("cmdNext"));
    ClockReaches(550);
    EXPECT_DOUBLE_EQ(State().stopwatch.ElapsedSeconds, 25);
    SolveCarbon();
    ClockReaches(900);
    PressInNote("cmdStay");
    Click(Button("cmdNext"));
    Settle();

    EXPECT_EQ(LastRun(), u" -------> Note : 20,00/20 - Temps écoulé : 25,00 s\r\n"_s);
}

TEST_F(ProgressOfAFile, StopsTheClockWhenTheSolutionIsGivenToo)
{
    OpenSeries({kCarbon});
    AnswerMasses({u"1"_s, u"1"_s, {}, u"1"_s});
    EXPECT_TRUE(Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono").isActive());
    ClockReaches(70);
    FillRow("txtMasse", {u"1"_s, u"1"_s, {}, u"1"_s});
    FillRow("txtVolGaz", {{}, u"1"_s, {}, u"1"_s});
    FillRow("txtQmatf", {u"1"_s, u"1"_s, {}, u"1"_s});
    Click(Button("cmdValidMVQ"));

    EXPECT_EQ(Shown("txtMasse", 0), u"36,0"_s);
    EXPECT_FALSE(Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono").isActive());
    EXPECT_DOUBLE_EQ(State().stopwatch.BankedSeconds, 7);
    EXPECT_EQ(Control<QLabel>(Exercise(), "lblScore").text(), u"0"_s);
}

TEST_F(ProgressOfAFile, PlaysAFreeSimulationToItsEnd)
{
    OpenSimulation({kCarbon, kLime});
    EXPECT_EQ(Shown("txtQmatf", 3), u"2,0"_s);
    Cell("txtQmat0", 1).setFocus();
    Cell("txtQmat0", 1).selectAll();
    Type(Cell("txtQmat0", 1), u"0,5"_s);
    Click(Button("cmdValidMVQ"));
    EXPECT_EQ(Shown("txtQmatf", 3), u"0,50"_s);
    Click(Button("cmdNext"));
    EXPECT_EQ(Shown("txtQmat0", 0), u"0,50"_s);
    bool hasMark = true;
    script.On("frmNote", [&hasMark](QWidget& note) {
        hasMark = Control<QLabel>(note, "lblNote").isVisible();
        Click(Control<QPushButton>(note, "cmdStay"));
    });

    Click(Button("cmdNext"));
    Settle();

    EXPECT_FALSE(hasMark);
    EXPECT_EQ(LastRun(), QString());
    EXPECT_FALSE(QFileInfo::exists(EquationFolder() + u"/HighScore.txt"_s));
    ExpectFreeMode();
}

TEST_F(ProgressOfAFile, StartsAgainFromZero)
{
    OpenSeries({kCarbon});
    SolveCarbon();
    AnswerDialog(EquationFolder() + u"/Avancement.Avt"_s, 1);
    PressInNote("cmdAgain");
    script.On("frmChoixSimul", [](QWidget& window) { Click(Control<QAbstractButton>(window, "cmdChoix")); });

    Click(Button("cmdNext"));
    Settle();

    EXPECT_EQ(Control<QLabel>(Exercise(), "lblScore").text(), u"0"_s);
    EXPECT_EQ(State().stopwatch.BankedSeconds, 0);
    EXPECT_EQ(Shown("txtMasMol", 0), QString());
    EXPECT_TRUE(Cell("txtMasMol", 0).isEnabled());
}

TEST_F(ProgressOfAFile, OpensTheDrawingsAndTakesThemAway)
{
    OpenSimulation({kCarbon, kLime});
    EXPECT_EQ(FindWindow("frmHistoMol"), nullptr);

    Click(Button("chkHistoMol"));
    ASSERT_NE(FindWindow("frmHistoMol"), nullptr);
    EXPECT_EQ(Control<QLabel>(*FindWindow("frmHistoMol"), "lblMaxEtat").text(), u"2,00 mol"_s);

    Click(Button("chkHistoMol"));
    Settle();
    EXPECT_EQ(FindWindow("frmHistoMol"), nullptr);
}

TEST_F(ProgressOfAFile, UnticksTheBoxOfDrawingsThatAreClosed)
{
    OpenSimulation({kCarbon});
    Click(Button("chkHistoMol"));

    FindWindow("frmHistoMol")->close();
    Settle();

    EXPECT_EQ(FindWindow("frmHistoMol"), nullptr);
    EXPECT_FALSE(Button("chkHistoMol").isChecked());
    Click(Button("chkHistoMol"));
    EXPECT_NE(FindWindow("frmHistoMol"), nullptr);
}

TEST_F(ProgressOfAFile, TakesTheDrawingsAwayAtTheNextEquationAndAtTheEnd)
{
    OpenSimulation({kCarbon, kLime});
    Click(Button("chkHistoMol"));
    Click(Button("cmdNext"));
    Settle();
    EXPECT_EQ(FindWindow("frmHistoMol"), nullptr);

    Click(Button("chkHistoMol"));
    messages.answers = {QMessageBox::Yes};
    Choose("Mnu_Close");
    Settle();
    EXPECT_EQ(FindWindow("frmHistoMol"), nullptr);
    ExpectFreeMode();
}

TEST_F(ProgressOfAFile, RefreshesTheDrawingsAfterAValidation)
{
    OpenSimulation({kCarbon});
    Click(Button("chkHistoMol"));
    Cell("txtQmat0", 1).setFocus();
    Cell("txtQmat0", 1).selectAll();
    Type(Cell("txtQmat0", 1), u"0,5"_s);

    Click(Button("cmdValidMVQ"));

    EXPECT_EQ(Control<QLabel>(*FindWindow("frmHistoMol"), "lblMaxEtat").text(), u"0,500 mol"_s);
}

TEST_F(ProgressOfAFile, MasksTheExerciseFromTheDrawings)
{
    OpenSimulation({kCarbon});
    Click(Button("chkHistoMol"));
    auto& mask = Control<QAbstractButton>(*FindWindow("frmHistoMol"), "chkMask");

    Click(mask);
    EXPECT_FALSE(Exercise().isVisible());
    Click(mask);
    EXPECT_TRUE(Exercise().isVisible());
}

TEST_F(ProgressOfAFile, UnticksTheMaskWhenAClosingIsRefused)
{
    OpenSimulation({kCarbon});
    Click(Button("chkHistoMol"));
    auto& mask = Control<QAbstractButton>(*FindWindow("frmHistoMol"), "chkMask");
    Click(mask);
    messages.answers = {QMessageBox::No};

    Choose("Mnu_Close");

    EXPECT_TRUE(Exercise().isVisible());
    EXPECT_FALSE(mask.isChecked());
    EXPECT_NE(FindWindow("frmHistoMol"), nullptr);
}

TEST_F(ProgressOfAFile, OpensTheMolarMassesByItsBoxAndByTheMenu)
{
    OpenSeries({kCarbon});

    Click(Button("chkDataMol"));
    EXPECT_NE(FindWindow("frmMassMol"), nullptr);
    EXPECT_TRUE(Entry("Mnu_MassMol").isChecked());

    Choose("Mnu_MassMol");
    Settle();
    EXPECT_EQ(FindWindow("frmMassMol"), nullptr);
    EXPECT_FALSE(Button("chkDataMol").isChecked());

    Choose("Mnu_MassMol");
    EXPECT_TRUE(Button("chkDataMol").isChecked());
    FindWindow("frmMassMol")->close();
    Settle();
    EXPECT_EQ(FindWindow("frmMassMol"), nullptr);
    EXPECT_FALSE(Button("chkDataMol").isChecked());
    EXPECT_FALSE(Entry("Mnu_MassMol").isChecked());
}

TEST_F(ProgressOfAFile, ShowsANewMolarVolumeInAFreeSimulationAtOnce)
{
    OpenSimulation({kCarbon});
    Click(Button("chkDataMol"));
    QWidget& window = *FindWindow("frmMassMol");
    // 1013 hPa and 0 °C: 1000 x 8.314472 x 273.15 / 101300 = 22.42; twice that is 44.8.
    EXPECT_EQ(Shown("txtVolGaz", 1), u"44,8"_s);
    auto& temperature = Control<QLineEdit>(window, "txtData(1)");
    temperature.setFocus();
    temperature.selectAll();
    Type(temperature, u"20"_s);

    Click(Control<QAbstractButton>(window, "cmdCalcul"));

    // 8.314472 x 293.15 / 101.3 = 24.06; twice that is 48.1.
    EXPECT_EQ(Shown("txtVolGaz", 1), u"48,1"_s);
    EXPECT_EQ(Shown("txtQmat0", 1), u"2,0"_s);
}

TEST_F(ProgressOfAFile, TellsAMolarVolumeThatNothingCanBeComputedWith)
{
    OpenSeries({u"C<s>+O2<g>=CO2<g>/1,1,1#Q0,V44.8"_s});
    AnswerMasses({u"12"_s, u"32"_s, {}, u"44"_s});
    // 44.8 L of a gas of 10^100 L/mol are as good as nothing.
    EXPECT_TRUE(shell->UserSettings().Write(u"Données"_s, u"Volume molaire"_s, u"1"_s + QString(100, u'0')));

    Q_EMIT shell->MolarMasses().GasDataChanged();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.contains(u"l'avancement maximal est nul ou trop petit."_s));
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    // The truth stays: 2 mol.
    FillRow("txtMasse", {u"24"_s, u"64"_s, {}, u"88"_s});
    FillRow("txtVolGaz", {{}, {}, {}, u"44,8"_s});
    FillRow("txtQmat0", {u"2"_s, u"2"_s});
    FillRow("txtQmatf", {u"0"_s, u"0"_s, {}, u"2"_s});
    Click(Button("cmdValidMVQ"));
    EXPECT_EQ(Control<QLabel>(Exercise(), "lblScore").text(), u"10"_s);
}

TEST_F(ProgressOfAFile, KeepsTheTableWhenTheMolarMassesOpenOverABalancingFile)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    Choose("Mnu_MassMol");
    EXPECT_NE(FindWindow("frmMassMol"), nullptr);
    Choose("Mnu_MassMol");

    EXPECT_EQ(FindWindow("frmMassMol"), nullptr);
    EXPECT_FALSE(Cell("txtMasMol", 0).isVisible());
}

TEST_F(ProgressOfAFile, OpensTheHelpOfTheDrawings)
{
    OpenSimulation({kCarbon});
    Click(Button("chkHistoMol"));
    int topic = 0;
    QObject::connect(&shell->Events(), &WindowEvents::HelpRequested,
                     [&topic](const QString& name) { topic = help_topics::TopicOf(name).value_or(-1); });

    Press(*FindWindow("frmHistoMol"), Qt::Key_F1);

    EXPECT_EQ(topic, 1600);
}

} // namespace stoikal
