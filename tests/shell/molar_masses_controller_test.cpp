#include "shell_fixture.h"

#include "base/number_text.h"
#include "shell/help_topics.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QWindow>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The window of the molar masses beside a run of two equations.
class MassMolWindow : public StartedShellTest
{
protected:
    void SetUp() override
    {
        StartedShellTest::SetUp();
        shell->MainWindow().activateWindow();
        Settle();
    }

    void OpenRun() { OpenFile({u"H2+O2=H2O/2,1,2"_s, u"C+Cl2=CCl4/1,2,1"_s}); }

    void ChooseAndSettle(const char* entry)
    {
        Choose(entry);
        Settle();
    }

    bool IsOpen() { return shell->MainWindow().findChild<QWidget*>(u"frmMassMol"_s) != nullptr; }
    QWidget& Window() { return Control<QWidget>(shell->MainWindow(), "frmMassMol"); }
    QString List() { return Control<QLabel>(Window(), "lblMassMol").text(); }
    bool IsMarked() { return Entry("Mnu_MassMol").isChecked(); }
};

} // namespace

TEST_F(MassMolWindow, AreThereOnlyInARun)
{
    EXPECT_FALSE(Entry("Mnu_MassMol").isEnabled());

    OpenRun();
    EXPECT_TRUE(Entry("Mnu_MassMol").isEnabled());
    EXPECT_FALSE(IsOpen());

    messages.answers = {QMessageBox::Yes};
    ChooseAndSettle("Mnu_Close");
    EXPECT_FALSE(Entry("Mnu_MassMol").isEnabled());
}

TEST_F(MassMolWindow, ListTheAtomsOfTheEquation)
{
    OpenRun();

    ChooseAndSettle("Mnu_MassMol");

    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(List(), u"H : 1,00794 g/mol\nO : 15,9994 g/mol"_s);
}

TEST_F(MassMolWindow, FollowTheNextEquation)
{
    OpenRun();
    ChooseAndSettle("Mnu_MassMol");

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Settle();

    ASSERT_EQ(State().run.NumEquation, 2);
    EXPECT_EQ(List(), u"C : 12,0107 g/mol\nCl : 35,4527 g/mol"_s);
    EXPECT_TRUE(IsMarked());
}

TEST_F(MassMolWindow, CloseByTheirEntry)
{
    OpenRun();
    ChooseAndSettle("Mnu_MassMol");

    ChooseAndSettle("Mnu_MassMol");

    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(IsMarked());
}

TEST_F(MassMolWindow, TellWhoeverShowsItThatTheyCameOrWent)
{
    OpenRun();
    QList<bool> told;
    QObject::connect(&shell->MolarMasses(), &MolarMassesController::Shown,
                     [&told](bool shown) { told << shown; });

    ChooseAndSettle("Mnu_MassMol");
    EXPECT_EQ(told, QList<bool>{true});
    Window().close();
    Settle();
    EXPECT_EQ(told, (QList<bool>{true, false}));
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(IsMarked());

    shell->MolarMasses().Show(false);
    EXPECT_EQ(told.size(), 2);
    shell->MolarMasses().Show(true);
    shell->MolarMasses().Show(true);
    EXPECT_EQ(told, (QList<bool>{true, false, true}));
    EXPECT_TRUE(IsMarked());
}

TEST_F(MassMolWindow, AreUnloadedAtTheEndOfARun)
{
    OpenRun();
    ChooseAndSettle("Mnu_MassMol");
    Window().move(60, 90);
    messages.answers = {QMessageBox::Yes};

    ChooseAndSettle("Mnu_Close");

    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(Setting("MassMol Window", "Left"), u"900"_s); // 60 * 15
    EXPECT_EQ(Setting("MassMol Window", "Top"), u"1350"_s); // 90 * 15
}

TEST_F(MassMolWindow, AreUnloadedBehindTheLastEquation)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    ChooseAndSettle("Mnu_MassMol");
    PressInNote("cmdStay");

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Settle();

    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(IsMarked());
}

TEST_F(MassMolWindow, OpenTheFirstTimeInTheLowerLeftCorner)
{
    OpenRun();

    ChooseAndSettle("Mnu_MassMol");

    const QWidget& main = shell->MainWindow();
    EXPECT_EQ(Window().x(), 12);
    EXPECT_LE(Window().geometry().bottom(), main.geometry().bottom());
    EXPECT_GT(Window().geometry().center().y(), main.geometry().center().y());
}

TEST_F(MassMolWindow, OpenAgainWhereTheyWere)
{
    OpenRun();
    ChooseAndSettle("Mnu_MassMol");
    Window().move(60, 90);
    ChooseAndSettle("Mnu_MassMol");

    ChooseAndSettle("Mnu_MassMol");

    EXPECT_EQ(Window().pos(), QPoint(60, 90));
}

TEST_F(MassMolWindow, KeepTheVolumeAndTellOfIt)
{
    OpenRun();
    QSignalSpy changes(&shell->MolarMasses(), &MolarMassesController::GasDataChanged);

    ChooseAndSettle("Mnu_MassMol");

    EXPECT_EQ(changes.size(), 1);
    EXPECT_NEAR(ReadNumber(Setting("Données", "Volume molaire")), 22.4195264, 1e-6); // 2271098.0268 / 101300

    QLineEdit& temperature = Control<QLineEdit>(Window(), "txtData(1)");
    temperature.clear();
    Type(temperature, u"20"_s);
    Click(Control<QPushButton>(Window(), "cmdCalcul"));

    EXPECT_EQ(changes.size(), 2);
    // 8.314472 * 293.15 * 1000 / 101300 = 24.061081
    EXPECT_NEAR(ReadNumber(Setting("Données", "Volume molaire")), 24.061081, 1e-5);
}

TEST_F(MassMolWindow, GoOnAfterAVolumeOfZero)
{
    OpenRun();
    ChooseAndSettle("Mnu_MassMol");
    Click(Control<QCheckBox>(Window(), "chkData(0)"));
    Click(Control<QCheckBox>(Window(), "chkData(2)"));
    QLineEdit& volume = Control<QLineEdit>(Window(), "txtData(2)");
    volume.clear();
    Type(volume, u"0"_s);

    Click(Control<QPushButton>(Window(), "cmdCalcul"));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(shell->Run().IsOpen());
    EXPECT_EQ(volume.text(), u"0"_s);
}

TEST_F(MassMolWindow, LookForAClosedCalculator)
{
    OpenRun();
    Choose("Mnu_Calc");
    desktop.programs.runs = false;
    ChooseAndSettle("Mnu_MassMol");
    ASSERT_TRUE(Entry("Mnu_Calc").isChecked());

    QTest::mouseMove(Window().windowHandle(), QPoint(2, 2));
    QTest::mouseMove(Window().windowHandle(), QPoint(3, 3));
    Settle();

    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
}

TEST_F(MassMolWindow, AskForTheirHelpPage)
{
    QList<int> topics;
    QObject::connect(&shell->Events(), &WindowEvents::HelpRequested,
                     [&topics](const QString& name) { topics << help_topics::TopicOf(name).value_or(-1); });
    OpenRun();
    ChooseAndSettle("Mnu_MassMol");

    Press(Control<QLineEdit>(Window(), "txtData(0)"), Qt::Key_F1);

    EXPECT_EQ(topics, QList<int>{1400});
}

} // namespace stoikal
