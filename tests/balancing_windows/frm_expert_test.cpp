#include "balancing/windows/frm_expert.h"
#include "forms/window_events.h"

#include "searching_form_fixture.h"

#include <QGroupBox>
#include <QProgressBar>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kPleaseWait = u"Veuillez patienter pendant les calculs ...\n"_s;
const QString kWater = u"¤) Equation n°1  : 2 H2 + O2 -----> 2 H2O\n\n"_s;

/// The window on the screen.
class FrmExpert : public SearchingFormTest<frmExpert>
{
protected:
    FrmExpert() { Open(); }

    QPushButton& Balance() { return Button("cmdBalance"); }
    QPushButton& Save() { return Button("cmdSave"); }
    QProgressBar& Bar() { return Control<QProgressBar>(window, "pgbCompteur"); }

    void BalanceThese(const QStringList& molecules)
    {
        Fill(molecules);
        Click(Balance());
    }

    void BalanceWater() { BalanceThese({u"H2"_s, u"O2"_s, {}, u"H2O"_s}); }

    /// Four molecules of two atoms: two coefficients more than equations, so the
    /// first two are tried out.
    void FillASearch() { Fill({u"H2"_s, u"O2"_s, u"H2O2"_s, u"H2O"_s}); }

    /// Does something in the first turn that the search gives to the event loop.
    template <typename Work>
    void DuringTheSearch(Work work)
    {
        QTimer::singleShot(0, &window, [this, work] {
            isBusyThen = Bar().isVisible();
            work();
        });
    }

    /// A file to add to.
    QString WriteFile(const QByteArray& bytes)
    {
        const QString path = folder.filePath(u"Série 1.Equ"_s);
        WriteBytes(path, bytes);
        return path;
    }

    void SaveTo(const QString& path, int filter = 0)
    {
        dialogs.answers.push_back(Dialogs::Choice{path, filter});
        Click(Save());
    }

    QString FilesByDefault() { return settings.Read(u"Options"_s, u"Files by default"_s); }

    bool isBusyThen = false;
};

} // namespace

TEST_F(FrmExpert, HasTheCaptionsOfItsControls)
{
    EXPECT_EQ(window.windowTitle(), u"Equilibrer une équation"_s);
    EXPECT_EQ(Balance().text(), u"Equilibrage"_s);
    EXPECT_EQ(Button("cmdNewMol").text(), u"Nouvelles molécules"_s);
    EXPECT_EQ(Button("cmdClearList").text(), u"Effacer"_s);
    EXPECT_EQ(Save().text(), u"Sauvegarder"_s);
    EXPECT_EQ(Control<QCheckBox>(window, "chkOption(1)").text(),
              u"Afficher le coefficient lorsqu'il est égal à 1"_s);
    EXPECT_FALSE(Control<QCheckBox>(window, "chkOption(1)").isChecked());
}

TEST_F(FrmExpert, TellsWhatItsButtonsDo)
{
    EXPECT_EQ(Balance().toolTip(),
              u"Pour lancer la recherche automatique d'équilibrage de l'équation chimique"_s);
    EXPECT_EQ(Button("cmdNewMol").toolTip(),
              u"Pour effacer les formules chimiques moléculaires afin d'en saisir d'autres"_s);
    EXPECT_EQ(Button("cmdClearList").toolTip(),
              u"Pour effacer la liste de toutes les équations équilibrées"_s);
    EXPECT_EQ(Save().toolTip(),
              u"Pour sauvegarder la dernière équation équilibrée dans le fichier de votre choix"_s);
}

TEST_F(FrmExpert, HasNothingToDoAtFirst)
{
    EXPECT_FALSE(Balance().isEnabled());
    EXPECT_FALSE(Save().isEnabled());
    EXPECT_TRUE(Button("cmdNewMol").isEnabled());
    EXPECT_TRUE(Button("cmdClearList").isEnabled());
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(ListText(), QString());
}

TEST_F(FrmExpert, BalancesOnlyWithAMoleculeOnEachSide)
{
    for (int reactant = 0; reactant < 3; ++reactant) {
        for (int product = 3; product < 6; ++product) {
            Fill({});
            Type(Box(reactant), u"H"_s);
            EXPECT_FALSE(Balance().isEnabled());
            Type(Box(product), u"H"_s);
            EXPECT_TRUE(Balance().isEnabled());
            Press(Box(reactant), Qt::Key_Backspace);
            EXPECT_FALSE(Balance().isEnabled());
        }
    }
}

TEST_F(FrmExpert, FiltersItsBoxesWithEachBraceOnce)
{
    for (int position = 0; position < 6; ++position) {
        Type(Box(position), u"Fe{{"_s);
        EXPECT_EQ(Box(position).text(), u"Fe{"_s);
    }
    EXPECT_EQ(messages.shown.size(), 6U);
}

TEST_F(FrmExpert, WritesABalancedEquationIntoTheList)
{
    BalanceWater();

    // 2 x 2 H and 2 O on either side.
    EXPECT_EQ(ListText(), kWater);
    EXPECT_TRUE(Save().isEnabled());
    EXPECT_TRUE(Balance().isEnabled());
    EXPECT_TRUE(List().textCursor().atEnd());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmExpert, NumbersEachRunOfTheSameEquation)
{
    BalanceWater();
    Click(Balance());

    EXPECT_EQ(ListText(), kWater + u"¤) Equation n°2  : 2 H2 + O2 -----> 2 H2O\n\n"_s);
}

TEST_F(FrmExpert, AppendsAtTheEndWhereverTheCaretStands)
{
    BalanceWater();
    List().moveCursor(QTextCursor::Start);

    Click(Balance());

    EXPECT_TRUE(ListText().startsWith(kWater));
    EXPECT_TRUE(List().textCursor().atEnd());
}

TEST_F(FrmExpert, WritesACoefficientOfOneOnlyWhenAsked)
{
    BalanceThese({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});
    Click(Control<QCheckBox>(window, "chkOption(1)"));
    Click(Balance());

    EXPECT_EQ(ListText(),
              u"¤) Equation n°1  : H2 + Cl2 -----> 2 HCl\n\n"
              "¤) Equation n°2  : 1 H2 + 1 Cl2 -----> 2 HCl\n\n"_s);
}

TEST_F(FrmExpert, BalancesCharges)
{
    BalanceThese({u"Fe{3+}"_s, u"Cu"_s, {}, u"Fe{2+}"_s, u"Cu{2+}"_s});

    // 2 x 3 charges = 2 x 2 + 2.
    EXPECT_EQ(ListText(), u"¤) Equation n°1  : 2 Fe{3+} + Cu -----> 2 Fe{2+} + Cu{2+}\n\n"_s);
}

TEST_F(FrmExpert, StartsTheNumbersAnewWithAnEmptiedList)
{
    BalanceWater();
    Click(Balance());

    Click(Button("cmdClearList"));
    EXPECT_EQ(ListText(), QString());
    EXPECT_EQ(Box(0).text(), u"H2"_s);

    Click(Balance());
    EXPECT_EQ(ListText(), kWater);
}

TEST_F(FrmExpert, EmptiesItsBoxesInOrderForNewMolecules)
{
    BalanceWater();
    Box(3).setFocus();
    QStringList emptied;
    for (int position = 0; position < 6; ++position)
        QObject::connect(&Box(position), &QLineEdit::textChanged,
                         [&emptied, position] { emptied << QString::number(position); });

    Click(Button("cmdNewMol"));

    EXPECT_EQ(emptied, QStringList({u"0"_s, u"1"_s, u"3"_s}));
    for (int position = 0; position < 6; ++position)
        EXPECT_EQ(Box(position).text(), QString());
    EXPECT_TRUE(Box(0).hasFocus());
    EXPECT_FALSE(Save().isEnabled());
    EXPECT_FALSE(Balance().isEnabled());
    EXPECT_EQ(ListText(), kWater);
}

TEST_F(FrmExpert, HasNothingToSaveAfterNewMoleculesOverEmptyBoxes)
{
    // Emptied while their equation is searched for, which can be saved all the same.
    FillASearch();
    DuringTheSearch([this] { Fill({}); });
    Click(Balance());
    ASSERT_TRUE(Save().isEnabled());

    Click(Button("cmdNewMol"));

    EXPECT_FALSE(Save().isEnabled());
}

TEST_F(FrmExpert, HasNothingToSaveOnceAMoleculeChanges)
{
    BalanceWater();
    Type(Box(2), u"N"_s);
    EXPECT_FALSE(Save().isEnabled());
}

TEST_F(FrmExpert, HasNothingToSaveFromARefusedKeyOn)
{
    BalanceWater();
    bool couldSave = true;
    messages.whileOpen = [&](const Message&) { couldSave = Save().isEnabled(); };

    Type(Box(2), u"é"_s);

    EXPECT_FALSE(couldSave);
    EXPECT_FALSE(Save().isEnabled());
}

TEST_F(FrmExpert, TellsDifferentAtomsAsAFailureInTheList)
{
    BalanceThese({u"H2"_s, u"O2"_s, {}, u"H2O"_s, u"Na"_s});

    EXPECT_EQ(ListText(),
              u"¤) Equation n°1  : 0 H2 + 0 O2 -----> 0 H2O + 0 Na\n"
              "               ECHEC : il n'y a pas les mêmes types d'atomes dans les réactifs et les "
              "produits.\n\n"_s);
    EXPECT_TRUE(Save().isEnabled());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmExpert, TellsAMissingAtomAsAFailureInTheList)
{
    BalanceThese({u"H2"_s, {}, {}, u"O2"_s});

    EXPECT_EQ(ListText(),
              u"¤) Equation n°1  : 0 H2 -----> 0 O2\n"
              "               ECHEC : il n'y a pas les mêmes types d'atomes dans les réactifs et les "
              "produits : l'atome H présent dans les réactifs n'est pas présent dans les produits.\n\n"_s);
}

TEST_F(FrmExpert, TellsASmallLetterAsAFailureInTheList)
{
    BalanceThese({u"H2"_s, u"o2"_s, {}, u"H2O"_s});

    EXPECT_EQ(ListText(),
              u"¤) Equation n°1  : 0 H2 + 0 o2 -----> 0 H2O\n"
              "               ECHEC : Erreur dans la saisie du symbole d'un atome pour la molécule o2 à la "
              "2ème position.\n\n"_s);
}

TEST_F(FrmExpert, TellsAnImpossibleEquationAsAFailureInTheList)
{
    // Na -> Na and 2 Cl -> 3 Cl: no way; what was found last stands above.
    BalanceThese({u"NaCl2"_s, {}, {}, u"NaCl3"_s});

    const QString list = ListText();
    EXPECT_TRUE(list.startsWith(u"¤) Equation n°1  : "_s));
    EXPECT_TRUE(list.endsWith(u"\n               ECHEC : équation chimique impossible à équilibrer.\n"
                              "                ? NaCl2 ----->  ? NaCl3\n\n"_s))
        << list.toStdString();
    EXPECT_TRUE(Save().isEnabled());
}

TEST_F(FrmExpert, AsksWhetherAnUnknownSymbolIsKept)
{
    messages.answers = {QMessageBox::Yes, QMessageBox::Yes};

    BalanceThese({u"Xx2"_s, u"O2"_s, {}, u"Xx2O"_s});

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].title, u"Symbole d'atome inconnu"_s);
    EXPECT_EQ(messages.shown[0].text,
              u"Le symbole Xx présent dans les réactifs n'est pas le symbole d'un atome connu.\n"
              "Souhaitez-vous néanmoins conserver ce symbole ?"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    EXPECT_EQ(messages.shown[0].buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_TRUE(messages.shown[1].text.startsWith(u"Le symbole Xx présent dans les produits "_s));
    EXPECT_EQ(ListText(), u"¤) Equation n°1  : 2 Xx2 + O2 -----> 2 Xx2O\n\n"_s);
}

TEST_F(FrmExpert, FailsWhenAnUnknownSymbolIsNotKept)
{
    messages.answers = {QMessageBox::No};

    BalanceThese({u"Xx2"_s, u"O2"_s, {}, u"Xx2O"_s});

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(ListText(),
              u"¤) Equation n°1  : 0 Xx2 + 0 O2 -----> 0 Xx2O\n"
              "               ECHEC : le symbole Xx n'est pas un symbole connu d'atome.\n\n"_s);
}

TEST_F(FrmExpert, SearchesWhenThereAreTooFewAtoms)
{
    FillASearch();

    Click(Balance());

    // With a and b fixed, H: a + c = d, O: 2b + 2c = d, so c = a - 2b and
    // d = 2a - 2b; the least sum is a = 3, b = 1: c = 1, d = 4.
    EXPECT_EQ(ListText(), kPleaseWait + u"¤) Equation n°1  : 3 H2 + O2 + H2O2 -----> 4 H2O\n\n"_s);
    EXPECT_TRUE(Save().isEnabled());
}

TEST_F(FrmExpert, ShowsTheBarAndTheHourglassDuringASearchOnly)
{
    FillASearch();
    QString list;
    int value = 0;
    int maximum = 0;
    DuringTheSearch([&] {
        EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
        EXPECT_FALSE(Save().isEnabled());
        EXPECT_TRUE(Balance().isEnabled());
        list = ListText();
        value = Bar().value();
        maximum = Bar().maximum();
    });
    int reached = 0;
    QObject::connect(&Bar(), &QProgressBar::valueChanged, [&](int now) { reached = now; });

    Click(Balance());

    EXPECT_TRUE(isBusyThen);
    EXPECT_EQ(list, kPleaseWait);
    EXPECT_GT(value, 0);
    EXPECT_EQ(maximum, 22500);
    EXPECT_EQ(reached, 22500);
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FrmExpert, IgnoresASecondPressDuringASearch)
{
    FillASearch();
    DuringTheSearch([this] { Click(Balance()); });

    Click(Balance());

    EXPECT_TRUE(isBusyThen);
    EXPECT_EQ(ListText(), kPleaseWait + u"¤) Equation n°1  : 3 H2 + O2 + H2O2 -----> 4 H2O\n\n"_s);
    Click(Balance());
    EXPECT_TRUE(ListText().contains(u"n°2"_s));
}

TEST_F(FrmExpert, StopsASearchBeforeItGoes)
{
    FillASearch();
    int unloadsThen = -1;
    DuringTheSearch([&] {
        window.Release();
        unloadsThen = unloads;
    });

    Click(Balance());

    EXPECT_TRUE(isBusyThen);
    EXPECT_EQ(unloadsThen, 0);
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(ListText().contains(u"Equation"_s));
}

TEST_F(FrmExpert, GoesAtOnceWithoutASearch)
{
    window.Release();
    EXPECT_EQ(unloads, 1);
}

TEST_F(FrmExpert, GivesASearchUpWithoutGoing)
{
    FillASearch();
    DuringTheSearch([this] { window.StopSearch(); });

    Click(Balance());

    EXPECT_EQ(unloads, 0);
    EXPECT_FALSE(ListText().contains(u"Equation"_s));
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);

    // The next press searches again.
    Click(Balance());
    EXPECT_TRUE(ListText().contains(u"3 H2 + O2 + H2O2 -----> 4 H2O"_s));
}

TEST_F(FrmExpert, SurvivesABraceThatIsNotClosed)
{
    BalanceWater();

    BalanceThese({u"Fe{3"_s, u"Cu"_s, {}, u"Fe"_s});

    ExpectFault(u"Fe{3"_s);
    EXPECT_EQ(ListText(), kWater);
    EXPECT_TRUE(List().textCursor().atEnd());
    EXPECT_EQ(Box(0).text(), u"Fe{3"_s);
    EXPECT_EQ(Box(3).text(), u"Fe"_s);
    EXPECT_FALSE(Save().isEnabled());

    BalanceThese({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});
    EXPECT_EQ(ListText(), kWater + u"¤) Equation n°2  : H2 + Cl2 -----> 2 HCl\n\n"_s);
}

TEST_F(FrmExpert, SurvivesAnEleventhAtom)
{
    // H, He, Li, Be, B, C, N, O, F, Ne and Na.
    BalanceThese({u"HHeLiBeBCNOFNeNa"_s, {}, {}, u"H"_s});

    ExpectFault(u"10 atomes"_s);
    EXPECT_EQ(ListText(), QString());
    EXPECT_EQ(Box(0).text(), u"HHeLiBeBCNOFNeNa"_s);
    EXPECT_TRUE(Balance().isEnabled());
}

TEST_F(FrmExpert, ForgetsASearchThatRunsOutOfPositions)
{
    // -1 + 1 Cl in each molecule: the row of Cl is empty, so every choice of free
    // positions is singular.
    BalanceWater();

    BalanceThese({u"H2Cl-1Cl"_s, u"H4Cl-1Cl"_s, u"H6Cl-1Cl"_s, u"H8Cl-1Cl"_s});

    ExpectFault({});
    EXPECT_EQ(ListText(), kWater);
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FrmExpert, DoesNotBringBackAListEmptiedDuringASearchThatFails)
{
    BalanceWater();
    Fill({u"H2Cl-1Cl"_s, u"H4Cl-1Cl"_s, u"H6Cl-1Cl"_s, u"H8Cl-1Cl"_s});
    DuringTheSearch([this] { Click(Button("cmdClearList")); });

    Click(Balance());

    EXPECT_TRUE(isBusyThen);
    ExpectFault({});
    EXPECT_EQ(ListText(), QString());
    BalanceWater();
    EXPECT_EQ(ListText(), kWater);
}

TEST_F(FrmExpert, NumbersFromOneAgainInAListEmptiedDuringASearch)
{
    BalanceWater();
    FillASearch();
    DuringTheSearch([this] { Click(Button("cmdClearList")); });

    Click(Balance());

    EXPECT_TRUE(isBusyThen);
    EXPECT_EQ(ListText(), u"¤) Equation n°1  : 3 H2 + O2 + H2O2 -----> 4 H2O\n\n"_s);
    BalanceWater();
    EXPECT_TRUE(ListText().endsWith(u"¤) Equation n°2  : 2 H2 + O2 -----> 2 H2O\n\n"_s));
}

TEST_F(FrmExpert, AsksForTheFileInTheFolderOfEquations)
{
    BalanceWater();
    dialogs.answers = {std::nullopt, std::nullopt};

    Click(Save());
    EXPECT_TRUE(settings.Write(u"Options"_s, u"Files by default"_s, u"AVT"_s));
    Click(Save());

    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_EQ(dialogs.asked[0].name, u"cdgSave"_s);
    EXPECT_EQ(dialogs.asked[0].folder, equations);
    EXPECT_EQ(dialogs.asked[0].filters,
              QStringList({u"Stoikal Equilibrage (*.Equ)"_s, u"Stoikal Avancement (*.Avt)"_s}));
    EXPECT_EQ(dialogs.asked[0].fileName, QString());
    EXPECT_EQ(dialogs.asked[0].filter, 0);
    EXPECT_EQ(dialogs.asked[0].accept, u"&Enregistrer"_s);
    EXPECT_EQ(dialogs.asked[1].filter, 1);
}

TEST_F(FrmExpert, WritesNothingWhenTheDialogIsCancelled)
{
    BalanceWater();
    dialogs.answers = {std::nullopt};

    Click(Save());

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(FilesByDefault(), QString());
    EXPECT_TRUE(Save().isEnabled());
}

TEST_F(FrmExpert, AddsTheLastEquationToTheFile)
{
    const QString path = WriteFile("'un\r\nA=B/1,1");
    BalanceWater();

    SaveTo(path);

    EXPECT_EQ(BytesOfFile(path), "'un\r\nA=B/1,1\r\n'\r\nH2+O2=H2O/2,1,2");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Enregistrement réussie"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Information);
    EXPECT_EQ(messages.shown[0].text,
              u"La dernière équation équilibrée vient d'être copiée dans le fichier Série 1.Equ dans le "
              "dossier :\n"_s
                  + folder.path());
}

TEST_F(FrmExpert, AddsTheEquationAgainAtEachPress)
{
    const QString path = WriteFile({});
    BalanceWater();

    SaveTo(path);
    SaveTo(path);

    EXPECT_EQ(BytesOfFile(path), "\r\n'\r\nH2+O2=H2O/2,1,2\r\n'\r\nH2+O2=H2O/2,1,2");
}

TEST_F(FrmExpert, RemembersTheFilterLeftActive)
{
    const QString path = WriteFile({});
    BalanceWater();

    SaveTo(path, 1);
    EXPECT_EQ(FilesByDefault(), u"AVT"_s);
    SaveTo(path, 0);
    EXPECT_EQ(FilesByDefault(), u"EQU"_s);
}

TEST_F(FrmExpert, TellsAFileThatCannotBeWritten)
{
    BalanceWater();

    SaveTo(folder.path());

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.contains(folder.path()));
}

TEST_F(FrmExpert, SavesTheZeroesOfAFailure)
{
    const QString path = WriteFile({});
    BalanceThese({u"H2"_s, {}, {}, u"O2"_s});

    SaveTo(path);

    EXPECT_EQ(BytesOfFile(path), "\r\n'\r\nH2=O2/0,0");
}

TEST_F(FrmExpert, SavesTheEquationThatWasBalancedAndNotTheOneTypedMeanwhile)
{
    const QString path = WriteFile({});
    FillASearch();
    DuringTheSearch([this] { Type(Box(4), u"He"_s); });
    Click(Balance());

    SaveTo(path);

    EXPECT_TRUE(isBusyThen);
    EXPECT_EQ(BytesOfFile(path), "\r\n'\r\nH2+O2+H2O2=H2O/3,1,1,4");
}

TEST_F(FrmExpert, AsksForItsHelpPageAtF1)
{
    const WindowEvents events;
    int asked = 0;
    QObject::connect(&events, &WindowEvents::HelpRequested, [&asked] { ++asked; });

    Press(Box(1), Qt::Key_F1);

    EXPECT_EQ(asked, 1);
}

} // namespace stoikal
