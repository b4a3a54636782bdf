#include "shell_fixture.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The simulation of the particles, from its menu entry.
class SimulAnimDesk : public StartedShellTest
{
protected:
    void ChooseAndSettle()
    {
        Choose("Mnu_SimulAnim");
        Settle();
    }

    bool IsOpen() { return shell->MainWindow().findChild<QWidget*>(u"frmSimulAnim"_s) != nullptr; }
    QWidget& Window() { return Control<QWidget>(shell->MainWindow(), "frmSimulAnim"); }
};

} // namespace

TEST_F(SimulAnimDesk, OpensMaximisedInTheMainAreaWithoutAFileAndIsMarked)
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

TEST_F(SimulAnimDesk, ClosesByItsEntryAndEndsItsRun)
{
    ChooseAndSettle();
    Click(Control<QAbstractButton>(Window(), "chkStart"));

    ChooseAndSettle();

    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(Entry("Mnu_SimulAnim").isChecked());
    EXPECT_TRUE(shell->MainWindow().Area().subWindowList().isEmpty());
    ChooseAndSettle();
    EXPECT_FALSE(Control<QAbstractButton>(Window(), "chkStart").isChecked());
}

TEST_F(SimulAnimDesk, ClosesByItsTitleBar)
{
    ChooseAndSettle();

    Window().parentWidget()->close();
    Settle();

    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(Entry("Mnu_SimulAnim").isChecked());
}

TEST_F(SimulAnimDesk, AsksForItsPageOfTheManual)
{
    int topic = 0;
    QObject::connect(&shell->Tools(), &ToolDesk::HelpAsked, [&topic](int asked) { topic = asked; });
    ChooseAndSettle();

    Press(Control<QWidget>(Window(), "txtMol(0)"), Qt::Key_F1);

    EXPECT_EQ(topic, 1800);
}

TEST_F(SimulAnimDesk, StaysOpenThroughARunAndLeavesTheAtomsTheirSize)
{
    ChooseAndSettle();

    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(Entry("Mnu_SimulAnim").isChecked());
    for (const char* const atoms : {"frmReactif", "frmProduit"})
        EXPECT_FALSE(Control<QWidget>(shell->MainWindow(), atoms).parentWidget()->isMaximized()) << atoms;
}

TEST_F(SimulAnimDesk, LooksForTheCalculatorWhenTheMouseMoves)
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
