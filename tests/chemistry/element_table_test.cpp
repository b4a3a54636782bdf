#include "chemistry/element_table.h"

#include "base/number_text.h"
#include "support/qt_printers.h"

#include <QFile>
#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

/// The lines of element_columns.txt, each a column of the table.
enum Column { AtomicNumber, Symbol, Name, Configuration, MolarMass, Colour = 13, Ball };

/// A copy of the table, column by column, made apart from the compiled rows.
const QList<QStringList>& Columns()
{
    static const QList<QStringList> columns = [] {
        QFile file(QStringLiteral(STOIKAL_TEST_DATA) + u"/chemistry/element_columns.txt"_s);
        QList<QStringList> lines;
        if (file.open(QIODevice::ReadOnly)) {
            for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
                lines << line.split(u'|');
        }
        return lines;
    }();
    return columns;
}

/// The copy as a fixture: no test runs on a copy that is not whole.
class ElementColumns : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(Columns().size(), 15);
        for (const QStringList& column : Columns())
            ASSERT_EQ(column.size(), kElementCount);
    }

    static const QString& Cell(int column, int index) { return Columns()[column][index]; }
};

/// The field as a number; a text counts as missing.
struct FieldSum {
    double sum = 0;
    int missing = 0;
};

FieldSum SumOfField(int field)
{
    FieldSum result;
    for (int index = 0; index < kElementCount; ++index) {
        const ElementValue value = ElementField(index, field);
        if (const double* number = std::get_if<double>(&value))
            result.sum += *number;
        else
            ++result.missing;
    }
    return result;
}

QString Decapitalised(QString name)
{
    name[0] = name[0].toLower();
    return name;
}

QString Data(int index, int field, char16_t separator = u'.')
{
    return ElementDataText(index, field, separator);
}

/// Index of an element by its atomic number.
constexpr int Z(int atomicNumber)
{
    return atomicNumber - 1;
}

} // namespace

TEST_F(ElementColumns, GiveTheTextsOfEachRow)
{
    for (int index = 0; index < kElementCount; ++index) {
        EXPECT_EQ(ElementFieldText(index, 1), Cell(Name, index)) << index;
        EXPECT_EQ(ElementFieldText(index, 2), Cell(Symbol, index)) << index;
        EXPECT_EQ(ElementFieldText(index, 3), Cell(Configuration, index)) << index;
        EXPECT_EQ(ElementFieldText(index, 4), Cell(AtomicNumber, index)) << index;
    }
}

TEST_F(ElementColumns, GiveEachNumberAndEachMissingValue)
{
    for (int field = 5; field <= 13; ++field) {
        for (int index = 0; index < kElementCount; ++index) {
            const QString& cell = Cell(MolarMass + field - 5, index);
            const ElementValue expected = cell == u"-"_s ? ElementValue(cell) : ElementValue(cell.toDouble());
            EXPECT_TRUE(ElementField(index, field) == expected) << "index " << index << ", field " << field;
        }
    }
}

TEST_F(ElementColumns, GiveTheColourWithBlueInTheHighByte)
{
    for (int index = 0; index < kElementCount; ++index) {
        const std::uint32_t colour = Cell(Colour, index).toUInt(nullptr, 16);
        EXPECT_TRUE(ElementField(index, 0) == ElementValue(static_cast<double>(colour))) << index;
        EXPECT_EQ(ElementBySymbol(Cell(Symbol, index)).colour, colour) << index;
    }
    // Oxygen is red: FF in the low byte.
    EXPECT_EQ(ElementBySymbol(u"O"_s).colour, 0x0D0DFFu);
}

TEST_F(ElementColumns, GiveTheBallRadiusAndTheSmallName)
{
    const QHash<int, QString> ownNames{
        {50, u"étain"_s}, {97, u"berkélium"_s}, {101, u"mendélévium"_s}, {102, u"nobélium"_s}};
    for (int index = 0; index < kElementCount; ++index) {
        const ElementBall ball = ElementBySymbol(Cell(Symbol, index));
        EXPECT_EQ(ball.ballRadius, Cell(Ball, index).toDouble()) << index;
        EXPECT_EQ(ball.name, ownNames.value(index + 1, Decapitalised(Cell(Name, index)))) << index;
    }
}

TEST_F(ElementColumns, GiveTheNameOfEachKnownColourBetweenBlanks)
{
    const QHash<int, QString> ownNames{{50, u"étain"_s}, {71, u"lutécium"_s}, {101, u"mendelevium"_s}};
    for (int index = 0; index < kKnownAtomCount; ++index) {
        const QString name = ownNames.value(index + 1, Decapitalised(Cell(Name, index)));
        EXPECT_EQ(ElementNameByColour(Cell(Colour, index).toUInt(nullptr, 16)), u" %1 "_s.arg(name)) << index;
    }
}

TEST_F(ElementColumns, GiveTheSymbolItsIndexAndItsMolarMass)
{
    for (int index = 0; index < kElementCount; ++index) {
        EXPECT_EQ(ElementSymbol(index), Cell(Symbol, index));
        EXPECT_EQ(ElementIndex(Cell(Symbol, index)), index);
        EXPECT_EQ(ElementMolarMass(index), Cell(MolarMass, index).toDouble()) << index;
    }
}

// The sums and the numbers of missing values were taken from the table itself,
// in exact decimal arithmetic.
TEST(ElementTable, AddsUpInEveryNumericField)
{
    EXPECT_EQ(SumOfField(0).sum, 1083762598.0);
    EXPECT_EQ(SumOfField(4).sum, 7021.0); // 118 x 119 / 2.
    EXPECT_NEAR(SumOfField(5).sum, 17257.0725432, 1e-8);
    EXPECT_NEAR(SumOfField(6).sum, 156.40, 1e-8);
    EXPECT_NEAR(SumOfField(7).sum, 2505.5888679, 1e-8);
    EXPECT_NEAR(SumOfField(8).sum, 101235.76, 1e-7);
    EXPECT_NEAR(SumOfField(9).sum, 185928.73, 1e-7);
    EXPECT_NEAR(SumOfField(10).sum, 12.8205, 1e-8);
    EXPECT_NEAR(SumOfField(11).sum, 7.347, 1e-8);
    EXPECT_EQ(SumOfField(12).sum, 199.0);
    EXPECT_NEAR(SumOfField(13).sum, 71776.3, 1e-7);
    double balls = 0;
    for (int index = 0; index < kElementCount; ++index)
        balls += ElementBySymbol(ElementSymbol(index)).ballRadius;
    EXPECT_NEAR(balls, 182.52, 1e-8);
}

TEST(ElementTable, LacksAsManyValuesAsTheTable)
{
    EXPECT_EQ(SumOfField(5).missing, 0);
    EXPECT_EQ(SumOfField(6).missing, 23);
    EXPECT_EQ(SumOfField(7).missing, 25);
    EXPECT_EQ(SumOfField(8).missing, 16);
    EXPECT_EQ(SumOfField(9).missing, 29);
    EXPECT_EQ(SumOfField(10).missing, 43);
    EXPECT_EQ(SumOfField(11).missing, 54);
    EXPECT_EQ(SumOfField(12).missing, 21);
    EXPECT_EQ(SumOfField(13).missing, 28);
}

TEST(ElementTable, KeepsTheSlipsOfItsData)
{
    EXPECT_EQ(ElementFieldText(Z(15), 3), u"[He]3s2 3p3"_s); // P
    EXPECT_EQ(ElementFieldText(Z(23), 3), u"[He]3d3 4s2"_s); // V
    EXPECT_EQ(ElementFieldText(Z(24), 3), u"[Ar]3d4 4s2"_s); // Cr
    EXPECT_EQ(ElementFieldText(Z(32), 3), u"[Ar]3d10 4s2 4p1"_s); // Ge
    EXPECT_EQ(ElementFieldText(Z(33), 3), u"[Ar]3d10 4s2 4p1"_s); // As
    EXPECT_EQ(ElementFieldText(Z(46), 3), u"[Kr]4d10 5s0"_s); // Pd
    EXPECT_EQ(ElementFieldText(Z(56), 3), u"[Kr]6s2"_s); // Ba
    EXPECT_EQ(ElementFieldText(Z(18), 7), u"1780"_s); // Ar
    EXPECT_EQ(ElementFieldText(Z(7), 7), u"1.25"_s); // N
    EXPECT_EQ(ElementFieldText(Z(8), 7), u"1.429"_s); // O
    EXPECT_EQ(ElementFieldText(Z(33), 8), u"817"_s); // As melts above ...
    EXPECT_EQ(ElementFieldText(Z(33), 9), u"614"_s); // ... its boiling point.
    EXPECT_EQ(ElementFieldText(Z(6), 11), u"0.26"_s); // C
    EXPECT_EQ(ElementFieldText(Z(45), 10), u"0"_s); // Rh
    EXPECT_EQ(ElementFieldText(Z(45), 12), u"-"_s);
    EXPECT_EQ(ElementFieldText(Z(101), 8), u"827"_s); // Md
    EXPECT_EQ(ElementFieldText(Z(102), 8), u"827"_s); // No
}

TEST(ElementField, CountsTheAtomicNumberFromOne)
{
    EXPECT_TRUE(ElementField(0, 4) == ElementValue(1.0));
    EXPECT_TRUE(ElementField(117, 4) == ElementValue(118.0));
}

TEST(ElementField, AnswersAnUnknownIndexWithTheUnknownRow)
{
    for (const int index : {-1, 118, 32767, -32768}) {
        EXPECT_TRUE(ElementField(index, 0) == ElementValue(1234567.0)) << index;
        for (int field = 1; field <= 13; ++field)
            EXPECT_TRUE(ElementField(index, field) == ElementValue(u"inconnu"_s)) << index << ' ' << field;
    }
    EXPECT_EQ(ElementFieldText(118, 0), u"1234567"_s);
    EXPECT_EQ(ElementFieldText(118, 4), u"inconnu"_s);
}

TEST(ElementField, AnswersAnUnknownFieldWithATextToo)
{
    EXPECT_TRUE(ElementField(0, 14) == ElementValue(u"inconnu"_s));
    EXPECT_TRUE(ElementField(0, -1) == ElementValue(u"inconnu"_s));
}

TEST(ElementField, HoldsADashForAMissingNumber)
{
    EXPECT_TRUE(ElementField(1, 6) == ElementValue(u"-"_s)); // Helium's electronegativity.
    EXPECT_TRUE(ElementField(117, 12) == ElementValue(u"-"_s));
}

TEST(ElementFieldText, WritesNumbersInTheirShortestForm)
{
    EXPECT_EQ(ElementFieldText(Z(3), 6), u"1"_s); // 1.0
    EXPECT_EQ(ElementFieldText(Z(1), 7), u"0.0000899"_s); // 8.99e-05
    EXPECT_EQ(ElementFieldText(Z(9), 5), u"18.9984032"_s);
    EXPECT_EQ(ElementFieldText(Z(7), 8), u"-210"_s);
    EXPECT_EQ(ElementFieldText(Z(1), 0), u"16777215"_s); // FFFFFF
}

TEST(ElementDataText, ShowsIronWithTheUnitsAndTheSystemsSeparator)
{
    const QStringList expected{u"Fer"_s,          u"Fe"_s,       u"[Ar]3d6 4s2"_s, u"26"_s,
                               u"55,845 g/mol"_s, u"1,8"_s,      u"7,80 g/cm3"_s,  u"1538,0 °C"_s,
                               u"2861,0 °C"_s,    u"0,126 nm"_s, u"0,076 nm"_s,    u"0"_s,
                               u"761,0 kJ/mol"_s};
    for (int field = 1; field <= 13; ++field)
        EXPECT_EQ(Data(Z(26), field, u','), expected[field - 1]) << field;
}

TEST(ElementDataText, ShowsAMissingNumberAsADashBeforeTheUnit)
{
    // Uuo has a molar mass and nothing more.
    const QStringList expected{u"Ununoctium"_s, u"Uuo"_s,       u"[Rn]5f14 6d10 7s2 7p6"_s,
                               u"118"_s,        u"294 g/mol"_s, u"-"_s,
                               u"- g/cm3"_s,    u"- °C"_s,      u"- °C"_s,
                               u"- nm"_s,       u"- nm"_s,      u"-"_s,
                               u"- kJ/mol"_s};
    for (int field = 1; field <= 13; ++field)
        EXPECT_EQ(Data(117, field), expected[field - 1]) << field;
}

TEST(ElementDataText, ShowsTheUnknownRowAsInconnuBeforeTheUnit)
{
    const QStringList expected{u"inconnu"_s,       u"inconnu"_s,    u"inconnu"_s,       u"inconnu"_s,
                               u"inconnu g/mol"_s, u"inconnu"_s,    u"inconnu g/cm3"_s, u"inconnu °C"_s,
                               u"inconnu °C"_s,    u"inconnu nm"_s, u"inconnu nm"_s,    u"inconnu"_s,
                               u"inconnu kJ/mol"_s};
    for (int field = 1; field <= 13; ++field)
        EXPECT_EQ(Data(118, field), expected[field - 1]) << field;
}

TEST(ElementDataText, ShowsADensityBelowAHundredthInThousandths)
{
    EXPECT_EQ(Data(Z(1), 7), u"0.09.001 g/cm3"_s); // 8.99e-05 x 1000 = 0.0899
    EXPECT_EQ(Data(Z(2), 7), u"0.18.001 g/cm3"_s); // 0.000178 x 1000 = 0.178
    EXPECT_EQ(Data(Z(9), 7), u"1.80.001 g/cm3"_s); // 0.0018 x 1000 = 1.8
    EXPECT_EQ(Data(Z(17), 7), u"3.21.001 g/cm3"_s); // 0.00321 x 1000 = 3.21
}

TEST(ElementDataText, JudgesTheDensityAsFormatted)
{
    EXPECT_EQ(Data(Z(86), 7), u"0.01 g/cm3"_s); // Radon: 0.00996 formats to 0.01, not below it.
    EXPECT_EQ(Data(Z(18), 7), u"1780.00 g/cm3"_s);
}

TEST(ElementDataText, LeavesTheFixedThousandthAsItStandsUnderAComma)
{
    EXPECT_EQ(Data(Z(1), 7, u','), u"0,09.001 g/cm3"_s);
    EXPECT_EQ(Data(Z(86), 7, u','), u"0,01 g/cm3"_s);
}

TEST(ElementDataText, RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(Data(Z(15), 8), u"44.2 °C"_s); // 44.15
    EXPECT_EQ(Data(Z(18), 8), u"-189.4 °C"_s); // -189.35
    EXPECT_EQ(Data(Z(73), 10), u"0.143 nm"_s); // 0.1425
}

TEST(ElementDataText, ShowsTheZeroRadiusOfRhodium)
{
    EXPECT_EQ(Data(Z(45), 10), u"0.000 nm"_s);
}

TEST(ElementIndex, CountsCaseAndLength)
{
    EXPECT_EQ(ElementIndex(u"H"), 0);
    EXPECT_EQ(ElementIndex(u"Uuo"), 117);
    for (const char16_t* symbol :
         {u"", u"h", u"HE", u"He ", u" H", u"Hyd", u"Uuoo", u"J", u"é", u"@", u"[", u"N`", u"N{"})
        EXPECT_EQ(ElementIndex(symbol), -1) << QString::fromUtf16(symbol).toStdString();
    EXPECT_EQ(ElementIndex(QString(QChar(u'\0')) + u'H'), -1);
}

TEST(ElementBySymbol, AnswersAnyOtherSymbolAsUnknown)
{
    for (const QString& symbol : {u"h"_s, u""_s, u"Xx"_s, u"Hydrogène"_s}) {
        const ElementBall ball = ElementBySymbol(symbol);
        EXPECT_EQ(ball.name, u"(inconnu)"_s);
        EXPECT_EQ(ball.colour, 1234567u);
        EXPECT_EQ(ball.ballRadius, 1.43);
    }
}

TEST(ElementNames, DifferBetweenTheThreeLists)
{
    struct Row {
        const char16_t *symbol, *field, *bySymbol, *byColour;
    };
    for (const Row& row :
         {Row{u"Sn", u"Etain", u"étain", u" étain "}, Row{u"Lu", u"Lutétium", u"lutétium", u" lutécium "},
          Row{u"Bk", u"Berkelium", u"berkélium", u" berkelium "},
          Row{u"Md", u"Medelevium", u"mendélévium", u" mendelevium "},
          Row{u"No", u"Nobelium", u"nobélium", u" nobelium "}}) {
        const ElementBall ball = ElementBySymbol(QString::fromUtf16(row.symbol));
        EXPECT_EQ(ElementFieldText(ElementIndex(row.symbol), 1), QString::fromUtf16(row.field));
        EXPECT_EQ(ball.name, QString::fromUtf16(row.bySymbol));
        EXPECT_EQ(ElementNameByColour(ball.colour), QString::fromUtf16(row.byColour));
    }
}

TEST(ElementNameByColour, IsExactForTheKnownAtoms)
{
    QSet<std::uint32_t> colours;
    for (int index = 0; index < kKnownAtomCount; ++index)
        colours << ElementBySymbol(ElementSymbol(index)).colour;
    EXPECT_EQ(colours.size(), 109);
    EXPECT_FALSE(colours.contains(1234567));
}

TEST(ElementNameByColour, PutsBlanksAroundKnownAtomsOnly)
{
    EXPECT_EQ(ElementNameByColour(0xFFFFFF), u" hydrogène "_s);
    EXPECT_EQ(ElementNameByColour(0x2600EB), u" meitnerium "_s);
    EXPECT_EQ(ElementNameByColour(0x12D687), u"darmstadtium"_s);
}

TEST(ElementNameByColour, NamesDarmstadtiumForTheNineSharedColours)
{
    for (int index = kKnownAtomCount; index < kElementCount; ++index)
        EXPECT_EQ(ElementNameByColour(ElementBySymbol(ElementSymbol(index)).colour), u"darmstadtium"_s)
            << index;
}

TEST(ElementNameByColour, AnswersAColourOfNoElementAsUnknown)
{
    EXPECT_EQ(ElementNameByColour(0x000001), u" (inconnu) "_s);
    EXPECT_EQ(ElementNameByColour(0), u" (inconnu) "_s);
}

TEST(ElementLookUps, AnswerOutsideTheTable)
{
    EXPECT_EQ(ElementSymbol(-1), u"inconnu"_s);
    EXPECT_EQ(ElementSymbol(118), u"inconnu"_s);
    EXPECT_EQ(ElementMolarMass(-1), 0);
    EXPECT_EQ(ElementMolarMass(118), 0);
}

} // namespace stoikal
