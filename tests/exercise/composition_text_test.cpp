#include "exercise/composition_text.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <vector>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

QString TextFor(const QString& molecule, int coefficient = 1)
{
    AtomList list;
    const std::vector<SpeciesInput> species{{molecule, coefficient}};
    ComputeComposition(list, species);
    return CompositionText(molecule, list);
}

} // namespace

TEST(CompositionText, TellsWater)
{
    EXPECT_EQ(TextFor(u"H2O"_s),
              u"La molécule H2O est composée de :\n"
              " -->  2 atomes d'hydrogène de symbole H;\n"
              " -->  1 atome d'oxygène de symbole O."_s);
}

TEST(CompositionText, CountsTheCoefficient)
{
    EXPECT_EQ(TextFor(u"H2O"_s, 2),
              u"La molécule H2O est composée de :\n"
              " -->  4 atomes d'hydrogène de symbole H;\n"
              " -->  2 atomes d'oxygène de symbole O."_s);
}

TEST(CompositionText, ShortensBeforeTheseLettersOnly)
{
    // a, e, i, o, u, y, h: argent, einsteinium, iode, or, uranium, yttrium, hélium.
    EXPECT_EQ(TextFor(u"AgEsIAuUYHe"_s),
              u"La molécule AgEsIAuUYHe est composée de :\n"
              " -->  1 atome d'argent de symbole Ag;\n"
              " -->  1 atome d'einsteinium de symbole Es;\n"
              " -->  1 atome d'iode de symbole I;\n"
              " -->  1 atome d'or de symbole Au;\n"
              " -->  1 atome d'uranium de symbole U;\n"
              " -->  1 atome d'yttrium de symbole Y;\n"
              " -->  1 atome d'hélium de symbole He."_s);
}

TEST(CompositionText, DoesNotShortenBeforeAnAccent)
{
    EXPECT_EQ(TextFor(u"Sn"_s),
              u"La molécule Sn est composée de :\n"
              " -->  1 atome de étain de symbole Sn."_s);
}

TEST(CompositionText, TellsFerInFull)
{
    EXPECT_EQ(TextFor(u"Fe3"_s),
              u"La molécule Fe3 est composée de :\n"
              " -->  3 atomes de fer de symbole Fe."_s);
}

TEST(CompositionText, TellsACountOfZeroInThePlural)
{
    // The group has no multiplier, so its atoms count 0.
    EXPECT_EQ(TextFor(u"K(O)"_s),
              u"La molécule K(O) est composée de :\n"
              " -->  1 atome de potassium de symbole K;\n"
              " -->  0 atomes d'oxygène de symbole O."_s);
}

TEST(CompositionText, TellsAnUnknownSymbolAsSuch)
{
    EXPECT_EQ(TextFor(u"Xx"_s),
              u"La molécule Xx est composée de :\n"
              " -->  1 atome de (inconnu) de symbole Xx."_s);
}

TEST(CompositionText, TellsASpeciesWithoutAtoms)
{
    EXPECT_EQ(TextFor(u"]"_s), u"La molécule ] est composée de :."_s);
}
