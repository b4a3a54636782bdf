#include "chemistry/formula_field.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

constexpr FormulaField kAllFields[]
    = {FormulaField::Expert, FormulaField::CalMol, FormulaField::NewFile, FormulaField::Search};
constexpr FormulaField kFieldsWithOneBrace[]
    = {FormulaField::Expert, FormulaField::CalMol, FormulaField::NewFile};

const QString kRefusedHash = u"Le caractère saisie (#) n'est pas autorisé."_s;
const QString kRefusedBrace = u"Le caractère saisie ({) n'est pas autorisé."_s;
const QString kLeadingZero = u"Le chiffre 0 ne peut être le premier caractère\nd'une formule moléculaire."_s;
const QString kZeroIndex = u"Un atome ne peut avoir un indice de zéro."_s;

/// The text once every fault is repaired, as a window does it.
QString Repaired(QString text, std::optional<QChar> refusedKey)
{
    while (const auto repair = FormulaFieldCheck(text, refusedKey)) {
        text.remove(repair->position, 1);
        refusedKey.reset();
    }
    return text;
}

} // namespace

TEST(FormulaKeyAllowed, AcceptsTheSignsOfAFormulaEverywhere)
{
    const QString keys = u"\b()+,-0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"_s;
    for (const FormulaField field : kAllFields) {
        for (const QChar key : keys)
            EXPECT_TRUE(FormulaKeyAllowed(field, key, keys)) << int{key.unicode()};
    }
}

TEST(FormulaKeyAllowed, RefusesAllOtherKeysEverywhere)
{
    // The neighbours of the accepted ranges, and what a person may try.
    const QString keys = u" !'*./:;<>?@[\\]^_`|~#\"%&\t\r\u001Béàç²€Éµ"_s;
    for (const FormulaField field : kAllFields) {
        for (const QChar key : keys)
            EXPECT_FALSE(FormulaKeyAllowed(field, key, u"")) << int{key.unicode()};
    }
}

TEST(FormulaKeyAllowed, AcceptsEachBraceOnceInThreeWindows)
{
    for (const FormulaField field : kFieldsWithOneBrace) {
        EXPECT_TRUE(FormulaKeyAllowed(field, u'{', u"Fe"));
        EXPECT_TRUE(FormulaKeyAllowed(field, u'}', u"Fe{2+"));
        EXPECT_TRUE(FormulaKeyAllowed(field, u'{', u"Fe2+}")) << "only the same brace counts";
        EXPECT_FALSE(FormulaKeyAllowed(field, u'{', u"Fe{2+"));
        EXPECT_FALSE(FormulaKeyAllowed(field, u'}', u"Fe{2+}"));
    }
}

TEST(FormulaKeyAllowed, AcceptsBracesAlwaysInTheSearch)
{
    EXPECT_TRUE(FormulaKeyAllowed(FormulaField::Search, u'{', u"{"));
    EXPECT_TRUE(FormulaKeyAllowed(FormulaField::Search, u'}', u"{}}"));
}

TEST(FormulaKeyAllowed, AcceptsTheEqualSignInTwoWindows)
{
    EXPECT_TRUE(FormulaKeyAllowed(FormulaField::CalMol, u'=', u"="));
    EXPECT_TRUE(FormulaKeyAllowed(FormulaField::NewFile, u'=', u"="));
    EXPECT_FALSE(FormulaKeyAllowed(FormulaField::Expert, u'=', u""));
    EXPECT_FALSE(FormulaKeyAllowed(FormulaField::Search, u'=', u""));
}

TEST(FormulaFieldCheck, FindsNoFaultInAFormula)
{
    for (const QString& text :
         {u""_s, u"H2O"_s, u"H10"_s, u"C100H200"_s, u"CuSO4,5H2O"_s, u"Fe{3+}"_s, u"C20"_s})
        EXPECT_FALSE(FormulaFieldCheck(text, std::nullopt).has_value()) << text.toStdString();
}

TEST(FormulaFieldCheck, RemovesTheRefusedCharacter)
{
    const auto repair = FormulaFieldCheck(u"H2#O"_s, u'#');
    ASSERT_TRUE(repair.has_value());
    EXPECT_EQ(repair->message, kRefusedHash);
    EXPECT_EQ(repair->position, 2);
    EXPECT_EQ(Repaired(u"H2#O"_s, u'#'), u"H2O"_s);
}

TEST(FormulaFieldCheck, RemovesTheOlderOfTwoBraces)
{
    const auto repair = FormulaFieldCheck(u"Fe{2{"_s, u'{');
    ASSERT_TRUE(repair.has_value());
    EXPECT_EQ(repair->message, kRefusedBrace);
    EXPECT_EQ(repair->position, 2);
    EXPECT_EQ(Repaired(u"{{"_s, u'{'), u"{"_s);
}

TEST(FormulaFieldCheck, RemovesOneCharacterForOneRefusedKey)
{
    EXPECT_EQ(Repaired(u"##"_s, u'#'), u"#"_s);
}

TEST(FormulaFieldCheck, SpeaksOfARefusedKeyBeforeAnyZero)
{
    const auto repair = FormulaFieldCheck(u"0H0#"_s, u'#');
    ASSERT_TRUE(repair.has_value());
    EXPECT_EQ(repair->message, kRefusedHash);
    EXPECT_EQ(repair->position, 3);
}

TEST(FormulaFieldCheck, ForgetsARefusedKeyThatIsNotInTheText)
{
    EXPECT_FALSE(FormulaFieldCheck(u""_s, u'#').has_value());
    EXPECT_FALSE(FormulaFieldCheck(u"H2O"_s, u'#').has_value());
    const auto repair = FormulaFieldCheck(u"0H"_s, u'#');
    ASSERT_TRUE(repair.has_value());
    EXPECT_EQ(repair->message, kLeadingZero);
}

TEST(FormulaFieldCheck, RefusesALeadingZero)
{
    for (const QString& text : {u"0"_s, u"0H2"_s, u"00"_s, u"0H0"_s}) {
        const auto repair = FormulaFieldCheck(text, std::nullopt);
        ASSERT_TRUE(repair.has_value()) << text.toStdString();
        EXPECT_EQ(repair->message, kLeadingZero);
        EXPECT_EQ(repair->position, 0);
    }
}

TEST(FormulaFieldCheck, RefusesAZeroBehindSomethingElseThanADigit)
{
    for (const QString& text : {u"H0"_s, u"(0"_s, u"{0"_s, u",0"_s, u"+0"_s}) {
        const auto repair = FormulaFieldCheck(text, std::nullopt);
        ASSERT_TRUE(repair.has_value()) << text.toStdString();
        EXPECT_EQ(repair->message, kZeroIndex);
        EXPECT_EQ(repair->position, 1);
    }
}

TEST(FormulaFieldCheck, GoesOnBehindAGoodZeroToTheNextOne)
{
    const auto repair = FormulaFieldCheck(u"H10O0"_s, std::nullopt);
    ASSERT_TRUE(repair.has_value());
    EXPECT_EQ(repair->message, kZeroIndex);
    EXPECT_EQ(repair->position, 4);
}

TEST(FormulaFieldCheck, AcceptsAZeroBehindAZero)
{
    EXPECT_FALSE(FormulaFieldCheck(u"H100"_s, std::nullopt).has_value());
}

TEST(FormulaFieldCheck, RepairsFaultAfterFault)
{
    // "#" goes, then the leading 0, then each 0 behind H.
    EXPECT_EQ(Repaired(u"0H00#O"_s, u'#'), u"HO"_s);
}

} // namespace stoikal
