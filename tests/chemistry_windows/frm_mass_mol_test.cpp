#include "chemistry/windows/frm_mass_mol.h"
#include "forms/window_events.h"

#include "base/number_text.h"
#include "base/settings_store.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_size_limit.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWindow>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Over a main window that fills a screen of 1024 x 768 but for 28 pixels at its bottom.
class FrmMassMol : public testing::Test
{
protected:
    FrmMassMol()
    {
        mainWindow.setGeometry(0, 0, 1024, 740);
        mainWindow.show();
        Settle();
    }

    void Make()
    {
        window = std::make_unique<frmMassMol>(frmMassMol::Doors{messages, settings, screen, separator},
                                              QPoint(300, 450), &mainWindow);
        changes = std::make_unique<QSignalSpy>(window.get(), &frmMassMol::GasDataChanged);
    }

    void Open(const QStringList& symbols = {u"H"_s, u"O"_s})
    {
        Make();
        window->Open(symbols);
        window->activateWindow();
        Settle();
    }

    QLineEdit& Box(int value) { return Control<QLineEdit>(*window, qPrintable(ArrayName("txtData", value))); }
    QCheckBox& Tick(int value)
    {
        return Control<QCheckBox>(*window, qPrintable(ArrayName("chkData", value)));
    }
    QPushButton& Calcul() { return Control<QPushButton>(*window, "cmdCalcul"); }
    QLabel& List() { return Control<QLabel>(*window, "lblMassMol"); }
    QStringList Texts() { return {Box(0).text(), Box(1).text(), Box(2).text()}; }

    void SetTicks(bool pressure, bool temperature, bool volume)
    {
        const std::array<bool, 3> wanted{pressure, temperature, volume};
        for (int value = 0; value < 3; ++value) {
            if (Tick(value).isChecked() != wanted.at(static_cast<size_t>(value)))
                Click(Tick(value));
        }
    }

    void Enter(int value, const QString& text)
    {
        Box(value).clear();
        Type(Box(value), text);
    }

    QString Stored(const QString& key, const QString& section = u"Données"_s)
    {
        return settings.Read(section, key);
    }
    void Store(const QString& key, const QString& value, const QString& section = u"Données"_s)
    {
        EXPECT_TRUE(settings.Write(section, key, value));
    }
    void StorePlace(const QString& left, const QString& top)
    {
        Store(u"Left"_s, left, u"MassMol Window"_s);
        Store(u"Top"_s, top, u"MassMol Window"_s);
    }
    int Bottom() const { return window->frameGeometry().bottom(); }

    QTemporaryDir folder;
    QString file = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;
    Settings settings{store, file};
    FakeMessages messages;
    FakeScreen screen;
    QChar separator = u',';
    QWidget mainWindow;
    std::unique_ptr<frmMassMol> window;
    std::unique_ptr<QSignalSpy> changes;
};

} // namespace

TEST_F(FrmMassMol, HasItsCaptions)
{
    Open();

    EXPECT_EQ(window->windowTitle(), u"Masses molaires"_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label1").text(), u"Volume molaire  :"_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label2").text(), u"Masses molaires :"_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label3").text(), u"Pression (en hPa) : "_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label4").text(), u"Température   (en °C) : "_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label5").text(), u"Volume molaire (en L/mol)  :"_s);
    EXPECT_EQ(Calcul().text(), u"Calcul"_s);
    for (int value = 0; value < 3; ++value) {
        EXPECT_FALSE(Box(value).accessibleName().isEmpty());
        EXPECT_FALSE(Tick(value).accessibleName().isEmpty());
    }
}

TEST_F(FrmMassMol, OpensOnThePressureAndTemperatureOfMeltingIce)
{
    Open();

    EXPECT_EQ(Texts(), (QStringList{u"1013"_s, u"0,0"_s, u"22,420"_s})); // 22.4195
    EXPECT_TRUE(Tick(0).isChecked());
    EXPECT_TRUE(Tick(1).isChecked());
    EXPECT_FALSE(Tick(2).isChecked());
    EXPECT_TRUE(Box(0).isEnabled());
    EXPECT_TRUE(Box(1).isEnabled());
    EXPECT_FALSE(Box(2).isEnabled());
    EXPECT_TRUE(Calcul().isEnabled());
}

TEST_F(FrmMassMol, OpensOnWhatTheSettingsKeep)
{
    Store(u"Pression"_s, u"1015.578"_s);
    Store(u"Température"_s, u"20,04"_s);

    Open();

    EXPECT_EQ(Box(0).text(), u"1016"_s);
    EXPECT_EQ(Box(1).text(), u"20,0"_s);
    // 8.314472 * 293.15 = 2437.3874668; 2437387.4668 / 101600 = 23.99003
    EXPECT_EQ(Box(2).text(), u"23,990"_s);
}

TEST_F(FrmMassMol, TakesThePlainPressureWhereTheSettingReadsZero)
{
    for (const QString& kept : {u"0"_s, u"0.4"_s, u"rien"_s}) {
        Store(u"Pression"_s, kept);
        Open();
        EXPECT_EQ(Box(0).text(), u"1013"_s) << kept.toStdString();
    }
}

TEST_F(FrmMassMol, KeepsTheVolumeWithAllItsDigitsWhenItOpens)
{
    Open();

    EXPECT_EQ(Stored(u"Pression"_s), u"1013"_s);
    EXPECT_EQ(Stored(u"Température"_s), u"0"_s);
    EXPECT_TRUE(Stored(u"Volume molaire"_s).startsWith(u"22.4195264"_s))
        << Stored(u"Volume molaire"_s).toStdString();
    EXPECT_EQ(changes->size(), 1);
}

TEST_F(FrmMassMol, ComputesTheVolume)
{
    Open();
    Enter(0, u"1013,25"_s);
    Enter(1, u"20,5"_s);

    Click(Calcul());

    // 8.314472 * 293.65 = 2441.5447028; 2441544.7028 / 101325 = 24.0961727
    EXPECT_EQ(Texts(), (QStringList{u"1013,25"_s, u"20,5"_s, u"24,096"_s}));
    EXPECT_EQ(Stored(u"Pression"_s), u"1013.25"_s);
    EXPECT_EQ(Stored(u"Température"_s), u"20.5"_s);
    EXPECT_NEAR(ReadNumber(Stored(u"Volume molaire"_s)), 24.0961727, 1e-6);
}

TEST_F(FrmMassMol, ComputesTheTemperature)
{
    Open();
    SetTicks(true, false, true);
    Enter(0, u"1000"_s);
    Enter(2, u"24"_s);

    Click(Calcul());

    EXPECT_EQ(Texts(), (QStringList{u"1000"_s, u"15,5"_s, u"24"_s})); // 2400 / 8.314472 - 273.15 = 15.50333
    EXPECT_NEAR(ReadNumber(Stored(u"Température"_s)), 15.5033264, 1e-6);
    EXPECT_EQ(Stored(u"Volume molaire"_s), u"24"_s);
}

TEST_F(FrmMassMol, ComputesThePressure)
{
    Open();
    SetTicks(false, true, true);
    Enter(1, u"20"_s);
    Enter(2, u"24.0"_s);

    Click(Calcul());

    EXPECT_EQ(Texts(), (QStringList{u"1016"_s, u"20"_s, u"24.0"_s})); // 1015.578
    EXPECT_NEAR(ReadNumber(Stored(u"Pression"_s)), 1015.578111, 1e-6);
    EXPECT_EQ(Stored(u"Volume molaire"_s), u"24"_s);
}

TEST_F(FrmMassMol, ShowsThePointWhereItIsTheSystemsSign)
{
    separator = u'.';

    Open();

    EXPECT_EQ(Texts(), (QStringList{u"1013"_s, u"0.0"_s, u"22.420"_s}));
    EXPECT_EQ(List().text(), u"H : 1.00794 g/mol\nO : 15.9994 g/mol"_s);
}

TEST_F(FrmMassMol, TakesOneForAPressureOfZero)
{
    Open();
    for (const QString& pressure : {QString(), u"0"_s}) {
        Enter(0, pressure);
        Enter(1, u"0"_s);

        Click(Calcul());

        EXPECT_EQ(Box(0).text(), u"1"_s);
        EXPECT_EQ(Box(2).text(), u"22710,980"_s); // 2271098.0268 / 100
    }
}

TEST_F(FrmMassMol, RaisesATemperatureBelowTheLowestOne)
{
    Open();
    Enter(1, u"-300"_s);
    Click(Calcul());
    EXPECT_EQ(Box(1).text(), u"-273"_s);
    EXPECT_EQ(Box(2).text(), u"0,012"_s); // 8.314472 * 0.15 * 1000 / 101300

    SetTicks(false, true, true);
    Enter(1, u"-300"_s);
    Enter(2, u"24"_s);
    Click(Calcul());
    EXPECT_EQ(Box(1).text(), u"-273"_s);
    EXPECT_EQ(Box(0).text(), u"1"_s); // 0.52
}

TEST_F(FrmMassMol, EnablesABoxByItsTick)
{
    Open();

    Click(Tick(2));
    EXPECT_TRUE(Box(2).isEnabled());
    Click(Tick(0));
    EXPECT_FALSE(Box(0).isEnabled());
    Click(Tick(0));
    EXPECT_TRUE(Box(0).isEnabled());
    EXPECT_TRUE(Box(1).isEnabled());
}

TEST_F(FrmMassMol, ComputesWithExactlyTwoTicks)
{
    Open();
    for (int ticks = 0; ticks < 8; ++ticks) {
        const std::array<bool, 3> wanted{(ticks & 1) != 0, (ticks & 2) != 0, (ticks & 4) != 0};

        SetTicks(wanted[0], wanted[1], wanted[2]);

        const int count = int{wanted[0]} + int{wanted[1]} + int{wanted[2]};
        EXPECT_EQ(Calcul().isEnabled(), count == 2) << ticks;
    }
}

TEST_F(FrmMassMol, ComputesAgainOnlyAfterAChange)
{
    Open();
    Click(Calcul());
    EXPECT_FALSE(Calcul().isEnabled());

    Type(Box(0), u"1"_s);
    EXPECT_TRUE(Calcul().isEnabled());
    Click(Calcul());
    EXPECT_FALSE(Calcul().isEnabled());

    // A change with three ticks is not enough.
    Click(Tick(2));
    Type(Box(2), u"1"_s);
    EXPECT_FALSE(Calcul().isEnabled());
    Click(Tick(0));
    EXPECT_TRUE(Calcul().isEnabled());
}

TEST_F(FrmMassMol, TellsOfANewVolumeOnceItIsKept)
{
    Open();
    Enter(1, u"20"_s);
    QString keptThen;
    QObject::connect(window.get(), &frmMassMol::GasDataChanged,
                     [this, &keptThen] { keptThen = Stored(u"Volume molaire"_s); });

    Click(Calcul());

    EXPECT_EQ(changes->size(), 2);
    // 8.314472 * 293.15 * 1000 / 101300 = 24.061081
    EXPECT_NEAR(ReadNumber(keptThen), 24.061081, 1e-5);
}

TEST_F(FrmMassMol, TellsClearlyThatAVolumeOfZeroHasNoPressureAndLosesNothing)
{
    Open();
    const QString volumeBefore = Stored(u"Volume molaire"_s);
    SetTicks(false, true, true);
    Enter(1, u"-300"_s);
    Enter(2, u"0"_s);

    Click(Calcul());

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_TRUE(
        messages.shown[0].text.contains(u"un volume molaire nul ne permet pas de calculer la pression."_s));
    EXPECT_EQ(Texts(), (QStringList{u"1013"_s, u"-300"_s, u"0"_s}));
    EXPECT_EQ(Stored(u"Volume molaire"_s), volumeBefore);
    EXPECT_EQ(Stored(u"Pression"_s), u"1013"_s);
    EXPECT_EQ(changes->size(), 1);

    Enter(1, u"20"_s);
    Enter(2, u"24"_s);
    Click(Calcul());
    EXPECT_EQ(Box(0).text(), u"1016"_s);
}

TEST_F(FrmMassMol, ListsTheMassesOfTheAtoms)
{
    Open({u"K"_s, u"Mn"_s, u"O"_s, u"H"_s, u"Cl"_s});

    EXPECT_EQ(List().text(),
              u"K : 39,0983 g/mol\nMn : 54,938049 g/mol\nO : 15,9994 g/mol\nH : 1,00794 g/mol\n"
              "Cl : 35,4527 g/mol"_s);
}

TEST_F(FrmMassMol, HasNoMassForASymbolThatIsUnknown)
{
    Open({u"H"_s, u"Xy"_s});

    EXPECT_EQ(List().text(), u"H : 1,00794 g/mol\nXy : inconnu"_s);
}

TEST_F(FrmMassMol, TakesTheHeightOfItsList)
{
    Open({u"H"_s});
    const int low = window->height();
    EXPECT_EQ(window->height(), List().geometry().bottom() + 1 + 27); // 400 twips

    window->ListAtomMasses(
        {u"H"_s, u"C"_s, u"N"_s, u"O"_s, u"F"_s, u"P"_s, u"S"_s, u"K"_s, u"I"_s, u"U"_s, u"W"_s});
    EXPECT_EQ(window->height(), List().geometry().bottom() + 1 + 27);
    EXPECT_GT(window->height(), low + 9 * window->fontMetrics().height());
    EXPECT_GE(List().height(), List().sizeHint().height());

    window->ListAtomMasses({u"H"_s});
    EXPECT_EQ(window->height(), low);
}

TEST_F(FrmMassMol, OpensWhereItIsToldTheFirstTime)
{
    Open();

    EXPECT_EQ(window->pos(), QPoint(20, 30)); // 300 and 450 twips
}

TEST_F(FrmMassMol, OpensWhereItWas)
{
    StorePlace(u"3000"_s, u"1500"_s);

    Open();

    EXPECT_EQ(window->pos(), QPoint(200, 100));
}

TEST_F(FrmMassMol, ComesBackIntoSightFromAScreenThatIsGone)
{
    StorePlace(u"57600"_s, u"-4500"_s);

    Open();

    EXPECT_EQ(window->y(), 0);
    EXPECT_EQ(window->frameGeometry().right(), 1023);
}

TEST_F(FrmMassMol, MovesUpJustEnoughToStayWithinTheMainWindow)
{
    StorePlace(u"3000"_s, u"11000"_s);

    Open();

    EXPECT_EQ(window->x(), 200);
    EXPECT_EQ(Bottom(), mainWindow.geometry().bottom());
}

TEST_F(FrmMassMol, NeverMovesPastTheTop)
{
    mainWindow.resize(1024, 100);
    StorePlace(u"3000"_s, u"1500"_s);

    Open();

    EXPECT_EQ(window->y(), 0);
}

TEST_F(FrmMassMol, StaysWhereTheUserMovedItWhenTheEquationChanges)
{
    StorePlace(u"3000"_s, u"1500"_s);
    Open();
    window->move(400, 200);

    window->ListAtomMasses({u"C"_s});

    EXPECT_EQ(window->pos(), QPoint(400, 200));
    EXPECT_EQ(Stored(u"Left"_s, u"MassMol Window"_s), u"6000"_s);
}

TEST_F(FrmMassMol, MovesUpWhenALongerListWouldPassTheBottom)
{
    Open({u"H"_s});
    window->move(400, 740 - window->height());

    window->ListAtomMasses({u"H"_s, u"C"_s, u"N"_s, u"O"_s});

    EXPECT_EQ(window->x(), 400);
    EXPECT_EQ(Bottom(), mainWindow.geometry().bottom());
}

TEST_F(FrmMassMol, KeepsItsFourSettingsAtItsEnd)
{
    Open();
    window->move(400, 200);
    Store(u"Volume molaire"_s, u"1"_s);
    Enter(1, u"50"_s); // Typed, not computed with.

    window->Release();

    EXPECT_EQ(Stored(u"Left"_s, u"MassMol Window"_s), u"6000"_s);
    EXPECT_EQ(Stored(u"Top"_s, u"MassMol Window"_s), u"3000"_s);
    EXPECT_EQ(Stored(u"Pression"_s), u"1013"_s);
    EXPECT_EQ(Stored(u"Température"_s), u"0"_s);
    EXPECT_TRUE(Stored(u"Volume molaire"_s).startsWith(u"22.4195264"_s));
}

TEST_F(FrmMassMol, SelectsTheNumberThatIsClickedInto)
{
    Open();
    ClickInto(Box(1));

    ClickInto(Box(0));
    EXPECT_EQ(Box(0).selectedText(), u"1013"_s);
    Type(Box(0), u"9"_s);

    EXPECT_EQ(Box(0).text(), u"9"_s);
}

TEST_F(FrmMassMol, ComputesByEnterOnTheButton)
{
    Open();
    Enter(1, u"20"_s);
    Calcul().setFocus();

    Press(Calcul(), Qt::Key_Return);

    EXPECT_EQ(Box(2).text(), u"24,061"_s); // 22.4195 * 293.15 / 273.15
}

TEST_F(FrmMassMol, LeavesEnterAndEscapeWithoutEffect)
{
    Open();
    QSignalSpy closes(window.get(), &Form::CloseAsked);
    Enter(1, u"20"_s);

    Press(Box(1), Qt::Key_Return);
    Press(Box(1), Qt::Key_Escape);

    EXPECT_EQ(Box(2).text(), u"22,420"_s);
    EXPECT_EQ(closes.size(), 0);
}

TEST_F(FrmMassMol, AsksForHelpByF1AndTellsOfTheMouse)
{
    const WindowEvents events;
    Open();
    QSignalSpy asked(&events, &WindowEvents::HelpRequested);
    QSignalSpy moved(&events, &WindowEvents::PointerMoved);

    Press(Box(0), Qt::Key_F1);
    QTest::mouseMove(window->windowHandle(), QPoint(3, 3));
    QTest::mouseMove(window->windowHandle(), QPoint(4, 4));
    Settle();

    EXPECT_EQ(asked.size(), 1);
    EXPECT_GE(moved.size(), 1);
}

TEST_F(FrmMassMol, ReportsAMolarVolumeThatCannotBeStored)
{
    Open();
    Enter(1, u"20"_s);
    const QString before = Stored(u"Volume molaire"_s);
    changes->clear();

    LimitFileSize(0);
    Click(Calcul());
    LimitFileSize(RLIM_INFINITY);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(
        messages.shown[0].text.startsWith(u"Le volume molaire calculé n'est pas pris en compte.\n\n"_s))
        << messages.shown[0].text.toStdString();
    EXPECT_EQ(Stored(u"Volume molaire"_s), before);
    EXPECT_EQ(changes->count(), 0);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(Calcul().isEnabled());
}

} // namespace stoikal
