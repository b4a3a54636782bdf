#include "shell_fixture.h"

#include "shell/help_topics.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The simulation of the particles, from its menu entry.
class SimulAnimWindow : public StartedShellTest
{
protected:
    void ChooseAndSettle()
    {
        Choose("Mnu_SimulAnim");
        Settle();
    }

    void CloseTheFile()
    {
        messages.answers = {QMessageBox::Yes};
        Choose("Mnu_Close");
        Settle();
    }

    bool IsOpen() { return shell->MainWindow().findChild<QWidget*>(u"frmSimulAnim"_s) != nullptr; }
    QWidget& Window() { return Control<QWidget>(shell->MainWindow(), "frmSimulAnim"); }
    QAbstractButton& StartButton() { return Control<QAbstractButton>(Window(), "chkStart"); }
    QTimer& Animation() { return Control<QTimer>(Window(), "tmrAnim"); }

    const QString kWater = u"H2+O2=H2O/2,1,2"_s;
};

} // namespace

TEST_F(SimulAnimWindow, OpensMaximisedInTheMainAreaWithoutAFileAndIsMarked)
{
    EXPECT_TRUE(Entry("Mnu_SimulAnim").isEnabled());
    EXPECT_FALSE(Entry("Mnu_SimulAnim").isChecked());

    ChooseAndSettle();

    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Window().windowTitle(), u"Représentation dynamique de l'avancement"_s);
    EXPECT_TRUE(shell->MainWindow().Area().isAncestorOf(&Window()));
    EXPECT_TRUE(Window().parentWidget()->isMaximized());
    EXPECT_TRUE(Entry("Mnu_SimulAnim").isChecked());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SimulAnimWindow, ClosesByItsEntryAndEndsItsRun)
{
    ChooseAndSettle();
    Click(StartButton());

    ChooseAndSettle();

    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(Entry("Mnu_SimulAnim").isChecked());
    EXPECT_TRUE(shell->MainWindow().Area().subWindowList().isEmpty());
    ChooseAndSettle();
    EXPECT_FALSE(StartButton().isChecked());
}

TEST_F(SimulAnimWindow, ClosesByItsTitleBar)
{
    ChooseAndSettle();

    Window().parentWidget()->close();
    Settle();

    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(Entry("Mnu_SimulAnim").isChecked());
}

TEST_F(SimulAnimWindow, AsksForItsPageOfTheManual)
{
    int topic = 0;
    QObject::connect(&shell->Events(), &WindowEvents::HelpRequested,
                     [&topic](const QString& name) { topic = help_topics::TopicOf(name).value_or(-1); });
    ChooseAndSettle();

    Press(Control<QWidget>(Window(), "txtMol(0)"), Qt::Key_F1);

    EXPECT_EQ(topic, 1800);
}

TEST_F(SimulAnimWindow, IsStoppedAndHiddenByARun)
{
    ChooseAndSettle();
    Click(StartButton());
    ASSERT_TRUE(Animation().isActive());

    OpenFile({kWater});

    EXPECT_FALSE(Window().isVisible());
    EXPECT_FALSE(Animation().isActive());
    EXPECT_FALSE(StartButton().isChecked());
    EXPECT_TRUE(Entry("Mnu_SimulAnim").isChecked());
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Serie1.Equ - 1 équations"_s);
    EXPECT_EQ(shell->MainWindow().menuBar()->cornerWidget(Qt::TopRightCorner), nullptr);
    EXPECT_EQ(shell->MainWindow().menuBar()->cornerWidget(Qt::TopLeftCorner), nullptr);
    for (const char* const atoms : {"frmReactif", "frmProduit"})
        EXPECT_FALSE(Control<QWidget>(shell->MainWindow(), atoms).parentWidget()->isMaximized()) << atoms;
}

TEST_F(SimulAnimWindow, IsThereAgainAfterTheRun)
{
    ChooseAndSettle();
    Press(Control<QLineEdit>(Window(), "txtMol(0)"), Qt::Key_A, Qt::ControlModifier);
    Type(Control<QLineEdit>(Window(), "txtMol(0)"), u"7"_s);
    OpenFile({kWater});

    CloseTheFile();

    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(Window().parentWidget()->isMaximized());
    EXPECT_EQ(Control<QLineEdit>(Window(), "txtMol(0)").text(), u"7"_s);
    EXPECT_TRUE(Entry("Mnu_SimulAnim").isChecked());
    EXPECT_EQ(shell->MainWindow().windowTitle(),
              u"Stoikal v.4.0 - [Représentation dynamique de l'avancement]"_s);
    EXPECT_EQ(shell->MainWindow().menuBar()->cornerWidget(Qt::TopRightCorner),
              qobject_cast<QMdiSubWindow*>(Window().parentWidget())->maximizedButtonsWidget());
}

TEST_F(SimulAnimWindow, IsThereAgainInItsOwnSizeAfterAFileWasDone)
{
    ChooseAndSettle();
    Window().parentWidget()->showNormal();
    Window().parentWidget()->setGeometry(30, 40, 700, 500);
    Settle();
    OpenFile({kWater});
    ASSERT_FALSE(Window().isVisible());
    PressInNote("cmdStay");

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Settle();

    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Window().parentWidget()->geometry(), QRect(30, 40, 700, 500));
    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0"_s);
    Click(StartButton());
    EXPECT_TRUE(Animation().isActive());
}

TEST_F(SimulAnimWindow, IsNotThereAgainWhereItWasClosedDuringTheRun)
{
    ChooseAndSettle();
    OpenFile({kWater});

    ChooseAndSettle();
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(Entry("Mnu_SimulAnim").isChecked());

    CloseTheFile();
    EXPECT_FALSE(IsOpen());
}

TEST_F(SimulAnimWindow, WorksDuringARunAndStaysAfterIt)
{
    OpenFile({kWater});
    ChooseAndSettle();
    Click(StartButton());

    CloseTheFile();

    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(Animation().isActive());
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_EQ(FindWindow("frmEquation"), nullptr);
}

TEST_F(SimulAnimWindow, LooksForTheCalculatorWhenTheMouseMoves)
{
    Choose("Mnu_Calc");
    ASSERT_TRUE(Entry("Mnu_Calc").isChecked());
    ChooseAndSettle();
    desktop.programs.runs = false;

    QTest::mouseMove(&Window(), QPoint(3, Window().height() - 3));
    QTest::mouseMove(&Window(), QPoint(5, Window().height() - 5));
    Settle();

    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
}

} // namespace stoikal
