#include "forms/window_events.h"
#include "tools/windows/frm_tip.h"

#include "base/settings_store.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FrmTip : public testing::Test
{
protected:
    frmTip& Open(const QByteArray& tips)
    {
        WriteBytes(path, tips);
        return OpenWithoutFile();
    }

    frmTip& OpenWithoutFile()
    {
        window = std::make_unique<frmTip>(frmTip::Services{settings, randomness, messages}, path, nullptr);
        window->show();
        Settle();
        return *window;
    }

    QString TipText() { return Control<QLabel>(*window, "lblTipText").text(); }
    QCheckBox& AtStart() { return Control<QCheckBox>(*window, "chkLoadTipsAtStartup"); }
    QString Setting() { return settings.Read(u"Options"_s, u"Show Tips at Startup"_s); }

    QTemporaryDir folder;
    QString path = folder.filePath(u"TipOfDayEqChm.txt"_s);
    QString ini = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;
    Settings settings{store, ini};
    FakeRandomness randomness;
    FakeMessages messages;
    std::unique_ptr<frmTip> window;
};

} // namespace

TEST_F(FrmTip, HasItsFixedWords)
{
    frmTip& tip = Open("a\n");

    EXPECT_EQ(tip.windowTitle(), u"Astuce du jour"_s);
    EXPECT_EQ(Control<QLabel>(tip, "Label1").text(), u"Savez-vous que ..."_s);
    EXPECT_EQ(AtStart().text(), u"&Afficher les astuces au démarrage"_s);
    EXPECT_EQ(Control<QPushButton>(tip, "cmdNextTip").text(), u"Astuce &suivante"_s);
    EXPECT_EQ(Control<QPushButton>(tip, "cmdOK").text(), u"OK"_s);
    EXPECT_FALSE(Control<QLabel>(tip, "Picture1").pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(FrmTip, ShowsATipChosenByChance)
{
    randomness.next = 0.5; // floor(0.5 * 3 + 1) = 2.

    Open("un\ndeux\ntrois\n");

    EXPECT_EQ(TipText(), u"deux"_s);
}

TEST_F(FrmTip, ChoosesAnotherOnDemand)
{
    Open("un\ndeux\ntrois\n");
    ASSERT_EQ(TipText(), u"un"_s);
    randomness.next = 0.7; // floor(0.7 * 3 + 1) = 3.

    Click(Control<QPushButton>(*window, "cmdNextTip"));

    EXPECT_EQ(TipText(), u"trois"_s);
}

TEST_F(FrmTip, TellsAMissingFileInTheWindow)
{
    OpenWithoutFile();

    EXPECT_TRUE(TipText().startsWith(u"Le fichier TipOfDayEqChm.txt n'a pas été trouvé? \nCréez"_s));
    const QString told = TipText();
    Click(Control<QPushButton>(*window, "cmdNextTip"));
    EXPECT_EQ(TipText(), told);
}

TEST_F(FrmTip, EmptyFileLeavesTheLabelAsItIs)
{
    Open("");

    EXPECT_EQ(TipText(), QString());
}

TEST_F(FrmTip, EmptyLineShowsAnEmptyLabel)
{
    Open("un\n\n");
    ASSERT_EQ(TipText(), u"un"_s);
    randomness.next = 0.6;

    Click(Control<QPushButton>(*window, "cmdNextTip"));

    EXPECT_EQ(TipText(), QString());
}

TEST_F(FrmTip, TakesTheSwitchFromItsSetting)
{
    for (const auto& [value, isOn] :
         {std::pair(u"1"_s, true), {u"0"_s, false}, {u"2"_s, true}, {QString(), false}, {u"oui"_s, false}}) {
        EXPECT_TRUE(settings.Write(u"Options"_s, u"Show Tips at Startup"_s, value));
        Open("a\n");
        EXPECT_EQ(AtStart().isChecked(), isOn) << value.toStdString();
        EXPECT_EQ(Setting(), value);
    }
}

TEST_F(FrmTip, WritesTheSwitchAtOnce)
{
    EXPECT_TRUE(settings.Write(u"Options"_s, u"Show Tips at Startup"_s, u"1"_s));
    Open("a\n");

    Click(AtStart());
    EXPECT_EQ(Setting(), u"0"_s);
    Click(AtStart());
    EXPECT_EQ(Setting(), u"1"_s);
}

TEST_F(FrmTip, SwitchThatCannotBeStoredIsReportedAndGoesBack)
{
    EXPECT_TRUE(settings.Write(u"Options"_s, u"Show Tips at Startup"_s, u"1"_s));
    Open("a\n");

    LimitFileSize(0);
    Click(AtStart());
    LimitFileSize(RLIM_INFINITY);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Votre préférence n'a pas été enregistrée.\n\n"_s));
    EXPECT_TRUE(AtStart().isChecked());
    EXPECT_EQ(Setting(), u"1"_s);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmTip, ShowsMarkUpAsItIs)
{
    Open("<b>1 < 2</b>\n");

    EXPECT_EQ(Control<QLabel>(*window, "lblTipText").textFormat(), Qt::PlainText);
}

TEST_F(FrmTip, ScrollsATipThatIsTooLongForItsSheet)
{
    Open(QByteArray("mot ").repeated(400) + '\n');

    EXPECT_GT(Control<QScrollArea>(*window, "sheet").verticalScrollBar()->maximum(), 0);
}

TEST_F(FrmTip, GoesByItsButton)
{
    Open("a\n");

    Click(Control<QPushButton>(*window, "cmdOK"));

    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmTip, StaysOnEnterInTheSwitch)
{
    Open("a\n");

    Press(AtStart(), Qt::Key_Return);

    EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmTip, GoesByEscapeAsItHoldsNothingToLose)
{
    Open("a\n");

    Press(AtStart(), Qt::Key_Escape);

    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmTip, GoesByEnterOnItsButton)
{
    Open("a\n");
    auto& ok = Control<QPushButton>(*window, "cmdOK");
    ok.setFocus();

    Press(ok, Qt::Key_Return);

    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmTip, AsksForItsHelpPage)
{
    const WindowEvents events;
    Open("a\n");
    QSignalSpy help(&events, &WindowEvents::HelpRequested);

    Press(AtStart(), Qt::Key_F1);

    EXPECT_EQ(help.count(), 1);
}

} // namespace stoikal
