#include "shell_fixture.h"

#include "shell/help_topics.h"

#include <QGroupBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The tools of the main area, chosen from the menu.
class Tools : public StartedShellTest
{
protected:
    void SetUp() override
    {
        StartedShellTest::SetUp();
        shell->MainWindow().activateWindow();
        Settle();
    }

    /// A tool that is open, shown or hidden.
    QWidget& Tool(const char* name) { return Control<QWidget>(shell->MainWindow(), name); }

    bool IsOpen(const char* name)
    {
        return shell->MainWindow().findChild<QWidget*>(QLatin1String(name)) != nullptr;
    }

    QLineEdit& Molecule(const char* tool, int position)
    {
        return Control<QLineEdit>(Tool(tool), qPrintable(ArrayName("txtMolecule", position)));
    }

    QString ListText(const char* tool)
    {
        return Control<QPlainTextEdit>(Tool(tool), "txtResult").toPlainText();
    }

    void Fill(const char* tool, const QStringList& molecules)
    {
        for (int position = 0; position < molecules.size(); ++position) {
            if (!molecules.at(position).isEmpty())
                Type(Molecule(tool, position), molecules.at(position));
        }
    }

    void Push(const char* tool, const char* button) { Click(Control<QAbstractButton>(Tool(tool), button)); }

    /// Closes the window in the main area, as its title bar does.
    void CloseByTitleBar(const char* tool)
    {
        Tool(tool).parentWidget()->close();
        Settle();
    }

    void ChooseAndSettle(const char* entry)
    {
        Choose(entry);
        Settle();
    }

    /// Types an equation that is searched for, with something done meanwhile.
    template <typename Work>
    void SearchCoefficientsAnd(Work work)
    {
        Choose("Mnu_Balance");
        Fill("frmExpert", {u"H2"_s, u"O2"_s, u"H2O2"_s, u"H2O"_s});
        QTimer::singleShot(0, shell.get(), [this, work] {
            wasSearching = Control<QWidget>(Tool("frmExpert"), "pgbCompteur").isVisible();
            work();
        });
        Push("frmExpert", "cmdBalance");
    }

    /// Gathers the equations with hydrogen in a file of that name.
    void Gather(const QString& name = u"Hydrogène.Equ"_s)
    {
        Choose("Mnu_Search");
        Fill("frmSearch", {u"H2"_s});
        Push("frmSearch", "chkSave");
        AnswerDialog(EquationFolder() + u'/' + name);
        Push("frmSearch", "cmdSearch");
        Settle();
    }

    void ExpectQuestion(size_t index, const QString& text, QMessageBox::Icon icon)
    {
        ASSERT_GT(messages.shown.size(), index);
        EXPECT_EQ(messages.shown[index].title, u"Ouvrir un fichier"_s);
        EXPECT_EQ(messages.shown[index].text, text);
        EXPECT_EQ(messages.shown[index].icon, icon);
        EXPECT_EQ(messages.shown[index].buttons, QMessageBox::Yes | QMessageBox::No);
    }

    bool wasSearching = false;
    const QString wantsIt = u"Souhaitez-vous ouvrir le fichier Hydrogène.Equ que vous venez de créer ?"_s;
    const QString wantsItNevertheless
        = u"Un fichier est déjà ouvert.\nSouhaitez-vous néanmoins ouvrir celui que vous venez de créer ?"_s;
};

/// Both tools obey their entries alike.
struct ToolEntry {
    const char* entry;
    const char* window;
    const char* caption;
};

std::string NameOf(const testing::TestParamInfo<ToolEntry>& info)
{
    return info.param.window;
}

class EachTool : public Tools, public testing::WithParamInterface<ToolEntry>
{
};

INSTANTIATE_TEST_SUITE_P(Menu, EachTool,
                         testing::Values(ToolEntry{"Mnu_Balance", "frmExpert", "Equilibrer une équation"},
                                         ToolEntry{"Mnu_Search", "frmSearch",
                                                   "Rechercher dans les fichiers d'équations"}),
                         NameOf);

} // namespace

TEST_P(EachTool, OpensMaximisedInTheMainAreaAndIsMarked)
{
    EXPECT_FALSE(Entry(GetParam().entry).isChecked());

    ChooseAndSettle(GetParam().entry);

    QWidget& tool = Tool(GetParam().window);
    EXPECT_TRUE(tool.isVisible());
    EXPECT_EQ(tool.windowTitle(), QString::fromUtf8(GetParam().caption));
    EXPECT_TRUE(shell->MainWindow().Area().isAncestorOf(&tool));
    EXPECT_TRUE(tool.parentWidget()->isMaximized());
    EXPECT_TRUE(Entry(GetParam().entry).isChecked());
    EXPECT_TRUE(Molecule(GetParam().window, 0).hasFocus());
}

TEST_P(EachTool, ClosesByItsEntry)
{
    ChooseAndSettle(GetParam().entry);

    ChooseAndSettle(GetParam().entry);

    EXPECT_FALSE(IsOpen(GetParam().window));
    EXPECT_FALSE(Entry(GetParam().entry).isChecked());
    EXPECT_TRUE(shell->MainWindow().Area().subWindowList().isEmpty());
}

TEST_P(EachTool, ClosesByItsTitleBar)
{
    ChooseAndSettle(GetParam().entry);

    CloseByTitleBar(GetParam().window);

    EXPECT_FALSE(IsOpen(GetParam().window));
    EXPECT_FALSE(Entry(GetParam().entry).isChecked());
    ChooseAndSettle(GetParam().entry);
    EXPECT_TRUE(Tool(GetParam().window).isVisible());
}

TEST_P(EachTool, OpensEmptyAgain)
{
    ChooseAndSettle(GetParam().entry);
    Fill(GetParam().window, {u"H2"_s});
    ChooseAndSettle(GetParam().entry);

    ChooseAndSettle(GetParam().entry);

    EXPECT_EQ(Molecule(GetParam().window, 0).text(), QString());
}

TEST_P(EachTool, LeavesTheCaptionOfTheMainWindowWhenItCloses)
{
    ChooseAndSettle(GetParam().entry);
    ChooseAndSettle(GetParam().entry);

    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0"_s);
}

TEST_P(EachTool, GoesOnWhereItWasWhenTheMainWindowComesBack)
{
    ChooseAndSettle(GetParam().entry);
    Fill(GetParam().window, {u"H2"_s});
    QWidget other;
    other.show();
    other.activateWindow();
    Settle();
    ASSERT_FALSE(Molecule(GetParam().window, 0).hasFocus());

    shell->MainWindow().activateWindow();
    Settle();

    ASSERT_TRUE(Molecule(GetParam().window, 0).hasFocus());
    Type(Molecule(GetParam().window, 0), u"O"_s);
    EXPECT_EQ(Molecule(GetParam().window, 0).text(), u"H2O"_s);
}

TEST_P(EachTool, IsHiddenByARunAndKeepsItsMark)
{
    ChooseAndSettle(GetParam().entry);

    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    EXPECT_TRUE(IsOpen(GetParam().window));
    EXPECT_FALSE(Tool(GetParam().window).isVisible());
    EXPECT_TRUE(Entry(GetParam().entry).isChecked());
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Serie1.Equ - 1 équations"_s);

    ChooseAndSettle(GetParam().entry);
    EXPECT_FALSE(IsOpen(GetParam().window));
    EXPECT_FALSE(Entry(GetParam().entry).isChecked());
}

TEST_P(EachTool, LeavesTheWindowsOfARunTheirSize)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    const QRect reactants = Tool("frmReactif").parentWidget()->geometry();
    const QRect products = Tool("frmProduit").parentWidget()->geometry();
    messages.answers = {QMessageBox::Yes};
    Choose("Mnu_Close");
    Settle();
    ChooseAndSettle(GetParam().entry);

    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    EXPECT_EQ(Tool("frmReactif").parentWidget()->geometry(), reactants);
    EXPECT_EQ(Tool("frmProduit").parentWidget()->geometry(), products);
}

TEST_P(EachTool, WorksDuringARunAndIsHiddenAtItsEnd)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    ChooseAndSettle(GetParam().entry);
    EXPECT_TRUE(Tool(GetParam().window).isVisible());
    EXPECT_TRUE(Entry(GetParam().entry).isChecked());
    EXPECT_TRUE(shell->Run().IsOpen());

    messages.answers = {QMessageBox::Yes};
    Choose("Mnu_Close");
    Settle();
    EXPECT_FALSE(Tool(GetParam().window).isVisible());
    EXPECT_TRUE(Entry(GetParam().entry).isChecked());
    ExpectFreeMode();
}

TEST_P(EachTool, LeavesTheRunWhenItCloses)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    const QRect reactants = Tool("frmReactif").parentWidget()->geometry();
    ChooseAndSettle(GetParam().entry);

    ChooseAndSettle(GetParam().entry);

    EXPECT_EQ(Tool("frmReactif").parentWidget()->geometry(), reactants);
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Serie1.Equ - 1 équations"_s);
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    PressInNote("cmdStay");
    Settle();
    ExpectFreeMode();
}

TEST_P(EachTool, LooksForAClosedCalculator)
{
    Choose("Mnu_Calc");
    desktop.programs.runs = false;
    ChooseAndSettle(GetParam().entry);
    ASSERT_TRUE(Entry("Mnu_Calc").isChecked());

    QTest::mouseMove(&Tool(GetParam().window), QPoint(2, 2));
    QTest::mouseMove(&Tool(GetParam().window), QPoint(3, 3));
    Settle();

    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
}

TEST_P(EachTool, AsksForItsOwnHelpPage)
{
    QList<int> topics;
    QObject::connect(&shell->Events(), &WindowEvents::HelpRequested,
                     [&topics](const QString& name) { topics << help_topics::TopicOf(name).value_or(-1); });
    ChooseAndSettle(GetParam().entry);

    Press(Molecule(GetParam().window, 0), Qt::Key_F1);

    const bool isExpert = QLatin1String(GetParam().window) == QLatin1String("frmExpert");
    EXPECT_EQ(topics, QList<int>{isExpert ? 1000 : 1100});
}

TEST_F(Tools, KeepTheFocusWhenTheirWindowIsRestored)
{
    ChooseAndSettle("Mnu_Balance");
    Molecule("frmExpert", 1).setFocus();
    Type(Molecule("frmExpert", 1), u"H2"_s);
    Settle();
    Molecule("frmExpert", 1).deselect();

    Tool("frmExpert").parentWidget()->showNormal();
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), &Molecule("frmExpert", 1));
    // The next key goes on behind the formula and does not replace it.
    EXPECT_FALSE(Molecule("frmExpert", 1).hasSelectedText());

    Tool("frmExpert").parentWidget()->showMaximized();
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), &Molecule("frmExpert", 1));
}

TEST_F(Tools, StandSideBySideWithTheirOwnMarks)
{
    ChooseAndSettle("Mnu_Balance");
    ChooseAndSettle("Mnu_Search");
    EXPECT_TRUE(Entry("Mnu_Balance").isChecked());
    EXPECT_TRUE(Entry("Mnu_Search").isChecked());

    ChooseAndSettle("Mnu_Balance");

    EXPECT_FALSE(IsOpen("frmExpert"));
    EXPECT_TRUE(Tool("frmSearch").isVisible());
    EXPECT_TRUE(Entry("Mnu_Search").isChecked());
}

TEST_F(Tools, BalanceDuringARun)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    Choose("Mnu_Balance");
    Fill("frmExpert", {u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});

    Push("frmExpert", "cmdBalance");

    EXPECT_EQ(ListText("frmExpert"), u"¤) Equation n°1  : H2 + Cl2 -----> 2 HCl\n\n"_s);
    EXPECT_EQ(State().run.NumEquation, 1);
}

TEST_F(Tools, SaveIntoTheFolderOfEquations)
{
    const QString path = WriteEquations({u"C+O2=CO2/1,1,1"_s});
    Choose("Mnu_Balance");
    Fill("frmExpert", {u"H2"_s, u"O2"_s, {}, u"H2O"_s});
    Push("frmExpert", "cmdBalance");
    AnswerDialog(path);

    Push("frmExpert", "cmdSave");

    EXPECT_EQ(desktop.dialogs.asked.back().folder, EquationFolder());
    // The file's last line had an end: an empty line comes of the one that goes first.
    EXPECT_EQ(TextOfFile(path), u"C+O2=CO2/1,1,1\r\n\r\n'\r\nH2+O2=H2O/2,1,2"_s);
}

TEST_F(Tools, GoOnAfterAFaultOfTheEngine)
{
    Choose("Mnu_Balance");
    Fill("frmExpert", {u"Fe{3"_s, {}, {}, u"Fe"_s});

    Push("frmExpert", "cmdBalance");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_EQ(ends, 0);
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    EXPECT_TRUE(shell->Run().IsOpen());
}

TEST_F(Tools, ClosedByTheEntryDuringASearchStopItFirst)
{
    SearchCoefficientsAnd([this] {
        Choose("Mnu_Balance");
        EXPECT_TRUE(IsOpen("frmExpert"));
    });
    Settle();

    EXPECT_TRUE(wasSearching);
    EXPECT_FALSE(IsOpen("frmExpert"));
    EXPECT_FALSE(Entry("Mnu_Balance").isChecked());
}

TEST_F(Tools, ClosedByTheTitleBarDuringASearchStopItFirst)
{
    SearchCoefficientsAnd([this] {
        Tool("frmExpert").parentWidget()->close();
        EXPECT_TRUE(IsOpen("frmExpert"));
    });
    Settle();

    EXPECT_TRUE(wasSearching);
    EXPECT_FALSE(IsOpen("frmExpert"));
    EXPECT_FALSE(Entry("Mnu_Balance").isChecked());
}

TEST_F(Tools, AreStoppedByTheEndOfTheProgram)
{
    SearchCoefficientsAnd([this] { Choose("Mnu_End"); });

    EXPECT_TRUE(wasSearching);
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(ListText("frmExpert").contains(u"Equation"_s));
}

TEST_F(Tools, AreHiddenByARunThatStartsDuringASearch)
{
    SearchCoefficientsAnd([this] { OpenFile({u"H2+O2=H2O/2,1,2"_s}); });

    EXPECT_TRUE(wasSearching);
    EXPECT_TRUE(shell->Run().IsOpen());
    EXPECT_FALSE(Tool("frmExpert").isVisible());
    Settle();
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Serie1.Equ - 1 équations"_s);
    EXPECT_EQ(shell->MainWindow().menuBar()->cornerWidget(Qt::TopRightCorner), nullptr);
    EXPECT_TRUE(ListText("frmExpert").contains(u"3 H2 + O2 + H2O2 -----> 4 H2O"_s));
}

TEST_F(Tools, LeaveNothingInTheMenuBarAndTheCaptionOfARun)
{
    // Maximised one over the other: each has put its buttons into the menu bar.
    ChooseAndSettle("Mnu_Tableau");
    Choose("Mnu_Balance");
    Choose("Mnu_Search");
    Settle();
    const QMenuBar& menuBar = *shell->MainWindow().menuBar();
    ASSERT_NE(menuBar.cornerWidget(Qt::TopRightCorner), nullptr);

    OpenFile({u"H2+O2=H2O/2,1,2"_s}, u"Serie1.Equ"_s);
    Settle();

    EXPECT_EQ(menuBar.cornerWidget(Qt::TopRightCorner), nullptr);
    EXPECT_EQ(menuBar.cornerWidget(Qt::TopLeftCorner), nullptr);
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Serie1.Equ - 1 équations"_s);
    messages.answers = {QMessageBox::Yes};
    ChooseAndSettle("Mnu_Close");
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0"_s);
}

TEST_F(Tools, LeaveTheButtonsToTheOneThatStays)
{
    ChooseAndSettle("Mnu_Tableau");
    Choose("Mnu_Balance");
    Settle();

    ChooseAndSettle("Mnu_Balance");

    const auto* const stays = qobject_cast<QMdiSubWindow*>(Tool("frmTableauPeriodique").parentWidget());
    EXPECT_EQ(shell->MainWindow().menuBar()->cornerWidget(Qt::TopRightCorner),
              stays->maximizedButtonsWidget());
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - [Tableau périodique]"_s);
}

TEST_F(Tools, SearchTheFolderOfEquations)
{
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"A.Equ"_s);
    Choose("Mnu_Search");
    Fill("frmSearch", {u"H2"_s, {}, {}, u"H2O"_s});

    Push("frmSearch", "cmdSearch");

    EXPECT_TRUE(ListText("frmSearch")
                    .startsWith(u"\nDans le fichier A.Equ : \n                    H2+O2=H2O/2,1,2"_s));
}

TEST_F(Tools, SearchDuringARun)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    Choose("Mnu_Search");
    Fill("frmSearch", {u"H2"_s});

    Push("frmSearch", "cmdSearch");

    EXPECT_TRUE(ListText("frmSearch").contains(u"\n                    H2+O2=H2O/2,1,2"_s));
    EXPECT_TRUE(shell->Run().IsOpen());
}

TEST_F(Tools, LeaveAGatheredFileAloneWhenItIsNotWanted)
{
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"A.Equ"_s);
    messages.answers = {QMessageBox::No};

    Gather();

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectQuestion(0, wantsIt, QMessageBox::Warning);
    EXPECT_EQ(TextOfFile(EquationFolder() + u"/Hydrogène.Equ"_s), u"H2+O2=H2O/2,1,2\r\n"_s);
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_TRUE(Tool("frmSearch").isVisible());
}

TEST_F(Tools, OpenAGatheredFileForAnIdentifiedPupil)
{
    WriteEquations({u"H2+O2=H2O/2,1,2"_s, u"C+O2=CO2/1,1,1"_s, u"H2+Cl2=HCl/1,1,2"_s}, u"A.Equ"_s);
    State().pupil.NomEleve = u"DUPONT"_s;
    messages.answers = {QMessageBox::Yes};

    Gather();

    ExpectQuestion(0, wantsIt, QMessageBox::Warning);
    EXPECT_TRUE(shell->Run().IsOpen());
    EXPECT_EQ(State().run.CheminFichier, EquationFolder() + u"/Hydrogène.Equ"_s);
    EXPECT_EQ(State().run.TitreFichier, u"Hydrogène.Equ"_s);
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Hydrogène.Equ - 2 équations"_s);
    EXPECT_NE(FindWindow("frmEquation"), nullptr);
    EXPECT_FALSE(Tool("frmSearch").isVisible());
    EXPECT_TRUE(Entry("Mnu_Search").isChecked());
}

TEST_F(Tools, AskWhoThePupilIsBeforeTheyOpenAGatheredFile)
{
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"A.Equ"_s);
    messages.answers = {QMessageBox::Yes};
    IdentifyWhenAsked();

    Gather();

    EXPECT_EQ(State().pupil.NomEleve, u"DUPONT"_s);
    EXPECT_TRUE(shell->Run().IsOpen());
}

TEST_F(Tools, OpenNoGatheredFileForNobody)
{
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"A.Equ"_s);
    messages.answers = {QMessageBox::Yes};
    script.On("frmName", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdAnnul")); });

    Gather();

    EXPECT_EQ(State().pupil.NomEleve, QString());
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_EQ(State().run.CheminFichier, QString());
    EXPECT_TRUE(Tool("frmSearch").isVisible());
    EXPECT_TRUE(Entry("Mnu_Open(0)").isEnabled());
}

TEST_F(Tools, KeepTheOpenFileWhenTheGatheredOneIsNotWantedInItsPlace)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    messages.answers = {QMessageBox::Yes, QMessageBox::No};

    Gather();

    ASSERT_EQ(messages.shown.size(), 2U);
    ExpectQuestion(0, wantsIt, QMessageBox::Warning);
    ExpectQuestion(1, wantsItNevertheless, QMessageBox::Critical);
    EXPECT_TRUE(shell->Run().IsOpen());
    EXPECT_EQ(State().run.TitreFichier, u"Serie1.Equ"_s);
    EXPECT_EQ(State().run.NumEquation, 1);
}

TEST_F(Tools, CloseTheOpenFileForTheGatheredOne)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"C+O2=CO2/1,1,1"_s});
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    ASSERT_EQ(State().run.NumEquation, 2);
    messages.answers = {QMessageBox::Yes, QMessageBox::Yes};

    Gather();

    EXPECT_EQ(State().run.TitreFichier, u"Hydrogène.Equ"_s);
    EXPECT_EQ(State().run.NumEquation, 1);
    EXPECT_EQ(shell->State().run.Score, 0);
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Hydrogène.Equ - 1 équations"_s);
    EXPECT_FALSE(Entry("Mnu_Open(0)").isEnabled());
    EXPECT_TRUE(Entry("Mnu_Close").isEnabled());
    // One window of each kind is left.
    for (const char* const name : {"frmEquation", "frmReactif", "frmProduit"})
        EXPECT_EQ(shell->MainWindow().findChildren<QWidget*>(QLatin1String(name)).size(), 1) << name;
}

TEST_F(Tools, GoHomeWhenTheGatheredFileHasNoEquation)
{
    OpenFile({u"C+O2=CO2/1,1,1"_s});
    messages.answers = {QMessageBox::Yes, QMessageBox::Yes};

    Gather();

    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_TRUE(messages.shown[2].text.startsWith(u"Le fichier sélectionné ne contient aucune équation."_s));
    ExpectFreeMode();
}

TEST_F(Tools, AskNothingAboutAFileWhenTheProgramEndsDuringTheSearch)
{
    RunningClock running;
    shell.reset();
    Platform doors = desktop.Doors();
    const Platform withClock{running,         doors.folders,    doors.user,     doors.regional, doors.screen,
                             doors.sound,     doors.dialogs,    doors.programs, doors.browser,  doors.web,
                             doors.clipboard, doors.randomness, doors.trash};
    shell = std::make_unique<Shell>(withClock, messages);
    QObject::connect(shell.get(), &Shell::EndAsked, [this] { ++ends; });
    LeaveTheSplash();
    shell->Start();
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"A.Equ"_s);
    // The first turn that the search leaves to others.
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, shell.get(), [this, &turn] {
        if (QApplication::activeModalWidget() != nullptr || FindWindow("frmSearch") == nullptr)
            return;
        turn.stop();
        Choose("Mnu_End");
    });
    turn.start(0);

    Gather();

    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(TextOfFile(EquationFolder() + u"/Hydrogène.Equ"_s), u"H2+O2=H2O/2,1,2\r\n"_s);
}

} // namespace stoikal
