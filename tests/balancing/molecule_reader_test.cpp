#include "balancing/molecule_reader.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

/// "H 2, O 1" in the order of the tally.
QString Atoms(const QString& formula)
{
    const AtomTally tally = ParseMolecule(formula).tally;
    QStringList atoms;
    for (int place = 0; place < tally.Used(); ++place) {
        const auto at = static_cast<std::size_t>(place);
        atoms << tally.symbols[at] + u' ' + QString::number(tally.counts[at]);
    }
    return atoms.join(u", "_s);
}

int Charge(const QString& formula)
{
    return ParseMolecule(formula).charge;
}

bool IsRefused(const QString& formula)
{
    return ParseMolecule(formula).hasLowerCaseStart;
}

const QString kTenAtoms = u"HHeLiBeBCNOFNe"_s;

} // namespace

TEST(ParseMolecule, CountsAtomsInTheOrderOfFirstAppearance)
{
    EXPECT_EQ(Atoms(u"H2O"_s), u"H 2, O 1"_s);
    EXPECT_EQ(Atoms(u"CH3COOH"_s), u"C 2, H 4, O 2"_s);
    EXPECT_EQ(Atoms(u"NaCl"_s), u"Na 1, Cl 1"_s);
    EXPECT_FALSE(IsRefused(u"H2O"_s));
}

TEST(ParseMolecule, FindsNothingInAnEmptyFormula)
{
    EXPECT_EQ(Atoms(u""_s), u""_s);
    EXPECT_EQ(Charge(u""_s), 0);
    EXPECT_FALSE(IsRefused(u""_s));
}

TEST(ParseMolecule, TakesAllSmallLettersIntoTheSymbolAndChecksNone)
{
    EXPECT_EQ(Atoms(u"Hxyz2Xx"_s), u"Hxyz 2, Xx 1"_s);
    EXPECT_EQ(Atoms(u"AB3Ds"_s), u"A 1, B 3, Ds 1"_s);
    EXPECT_FALSE(IsRefused(u"Hxyz2Xx"_s));
}

TEST(ParseMolecule, ReadsAnIndexOfAnyLengthZeroAsOne)
{
    EXPECT_EQ(Atoms(u"C120H1234O0N007"_s), u"C 120, H 1234, O 1, N 7"_s);
}

TEST(ParseMolecule, TakesASignBehindASymbolIntoTheIndex)
{
    EXPECT_EQ(Atoms(u"Cl-2"_s), u"Cl -2"_s);
    EXPECT_EQ(Atoms(u"Na+2"_s), u"Na 2"_s);
}

TEST(ParseMolecule, RoundsABrokenIndexToEven)
{
    EXPECT_EQ(Atoms(u"H1.5O2.5"_s), u"H 2, O 2"_s);
}

TEST(ParseMolecule, MultipliesGroups)
{
    EXPECT_EQ(Atoms(u"Ca3(PO4)2"_s), u"Ca 3, P 2, O 8"_s);
    // ((AB)2C)3: A and B 2 x 3, C 3.
    EXPECT_EQ(Atoms(u"((AB)2C)3"_s), u"A 6, B 6, C 3"_s);
    // C 2 x 4 x 3, N 2 x 3, O 3 behind the inner groups, F outside.
    EXPECT_EQ(Atoms(u"(((C2)4N2)3O3)F"_s), u"C 24, N 6, O 3, F 1"_s);
}

TEST(ParseMolecule, ReadsAGroupWithoutAnIndexOnce)
{
    EXPECT_EQ(Atoms(u"Mg(OH)Cl"_s), u"Mg 1, O 1, H 1, Cl 1"_s);
    EXPECT_EQ(Atoms(u"(C5H2)2"_s), u"C 10, H 4"_s);
}

TEST(ParseMolecule, ReadsAnUnbalancedOpenerAsOne)
{
    EXPECT_EQ(Atoms(u"(H2"_s), u"H 2"_s);
    EXPECT_EQ(Atoms(u"((H)2O"_s), u"H 2, O 1"_s);
    EXPECT_EQ(Atoms(u"H("_s), u"H 1"_s);
}

TEST(ParseMolecule, DividesAtACloserWithoutAnOpenerRoundingToEven)
{
    EXPECT_EQ(Atoms(u"H)O"_s), u"H 1, O 1"_s);
    EXPECT_EQ(Atoms(u"H)2O"_s), u"H 1, O 0"_s); // 1 / 2 = 0.5, to 0
    EXPECT_EQ(Atoms(u"H,3N)2O"_s), u"H 1, N 3, O 2"_s); // 3 / 2 = 1.5, to 2
    EXPECT_EQ(Atoms(u"H,5N)2O"_s), u"H 1, N 5, O 2"_s); // 5 / 2 = 2.5, to 2
}

TEST(ParseMolecule, SkipsSquareBracketsAndReadsTheirIndexAsAPlainDigit)
{
    EXPECT_EQ(Atoms(u"K3[Fe(CN)6]"_s), u"K 3, Fe 1, C 6, N 6"_s);
    EXPECT_EQ(Atoms(u"[Fe(CN)6]2"_s), u"Fe 1, C 6, N 6"_s);
    // Nothing is divided either: what follows counts in full.
    EXPECT_EQ(Atoms(u"[Fe(CN)6]2K3"_s), u"Fe 1, C 6, N 6, K 3"_s);
    // "[" opens nothing: the ")" divides 1 by 2.
    EXPECT_EQ(Atoms(u"[H)2O"_s), u"H 1, O 0"_s);
}

TEST(ParseMolecule, MultipliesAllThatStandsBehindAComma)
{
    EXPECT_EQ(Atoms(u"CuSO4,5H2O"_s), u"Cu 1, S 1, O 9, H 10"_s); // 4 + 5 and 2 x 5
    EXPECT_EQ(Atoms(u"H2O,H2O"_s), u"H 4, O 2"_s);
    // 2 waters and 2 x 3 of the second kind: H 4 + 12, O 2 + 6.
    EXPECT_EQ(Atoms(u"CaCl2,2H2O,3H2O"_s), u"Ca 1, Cl 2, H 16, O 8"_s);
}

TEST(ParseMolecule, SkipsAllElse)
{
    EXPECT_EQ(Atoms(u"2H2 + =O;é É]}7"_s), u"H 2, O 1"_s);
    EXPECT_FALSE(IsRefused(u"2H2 + =O;é É]}7"_s));
}

TEST(ParseMolecule, ReadsTheSizeAndTheSignOfACharge)
{
    EXPECT_EQ(Charge(u"Fe{2+}"_s), 2);
    EXPECT_EQ(Charge(u"Fe{+2}"_s), 2);
    EXPECT_EQ(Charge(u"SO4{2-}"_s), -2);
    EXPECT_EQ(Charge(u"Cl{-}"_s), -1);
    EXPECT_EQ(Charge(u"Na{+}"_s), 1);
    EXPECT_EQ(Charge(u"Na{3}"_s), 3) << "a plus is not needed";
    EXPECT_EQ(Charge(u"Na{0}"_s), 1) << "0 is read as 1";
    EXPECT_EQ(Charge(u"Na{12-}"_s), -12);
}

TEST(ParseMolecule, ReadsAnEmptyChargeAsPlusOne)
{
    EXPECT_EQ(Charge(u"Na{}"_s), 1);
    EXPECT_EQ(Charge(u"Na{}2"_s), 1) << "the digit stands behind the charge";
}

TEST(ParseMolecule, TurnsASignBeforeTheNumberRoundTwice)
{
    EXPECT_EQ(Charge(u"Na{-2}"_s), 2); // -1 x -2
}

TEST(ParseMolecule, AddsChargesUpAndLeavesThemUnmultiplied)
{
    EXPECT_EQ(Charge(u"Na{+}Cl{3-}"_s), -2);
    EXPECT_EQ(Charge(u"(Na{+})3,5Cl{-}"_s), 0);
}

TEST(ParseMolecule, CountsNothingInsideACharge)
{
    EXPECT_EQ(Atoms(u"H{2xO+}N2"_s), u"H 1, N 2"_s);
    EXPECT_FALSE(IsRefused(u"H{2xO+}N2"_s));
    EXPECT_EQ(Atoms(u"{-}"_s), u""_s);
}

TEST(ParseMolecule, GoesOnBehindTheNextClosingBrace)
{
    EXPECT_EQ(Charge(u"H{2+{3-}O"_s), -2) << "2, and a minus before the next brace";
    EXPECT_EQ(Atoms(u"H{2+{3-}O"_s), u"H 1, O 1"_s);
}

TEST(ParseMolecule, FaultsAtAnOpenBrace)
{
    EXPECT_THROW(ParseMolecule(u"Fe{2+"_s), FatalFault);
    EXPECT_THROW(ParseMolecule(u"Fe{"_s), FatalFault);
    EXPECT_THROW(ParseMolecule(u"}Fe{"_s), FatalFault);
}

TEST(ParseMolecule, RefusesASmallLetterWhereNoSymbolIsOpen)
{
    EXPECT_TRUE(IsRefused(u"h2O"_s));
    EXPECT_TRUE(IsRefused(u"H2o"_s));
    EXPECT_TRUE(IsRefused(u"(oH)2"_s));
    EXPECT_TRUE(IsRefused(u"Fe{3+}e"_s));
}

TEST(ParseMolecule, StopsAtTheRefusedLetter)
{
    // Read on, both would be faults.
    EXPECT_EQ(Atoms(u"H2xO40000"_s), u"H 2"_s);
    EXPECT_EQ(Charge(u"Na{+}xO{"_s), 1);
}

TEST(ParseMolecule, HoldsTenAtomsAndFaultsAtAnEleventh)
{
    EXPECT_EQ(Atoms(kTenAtoms), u"H 1, He 1, Li 1, Be 1, B 1, C 1, N 1, O 1, F 1, Ne 1"_s);
    EXPECT_THROW(ParseMolecule(kTenAtoms + u"Na"_s), FatalFault);
    EXPECT_THROW(ParseMolecule(kTenAtoms + u"Xx"_s), FatalFault);
}

TEST(ParseMolecule, FaultsAtARepeatBehindTheTenthAtom)
{
    // A symbol first takes a free place and is merged then.
    EXPECT_THROW(ParseMolecule(kTenAtoms + u"H"_s), FatalFault);
}

TEST(ParseMolecule, FaultsBeyondSixteenBits)
{
    EXPECT_EQ(Atoms(u"H32767"_s), u"H 32767"_s);
    EXPECT_THROW(ParseMolecule(u"H32768"_s), FatalFault);
    EXPECT_EQ(Atoms(u"(H127)258"_s), u"H 32766"_s);
    EXPECT_THROW(ParseMolecule(u"(H128)256"_s), FatalFault); // 32768
    EXPECT_THROW(ParseMolecule(u"H32767H"_s), FatalFault);
    EXPECT_THROW(ParseMolecule(u"((H)200)200"_s), FatalFault); // 40000
    EXPECT_THROW(ParseMolecule(u"H,200,200"_s), FatalFault);
    EXPECT_THROW(ParseMolecule(u",-32768)-1"_s), FatalFault); // -32768 / -1 = 32768
}

TEST(ParseMolecule, FaultsAtAChargeBeyondSixteenBits)
{
    EXPECT_EQ(Charge(u"H{32767-}"_s), -32767);
    EXPECT_THROW(ParseMolecule(u"H{32768+}"_s), FatalFault);
    EXPECT_THROW(ParseMolecule(u"H{32767+}{+}"_s), FatalFault);
    EXPECT_THROW(ParseMolecule(u"H{-32768}"_s), FatalFault); // -1 x -32768 = 32768
}

} // namespace stoikal
