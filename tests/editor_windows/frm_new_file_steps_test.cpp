#include "editor_windows/editor_bench.h"

#include <QDir>
#include <QGroupBox>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kNoReactants = u"Il n'y a aucune formule de réactifs saisie.\n"
                             "Veuillez en saisir au moins une.\n"
                             "Sinon, cliquez sur 'Supprimer une équation'"_s;
const QString kNoProducts = u"Il n'y a aucune formule de produits saisie.\n"
                            "Veuillez en saisir au moins une.\n"
                            "Sinon, cliquez sur 'Supprimer une équation'"_s;
const QStringList kBlank{{}, {}, {}, {}, {}, {}};
const QStringList kWater{u"H2"_s, u"O2"_s, {}, u"H2O"_s, {}, {}};
const QStringList kCoal{u"C"_s, u"O2"_s, {}, u"CO2"_s, {}, {}};
const QByteArray kThree = "H2+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\nAl+O2=Al2O3/4,3,2\r\n";

/// Going from equation to equation, inserting and deleting.
class FrmNewFileSteps : public EditorTest
{
protected:
    QStringList FirstProducts(int count) const
    {
        QStringList names;
        for (int number = 1; number <= count; ++number)
            names << Kept(number, "Molecule4");
        return names;
    }
};

} // namespace

TEST_F(FrmNewFileSteps, NewFileBeginsWithTheReadyMadeHeadAndABlankEquation)
{
    OpenNew();

    const QString stars(65, u'*');
    EXPECT_EQ(Head().toPlainText(),
              stars + u"\n       Equations chimiques pour le logiciel Stoikal\n"_s + stars);
    EXPECT_EQ(editor->windowTitle(), u"Stoikal - Editeur d'équations chimiques"_s);
    EXPECT_TRUE(Button("optType(0)").isChecked());
    EXPECT_EQ(Bar().maximum(), 1);
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(Formulas(), kBlank);
    EXPECT_EQ(Button("cmdValid").text(), u"Création"_s);
    EXPECT_FALSE(MarkIsShown());
    EXPECT_FALSE(Control<QWidget>(*editor, "pgbCompteur").isVisible());
    EXPECT_FALSE(Control<QWidget>(*editor, "flbAllFilesEQU").isVisible());
}

TEST_F(FrmNewFileSteps, WorkOfBeforeIsGoneFromTheWorkFile)
{
    EXPECT_TRUE(store.WriteSetting(WorkPath(), u"1"_s, u"Molecule1"_s, u"Xx"_s));
    EXPECT_TRUE(store.WriteSetting(WorkPath(), u"7"_s, u"Molecule1"_s, u"Xx"_s));

    OpenNew();

    EXPECT_EQ(Formulas(), kBlank);
    EXPECT_EQ(Kept(7, "Molecule1"), QString());
}

TEST_F(FrmNewFileSteps, LoadedFileShowsEquationOneWhole)
{
    OpenFile("'Tête\r\n'deux\r\nH2<g>+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\n");

    EXPECT_EQ(Head().toPlainText(), u"Tête\ndeux"_s);
    EXPECT_EQ(Line("txtNameFile").text(), u"Serie"_s);
    EXPECT_EQ(Formulas(), kWater);
    EXPECT_TRUE(Button("optEtat", 2).isChecked());
    EXPECT_EQ(Bar().maximum(), 2);
    EXPECT_EQ(Bar().value(), 1);
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(Button("cmdValid").text(), u"Enregistrement"_s);
}

TEST_F(FrmNewFileSteps, FileOfCommentsAloneOpensWithABlankEquation)
{
    OpenFile("'Tête\r\n");

    EXPECT_EQ(Bar().maximum(), 1);
    EXPECT_EQ(Formulas(), kBlank);
}

TEST_F(FrmNewFileSteps, MovingStoresTheEquationWithItsCoefficients)
{
    OpenFile(kThree);
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});

    MoveTo(2);

    EXPECT_EQ(Number(), u"2"_s);
    EXPECT_EQ(Formulas(), kCoal);
    EXPECT_EQ(Kept(1, "Molecule2"), u"Cl2"_s);
    EXPECT_EQ(Kept(1, "Coeff1"), u"1"_s);
    EXPECT_EQ(Kept(1, "Coeff2"), u"1"_s);
    EXPECT_EQ(Kept(1, "Coeff4"), u"2"_s);
    EXPECT_EQ(Kept(1, "ECHEC"), u"0"_s);
}

TEST_F(FrmNewFileSteps, PageKeysGoFromEquationToEquationAndStopAtTheEnds)
{
    OpenFile(kThree);
    Box(1).setFocus();

    Press(Box(1), Qt::Key_PageDown);
    EXPECT_EQ(Number(), u"2"_s);
    Press(Box(1), Qt::Key_PageDown);
    Press(Box(1), Qt::Key_PageDown);
    EXPECT_EQ(Number(), u"3"_s);
    Press(Box(1), Qt::Key_PageUp);
    EXPECT_EQ(Number(), u"2"_s);
    Press(Box(1), Qt::Key_PageUp);
    Press(Box(1), Qt::Key_PageUp);
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmNewFileSteps, EquationWithoutReactantsCannotBeLeft)
{
    OpenFile(kThree);
    Write({{}, {}, {}, u"H2O"_s});

    Press(Box(3), Qt::Key_PageDown);

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Warning, u"Stoikal"_s, kNoReactants);
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(Bar().value(), 1);
    EXPECT_EQ(Formulas(), QStringList({{}, {}, {}, u"H2O"_s, {}, {}}));
}

TEST_F(FrmNewFileSteps, EquationWithoutProductsCannotBeLeft)
{
    OpenFile(kThree);
    Write({u"H2"_s});

    Press(Box(0), Qt::Key_PageDown);

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Warning, u"Stoikal"_s, kNoProducts);
    EXPECT_EQ(Number(), u"1"_s);
}

TEST_F(FrmNewFileSteps, ClickOnTheBarOfAnEmptySideWarnsOnce)
{
    OpenFile(kThree);
    Write({u"H2"_s});

    QTest::mouseClick(&Bar(), Qt::LeftButton, Qt::NoModifier, QPoint(Bar().width() - 6, Bar().height() / 2));
    Settle();

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(Number(), u"1"_s);
}

TEST_F(FrmNewFileSteps, FocusOfTheBarStoresTheEquation)
{
    OpenFile(kThree);
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});

    Bar().setFocus(Qt::TabFocusReason);
    Settle();

    EXPECT_EQ(Kept(1, "Coeff4"), u"2"_s);
    EXPECT_EQ(Number(), u"1"_s);
}

TEST_F(FrmNewFileSteps, FocusOfTheBarWarnsOfAnEmptySide)
{
    OpenNew();

    Bar().setFocus(Qt::TabFocusReason);
    Settle();

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Warning, u"Stoikal"_s, kNoReactants);
}

TEST_F(FrmNewFileSteps, InsertingLeavesTheOldEquationUnderItsOwnNumber)
{
    OpenFile(kThree);

    Click(Button("cmdInsEqu"));

    EXPECT_EQ(Number(), u"2"_s);
    EXPECT_EQ(Bar().maximum(), 4);
    EXPECT_EQ(Bar().value(), 2);
    EXPECT_EQ(Formulas(), kBlank);
    EXPECT_EQ(FirstProducts(4), QStringList({u"H2O"_s, {}, u"CO2"_s, u"Al2O3"_s}));
}

TEST_F(FrmNewFileSteps, InsertingGoesToTheFirstFormulaOfTheFirstTab)
{
    OpenFile(kThree);
    Tab(2);

    Click(Button("cmdInsEqu"));

    EXPECT_EQ(Tabs().currentIndex(), 0);
    EXPECT_TRUE(Box(0).hasFocus());
}

TEST_F(FrmNewFileSteps, InsertingNeedsBothSides)
{
    OpenNew();

    Click(Button("cmdInsEqu"));

    ExpectBox(QMessageBox::Warning, u"Stoikal"_s, kNoReactants);
    EXPECT_EQ(Bar().maximum(), 1);
}

TEST_F(FrmNewFileSteps, ShortcutInserts)
{
    OpenFile(kThree);
    Box(0).setFocus();

    Press(Box(0), Qt::Key_I, Qt::AltModifier);

    EXPECT_EQ(Bar().maximum(), 4);
}

TEST_F(FrmNewFileSteps, DeletingShowsTheEquationNowAtThatPlace)
{
    OpenFile(kThree);
    Tab(1);

    Click(Button("cmdSupEqu"));

    EXPECT_EQ(Bar().maximum(), 2);
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(Formulas(), kCoal);
    EXPECT_EQ(FirstProducts(3), QStringList({u"CO2"_s, u"Al2O3"_s, {}}));
    EXPECT_EQ(Tabs().currentIndex(), 0);
    EXPECT_TRUE(Box(0).hasFocus());
}

TEST_F(FrmNewFileSteps, DeletingTheLastShowsTheOneBefore)
{
    OpenFile(kThree);
    MoveTo(3);

    Click(Button("cmdSupEqu"));

    EXPECT_EQ(Bar().maximum(), 2);
    EXPECT_EQ(Number(), u"2"_s);
    EXPECT_EQ(Formulas(), kCoal);
}

TEST_F(FrmNewFileSteps, DeletingTheOnlyOneLeavesABlankWindow)
{
    OpenFile("C<s>+O2=CO2/1,1,1\r\n");

    Click(Button("cmdSupEqu"));

    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(Bar().maximum(), 1);
    EXPECT_EQ(Formulas(), kBlank);
    EXPECT_FALSE(Button("chkEtat", 0).isChecked());
}

TEST_F(FrmNewFileSteps, HalfWrittenEquationCanBeDeleted)
{
    OpenFile(kThree);
    Write({u"H{"_s});

    Click(Button("cmdSupEqu"));

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Formulas(), kCoal);
}

TEST_F(FrmNewFileSteps, FailureIsMarkedAtEveryLaterStoreUntilItIsChanged)
{
    OpenFile(kThree);
    Write({u"H2"_s, {}, {}, u"O2"_s});
    MoveTo(2);
    EXPECT_TRUE(MarkIsShown());
    EXPECT_EQ(Kept(1, "ECHEC"), u"1"_s);
    EXPECT_TRUE(Control<QLabel>(*editor, "lblECHEC").text().contains(u"1"_s));

    MoveTo(3);
    EXPECT_TRUE(MarkIsShown());

    MoveTo(1);
    WriteWater();
    MoveTo(2);
    EXPECT_FALSE(MarkIsShown());
    EXPECT_EQ(Kept(1, "ECHEC"), u"0"_s);
}

TEST_F(FrmNewFileSteps, UnknownSymbolIsAskedAboutWhenItIsStored)
{
    OpenFile(kThree);
    Write({u"Xx"_s, u"O2"_s, {}, u"XxO"_s});
    Answer(true);
    Answer(true);

    MoveTo(2);

    ExpectBox(QMessageBox::Warning, u"Symbole d'atome inconnu"_s,
              u"Le symbole Xx présent dans les produits n'est pas le symbole d'un atome connu.\n"
              "Souhaitez-vous néanmoins conserver ce symbole ?"_s);
    EXPECT_EQ(Kept(1, "Coeff1"), u"2"_s);
    EXPECT_FALSE(MarkIsShown());
}

TEST_F(FrmNewFileSteps, KeptSymbolIsNotAskedAboutAgain)
{
    OpenFile(kThree);
    Write({u"Xx"_s, u"O2"_s, {}, u"XxO"_s});
    Answer(true);
    Answer(true);
    MoveTo(2);
    const std::size_t boxes = messages.shown.size();

    MoveTo(1);
    MoveTo(2);

    EXPECT_EQ(messages.shown.size(), boxes);
}

TEST_F(FrmNewFileSteps, RefusedSymbolMarksTheEquation)
{
    OpenFile(kThree);
    Write({u"Xx"_s, u"O2"_s, {}, u"XxO"_s});
    Answer(false);

    MoveTo(2);

    EXPECT_TRUE(MarkIsShown());
    EXPECT_EQ(Kept(1, "ECHEC"), u"1"_s);
}

TEST_F(FrmNewFileSteps, FaultOfTheEngineIsToldAndTheEquationStays)
{
    OpenFile(kThree);
    Write({u"H{"_s, {}, {}, u"H"_s});

    MoveTo(2);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(Box(0).text(), u"H{"_s);
    EXPECT_EQ(Kept(1, "ECHEC"), u"1"_s);
}

TEST_F(FrmNewFileSteps, SearchShowsItsBarAndTakesNoKeysMeanwhile)
{
    // Two atoms for four molecules: two coefficients are tried out.
    OpenFile(kThree);
    Write({u"H2"_s, u"O2"_s, u"H2O2"_s, u"H2O"_s});
    bool barWasShown = false;
    QTimer::singleShot(0, editor.get(),
                       [&] { barWasShown = Control<QWidget>(*editor, "pgbCompteur").isVisible(); });

    MoveTo(2);

    EXPECT_TRUE(barWasShown);
    EXPECT_FALSE(Control<QWidget>(*editor, "pgbCompteur").isVisible());
    EXPECT_EQ(Number(), u"2"_s);
    EXPECT_EQ(Kept(1, "ECHEC"), u"0"_s);
}

TEST_F(FrmNewFileSteps, WhatIsTypedReachesTheWorkFileWithoutAnyStep)
{
    OpenFile(kThree);
    Name(u"Autre"_s);
    Write({u"H2"_s});

    Tick(Control<QTimer>(*editor, "tmrDraft"));

    const auto left = WorkFile(store, WorkPath()).LeftBehind();
    ASSERT_TRUE(left.has_value());
    EXPECT_EQ(left->name, u"Autre"_s);
    EXPECT_EQ(left->count, 3);
    EXPECT_EQ(Kept(1, "Molecule1"), u"H2"_s);
    EXPECT_EQ(Kept(1, "Molecule4"), QString());
}

TEST_F(FrmNewFileSteps, DraftOfAnEquationIsBalancedAllTheSameAfterwards)
{
    OpenFile(kThree);
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});
    Tick(Control<QTimer>(*editor, "tmrDraft"));

    MoveTo(2);

    EXPECT_EQ(Kept(1, "Coeff4"), u"2"_s);
    EXPECT_EQ(Kept(1, "Coeff1"), u"1"_s);
}

TEST_F(FrmNewFileSteps, WorkFileThatCannotBeWrittenIsToldAndNothingMoves)
{
    OpenFile(kThree);
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});
    QFile::remove(WorkPath());
    ASSERT_TRUE(QDir().mkpath(WorkPath() + u"/x"_s));

    MoveTo(2);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.contains(WorkPath()));
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(Box(1).text(), u"Cl2"_s);
}

TEST_F(FrmNewFileSteps, HelpIsAskedForByTheButtonAndTheKey)
{
    OpenNew();

    Click(Button("cmdHelp"));
    Press(*editor, Qt::Key_F1);

    EXPECT_EQ(helps, 2);
}

TEST_F(FrmNewFileSteps, FiveHundredEquationsMoveAsOne)
{
    OpenFile(QByteArray("C+O2=CO2/1,1,1\r\n").repeated(499) + "H2+O2=H2O/2,1,2\r\n");

    Click(Button("cmdInsEqu"));
    WriteCoal();
    Bar().setValue(501);
    EXPECT_EQ(Formulas(), kWater);
    Click(Button("cmdSupEqu"));

    EXPECT_EQ(Number(), u"500"_s);
    EXPECT_EQ(Bar().maximum(), 500);
    EXPECT_EQ(Formulas(), kCoal);
}

TEST_F(FrmNewFileSteps, NothingIsCutOnASmallScreen)
{
    OpenFile(kThree);

    EXPECT_LE(editor->width(), 1024);
    EXPECT_LE(editor->minimumSizeHint().height(), 768 - 40);
    for (int tab = 0; tab < 4; ++tab) {
        Tab(tab);
        Settle();
        const auto controls = editor->findChildren<QWidget*>();
        for (const QWidget* const control : controls) {
            const bool isOfInterest = control->isVisible()
                && (qobject_cast<const QAbstractButton*>(control) != nullptr
                    || qobject_cast<const QLabel*>(control) != nullptr)
                && !control->objectName().startsWith(u"qt_"_s)
                && !control->objectName().startsWith(u"Scroll"_s);
            EXPECT_TRUE(!isOfInterest || control->width() >= control->minimumSizeHint().width())
                << control->objectName().toStdString();
        }
    }
}

} // namespace stoikal
