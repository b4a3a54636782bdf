#include "teacher_fixture.h"

#include "support/ordinary_user.h"

#include <QListWidget>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kWater = u"H2+O2=H2O/2,1,2"_s;

class Results : public TeacherTest
{
protected:
    QString Journal() const { return EquationFolder() + u"/Resultat.txt"_s; }
    void WriteLine(const QString& line) { EXPECT_TRUE(shell->Journal().WriteLines({line})); }
};

class Tips : public TeacherTest
{
};

class Deletion : public TeacherTest
{
};

class Solution : public TeacherTest
{
protected:
    QStringList Coefficients()
    {
        QStringList texts;
        for (int slot = 0; slot < 6; ++slot)
            texts << Box(slot).text();
        return texts;
    }
};

class PasswordChange : public TeacherTest
{
protected:
    void Change(const QString& old, const QString& next)
    {
        script.On("frmPassWord", [old, next](QWidget& window) {
            Type(Control<QLineEdit>(window, "txtOldPassWord"), old);
            Type(Control<QLineEdit>(window, "txtNewPassWord"), next);
            Click(Control<QPushButton>(window, "cmdOK"));
        });
        Choose("Mnu_Password");
        Settle();
    }
};

} // namespace

TEST_F(Results, AreShownBesideTheProgramWhichRunsOn)
{
    WriteLine(u"Nom élève :DUPONT"_s);

    ChooseAsTeacher("Mnu_Answer");

    EXPECT_EQ(ShownText(), u"Nom élève :DUPONT\n"_s);
    EXPECT_EQ(Text().Path(), Journal());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(Control<QPlainTextEdit>(Text(), "txtTexte").isReadOnly());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(Results, AreShownWithTheJournalOpenAgain)
{
    WriteLine(u"avant"_s);

    ChooseAsTeacher("Mnu_Answer");
    WriteLine(u"après"_s);

    EXPECT_EQ(TextOfFile(Journal()), u"avant\r\naprès\r\n"_s);
}

TEST_F(Results, ShowWhatStillWaitedInMemory)
{
    ASSERT_TRUE(shell->Journal().Close());
    EXPECT_FALSE(shell->Journal().WriteLines({u"en attente"_s}));

    ChooseAsTeacher("Mnu_Answer");

    // What waits goes out with the first line that follows.
    WriteLine(u"suite"_s);
    EXPECT_EQ(TextOfFile(Journal()), u"en attente\r\nsuite\r\n"_s);
}

TEST_F(Results, TwiceAskedForStandInOneWindow)
{
    ChooseAsTeacher("Mnu_Answer");
    TextWindow* const first = &Text();

    ChooseAsTeacher("Mnu_Answer");

    EXPECT_EQ(&Text(), first);
    EXPECT_EQ(shell->MainWindow().findChildren<TextWindow*>().size(), 1);
}

TEST_F(Results, WindowGoesByItsButton)
{
    ChooseAsTeacher("Mnu_Answer");

    Click(Control<QPushButton>(Text(), "cmdClose"));
    Settle();

    EXPECT_EQ(FindWindow("frmTexte"), nullptr);
    ChooseAsTeacher("Mnu_Answer");
    EXPECT_TRUE(Text().isVisible());
}

TEST_F(Results, GoWhenAPupilBegins)
{
    ChooseAsTeacher("Mnu_Answer");

    OpenFile({kWater});

    EXPECT_EQ(FindWindow("frmTexte"), nullptr);
}

TEST_F(Results, AreNotShownInARun)
{
    OpenFile({kWater});

    EXPECT_FALSE(Entry("Mnu_Answer").isEnabled());
    EXPECT_FALSE(Entry("Mnu_Clean").isEnabled());
    EXPECT_TRUE(Entry("Mnu_MoreTip").isEnabled());
    EXPECT_TRUE(Entry("Mnu_Solution").isEnabled());
}

TEST_F(Results, AreEmptiedAfterAQuestion)
{
    WriteLine(u"ancien"_s);
    State().pupil.NomEleve = u"DUPONT"_s;
    messages.answers = {QMessageBox::Yes};
    QString whileTold; // The message comes first, then the deletion.
    messages.whileOpen = [&](const Message&) { whileTold = TextOfFile(Journal()); };

    ChooseAsTeacher("Mnu_Clean");

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(whileTold, u"ancien\r\n"_s);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"Voulez-vous vraiment vider le fichier ?"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Question);
    EXPECT_EQ(messages.shown[1].text, u"Fichier Resultat.txt vidé."_s);
    EXPECT_EQ(TextOfFile(Journal()), QString());
    // The journal goes on in the new file, and the pupil stays who he is.
    WriteLine(u"nouveau"_s);
    EXPECT_EQ(TextOfFile(Journal()), u"nouveau\r\n"_s);
    EXPECT_EQ(State().pupil.NomEleve, u"DUPONT"_s);
}

TEST_F(Results, StayOnNo)
{
    WriteLine(u"ancien"_s);
    messages.answers = {QMessageBox::No};

    ChooseAsTeacher("Mnu_Clean");

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(TextOfFile(Journal()), u"ancien\r\n"_s);
}

TEST_F(Results, EmptiedByAnotherProgramLoseNoLineOfThisOne)
{
    WriteLine(u"ancien"_s);

    // The teacher sits at another account of the machine.
    ASSERT_TRUE(QFile::remove(Journal()));
    WriteLine(u"nouveau"_s);

    EXPECT_EQ(TextOfFile(Journal()), u"nouveau\r\n"_s);
}

TEST_F(Results, ThatMayNotBeTakenAwayAreCutToNothing)
{
    WriteLine(u"ancien"_s);
    const QByteArray place = QFile::encodeName(EquationFolder());
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0755), 0);
    ASSERT_EQ(::chmod(place.constData(), 0555), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(Journal()).constData(), 0666), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(State().places.IniUtilisateur).constData(), 0644), 0);
    {
        const AsOrdinaryUser teacher;
        ASSERT_TRUE(teacher.IsOrdinary());
        messages.answers = {QMessageBox::Yes};
        ChooseAsTeacher("Mnu_Clean");
        WriteLine(u"nouveau"_s);
    }
    ASSERT_EQ(::chmod(place.constData(), 0755), 0);

    ASSERT_EQ(messages.shown.size(), 2U); // The question and the message.
    EXPECT_EQ(TextOfFile(Journal()), u"nouveau\r\n"_s);
}

TEST_F(Results, WhoseJournalCannotBeReopenedLoseNoLine)
{
    // A folder with something in it has taken the file's place.
    ASSERT_TRUE(QFile::remove(Journal()));
    ASSERT_TRUE(QDir().mkpath(Journal() + u"/a"_s));
    messages.answers = {QMessageBox::Yes};

    ChooseAsTeacher("Mnu_Clean");

    EXPECT_EQ(messages.shown.size(), 2U); // The question and the message.
    EXPECT_FALSE(shell->Journal().WriteLines({u"en attente"_s}));
    ASSERT_TRUE(QDir(Journal()).removeRecursively());
    WriteLine(u"suite"_s);
    EXPECT_EQ(TextOfFile(Journal()), u"en attente\r\nsuite\r\n"_s);
}

TEST_F(Results, EmptiedVanishFromTheirOpenWindow)
{
    WriteLine(u"ancien"_s);
    ChooseAsTeacher("Mnu_Answer");
    messages.answers = {QMessageBox::Yes};

    ChooseAsTeacher("Mnu_Clean");

    EXPECT_EQ(ShownText(), QString());
}

TEST_F(Tips, AreOpenedForWritingAndSaved)
{
    WriteTextFile(TipsPath(), {u"Première astuce"_s});
    ChooseAsTeacher("Mnu_MoreTip");
    ASSERT_EQ(ShownText(), u"Première astuce\n"_s);

    Type(Control<QPlainTextEdit>(Text(), "txtTexte"), u"Deuxième"_s);
    Click(Control<QPushButton>(Text(), "cmdSave"));

    EXPECT_EQ(TextOfFile(TipsPath()), u"Première astuce\r\nDeuxième\r\n"_s);
}

TEST_F(Tips, AreNotOpenedWithoutTheirFile)
{
    ASSERT_FALSE(QFile::exists(TipsPath()));

    ChooseAsTeacher("Mnu_MoreTip");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"Erreur sur le nom du fichier."_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(FindWindow("frmTexte"), nullptr);
    EXPECT_FALSE(QFile::exists(TipsPath()));
}

TEST_F(Tips, StayOpenBesideARunWithTheirUnsavedText)
{
    WriteTextFile(TipsPath(), {});
    ChooseAsTeacher("Mnu_MoreTip");
    Type(Control<QPlainTextEdit>(Text(), "txtTexte"), u"à finir"_s);

    OpenFile({kWater});

    EXPECT_EQ(ShownText(), u"à finir"_s);
}

TEST_F(Tips, UnsavedAskBeforeTheirWindowGoes)
{
    WriteTextFile(TipsPath(), {});
    ChooseAsTeacher("Mnu_MoreTip");
    Type(Control<QPlainTextEdit>(Text(), "txtTexte"), u"x"_s);
    messages.answers = {QMessageBox::No, QMessageBox::Yes};

    Text().close();
    Settle();
    EXPECT_NE(FindWindow("frmTexte"), nullptr);

    Text().close();
    Settle();
    EXPECT_EQ(FindWindow("frmTexte"), nullptr);
    EXPECT_EQ(TextOfFile(TipsPath()), QString());
}

TEST_F(Tips, UnsavedAreOfferedToBeSavedAtTheEnd)
{
    WriteTextFile(TipsPath(), {});
    ChooseAsTeacher("Mnu_MoreTip");
    Type(Control<QPlainTextEdit>(Text(), "txtTexte"), u"x"_s);
    messages.answers = {QMessageBox::Yes};

    Choose("Mnu_End");

    EXPECT_EQ(TextOfFile(TipsPath()), u"x\r\n"_s);
    EXPECT_EQ(ends, 1);
}

TEST_F(Tips, ThatCannotBeReadOpenNoWindow)
{
    ASSERT_TRUE(QDir().mkpath(TipsPath()));

    ChooseAsTeacher("Mnu_MoreTip");

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(FindWindow("frmTexte"), nullptr);
}

TEST_F(Deletion, ListsTheEquationFilesOfTheFolder)
{
    for (const QString& name : {u"b.Equ"_s, u"A.AVT"_s, u"c.equ"_s, u"note.txt"_s})
        WriteEquations({kWater}, name);
    QStringList listed;
    script.On("frmMotPasse", [](QWidget& window) { Answer(window, u"Sesame"_s); });
    script.On("frmCorbeille", [&listed](QWidget& window) {
        auto& list = Control<QListWidget>(window, "flbEQU");
        for (int row = 0; row < list.count(); ++row)
            listed << list.item(row)->text();
        Click(Control<QPushButton>(window, "cmdCancel"));
    });

    Choose("Mnu_Kill");

    EXPECT_EQ(listed, QStringList({u"A.AVT"_s, u"b.Equ"_s, u"c.equ"_s}));
}

TEST_F(Deletion, HandsTheFilesOfTheFolderToTheTrash)
{
    const QString path = WriteEquations({kWater}, u"Série à jeter.Equ"_s);
    script.On("frmMotPasse", [](QWidget& window) { Answer(window, u"Sesame"_s); });
    script.On("frmCorbeille", [](QWidget& window) {
        Control<QListWidget>(window, "flbEQU").item(0)->setSelected(true);
        Click(Control<QPushButton>(window, "cmdKill"));
    });

    Choose("Mnu_Kill");

    EXPECT_EQ(desktop.trash.moved, QStringList{path});
    EXPECT_EQ(FindWindow("frmCorbeille"), nullptr);
}

TEST_F(Deletion, TellsAFolderThatCannotBeRead)
{
    ASSERT_TRUE(QDir(EquationFolder()).removeRecursively());

    ChooseAsTeacher("Mnu_Kill");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.contains(EquationFolder()));
    EXPECT_EQ(FindWindow("frmCorbeille"), nullptr);
}

TEST_F(Solution, WritesTheCoefficientsOfTheFile)
{
    OpenFile({u"N2+H2=NH3/1,3,2"_s});
    Type(Box(0), u"7"_s);

    ChooseAsTeacher("Mnu_Solution");

    // The boxes of slots that are not in use take their 0 unseen.
    EXPECT_EQ(Coefficients(), QStringList({u"1"_s, u"3"_s, u"0"_s, u"2"_s, u"0"_s, u"0"_s}));
}

TEST_F(Solution, ChangesNothingOfTheRunAndEarnsThePoints)
{
    OpenFile({u"N2+H2=NH3/1,3,2"_s, kWater});
    ChooseAsTeacher("Mnu_Solution");
    EXPECT_EQ(State().run.NumEquation, 1);
    EXPECT_EQ(shell->State().run.Score, 0);
    EXPECT_TRUE(shell->State().run.AnswerOpen);

    ShellTest::Answer({});

    EXPECT_EQ(shell->State().run.Score, 5);
    EXPECT_EQ(State().run.NumEquation, 2);
}

TEST_F(Solution, GivesTheKeyboardBackToTheExercise)
{
    OpenFile({kWater});

    ChooseAsTeacher("Mnu_Solution");
    EXPECT_TRUE(Exercise().isActiveWindow());

    CancelThePassword();
    Choose("Mnu_Solution");
    Settle();
    EXPECT_TRUE(Exercise().isActiveWindow());
}

TEST_F(Solution, IsOutOfReachWithoutARun)
{
    EXPECT_FALSE(Entry("Mnu_Solution").isEnabled());
}

TEST_F(PasswordChange, AsksForTheOldPasswordAndForNothingBefore)
{
    Change(u"Sesame"_s, u"ouvre"_s);

    EXPECT_EQ(Setting("Options", "PassWord"), u"ouvre"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PasswordChange, HoldsForTheNextQuestion)
{
    Change(u"Sesame"_s, u"ouvre"_s);
    WhenAsked([](QWidget& window) {
        Answer(window, u"Sesame"_s);
        EXPECT_TRUE(window.isVisible());
        Answer(window, u"ouvre"_s);
    });

    Choose("Mnu_Balance");
    Settle();

    EXPECT_NE(FindWindow("frmExpert"), nullptr);
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(PasswordChange, MayBeTakenBackToNone)
{
    Change(u"Sesame"_s, QString());
    WhenAsked([](QWidget& window) { Click(Control<QPushButton>(window, "cmdOK")); });

    Choose("Mnu_Balance");
    Settle();

    EXPECT_NE(FindWindow("frmExpert"), nullptr);
}

TEST_F(PasswordChange, StandsOpenInARun)
{
    OpenFile({kWater});
    script.On("frmPassWord", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdCancel")); });

    Choose("Mnu_Password");
    Settle();

    EXPECT_TRUE(Exercise().isActiveWindow());
}

} // namespace stoikal
