#include "teacher_fixture.h"

#include "balancing/windows/frm_search.h"

#include <QFileInfo>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kCarbon = u"C+O2=CO2/1,1,1"_s;

/// A program on a share whose deposit folder is "Classe3"; the password of the
/// class is "Sesame".
class NetworkClass : public ShellTest
{
protected:
    NetworkClass()
    {
        passesAsTeacher = false;
        desktop.folders.networkRoot = MadeFolder("share");
        desktop.folders.program = MadeFolder("share/prog");
        MadeFolder("share/Classe3");
        WriteSettings(
            {u"[Options]"_s, u"Show Tips at Startup=0"_s, u"[Réseau]"_s, u"Dossier Dépôt=Classe3"_s});
        WriteTextFile(Deposit("MotDePasse.txt"), {u"Sesame"_s});
        QDir().mkpath(EquationFolder());
    }

    void SetUp() override
    {
        Start();
        shell->MainWindow().activateWindow();
        Settle();
    }

    QString Deposit(const char* name) const
    {
        return folder.filePath(u"share/Classe3/"_s + QString::fromUtf8(name));
    }

    void EnterThePassword(const QString& password = u"Sesame"_s)
    {
        script.On("frmMotPasse", [password](QWidget& window) {
            Type(Control<QLineEdit>(window, "txtPassWord"), password);
            Click(Control<QPushButton>(window, "cmdOK"));
        });
    }

    void ChooseAsTeacher(const char* entry)
    {
        EnterThePassword();
        Choose(entry);
        Settle();
    }

    /// The share cannot be reached any more.
    void LoseTheShare()
    {
        ASSERT_TRUE(QDir().rename(folder.filePath(u"share"_s), folder.filePath(u"away"_s)));
    }
    void BringTheShareBack()
    {
        ASSERT_TRUE(QDir().rename(folder.filePath(u"away"_s), folder.filePath(u"share"_s)));
    }

    QString TextOfDialogRequest() const { return desktop.dialogs.asked.back().folder; }
};

} // namespace

TEST_F(NetworkClass, TeacherPicksAFileOfTheDepositToRead)
{
    WriteTextFile(Deposit("EQU_durand_5_3_2016_9_0.txt"), {u"Nom élève :DURAND"_s});
    AnswerDialog(Deposit("EQU_durand_5_3_2016_9_0.txt"));

    ChooseAsTeacher("Mnu_Answer");

    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.dialogs.asked[0].name, u"cdgOpenFileResultat"_s);
    EXPECT_EQ(desktop.dialogs.asked[0].folder, folder.filePath(u"share/Classe3"_s));
    EXPECT_EQ(desktop.dialogs.asked[0].filters, QStringList{u"Fichier texte (*.txt)"_s});
    auto* const text = qobject_cast<TextWindow*>(FindWindow("frmTexte"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(Control<QPlainTextEdit>(*text, "txtTexte").toPlainText(), u"Nom élève :DURAND\n"_s);
    EXPECT_TRUE(shell->Journal().IsOpen());
}

TEST_F(NetworkClass, LostPasswordIsToldOnceToWhoOpensAProtectedEntry)
{
    // Results of an hour ago, and a file that a start has just made anew.
    WriteTextFile(Deposit("EQU_durand_5_3_2016_9_0.txt"), {u"Nom élève :DURAND"_s});
    QFile results(Deposit("EQU_durand_5_3_2016_9_0.txt"));
    ASSERT_TRUE(results.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        results.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
    results.close();
    ASSERT_TRUE(QFile::remove(Deposit("MotDePasse.txt")));

    Start(); // Of any account: nothing is in its way.
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(TextOfFile(Deposit("MotDePasse.txt")), QString());
    for (int i = 0; i < 2; ++i) {
        EnterThePassword(QString());
        desktop.dialogs.answers.push_back(std::nullopt);
        Choose("Mnu_Answer");
        Settle();
    }

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    EXPECT_TRUE(messages.shown[0].text.startsWith(
        u"Le mot de passe de la classe a disparu\u00A0: son fichier a été effacé ou vidé.\n%1\n"_s.arg(
            Deposit("MotDePasse.txt"))))
        << messages.shown[0].text.toStdString();
}

TEST_F(NetworkClass, LostPasswordIsToldToWhoSetsANewOne)
{
    WriteTextFile(Deposit("MotDePasse.txt"), {});
    QFile results(State().places.FichierResultat);
    ASSERT_TRUE(results.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        results.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
    results.close();
    script.On("frmPassWord", [](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtNewPassWord"), u"neuf"_s);
        Click(Control<QPushButton>(window, "cmdOK"));
    });

    Choose("Mnu_Password");
    Settle();

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(TextOfFile(Deposit("MotDePasse.txt")), u"neuf\r\n"_s);
}

TEST_F(NetworkClass, CancelledChoiceEndsQuietly)
{
    desktop.dialogs.answers = {std::nullopt, std::nullopt};
    messages.answers = {QMessageBox::Yes};

    ChooseAsTeacher("Mnu_Answer");
    EXPECT_TRUE(messages.shown.empty());
    ChooseAsTeacher("Mnu_Clean");

    EXPECT_EQ(messages.shown.size(), 1U); // The question alone.
    EXPECT_EQ(FindWindow("frmTexte"), nullptr);
    EXPECT_TRUE(shell->Journal().IsOpen());
}

TEST_F(NetworkClass, FileThatWentMeanwhileIsTold)
{
    AnswerDialog(Deposit("EQU_absent.txt"));

    ChooseAsTeacher("Mnu_Answer");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Erreur sur le nom du fichier."_s);
    EXPECT_TRUE(shell->Journal().IsOpen());
}

TEST_F(NetworkClass, TeacherEmptiesAFileOfTheDeposit)
{
    const QString path = Deposit("EQU_durand_5_3_2016_9_0.txt");
    WriteTextFile(path, {u"Nom élève :DURAND"_s});
    AnswerDialog(path);
    messages.answers = {QMessageBox::Yes};

    ChooseAsTeacher("Mnu_Clean");

    EXPECT_FALSE(QFileInfo::exists(path));
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[1].text, u"Fichier EQU_durand_5_3_2016_9_0.txt vidé."_s);
    EXPECT_TRUE(shell->Journal().IsOpen());
}

TEST_F(NetworkClass, OwnJournalIsEmptiedAndGoesOn)
{
    EXPECT_TRUE(shell->Journal().WriteLines({u"ancien"_s}));
    AnswerDialog(State().places.FichierResultat);
    messages.answers = {QMessageBox::Yes};

    ChooseAsTeacher("Mnu_Clean");
    EXPECT_TRUE(shell->Journal().WriteLines({u"nouveau"_s}));

    EXPECT_EQ(JournalText(), u"nouveau\r\n"_s);
}

TEST_F(NetworkClass, PasswordsFileCanBeNeitherShownNorEmptied)
{
    // By its own name, in another spelling, and by a link.
    ASSERT_TRUE(QFile::link(Deposit("MotDePasse.txt"), Deposit("EQU_lien.txt")));
    WriteTextFile(Deposit("motdepasse.TXT"), {u"x"_s});
    for (const char* const name : {"MotDePasse.txt", "motdepasse.TXT", "EQU_lien.txt"}) {
        AnswerDialog(Deposit(name));
        desktop.dialogs.answers.push_back(std::nullopt);
        ChooseAsTeacher("Mnu_Answer");
        EXPECT_EQ(FindWindow("frmTexte"), nullptr) << name;

        AnswerDialog(Deposit(name));
        desktop.dialogs.answers.push_back(std::nullopt);
        messages.answers = {QMessageBox::Yes};
        ChooseAsTeacher("Mnu_Clean");
        EXPECT_EQ(messages.shown.back().icon, QMessageBox::Critical) << name;
    }

    EXPECT_EQ(TextOfFile(Deposit("MotDePasse.txt")), u"Sesame\r\n"_s);
    EXPECT_TRUE(shell->Journal().IsOpen());
}

TEST_F(NetworkClass, PasswordsFileIsNoExercise)
{
    // By its own name, in another spelling and folder, by a link, by a second name.
    State().pupil.NomEleve = u"DUPONT"_s;
    WriteTextFile(EquationFolder() + u"/MOTDEPASSE.txt"_s, {u"Sesame"_s});
    ASSERT_TRUE(QFile::link(Deposit("MotDePasse.txt"), EquationFolder() + u"/lien.Equ"_s));
    ASSERT_EQ(::link(qPrintable(Deposit("MotDePasse.txt")), qPrintable(EquationFolder() + u"/double.Equ"_s)),
              0);
    const QStringList paths{Deposit("MotDePasse.txt"), EquationFolder() + u"/MOTDEPASSE.txt"_s,
                            EquationFolder() + u"/lien.Equ"_s, EquationFolder() + u"/double.Equ"_s};
    for (const QString& path : paths) {
        messages.shown.clear();
        desktop.dialogs.asked.clear();
        AnswerDialog(path, 1);
        desktop.dialogs.answers.push_back(std::nullopt);

        Choose("Mnu_Open(0)");
        Settle();

        ASSERT_EQ(messages.shown.size(), 1U) << path.toStdString();
        EXPECT_EQ(messages.shown[0].text,
                  u"Ce fichier est réservé à l'enseignant et ne peut pas être choisi.\n\n"
                  "Choisissez un autre fichier."_s);
        // The dialog comes back where it was left.
        ASSERT_EQ(desktop.dialogs.asked.size(), 2U);
        EXPECT_EQ(desktop.dialogs.asked[1].folder, QFileInfo(path).absolutePath());
        EXPECT_EQ(desktop.dialogs.asked[1].filter, 1);
        EXPECT_FALSE(shell->Run().IsOpen());
    }
}

TEST_F(NetworkClass, PasswordsFileIsNotOpenedByAnyOtherWay)
{
    State().pupil.NomEleve = u"DUPONT"_s;
    EnterThePassword();
    Choose("Mnu_Search");
    Settle();
    auto* const search = FindWindow("frmSearch");
    ASSERT_NE(search, nullptr);
    messages.answers = {QMessageBox::Yes};

    Q_EMIT qobject_cast<frmSearch*>(search)->FileGathered(Deposit("MotDePasse.txt"));

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_FALSE(messages.shown[1].text.contains(u"Sesame"_s));
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_EQ(State().run.CheminFichier, QString());
}

TEST_F(NetworkClass, PasswordIsThatOfTheDepositAndNotOfTheUser)
{
    EXPECT_TRUE(shell->UserSettings().Write(u"Options"_s, u"PassWord"_s, u"mien"_s));
    EnterThePassword(u"mien"_s);
    script.On("frmMotPasse", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdCancel")); });

    Choose("Mnu_Balance");
    Settle();

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(FindWindow("frmExpert"), nullptr);
}

TEST_F(NetworkClass, PasswordChangedHereIsThatOfAll)
{
    script.On("frmPassWord", [](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtOldPassWord"), u"Sesame"_s);
        Type(Control<QLineEdit>(window, "txtNewPassWord"), u"neuf"_s);
        Click(Control<QPushButton>(window, "cmdOK"));
    });

    Choose("Mnu_Password");

    EXPECT_EQ(TextOfFile(Deposit("MotDePasse.txt")), u"neuf\r\n"_s);
    EXPECT_EQ(Setting("Options", "PassWord"), QString());
}

TEST_F(NetworkClass, PasswordChangedElsewhereHoldsAtTheNextQuestion)
{
    WriteTextFile(Deposit("MotDePasse.txt"), {u"neuf"_s});
    EnterThePassword(u"neuf"_s);

    Choose("Mnu_Balance");
    Settle();

    EXPECT_NE(FindWindow("frmExpert"), nullptr);
}

TEST_F(NetworkClass, PasswordThatCannotBeChangedIsTold)
{
    script.On("frmPassWord", [this](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtOldPassWord"), u"Sesame"_s);
        Type(Control<QLineEdit>(window, "txtNewPassWord"), u"neuf"_s);
        messages.whileOpen
            = [&window](const Message&) { QTimer::singleShot(0, &window, [&window] { window.close(); }); };
        LoseTheShare();
        Click(Control<QPushButton>(window, "cmdOK"));
    });

    Choose("Mnu_Password");
    BringTheShareBack();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(TextOfFile(Deposit("MotDePasse.txt")), u"Sesame\r\n"_s);
}

TEST_F(NetworkClass, ShareThatGoesInARunKeepsTheMarksAndSaysWhatIsWrong)
{
    OpenFile({kCarbon, kCarbon});
    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    LoseTheShare();
    script.On("frmNote", [](QWidget& note) { Click(Control<QPushButton>(note, "cmdStay")); });

    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    Settle();

    // The table of the ten best is out of reach; the mark stands in the journal.
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text,
              u"Erreur sur le chemin d'accés des fichiers :\n%1\n%2"_s.arg(Deposit("HighScore.txt"),
                                                                           Deposit("HighScore_Temp.txt")));
    BringTheShareBack();
    EXPECT_EQ(JournalText().count(u" : CORRECT - Score : "_s), 2);
    EXPECT_TRUE(JournalText().contains(u" -------> Note : 20,00/20 - "_s));
    ExpectFreeMode();
}

TEST_F(NetworkClass, JournalTakenAwayWithItsFolderIsToldOnceAndWrittenWhenTheFolderIsBack)
{
    OpenFile({kCarbon, kCarbon, kCarbon, kCarbon});
    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    ASSERT_TRUE(QDir(Deposit("")).removeRecursively());

    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(
        messages.shown[0].text.startsWith(u"Le fichier des résultats ne peut pas être complété :\n"_s));
    EXPECT_EQ(State().run.NumEquation, 4); // The run goes on.

    MadeFolder("share/Classe3");
    script.On("frmNote", [](QWidget& note) { Click(Control<QPushButton>(note, "cmdStay")); });
    Answer({u"1"_s, u"1"_s, {}, u"1"_s});
    Settle();

    // All but the first answer, which went with the folder, and the mark.
    EXPECT_EQ(JournalText().count(u" : CORRECT - Score : "_s), 3);
    EXPECT_TRUE(JournalText().contains(u" -------> Note : 20,00/20 - "_s));
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(NetworkClass, NothingOpensForTheEmptyPasswordWhileTheShareIsAway)
{
    LoseTheShare();
    script.On("frmMotPasse", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdOK")); });
    script.On("frmMotPasse", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdCancel")); });

    Choose("Mnu_Balance");
    Settle();
    BringTheShareBack();

    EXPECT_EQ(FindWindow("frmExpert"), nullptr);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Le fichier du mot de passe ne peut pas être lu :\n"_s));
}

TEST_F(NetworkClass, LosingTheNetworkDoesNotTurnToThePasswordOfTheUser)
{
    // The desktop does not see a network any more; the user's own password is empty.
    desktop.folders.networkRoot.clear();
    LoseTheShare();
    script.On("frmMotPasse", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdOK")); });
    script.On("frmMotPasse", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdCancel")); });

    Choose("Mnu_Search");
    Settle();
    BringTheShareBack();

    EXPECT_EQ(FindWindow("frmSearch"), nullptr);
    EXPECT_TRUE(State().places.ModeReseau);
}

} // namespace stoikal
