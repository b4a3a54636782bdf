#include "editor_windows/editor_bench.h"

#include <QApplication>
#include <QClipboard>
#include <QTabBar>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Formulas, and what leaves a box.
class FrmNewFileEntry : public EditorTest
{
protected:
    void SetUp() override { OpenNew(); }

    void ExpectRefused(const QString& text)
    {
        ASSERT_EQ(messages.shown.size(), 1U);
        ExpectBox(QMessageBox::Warning, u"Erreur sur saisie."_s, text);
    }
};

} // namespace

TEST_F(FrmNewFileEntry, TakesLettersDigitsAndTheSignsOfAFormula)
{
    Type(Box(0), u"Ab(9)+,-=Z{2}"_s);

    EXPECT_EQ(Box(0).text(), u"Ab(9)+,-=Z{2}"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmNewFileEntry, RefusesAnyOtherCharacter)
{
    Type(Box(3), u"H2é"_s);

    EXPECT_EQ(Box(3).text(), u"H2"_s);
    ExpectRefused(u"Le caractère saisie (é) n'est pas autorisé."_s);
}

TEST_F(FrmNewFileEntry, RefusesABlankAndASquareBracket)
{
    Type(Box(0), u"H2 O["_s);

    EXPECT_EQ(Box(0).text(), u"H2O"_s);
    EXPECT_EQ(messages.shown.size(), 2U);
}

TEST_F(FrmNewFileEntry, SecondBraceInABoxIsRefused)
{
    Type(Box(0), u"Fe{{"_s);

    EXPECT_EQ(Box(0).text(), u"Fe{"_s);
    ExpectRefused(u"Le caractère saisie ({) n'est pas autorisé."_s);
    Type(Box(1), u"Cu{2+}}"_s);
    EXPECT_EQ(Box(1).text(), u"Cu{2+}"_s);
}

TEST_F(FrmNewFileEntry, LeadingZeroIsRefused)
{
    Type(Box(0), u"0"_s);

    EXPECT_EQ(Box(0).text(), QString());
    ExpectRefused(u"Le chiffre 0 ne peut être le premier caractère\nd'une formule moléculaire."_s);
}

TEST_F(FrmNewFileEntry, ZeroBehindALetterIsRefusedBehindADigitItPasses)
{
    Type(Box(0), u"H0"_s);
    EXPECT_EQ(Box(0).text(), u"H"_s);
    ExpectRefused(u"Un atome ne peut avoir un indice de zéro."_s);

    Type(Box(1), u"H10"_s);
    EXPECT_EQ(Box(1).text(), u"H10"_s);
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(FrmNewFileEntry, PasteGoesThroughTheSameFilter)
{
    QApplication::clipboard()->setText(u"H2 O ;"_s);

    Press(Box(0), Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Box(0).text(), u"H2O"_s);
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(FrmNewFileEntry, LeavingABoxReportsAnUnknownSymbol)
{
    Box(0).setFocus();
    Type(Box(0), u"Xx2"_s);

    Press(Box(0), Qt::Key_Tab);
    Settle();

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectBox(QMessageBox::Warning, u"Symbole d'atome inconnu"_s,
              u"Le symbole 'Xx' n'est pas le symbole d'un atome connu.\nVeuillez vérifier votre saisie."_s);
    EXPECT_TRUE(Box(1).hasFocus());
}

TEST_F(FrmNewFileEntry, LeavingABoxOfKnownSymbolsSaysNothing)
{
    Box(0).setFocus();
    Type(Box(0), u"Ca3(PO4)2"_s);

    Press(Box(0), Qt::Key_Tab);
    Settle();

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmNewFileEntry, WorkFileThatCannotBeWrittenIsReportedWithItsCause)
{
    ASSERT_TRUE(QFile::remove(WorkPath()) && QDir().mkpath(WorkPath()));
    MakeEditor();

    EXPECT_FALSE(editor->StartNew());

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[0].text,
              u"Le fichier de travail de l'éditeur ne peut pas être écrit\u00A0:\n%1\n(c'est un dossier)\n\n"
              "Remédiez à cette cause, puis recommencez."_s.arg(WorkPath()));
}

TEST_F(FrmNewFileEntry, AFormulaBeyondTheLimitsIsToldAndTheEditorGoesOn)
{
    Box(0).setFocus();
    Type(Box(0), u"H99999"_s);

    Press(Box(0), Qt::Key_Tab);
    Settle();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_EQ(Box(0).text(), u"H99999"_s);
}

TEST_F(FrmNewFileEntry, CancellingFromAWrongFormulaAsksNothingMore)
{
    Box(0).setFocus();
    Type(Box(0), u"Xx2"_s);

    Click(Button("cmdCancel"));
    Settle();

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(unloads, 1);
}

TEST_F(FrmNewFileEntry, TabGoesAlongTheEquationAndOnToTheNextOne)
{
    Box(0).setFocus();
    for (int slot = 1; slot < 6; ++slot) {
        Press(Box(slot - 1), Qt::Key_Tab);
        EXPECT_TRUE(Box(slot).hasFocus()) << slot;
    }
    Press(Box(5), Qt::Key_Tab);
    EXPECT_TRUE(Button("cmdInsEqu").hasFocus());
    Press(Button("cmdInsEqu"), Qt::Key_Tab);
    EXPECT_TRUE(Button("cmdSupEqu").hasFocus());
}

TEST_F(FrmNewFileEntry, NameLosesAllFromAPointOnWhileItIsTyped)
{
    Type(Line("txtNameFile"), u"serie.equ"_s);

    EXPECT_EQ(Line("txtNameFile").text(), u"serie"_s);

    Line("txtNameFile").clear();
    Type(Line("txtNameFile"), u"Suite.AVT"_s);
    EXPECT_EQ(Line("txtNameFile").text(), u"Suite"_s);

    Line("txtNameFile").clear();
    QApplication::clipboard()->setText(u"serie.equ"_s);
    Press(Line("txtNameFile"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Line("txtNameFile").text(), u"serie"_s);
}

TEST_F(FrmNewFileEntry, WhatFollowsAPointAndIsNoExtensionStaysInTheName)
{
    Type(Line("txtNameFile"), u"serie.2"_s);
    EXPECT_EQ(Line("txtNameFile").text(), u"serie2"_s);

    Line("txtNameFile").clear();
    Type(Line("txtNameFile"), u"serie.avant"_s);
    EXPECT_EQ(Line("txtNameFile").text(), u"serieavant"_s);
}

TEST_F(FrmNewFileEntry, NameHasTheKeyboardFirstAndTheEquationComesBehindIt)
{
    EXPECT_TRUE(Line("txtNameFile").hasFocus());

    Press(Line("txtNameFile"), Qt::Key_Tab);
    EXPECT_TRUE(Button("optType", 0).hasFocus());
    Press(Button("optType", 0), Qt::Key_Tab);
    EXPECT_TRUE(Tabs().tabBar()->hasFocus());
    Press(*Tabs().tabBar(), Qt::Key_Tab);
    EXPECT_TRUE(Box(0).hasFocus());
}

TEST_F(FrmNewFileEntry, KeysOfATabLeadIntoItsPage)
{
    Press(Line("txtNameFile"), Qt::Key_F, Qt::AltModifier);
    Settle();
    EXPECT_TRUE(Box(0).hasFocus());

    Line("txtNameFile").setFocus();
    Press(Line("txtNameFile"), Qt::Key_P, Qt::AltModifier);
    Settle();
    EXPECT_EQ(Tabs().currentIndex(), 1);
    EXPECT_TRUE(Button("chkEtat", 0).hasFocus());

    // From page to page it is the first control again, not the one used last.
    Press(Button("chkEtat", 0), Qt::Key_F, Qt::AltModifier);
    Settle();
    Box(4).setFocus();
    Press(Box(4), Qt::Key_P, Qt::AltModifier);
    Settle();
    Press(Button("chkEtat", 0), Qt::Key_F, Qt::AltModifier);
    Settle();
    EXPECT_TRUE(Box(0).hasFocus());
}

TEST_F(FrmNewFileEntry, TabReachesTheFirstStateWhenNoneIsChosen)
{
    WriteWater();
    Tab(1);
    Click(Button("chkEtat", 0));
    Click(Button("optEtat", 2));
    Click(Button("cmdInsEqu"));
    WriteCoal();
    Tab(1);
    Click(Button("chkEtat", 0));

    Press(Button("chkEtat", 0), Qt::Key_Tab);

    EXPECT_TRUE(Button("optEtat", 0).hasFocus());
}

TEST_F(FrmNewFileEntry, EveryFieldHasAnAccessibleName)
{
    const auto fields = editor->findChildren<QWidget*>();
    for (const QWidget* const field : fields) {
        const bool isReached = (field->focusPolicy() & Qt::TabFocus) != 0;
        EXPECT_TRUE(!isReached || field->objectName().startsWith(u"qt_"_s)
                    || !field->accessibleName().isEmpty())
            << field->objectName().toStdString();
    }
}

TEST_F(FrmNewFileEntry, EnterInABoxDoesNothing)
{
    WriteWater();
    Press(Box(0), Qt::Key_Return);

    EXPECT_EQ(unloads, 0);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Formulas(), QStringList({u"H2"_s, u"O2"_s, {}, u"H2O"_s, {}, {}}));
}

} // namespace stoikal
