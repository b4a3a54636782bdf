#include "chemistry/windows/frm_cal_mol.h"
#include "forms/window_events.h"

#include "support/fake_messages.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FrmCalMol : public testing::Test
{
protected:
    void SetUp() override { Open(u'.'); }

    void Open(QChar separator)
    {
        window = std::make_unique<frmCalMol>(messages, separator, nullptr);
        window->show();
        window->activateWindow();
        window->setFocus();
        Settle();
    }

    QLineEdit& Box() { return Control<QLineEdit>(*window, "txtMolecule"); }
    QString Result() { return Control<QLabel>(*window, "lblCalMol").text(); }

    /// Empties the box and types a formula; the boxes shown for it are in `messages`.
    QString MassOf(const QString& formula)
    {
        Box().clear();
        messages.shown.clear();
        Type(Box(), formula);
        return Result();
    }

    void ExpectUnknown(size_t index, const QString& symbol)
    {
        ASSERT_GT(messages.shown.size(), index);
        EXPECT_EQ(messages.shown[index].title, u"Symbole d'atome inconnu"_s);
        EXPECT_EQ(
            messages.shown[index].text,
            u"Le symbole '%1' n'est pas le symbole d'un atome connu.\nVeuillez vérifier votre saisie."_s.arg(
                symbol));
        EXPECT_EQ(messages.shown[index].icon, QMessageBox::Warning);
        EXPECT_EQ(messages.shown[index].buttons, QMessageBox::Ok);
    }

    void ExpectRefused(const QString& text)
    {
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title, u"Erreur sur saisie."_s);
        EXPECT_EQ(messages.shown[0].text, text);
        EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    }

    FakeMessages messages;
    std::unique_ptr<frmCalMol> window;
};

} // namespace

TEST_F(FrmCalMol, HasItsCaptions)
{
    EXPECT_EQ(window->windowTitle(), u"Calcul masse molaire"_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label1").text(),
              u"Veuillez saisir ci-dessous la formule chimique de votre molécule : "_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label2").text(), u"Masse molaire : "_s);
    EXPECT_EQ(Box().toolTip(), u"Saisissez ici la formule moléculaire en respectant la syntaxe."_s);
    EXPECT_FALSE(Box().accessibleName().isEmpty());
}

TEST_F(FrmCalMol, OpensEmptyWithTheKeyboardOnItsBox)
{
    EXPECT_EQ(Box().text(), QString());
    EXPECT_EQ(Result(), u"- g/mol"_s);
    EXPECT_TRUE(Box().hasFocus());
}

TEST_F(FrmCalMol, ShowsTheMassOfWater)
{
    EXPECT_EQ(MassOf(u"H2O"_s), u"18.0153 g/mol"_s); // 2 * 1.00794 + 15.9994 = 18.01528
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmCalMol, ShowsTheDecimalSignOfTheSystem)
{
    Open(u',');

    EXPECT_EQ(MassOf(u"H2O"_s), u"18,0153 g/mol"_s);
    EXPECT_EQ(Control<QLabel>(*window, "lblCalMol").accessibleName(),
              u"Masse molaire\u00A0: 18,0153 g/mol"_s);
}

TEST_F(FrmCalMol, ShowsTheMassOfAHydrate)
{
    // 63.546 + 32.065 + 9 * 15.9994 + 10 * 1.00794 = 249.685
    EXPECT_EQ(MassOf(u"CuSO4,5H2O"_s), u"249.6850 g/mol"_s);
}

TEST_F(FrmCalMol, ChangesWithEachKey)
{
    EXPECT_EQ(MassOf(u"N"_s), u"14.0067 g/mol"_s);

    Type(Box(), u"a"_s);
    EXPECT_EQ(Result(), u"22.9898 g/mol"_s); // 22.98977

    Press(Box(), Qt::Key_Backspace);
    EXPECT_EQ(Result(), u"14.0067 g/mol"_s);

    Press(Box(), Qt::Key_Backspace);
    EXPECT_EQ(Result(), u"- g/mol"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmCalMol, SaysNothingAboutACapitalThatMayGetItsSecondLetter)
{
    EXPECT_EQ(MassOf(u"Q"_s), u"- g/mol"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmCalMol, NamesAnUnknownSymbolOnce)
{
    EXPECT_EQ(MassOf(u"Xy"_s), u"- g/mol"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectUnknown(0, u"Xy"_s);
    EXPECT_EQ(Box().text(), u"Xy"_s);
}

TEST_F(FrmCalMol, NamesAnUnknownCapitalThatIsNotTheLast)
{
    EXPECT_EQ(MassOf(u"AB"_s), u"- g/mol"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectUnknown(0, u"A"_s);
}

TEST_F(FrmCalMol, KnowsNoElementBehindMeitnerium)
{
    EXPECT_EQ(MassOf(u"Ds"_s), u"- g/mol"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    ExpectUnknown(0, u"Ds"_s);
}

TEST_F(FrmCalMol, NamesASmallLetterOnceAtEachKeyThoughThereIsAMass)
{
    EXPECT_EQ(MassOf(u"cH"_s), u"1.0079 g/mol"_s); // 1.00794

    // One box for "c" and one for "cH".
    ASSERT_EQ(messages.shown.size(), 2U);
    ExpectUnknown(0, u"c"_s);
    ExpectUnknown(1, u"c"_s);
}

TEST_F(FrmCalMol, NamesASymbolThatStandsTwiceOnce)
{
    MassOf(u"cc"_s);

    // One box for "c" and one for "cc".
    ASSERT_EQ(messages.shown.size(), 2U);
    ExpectUnknown(1, u"c"_s);
}

TEST_F(FrmCalMol, ShowsANegativeMassAsItIs)
{
    EXPECT_EQ(MassOf(u"Cl-2"_s), u"-70.9054 g/mol"_s); // -2 * 35.4527
}

TEST_F(FrmCalMol, TakesTheEqualsSign)
{
    EXPECT_EQ(MassOf(u"H2="_s), u"2.0159 g/mol"_s); // 2 * 1.00794 = 2.01588
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmCalMol, TakesEachBraceOnce)
{
    EXPECT_EQ(MassOf(u"Fe{3+}"_s), u"55.8450 g/mol"_s);
    EXPECT_TRUE(messages.shown.empty());

    Type(Box(), u"{"_s);
    ExpectRefused(u"Le caractère saisie ({) n'est pas autorisé."_s);
    EXPECT_EQ(Box().text(), u"Fe3+}{"_s); // The older one goes.
}

TEST_F(FrmCalMol, RefusesOtherCharacters)
{
    EXPECT_EQ(MassOf(u"H2["_s), u"2.0159 g/mol"_s);

    ExpectRefused(u"Le caractère saisie ([) n'est pas autorisé."_s);
    EXPECT_EQ(Box().text(), u"H2"_s);
}

TEST_F(FrmCalMol, RefusesAZeroThatIsNoPartOfANumber)
{
    MassOf(u"H0"_s);
    ExpectRefused(u"Un atome ne peut avoir un indice de zéro."_s);
    EXPECT_EQ(Box().text(), u"H"_s);
    EXPECT_EQ(Result(), u"1.0079 g/mol"_s);

    MassOf(u"0"_s);
    ExpectRefused(u"Le chiffre 0 ne peut être le premier caractère\nd'une formule moléculaire."_s);
    EXPECT_EQ(Box().text(), QString());

    EXPECT_EQ(MassOf(u"H10"_s), u"10.0794 g/mol"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmCalMol, GoesOnAfterTooLargeANumber)
{
    EXPECT_EQ(MassOf(u"H3276"_s), u"3302.0114 g/mol"_s); // 3276 * 1.00794 = 3302.01144

    Type(Box(), u"8"_s); // 32768 is one more than 16 bits hold.

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_EQ(Result(), u"- g/mol"_s);
    EXPECT_EQ(Box().text(), u"H32768"_s);

    Press(Box(), Qt::Key_Backspace);
    EXPECT_EQ(Result(), u"3302.0114 g/mol"_s);
}

TEST_F(FrmCalMol, GoesOnAfterAnEleventhAtom)
{
    EXPECT_NE(MassOf(u"HBCNOFPSKI"_s), u"- g/mol"_s);
    EXPECT_TRUE(messages.shown.empty());

    Type(Box(), u"U"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_EQ(Result(), u"- g/mol"_s);
    EXPECT_EQ(Box().text(), u"HBCNOFPSKIU"_s);
}

TEST_F(FrmCalMol, LeavesEnterAndEscapeWithoutEffect)
{
    MassOf(u"H2O"_s);
    QSignalSpy closes(window.get(), &Form::CloseAsked);

    Press(Box(), Qt::Key_Return);
    Press(Box(), Qt::Key_Escape);

    EXPECT_EQ(Box().text(), u"H2O"_s);
    EXPECT_EQ(closes.size(), 0);
}

TEST_F(FrmCalMol, CutsNothingOfAWideResult)
{
    MassOf(u"(UUUUUUUU)999"_s);
    Settle();

    const QLabel& result = Control<QLabel>(*window, "lblCalMol");
    EXPECT_GE(result.width(), result.sizeHint().width());
}

TEST_F(FrmCalMol, AsksForHelpByF1AndTellsOfTheMouse)
{
    const WindowEvents events;
    QSignalSpy asked(&events, &WindowEvents::HelpRequested);
    QSignalSpy moved(&events, &WindowEvents::PointerMoved);

    Press(Box(), Qt::Key_F1);
    QTest::mouseMove(window.get(), QPoint(3, 3));
    QTest::mouseMove(window.get(), QPoint(4, 4));
    Settle();

    EXPECT_EQ(asked.size(), 1);
    EXPECT_GE(moved.size(), 1);
}

} // namespace stoikal
