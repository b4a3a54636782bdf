#include "shell_fixture.h"

#include "shell/windows/frm_pref.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kSilver = u"Ag{+}+Cl{-}=AgCl/1,1,1"_s;

/// The preferences, open beside whatever else is.
class Preferences : public StartedShellTest
{
protected:
    QWidget& Pref()
    {
        QWidget* const window = FindWindow("frmPref");
        if (window == nullptr)
            throw std::runtime_error("the preferences are not open");
        return *window;
    }

    void Push(const char* name) { Click(Control<QAbstractButton>(Pref(), name)); }

    QWidget& Child(const char* name) { return Control<QWidget>(shell->MainWindow(), name); }
    QColor CornerOf(const char* window)
    {
        auto& surface = Control<QWidget>(Child(window), "picAtomes");
        return surface.grab().toImage().pixelColor(surface.width() - 2, surface.height() - 2);
    }
    QColor ChargeSample(const char* name)
    {
        auto& frame = Control<QFrame>(*FindWindow("frmCharge"), name);
        return frame.grab().toImage().pixelColor(6, 6);
    }
    QRect PlaceOfChild(const char* window) { return Child(window).parentWidget()->geometry(); }
    QString AtomsIn(const char* window)
    {
        return Control<QWidget>(Child(window), "picAtomes").accessibleDescription();
    }
};

/// The tip of the day, left open until the test is done with it.
class TipOfTheDay : public ShellTest
{
protected:
    TipOfTheDay()
    {
        leavesTheTip = false;
        QDir().mkpath(EquationFolder());
        WriteTextFile(EquationFolder() + u"/TipOfDayEqChm.txt"_s, {u"un"_s, u"deux"_s});
    }

    void SeeTheTip()
    {
        script.On("frmTip", [this](QWidget& window) {
            ++seen;
            text = Control<QLabel>(window, "lblTipText").text();
            Click(Control<QPushButton>(window, "cmdOK"));
        });
    }

    int seen = 0;
    QString text;
};

} // namespace

TEST_F(Preferences, OpenWithAMarkAndStayBesideTheOthers)
{
    Choose("Mnu_Pref");

    EXPECT_TRUE(Pref().isVisible());
    EXPECT_TRUE(Entry("Mnu_Pref").isChecked());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Preferences, CloseByTheirEntryAndByTheirTitleBar)
{
    Choose("Mnu_Pref");
    Choose("Mnu_Pref");
    EXPECT_EQ(FindWindow("frmPref"), nullptr);
    EXPECT_FALSE(Entry("Mnu_Pref").isChecked());

    Choose("Mnu_Pref");
    Pref().close();
    EXPECT_EQ(FindWindow("frmPref"), nullptr);
    EXPECT_FALSE(Entry("Mnu_Pref").isChecked());
}

TEST_F(Preferences, GoWhenAFileIsToBeOpenedEvenIfNoneIs)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    Choose("Mnu_Pref");
    desktop.dialogs.answers = {std::nullopt};

    Choose("Mnu_Open(0)");

    EXPECT_EQ(FindWindow("frmPref"), nullptr);
    EXPECT_FALSE(Entry("Mnu_Pref").isChecked());
}

TEST_F(Preferences, GoWhenARunStartsOtherwise)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    const QString path = WriteEquations({kSilver});
    Choose("Mnu_Pref");

    shell->Files().OpenKnownFile(path);
    Settle();

    EXPECT_TRUE(shell->Run().IsOpen());
    EXPECT_EQ(FindWindow("frmPref"), nullptr);
}

TEST_F(Preferences, PaintTheOpenWindowsOfTheSideAtOnce)
{
    OpenFile({kSilver});
    Choose("Mnu_Pref");
    desktop.dialogs.colourAnswers = {QColor(10, 20, 30), QColor(40, 50, 60)};

    Push("cmdPalette");
    EXPECT_EQ(CornerOf("frmReactif"), QColor(10, 20, 30));
    EXPECT_EQ(CornerOf("frmProduit"), QColor(0x80, 0xFF, 0xFF));
    EXPECT_EQ(ChargeSample("shpColor(0)"), QColor(10, 20, 30));
    EXPECT_EQ(ChargeSample("shpColor(1)"), QColor(0x80, 0xFF, 0xFF));

    Push("optColor(1)");
    Push("cmdPalette");
    EXPECT_EQ(CornerOf("frmProduit"), QColor(40, 50, 60));
    EXPECT_EQ(ChargeSample("shpColor(1)"), QColor(40, 50, 60));
    // The atoms stand as before.
    EXPECT_EQ(AtomsIn("frmReactif"), u"1 argent, 1 chlore"_s);
}

TEST_F(Preferences, BringTheDefaultColoursBackInTheOpenWindows)
{
    OpenFile({kSilver});
    Choose("Mnu_Pref");
    desktop.dialogs.colourAnswers = {QColor(10, 20, 30)};
    Push("cmdPalette");

    Push("cmdColor_Defaut");

    EXPECT_EQ(CornerOf("frmReactif"), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(CornerOf("frmProduit"), QColor(0x80, 0xFF, 0xFF));
    EXPECT_EQ(ChargeSample("shpColor(0)"), QColor(0xC0, 0xFF, 0xC0));
}

TEST_F(Preferences, ChangeColoursWithoutAnyWindowOfARun)
{
    Choose("Mnu_Pref");
    desktop.dialogs.colourAnswers = {QColor(1, 0, 0)};

    Push("cmdPalette");

    EXPECT_EQ(Setting("Options", "BackGround Color Reactifs"), u"1"_s);
}

TEST_F(Preferences, ArrangeTheAtomWindowsAtOnce)
{
    OpenFile({kSilver});
    ASSERT_EQ(PlaceOfChild("frmReactif").top(), PlaceOfChild("frmProduit").top());
    Choose("Mnu_Pref");

    Push("optAffichage(1)");
    EXPECT_EQ(PlaceOfChild("frmReactif").left(), PlaceOfChild("frmProduit").left());
    EXPECT_GT(PlaceOfChild("frmProduit").top(), PlaceOfChild("frmReactif").bottom() - 1);
    EXPECT_EQ(AtomsIn("frmReactif"), u"1 argent, 1 chlore"_s);

    Push("optAffichage(0)");
    EXPECT_EQ(PlaceOfChild("frmReactif").top(), PlaceOfChild("frmProduit").top());
}

TEST_F(Preferences, ShareTheUsableAreaBetweenTheAtomWindows)
{
    OpenFile({kSilver});
    // What is usable of a screen of 1024 pixels is 1024 * 15 - 50 twips: 1021 pixels; the
    // height is what the menu leaves.
    const int height = shell->MainWindow().Area().viewport()->height();
    ASSERT_GE(shell->MainWindow().Area().viewport()->width(), 1021);

    EXPECT_EQ(PlaceOfChild("frmReactif"), QRect(0, 0, 510, height));
    EXPECT_EQ(PlaceOfChild("frmProduit"), QRect(510, 0, 510, height));

    Choose("Mnu_Pref");
    Push("optAffichage(1)");
    // A gap of 10 twips is a pixel.
    EXPECT_EQ(PlaceOfChild("frmReactif"), QRect(0, 0, 1020, height / 2 - 1));
    EXPECT_EQ(PlaceOfChild("frmProduit"), QRect(0, height / 2, 1020, height / 2 - 1));
}

TEST_F(Preferences, ArrangeWithoutAtomsWhereTheyAreHidden)
{
    OpenFile({kSilver});
    Choose("Mnu_Atome");
    Choose("Mnu_Pref");

    Push("optAffichage(1)");

    EXPECT_EQ(AtomsIn("frmReactif"), QString());
    EXPECT_EQ(PlaceOfChild("frmReactif").left(), PlaceOfChild("frmProduit").left());
}

TEST_F(Preferences, ArrangeTheAtomWindowsAgainWhenTheyClose)
{
    OpenFile({kSilver});
    Choose("Mnu_Pref");
    Child("frmReactif").parentWidget()->setGeometry(50, 60, 200, 150);

    Choose("Mnu_Pref");

    EXPECT_EQ(PlaceOfChild("frmReactif").topLeft(), QPoint(0, 0));
}

TEST_F(Preferences, SwitchTheBubblesOffForWindowsThatAreOpen)
{
    OpenFile({kSilver});
    Choose("Mnu_Pref");

    Push("chkInfoBulles");

    EXPECT_EQ(Setting("Options", "Show info-bulles at Startup"), u"0"_s);
}

TEST_F(Preferences, FollowTheSwitchOfTheTip)
{
    Choose("Mnu_Pref");
    ASSERT_TRUE(Control<QCheckBox>(Pref(), "chkLoadTipsAtStartup").isChecked());
    leavesTheTip = false;
    script.On("frmTip", [](QWidget& window) {
        Click(Control<QCheckBox>(window, "chkLoadTipsAtStartup"));
        Click(Control<QPushButton>(window, "cmdOK"));
    });

    Choose("Mnu_Tip");

    EXPECT_FALSE(Control<QCheckBox>(Pref(), "chkLoadTipsAtStartup").isChecked());
    EXPECT_EQ(Setting("Options", "Show Tips at Startup"), u"0"_s);
}

TEST_F(TipOfTheDay, ComesAtTheStartOfAFreshUser)
{
    LeaveTheSplash();
    SeeTheTip();

    MakeShell().Start();

    EXPECT_EQ(seen, 1);
    EXPECT_EQ(text, u"un"_s);
    EXPECT_EQ(Setting("Options", "Show Tips at Startup"), u"1"_s);
}

TEST_F(TipOfTheDay, StaysAwayOnceItIsSwitchedOff)
{
    LeaveTheSplash();
    script.On("frmTip", [](QWidget& window) {
        Click(Control<QCheckBox>(window, "chkLoadTipsAtStartup"));
        Click(Control<QPushButton>(window, "cmdOK"));
    });
    MakeShell().Start();

    Start(); // No step waits for a tip.

    EXPECT_EQ(Setting("Options", "Show Tips at Startup"), u"0"_s);
}

TEST_F(TipOfTheDay, StaysAwayForAnyOtherSetting)
{
    WriteSettings({u"[Options]"_s, u"Show Tips at Startup=2"_s});

    Start();

    EXPECT_EQ(Setting("Options", "Show Tips at Startup"), u"0"_s);
}

TEST_F(TipOfTheDay, ComesByItsEntryWhateverTheSettingSays)
{
    WriteSettings({u"[Options]"_s, u"Show Tips at Startup=0"_s});
    Start();
    SeeTheTip();
    desktop.randomness.next = 0.5; // floor(0.5 * 2 + 1) = 2.

    Choose("Mnu_Tip");

    EXPECT_EQ(seen, 1);
    EXPECT_EQ(text, u"deux"_s);
}

TEST_F(TipOfTheDay, TellsAMissingFileAndTheStartGoesOn)
{
    ASSERT_TRUE(QFile::remove(EquationFolder() + u"/TipOfDayEqChm.txt"_s));
    LeaveTheSplash();
    SeeTheTip();

    MakeShell().Start();

    EXPECT_TRUE(text.startsWith(u"Le fichier TipOfDayEqChm.txt n'a pas été trouvé? \n"_s));
    EXPECT_EQ(shell->Starter().Steps().last(), u"bubbles"_s);
}

} // namespace stoikal
