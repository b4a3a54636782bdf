#include "shell_fixture.h"

#include "base/fatal_fault.h"
#include "support/file_size_limit.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QProcess>
#include <csignal>
#include <memory>
#include <sys/resource.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A program that ends by a fault, seen from outside: the boxes that it showed,
/// its exit code, and what it left behind.
class ProgramWithAFault : public testing::Test
{
protected:
    ProgramWithAFault()
    {
        QDir().mkpath(equations);
        QDir().mkpath(folder.filePath(u"appdata"_s));
    }

    void Run(const QStringList& lines, const QString& name, const QString& coefficients = QString())
    {
        WriteTextFile(file, lines);
        QProcess program;
        program.setChildProcessModifier(beforeItStarts);
        program.start(QStringLiteral(STOIKAL_FAULT_PROGRAM), {folder.path(), name, coefficients});
        ASSERT_TRUE(program.waitForFinished(60000));
        status = program.exitStatus();
        code = program.exitCode();
        errors = program.readAllStandardError();
        const QByteArrayList said = program.readAllStandardOutput().split('\n');
        for (const QByteArray& line : said) {
            if (!line.isEmpty())
                boxes.push_back(QJsonDocument::fromJson(line).object());
        }
    }

    /// One box, then the end; nothing of the interrupted code went on.
    void ExpectOneBoxAndTheEnd()
    {
        EXPECT_EQ(status, QProcess::NormalExit);
        EXPECT_EQ(code, 1) << errors.toStdString();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_FALSE(boxes[0].contains(u"ranOn"_s));
        EXPECT_TRUE(boxes[0].value(u"timers"_s).toArray().isEmpty());
        EXPECT_FALSE(boxes[0].value(u"journalIsOpen"_s).toBool());
    }

    QString Text() const { return boxes.at(0).value(u"text"_s).toString(); }
    QString Title() const { return boxes.at(0).value(u"title"_s).toString(); }
    int Icon() const { return boxes.at(0).value(u"icon"_s).toInt(); }
    bool Shows(const QString& window) const
    {
        return boxes.at(0).value(u"windows"_s).toArray().contains(window);
    }

    static QStringList Header(int equations)
    {
        return {Stars(), u"Nom du fichier : Serie1.Equ - %1 équations"_s.arg(equations),
                u"Jour et Heure :05/03/2016 14:07:12"_s, Hyphens()};
    }

    /// The user has chosen a kind of files before, so that the program need not ask.
    void StoreKindOfFiles() const
    {
        const QString own = folder.filePath(u"appdata/Tovik_MARLEN/Stoikal"_s);
        QDir().mkpath(own);
        WriteTextFile(own + u"/ConfEQU_dupont.ini"_s, {u"[Options]"_s, u"Files by default=EQU"_s});
    }

    QTemporaryDir folder;
    std::function<void()> beforeItStarts; ///< in the process that becomes the program
    const QString equations = folder.filePath(u"documents/Tovik_MARLEN/Stoikal"_s);
    const QString file = equations + u"/Serie1.Equ"_s;
    const QString journal = equations + u"/Resultat.txt"_s;
    std::vector<QJsonObject> boxes;
    QProcess::ExitStatus status = QProcess::CrashExit;
    int code = -1;
    QByteArray errors;
};

/// A disk without room under the journal.
class FullDisk : public ShellTest
{
protected:
    void SetUp() override
    {
        QDir().mkpath(EquationFolder());
        full = std::make_unique<FullFile>(journal);
        Start();
    }

    const QString journal = EquationFolder() + u"/Resultat.txt"_s;
    std::unique_ptr<FullFile> full;
};

/// Where a fault without a place of its own is said to be.
class FaultPlace : public StartedShellTest
{
};

} // namespace

TEST_F(ProgramWithAFault, NamesTheLineThatCannotBeRead)
{
    Run({u"'Une série"_s, u"H2+O2=H2O/2,1,2"_s, QString(), u"H2 + O2"_s, u"C+O2=CO2/1,1,1"_s}, u"open"_s,
        u"2,1,,2"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_EQ(Title(), u"Stoikal"_s);
    EXPECT_EQ(Icon(), QMessageBox::Critical);
    EXPECT_TRUE(Text().startsWith(u"Erreur d'exécution"_s)) << Text().toStdString();
    EXPECT_TRUE(Text().contains(u"signe « = »"_s));
    EXPECT_TRUE(Text().contains(file));
    EXPECT_TRUE(Text().contains(u"Ligne 4\u00A0: H2 + O2\n"_s));
}

TEST_F(ProgramWithAFault, NamesTheLineWhoseDataCannotBeComputed)
{
    Run({u"'Un avancement"_s, u"C+O2=CO2/1,0,1#Q1"_s}, u"open"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_TRUE(Text().contains(u"le coefficient de O2 est nul."_s));
    EXPECT_TRUE(Text().contains(u"Ligne 2\u00A0: C+O2=CO2/1,0,1#Q1\n"_s));
}

TEST_F(ProgramWithAFault, NamesTheLineWhoseAdvancementIsNothing)
{
    Run({u"C+O2=CO2/1,1,1#Q0.0000000001"_s}, u"open"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_TRUE(Text().contains(u"l'avancement maximal est nul ou trop petit."_s));
    EXPECT_TRUE(Text().contains(u"Ligne 1\u00A0: C+O2"_s));
}

TEST_F(ProgramWithAFault, EndsByAFaultOfTheLibrariesAsByItsOwn)
{
    Run({u"H2+O2=H2O/2,1,2"_s}, u"internal"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_EQ(Title(), u"Stoikal"_s);
    EXPECT_EQ(Icon(), QMessageBox::Critical);
    EXPECT_TRUE(Text().startsWith(u"Erreur d'exécution"_s)) << Text().toStdString();
    EXPECT_TRUE(Text().contains(u"erreur interne (nothing at 7)."_s)) << Text().toStdString();
}

TEST_F(ProgramWithAFault, TakesTheExerciseOutOfTheWayOfItsBox)
{
    Run({u"H2+O2=H2O/2,1,2"_s, u"H2+O2"_s}, u"open"_s, u"2,1,,2"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_FALSE(Shows(u"frmEquation"_s));
    EXPECT_TRUE(Shows(u"frmStoikal"_s));
}

TEST_F(ProgramWithAFault, KeepsWhatStandsInTheJournal)
{
    Run({u"H2+O2=H2O/2,1,2"_s, u"H2+O2"_s}, u"open"_s, u"2,1,,2"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_EQ(TextOfFile(journal),
              AsFileText(Header(2)
                         + QStringList{u"  N°1 : "_s, u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s}));
}

TEST_F(ProgramWithAFault, MeetsALineOfBlanksOnlyWhenItIsReached)
{
    Run({u"H2+O2=H2O/2,1,2"_s, u"  "_s}, u"open"_s, u"2,1,,2"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_TRUE(Text().contains(u"Ligne 2\u00A0:   \n"_s)) << Text().toStdString();
    // It counted as an equation all the same.
    EXPECT_TRUE(TextOfFile(journal).contains(u"Serie1.Equ - 2 équations"_s));
}

TEST_F(ProgramWithAFault, NamesTheLineWhoseAtomsCannotBeCounted)
{
    // A side that begins with a small letter: it belongs to no symbol.
    Run({u"cO+O2=CO2/2,1,2"_s}, u"open"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_TRUE(Text().startsWith(u"Erreur d'exécution"_s));
    EXPECT_TRUE(Text().contains(file));
    EXPECT_TRUE(Text().contains(u"Ligne 1\u00A0: cO+O2=CO2/2,1,2\n"_s)) << Text().toStdString();
}

TEST_F(ProgramWithAFault, TellsASyntaxErrorOfTheDataInItsOwnWords)
{
    Run({u"A=B/1,1#Q1,Q2,Q3,Q4"_s}, u"open"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_EQ(Title(), u"Stoikal - Erreur de syntaxe"_s);
    EXPECT_EQ(Icon(), QMessageBox::Information);
    EXPECT_EQ(Text(),
              u"Le fichier sélectionné comporte une erreur de syntaxe.\n"
              "Assurez-vous que les nombres décimaux aient des points et non des virgules comme séparateur.\n"
              "L'application Stoikal va se fermer."_s);
    EXPECT_EQ(TextOfFile(journal), AsFileText(Header(1)));
}

TEST_F(ProgramWithAFault, TellsMissingDataInItsOwnWords)
{
    Run({u"H2 + O2 = H2O /2,1,2 #Q0,Q0,Q0"_s}, u"open"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_EQ(Title(), u"Erreur dans fichier d'équations"_s);
    EXPECT_EQ(Icon(), QMessageBox::Critical);
    EXPECT_EQ(Text(),
              u"Il n'y a aucune donnée pour les paramètres d'avancement\n"
              "pour l'équation en cours dans la ligne H2+O2=H2O/2,1,2#Q0,Q0,Q0.\n"
              "Veuillez corriger le fichier corrompu.\n\n"
              "L'application va se fermer."_s);
    EXPECT_FALSE(Shows(u"frmEquation"_s));
}

TEST_F(ProgramWithAFault, NamesAFileThatWentAfterItWasChosen)
{
    Run({u"H2+O2=H2O/2,1,2"_s}, u"vanish"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_EQ(Title(), u"Stoikal"_s);
    EXPECT_EQ(Icon(), QMessageBox::Critical);
    EXPECT_TRUE(Text().startsWith(u"Erreur d'exécution"_s));
    EXPECT_TRUE(Text().contains(file)) << Text().toStdString();
    EXPECT_EQ(TextOfFile(journal), QString());
}

TEST_F(ProgramWithAFault, RunsNothingOnBehindANestedLoop)
{
    Run({u"H2+O2"_s}, u"nested"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_TRUE(Text().contains(u"Ligne 1\u00A0: H2+O2\n"_s));
    EXPECT_FALSE(Shows(u"question"_s));
}

TEST_F(ProgramWithAFault, IsToldOnceWhateverElseFailsWhileItsBoxIsOpen)
{
    Run({u"H2+O2=H2O/2,1,2"_s}, u"twice"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_TRUE(Text().contains(u"erreur interne (nothing at 7)."_s)) << Text().toStdString();
}

TEST_F(ProgramWithAFault, EndsAtStartWhenTheJournalCannotBeOpened)
{
    QDir().mkpath(journal);

    Run({u"H2+O2=H2O/2,1,2"_s}, u"start"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_EQ(Title(), u"Stoikal"_s);
    EXPECT_TRUE(Text().startsWith(u"Erreur d'exécution"_s));
    EXPECT_EQ(Text().count(journal), 1) << Text().toStdString();
    EXPECT_TRUE(Text().contains(u"(c'est un dossier)"_s)) << Text().toStdString();
    EXPECT_FALSE(Shows(u"frmStoikal"_s));
}

TEST_F(ProgramWithAFault, EndsAtStartWithoutTheDepositFolder)
{
    const QString own = folder.filePath(u"appdata/Tovik_MARLEN/Stoikal"_s);
    QDir().mkpath(own);
    WriteTextFile(own + u"/ConfEQU_dupont.ini"_s, {u"[Réseau]"_s, u"Dossier Dépôt=Classe3"_s});

    Run({u"H2+O2=H2O/2,1,2"_s}, u"network"_s);

    ExpectOneBoxAndTheEnd();
    EXPECT_TRUE(Text().contains(folder.filePath(u"share/Classe3/"_s))) << Text().toStdString();
    EXPECT_TRUE(Text().contains(u"«\u00A0Dossier Dépôt\u00A0»"_s));
    EXPECT_TRUE(Text().contains(own + u"/ConfEQU_dupont.ini"_s));
}

TEST_F(ProgramWithAFault, IsNotEndedByTheSystemWhereFilesMayNotGrow)
{
    StoreKindOfFiles();
    beforeItStarts = [] {
        // As a login starts a program, whatever this process does with the signal.
        std::signal(SIGXFSZ, SIG_DFL);
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
    };

    // The second line is reached only by a program that goes on after the first.
    Run({u"H2+O2=H2O/2,1,2"_s, u"H2 + O2"_s}, u"open"_s, u"2,1,,2"_s);

    EXPECT_EQ(status, QProcess::NormalExit);
    ASSERT_EQ(boxes.size(), 2U) << errors.toStdString();
    EXPECT_TRUE(Text().startsWith(u"Le fichier des résultats ne peut pas être complété"_s))
        << Text().toStdString();
    EXPECT_TRUE(Text().contains(journal)) << Text().toStdString();
    EXPECT_TRUE(boxes[1].value(u"text"_s).toString().contains(u"Ligne 2\u00A0: H2 + O2\n"_s));
    EXPECT_EQ(TextOfFile(journal), QString());
}

TEST_F(FullDisk, IsToldOnceAndTheRunGoesOn)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"C+O2=CO2/1,1,1"_s, u"Fe+Cl2=FeCl3/2,3,2"_s});

    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Answer({u"1"_s, u"1"_s, {}, u"1"_s});

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.contains(journal)) << messages.shown[0].text.toStdString();
    EXPECT_EQ(State().run.NumEquation, 3);
    EXPECT_EQ(Control<QLabel>(Exercise(), "lblScore").text(), u"10"_s);
}

TEST_F(FullDisk, LosesNothingWhenThereIsRoomAgainAtTheEnd)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"C+O2=CO2/1,1,1"_s});
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    messages.answers = {QMessageBox::Yes};
    messages.whileOpen = [this](const Message&) { QFile::remove(journal); };

    Choose("Mnu_End");

    EXPECT_EQ(ends, 1);
    EXPECT_EQ(TextOfFile(journal),
              AsFileText({{},
                          Stars(),
                          u"Nom élève :DUPONT"_s,
                          u"Prénom élève :Paul"_s,
                          u"Classe élève :3B"_s,
                          Stars(),
                          u"Nom du fichier : Serie1.Equ - 2 équations"_s,
                          u"Jour et Heure :05/03/2016 14:07:12"_s,
                          Hyphens(),
                          u"  N°1 : "_s,
                          u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s}));
}

TEST_F(FullDisk, AsksAgainUntilTheUserGivesUp)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    messages.shown.clear();
    messages.answers = {QMessageBox::Yes, QMessageBox::Yes, QMessageBox::No};

    Choose("Mnu_End");

    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(messages.shown[0].buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_TRUE(messages.shown[0].text.contains(journal));
    EXPECT_EQ(ends, 1);
}

TEST_F(FaultPlace, IsTheLineOfTheRun)
{
    OpenFile({u"'mot"_s, u"H2 + O2 = H2O/2,1,2"_s});

    const FatalFault placed = shell->WithPlace(FatalFault(u"cause"_s));

    EXPECT_EQ(placed.Cause(), u"cause"_s);
    EXPECT_EQ(placed.File(), EquationFolder() + u"/Serie1.Equ"_s);
    EXPECT_EQ(placed.Line(), 2);
    EXPECT_EQ(placed.LineText(), u"H2 + O2 = H2O/2,1,2"_s);
}

TEST_F(FaultPlace, StaysWhereAFaultHasOne)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    const FatalFault placed = shell->WithPlace(FatalFault(u"cause"_s, u"/autre.txt"_s, 7, u"texte"_s));

    EXPECT_EQ(placed.File(), u"/autre.txt"_s);
    EXPECT_EQ(placed.Line(), 7);
}

TEST_F(FaultPlace, IsNotTheExerciseWhereNoFileIsAtFault)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    const FatalFault placed = shell->WithPlace(FatalFault::WithoutFile(u"cause"_s));

    EXPECT_EQ(placed.File(), QString());
    EXPECT_EQ(placed.Line(), 0);
}

TEST_F(FaultPlace, IsNowhereWithoutARun)
{
    EXPECT_EQ(shell->WithPlace(FatalFault(u"cause"_s)).File(), QString());
}

} // namespace stoikal
