#include "exercise/equation_bench.h"

#include <QClipboard>
#include <QInputMethodEvent>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QByteArray kWater = "H2+O2=H2O/2,1,2\n";

/// The boxes of coefficients under a pupil's fingers.
class FrmEquationKeys : public EquationBench
{
protected:
    void ExpectOnlyMessage(const QString& text)
    {
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title, u"Erreur sur saisie."_s);
        EXPECT_EQ(messages.shown[0].text, text);
        EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    }

    void Paste(int slot, const QString& text)
    {
        QApplication::clipboard()->setText(text);
        Press(Box(slot), Qt::Key_V, Qt::ControlModifier);
    }
};

const QString kNoDigit = u"Veuillez saisir un chiffre."_s;
const QString kNoDecimals = u"Les nombres décimaux ne sont pas autorisés."_s;
const QString kNotZero = u"Le coefficient ne peut pas être nul."_s;

} // namespace

TEST_F(FrmEquationKeys, TakeDigits)
{
    Open(kWater);
    Type(Box(0), u"19"_s);

    EXPECT_EQ(Box(0).text(), u"19"_s);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(sound.beeps, 0);
}

TEST_F(FrmEquationKeys, TakeTenThoughItHoldsAZero)
{
    Open(kWater);
    Type(Box(0), u"10"_s);

    EXPECT_EQ(Box(0).text(), u"10"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmEquationKeys, RecountTheAtomsAtEachDigit)
{
    Open("Ca(OH)2+HCl=CaCl2+H2O/1,2,1,2\n");
    recomposed = 0;

    Type(Box(0), u"3"_s);
    EXPECT_EQ(recomposed, 1);
    EXPECT_EQ(Totals(run.Reactants()), u"Ca3 O6 H7 Cl1"_s); // 3 Ca(OH)2 and HCl
    Type(Box(0), u"1"_s);
    EXPECT_EQ(recomposed, 2);
    EXPECT_EQ(Totals(run.Reactants()), u"Ca31 O62 H63 Cl1"_s); // 31 Ca(OH)2 and HCl
    Type(Box(4), u"2"_s);
    EXPECT_EQ(Totals(run.Products()), u"Ca1 O2 H4 Cl2"_s); // CaCl2 and 2 H2O
}

TEST_F(FrmEquationKeys, RecountTheChargesAtEachDigit)
{
    Open("Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\n");
    EXPECT_EQ(state.ChargeTotalReactants, 3);
    EXPECT_EQ(state.ChargeTotalProducts, 4);

    Type(Box(0), u"4"_s);
    EXPECT_EQ(state.ChargeTotalReactants, 12); // 4 * 3
    Type(Box(4), u"5"_s);
    EXPECT_EQ(state.ChargeTotalProducts, 12); // 2 + 5 * 2
}

TEST_F(FrmEquationKeys, CountAnEmptiedBoxAsOne)
{
    Open(kWater);
    Type(Box(0), u"3"_s);
    ASSERT_EQ(Totals(run.Reactants()), u"H6 O2"_s);

    Press(Box(0), Qt::Key_Backspace);

    EXPECT_EQ(Box(0).text(), u""_s);
    EXPECT_EQ(Totals(run.Reactants()), u"H2 O2"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmEquationKeys, RefuseALetter)
{
    Open(kWater);
    Type(Box(0), u"1a"_s);

    ExpectOnlyMessage(kNoDigit);
    EXPECT_EQ(Box(0).text(), u"1"_s);
}

TEST_F(FrmEquationKeys, RefuseAnAccentedLetterASignAndABlank)
{
    Open(kWater);
    for (const QString& key : {u"é"_s, u"-"_s, u" "_s, u"²"_s, u"٣"_s}) {
        messages.shown.clear();
        Type(Box(0), key);
        ExpectOnlyMessage(kNoDigit);
        EXPECT_EQ(Box(0).text(), u""_s);
    }
}

TEST_F(FrmEquationKeys, RefuseACommaAndAPointAsDecimals)
{
    Open(kWater);
    Type(Box(0), u"1,"_s);
    ExpectOnlyMessage(kNoDecimals);
    EXPECT_EQ(Box(0).text(), u"1"_s);

    messages.shown.clear();
    Type(Box(1), u"."_s);
    ExpectOnlyMessage(kNoDecimals);
    EXPECT_EQ(Box(1).text(), u""_s);
}

TEST_F(FrmEquationKeys, TellOfARefusalWhileTheKeyIsNotYetInTheBox)
{
    Open(kWater);
    QString seen = u"?"_s;
    messages.whileOpen = [this, &seen](const Message&) { seen = Box(0).text(); };

    Type(Box(0), u"1a"_s);

    EXPECT_EQ(seen, u"1"_s);
}

TEST_F(FrmEquationKeys, LoseTheLastCharacterWhereverTheCaretStands)
{
    Open(kWater);
    Type(Box(0), u"7"_s);
    Press(Box(0), Qt::Key_Home);
    Type(Box(0), u"a"_s);

    ExpectOnlyMessage(kNoDigit);
    EXPECT_EQ(Box(0).text(), u"a"_s); // "a7" has lost its 7
    EXPECT_EQ(Totals(run.Reactants()), u"H2 O2"_s); // no number: 1
}

TEST_F(FrmEquationKeys, BeepAtAThirdCharacter)
{
    Open(kWater);
    Type(Box(0), u"123"_s);

    EXPECT_EQ(Box(0).text(), u"12"_s);
    EXPECT_EQ(sound.beeps, 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmEquationKeys, BeepAtAThirdCharacterEvenIfItIsNoDigit)
{
    Open(kWater);
    Type(Box(0), u"12a"_s);

    EXPECT_EQ(Box(0).text(), u"12"_s);
    EXPECT_EQ(sound.beeps, 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmEquationKeys, AreJudgedAsOnTheShorterTextWhenTheyReplaceASelection)
{
    Open(kWater);
    Type(Box(0), u"12"_s);
    Box(0).selectAll();
    Type(Box(0), u"5"_s);

    EXPECT_EQ(Box(0).text(), u"5"_s);
    EXPECT_EQ(sound.beeps, 0);

    Type(Box(0), u"6"_s);
    Box(0).selectAll();
    Type(Box(0), u"x"_s);
    ExpectOnlyMessage(kNoDigit);
    EXPECT_EQ(Box(0).text(), u""_s);
}

TEST_F(FrmEquationKeys, RefuseAZero)
{
    Open(kWater);
    Type(Box(0), u"0"_s);

    ExpectOnlyMessage(kNotZero);
    EXPECT_EQ(Box(0).text(), u""_s);
}

TEST_F(FrmEquationKeys, RefuseTwoZerosOneAfterTheOther)
{
    Open(kWater);
    Type(Box(0), u"10"_s);
    Box(0).setSelection(0, 1);
    Type(Box(0), u"0"_s); // "00" becomes "0", which falls too

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].text, kNotZero);
    EXPECT_EQ(messages.shown[1].text, kNotZero);
    EXPECT_EQ(Box(0).text(), u""_s);
}

TEST_F(FrmEquationKeys, TakeAFiveBehindARefusedZero)
{
    Open(kWater);
    Type(Box(0), u"0"_s);
    Type(Box(0), u"5"_s);

    ExpectOnlyMessage(kNotZero);
    EXPECT_EQ(Box(0).text(), u"5"_s);
}

TEST_F(FrmEquationKeys, DoNotCountARefusedZero)
{
    Open(kWater);
    recomposed = 0;
    Type(Box(0), u"0"_s);

    EXPECT_EQ(recomposed, 1); // only the box that became empty again
    EXPECT_EQ(Totals(run.Reactants()), u"H2 O2"_s);
}

TEST_F(FrmEquationKeys, FilterAPasteCharacterByCharacter)
{
    Open(kWater);
    Paste(0, u"1a2"_s);

    ExpectOnlyMessage(kNoDigit);
    EXPECT_EQ(Box(0).text(), u"12"_s);
    EXPECT_EQ(Totals(run.Reactants()), u"H24 O2"_s);
}

TEST_F(FrmEquationKeys, TellOnlyTheFirstRefusalOfAPaste)
{
    Open(kWater);
    Paste(0, u",ab."_s);

    ExpectOnlyMessage(kNoDecimals);
    EXPECT_EQ(Box(0).text(), u""_s);
}

TEST_F(FrmEquationKeys, TellTheRefusalOfTheNextPasteAgain)
{
    Open(kWater);
    Paste(0, u"ab"_s);
    Paste(0, u"cd"_s);

    EXPECT_EQ(messages.shown.size(), 2U);
}

TEST_F(FrmEquationKeys, KeepTheFirstTwoDigitsOfALongPaste)
{
    Open(kWater);
    Paste(0, u"1234"_s);

    EXPECT_EQ(Box(0).text(), u"12"_s);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(sound.beeps, 2); // 3 and 4
}

TEST_F(FrmEquationKeys, FilterWhatAnInputMethodHandsOver)
{
    Open(kWater);
    QInputMethodEvent event;
    event.setCommitString(u"4x"_s);
    QCoreApplication::sendEvent(&Box(0), &event);

    ExpectOnlyMessage(kNoDigit);
    EXPECT_EQ(Box(0).text(), u"4"_s);
}

TEST_F(FrmEquationKeys, IgnoreEnterAndEscape)
{
    Open(kWater);
    Type(Box(0), u"3"_s);
    Press(Box(0), Qt::Key_Return);
    Press(Box(0), Qt::Key_Enter);
    Press(Box(0), Qt::Key_Escape);

    EXPECT_EQ(Box(0).text(), u"3"_s);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(Journal().isEmpty()); // nothing was validated
}

TEST_F(FrmEquationKeys, FindTheWholeTextSelectedWhenTheBoxIsEntered)
{
    Open(kWater);
    Type(Box(0), u"12"_s);
    Press(Box(0), Qt::Key_Tab);
    ASSERT_EQ(window->focusWidget(), &Box(1));

    Press(Box(1), Qt::Key_Backtab);

    EXPECT_EQ(window->focusWidget(), &Box(0));
    EXPECT_EQ(Box(0).selectedText(), u"12"_s);
}

TEST_F(FrmEquationKeys, FindTheWholeTextSelectedWhenTheProgramEntersTheBox)
{
    Open(kWater);
    Type(Box(0), u"12"_s);
    Press(Box(0), Qt::Key_Tab);
    Box(0).deselect();

    window->FocusFirstBox();

    EXPECT_EQ(Box(0).selectedText(), u"12"_s);
}

TEST_F(FrmEquationKeys, ReplaceTheCoefficientThatWasClickedInto)
{
    Open(kWater);
    Type(Box(0), u"2"_s);
    ClickInto(Box(1));

    ClickInto(Box(0));
    EXPECT_EQ(Box(0).selectedText(), u"2"_s);
    Type(Box(0), u"3"_s);

    EXPECT_EQ(Box(0).text(), u"3"_s);
}

TEST_F(FrmEquationKeys, BringNoCoefficientOfTheEquationBeforeBack)
{
    Open(kWater + "C+O2=CO2/1,1,1\n");
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    ASSERT_EQ(Boxes(), u"|||||"_s);

    for (const int slot : {0, 1, 3})
        Press(Box(slot), Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Boxes(), u"|||||"_s);
}

TEST_F(FrmEquationKeys, BringNoEmptiedCoefficientBack)
{
    Open(kWater);
    Type(Box(0), u"2"_s);
    window->EmptyCoefficients();

    Press(Box(0), Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Box(0).text(), QString());
}

TEST_F(FrmEquationKeys, ValidateByEnterOnTheButton)
{
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        Open(kWater);
        Fill({u"2"_s, u"1"_s, {}, u"2"_s});
        Box(3).setFocus();
        Press(Box(3), Qt::Key_Tab);
        ASSERT_EQ(window->focusWidget(), &Other());

        Press(Other(), enter, enter == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);

        EXPECT_EQ(Score().text(), u"5"_s);
        EXPECT_EQ(ends, 1);
        ends = 0;
    }
}

TEST_F(FrmEquationKeys, DoNotReachTheBoxesOfAShownSolution)
{
    Open(kWater);
    Answer({u"3"_s});
    ASSERT_FALSE(run.State().AnswerOpen);
    QTest::keyClick(&Box(0), '9');

    EXPECT_EQ(Box(0).text(), u"2"_s);
}

TEST_F(FrmEquationKeys, TellOfAnUnknownSymbolAtEachCount)
{
    Open("Xx+O2=XxO2/1,1,1\n");
    ASSERT_EQ(messages.shown.size(), 2U); // one for each side
    EXPECT_EQ(messages.shown[0].title, u"Stoikal - Erreur dans le fichier chimie.Equ"_s);
    EXPECT_EQ(messages.shown[0].text,
              u"Il existe une erreur dans le fichier d'équations : chimie.Equ\n\n"
              "Le symbole de l'atome suivant 'Xx' est incorrect.\nVeuillez corriger ce fichier."_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);

    Type(Box(1), u"2"_s);
    EXPECT_EQ(messages.shown.size(), 4U);
    Press(Box(1), Qt::Key_Backspace);
    EXPECT_EQ(messages.shown.size(), 6U);
}

TEST_F(FrmEquationKeys, GoOnBehindAnUnknownSymbol)
{
    Open("Xx+O2=XxO2/1,1,1\n");
    Click(Other());

    EXPECT_EQ(Score().text(), u"5"_s);
}

} // namespace stoikal
