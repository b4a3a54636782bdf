#include "exercise/atom_list.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

/// A place of a list.
struct Atom {
    QString symbol;
    int unit = 0;
    int total = 0;

    bool operator==(const Atom&) const = default;
};

void PrintTo(const Atom& atom, std::ostream* out)
{
    *out << atom.symbol.toStdString() << ' ' << atom.unit << ' ' << atom.total;
}

using Atoms = std::vector<Atom>;

/// All places in use, wherever they stand.
Atoms AtomsOf(const AtomList& list)
{
    Atoms atoms;
    for (std::size_t i = 0; i < list.Symbol.size(); ++i) {
        if (!list.Symbol[i].isEmpty())
            atoms.push_back({list.Symbol[i], list.UnitCount[i], list.TotalCount[i]});
    }
    return atoms;
}

Atoms Composition(const std::vector<SpeciesInput>& species)
{
    AtomList list;
    ComputeComposition(list, species);
    EXPECT_EQ(static_cast<std::size_t>(list.Kinds), AtomsOf(list).size());
    return AtomsOf(list);
}

Atoms Composition(const QString& formula)
{
    return Composition({{formula, 1}});
}

/// A list with these symbols, the totals counted from 1.
AtomList ListOf(const QStringList& symbols)
{
    AtomList list;
    for (std::size_t i = 0; i < static_cast<std::size_t>(symbols.size()); ++i) {
        list.Symbol[i] = symbols[static_cast<qsizetype>(i)];
        list.UnitCount[i] = static_cast<std::int16_t>(10 * (i + 1));
        list.TotalCount[i] = static_cast<std::int16_t>(i + 1);
    }
    list.Kinds = static_cast<int>(symbols.size());
    return list;
}

} // namespace

// Atoms, indices, species.

TEST(AtomScanner, CountsAtomsInOrderOfAppearance)
{
    EXPECT_EQ(Composition(u"H2O"_s), (Atoms{{u"H"_s, 2, 2}, {u"O"_s, 1, 1}}));
    EXPECT_EQ(Composition(u"NaCl"_s), (Atoms{{u"Na"_s, 1, 1}, {u"Cl"_s, 1, 1}}));
}

TEST(AtomScanner, LeavesTheCoefficientOutOfTheUnitCount)
{
    // Total = unit times 2.
    EXPECT_EQ(Composition({{u"C12H22O11"_s, 2}}),
              (Atoms{{u"C"_s, 12, 24}, {u"H"_s, 22, 44}, {u"O"_s, 11, 22}}));
}

TEST(AtomScanner, AddsRepeatedAtomsToTheirFirstPlace)
{
    // C 1+1, H 3+1, O 1+1.
    EXPECT_EQ(Composition(u"CH3COOH"_s), (Atoms{{u"C"_s, 2, 2}, {u"H"_s, 4, 4}, {u"O"_s, 2, 2}}));
}

TEST(AtomScanner, LeavesNoRepeatOfAnAtomThatStandsSeveralTimesInARow)
{
    EXPECT_EQ(Composition(u"OHHHO"_s), (Atoms{{u"O"_s, 2, 2}, {u"H"_s, 3, 3}}));
}

TEST(AtomScanner, SumsTheSpeciesOfASide)
{
    // O: units 3 + 2 = 5; totals 3x2 + 2x3 = 12.
    EXPECT_EQ(Composition({{u"Fe2O3"_s, 2}, {u"O2"_s, 3}}), (Atoms{{u"Fe"_s, 2, 4}, {u"O"_s, 5, 12}}));
}

TEST(AtomScanner, PassesOverEmptySlots)
{
    EXPECT_EQ(Composition({{u""_s, 1}, {u"H2"_s, 1}, {u""_s, 1}}), (Atoms{{u"H"_s, 2, 2}}));
    EXPECT_EQ(Composition(u""_s), Atoms{});
}

TEST(AtomScanner, ForgetsWhatTheListHeld)
{
    AtomList list;
    const std::vector<SpeciesInput> acid{{u"H2SO4"_s, 2}};
    const std::vector<SpeciesInput> neon{{u"Ne"_s, 1}};
    ComputeComposition(list, acid);

    ComputeComposition(list, neon);

    EXPECT_EQ(AtomsOf(list), (Atoms{{u"Ne"_s, 1, 1}}));
    EXPECT_EQ(list.Kinds, 1);
    EXPECT_EQ(list.TotalCount[1], 0);
}

TEST(AtomScanner, CaseTellsCobaltFromCarbonAndOxygen)
{
    EXPECT_EQ(Composition(u"Co"_s), (Atoms{{u"Co"_s, 1, 1}}));
    EXPECT_EQ(Composition(u"CO"_s), (Atoms{{u"C"_s, 1, 1}, {u"O"_s, 1, 1}}));
}

TEST(AtomScanner, SymbolTakesAllSmallLetters)
{
    EXPECT_EQ(Composition(u"Hxyz2O"_s), (Atoms{{u"Hxyz"_s, 2, 2}, {u"O"_s, 1, 1}}));
}

TEST(AtomScanner, IndexHasTwoDigitsAtMost)
{
    EXPECT_EQ(Composition(u"C12"_s), (Atoms{{u"C"_s, 12, 12}}));
    // 12, then 3 as a new index.
    EXPECT_EQ(Composition(u"C123"_s), (Atoms{{u"C"_s, 3, 3}}));
    // 10, then 0 as a new index.
    EXPECT_EQ(Composition(u"H100"_s), (Atoms{{u"H"_s, 0, 0}}));
}

TEST(AtomScanner, IndexWithALeadingZeroIsReadTwice)
{
    // "07" is 7, one digit, so the 7 is met again and is 7 again.
    EXPECT_EQ(Composition(u"H07O"_s), (Atoms{{u"H"_s, 7, 7}, {u"O"_s, 1, 1}}));
}

TEST(AtomScanner, CharactersWithoutARuleLeaveNoTrace)
{
    EXPECT_EQ(Composition(u"H-O+é]"_s), (Atoms{{u"H"_s, 1, 1}, {u"O"_s, 1, 1}}));
    EXPECT_EQ(Composition(u"H 2"_s), (Atoms{{u"H"_s, 2, 2}}));
}

TEST(AtomScanner, SquareBracketRaisesNoUnknownSymbol)
{
    AtomList list;
    const std::vector<SpeciesInput> species{{u"K3[Fe(CN)6]"_s, 1}};

    ComputeComposition(list, species);

    EXPECT_EQ(AtomsOf(list), (Atoms{{u"K"_s, 3, 3}, {u"Fe"_s, 1, 1}, {u"C"_s, 6, 6}, {u"N"_s, 6, 6}}));
    EXPECT_EQ(UnknownSymbols(list), QStringList());
}

TEST(AtomScanner, HydrateFactorBecomesTheIndexOfTheLetterBefore)
{
    // O: 4, then 5 from ",5", then 1 more from the water: 5 + 1.
    EXPECT_EQ(Composition(u"CuSO4,5H2O"_s),
              (Atoms{{u"Cu"_s, 1, 1}, {u"S"_s, 1, 1}, {u"O"_s, 6, 6}, {u"H"_s, 2, 2}}));
}

TEST(AtomScanner, SmallLetterBeforeTheFirstAtomOfASideIsAFault)
{
    EXPECT_THROW(Composition(u"cO"_s), FatalFault);
    EXPECT_THROW(Composition({{u""_s, 1}, {u"cO"_s, 1}}), FatalFault);
    EXPECT_THROW(Composition(u"(h)2"_s), FatalFault);
}

TEST(AtomScanner, DigitBeforeTheFirstAtomOfASideIsAFault)
{
    EXPECT_THROW(Composition(u"2H"_s), FatalFault);
}

TEST(AtomScanner, SmallLetterBeginningALaterSpeciesJoinsTheAtomBefore)
{
    EXPECT_EQ(Composition({{u"H"_s, 1}, {u"eO"_s, 1}}), (Atoms{{u"He"_s, 1, 1}, {u"O"_s, 1, 1}}));
}

// Groups.

TEST(AtomGroups, MultiplyTheirAtoms)
{
    EXPECT_EQ(Composition({{u"Ca(OH)2"_s, 3}}), (Atoms{{u"Ca"_s, 1, 3}, {u"O"_s, 2, 6}, {u"H"_s, 2, 6}}));
}

TEST(AtomGroups, MultiplyTheirIndices)
{
    // H: 4 x 2 = 8.
    EXPECT_EQ(Composition(u"(NH4)2SO4"_s),
              (Atoms{{u"N"_s, 2, 2}, {u"H"_s, 8, 8}, {u"S"_s, 1, 1}, {u"O"_s, 4, 4}}));
}

TEST(AtomGroups, TakeAllDigitsBehindThem)
{
    // H: 2 x 12 = 24; its second digit passes over the ")".
    EXPECT_EQ(Composition(u"(CH2)12O"_s), (Atoms{{u"C"_s, 12, 12}, {u"H"_s, 24, 24}, {u"O"_s, 1, 1}}));
}

TEST(AtomGroups, MayFollowOneAnother)
{
    // N: 4, then 2 more.
    EXPECT_EQ(Composition(u"(N)4(NO2)2"_s), (Atoms{{u"N"_s, 6, 6}, {u"O"_s, 4, 4}}));
}

TEST(AtomGroups, WithoutDigitsCountZeroAndJumpACharacter)
{
    // O and H are 0; the C behind ")" is jumped, and the l joins the H.
    EXPECT_EQ(Composition(u"Mg(OH)Cl"_s), (Atoms{{u"Mg"_s, 1, 1}, {u"O"_s, 0, 0}, {u"Hl"_s, 0, 0}}));
}

TEST(AtomGroups, WithoutDigitsAtTheEndCountZero)
{
    EXPECT_EQ(Composition(u"Mg(OH)"_s), (Atoms{{u"Mg"_s, 1, 1}, {u"O"_s, 0, 0}, {u"H"_s, 0, 0}}));
}

TEST(AtomGroups, WithoutEndTakeTheRestTimesZero)
{
    EXPECT_EQ(Composition(u"Mg(O12H"_s), (Atoms{{u"Mg"_s, 1, 1}, {u"O"_s, 0, 0}, {u"H"_s, 0, 0}}));
    EXPECT_EQ(Composition(u"Mg("_s), (Atoms{{u"Mg"_s, 1, 1}}));
}

TEST(AtomGroups, DigitsOfTheProductJumpOverTheNextLetter)
{
    // C: 5 x 2 = 10, two digits, so the H is jumped; then 2 x 2 = 4 for the C.
    EXPECT_EQ(Composition(u"(C5H2)2"_s), (Atoms{{u"C"_s, 4, 4}}));
}

TEST(AtomGroups, DigitsOfTheProductMayJumpTwoCharacters)
{
    // C: 5 x 20 = 100, three digits: N and O are jumped. F: 20.
    EXPECT_EQ(Composition(u"(C5NOF)20"_s), (Atoms{{u"C"_s, 100, 100}, {u"F"_s, 20, 20}}));
}

TEST(AtomGroups, JumpInsideAGroupDoesNotPassItsMultiplier)
{
    // C: 5 x 20 = 100: ")" is passed, but the digits behind are the multiplier's.
    EXPECT_EQ(Composition(u"(C5)20H"_s), (Atoms{{u"C"_s, 100, 100}, {u"H"_s, 1, 1}}));
}

TEST(AtomGroups, EndAtTheFirstClosingBracket)
{
    // The group is "(OH" times 2; the last 3 is an index of H.
    EXPECT_EQ(Composition(u"Al((OH)2)3"_s), (Atoms{{u"Al"_s, 1, 1}, {u"O"_s, 2, 2}, {u"H"_s, 3, 3}}));
}

// Limits.

TEST(AtomListLimits, ElevenKindsFit)
{
    const Atoms atoms = Composition(u"HHeLiBeBCNOFNeNa2"_s);

    ASSERT_EQ(atoms.size(), 11U);
    EXPECT_EQ(atoms.back(), (Atom{u"Na"_s, 2, 2}));
}

TEST(AtomListLimits, ATwelfthKindIsAFault)
{
    EXPECT_THROW(Composition(u"HHeLiBeBCNOFNeNaMg"_s), FatalFault);
    EXPECT_THROW(Composition({{u"HHeLiBeBCNOFNeNa"_s, 1}, {u"Mg"_s, 1}}), FatalFault);
}

TEST(AtomListLimits, TwelveAtomsOfAFormulaAreAFaultBeforeEqualOnesAreMerged)
{
    EXPECT_EQ(Composition(u"HHHHHHHHHHH"_s), (Atoms{{u"H"_s, 11, 11}}));
    EXPECT_THROW(Composition(u"HHHHHHHHHHHH"_s), FatalFault);
}

TEST(AtomListLimits, ElevenKindsLeaveNoRoomForARepeatOfASecondSpecies)
{
    EXPECT_THROW(Composition({{u"HHeLiBeBCNOFNeNa"_s, 1}, {u"H"_s, 1}}), FatalFault);
}

TEST(AtomListLimits, EqualAtomsOfSeveralSpeciesNeedOnePlace)
{
    EXPECT_EQ(Composition({{u"HHHHHHHHHH"_s, 1}, {u"HHHHHHHHHH"_s, 1}}), (Atoms{{u"H"_s, 20, 20}}));
}

TEST(AtomListLimits, CountsOutsideSixteenBitsAreFaults)
{
    // 99 x 330 = 32670 fits, 99 x 331 = 32769 does not.
    EXPECT_EQ(Composition(u"(H99)330"_s)[0].unit, 32670);
    EXPECT_THROW(Composition(u"(H99)331"_s), FatalFault);
    // The total: 32670 x 2.
    EXPECT_THROW(Composition({{u"(H99)330"_s, 2}}), FatalFault);
    // The sum: 32670 + 99.
    EXPECT_THROW(Composition({{u"(H99)330"_s, 1}, {u"H99"_s, 1}}), FatalFault);
    // The multiplier.
    EXPECT_EQ(Composition(u"(H)32767"_s)[0].unit, 32767);
    EXPECT_THROW(Composition(u"(H)32768"_s), FatalFault);
}

// Alignment of the two sides.

TEST(AtomAlignment, KeepsReactantOrder)
{
    AtomList reactants = ListOf({u"C"_s, u"H"_s, u"O"_s});
    AtomList products = ListOf({u"O"_s, u"C"_s, u"H"_s});

    AlignAtomLists(reactants, products);

    EXPECT_EQ(AtomsOf(reactants), (Atoms{{u"C"_s, 10, 1}, {u"H"_s, 20, 2}, {u"O"_s, 30, 3}}));
    EXPECT_EQ(AtomsOf(products), (Atoms{{u"C"_s, 20, 2}, {u"H"_s, 30, 3}, {u"O"_s, 10, 1}}));
}

TEST(AtomAlignment, PutsAnElementOfTheProductsAloneBehind)
{
    AtomList reactants = ListOf({u"H"_s});
    AtomList products = ListOf({u"O"_s, u"N"_s, u"H"_s});

    AlignAtomLists(reactants, products);

    EXPECT_EQ(AtomsOf(products), (Atoms{{u"H"_s, 30, 3}, {u"N"_s, 20, 2}, {u"O"_s, 10, 1}}));
}

TEST(AtomAlignment, EmptyPlacesTakeNoPart)
{
    AtomList reactants = ListOf({u"H"_s, u"O"_s});
    AtomList products = ListOf({u"N"_s, u"O"_s, u"Cl"_s, u"K"_s});

    AlignAtomLists(reactants, products);

    EXPECT_EQ(products.Symbol[0], u"N"_s);
    EXPECT_EQ(products.Symbol[1], u"O"_s);
    EXPECT_EQ(products.Symbol[2], u"Cl"_s);
    EXPECT_EQ(products.Symbol[3], u"K"_s);
}

TEST(AtomAlignment, LeavesPlacesInUseTogether)
{
    AtomList reactants = ListOf({u"H"_s, u"N"_s, u"O"_s, u"Cl"_s});
    AtomList products = ListOf({u"Cl"_s, u"H"_s});

    AlignAtomLists(reactants, products);

    EXPECT_EQ(products.Symbol[0], u"H"_s);
    EXPECT_EQ(products.Symbol[1], u"Cl"_s);
    EXPECT_EQ(products.Symbol[3], u""_s);
    EXPECT_EQ(products.Kinds, 2);
}

TEST(AtomAlignment, AlignsFullLists)
{
    const QStringList symbols{u"H"_s, u"He"_s, u"Li"_s, u"Be"_s, u"B"_s, u"C"_s,
                              u"N"_s, u"O"_s,  u"F"_s,  u"Ne"_s, u"Na"_s};
    QStringList reversed = symbols;
    std::reverse(reversed.begin(), reversed.end());
    AtomList reactants = ListOf(symbols);
    AtomList products = ListOf(reversed);

    AlignAtomLists(reactants, products);

    EXPECT_EQ(products.Symbol, reactants.Symbol);
    EXPECT_EQ(products.TotalCount[0], 11);
    EXPECT_EQ(products.TotalCount[10], 1);
}

// Unknown symbols.

TEST(UnknownSymbol, IsFoundInTheOrderOfTheList)
{
    EXPECT_EQ(UnknownSymbols(ListOf({u"Hl"_s, u"O"_s, u"Xx"_s})), (QStringList{u"Hl"_s, u"Xx"_s}));
}

TEST(UnknownSymbol, IsADarmstadtiumToo)
{
    EXPECT_EQ(UnknownSymbols(ListOf({u"Mt"_s, u"Ds"_s})), QStringList{u"Ds"_s});
}

TEST(UnknownSymbol, IsToldWithTheNameOfTheFile)
{
    EXPECT_EQ(UnknownSymbolTitle(u"Serie.Equ"_s), u"Stoikal - Erreur dans le fichier Serie.Equ"_s);
    EXPECT_EQ(UnknownSymbolText(u"Serie.Equ"_s, u"Xx"_s),
              u"Il existe une erreur dans le fichier d'équations : Serie.Equ\n"
              "\n"
              "Le symbole de l'atome suivant 'Xx' est incorrect.\n"
              "Veuillez corriger ce fichier."_s);
}

TEST(UnknownSymbol, IsToldTrimmedAndWithAnyFileName)
{
    EXPECT_EQ(UnknownSymbolText(u"%2.Equ"_s, u" Xx "_s),
              u"Il existe une erreur dans le fichier d'équations : %2.Equ\n"
              "\n"
              "Le symbole de l'atome suivant 'Xx' est incorrect.\n"
              "Veuillez corriger ce fichier."_s);
}
