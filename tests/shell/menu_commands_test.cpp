#include "shell_fixture.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The commands of the menus while a file is open.
class MenuCommands : public StartedShellTest
{
protected:
    QWidget& Atoms(const char* window)
    {
        return Control<QWidget>(Control<QWidget>(shell->MainWindow(), window), "picAtomes");
    }

    /// The atoms drawn in a window, in words: "2 hydrogène, 2 oxygène".
    QString AtomsIn(const char* window) { return Atoms(window).accessibleDescription(); }

    QStringList MarkedSizes()
    {
        QStringList names;
        for (const char* const name : {"Mnu_Taille(0)", "Mnu_Taille(1)", "Mnu_Taille(2)", "Mnu_Taille(3)"})
            if (Entry(name).isChecked())
                names << QLatin1String(name);
        return names;
    }

    QString Charges()
    {
        QWidget* const window = FindWindow("frmCharge");
        return window == nullptr ? u"closed"_s
                                 : Control<QLabel>(*window, "lblChargeReac").text() + u'/'
                + Control<QLabel>(*window, "lblChargeProd").text();
    }

    QAbstractButton& ChronoButton(const char* name)
    {
        return Control<QAbstractButton>(shell->Stopwatch().Window(), name);
    }
};

const QString kSilver = u"Ag{+}+Cl{-}=AgCl/1,1,1"_s;
const QString kIron = u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s;

} // namespace

TEST_F(MenuCommands, CopyTheEquationAsThePupilSeesIt)
{
    OpenFile({u"Cu+H{+}+NO3{-}=Cu{2+}+NO+H2O/3,8,2,3,2,4"_s});
    Type(Box(0), u"3"_s);
    Type(Box(2), u"2"_s);
    Type(Box(3), u"3"_s);
    Type(Box(5), u"4"_s);

    Choose("Mnu_Copy");

    EXPECT_EQ(desktop.clipboard.text,
              u"3Cu + H+ + 2NO3-"
              "---->"
              "3Cu2+ + NO + 4H2O"_s);
}

TEST_F(MenuCommands, CopyASecondReactantEvenWhereThereIsNone)
{
    OpenFile({u"CaCO3=CaO+CO2/1,1,1"_s});
    Type(Box(3), u"1"_s);

    Choose("Mnu_Copy");

    // An empty second term still brings its sign; nothing stands between a
    // coefficient and its formula, and nothing around the arrow.
    EXPECT_EQ(desktop.clipboard.text, u"CaCO3 + ---->1CaO + CO2"_s);
}

TEST_F(MenuCommands, CopyBringsTheFocusToTheFirstBox)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    Box(3).setFocus();

    Choose("Mnu_Copy");

    EXPECT_EQ(Exercise().focusWidget(), &Box(0));
    EXPECT_EQ(desktop.clipboard.text, u"H2 + O2---->H2O"_s);
}

TEST_F(MenuCommands, EmptyTheCoefficients)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    Type(Box(0), u"2"_s);
    Type(Box(3), u"12"_s);
    ASSERT_EQ(AtomsIn("frmProduit"), u"24 hydrogène, 12 oxygène"_s);

    Choose("Mnu_Del");

    for (int slot = 0; slot < 6; ++slot)
        EXPECT_EQ(Box(slot).text(), QString()) << slot;
    // An empty box counts as 1.
    EXPECT_EQ(AtomsIn("frmReactif"), u"2 hydrogène, 2 oxygène"_s);
    EXPECT_EQ(AtomsIn("frmProduit"), u"2 hydrogène, 1 oxygène"_s);
}

TEST_F(MenuCommands, HideTheAtomsAndShowThemAgain)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    ASSERT_TRUE(Entry("Mnu_Grow").isEnabled());
    const QImage drawn = Atoms("frmReactif").grab().toImage();

    Choose("Mnu_Atome");
    EXPECT_FALSE(Entry("Mnu_Atome").isChecked());
    EXPECT_FALSE(Entry("Mnu_Grow").isEnabled());
    EXPECT_EQ(AtomsIn("frmReactif"), QString());
    EXPECT_EQ(AtomsIn("frmProduit"), QString());
    EXPECT_NE(Atoms("frmReactif").grab().toImage(), drawn);
    Type(Box(0), u"2"_s);
    EXPECT_EQ(AtomsIn("frmReactif"), QString());

    Choose("Mnu_Atome");
    EXPECT_TRUE(Entry("Mnu_Atome").isChecked());
    EXPECT_TRUE(Entry("Mnu_Grow").isEnabled());
    EXPECT_EQ(AtomsIn("frmReactif"), u"4 hydrogène, 2 oxygène"_s);
    EXPECT_EQ(AtomsIn("frmProduit"), u"2 hydrogène, 1 oxygène"_s);
}

TEST_F(MenuCommands, MarkTheOneSizeOfTheAtoms)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    EXPECT_EQ(MarkedSizes(), QStringList{u"Mnu_Taille(1)"_s});
    const QImage plain = Atoms("frmReactif").grab().toImage();

    Choose("Mnu_Taille(3)");
    EXPECT_EQ(MarkedSizes(), QStringList{u"Mnu_Taille(3)"_s});
    EXPECT_NE(Atoms("frmReactif").grab().toImage(), plain);

    // A second choice of the same size leaves it marked.
    Choose("Mnu_Taille(3)");
    EXPECT_EQ(MarkedSizes(), QStringList{u"Mnu_Taille(3)"_s});
    Choose("Mnu_Taille(1)");
    EXPECT_EQ(MarkedSizes(), QStringList{u"Mnu_Taille(1)"_s});
    EXPECT_EQ(Atoms("frmReactif").grab().toImage(), plain);
}

TEST_F(MenuCommands, NameTheSpeciesOfTheRun)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"CaCO3=CaO+CO2/1,1,1"_s});
    EXPECT_EQ(Entry("Mnu_Reactif(0)").text(), u"H2"_s);
    EXPECT_EQ(Entry("Mnu_Reactif(1)").text(), u"O2"_s);
    EXPECT_FALSE(Entry("Mnu_Reactif(2)").isVisible());
    EXPECT_EQ(Entry("Mnu_Produit(3)").text(), u"H2O"_s);
    EXPECT_FALSE(Entry("Mnu_Produit(4)").isVisible());

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});

    EXPECT_EQ(Entry("Mnu_Reactif(0)").text(), u"CaCO3"_s);
    EXPECT_FALSE(Entry("Mnu_Reactif(1)").isVisible());
    EXPECT_EQ(Entry("Mnu_Produit(4)").text(), u"CO2"_s);
    EXPECT_TRUE(Entry("Mnu_Produit(4)").isVisible());
}

TEST_F(MenuCommands, NameTheSlotsOutsideARun)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    messages.answers = {QMessageBox::Yes};

    Choose("Mnu_Close");

    const std::pair<const char*, QString> captions[]{
        {"Mnu_Reactif(0)", u"R1"_s}, {"Mnu_Reactif(1)", u"R2"_s}, {"Mnu_Reactif(2)", u"R3"_s},
        {"Mnu_Produit(3)", u"P1"_s}, {"Mnu_Produit(4)", u"P2"_s}, {"Mnu_Produit(5)", u"P3"_s}};
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(Entry(name).text(), caption);
        EXPECT_TRUE(Menu().IsVisible(name)) << name;
    }
}

TEST_F(MenuCommands, TellTheCompositionOfAReactantWithTheExerciseHidden)
{
    OpenFile({u"H2O+C=H2+CO/1,1,1,1"_s});
    Type(Box(0), u"2"_s);
    bool isHidden = false;
    messages.whileOpen = [&isHidden](const Message&) { isHidden = FindWindow("frmEquation") == nullptr; };

    Choose("Mnu_Reactif(0)");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Information);
    // The coefficient counts: 2 x 2 and 2 x 1.
    EXPECT_EQ(messages.shown[0].text,
              u"La molécule H2O est composée de :\n"
              " -->  4 atomes d'hydrogène de symbole H;\n"
              " -->  2 atomes d'oxygène de symbole O."_s);
    EXPECT_TRUE(isHidden);
    EXPECT_TRUE(Exercise().isVisible());
}

TEST_F(MenuCommands, TellTheCompositionOfAProductBesideTheExercise)
{
    OpenFile({u"H2O+C=H2+CO/1,1,1,1"_s});
    bool isVisible = false;
    messages.whileOpen = [&isVisible](const Message&) { isVisible = FindWindow("frmEquation") != nullptr; };

    Choose("Mnu_Produit(4)");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text,
              u"La molécule CO est composée de :\n"
              " -->  1 atome de carbone de symbole C;\n"
              " -->  1 atome d'oxygène de symbole O."_s);
    EXPECT_TRUE(isVisible);
    EXPECT_TRUE(Exercise().isVisible());
}

TEST_F(MenuCommands, OpenTheChargesWithARunThatBeginsWithIons)
{
    OpenFile({kIron});

    EXPECT_TRUE(Entry("Mnu_Charge").isEnabled());
    EXPECT_TRUE(Entry("Mnu_Charge").isChecked());
    // 1 x 3 on the left; 1 x 2 + 1 x 2 on the right.
    EXPECT_EQ(Charges(), u"+ 3/+ 4"_s);
}

TEST_F(MenuCommands, ToggleTheCharges)
{
    OpenFile({kIron});

    Choose("Mnu_Charge");
    EXPECT_FALSE(Entry("Mnu_Charge").isChecked());
    EXPECT_EQ(Charges(), u"closed"_s);
    Type(Box(0), u"2"_s);

    Choose("Mnu_Charge");
    EXPECT_TRUE(Entry("Mnu_Charge").isChecked());
    // 2 x 3 on the left.
    EXPECT_EQ(Charges(), u"+ 6/+ 4"_s);
}

TEST_F(MenuCommands, ClearTheMarkOfChargesClosedByTheirTitleBar)
{
    OpenFile({kIron});

    FindWindow("frmCharge")->close();

    EXPECT_EQ(Charges(), u"closed"_s);
    EXPECT_FALSE(Entry("Mnu_Charge").isChecked());
    EXPECT_TRUE(Entry("Mnu_Charge").isEnabled());
}

TEST_F(MenuCommands, TakeTheChargesAwayAtAnEquationWithoutIons)
{
    OpenFile({kSilver, u"H2+O2=H2O/2,1,2"_s, kSilver});
    ASSERT_EQ(Charges(), u"0/0"_s);

    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    EXPECT_EQ(Charges(), u"closed"_s);
    EXPECT_FALSE(Entry("Mnu_Charge").isEnabled());
    EXPECT_FALSE(Entry("Mnu_Charge").isChecked());

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    // It stays closed until the pupil asks for it.
    EXPECT_EQ(Charges(), u"closed"_s);
    EXPECT_TRUE(Entry("Mnu_Charge").isEnabled());
    EXPECT_FALSE(Entry("Mnu_Charge").isChecked());
    Choose("Mnu_Charge");
    EXPECT_EQ(Charges(), u"0/0"_s);
}

TEST_F(MenuCommands, KeepTheChargesShutInARunThatBeginsWithoutIons)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, kSilver});
    EXPECT_FALSE(Entry("Mnu_Charge").isEnabled());

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});

    EXPECT_TRUE(Entry("Mnu_Charge").isEnabled());
    EXPECT_FALSE(Entry("Mnu_Charge").isChecked());
    EXPECT_EQ(Charges(), u"closed"_s);
}

TEST_F(MenuCommands, ShowAndHideTheStopwatchThatRunsOn)
{
    Choose("Mnu_Chrono");
    EXPECT_TRUE(Entry("Mnu_Chrono").isChecked());
    EXPECT_NE(FindWindow("frmChrono"), nullptr);
    Click(ChronoButton("chkStart_Stop"));

    Choose("Mnu_Chrono");
    EXPECT_FALSE(Entry("Mnu_Chrono").isChecked());
    EXPECT_EQ(FindWindow("frmChrono"), nullptr);
    ClockReaches(75);

    Choose("Mnu_Chrono");
    EXPECT_EQ(Control<QLabel>(shell->Stopwatch().Window(), "lblTime").text(), u"00:07,5"_s);
}

TEST_F(MenuCommands, UnloadAStopwatchThatTheUserCloses)
{
    Choose("Mnu_Chrono");
    Click(ChronoButton("chkStart_Stop"));
    ClockReaches(75);

    Click(ChronoButton("cmdEnd"));
    Settle();
    EXPECT_FALSE(Entry("Mnu_Chrono").isChecked());
    EXPECT_EQ(FindWindow("frmChrono"), nullptr);

    Choose("Mnu_Chrono");
    EXPECT_EQ(Control<QLabel>(shell->Stopwatch().Window(), "lblTime").text(), u"00:00,0"_s);
    EXPECT_TRUE(ChronoButton("chkStart_Stop").isEnabled());
}

TEST_F(MenuCommands, OnlyHideTheStopwatchOfAScoredRun)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    Choose("Mnu_Chrono");
    EXPECT_FALSE(ChronoButton("cmdRAZ").isEnabled());
    EXPECT_FALSE(ChronoButton("chkStart_Stop").isEnabled());

    Click(ChronoButton("cmdEnd"));
    Settle();

    EXPECT_FALSE(Entry("Mnu_Chrono").isChecked());
    EXPECT_EQ(FindWindow("frmChrono"), nullptr);
    ClockReaches(75);
    EXPECT_DOUBLE_EQ(State().stopwatch.ElapsedSeconds, 7.5);
    Choose("Mnu_Chrono");
    shell->Stopwatch().Window().close();
    EXPECT_EQ(FindWindow("frmChrono"), nullptr);
    ClockReaches(80);
    EXPECT_DOUBLE_EQ(State().stopwatch.ElapsedSeconds, 8.0);
}

TEST_F(MenuCommands, TellABadSymbolBeforeTheComposition)
{
    OpenFile({u"H2+Xy=HXy/1,2,2"_s});
    messages.shown.clear();

    Choose("Mnu_Reactif(1)");

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal - Erreur dans le fichier Serie1.Equ"_s);
    EXPECT_EQ(messages.shown[0].text,
              u"Il existe une erreur dans le fichier d'équations : Serie1.Equ\n\n"
              "Le symbole de l'atome suivant 'Xy' est incorrect.\nVeuillez corriger ce fichier."_s);
    EXPECT_EQ(messages.shown[1].icon, QMessageBox::Information);
}

TEST_F(MenuCommands, GiveTheKeyboardBackToTheExercise)
{
    OpenFile({kIron});
    // Twice each: what an entry opened, its second choice takes away.
    for (const char* const entry :
         {"Mnu_Taille(2)", "Mnu_Taille(0)", "Mnu_Atome", "Mnu_Atome", "Mnu_Charge", "Mnu_Charge",
          "Mnu_Chrono", "Mnu_Chrono", "Mnu_Reactif(0)", "Mnu_Produit(3)", "Mnu_Copy", "Mnu_Del", "Mnu_Tip",
          "Mnu_Web", "Mnu_Password", "Mnu_Solution"}) {
        shell->MainWindow().activateWindow();
        Settle();
        ASSERT_EQ(QApplication::activeWindow(), &shell->MainWindow());
        if (QLatin1String(entry) == QLatin1String("Mnu_Password"))
            script.On("frmPassWord",
                      [](QWidget& window) { Click(Control<QAbstractButton>(window, "cmdCancel")); });

        Choose(entry);
        Settle();

        EXPECT_EQ(QApplication::activeWindow(), &Exercise()) << entry;
    }
}

TEST_F(MenuCommands, LeaveTheKeyboardToTheWindowThatTheyOpenAndTakeItBackWithIt)
{
    OpenFile({kIron});
    const std::pair<const char*, const char*> tools[]{{"Mnu_MassMol", "frmMassMol"},
                                                      {"Mnu_Pref", "frmPref"},
                                                      {"Mnu_CalMol", "frmCalMol"},
                                                      {"Mnu_Tableau", "frmStoikal"},
                                                      {"Mnu_SimulAnim", "frmStoikal"}};
    for (const auto& [entry, window] : tools) {
        for (const bool opens : {true, false}) {
            shell->MainWindow().activateWindow();
            Settle();

            Choose(entry);
            Settle();

            ASSERT_NE(QApplication::activeWindow(), nullptr);
            EXPECT_EQ(QApplication::activeWindow()->objectName().toStdString(),
                      opens ? window : "frmEquation")
                << entry;
        }
    }
}

TEST_F(MenuCommands, GiveTheKeyboardBackAfterTheAtomsWereChosen)
{
    OpenFile({kIron});
    shell->MainWindow().activateWindow();
    auto& view = Control<QMenu>(shell->MainWindow(), "Mnu_View");
    Q_EMIT view.aboutToShow();

    Choose("Mnu_Fenetre(1)");
    Settle();

    EXPECT_EQ(QApplication::activeWindow(), &Exercise());
}

TEST_F(MenuCommands, LeaveTheKeyboardToTheExerciseAfterAClickOnTheAtoms)
{
    OpenFile({kIron});
    for (const char* const window : {"frmReactif", "frmProduit"}) {
        shell->MainWindow().activateWindow();
        Settle();
        ASSERT_EQ(QApplication::activeWindow(), &shell->MainWindow());

        QTest::mouseClick(&Atoms(window), Qt::LeftButton);
        Settle();

        EXPECT_EQ(QApplication::activeWindow(), &Exercise()) << window;
    }
}

} // namespace stoikal
