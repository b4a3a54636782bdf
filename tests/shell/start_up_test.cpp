#include "shell_fixture.h"

#include "base/fatal_fault.h"
#include "base/file_lock.h"
#include "forms/colours.h"

#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class StartOfTheProgram : public ShellTest
{
protected:
    QImage Background() { return shell->MainWindow().Area().viewport()->grab().toImage(); }
    QColor MiddleOfBackground()
    {
        const QImage image = Background();
        return image.pixelColor(image.rect().center());
    }

    void StartWithTipCounter()
    {
        LeaveTheSplash();
        MakeShell();
        QObject::connect(&shell->Starter(), &StartUp::TipAsked, [this] { ++tips; });
        shell->Start();
    }

    int tips = 0;
};

class VersionCheck : public StartOfTheProgram
{
protected:
    VersionCheck() { desktop.web.site = u"http://maker.example"_s; }
};

} // namespace

TEST_F(StartOfTheProgram, TakesItsStepsInOrder)
{
    Start();

    EXPECT_EQ(shell->Starter().Steps(),
              QStringList({u"update check"_s, u"window size"_s, u"caption"_s, u"background"_s,
                           u"user and settings"_s, u"file types"_s, u"counter"_s, u"menus"_s,
                           u"data folders"_s, u"journal"_s, u"splash"_s, u"tip"_s, u"bubbles"_s}));
}

TEST_F(StartOfTheProgram, TakesAwayWhatKilledProgramsLeft)
{
    const QString own = desktop.folders.appData + u"/Tovik_MARLEN/Stoikal/"_s;
    const QString documents = EquationFolder() + u'/';
    const QString cache = desktop.folders.cache + u'/';
    const QStringList left{own + u"ConfEQU_dupont.ini.lock"_s,  own + u"ConfEQU_dupont.ini.a1b2c3"_s,
                           documents + u"HighScore.txt.lock"_s, documents + u"HighScore.txt.a1b2c3"_s,
                           documents + u"Serie1.Equ.a1b2c3"_s,  documents + u"TipOfDayEqChm.txt.a1b2c3"_s,
                           EquationFolder() + u".lock"_s,       EquationFolder() + u".nouveau/Serie.Equ"_s,
                           cache + u"FileTemp_2.txt.a1b2c3"_s,  cache + u"FileTemp.txt.editeur.lock"_s,
                           cache + u"Delete_Me.txt.a1b2c3"_s};
    for (const QString& path : left) {
        QDir().mkpath(QFileInfo(path).path());
        WriteTextFile(path, {u"reste"_s});
        const timespec time{::time(nullptr) - 10, 0};
        const std::array<timespec, 2> times{time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times.data(), 0), 0);
    }
    WriteTextFile(documents + u"HighScore.txt.ancien"_s, {u"copie"_s});

    Start();

    for (const QString& path : left)
        EXPECT_FALSE(QFileInfo::exists(path)) << path.toStdString();
    EXPECT_FALSE(QFileInfo::exists(EquationFolder() + u".nouveau"_s));
    EXPECT_TRUE(QFileInfo::exists(documents + u"HighScore.txt.ancien"_s));
}

TEST_F(StartOfTheProgram, LeavesTheFolderThatAnotherStartIsFilling)
{
    ASSERT_TRUE(QDir().mkpath(EquationFolder()));
    const QString growing = EquationFolder() + u".nouveau"_s;
    ASSERT_TRUE(QDir().mkpath(growing));
    const FileLock other(EquationFolder(), 0);
    ASSERT_TRUE(other.IsHeld());

    Start();

    EXPECT_TRUE(QFileInfo::exists(growing));
    EXPECT_TRUE(QFileInfo::exists(EquationFolder() + u".lock"_s));
}

TEST_F(StartOfTheProgram, SaysNothingOfLocksWhereTheyCanBeHad)
{
    Start();

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StartOfTheProgram, ReportsSettingsThatCannotBeRead)
{
    const QString ini = desktop.folders.appData + u"/Tovik_MARLEN/Stoikal/ConfEQU_dupont.ini"_s;
    QDir().mkpath(ini);

    Start();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    EXPECT_TRUE(messages.shown[0].text.startsWith(
        u"Vos réglages ne peuvent pas être lus\u00A0:\n%1\n(c'est un dossier)\n"_s.arg(ini)))
        << messages.shown[0].text.toStdString();
}

TEST_F(StartOfTheProgram, HasDoneEachStepBeforeTheNext)
{
    desktop.web.site = u"http://maker.example"_s;
    desktop.folders.appData.clear();
    desktop.folders.documents.clear();
    MakeShell();
    shell->MainWindow().setWindowTitle(QString());
    desktop.dialogs.answers = {Dialogs::Choice{folder.filePath(u"a/Tovik_MARLEN/Stoikal/Conf_EQU.ini"_s), 0},
                               Dialogs::Choice{folder.filePath(u"d/Tovik_MARLEN/Stoikal/Resultat.txt"_s), 0}};
    messages.whileOpen = [this](const Message&) {
        // The first box asks for the settings, the second for the documents.
        const bool isFirst = messages.shown.size() == 1;
        EXPECT_EQ(desktop.web.asked.size(), 1);
        EXPECT_EQ(State().places.HauteurUtile, 10770);
        EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0"_s);
        EXPECT_EQ(State().places.IniUtilisateur.isEmpty(), isFirst);
        EXPECT_FALSE(shell->Journal().IsOpen());
        EXPECT_FALSE(shell->MainWindow().isVisible());
    };
    script.On("frmSplash", [this](QWidget& splash) {
        EXPECT_TRUE(shell->Journal().IsOpen());
        EXPECT_TRUE(shell->MainWindow().isVisible());
        EXPECT_EQ(Setting("Options", "Show Tips at Startup"), QString());
        Tick(Control<QTimer>(splash, "tmrSplash"));
    });

    shell->Start();

    EXPECT_EQ(messages.shown.size(), 2U);
}

TEST_F(StartOfTheProgram, SizesTheWindowByTheWorkArea)
{
    // Height 744 x 15 - 750 = 10410 twips, 694 pixels; width 1366 x 15 - 50 =
    // 20440 twips, 1362.67 pixels.
    desktop.screen.area = QRect(0, 24, 1366, 744);

    Start();

    EXPECT_EQ(State().places.HauteurUtile, 10410);
    EXPECT_EQ(State().places.LargeurUtile, 20440);
    EXPECT_EQ(shell->MainWindow().size(), QSize(1363, 694));
    EXPECT_EQ(shell->MainWindow().pos(), QPoint(0, 24));
}

TEST_F(StartOfTheProgram, CountsTheTwipsOfALargeScreen)
{
    // 3840 x 15 - 50, past 16 bits.
    desktop.screen.area = QRect(0, 0, 3840, 2160);

    Start();

    EXPECT_EQ(State().places.LargeurUtile, 57550);
    EXPECT_EQ(State().places.HauteurUtile, 31650);
}

TEST_F(StartOfTheProgram, WritesTitleAndVersionIntoTheCaption)
{
    Start();

    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0"_s);
}

TEST_F(StartOfTheProgram, ChoosesThePictureByTheWidthOfTheScreen)
{
    struct Case {
        int width;
        QColor colour;
    };
    // Pictures of one colour each; their content decides how they are read.
    const QString program = desktop.folders.program;
    const auto paint = [&program](const QString& name, const QColor& colour) {
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(program + u'/' + name, "PNG"));
    };
    paint(u"logo800x600.jpg"_s, Qt::red);
    paint(u"logo1024x768.jpg"_s, Qt::green);
    paint(u"logo1280x768.jpg"_s, Qt::blue);

    for (const Case& c : {Case{800, Qt::red}, Case{1024, Qt::green}, Case{1280, Qt::blue},
                          Case{1366, colours::kGround}, Case{1920, colours::kGround}}) {
        desktop.screen.width = c.width;
        Start();
        EXPECT_EQ(MiddleOfBackground().name(), c.colour.name()) << c.width;
    }
}

TEST_F(StartOfTheProgram, ShowsThePicturesThatShip)
{
    const QString shipped = QStringLiteral(STOIKAL_DATA_DIR) + u"/pictures/"_s;
    for (const QString& name : {u"logo800x600.jpg"_s, u"logo1024x768.jpg"_s, u"logo1280x768.jpg"_s})
        ASSERT_TRUE(QFile::copy(shipped + name, desktop.folders.program + u'/' + name));
    desktop.screen.width = 1366;
    Start();
    const QImage bare = Background();

    for (const int width : {800, 1024, 1280}) {
        desktop.screen.width = width;
        Start();
        EXPECT_NE(Background(), bare) << width;
    }
}

TEST_F(StartOfTheProgram, LeavesTheBackgroundEmptyWithoutItsPicture)
{
    desktop.screen.width = 800;
    WriteTextFile(desktop.folders.program + u"/logo800x600.jpg"_s, {u"not a picture"_s});

    Start();

    EXPECT_EQ(MiddleOfBackground().name(), colours::kGround.name());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StartOfTheProgram, NamesTheSettingsOfAnUnknownUserInconnu)
{
    desktop.user.login.clear();

    Start();

    const QString ini = desktop.folders.appData + u"/Tovik_MARLEN/Stoikal/ConfEQU_Inconnu.ini"_s;
    EXPECT_EQ(State().places.IniUtilisateur, ini);
    EXPECT_TRUE(QFileInfo::exists(ini));
}

TEST_F(StartOfTheProgram, LeavesTheMenusOfAFreeSession)
{
    Start();

    EXPECT_TRUE(Menu().IsEnabled("Mnu_Open(0)"));
    EXPECT_FALSE(Menu().IsEnabled("Mnu_Close"));
    EXPECT_FALSE(Menu().IsEnabled("Mnu_Charge"));
    EXPECT_FALSE(Menu().IsEnabled("Mnu_Atome"));
    EXPECT_TRUE(Menu().IsChecked("Mnu_Atome"));
    EXPECT_TRUE(Menu().IsChecked("Mnu_Taille(1)"));
}

TEST_F(StartOfTheProgram, OpensTheJournalForAppending)
{
    QDir().mkpath(EquationFolder());
    WriteTextFile(EquationFolder() + u"/Resultat.txt"_s, {u"hier"_s});

    Start();

    EXPECT_EQ(State().places.FichierResultat, EquationFolder() + u"/Resultat.txt"_s);
    EXPECT_TRUE(shell->Journal().IsOpen());
    EXPECT_EQ(JournalText(), u"hier\r\n"_s);
}

TEST_F(StartOfTheProgram, ReportsAJournalThatAPowerCutHasTorn)
{
    QDir().mkpath(EquationFolder());
    WriteBytes(EquationFolder() + u"/Resultat.txt"_s, "entière\r\n  N°1 : ");

    Start();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(
        messages.shown[0].text.startsWith(u"Le fichier des résultats s'arrêtait au milieu d'une ligne"_s));
    EXPECT_TRUE(messages.shown[0].text.contains(EquationFolder() + u"/Resultat.txt"_s));
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
}

TEST_F(StartOfTheProgram, FillsANewEquationFolder)
{
    const QString seed = desktop.folders.program + u"/Serie.Equ"_s;
    WriteTextFile(seed, {u"H2+O2=H2O/2,1,2"_s});
    desktop.folders.seeds = {seed};

    Start();

    EXPECT_EQ(TextOfFile(EquationFolder() + u"/Serie.Equ"_s), u"H2+O2=H2O/2,1,2\r\n"_s);
}

TEST_F(StartOfTheProgram, EndsWhenTheEquationFolderCannotBeMade)
{
    // A file stands where its parent would be.
    WriteTextFile(desktop.folders.documents + u"/Tovik_MARLEN"_s, {});
    MakeShell();

    try {
        shell->Start();
        ADD_FAILURE() << "the start went on";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.File(), EquationFolder());
        EXPECT_EQ(fault.Cause(),
                  u"le dossier des fichiers d'équations ne peut pas être créé "
                  "(le dossier qui doit le contenir ne peut pas être écrit)."_s);
    }
    EXPECT_FALSE(shell->MainWindow().isVisible());
}

TEST_F(StartOfTheProgram, EndsWhenTheJournalCannotBeOpened)
{
    QDir().mkpath(EquationFolder() + u"/Resultat.txt"_s);
    MakeShell();

    try {
        shell->Start();
        ADD_FAILURE() << "the start went on";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.File(), EquationFolder() + u"/Resultat.txt"_s);
        EXPECT_FALSE(fault.Cause().contains(u"Dossier Dépôt"_s));
    }
    EXPECT_FALSE(shell->MainWindow().isVisible());
}

TEST_F(StartOfTheProgram, GreetsWithVersionAndOwnerForASecondAndAHalf)
{
    script.On("frmSplash", [](QWidget& splash) {
        EXPECT_EQ(Control<QLabel>(splash, "lblProductName").text(), u"Stoikal"_s);
        EXPECT_EQ(Control<QLabel>(splash, "lblVersion").text(), u"Version 4.0.0"_s);
        EXPECT_EQ(Control<QLabel>(splash, "lblOwner").text(), u"Paul Dupont"_s);
        const QString warning = Control<QLabel>(splash, "lblWarning").text();
        EXPECT_TRUE(warning.contains(u"«\u00A0A propos de Stoikal\u00A0»"_s)) << warning.toStdString();
        EXPECT_TRUE(warning.contains(u"menu «\u00A0?\u00A0»"_s));
        EXPECT_TRUE(splash.isModal());
        auto& timer = Control<QTimer>(splash, "tmrSplash");
        EXPECT_EQ(timer.interval(), 1500);
        Press(splash, Qt::Key_Escape);
        EXPECT_TRUE(splash.isVisible());
        Tick(timer);
        EXPECT_FALSE(splash.isVisible());
    });

    MakeShell().Start();
}

TEST_F(StartOfTheProgram, ShowsTheTipToAFreshUserAndWritesTheSetting)
{
    StartWithTipCounter();

    EXPECT_EQ(tips, 1);
    EXPECT_EQ(Setting("Options", "Show Tips at Startup"), u"1"_s);
}

TEST_F(StartOfTheProgram, ShowsTheTipWhenTheSettingSaysSo)
{
    WriteSettings({u"[Options]"_s, u"Show Tips at Startup=1"_s});

    StartWithTipCounter();

    EXPECT_EQ(tips, 1);
    EXPECT_EQ(Setting("Options", "Show Tips at Startup"), u"1"_s);
}

TEST_F(StartOfTheProgram, RewritesAnyOtherTipSettingAsZero)
{
    for (const QString& value : {u"0"_s, u"2"_s, u"oui"_s}) {
        WriteSettings({u"[Options]"_s, u"Show Tips at Startup="_s + value});
        StartWithTipCounter();
        EXPECT_EQ(tips, 0) << value.toStdString();
        EXPECT_EQ(Setting("Options", "Show Tips at Startup"), u"0"_s);
    }
}

TEST_F(StartOfTheProgram, PresetsTheBubbles)
{
    Start();

    EXPECT_EQ(Setting("Options", "Show info-bulles at Startup"), u"1"_s);
}

TEST_F(StartOfTheProgram, LeavesTheBubblesAsTheUserSetThem)
{
    WriteSettings({u"[Options]"_s, u"Show info-bulles at Startup=0"_s});

    Start();

    EXPECT_EQ(Setting("Options", "Show info-bulles at Startup"), u"0"_s);
}

TEST_F(StartOfTheProgram, AsksNoSiteForItsVersionWithoutASite)
{
    Start();

    EXPECT_TRUE(desktop.web.asked.isEmpty());
}

TEST_F(VersionCheck, DoesNotDelayTheStart)
{
    Start();

    EXPECT_EQ(desktop.web.asked, QStringList{u"http://maker.example/chimie/stoikal/version_stoikal.txt"_s});
    EXPECT_TRUE(shell->MainWindow().isVisible());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(VersionCheck, TellsANewerVersionWhenTheAnswerComes)
{
    Start();

    desktop.web.onSuccess("version=4.1\r\n");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal - Nouvelle version"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Information);
    EXPECT_EQ(messages.shown[0].text,
              u"La version 4.1 de Stoikal est téléchargeable sur\nhttp://maker.example"_s);
}

TEST_F(VersionCheck, KeepsAQuickAnswerUntilTheWindowIsWhole)
{
    LeaveTheSplash();
    MakeShell();
    // Whatever lets events through on the way finds the answer waiting.
    QTimer::singleShot(0, &shell->MainWindow(), [this] { desktop.web.onSuccess("version=4.1"); });
    int told = 0;
    messages.whileOpen = [this, &told](const Message&) {
        ++told;
        EXPECT_FALSE(shell->MainWindow().menuBar()->isHidden());
        EXPECT_TRUE(shell->Starter().Steps().contains(u"splash"_s));
    };

    shell->Start();
    Settle();

    EXPECT_EQ(told, 1);
}

TEST_F(VersionCheck, SaysNothingAboutTheSameOrAnOlderVersion)
{
    Start();

    desktop.web.onSuccess("version=4.0");
    desktop.web.onSuccess("version=3.9");
    desktop.web.onSuccess("une page sans version");

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(VersionCheck, KeepsACopyThatIsOverwritten)
{
    Start();
    const QString copy = desktop.folders.cache + u"/Delete_Me.txt"_s;

    desktop.web.onSuccess("version=3.0");
    EXPECT_EQ(TextOfFile(copy), u"version=3.0"_s);
    desktop.web.onSuccess("version=2");

    EXPECT_EQ(TextOfFile(copy), u"version=2"_s);
}

} // namespace stoikal
