#include "exercise/species_text.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

SpeciesSlot Slot(const QString& molecule, std::int16_t charge = 0, const QString& state = {})
{
    SpeciesSlot slot;
    slot.Molecule = molecule;
    slot.Charge = charge;
    slot.Etat = state;
    return slot;
}

QString TextOf(const SpeciesSlot& slot)
{
    return FormatSpecies(slot, true, false).text;
}

/// The heights as a row of letters: "." on the line, "v" below, "^" above.
QString Heights(const SpeciesText& species)
{
    QString row;
    for (const CharacterHeight height : species.heights) {
        row += height == CharacterHeight::Subscript  ? u'v'
            : height == CharacterHeight::Superscript ? u'^'
                                                     : u'.';
    }
    return row;
}

} // namespace

TEST(SpeciesText, IsTheFormula)
{
    EXPECT_EQ(TextOf(Slot(u"H2O"_s)), u"H2O"_s);
    EXPECT_EQ(TextOf(Slot(u"Ca(OH)2"_s)), u"Ca(OH)2"_s);
}

TEST(SpeciesText, IsEmptyForAnEmptySlot)
{
    const SpeciesText species = FormatSpecies(Slot(u""_s, 2, u"g"_s), true, true);

    EXPECT_EQ(species.text, u""_s);
    EXPECT_TRUE(species.heights.empty());
}

TEST(SpeciesText, ShowsASingleChargeAsItsSign)
{
    EXPECT_EQ(TextOf(Slot(u"Na"_s, 1)), u"Na+"_s);
    EXPECT_EQ(TextOf(Slot(u"Cl"_s, -1)), u"Cl-"_s);
}

TEST(SpeciesText, ShowsALargerChargeWithItsDigitsInFrontOfTheSign)
{
    EXPECT_EQ(TextOf(Slot(u"Fe"_s, 3)), u"Fe3+"_s);
    EXPECT_EQ(TextOf(Slot(u"SO4"_s, -2)), u"SO42-"_s);
    EXPECT_EQ(TextOf(Slot(u"X"_s, 12)), u"X12+"_s);
}

TEST(SpeciesText, ShowsNoChargeOfANeutralSpecies)
{
    EXPECT_EQ(TextOf(Slot(u"Cu"_s, 0)), u"Cu"_s);
}

TEST(SpeciesText, ShowsNoChargeWhereChargesAreOff)
{
    EXPECT_EQ(FormatSpecies(Slot(u"Fe"_s, 3), false, false).text, u"Fe"_s);
}

TEST(SpeciesText, ShowsTheStateOnAProgressFileOnly)
{
    const SpeciesSlot slot = Slot(u"H2O"_s, 0, u"g"_s);

    EXPECT_EQ(FormatSpecies(slot, true, true).text, u"H2O (g)"_s);
    EXPECT_EQ(FormatSpecies(slot, true, false).text, u"H2O"_s);
    EXPECT_EQ(FormatSpecies(Slot(u"H2O"_s), true, true).text, u"H2O"_s);
}

TEST(SpeciesText, ShowsTheChargeInFrontOfTheState)
{
    EXPECT_EQ(FormatSpecies(Slot(u"Fe"_s, 2, u"aq"_s), true, true).text, u"Fe2+ (aq)"_s);
}

TEST(SpeciesText, SetsDigitsOfTheFormulaBelowTheLine)
{
    EXPECT_EQ(Heights(FormatSpecies(Slot(u"H2O"_s), true, false)), u".v."_s);
    EXPECT_EQ(Heights(FormatSpecies(Slot(u"C12H22O11"_s), true, false)), u".vv.vv.vv"_s);
}

TEST(SpeciesText, SetsTheChargeAboveTheLine)
{
    EXPECT_EQ(Heights(FormatSpecies(Slot(u"SO4"_s, -2), true, false)), u"..v^^"_s); // SO4, 2-
    EXPECT_EQ(Heights(FormatSpecies(Slot(u"Na"_s, 1), true, false)), u"..^"_s);
}

TEST(SpeciesText, SetsASignWithinTheFormulaAboveTheLineToo)
{
    EXPECT_EQ(Heights(FormatSpecies(Slot(u"Cl-2"_s), true, false)), u"..^v"_s);
}

TEST(SpeciesText, SetsTheStateOnTheLineButItsDigitsAbove)
{
    EXPECT_EQ(Heights(FormatSpecies(Slot(u"H2"_s, 0, u"g"_s), true, true)), u".v...."_s); // H2 (g)
    EXPECT_EQ(Heights(FormatSpecies(Slot(u"H2"_s, 0, u"s1"_s), true, true)), u".v...^."_s);
}

} // namespace stoikal
