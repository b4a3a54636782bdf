#include "chemistry/formula.h"

#include "base/fatal_fault.h"
#include "base/number_text.h"
#include "chemistry/element_table.h"
#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

/// What MolarMass made of a formula, its boxes included.
struct Reading {
    double mass = 0;
    QString atoms; ///< "H 2, O 1", in the order of the tally.
    QStringList boxes;
};

QString TextOf(const AtomTally& tally)
{
    QStringList atoms;
    for (int place = 0; place < tally.Used(); ++place) {
        const auto at = static_cast<std::size_t>(place);
        atoms << tally.symbols[at] + u' ' + QString::number(tally.counts[at]);
    }
    return atoms.join(u", "_s);
}

Reading Read(const QString& formula)
{
    Reading reading;
    const MolarMassResult result
        = MolarMass(formula, [&](const QString& symbol) { reading.boxes << symbol; });
    reading.mass = result.gramsPerMole;
    reading.atoms = TextOf(result.tally);
    return reading;
}

QString Atoms(const QString& formula)
{
    return Read(formula).atoms;
}

QStringList BoxesOfCheck(const QString& formula)
{
    QStringList boxes;
    CheckFormulaAtoms(formula, [&](const QString& symbol) { boxes << symbol; });
    return boxes;
}

QString Normalised(QString value)
{
    NormaliseDecimalComma(value);
    return value;
}

/// Ten different atoms.
const QString kTenAtoms = u"HHeLiBeBCNOFNe"_s;

} // namespace

TEST(LeadingInteger, ReadsTheLongestNumberAtTheStart)
{
    EXPECT_EQ(LeadingInteger(u"2H"), 2);
    EXPECT_EQ(LeadingInteger(u"4{2-}"), 4);
    EXPECT_EQ(LeadingInteger(u"123"), 123);
    EXPECT_EQ(LeadingInteger(u"-2"), -2);
    EXPECT_EQ(LeadingInteger(u"+2"), 2);
    EXPECT_EQ(LeadingInteger(u"  7)"), 7);
}

TEST(LeadingInteger, GivesZeroWithoutANumber)
{
    for (const char16_t* text : {u"", u"H2", u"{2-}", u"-", u"+", u".", u"- 2", u")2"})
        EXPECT_EQ(LeadingInteger(text), 0) << QString::fromUtf16(text).toStdString();
}

TEST(LeadingInteger, RoundsTiesToTheEvenNeighbour)
{
    EXPECT_EQ(LeadingInteger(u"1.5"), 2);
    EXPECT_EQ(LeadingInteger(u"2.5"), 2);
    EXPECT_EQ(LeadingInteger(u"0.5"), 0);
    EXPECT_EQ(LeadingInteger(u"-1.5"), -2);
    EXPECT_EQ(LeadingInteger(u"2.51"), 3);
}

TEST(LeadingInteger, HoldsSixteenBits)
{
    EXPECT_EQ(LeadingInteger(u"32767"), 32767);
    EXPECT_EQ(LeadingInteger(u"32767.4"), 32767);
    EXPECT_EQ(LeadingInteger(u"-32768"), -32768);
    EXPECT_THROW(LeadingInteger(u"32768"), FatalFault);
    EXPECT_THROW(LeadingInteger(u"32767.5"), FatalFault);
    EXPECT_THROW(LeadingInteger(u"-32769"), FatalFault);
    EXPECT_THROW(LeadingInteger(QString(400, u'9')), FatalFault);
}

TEST(NormaliseDecimalComma, PutsAPointForTheComma)
{
    EXPECT_EQ(Normalised(u"1,5"_s), u"1.5"_s);
    EXPECT_EQ(Normalised(u",5"_s), u".5"_s);
    EXPECT_EQ(Normalised(u"1,"_s), u"1."_s);
    EXPECT_EQ(Normalised(u","_s), u"."_s);
}

TEST(NormaliseDecimalComma, TrimsBothParts)
{
    EXPECT_EQ(Normalised(u"  1 , 5  "_s), u"1.5"_s);
    EXPECT_EQ(Normalised(u"1 2 , 3 4"_s), u"1 2.3 4"_s);
}

TEST(NormaliseDecimalComma, LeavesASecondCommaAtWhichTheReadingStops)
{
    EXPECT_EQ(Normalised(u"1,2,3"_s), u"1.2,3"_s);
    EXPECT_EQ(ReadNumber(Normalised(u"1,2,3"_s)), 1.2);
}

TEST(NormaliseDecimalComma, LeavesATextWithoutACommaAlone)
{
    EXPECT_EQ(Normalised(u" 1.5 "_s), u" 1.5 "_s);
    EXPECT_EQ(Normalised(u""_s), u""_s);
}

TEST(IsKnownAtom, AcceptsTheFirst109ElementsOnly)
{
    for (int index = 0; index < 118; ++index)
        EXPECT_EQ(IsKnownAtom(ElementSymbol(index)), index < 109) << index;
    EXPECT_TRUE(IsKnownAtom(u"H"));
    EXPECT_TRUE(IsKnownAtom(u"Mt"));
    EXPECT_FALSE(IsKnownAtom(u"Ds"));
}

TEST(IsKnownAtom, CountsCase)
{
    EXPECT_TRUE(IsKnownAtom(u"Co"));
    EXPECT_FALSE(IsKnownAtom(u"CO"));
    EXPECT_FALSE(IsKnownAtom(u"co"));
    EXPECT_FALSE(IsKnownAtom(u""));
}

TEST(UnknownAtomMessage, NamesTheSymbolOnTwoLines)
{
    EXPECT_EQ(UnknownAtomMessage(u"Xy"_s),
              u"Le symbole 'Xy' n'est pas le symbole d'un atome connu.\nVeuillez vérifier votre saisie."_s);
}

TEST(FormulaLexis, EndsASymbolBehindItsSmallLetters)
{
    EXPECT_EQ(SymbolEnd(u"H2O", 0), 1);
    EXPECT_EQ(SymbolEnd(u"NaCl", 0), 2);
    EXPECT_EQ(SymbolEnd(u"NaCl", 2), 4);
    EXPECT_EQ(SymbolEnd(u"Hxyz(", 0), 4);
    EXPECT_EQ(SymbolEnd(u"Hé", 0), 1) << "an accented letter is no small letter";
}

TEST(FormulaLexis, KnowsLettersWithoutAccentsOnly)
{
    EXPECT_TRUE(IsCapital(u'A') && IsCapital(u'Z'));
    EXPECT_FALSE(IsCapital(u'@') || IsCapital(u'[') || IsCapital(u'a') || IsCapital(u'É'));
    EXPECT_TRUE(IsSmallLetter(u'a') && IsSmallLetter(u'z'));
    EXPECT_FALSE(IsSmallLetter(u'`') || IsSmallLetter(u'{') || IsSmallLetter(u'Z') || IsSmallLetter(u'é'));
}

TEST(FormulaLexis, FindsTheCloserOfNestedParentheses)
{
    EXPECT_EQ(MatchingCloser(u"((AB)2C)3", 0), 7);
    EXPECT_EQ(MatchingCloser(u"((AB)2C)3", 1), 4);
    EXPECT_EQ(MatchingCloser(u"(H", 0), 2) << "no closer: the end";
    EXPECT_EQ(MatchingCloser(u"((H)", 0), 4);
}

TEST(FormulaLexis, SeeksARoundCloserForASquareBracket)
{
    EXPECT_EQ(MatchingCloser(u"[Fe(CN)6]2", 0), 10);
    EXPECT_EQ(MatchingCloser(u"[H)2", 0), 2);
}

TEST(FormulaLexis, ReadsAMissingOrZeroIndexAsOne)
{
    EXPECT_EQ(IndexAt(u"H2", 1), 2);
    EXPECT_EQ(IndexAt(u"H0", 1), 1);
    EXPECT_EQ(IndexAt(u"HO", 1), 1);
    EXPECT_EQ(IndexAt(u"H", 1), 1);
    EXPECT_EQ(IndexAt(u"H", 2), 1);
    EXPECT_EQ(IndexAt(u"H-2", 1), -2);
}

TEST(AtomTally, CountsARepeatAtItsFirstPlace)
{
    AtomTally tally;
    tally.Add(u"C"_s, 1);
    tally.Add(u"H"_s, 3);
    tally.Add(u"C"_s, 2);
    EXPECT_EQ(TextOf(tally), u"C 3, H 3"_s);
    EXPECT_EQ(tally.Used(), 2);
}

TEST(AtomTally, HasTenPlaces)
{
    AtomTally tally;
    EXPECT_EQ(tally.Used(), 0);
    for (int index = 0; index < 10; ++index)
        tally.Add(ElementSymbol(index), 1);
    EXPECT_EQ(tally.Used(), 10);
    EXPECT_THROW(tally.Add(u"Na"_s, 1), FatalFault);
}

TEST(AtomTally, HoldsSixteenBits)
{
    AtomTally tally;
    tally.Add(u"H"_s, 32767);
    EXPECT_THROW(tally.Add(u"H"_s, 1), FatalFault);
    EXPECT_THROW(tally.Add(u"O"_s, 32768), FatalFault);
}

TEST(MolarMass, AddsTheMassesOfTheAtoms)
{
    // 2 x 1.00794 + 15.9994
    EXPECT_DOUBLE_EQ(Read(u"H2O"_s).mass, 18.01528);
    EXPECT_DOUBLE_EQ(Read(u"C"_s).mass, 12.0107);
    // 3 x 40.078 + 2 x 30.973761 + 8 x 15.9994 = 120.234 + 61.947522 + 127.9952
    EXPECT_DOUBLE_EQ(Read(u"Ca3(PO4)2"_s).mass, 310.176722);
    EXPECT_TRUE(Read(u"Ca3(PO4)2"_s).boxes.isEmpty());
}

TEST(MolarMass, GivesZeroForAnEmptyFormulaAndForOneWithoutAtoms)
{
    for (const QString& formula : {u""_s, u"2+"_s, u"{3-}"_s, u"( )"_s}) {
        const Reading reading = Read(formula);
        EXPECT_EQ(reading.mass, 0);
        EXPECT_EQ(reading.atoms, u""_s);
        EXPECT_TRUE(reading.boxes.isEmpty());
    }
}

TEST(MolarMass, MultipliesGroups)
{
    EXPECT_EQ(Atoms(u"Ca3(PO4)2"_s), u"Ca 3, P 2, O 8"_s);
    EXPECT_EQ(Atoms(u"(NH4)2SO4"_s), u"N 2, H 8, S 1, O 4"_s);
    EXPECT_EQ(Atoms(u"(OH)"_s), u"O 1, H 1"_s);
}

TEST(MolarMass, MultipliesNestedGroups)
{
    // ((AB)2C)3 with atoms that exist: H 2 x 3, O 2 x 3, N 3.
    EXPECT_EQ(Atoms(u"((HO)2N)3"_s), u"H 6, O 6, N 3"_s);
    // C 2 x 4 x 3 = 24, N 2 x 3 = 6.
    EXPECT_EQ(Atoms(u"(((C2)4N2)3O3)F"_s), u"C 24, N 6, O 3, F 1"_s);
}

TEST(MolarMass, ReadsAMultiplierOfAnyLength)
{
    EXPECT_EQ(Atoms(u"C100(H2)100O"_s), u"C 100, H 200, O 1"_s);
}

TEST(MolarMass, PassesOverCharges)
{
    EXPECT_EQ(Atoms(u"SO4{2-}"_s), u"S 1, O 4"_s);
    EXPECT_EQ(Atoms(u"OH{-}"_s), u"O 1, H 1"_s);
    EXPECT_EQ(Atoms(u"Fe{3+}"_s), u"Fe 1"_s);
}

TEST(MolarMass, PassesOverWhatHasNoRule)
{
    EXPECT_EQ(Atoms(u"2H2+O2=é2 H2O;"_s), u"H 4, O 3"_s);
}

TEST(MolarMass, LeavesASquareBracketsIndexOutOfItsGroup)
{
    EXPECT_EQ(Atoms(u"K3[Fe(CN)6]"_s), u"K 3, Fe 1, C 6, N 6"_s);
    EXPECT_EQ(Atoms(u"[Fe(CN)6]2"_s), u"Fe 1, C 6, N 6"_s);
}

TEST(MolarMass, CountsNothingBehindASquareBracketWithAnIndex)
{
    // 1 / 2 = 0.5 rounds to 0.
    EXPECT_EQ(Atoms(u"[Fe(CN)6]2K3"_s), u"Fe 1, C 6, N 6, K 0"_s);
    // 1 / 3 rounds to 0 too.
    EXPECT_EQ(Atoms(u"[H]3O"_s), u"H 1, O 0"_s);
}

TEST(MolarMass, ClosesASquareBracketByTheNextParenthesis)
{
    // "[" finds ")" and its 2; ")" divides it out.
    EXPECT_EQ(Atoms(u"[H)2O"_s), u"H 2, O 1"_s);
}

TEST(MolarMass, MultipliesAllThatStandsBehindAComma)
{
    // 4 + 5 = 9 O, 2 x 5 = 10 H.
    EXPECT_EQ(Atoms(u"CuSO4,5H2O"_s), u"Cu 1, S 1, O 9, H 10"_s);
}

TEST(MolarMass, ReadsACommaWithoutANumberAsOne)
{
    EXPECT_EQ(Atoms(u"H2O,H2O"_s), u"H 4, O 2"_s);
}

TEST(MolarMass, HeapsASecondCommaOnTheFirst)
{
    // Waters: 2 + 2 x 3 = 8, so H 16 and O 8.
    EXPECT_EQ(Atoms(u"CaCl2,2H2O,3H2O"_s), u"Ca 1, Cl 2, H 16, O 8"_s);
}

TEST(MolarMass, AddsARepeatToTheFirstPlace)
{
    EXPECT_EQ(Atoms(u"CH3COOH"_s), u"C 2, H 4, O 2"_s);
}

TEST(MolarMass, TakesASignBehindASymbolIntoTheIndex)
{
    EXPECT_EQ(Atoms(u"Cl-2"_s), u"Cl -2"_s);
    EXPECT_DOUBLE_EQ(Read(u"Cl-2"_s).mass, -70.9054); // -2 x 35.4527
    EXPECT_EQ(Atoms(u"Na+2"_s), u"Na 2"_s);
    EXPECT_EQ(Atoms(u"Na+"_s), u"Na 1"_s);
}

TEST(MolarMass, SkipsBlanksBeforeAnIndex)
{
    EXPECT_EQ(Atoms(u"H 2O"_s), u"H 2, O 1"_s);
}

TEST(MolarMass, ReadsAZeroIndexAsOne)
{
    EXPECT_EQ(Atoms(u"H0"_s), u"H 1"_s);
    EXPECT_EQ(Atoms(u"(H)0,0O"_s), u"H 1, O 1"_s);
}

TEST(MolarMass, RoundsABrokenIndexToEven)
{
    EXPECT_EQ(Atoms(u"H1.5"_s), u"H 2"_s);
    EXPECT_EQ(Atoms(u"H2.5"_s), u"H 2"_s);
    EXPECT_EQ(Atoms(u"H.5"_s), u"H 1"_s); // 0.5 rounds to 0, read as 1.
}

TEST(MolarMass, DividesAtACloserWithoutAnOpener)
{
    EXPECT_EQ(Atoms(u"H)O"_s), u"H 1, O 1"_s);
    EXPECT_EQ(Atoms(u"H)2O"_s), u"H 1, O 0"_s); // 1 / 2 = 0.5, to 0.
    EXPECT_EQ(Atoms(u"H,3N)2O"_s), u"H 1, N 3, O 2"_s); // 3 / 2 = 1.5, to 2.
    EXPECT_EQ(Atoms(u"H,5N)2O"_s), u"H 1, N 5, O 2"_s); // 5 / 2 = 2.5, to 2.
    EXPECT_EQ(Atoms(u"H))O(N)2"_s), u"H 1, O 1, N 2"_s);
}

TEST(MolarMass, ReadsAnUnbalancedOpenerAsOne)
{
    EXPECT_EQ(Atoms(u"(H2"_s), u"H 2"_s);
    EXPECT_EQ(Atoms(u"((H)2O"_s), u"H 2, O 1"_s);
    EXPECT_EQ(Atoms(u"H("_s), u"H 1"_s);
}

TEST(MolarMass, IsSilentAtALoneCapitalAtTheEnd)
{
    const Reading reading = Read(u"A"_s);
    EXPECT_EQ(reading.mass, 0);
    EXPECT_TRUE(reading.boxes.isEmpty());
    EXPECT_TRUE(Read(u"H2Q"_s).boxes.isEmpty());
    EXPECT_EQ(Read(u"H2Q"_s).mass, 0);
}

TEST(MolarMass, NamesALoneCapitalBeforeTheEndAndStops)
{
    const Reading reading = Read(u"AX2Q("_s);
    EXPECT_EQ(reading.boxes, QStringList{u"A"_s});
    EXPECT_EQ(reading.mass, 0);
    EXPECT_EQ(Read(u"AB"_s).boxes, QStringList{u"A"_s});
    EXPECT_EQ(Read(u"AB"_s).atoms, u"A 0"_s) << "B is never read";
    EXPECT_EQ(Read(u"A2"_s).boxes, QStringList{u"A"_s});
}

TEST(MolarMass, NamesALongUnknownSymbolEvenAtTheEnd)
{
    const Reading reading = Read(u"HNacl"_s);
    EXPECT_EQ(reading.boxes, QStringList{u"Nacl"_s});
    EXPECT_EQ(reading.mass, 0);
    EXPECT_EQ(Read(u"Xy"_s).boxes, QStringList{u"Xy"_s});
    EXPECT_EQ(Read(u"Hxyz"_s).boxes, QStringList{u"Hxyz"_s});
    EXPECT_EQ(Read(u"NaCl"_s).atoms, u"Na 1, Cl 1"_s);
}

TEST(MolarMass, RefusesTheElementsAboveMeitnerium)
{
    EXPECT_EQ(Read(u"Ds"_s).boxes, QStringList{u"Ds"_s});
    EXPECT_EQ(Read(u"Ds"_s).mass, 0);
    EXPECT_DOUBLE_EQ(Read(u"Mt"_s).mass, 268);
}

TEST(MolarMass, KeepsWhatTheTallyHeldAtAnUnknownSymbol)
{
    EXPECT_EQ(Atoms(u"H2OXy3C"_s), u"H 2, O 1, Xy 0"_s);
}

TEST(MolarMass, NamesASmallLetterWithoutACapitalAndGoesOn)
{
    const Reading lone = Read(u"c"_s);
    EXPECT_EQ(lone.boxes, QStringList{u"c"_s});
    EXPECT_EQ(lone.mass, 0);
    const Reading inside = Read(u"H2oxN(c"_s);
    EXPECT_EQ(inside.boxes, (QStringList{u"o"_s, u"x"_s, u"c"_s}));
    EXPECT_EQ(inside.atoms, u"H 2, N 1"_s);
    EXPECT_DOUBLE_EQ(inside.mass, 16.02258); // 2 x 1.00794 + 14.0067
}

TEST(MolarMass, HoldsTenAtoms)
{
    // 1.00794 + 4.002602 + 6.941 + 9.01218 + 10.811 + 12.0107 + 14.0067
    // + 15.9994 + 18.9984032 + 20.1797
    EXPECT_DOUBLE_EQ(Read(kTenAtoms).mass, 112.9696252);
}

TEST(MolarMass, FaultsAtAnEleventhAtom)
{
    EXPECT_THROW(Read(kTenAtoms + u"Na"_s), FatalFault);
    EXPECT_THROW(Read(kTenAtoms + u"Xy"_s), FatalFault) << "the place is missing before the symbol is judged";
}

TEST(MolarMass, FaultsAtARepeatBehindTheTenthAtom)
{
    // A symbol is first put into a free place, then merged.
    EXPECT_THROW(Read(kTenAtoms + u"H"_s), FatalFault);
}

TEST(MolarMass, FaultsWithAFrenchCause)
{
    try {
        Read(kTenAtoms + u"Na"_s);
        FAIL() << "no fault";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.Cause(),
                  u"une formule garde 10 atomes différents au plus, il ne reste aucune place pour Na."_s);
    }
}

TEST(MolarMass, FaultsWhenACountPassesSixteenBits)
{
    EXPECT_EQ(Atoms(u"H32767"_s), u"H 32767"_s);
    EXPECT_THROW(Read(u"H32768"_s), FatalFault);
    EXPECT_EQ(Atoms(u"(H127)258"_s), u"H 32766"_s); // 127 x 258 = 32766
    EXPECT_THROW(Read(u"(H128)256"_s), FatalFault); // 128 x 256 = 32768
    EXPECT_THROW(Read(u"H32767H"_s), FatalFault);
}

TEST(MolarMass, FaultsWhenTheMultiplierPassesSixteenBits)
{
    EXPECT_THROW(Read(u"((H)200)200"_s), FatalFault); // 200 x 200 = 40000
    EXPECT_THROW(Read(u"H,200,200"_s), FatalFault);
    EXPECT_THROW(Read(u",-32768)-1"_s), FatalFault); // -32768 / -1 = 32768.
}

TEST(CheckFormulaAtoms, IsSilentOnAGoodFormula)
{
    for (const QString& formula :
         {u""_s, u"H2O"_s, u"CuSO4,5H2O"_s, u"K3[Fe(CN)6]"_s, u"SO4{2-}"_s, u"Cl-2"_s})
        EXPECT_TRUE(BoxesOfCheck(formula).isEmpty()) << formula.toStdString();
}

TEST(CheckFormulaAtoms, NamesALoneCapitalAtTheEnd)
{
    EXPECT_EQ(BoxesOfCheck(u"A"_s), QStringList{u"A"_s});
    EXPECT_EQ(BoxesOfCheck(u"H2Q"_s), QStringList{u"Q"_s});
}

TEST(CheckFormulaAtoms, StopsAtTheFirstUnknownSymbol)
{
    EXPECT_EQ(BoxesOfCheck(u"XyAcQcx"_s), QStringList{u"Xy"_s});
    EXPECT_EQ(BoxesOfCheck(u"Ds2x"_s), QStringList{u"Ds"_s});
}

TEST(CheckFormulaAtoms, NamesSmallLettersWithoutACapitalAndGoesOn)
{
    EXPECT_EQ(BoxesOfCheck(u"h2oNacl"_s), (QStringList{u"h"_s, u"o"_s, u"Nacl"_s}));
}

TEST(CheckFormulaAtoms, FaultsAsMolarMassDoes)
{
    EXPECT_TRUE(BoxesOfCheck(kTenAtoms).isEmpty());
    EXPECT_THROW(BoxesOfCheck(kTenAtoms + u"Na"_s), FatalFault);
    EXPECT_THROW(BoxesOfCheck(u"H32768"_s), FatalFault);
    EXPECT_THROW(BoxesOfCheck(u"((H)200)200"_s), FatalFault);
    EXPECT_THROW(BoxesOfCheck(u"[[H)200)200"_s), FatalFault);
    EXPECT_THROW(BoxesOfCheck(u"H,200,200"_s), FatalFault);
}

TEST(CheckFormulaAtoms, LeavesASquareBracketsIndexOutOfItsGroup)
{
    // With the index on the group, 2 x 20000 O would not fit.
    EXPECT_TRUE(BoxesOfCheck(u"[O20000]2"_s).isEmpty());
}

} // namespace stoikal
