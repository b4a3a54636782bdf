#include "shell_fixture.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QStringList kThreeEquations{u"H2+O2=H2O/2,1,2"_s, u"C+O2=CO2/1,1,1"_s, u"Fe+Cl2=FeCl3/2,3,2"_s};

/// What a first identification and the opening of a file leave in the journal.
QStringList HeadOfJournal(const QString& countedTitle)
{
    return {QString(),
            Stars(),
            u"Nom élève :DUPONT"_s,
            u"Prénom élève :Paul"_s,
            u"Classe élève :3B"_s,
            Stars(),
            u"Nom du fichier : "_s + countedTitle,
            u"Jour et Heure :05/03/2016 14:07:12"_s,
            Hyphens()};
}

class OpeningAFile : public StartedShellTest
{
};

/// The settings cannot be written: a folder stands where their file should be.
class OpeningWithoutSettings : public OpeningAFile
{
protected:
    void SetUp() override
    {
        Start();
        QFile::remove(State().places.IniUtilisateur);
        ASSERT_TRUE(QDir().mkpath(State().places.IniUtilisateur));
    }
};

class RunOfAFile : public StartedShellTest
{
protected:
    void AnswerAllThree()
    {
        Answer({u"2"_s, u"1"_s, {}, u"2"_s});
        Answer({u"1"_s, u"1"_s, {}, u"1"_s});
        ClockReaches(123);
        Answer({u"2"_s, u"3"_s, {}, u"2"_s});
    }
};

} // namespace

TEST_F(OpeningAFile, AsksWhoThePupilIs)
{
    IdentifyWhenAsked();
    desktop.dialogs.answers = {std::nullopt};

    Choose("Mnu_Open(0)");

    EXPECT_EQ(State().pupil.NomEleve, u"DUPONT"_s);
    EXPECT_EQ(State().pupil.PrenomEleve, u"Paul"_s);
    EXPECT_EQ(State().pupil.ClasseEleve, u"3B"_s);
    EXPECT_EQ(
        JournalText(),
        AsFileText({{}, Stars(), u"Nom élève :DUPONT"_s, u"Prénom élève :Paul"_s, u"Classe élève :3B"_s}));
}

TEST_F(OpeningAFile, ShowsTheNameInTheCaptionLetterForLetter)
{
    OpenFile(kThreeEquations, u"Dosage à 5%1.Equ"_s);

    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Dosage à 5%1.Equ - 3 équations"_s);
}

TEST_F(OpeningAFile, GoesStraightToTheDialogWithANameKnown)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    desktop.dialogs.answers = {std::nullopt};

    // No step for the identification: its window would keep the test waiting.
    Choose("Mnu_Open(0)");

    EXPECT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(JournalText(), QString());
}

TEST_F(OpeningAFile, StopsWhenThePupilDoesNotIdentify)
{
    script.On("frmName", [](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtIdent(1)"), u"DUPONT"_s);
        Click(Control<QPushButton>(window, "cmdAnnul"));
    });
    script.On("frmName", [](QWidget& window) { window.close(); });

    Choose("Mnu_Open(0)");
    Choose("Mnu_Open(0)");

    EXPECT_TRUE(desktop.dialogs.asked.empty());
    EXPECT_EQ(State().pupil.NomEleve, QString());
    EXPECT_EQ(JournalText(), QString());
    EXPECT_EQ(Setting("Options", "Files by default"), QString());
    ExpectFreeMode();
}

TEST_F(OpeningAFile, MayEndTheProgramInstead)
{
    messages.answers = {QMessageBox::Yes};
    script.On("frmName", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdEnd")); });

    Choose("Mnu_Open(0)");

    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(shell->Journal().IsOpen());
    EXPECT_TRUE(desktop.dialogs.asked.empty());
}

TEST_F(OpeningAFile, ShowsTheFolderAndTheFiltersOfEquationFiles)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    desktop.dialogs.answers = {std::nullopt};

    Choose("Mnu_Open(0)");

    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    const Dialogs::Request& request = desktop.dialogs.asked[0];
    EXPECT_EQ(request.name, u"cdgOpen"_s);
    EXPECT_EQ(request.folder, EquationFolder());
    EXPECT_EQ(request.filters,
              QStringList({u"Stoikal Equilibrage (*.Equ)"_s, u"Stoikal Avancement (*.Avt)"_s}));
    EXPECT_EQ(request.filter, 0);
    EXPECT_EQ(request.fileName, QString());
    EXPECT_EQ(Setting("Options", "Files by default"), u"EQU"_s);
}

TEST_F(OpeningAFile, ShowsTheFilterOfProgressFilesToTheSecondEntry)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    desktop.dialogs.answers = {std::nullopt};

    shell->Files().Mnu_Open_Click(1);

    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.dialogs.asked[0].filter, 1);
    EXPECT_EQ(Setting("Options", "Files by default"), u"AVT"_s);
}

TEST_F(OpeningAFile, RemembersTheFilterLeftActive)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    AnswerDialog(WriteEquations(kThreeEquations), 1);

    Choose("Mnu_Open(0)");

    EXPECT_EQ(Setting("Options", "Files by default"), u"AVT"_s);
}

TEST_F(OpeningAFile, AsksForTheKindOfFileWhenTheSettingTellsNeither)
{
    EXPECT_TRUE(shell->UserSettings().Write(u"Options"_s, u"Files by default"_s, u"XYZ"_s));
    desktop.dialogs.answers = {std::nullopt};
    script.On("frmEtude", [this](QWidget& window) {
        EXPECT_EQ(Setting("Options", "Files by default"), u"EQU"_s);
        Click(Control<QRadioButton>(window, "optEtude(1)"));
        Click(Control<QPushButton>(window, "cmdValid"));
    });

    EXPECT_FALSE(shell->Files().OpenEquationFile());

    EXPECT_EQ(Setting("Options", "Files by default"), u"AVT"_s);
    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.dialogs.asked[0].filter, 1);
}

TEST_F(OpeningWithoutSettings, AsksForTheKindOfFileOnceAndTakesTheFirstFilter)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    desktop.dialogs.answers = {std::nullopt};
    script.On("frmEtude", [](QWidget& window) {
        Click(Control<QRadioButton>(window, "optEtude(1)"));
        Click(Control<QPushButton>(window, "cmdValid"));
    });

    Choose("Mnu_Open(0)");

    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.dialogs.asked[0].filter, 0);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(
        u"Votre choix n'a pas été enregistré\u00A0: il sera redemandé.\n\n"_s))
        << messages.shown[0].text.toStdString();
}

TEST_F(OpeningAFile, CancelledLeavesTheStopwatchAtRest)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    Choose("Mnu_Chrono");
    Click(Control<QAbstractButton>(shell->Stopwatch().Window(), "chkStart_Stop"));
    ClockReaches(50);
    desktop.dialogs.answers = {std::nullopt};

    Choose("Mnu_Open(0)");

    EXPECT_FALSE(Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono").isActive());
    EXPECT_EQ(Control<QLabel>(shell->Stopwatch().Window(), "lblTime").text(), u"00:00,0"_s);
    ExpectFreeMode();
}

TEST_F(OpeningAFile, RefusesAFileWithoutEquations)
{
    OpenFile({u"'Rien que des mots"_s, QString(), u"  'encore"_s}, u"Vide.Equ"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[0].text,
              u"Le fichier sélectionné ne contient aucune équation.\n"
              "Dans le menu Fichier, cliquez sur Modifier un fichier d'équations existant ...\n"
              "Sélectionnez le fichier Vide.Equ et rajoutez une série d'équations."_s);
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_FALSE(JournalText().contains(u"Nom du fichier"_s));
    ExpectFreeMode();
}

TEST_F(OpeningAFile, RefusesAFileAboveTheLimitAndGoesOn)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"'"_s + QString(9000, u'x')}, u"Longue.Equ"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(
        messages.shown[0].text,
        u"Le fichier d'équations « %1 » ne peut pas être lu\u00A0: la ligne 2 est trop longue\u00A0: "
        "8\u00A0Ko au plus.\n\nChoisissez un autre fichier."_s.arg(EquationFolder() + u"/Longue.Equ"_s));
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_EQ(State().run.CheminFichier, QString());
    ExpectFreeMode();
}

TEST_F(OpeningAFile, RefusesAPipeInPlaceOfAFileAndGoesOn)
{
    const QString pipe = EquationFolder() + u"/Tuyau.Equ"_s;
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0666), 0);
    IdentifyWhenAsked();
    AnswerDialog(pipe);

    Choose("Mnu_Open(0)");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.contains(u"ce n'est pas un fichier"_s))
        << messages.shown[0].text.toStdString();
    ExpectFreeMode();
}

TEST_F(OpeningAFile, AsksForSeriesOrSimulationWhenAFileHasData)
{
    OpenFile({u"H2+O2=H2O/2,1,2#Q1,Q1,Q0"_s}, u"Avancement.Avt"_s,
             [](QWidget& window) { Click(Control<QPushButton>(window, "cmdChoix")); });

    EXPECT_TRUE(State().run.FichierAvancement());
    EXPECT_TRUE(State().run.SerieExercices());
    EXPECT_TRUE(State().run.IsScored());
}

TEST_F(OpeningAFile, TakesTheHashOfACommentForData)
{
    OpenFreeSimulation(u"H2+O2=H2O/2,1,2"_s);

    EXPECT_TRUE(State().run.FichierAvancement());
    EXPECT_FALSE(State().run.SerieExercices());
    EXPECT_FALSE(State().run.IsScored());
}

TEST_F(OpeningAFile, AsksNothingForAFileWithoutData)
{
    // Nothing behind the "#", so no data; no step for the choice's window.
    OpenFile({u"'Voir #"_s, u"H2+O2=H2O/2,1,2"_s});

    EXPECT_FALSE(State().run.FichierAvancement());
    EXPECT_TRUE(State().run.IsScored());
}

TEST_F(RunOfAFile, BeginsWithTheHeadInTheJournal)
{
    OpenFile(kThreeEquations);

    EXPECT_EQ(JournalText(), AsFileText(HeadOfJournal(u"Serie1.Equ - 3 équations"_s)));
}

TEST_F(RunOfAFile, TellsFileAndCountInTheCaption)
{
    // Comments and empty lines do not count, a line of blanks does.
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"'mot"_s, QString(), u" "_s});

    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Serie1.Equ - 2 équations"_s);
    EXPECT_EQ(State().run.TitreFichier, u"Serie1.Equ"_s);
    EXPECT_EQ(State().run.CheminFichier, EquationFolder() + u"/Serie1.Equ"_s);
}

TEST_F(RunOfAFile, OpensItsWindowsAndMenus)
{
    OpenFile(kThreeEquations);

    for (const char* const window : {"frmEquation", "frmReactif", "frmProduit"})
        EXPECT_NE(FindWindow(window), nullptr) << window;
    EXPECT_EQ(FindWindow("frmCharge"), nullptr);
    EXPECT_FALSE(Entry("Mnu_Open(0)").isEnabled());
    EXPECT_TRUE(Entry("Mnu_Close").isEnabled());
    EXPECT_TRUE(Entry("Mnu_Copy").isEnabled());
    EXPECT_TRUE(Entry("Mnu_Atome").isChecked());
    EXPECT_FALSE(Entry("Mnu_Charge").isEnabled());
    EXPECT_EQ(Exercise().windowTitle(), u"Equation n°1"_s);
}

TEST_F(RunOfAFile, StartsAndLocksTheStopwatch)
{
    desktop.clock.counter = 1000;

    OpenFile(kThreeEquations);
    ClockReaches(1025);

    // 25 counts of a tenth of a second since the start.
    EXPECT_DOUBLE_EQ(State().stopwatch.ElapsedSeconds, 2.5);
    EXPECT_FALSE(Control<QAbstractButton>(shell->Stopwatch().Window(), "cmdRAZ").isEnabled());
    EXPECT_FALSE(Control<QAbstractButton>(shell->Stopwatch().Window(), "chkStart_Stop").isEnabled());
}

TEST_F(RunOfAFile, LeavesTheStopwatchToTheUserInFreeSimulation)
{
    OpenFreeSimulation(u"H2+O2=H2O/2,1,2"_s);

    EXPECT_TRUE(Control<QAbstractButton>(shell->Stopwatch().Window(), "chkStart_Stop").isEnabled());
    EXPECT_FALSE(Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono").isActive());
}

TEST_F(RunOfAFile, WritesEachAnswerAtOnce)
{
    OpenFile(kThreeEquations);

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Answer({u"3"_s, {}, {}, {}});

    // 5, then 2 less; an empty box stands as it is.
    EXPECT_EQ(JournalText(),
              AsFileText(HeadOfJournal(u"Serie1.Equ - 3 équations"_s)
                         + QStringList{u"  N°1 : "_s, u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s,
                                       u"  N°2 : "_s, u"3 C +  O2 --->  CO2 : FAUX - Score : 3"_s}));
}

TEST_F(RunOfAFile, IsJournalledToItsMark)
{
    OpenFile(kThreeEquations);

    AnswerAllThree();
    PressInNote("cmdStay");
    Settle();

    // 15 of 15 points: 15 x 20 / 15 = 20; 123 counts of a tenth: 12.3 s.
    EXPECT_EQ(JournalText(),
              AsFileText(HeadOfJournal(u"Serie1.Equ - 3 équations"_s)
                         + QStringList{u"  N°1 : "_s, u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s,
                                       u"  N°2 : "_s, u"1 C + 1 O2 ---> 1 CO2 : CORRECT - Score : 10"_s,
                                       u"  N°3 : "_s, u"2 Fe + 3 Cl2 ---> 2 FeCl3 : CORRECT - Score : 15"_s,
                                       u" -------> Note : 20,00/20 - Temps écoulé : 12,30 s"_s}));
}

TEST_F(RunOfAFile, EntersTheHighScores)
{
    OpenFile(kThreeEquations);

    AnswerAllThree();
    PressInNote("cmdStay");
    Settle();

    EXPECT_EQ(TextOfFile(EquationFolder() + u"/HighScore.txt"_s),
              AsFileText({u"#Serie1.Equ"_s, u"DUPONT©20©12,3"_s}));
    EXPECT_FALSE(QFileInfo::exists(EquationFolder() + u"/HighScore_Temp.txt"_s));
}

TEST_F(RunOfAFile, EndsAtTheCommentsBehindItsLastEquation)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"'fin"_s, QString(), u"  'vraiment"_s});
    QString note;
    script.On("frmNote", [&note](QWidget& window) {
        note = Control<QLabel>(window, "lblNote").text();
        Click(Control<QPushButton>(window, "cmdStay"));
    });

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Settle();

    EXPECT_EQ(note, u"Votre note est de : 20/20"_s);
    ExpectFreeMode();
}

TEST_F(RunOfAFile, CountsAMarkFromTheWholeFile)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"C+O2=CO2/1,1,1"_s});
    QString note;
    script.On("frmNote", [&note](QWidget& window) {
        note = Control<QLabel>(window, "lblNote").text();
        Click(Control<QPushButton>(window, "cmdStay"));
    });

    // 5, 3 after a mistake, 8 of 10: 8 x 20 / 10 = 16.
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Answer({u"3"_s, {}, {}, {}});
    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    Settle();

    EXPECT_EQ(note, u"Votre note est de : 16/20"_s);
}

} // namespace stoikal
