#include "shell_fixture.h"

#include "base/file_lock.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kWater = u"H2+O2=H2O/2,1,2"_s;
const QString kIron = u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s;

/// The close command of the menu, and the title bar that does the same.
class ClosingAFile : public StartedShellTest
{
protected:
    bool IsStopwatchAtRest()
    {
        return !Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono").isActive()
            && Control<QLabel>(shell->Stopwatch().Window(), "lblTime").text() == u"00:00,0"_s;
    }

    bool StopwatchCanBePressed()
    {
        return Control<QAbstractButton>(shell->Stopwatch().Window(), "cmdRAZ").isEnabled()
            && Control<QAbstractButton>(shell->Stopwatch().Window(), "chkStart_Stop").isEnabled();
    }
};

/// The window of the mark at the end of a file, and the three ways on.
class EndOfARun : public ClosingAFile
{
protected:
    /// The one equation of the file answered rightly, at 4.2 seconds.
    void AnswerWater()
    {
        ClockReaches(42);
        Answer({u"2"_s, u"1"_s, {}, u"2"_s});
        Settle();
    }

    /// A click of the mouse that was already on its way: it arrives wherever the
    /// button stands by now.
    static void ClickWithoutLooking(QWidget& button) { QTest::mouseClick(&button, Qt::LeftButton); }

    /// A pupil with 0 of 5 points sees the solution of the last equation.
    void SeeTheSolutionOfTheLastEquation()
    {
        OpenFile({kWater});
        Answer({u"9"_s, u"1"_s, {}, u"1"_s});
        ASSERT_EQ(Box(0).text(), u"2"_s);
    }

    /// Leaves the window of the mark by "Accueil"; how often it came.
    int marksShown = 0;
    void CountTheMarks()
    {
        script.On("frmNote", [this](QWidget& note) {
            ++marksShown;
            Click(Control<QPushButton>(note, "cmdStay"));
        });
    }

    /// The journal behind the line of hyphens of the last file opened.
    QString LastRun() { return JournalText().section(Hyphens() + u"\r\n"_s, -1); }
};

class EndOfANetworkRun : public EndOfARun
{
protected:
    void SetUp() override
    {
        desktop.folders.networkRoot = MadeFolder("share");
        MadeFolder("share/Classe3");
        WriteSettings({u"[Réseau]"_s, u"Dossier Dépôt=Classe3"_s});
        Start();
        QDir().mkpath(EquationFolder());
    }
};

} // namespace

TEST_F(ClosingAFile, AsksWithTheExerciseOutOfTheWay)
{
    OpenFile({kIron});
    messages.answers = {QMessageBox::No};
    bool isClear = false;
    messages.whileOpen = [&isClear](const Message&) {
        isClear = FindWindow("frmEquation") == nullptr && FindWindow("frmCharge") == nullptr;
    };

    Choose("Mnu_Close");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"Etes-vous sûr de vouloir fermer ce fichier ?"_s);
    EXPECT_EQ(messages.shown[0].buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_TRUE(isClear);
}

TEST_F(ClosingAFile, LeavesAllAsItWasOnNo)
{
    OpenFile({kWater, kIron});
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Choose("Mnu_Charge");
    Type(Box(0), u"2"_s);
    ClockReaches(30);
    const QString journal = JournalText();
    const QPoint place = Exercise().pos();
    const QPoint placeOfCharge = FindWindow("frmCharge")->pos();
    messages.answers = {QMessageBox::No};

    Choose("Mnu_Close");

    EXPECT_TRUE(Exercise().isVisible());
    EXPECT_EQ(Exercise().pos(), place);
    EXPECT_EQ(Box(0).text(), u"2"_s);
    EXPECT_EQ(Control<QLabel>(Exercise(), "lblScore").text(), u"5"_s);
    ASSERT_NE(FindWindow("frmCharge"), nullptr);
    EXPECT_EQ(FindWindow("frmCharge")->pos(), placeOfCharge);
    EXPECT_TRUE(Entry("Mnu_Charge").isChecked());
    EXPECT_NE(FindWindow("frmReactif"), nullptr);
    EXPECT_TRUE(Entry("Mnu_Close").isEnabled());
    EXPECT_EQ(State().run.NumEquation, 2);
    EXPECT_EQ(State().run.TitreFichier, u"Serie1.Equ"_s);
    EXPECT_EQ(JournalText(), journal);
    ClockReaches(35);
    EXPECT_DOUBLE_EQ(State().stopwatch.ElapsedSeconds, 3.5);
}

TEST_F(ClosingAFile, LeavesClosedChargesClosedOnNo)
{
    OpenFile({kIron});
    Choose("Mnu_Charge");
    messages.answers = {QMessageBox::No};

    Choose("Mnu_Close");

    EXPECT_EQ(FindWindow("frmCharge"), nullptr);
    EXPECT_FALSE(Entry("Mnu_Charge").isChecked());
    EXPECT_TRUE(Entry("Mnu_Charge").isEnabled());
}

TEST_F(ClosingAFile, ClosesEverythingOnYes)
{
    OpenFile({kIron});
    ClockReaches(30);
    messages.answers = {QMessageBox::Yes};

    Choose("Mnu_Close");
    Settle();

    ExpectFreeMode();
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_EQ(shell->RunWindows().Exercise(), nullptr);
    EXPECT_TRUE(IsStopwatchAtRest());
    EXPECT_TRUE(StopwatchCanBePressed());
    EXPECT_EQ(State().stopwatch.ElapsedSeconds, 0);
}

TEST_F(ClosingAFile, GivesNoMark)
{
    OpenFile({kWater, kIron});
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    messages.answers = {QMessageBox::Yes};

    Choose("Mnu_Close");
    Settle();

    EXPECT_TRUE(JournalText().endsWith(u"CORRECT - Score : 5\r\n"_s));
    EXPECT_FALSE(QFileInfo::exists(EquationFolder() + u"/HighScore.txt"_s));
}

TEST_F(ClosingAFile, IsAskedByTheTitleBarOfTheExercise)
{
    OpenFile({kWater});
    messages.answers = {QMessageBox::No, QMessageBox::Yes};

    Exercise().close();
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Etes-vous sûr de vouloir fermer ce fichier ?"_s);
    EXPECT_TRUE(Exercise().isVisible());

    Exercise().close();
    Settle();
    ExpectFreeMode();
}

TEST_F(ClosingAFile, KeepsTheIdentityForTheNextOne)
{
    OpenFile({kWater});
    messages.answers = {QMessageBox::Yes};
    Choose("Mnu_Close");
    Settle();
    const QString before = JournalText();

    // No step for the identification.
    OpenFile({kIron}, u"Serie2.Equ"_s);

    EXPECT_EQ(JournalText(),
              before
                  + AsFileText({Stars(), u"Nom du fichier : Serie2.Equ - 1 équations"_s,
                                u"Jour et Heure :05/03/2016 14:07:12"_s, Hyphens()}));
    EXPECT_EQ(State().run.NumEquation, 1);
}

TEST_F(EndOfARun, ShowsTheMark)
{
    OpenFile({kWater});
    script.On("frmNote", [this](QWidget& note) {
        EXPECT_EQ(note.windowTitle(), u"Stoikal"_s);
        EXPECT_EQ(Control<QLabel>(note, "lblInfo").text(),
                  u"Il n'y a plus d'équations dans le fichier Serie1.Equ"_s);
        // 5 of 5 points; 42 counts of a tenth.
        EXPECT_EQ(Control<QLabel>(note, "lblNote").text(), u"Votre note est de : 20/20"_s);
        EXPECT_EQ(Control<QLabel>(note, "lblTemps").text(), u"Temps mis : 4,2 s"_s);
        EXPECT_TRUE(Control<QCheckBox>(note, "chkHighScore").isEnabled());
        EXPECT_FALSE(Control<QCheckBox>(note, "chkHighScore").isChecked());
        Click(Control<QPushButton>(note, "cmdStay"));
    });

    AnswerWater();
}

TEST_F(EndOfARun, HasClosedTheFileWhenTheMarkIsShown)
{
    OpenFile({kIron});
    Type(Box(0), u"2"_s);
    script.On("frmNote", [this](QWidget& note) {
        for (const char* const window : {"frmEquation", "frmReactif", "frmProduit", "frmCharge"})
            EXPECT_EQ(FindWindow(window), nullptr) << window;
        EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0"_s);
        EXPECT_TRUE(Entry("Mnu_Open(0)").isEnabled());
        EXPECT_FALSE(Entry("Mnu_Close").isEnabled());
        EXPECT_FALSE(Entry("Mnu_Charge").isEnabled());
        EXPECT_FALSE(Entry("Mnu_Charge").isChecked());
        EXPECT_FALSE(shell->Run().IsOpen());
        EXPECT_EQ(State().run.NumEquation, 0);
        EXPECT_FALSE(Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono").isActive());
        Click(Control<QPushButton>(note, "cmdStay"));
    });

    // The first box holds its 2 already: 2 x 3 = 2 x 2 + 1 x 2.
    Answer({{}, u"1"_s, {}, u"2"_s, u"1"_s});
    Settle();
}

TEST_F(EndOfARun, ReturnsHomeByAccueil)
{
    OpenFile({kWater});
    PressInNote("cmdStay");

    AnswerWater();

    ExpectFreeMode();
    EXPECT_TRUE(IsStopwatchAtRest());
    EXPECT_TRUE(StopwatchCanBePressed());
    EXPECT_EQ(ends, 0);
}

TEST_F(EndOfARun, ReturnsHomeByTheTitleBar)
{
    OpenFile({kWater});
    script.On("frmNote", [](QWidget& note) { note.close(); });

    AnswerWater();

    ExpectFreeMode();
    EXPECT_TRUE(StopwatchCanBePressed());
    EXPECT_EQ(ends, 0);
}

TEST_F(EndOfARun, EndsTheProgramByQuitter)
{
    OpenFile({kWater});
    PressInNote("cmdEnd");

    AnswerWater();

    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(shell->Journal().IsOpen());
    EXPECT_TRUE(JournalText().endsWith(u" -------> Note : 20,00/20 - Temps écoulé : 04,20 s\r\n"_s));
}

TEST_F(EndOfARun, IsHandledOnceWhenASecondValidationWasWaiting)
{
    SeeTheSolutionOfTheLastEquation();
    CountTheMarks();
    QWidget& validate = Control<QWidget>(Exercise(), "cmdOther");

    ClickWithoutLooking(validate);
    ClickWithoutLooking(validate);
    Settle();

    EXPECT_EQ(marksShown, 1);
    EXPECT_EQ(LastRun(),
              AsFileText({u"  N°1 : "_s, u"9 H2 + 1 O2 ---> 1 H2O : FAUX - Score : 0"_s, u"  N°1 : "_s,
                          u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 0"_s,
                          u" -------> Note : 00,00/20 - Temps écoulé : 00,00 s"_s}));
    EXPECT_EQ(TextOfFile(EquationFolder() + u"/HighScore.txt"_s),
              AsFileText({u"#Serie1.Equ"_s, u"DUPONT©0©0"_s}));
    ExpectFreeMode();
}

TEST_F(EndOfARun, IsHandledOnceWhenTheNextEquationIsAskedForTwice)
{
    OpenFreeSimulation(kWater);
    CountTheMarks();
    QWidget& next = Control<QWidget>(Exercise(), "cmdNext");

    ClickWithoutLooking(next);
    ClickWithoutLooking(next);
    Settle();

    EXPECT_EQ(marksShown, 1);
    ExpectFreeMode();
}

TEST_F(EndOfARun, IsHandledOnceInASeries)
{
    OpenFile({u"'Voir #2"_s, u"C+O2=CO2/1,1,1"_s}, u"Serie1.Avt"_s, [](QWidget& window) {
        Click(Control<QAbstractButton>(window, "optSimul(0)"));
        Click(Control<QAbstractButton>(window, "cmdChoix"));
    });
    // A line without data is done with the molar masses, which are wrong at 0 points.
    for (const char* const box : {"txtMasMol(0)", "txtMasMol(1)", "txtMasMol(3)"})
        Type(Control<QLineEdit>(Exercise(), box), u"1"_s);
    Click(Control<QAbstractButton>(Exercise(), "cmdValidMassMol"));
    CountTheMarks();
    QWidget& next = Control<QWidget>(Exercise(), "cmdNext");

    ClickWithoutLooking(next);
    ClickWithoutLooking(Control<QWidget>(Exercise(), "cmdValidMassMol"));
    ClickWithoutLooking(Control<QWidget>(Exercise(), "cmdValidMVQ"));
    ClickWithoutLooking(next);
    Settle();

    EXPECT_EQ(marksShown, 1);
    EXPECT_EQ(LastRun(), AsFileText({u" -------> Note : 00,00/20 - Temps écoulé : 00,00 s"_s}));
    ExpectFreeMode();
}

TEST_F(EndOfARun, OpensNoWindowForAPressThatWasWaiting)
{
    OpenFreeSimulation(u"C<s>+O2<g>=CO2<g>/1,1,1#Q3,Q2,Q0"_s);
    CountTheMarks();
    QStringList shown;
    QObject::connect(&shell->MolarMasses(), &MolarMassesController::Shown,
                     [&shown](bool isShown) { shown << (isShown ? u"+"_s : u"-"_s); });

    ClickWithoutLooking(Control<QWidget>(Exercise(), "cmdNext"));
    for (const char* const name : {"chkDataMol", "chkHistoMol"}) {
        auto& tick = Control<QCheckBox>(Exercise(), name);
        QTest::mouseClick(&tick, Qt::LeftButton, Qt::NoModifier, QPoint(8, tick.height() / 2));
        EXPECT_FALSE(tick.isChecked()) << name;
    }
    Settle();

    EXPECT_EQ(shown, QStringList());
    EXPECT_EQ(marksShown, 1);
    ExpectFreeMode();
}

TEST_F(EndOfARun, AsksNothingWhenTheExerciseIsClosedOnceMore)
{
    SeeTheSolutionOfTheLastEquation();
    CountTheMarks();

    ClickWithoutLooking(Control<QWidget>(Exercise(), "cmdOther"));
    Exercise().close();
    Choose("Mnu_Close");
    Settle();

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(marksShown, 1);
    ExpectFreeMode();
}

TEST_F(EndOfARun, GivesNoMarkOnceTheProgramHasEnded)
{
    SeeTheSolutionOfTheLastEquation();

    ClickWithoutLooking(Control<QWidget>(Exercise(), "cmdOther"));
    Choose("Mnu_End");
    Settle();

    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(LastRun().contains(u"Note"_s));
    EXPECT_FALSE(QFileInfo::exists(EquationFolder() + u"/HighScore.txt"_s));
}

TEST_F(EndOfARun, TakesThePreferencesAndTheMolarMassesAwayBeforeTheMarkIsShown)
{
    OpenFile({kWater});
    Choose("Mnu_Pref");
    Choose("Mnu_MassMol");
    bool isAlone = false;
    script.On("frmNote", [this, &isAlone](QWidget& note) {
        isAlone = FindWindow("frmPref") == nullptr && FindWindow("frmMassMol") == nullptr
            && !Entry("Mnu_Pref").isChecked() && !Entry("Mnu_MassMol").isChecked();
        Click(Control<QPushButton>(note, "cmdStay"));
    });

    AnswerWater();

    EXPECT_TRUE(isAlone);
    ExpectFreeMode();
}

TEST_F(EndOfARun, StartsAgainFromZero)
{
    OpenFile({kWater});
    AnswerDialog(EquationFolder() + u"/Serie1.Equ"_s);
    PressInNote("cmdAgain");
    AnswerWater();
    ASSERT_NE(shell->RunWindows().Exercise(), nullptr);
    EXPECT_EQ(State().run.NumEquation, 1);
    EXPECT_EQ(Control<QLabel>(Exercise(), "lblScore").text(), u"0"_s);
    EXPECT_EQ(State().stopwatch.ElapsedSeconds, 0);
    for (const char* const window : {"frmEquation", "frmReactif", "frmProduit"})
        EXPECT_NE(FindWindow(window), nullptr) << window;
    PressInNote("cmdStay");

    // A second run, from the clock's 4.2 s to 9.9 s: 5.7 s.
    ClockReaches(99);
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    Settle();

    EXPECT_EQ(LastRun(),
              AsFileText({u"  N°1 : "_s, u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s,
                          u" -------> Note : 20,00/20 - Temps écoulé : 05,70 s"_s}));
    // Equal marks: the shorter time stands first.
    EXPECT_EQ(TextOfFile(EquationFolder() + u"/HighScore.txt"_s),
              AsFileText({u"#Serie1.Equ"_s, u"DUPONT©20©4,2"_s, u"DUPONT©20©5,7"_s}));
}

TEST_F(EndOfARun, MayGoOnWithAnotherFile)
{
    OpenFile({kWater});
    AnswerDialog(WriteEquations({kIron, kWater}, u"Serie2.Equ"_s));
    PressInNote("cmdAgain");

    AnswerWater();

    EXPECT_EQ(shell->MainWindow().windowTitle(), u"Stoikal v.4.0 - Serie2.Equ - 2 équations"_s);
    EXPECT_EQ(FindWindow("frmNote"), nullptr);
    EXPECT_NE(FindWindow("frmCharge"), nullptr);
    EXPECT_TRUE(Entry("Mnu_Close").isEnabled());
}

TEST_F(EndOfARun, LeavesAFreeSessionWhenTheNextDialogIsCancelled)
{
    OpenFile({kWater});
    desktop.dialogs.answers = {std::nullopt};
    PressInNote("cmdAgain");

    AnswerWater();

    ExpectFreeMode();
    EXPECT_TRUE(StopwatchCanBePressed());
}

TEST_F(EndOfARun, LeavesAFreeSessionWhenTheNextFileIsEmpty)
{
    OpenFile({kWater});
    AnswerDialog(WriteEquations({u"'rien"_s}, u"Vide.Equ"_s));
    PressInNote("cmdAgain");

    AnswerWater();

    EXPECT_EQ(messages.shown.size(), 1U);
    ExpectFreeMode();
}

TEST_F(EndOfARun, GivesNoMarkInFreeSimulation)
{
    OpenFreeSimulation(kWater);
    script.On("frmNote", [](QWidget& note) {
        EXPECT_FALSE(Control<QLabel>(note, "lblNote").isVisible());
        EXPECT_FALSE(Control<QLabel>(note, "lblTemps").isVisible());
        EXPECT_FALSE(Control<QCheckBox>(note, "chkHighScore").isEnabled());
        Click(Control<QPushButton>(note, "cmdStay"));
    });

    Click(Control<QPushButton>(Exercise(), "cmdNext"));
    Settle();

    EXPECT_EQ(LastRun(), QString());
    EXPECT_FALSE(QFileInfo::exists(EquationFolder() + u"/HighScore.txt"_s));
    ExpectFreeMode();
}

TEST_F(EndOfARun, KeepsTheMarkWhenTheHighScoresCannotBeWritten)
{
    OpenFile({kWater});
    // A folder stands in the place of the file.
    const QString scores = EquationFolder() + u"/HighScore.txt"_s;
    ASSERT_TRUE(QDir().mkpath(scores));
    QString mark;
    script.On("frmNote", [&mark](QWidget& note) {
        mark = Control<QLabel>(note, "lblNote").text();
        Click(Control<QPushButton>(note, "cmdStay"));
    });

    AnswerWater();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text,
              u"Erreur sur le chemin d'accés des fichiers :\n"_s + scores + u'\n' + EquationFolder()
                  + u"/HighScore_Temp.txt"_s);
    EXPECT_EQ(mark, u"Votre note est de : 20/20"_s);
    EXPECT_TRUE(LastRun().endsWith(u" -------> Note : 20,00/20 - Temps écoulé : 04,20 s\r\n"_s));
    ExpectFreeMode();
}

TEST_F(EndOfARun, TriesTheHighScoresAgainWhileOthersWriteThem)
{
    OpenFile({kWater});
    const QString scores = EquationFolder() + u"/HighScore.txt"_s;
    auto other = std::make_unique<FileLock>(scores, 0);
    ASSERT_TRUE(other->IsHeld());
    messages.answers = {QMessageBox::Retry};
    messages.whileOpen = [&other](const Message&) { other.reset(); };
    PressInNote("cmdStay");

    AnswerWater();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].buttons, QMessageBox::Retry | QMessageBox::Cancel);
    EXPECT_EQ(messages.shown[0].text,
              u"Erreur sur le chemin d'accés des fichiers :\n"_s + scores + u'\n' + EquationFolder()
                  + u"/HighScore_Temp.txt\n\n"_s
                  + u"D'autres programmes écrivent ces fichiers en ce moment.\n"_s
                  + u"Si vous annulez, votre résultat ne figurera pas dans le tableau des records."_s);
    EXPECT_EQ(TextOfFile(scores), u"#Serie1.Equ\r\nDUPONT©20©4,2\r\n"_s);
}

TEST_F(EndOfARun, RecordsNothingWhenNoOtherTryIsWanted)
{
    OpenFile({kWater});
    const QString scores = EquationFolder() + u"/HighScore.txt"_s;
    const FileLock other(scores, 0);
    messages.answers = {QMessageBox::Cancel};
    PressInNote("cmdStay");

    AnswerWater();

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_FALSE(QFileInfo::exists(scores));
}

TEST_F(EndOfANetworkRun, KeepsTheHighScoresInTheDepositFolder)
{
    OpenFile({kWater});
    PressInNote("cmdStay");

    AnswerWater();

    EXPECT_EQ(TextOfFile(folder.filePath(u"share/Classe3/HighScore.txt"_s)),
              AsFileText({u"#Serie1.Equ"_s, u"DUPONT©20©4,2"_s}));
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(u"share/HighScore.txt"_s)));
    EXPECT_TRUE(LastRun().endsWith(u"Temps écoulé : 04,20 s\r\n"_s));
}

} // namespace stoikal
