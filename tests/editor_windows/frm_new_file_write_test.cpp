#include "editor_windows/editor_bench.h"

#include <QDir>
#include <QListWidget>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QByteArray kHead = "'" + QByteArray(65, '*')
    + "\r\r\n'       Equations chimiques pour le logiciel Stoikal\r\r\n'" + QByteArray(65, '*') + "\r\n";

/// The way into the equation file, and the ways out of the editor.
class FrmNewFileWrite : public EditorTest
{
protected:
    void ExpectCreated(const QString& name)
    {
        ExpectBox(QMessageBox::Information, u"Création fichier"_s,
                  u"Le fichier %1 vient d'être créé."
                  " Pour l'ouvrir aller dans le menu Fichier > Ouvrir un fichier ..."_s.arg(name));
        EXPECT_EQ(unloads, 1);
        EXPECT_FALSE(editor->isVisible());
    }

    /// As when its program ends: the draft was kept, nothing was closed.
    void KillEditor()
    {
        Tick(Control<QTimer>(*editor, "tmrDraft"));
        editor.reset();
    }
};

} // namespace

TEST_F(FrmNewFileWrite, CreatesABalancingFile)
{
    OpenNew();
    Name(u"Série 1"_s);
    WriteWater();

    Click(Button("cmdValid"));

    EXPECT_EQ(FileOf(u"Série 1.Equ"_s), kHead + "H2+O2=H2O/2,1,2\r\n");
    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectCreated(u"Série 1.Equ"_s);
}

TEST_F(FrmNewFileWrite, CreatesAProgressFile)
{
    OpenNew();
    Name(u"Main"_s);
    Click(Button("optType(1)"));
    Write({u"H2"_s, u"O2"_s, {}, u"H2O"_s});
    Tab(1);
    Click(Button("chkEtat", 0));
    Click(Button("optEtat", 2));
    Tab(3);
    Click(Button("optMVQ", 2));
    Type(Data(0), u"1"_s);
    Click(Button("optMVQ", 5));
    Type(Data(1), u"2"_s);
    Click(Button("optMVQ", 11));
    Type(Data(3), u"0"_s);

    Click(Button("cmdValid"));

    EXPECT_EQ(FileOf(u"Main.Avt"_s), kHead + "H2<g>+O2=H2O/2,1,2#Q1,Q2,Q0\r\n");
    ExpectCreated(u"Main.Avt"_s);
}

TEST_F(FrmNewFileWrite, NeedsBothSides)
{
    OpenNew();
    Name(u"Serie"_s);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Il n'y a aucune formule de réactifs saisie."_s));
    EXPECT_EQ(FileOf(u"Serie.Equ"_s), QByteArray("(no file)"));
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmNewFileWrite, EmptyNameIsRefused)
{
    OpenNew();
    WriteWater();
    Line("txtNameFile").setText(u"  "_s);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Critical, u"Erreur saisie"_s, u"Veuillez saisir le nom du fichier."_s);
    EXPECT_TRUE(Line("txtNameFile").hasFocus());
    EXPECT_TRUE(QDir(equationFolder.path()).isEmpty());
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmNewFileWrite, NameThatLeadsElsewhereIsRefused)
{
    OpenNew();
    WriteWater();
    Name(u"a/b"_s);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Erreur saisie"_s);
    EXPECT_TRUE(QDir(equationFolder.path()).isEmpty());
}

TEST_F(FrmNewFileWrite, ExistingFileIsAskedAboutAndKeptOnNo)
{
    Put(u"Serie.Equ"_s, "old");
    OpenNew();
    Name(u"Serie"_s);
    WriteWater();
    Answer(false);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Question, u"Fichier existant"_s,
              u"Le fichier Serie.Equ existe déjà.\nVoulez-vous écraser celui existant ?"_s);
    EXPECT_EQ(FileOf(u"Serie.Equ"_s), QByteArray("old"));
    EXPECT_EQ(unloads, 0);
    EXPECT_TRUE(editor->isVisible());
}

TEST_F(FrmNewFileWrite, ExistingFileIsReplacedOnYes)
{
    OpenFile("' Tête\r\nH2+O2=H2O/2,1,2\r\n");
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});
    Answer(true);

    Click(Button("cmdValid"));

    EXPECT_EQ(FileOf(u"Serie.Equ"_s),
              QByteArray("'Tête\r\nH2+Cl2=HCl/1,1,2\r\n").replace("\xC3\xAA", "\xEA"));
    ExpectCreated(u"Serie.Equ"_s);
}

TEST_F(FrmNewFileWrite, NamesCompareWithoutCaseAndTwoSpellingsNeverCoexist)
{
    Put(u"SERIE.equ"_s, "old");
    Put(u"serie.avt"_s, "other");
    OpenNew();
    Name(u"serie"_s);
    WriteWater();
    Answer(true);

    Click(Button("cmdValid"));

    EXPECT_EQ(messages.shown.at(0).title, u"Fichier existant"_s);
    EXPECT_EQ(QDir(equationFolder.path()).entryList(QDir::Files),
              QStringList({u"serie.avt"_s, u"serie.Equ"_s}));
    EXPECT_EQ(Control<QListWidget>(*editor, "flbAllFilesEQU").count(), 2);
}

TEST_F(FrmNewFileWrite, FileOfTheOtherKindIsNoQuestion)
{
    Put(u"Serie.Avt"_s, "other");
    OpenNew();
    Name(u"Serie"_s);
    WriteWater();

    Click(Button("cmdValid"));

    ExpectCreated(u"Serie.Equ"_s);
}

TEST_F(FrmNewFileWrite, EquationThatCannotBeBalancedBlocksTheWholeFile)
{
    OpenFile("H2+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\n");
    const QByteArray before = FileOf(u"Serie.Equ"_s);
    Write({u"H2"_s, {}, {}, u"O2"_s});
    MoveTo(2);
    Answer(true);

    Click(Button("cmdValid"));

    ExpectBox(QMessageBox::Critical, u"Erreur saisie"_s,
              u"Il y a une erreur dans la saisie de votre équation.\n"
              "Cliquez sur le bouton 'Prévisualisation' pour connaître\n"
              "la nature de l'erreur."_s);
    EXPECT_TRUE(MarkIsShown());
    EXPECT_EQ(FileOf(u"Serie.Equ"_s), before);
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmNewFileWrite, LastEquationTypedIsBalancedBeforeTheWriting)
{
    OpenNew();
    Name(u"Serie"_s);
    Write({u"H2"_s, {}, {}, u"O2"_s});

    Click(Button("cmdValid"));

    EXPECT_TRUE(MarkIsShown());
    EXPECT_EQ(FileOf(u"Serie.Equ"_s), QByteArray("(no file)"));
}

TEST_F(FrmNewFileWrite, EquationNeverShownIsWrittenWithTheCoefficientsThatItHolds)
{
    OpenFile("H2+O2=H2O\r\nAl+O2=Al2O3\r\n'deux\r\nC+O2=CO2/2,2,2\r\n");
    Answer(true);

    Click(Button("cmdValid"));

    // Only the first was shown, and is balanced as it is stored.
    EXPECT_EQ(FileOf(u"Serie.Equ"_s),
              QByteArray("'\r\nH2+O2=H2O/2,1,2\r\nAl+O2=Al2O3/,,\r\n'deux\r\nC+O2=CO2/2,2,2\r\n"));
}

TEST_F(FrmNewFileWrite, EquationNeverShownNeverBlocksTheWriting)
{
    OpenFile("H2+O2=H2O/2,1,2\r\nH2=O2\r\nH{=H\r\nXx=Xx2\r\n");
    Answer(true);

    Click(Button("cmdValid"));

    EXPECT_EQ(FileOf(u"Serie.Equ"_s),
              QByteArray("'\r\nH2+O2=H2O/2,1,2\r\nH2=O2/,\r\nH{=H/,\r\nXx=Xx2/,\r\n"));
    ExpectCreated(u"Serie.Equ"_s);
}

TEST_F(FrmNewFileWrite, CoefficientsStayWhileNothingOfTheirEquationChanges)
{
    // The second cannot be balanced, and the third holds an unknown symbol.
    const QByteArray lines = "H2+O2=H2O/4,2,4\r\nH2=O2/1,1\r\nXx+O2=XxO/2,1,2\r\n";
    OpenFile(lines);
    MoveTo(3);
    MoveTo(1);
    Answer(true);

    Click(Button("cmdValid"));

    EXPECT_EQ(FileOf(u"Serie.Equ"_s), "'\r\n" + lines);
    EXPECT_EQ(messages.shown.size(), 2U) << "the question and the end";
}

TEST_F(FrmNewFileWrite, UnknownSymbolOfTheBoxLeftByTheClickIsReported)
{
    OpenNew();
    Name(u"Serie"_s);
    Write({u"H2"_s, u"O2"_s, {}, u"H2O"_s});
    Box(1).clear();
    QTest::mouseClick(&Box(1), Qt::LeftButton);
    Type(Box(1), u"Xx"_s);
    Answer(false);

    Click(Button("cmdValid"));

    // The symbol as its box is left, then the engine's question, then the failure.
    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    EXPECT_EQ(messages.shown[0].title, u"Symbole d'atome inconnu"_s);
    EXPECT_EQ(messages.shown[0].text,
              u"Le symbole 'Xx' n'est pas le symbole d'un atome connu.\nVeuillez vérifier votre saisie."_s);
    Settle();
    EXPECT_EQ(messages.shown.size(), 3U) << "told once";
}

TEST_F(FrmNewFileWrite, FileWrittenOverByAnotherIsToldInTheQuestion)
{
    OpenFile("H2+O2=H2O/2,1,2\r\n");
    Put(u"Serie.Equ"_s, "C+O2=CO2/1,1,1\r\n");
    Answer(false);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Question, u"Fichier existant"_s,
              u"Le fichier Serie.Equ existe déjà.\n"
              "Il a été modifié ailleurs depuis que vous l'avez ouvert\u00A0: si vous l'écrasez, ces "
              "modifications seront perdues.\n"
              "Voulez-vous écraser celui existant ?"_s);
    EXPECT_EQ(FileOf(u"Serie.Equ"_s), QByteArray("C+O2=CO2/1,1,1\r\n"));
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmNewFileWrite, FileDeletedByAnotherIsNotMadeAnewUnasked)
{
    OpenFile("H2+O2=H2O/2,1,2\r\n");
    ASSERT_TRUE(QFile::remove(equationFolder.filePath(u"Serie.Equ"_s)));
    Answer(false);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Question, u"Stoikal"_s,
              u"Le fichier Serie.Equ a été supprimé ou renommé depuis que vous l'avez ouvert.\n"
              "Voulez-vous le créer de nouveau\u00A0?"_s);
    EXPECT_TRUE(QDir(equationFolder.path()).isEmpty());

    Answer(true);
    Click(Button("cmdValid"));
    EXPECT_EQ(FileOf(u"Serie.Equ"_s), QByteArray("'\r\nH2+O2=H2O/2,1,2\r\n"));
}

TEST_F(FrmNewFileWrite, ProgressFileWithoutAnyDatumIsToldBeforeItIsWritten)
{
    OpenNew();
    Name(u"Main"_s);
    Click(Button("optType(1)"));
    WriteWater();
    Answer(false);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Question, u"Stoikal"_s,
              u"Aucune équation n'a de donnée (masse, volume ou quantité de matière) différente de 0.\n"
              "Stoikal se fermerait chez l'élève en arrivant à une telle équation.\n"
              "Voulez-vous néanmoins enregistrer le fichier\u00A0?"_s);
    EXPECT_EQ(FileOf(u"Main.Avt"_s), QByteArray("(no file)"));
    EXPECT_EQ(unloads, 0);

    Answer(true);
    Click(Button("cmdValid"));
    EXPECT_EQ(FileOf(u"Main.Avt"_s), kHead + "H2+O2=H2O/2,1,2#M,M,M\r\n");
}

TEST_F(FrmNewFileWrite, EquationsWithoutDatumAreNamed)
{
    OpenFile("H2+O2=H2O/2,1,2#Q1,Q0,Q0\r\nC+O2=CO2/1,1,1#Q0,Q0,Q0\r\nAl+O2=Al2O3/4,3,2#Q0,Q0,Q0\r\n",
             u"Main.Avt"_s);
    Answer(true);
    Answer(false);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_TRUE(messages.shown[1].text.startsWith(u"Les équations n°\u00A02, 3 n'ont aucune donnée"_s));
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmNewFileWrite, NegativeDatumOfAFileIsRefused)
{
    const QByteArray lines = "H2+O2=H2O/2,1,2#Q1,Q-1,Q0\r\n";
    OpenFile(lines, u"Main.Avt"_s);

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Critical, u"Erreur sur saisie."_s,
              u"La donnée de O2 est négative.\n"
              "Veuillez saisir une masse, un volume ou une quantité de matière positive, ou 0."_s);
    EXPECT_TRUE(Data(1).hasFocus()) << "on its page";
    EXPECT_EQ(FileOf(u"Main.Avt"_s), lines);
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmNewFileWrite, FileThatCannotBeWrittenIsToldAndTheEditorStays)
{
    ASSERT_TRUE(QDir(equationFolder.path()).mkpath(u"Serie.Equ/x"_s));
    OpenNew();
    Name(u"Serie"_s);
    WriteWater();

    Click(Button("cmdValid"));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_TRUE(messages.shown[0].text.contains(u"Serie.Equ"_s));
    EXPECT_EQ(unloads, 0);
    EXPECT_EQ(Box(0).text(), u"H2"_s);
}

TEST_F(FrmNewFileWrite, CancelUnloadsWithoutWriting)
{
    OpenNew();
    Name(u"Serie"_s);
    WriteWater();

    Click(Button("cmdCancel"));

    EXPECT_EQ(unloads, 1);
    EXPECT_TRUE(QDir(equationFolder.path()).isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmNewFileWrite, CancelledAndWrittenWorkIsOver)
{
    OpenNew();
    Name(u"Serie"_s);
    WriteWater();
    Tick(Control<QTimer>(*editor, "tmrDraft"));
    ASSERT_TRUE(WorkFile(store, WorkPath()).LeftBehind().has_value());

    Click(Button("cmdValid"));
    EXPECT_FALSE(WorkFile(store, WorkPath()).LeftBehind().has_value());
    EXPECT_TRUE(QFile::exists(WorkPath())) << "the work file is left behind";

    OpenNew();
    WriteWater();
    Tick(Control<QTimer>(*editor, "tmrDraft"));
    Click(Button("cmdCancel"));
    EXPECT_FALSE(WorkFile(store, WorkPath()).LeftBehind().has_value());
}

TEST_F(FrmNewFileWrite, EscapeAndTheTitleBarAskBeforeWorkIsGivenUp)
{
    OpenNew();
    WriteWater();
    Answer(false);
    Press(*editor, Qt::Key_Escape);
    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Question, u"Stoikal"_s, u"Abandonner les équations non enregistrées ?"_s);
    EXPECT_EQ(unloads, 0);
    EXPECT_EQ(Box(3).text(), u"H2O"_s);

    Answer(true);
    editor->close();
    EXPECT_EQ(unloads, 1);
    EXPECT_TRUE(QDir(equationFolder.path()).isEmpty());
    EXPECT_FALSE(WorkFile(store, WorkPath()).LeftBehind().has_value()) << "it was given up";
}

TEST_F(FrmNewFileWrite, UntouchedEditorClosesWithoutAQuestion)
{
    OpenNew();
    Press(*editor, Qt::Key_Escape);
    EXPECT_EQ(unloads, 1);

    OpenFile("H2+O2=H2O\r\nC+O2=CO2/1,1,1\r\n");
    MoveTo(2);
    editor->close();
    EXPECT_EQ(unloads, 2);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(WorkFile(store, WorkPath()).LeftBehind().has_value());
}

TEST_F(FrmNewFileWrite, WorkTakenUpAgainIsStillToBeSaved)
{
    OpenFile("H2+O2=H2O/2,1,2\r\n");
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});
    KillEditor();
    Put(u"Serie.Equ"_s, "C+O2=CO2/1,1,1\r\n");
    MakeEditor();
    editor->TakeUp(*WorkFile(store, WorkPath()).LeftBehind());
    Show();

    Answer(false);
    Press(*editor, Qt::Key_Escape);
    ExpectBox(QMessageBox::Question, u"Stoikal"_s, u"Abandonner les équations non enregistrées ?"_s);

    // What another wrote since the file was loaded, before the program ended, is told too.
    Answer(true);
    Click(Button("cmdValid"));
    EXPECT_TRUE(messages.shown.at(1).text.contains(u"modifié ailleurs"_s));
    EXPECT_EQ(FileOf(u"Serie.Equ"_s), QByteArray("'\r\nH2+Cl2=HCl/1,1,2\r\n"));
}

TEST_F(FrmNewFileWrite, WorkTakenUpAgainIsAsItWas)
{
    OpenFile("' Tête\r\nH2+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\n");
    MoveTo(2);
    Name(u"Autre"_s);
    Write({u"C"_s});
    KillEditor();
    const auto left = WorkFile(store, WorkPath()).LeftBehind();
    ASSERT_TRUE(left.has_value());

    MakeEditor();
    editor->TakeUp(*left);
    Show();

    EXPECT_EQ(Line("txtNameFile").text(), u"Autre"_s);
    EXPECT_EQ(Head().toPlainText(), u"Tête"_s);
    EXPECT_EQ(Number(), u"2"_s);
    EXPECT_EQ(Bar().maximum(), 2);
    EXPECT_EQ(Formulas(), QStringList({u"C"_s, {}, {}, {}, {}, {}}));
    EXPECT_EQ(Button("cmdValid").text(), u"Enregistrement"_s);
    Type(Box(3), u"C"_s);
    MoveTo(1);
    EXPECT_EQ(Formulas(), QStringList({u"H2"_s, u"O2"_s, {}, u"H2O"_s, {}, {}}));
}

} // namespace stoikal
