#include "balancing/windows/frm_search.h"
#include "forms/window_events.h"

#include "searching_form_fixture.h"
#include "support/file_size_limit.h"

#include <QDir>
#include <QFile>
#include <QListWidget>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// What a search adds to the list: the heads of the files with their findings.
QString Head(const QString& file)
{
    return u"\nDans le fichier "_s + file + u" : "_s;
}

QString Finding(const QString& line)
{
    return u"\n                    "_s + line;
}

QString End()
{
    return u"\n****************************************************************************************************"_s;
}

/// The window on the screen, over a folder of equation files.
class FrmSearch : public SearchingFormTest<frmSearch>
{
protected:
    FrmSearch()
    {
        QDir().mkpath(equations);
        QObject::connect(&window, &frmSearch::FileGathered,
                         [this](const QString& path) { gathered << path; });
    }

    QString Path(const QString& name) const { return equations + u'/' + name; }

    void Write(const QString& name, const QByteArray& bytes) { WriteBytes(Path(name), bytes); }

    QPushButton& SearchButton() { return Button("cmdSearch"); }
    QCheckBox& Gathers() { return Control<QCheckBox>(window, "chkSave"); }

    QStringList Files()
    {
        const auto& list = Control<QListWidget>(window, "flbEQU");
        QStringList names;
        for (int row = 0; row < list.count(); ++row)
            names << list.item(row)->text();
        return names;
    }

    /// Types one text a box and searches.
    void SearchFor(const QStringList& molecules)
    {
        if (!window.isVisible())
            Open();
        Fill(molecules);
        Click(SearchButton());
    }

    /// The same with the findings gathered in a file.
    void Gather(const QStringList& molecules, const QString& path, int filter = 0)
    {
        if (!window.isVisible())
            Open();
        if (!Gathers().isChecked())
            Click(Gathers());
        dialogs.answers.push_back(Dialogs::Choice{path, filter});
        SearchFor(molecules);
    }

    void ExpectFault(const QString& file, const QString& line)
    {
        SearchingFormTest::ExpectFault(Path(file) + u'\n' + line);
    }

    QStringList gathered;
};

} // namespace

TEST_F(FrmSearch, HasTheCaptionsOfItsControls)
{
    EXPECT_EQ(window.windowTitle(), u"Rechercher dans les fichiers d'équations"_s);
    EXPECT_EQ(SearchButton().text(), u"Lancer la recherche"_s);
    EXPECT_EQ(Button("cmdNewMol").text(), u"Nouvelles molécules"_s);
    EXPECT_EQ(Button("cmdClearList").text(), u"Effacer"_s);
    EXPECT_EQ(Gathers().text(), u"Créer un nouveau fichier avec les équations trouvées"_s);
    EXPECT_FALSE(Gathers().isChecked());
}

TEST_F(FrmSearch, ListsTheFilesThatItSearches)
{
    Write(u"b.Equ"_s, {});
    Write(u"A.avt"_s, {});
    Write(u"Resultat.txt"_s, {});

    Open();

    EXPECT_EQ(Files(), QStringList({u"A.avt"_s, u"b.Equ"_s}));
}

TEST_F(FrmSearch, SearchesForAMoleculeOnAnySide)
{
    Open();
    EXPECT_FALSE(SearchButton().isEnabled());
    for (int position = 0; position < 6; ++position) {
        Type(Box(position), u"H"_s);
        EXPECT_TRUE(SearchButton().isEnabled()) << position;
        Press(Box(position), Qt::Key_Backspace);
        EXPECT_FALSE(SearchButton().isEnabled()) << position;
    }
}

TEST_F(FrmSearch, FiltersItsBoxesWithAnyNumberOfBraces)
{
    Open();
    for (int position = 0; position < 6; ++position) {
        Type(Box(position), u"{{ "_s);
        EXPECT_EQ(Box(position).text(), u"{{"_s);
    }
    // The blank alone was refused.
    EXPECT_EQ(messages.shown.size(), 6U);
}

TEST_F(FrmSearch, EmptiesItsBoxesForNewMolecules)
{
    SearchFor({u"H2"_s, {}, {}, u"H2O"_s});
    const QString list = ListText();

    Click(Button("cmdNewMol"));

    for (int position = 0; position < 6; ++position)
        EXPECT_EQ(Box(position).text(), QString());
    EXPECT_TRUE(Box(0).hasFocus());
    EXPECT_FALSE(SearchButton().isEnabled());
    EXPECT_EQ(ListText(), list);
}

TEST_F(FrmSearch, EmptiesItsListAlone)
{
    SearchFor({u"H2"_s});
    ASSERT_EQ(ListText(), End());

    Click(Button("cmdClearList"));

    EXPECT_EQ(ListText(), QString());
    EXPECT_EQ(Box(0).text(), u"H2"_s);
}

TEST_F(FrmSearch, ListsTheFindingsUnderTheirFiles)
{
    Write(u"b.Equ"_s,
          "'H2 en t\xEAte\r\n H2 + O2=H2O/2,1,2\r\n\r\nC+O2=CO2/1,1,1\r\n  'H2+\r\nH2+Cl2=HCl/1,1,2");
    Write(u"c.Avt"_s, "CH4+O2=CO2+H2O/1,2,1,2#Q1,Q1,Q0,Q0\r\n");
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");

    SearchFor({u"H2"_s});

    EXPECT_EQ(ListText(),
              Head(u"a.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s) + Head(u"b.Equ"_s)
                  + Finding(u" H2 + O2=H2O/2,1,2"_s) + Finding(u"H2+Cl2=HCl/1,1,2"_s) + Head(u"c.Avt"_s)
                  + End());
    EXPECT_TRUE(List().textCursor().atEnd());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmSearch, AddsEachSearchToTheList)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");

    SearchFor({u"H2"_s});
    List().moveCursor(QTextCursor::Start);
    SearchFor({{}, {}, {}, u"N2"_s});

    EXPECT_EQ(ListText(),
              Head(u"a.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s) + End() + Head(u"a.Equ"_s) + End());
}

TEST_F(FrmSearch, TakesTheTextOfAllSixBoxes)
{
    Write(u"a.Equ"_s, "Al+Fe+Cu=H2+O2+N2/1,1,1,1,1,1\r\nAl+Fe+Cu=H2+O2/1,1,1,1,1\r\n");

    SearchFor({u"Cu"_s, u"Al"_s, u"Fe"_s, u"N2"_s, u"H2"_s, u"O2"_s});

    EXPECT_EQ(ListText(), Head(u"a.Equ"_s) + Finding(u"Al+Fe+Cu=H2+O2+N2/1,1,1,1,1,1"_s) + End());
}

TEST_F(FrmSearch, FindsAChargedMolecule)
{
    Write(u"a.Equ"_s, "Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\r\n");

    SearchFor({u"Fe{3+}"_s, {}, {}, u"Cu{2+}"_s});

    EXPECT_EQ(ListText(), Head(u"a.Equ"_s) + Finding(u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s) + End());
}

TEST_F(FrmSearch, DoesNotFindAStateThatWasNotTyped)
{
    Write(u"a.Equ"_s, "H2<g>+O2=H2O/2,1,2\r\n");

    SearchFor({u"H2"_s});

    EXPECT_EQ(ListText(), Head(u"a.Equ"_s) + End());
}

TEST_F(FrmSearch, ReadsAnyLineEndAndBothEncodings)
{
    Write(u"a.Equ"_s, "H2+A=B/1 \xE9\nH2+C=D/1 \xC3\xA9\rH2+E=F/1");

    SearchFor({u"H2"_s});

    EXPECT_EQ(ListText(),
              Head(u"a.Equ"_s) + Finding(u"H2+A=B/1 é"_s) + Finding(u"H2+C=D/1 é"_s) + Finding(u"H2+E=F/1"_s)
                  + End());
}

TEST_F(FrmSearch, KeepsTheNameOfAFileOnItsLine)
{
    Write(u"a\nH2+A=B.Equ"_s, "C+O2=CO2/1,1,1");

    SearchFor({u"H2"_s});

    EXPECT_EQ(ListText(), Head(u"a H2+A=B.Equ"_s) + End());
}

TEST_F(FrmSearch, DoesNotLookIntoFoldersOfTheFolder)
{
    QDir().mkpath(Path(u"Dossier.Equ"_s));
    Write(u"Dossier.Equ/dedans.Equ"_s, "H2+N2=NH3/3,1,2\r\n");

    SearchFor({u"H2"_s});

    EXPECT_EQ(ListText(), End());
}

TEST_F(FrmSearch, SearchesAFileThatCameMeanwhileAndListsIt)
{
    Open();
    Write(u"neuf.Equ"_s, "H2+N2=NH3/3,1,2\r\n");

    SearchFor({u"H2"_s});

    EXPECT_EQ(ListText(), Head(u"neuf.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s) + End());
    EXPECT_EQ(Files(), QStringList{u"neuf.Equ"_s});
}

TEST_F(FrmSearch, EndsAtALineWithoutEquals)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Write(u"b.Equ"_s, "'un\r\nH2+O2=H2O/2,1,2\r\n\r\nH2 + O2\r\nH2+S=H2S/1,1,1\r\n");
    Write(u"c.Equ"_s, "H2+Cl2=HCl/1,1,2\r\n");

    SearchFor({u"H2"_s});

    ExpectFault(u"b.Equ"_s, u"Ligne 4\u00A0: H2 + O2"_s);
    EXPECT_EQ(ListText(),
              Head(u"a.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s) + Head(u"b.Equ"_s)
                  + Finding(u"H2+O2=H2O/2,1,2"_s));
    EXPECT_EQ(Box(0).text(), u"H2"_s);

    // The window goes on.
    QFile::remove(Path(u"b.Equ"_s));
    Click(Button("cmdClearList"));
    Click(SearchButton());
    EXPECT_TRUE(ListText().endsWith(Finding(u"H2+Cl2=HCl/1,1,2"_s) + End()));
}

TEST_F(FrmSearch, ShowsWhatItFoundBehindTheMessageOfAFault)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\nrien\r\n");
    QString behind;
    messages.whileOpen = [&](const Message&) { behind = ListText(); };

    SearchFor({u"H2"_s});

    EXPECT_EQ(behind, Head(u"a.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s));
}

TEST_F(FrmSearch, EndsAtALineOfBlanks)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n   \r\n");

    SearchFor({u"H2"_s});

    ExpectFault(u"a.Equ"_s, u"Ligne 2\u00A0:    "_s);
}

TEST_F(FrmSearch, EndsAtASeventhFormula)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\nA+B+C+D+E+F+G=H/1\r\n");

    SearchFor({u"H2"_s});

    ExpectFault(u"a.Equ"_s, u"Ligne 2\u00A0: A+B+C+D+E+F+G=H/1"_s);
    EXPECT_EQ(ListText(), Head(u"a.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s));
}

TEST_F(FrmSearch, TellsAFileThatCannotBeOpenedAndGoesOn)
{
    ASSERT_TRUE(QFile::link(Path(u"nulle part"_s), Path(u"a.Equ"_s)));
    Write(u"b.Equ"_s, "H2+N2=NH3/3,1,2\r\n");

    SearchFor({u"H2"_s});

    EXPECT_TRUE(ListText().startsWith(Head(u"a.Equ"_s) + u"(illisible : "_s)) << ListText().toStdString();
    EXPECT_TRUE(ListText().endsWith(Head(u"b.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s) + End()));
}

TEST_F(FrmSearch, TellsAFileThatCannotBeReadAndGoesOn)
{
    // It opens, and its first byte cannot be read.
    ASSERT_TRUE(QFile::link(u"/proc/self/mem"_s, Path(u"a.Equ"_s)));
    Write(u"b.Equ"_s, "H2+N2=NH3/3,1,2\r\n");

    SearchFor({u"H2"_s});

    EXPECT_TRUE(ListText().startsWith(Head(u"a.Equ"_s) + u"(illisible : "_s)) << ListText().toStdString();
    EXPECT_TRUE(ListText().endsWith(Head(u"b.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s) + End()));
}

TEST_F(FrmSearch, TellsThatItsFolderIsMissing)
{
    QDir().rmdir(equations);

    SearchFor({u"H2"_s});

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.contains(equations));
    EXPECT_EQ(ListText(), QString());
}

TEST_F(FrmSearch, KeepsTheFocusOnItsButton)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Open();
    Type(Box(0), u"H2"_s);
    SearchButton().setFocus();

    Press(SearchButton(), Qt::Key_Space);

    EXPECT_TRUE(SearchButton().hasFocus());
    EXPECT_TRUE(ListText().endsWith(End()));
}

TEST_F(FrmSearch, IgnoresASecondPressDuringASearch)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Write(u"b.Equ"_s, "H2+O2=H2O/2,1,2\r\n");
    Open();
    QString then;
    QTimer::singleShot(0, &window, [&] {
        EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
        then = ListText();
        Click(SearchButton());
    });

    SearchFor({u"H2"_s});

    EXPECT_EQ(then, Head(u"a.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s));
    EXPECT_EQ(ListText(), then + Head(u"b.Equ"_s) + Finding(u"H2+O2=H2O/2,1,2"_s) + End());
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FrmSearch, StopsASearchBeforeItGoes)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Write(u"b.Equ"_s, "H2+O2=H2O/2,1,2\r\n");
    const QString output = folder.filePath(u"sortie.Equ"_s);
    int unloadsThen = -1;
    Open();
    QTimer::singleShot(0, &window, [&] {
        window.Release();
        unloadsThen = unloads;
    });

    Gather({u"H2"_s}, output);

    EXPECT_EQ(unloadsThen, 0);
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(ListText().contains(u"b.Equ"_s));
    EXPECT_TRUE(gathered.isEmpty());
    EXPECT_EQ(BytesOfFile(output), "H2+N2=NH3/3,1,2\r\n");
}

TEST_F(FrmSearch, StaysAliveWithinALongFile)
{
    constexpr int kLines = 2000;
    Write(u"a.Equ"_s, QByteArray("H2+O2=H2O/2,1,2\r\n").repeated(kLines));
    Open();
    QTimer::singleShot(0, &window, [this] { window.StopSearch(); });

    SearchFor({u"H2"_s});

    const auto found = ListText().count(u"H2+O2=H2O/2,1,2"_s);
    EXPECT_GT(found, 0);
    EXPECT_LT(found, kLines);
    EXPECT_FALSE(ListText().endsWith(End()));
}

TEST_F(FrmSearch, KeepsWhatASearchGivenUpHadFound)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    const QString output = folder.filePath(u"sortie.Equ"_s);
    Open();
    QTimer::singleShot(0, &window, [this] { window.StopSearch(); });

    Gather({u"H2"_s}, output);

    EXPECT_EQ(unloads, 0);
    EXPECT_FALSE(ListText().contains(End()));
    EXPECT_TRUE(gathered.isEmpty());
    EXPECT_EQ(BytesOfFile(output), "H2+N2=NH3/3,1,2\r\n");
}

TEST_F(FrmSearch, HasItsFindingsInTheFileWheneverTheProgramMayEnd)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Write(u"b.Equ"_s, "H2+O2=H2O/2,1,2\r\n");
    const QString output = folder.filePath(u"sortie.Equ"_s);
    Open();
    QByteArray then;
    QTimer::singleShot(0, &window, [&] { then = BytesOfFile(output); });

    Gather({u"H2"_s}, output);

    EXPECT_EQ(then, "H2+N2=NH3/3,1,2\r\n");
    EXPECT_EQ(BytesOfFile(output), "H2+N2=NH3/3,1,2\r\nH2+O2=H2O/2,1,2\r\n");
}

TEST_F(FrmSearch, GoesAtOnceWithoutASearch)
{
    Open();
    window.Release();
    EXPECT_EQ(unloads, 1);
}

TEST_F(FrmSearch, AsksForTheOutputInTheFolderOfEquations)
{
    Open();
    Click(Gathers());
    dialogs.answers = {std::nullopt, std::nullopt};

    SearchFor({u"H2"_s});
    EXPECT_TRUE(settings.Write(u"Options"_s, u"Files by default"_s, u"AVT"_s));
    SearchFor({u"H2"_s});

    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_EQ(dialogs.asked[0].name, u"cdgSave"_s);
    EXPECT_EQ(dialogs.asked[0].folder, equations);
    EXPECT_EQ(dialogs.asked[0].filters,
              QStringList({u"Stoikal Equilibrage (*.Equ)"_s, u"Stoikal Avancement (*.Avt)"_s}));
    EXPECT_EQ(dialogs.asked[0].fileName, u"Nom_du_Fichier.EQU"_s);
    EXPECT_EQ(dialogs.asked[0].filter, 0);
    EXPECT_EQ(dialogs.asked[1].filter, 1);
}

TEST_F(FrmSearch, DoesNothingWhenTheOutputIsCancelled)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Open();
    Click(Gathers());
    dialogs.answers = {std::nullopt};

    SearchFor({u"H2"_s});

    EXPECT_EQ(ListText(), QString());
    EXPECT_EQ(settings.Read(u"Options"_s, u"Files by default"_s), QString());
    EXPECT_TRUE(gathered.isEmpty());
}

TEST_F(FrmSearch, AsksForNoOutputUnlessItGathers)
{
    SearchFor({u"H2"_s});

    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_TRUE(gathered.isEmpty());
}

TEST_F(FrmSearch, GathersTheFindingsInANewFileCharacterForCharacter)
{
    Write(u"a.Equ"_s, " H2 + N2=NH3/3,1,2 \xE9\nC+O2=CO2/1,1,1\nH2+O2=H2O/2,1,2 \xC3\xA9");
    const QString output = Path(u"sortie.Equ"_s);

    Gather({u"H2"_s}, output);

    EXPECT_EQ(BytesOfFile(output), " H2 + N2=NH3/3,1,2 \xE9\r\nH2+O2=H2O/2,1,2 \xE9\r\n");
    EXPECT_EQ(gathered, QStringList{output});
    EXPECT_TRUE(ListText().endsWith(End()));
    EXPECT_FALSE(ListText().contains(u"sortie.Equ"_s));
    EXPECT_EQ(Files(), QStringList({u"a.Equ"_s, u"sortie.Equ"_s}));
}

TEST_F(FrmSearch, DoesNotFindAgainWhatItGatheredInALaterFile)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Write(u"z.Equ"_s, "H2+O2=H2O/2,1,2");

    Gather({u"H2"_s}, Path(u"z.Equ"_s));

    EXPECT_EQ(BytesOfFile(Path(u"z.Equ"_s)), "H2+O2=H2O/2,1,2\r\nH2+N2=NH3/3,1,2\r\nH2+O2=H2O/2,1,2\r\n");
}

TEST_F(FrmSearch, AddsTheFindingsToAnExistingFileThatItReadBefore)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2");

    Gather({u"H2"_s}, Path(u"a.Equ"_s));

    // Its own line was found once and stands behind it, after a line end.
    EXPECT_EQ(BytesOfFile(Path(u"a.Equ"_s)), "H2+N2=NH3/3,1,2\r\nH2+N2=NH3/3,1,2\r\n");
}

TEST_F(FrmSearch, MakesTheFileEvenWithoutAFinding)
{
    const QString output = folder.filePath(u"sortie.Equ"_s);

    Gather({u"H2"_s}, output);

    EXPECT_EQ(BytesOfFile(output), "");
    EXPECT_EQ(gathered, QStringList{output});
}

TEST_F(FrmSearch, GivesANameWithoutExtensionThatOfItsFilter)
{
    Gather({u"H2"_s}, folder.filePath(u"un"_s), 0);
    dialogs.answers.push_back(Dialogs::Choice{folder.filePath(u"deux"_s), 1});
    Click(SearchButton());

    EXPECT_EQ(gathered, QStringList({folder.filePath(u"un.Equ"_s), folder.filePath(u"deux.Avt"_s)}));
}

TEST_F(FrmSearch, RemembersTheFilterLeftActive)
{
    Gather({u"H2"_s}, folder.filePath(u"sortie.Avt"_s), 1);
    EXPECT_EQ(settings.Read(u"Options"_s, u"Files by default"_s), u"AVT"_s);

    dialogs.answers.push_back(Dialogs::Choice{folder.filePath(u"sortie.Equ"_s), 0});
    Click(SearchButton());
    EXPECT_EQ(settings.Read(u"Options"_s, u"Files by default"_s), u"EQU"_s);
}

TEST_F(FrmSearch, TellsAnOutputThatCannotBeWrittenBeforeItSearches)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    const QString output = Path(u"Dossier.Equ"_s);
    QDir().mkpath(output);

    Gather({u"H2"_s}, output);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.contains(output));
    EXPECT_TRUE(gathered.isEmpty());
    EXPECT_EQ(ListText(), QString());
}

TEST_F(FrmSearch, TellsOnceThatItsOutputTakesNoMore)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    Write(u"b.Equ"_s, "H2+O2=H2O/2,1,2\r\n");
    const QString output = folder.filePath(u"sortie.Equ"_s);

    LimitFileSize(0);
    Gather({u"H2"_s}, output);
    LimitFileSize(RLIM_INFINITY);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.contains(output)) << messages.shown[0].text.toStdString();
    EXPECT_TRUE(gathered.isEmpty());
    EXPECT_FALSE(ListText().contains(u"b.Equ"_s));
}

TEST_F(FrmSearch, EndsSilentlyAtALineWithoutEqualsWhenItGathers)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\nrien\r\nH2+O2=H2O/2,1,2\r\n");
    Write(u"b.Equ"_s, "H2+Cl2=HCl/1,1,2\r\n");
    const QString output = folder.filePath(u"sortie.Equ"_s);

    Gather({u"H2"_s}, output);

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(ListText(), Head(u"a.Equ"_s) + Finding(u"H2+N2=NH3/3,1,2"_s));
    EXPECT_EQ(BytesOfFile(output), "H2+N2=NH3/3,1,2\r\n");
    EXPECT_TRUE(gathered.isEmpty());

    // The window goes on.
    QFile::remove(Path(u"a.Equ"_s));
    dialogs.answers.push_back(Dialogs::Choice{output, 0});
    Click(SearchButton());
    EXPECT_EQ(gathered, QStringList{output});
}

TEST_F(FrmSearch, KeepsWhatItFoundBeforeASeventhFormula)
{
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\nA+B+C+D+E+F+G=H/1\r\n");
    const QString output = folder.filePath(u"sortie.Equ"_s);
    QByteArray behind;
    messages.whileOpen = [&](const Message&) { behind = BytesOfFile(output); };

    Gather({u"H2"_s}, output);

    ExpectFault(u"a.Equ"_s, u"Ligne 2\u00A0: A+B+C+D+E+F+G=H/1"_s);
    EXPECT_EQ(behind, "H2+N2=NH3/3,1,2\r\n");
    EXPECT_TRUE(gathered.isEmpty());
}

TEST_F(FrmSearch, ShowsNothingOfAPasswordThatALinkLeadsTo)
{
    WriteBytes(passwordFile, "Sesame\r\n");
    ASSERT_TRUE(QFile::link(passwordFile, Path(u"a.Equ"_s)));
    Write(u"b.Equ"_s, "H2+N2=NH3/3,1,2\r\n");

    SearchFor({u"H2"_s});

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(ListText(),
              Head(u"a.Equ"_s) + u"(illisible : ce fichier est réservé à l'enseignant)"_s + Head(u"b.Equ"_s)
                  + Finding(u"H2+N2=NH3/3,1,2"_s) + End());
}

TEST_F(FrmSearch, GathersNothingInTheFileOfThePassword)
{
    WriteBytes(passwordFile, "Sesame\r\n");
    Write(u"a.Equ"_s, "H2+N2=NH3/3,1,2\r\n");
    ASSERT_TRUE(QFile::link(passwordFile, Path(u"lien.Equ"_s)));

    // The name gets its extension only after it was chosen.
    Gather({u"H2"_s}, Path(u"lien"_s));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_FALSE(messages.shown[0].text.contains(u"Sesame"_s));
    EXPECT_EQ(BytesOfFile(passwordFile), "Sesame\r\n");
    EXPECT_TRUE(gathered.isEmpty());
}

TEST_F(FrmSearch, WritesNothingWithoutItsFolder)
{
    QDir().rmdir(equations);
    const QString output = folder.filePath(u"sortie.Equ"_s);

    Gather({u"H2"_s}, output);

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_FALSE(QFile::exists(output));
    EXPECT_TRUE(gathered.isEmpty());
}

TEST_F(FrmSearch, AsksForItsHelpPageAtF1)
{
    const WindowEvents events;
    Open();
    int asked = 0;
    QObject::connect(&events, &WindowEvents::HelpRequested, [&asked] { ++asked; });

    Press(Box(1), Qt::Key_F1);

    EXPECT_EQ(asked, 1);
}

} // namespace stoikal
