#include "forms/window_events.h"
#include "shell/windows/frm_pref.h"

#include "base/settings_store.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_size_limit.h"
#include "support/window_driver.h"

#include <QCheckBox>
#include <QFrame>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FrmPref : public testing::Test
{
protected:
    frmPref& Open()
    {
        window = std::make_unique<frmPref>(frmPref::Services{settings, dialogs, messages}, nullptr);
        colours = std::make_unique<QSignalSpy>(window.get(), &frmPref::ColoursChanged);
        arrangements = std::make_unique<QSignalSpy>(window.get(), &frmPref::ArrangementChanged);
        window->show();
        Settle();
        return *window;
    }

    void Write(const QString& key, const QString& value)
    {
        EXPECT_TRUE(settings.Write(u"Options"_s, key, value));
    }
    QString Setting(const QString& key) { return settings.Read(u"Options"_s, key); }
    QRadioButton& Option(const char* name) { return Control<QRadioButton>(*window, name); }
    QCheckBox& Box(const char* name) { return Control<QCheckBox>(*window, name); }

    /// The colour that stands in the middle of a sample on the screen.
    QColor Sample(const char* name)
    {
        auto& frame = Control<QFrame>(*window, name);
        return frame.grab().toImage().pixelColor(frame.width() / 2, frame.height() / 2);
    }
    void Palette() { Click(Control<QPushButton>(*window, "cmdPalette")); }

    /// The person's step with a disk that takes nothing; it is told once, and he
    /// does not try again.
    void WithFullDisk(const std::function<void()>& step)
    {
        messages.answers = {QMessageBox::Cancel};
        LimitFileSize(0);
        step();
        LimitFileSize(RLIM_INFINITY);
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
        EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
        EXPECT_EQ(messages.shown[0].buttons, QMessageBox::Retry | QMessageBox::Cancel);
        const QString text = messages.shown[0].text;
        EXPECT_TRUE(text.startsWith(u"Votre préférence n'a pas été enregistrée.\n\n"_s))
            << text.toStdString();
        EXPECT_TRUE(text.contains(ini)) << text.toStdString();
        EXPECT_TRUE(text.endsWith(u"puis recommencez."_s)) << text.toStdString();
        EXPECT_TRUE(window->isVisible());
    }

    QTemporaryDir folder;
    QString ini = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;
    Settings settings{store, ini};
    FakeDialogs dialogs;
    FakeMessages messages;
    std::unique_ptr<frmPref> window;
    std::unique_ptr<QSignalSpy> colours;
    std::unique_ptr<QSignalSpy> arrangements;
    const QString kReactants = u"BackGround Color Reactifs"_s;
    const QString kProducts = u"BackGround Color Produits"_s;
    const QString kArrangement = u"Affichage fenetres"_s;
    const QString kTips = u"Show Tips at Startup"_s;
    const QString kBubbles = u"Show info-bulles at Startup"_s;
};

} // namespace

TEST_F(FrmPref, HasItsFixedWords)
{
    frmPref& pref = Open();

    EXPECT_EQ(pref.windowTitle(), u"Préférences"_s);
    EXPECT_EQ(Option("optColor(0)").text(), u"partie réactifs"_s);
    EXPECT_EQ(Option("optColor(1)").text(), u"partie produits"_s);
    EXPECT_EQ(Option("optAffichage(0)").text(), u"mode portrait"_s);
    EXPECT_EQ(Option("optAffichage(1)").text(), u"mode paysage"_s);
    EXPECT_EQ(Control<QPushButton>(pref, "cmdPalette").text(), u"Palette de couleurs"_s);
    EXPECT_EQ(Control<QPushButton>(pref, "cmdColor_Defaut").text(), u"Couleurs par défaut"_s);
    EXPECT_EQ(Box("chkLoadTipsAtStartup").text(), u"&Afficher les astuces au démarrage"_s);
    EXPECT_EQ(Box("chkInfoBulles").text(), u"Afficher les info-bulles"_s);
    EXPECT_FALSE(pref.isModal());
    EXPECT_TRUE(Control<QWidget>(pref, "Frame2").isAncestorOf(&Option("optAffichage(1)")));
}

TEST_F(FrmPref, PresetsTheFirstOfEachPairAndWritesNothingByOpening)
{
    Open();

    EXPECT_TRUE(Option("optColor(0)").isChecked());
    EXPECT_TRUE(Option("optAffichage(0)").isChecked());
    EXPECT_FALSE(QFile::exists(ini));
    EXPECT_EQ(arrangements->count(), 0);
}

TEST_F(FrmPref, KeepsTheDesignColoursWithoutAStoredOne)
{
    Open();

    EXPECT_EQ(Sample("shpColor(0)"), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(Sample("shpColor(1)"), QColor(0x80, 0xFF, 0xFF)); // FFFF80 has blue in the high byte.
}

TEST_F(FrmPref, TakesAllFromTheSettings)
{
    Write(kReactants, u"255"_s);
    Write(kProducts, u"16711680"_s); // FF0000: blue.
    Write(kArrangement, u"1"_s);
    Write(kTips, u"0"_s);
    Write(kBubbles, u"1"_s);

    Open();

    EXPECT_EQ(Sample("shpColor(0)"), QColor(255, 0, 0));
    EXPECT_EQ(Sample("shpColor(1)"), QColor(0, 0, 255));
    EXPECT_TRUE(Option("optAffichage(1)").isChecked());
    EXPECT_FALSE(Box("chkLoadTipsAtStartup").isChecked());
    EXPECT_TRUE(Box("chkInfoBulles").isChecked());
    EXPECT_EQ(arrangements->count(), 0);
}

TEST_F(FrmPref, OffersSixteenGreysAndTheColourOfTheSide)
{
    Open();
    dialogs.colourAnswers = {std::nullopt};

    Palette();

    ASSERT_EQ(dialogs.coloursAsked.size(), 1U);
    EXPECT_EQ(dialogs.coloursAsked[0].initial, QColor(0xC0, 0xFF, 0xC0));
    const QList<QColor>& greys = dialogs.coloursAsked[0].ownColours;
    ASSERT_EQ(greys.size(), 16);
    EXPECT_EQ(greys[0], QColor(15, 15, 15)); // 15 * 1
    EXPECT_EQ(greys[7], QColor(120, 120, 120)); // 15 * 8
    EXPECT_EQ(greys[15], QColor(240, 240, 240)); // 15 * 16
}

TEST_F(FrmPref, CancelledColourChangesNothing)
{
    Open();
    dialogs.colourAnswers = {std::nullopt};

    Palette();

    EXPECT_EQ(Setting(kReactants), QString());
    EXPECT_EQ(Sample("shpColor(0)"), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(colours->count(), 0);
}

TEST_F(FrmPref, ColourOfTheChosenSideActsAtOnce)
{
    Open();
    Click(Option("optColor(1)"));
    dialogs.colourAnswers = {QColor(1, 2, 3)};

    Palette();

    EXPECT_EQ(dialogs.coloursAsked[0].initial, QColor(0x80, 0xFF, 0xFF));
    // 3 * 65536 + 2 * 256 + 1 = 197121.
    EXPECT_EQ(Setting(kProducts), u"197121"_s);
    EXPECT_EQ(Setting(kReactants), QString());
    EXPECT_EQ(Sample("shpColor(1)"), QColor(1, 2, 3));
    EXPECT_EQ(Sample("shpColor(0)"), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(colours->count(), 1);
}

TEST_F(FrmPref, DefaultsComeBackForBothSides)
{
    Write(kReactants, u"255"_s);
    Write(kProducts, u"0"_s);
    Open();

    Click(Control<QPushButton>(*window, "cmdColor_Defaut"));

    EXPECT_EQ(Setting(kReactants), u"12648384"_s); // C0FFC0
    EXPECT_EQ(Setting(kProducts), u"16777088"_s); // FFFF80
    EXPECT_EQ(Sample("shpColor(0)"), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(Sample("shpColor(1)"), QColor(0x80, 0xFF, 0xFF));
    EXPECT_EQ(colours->count(), 1);
}

TEST_F(FrmPref, ArrangementIsWrittenAndToldAtOnce)
{
    Open();

    Click(Option("optAffichage(1)"));
    EXPECT_EQ(Setting(kArrangement), u"1"_s);
    EXPECT_EQ(arrangements->count(), 1);
    Click(Option("optAffichage(1)")); // It is chosen already.
    EXPECT_EQ(arrangements->count(), 1);
    Click(Option("optAffichage(0)"));

    EXPECT_EQ(Setting(kArrangement), u"0"_s);
    EXPECT_EQ(arrangements->count(), 2);
}

TEST_F(FrmPref, SwitchesAreWrittenAtOnce)
{
    Write(kTips, u"1"_s);
    Write(kBubbles, u"0"_s);
    Open();

    Click(Box("chkLoadTipsAtStartup"));
    Click(Box("chkInfoBulles"));

    EXPECT_EQ(Setting(kTips), u"0"_s);
    EXPECT_EQ(Setting(kBubbles), u"1"_s);
}

TEST_F(FrmPref, ColourThatCannotBeStoredIsReportedAndNotTaken)
{
    Write(kReactants, u"255"_s);
    Open();
    dialogs.colourAnswers = {QColor(1, 2, 3)};

    WithFullDisk([this] { Palette(); });

    EXPECT_EQ(Setting(kReactants), u"255"_s);
    EXPECT_EQ(Sample("shpColor(0)"), QColor(255, 0, 0));
    EXPECT_EQ(colours->count(), 0);
}

TEST_F(FrmPref, DefaultsThatCannotBeStoredAreReportedOnceAndNotTaken)
{
    Write(kReactants, u"255"_s);
    Open();

    WithFullDisk([this] { Click(Control<QPushButton>(*window, "cmdColor_Defaut")); });

    EXPECT_EQ(Sample("shpColor(0)"), QColor(255, 0, 0));
    EXPECT_EQ(colours->count(), 0);
}

TEST_F(FrmPref, ArrangementThatCannotBeStoredIsReportedAndGoesBack)
{
    Open();

    WithFullDisk([this] { Click(Option("optAffichage(1)")); });

    EXPECT_TRUE(Option("optAffichage(0)").isChecked());
    EXPECT_FALSE(Option("optAffichage(1)").isChecked());
    EXPECT_EQ(arrangements->count(), 0);
}

TEST_F(FrmPref, SwitchThatCannotBeStoredIsReportedAndGoesBack)
{
    for (const auto& [key, name] : {std::pair(kTips, "chkLoadTipsAtStartup"), {kBubbles, "chkInfoBulles"}}) {
        Write(key, u"1"_s);
        Open();
        messages.shown.clear();

        WithFullDisk([this, name = name] { Click(Box(name)); });

        EXPECT_TRUE(Box(name).isChecked()) << name;
        EXPECT_EQ(Setting(key), u"1"_s) << name;
    }
}

TEST_F(FrmPref, SwitchIsStoredAtTheNextTryAndShownSo)
{
    Write(kTips, u"1"_s);
    Open();
    messages.answers = {QMessageBox::Retry};
    messages.whileOpen = [this](const Message&) {
        EXPECT_TRUE(Box("chkLoadTipsAtStartup").isChecked()) << "not stored yet";
        LimitFileSize(RLIM_INFINITY);
    };

    LimitFileSize(0);
    Click(Box("chkLoadTipsAtStartup"));

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(Setting(kTips), u"0"_s);
    EXPECT_FALSE(Box("chkLoadTipsAtStartup").isChecked());
}

TEST_F(FrmPref, AsksForItsHelpPage)
{
    const WindowEvents events;
    Open();
    QSignalSpy help(&events, &WindowEvents::HelpRequested);

    Press(Option("optColor(0)"), Qt::Key_F1);

    EXPECT_EQ(help.count(), 1);
}

} // namespace stoikal
