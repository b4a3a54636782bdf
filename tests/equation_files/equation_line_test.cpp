#include "equation_files/equation_line.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <array>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

using Texts = std::array<QString, 6>;
using Numbers = std::array<int, 6>;

Texts Molecules(const ParsedLine& parsed)
{
    Texts texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = parsed.record.Slots[i].Molecule;
    return texts;
}

Texts States(const ParsedLine& parsed)
{
    Texts texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = parsed.record.Slots[i].Etat;
    return texts;
}

Texts Data(const ParsedLine& parsed)
{
    Texts texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = parsed.record.Slots[i].MVQ;
    return texts;
}

Numbers Coefficients(const ParsedLine& parsed)
{
    Numbers numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = parsed.record.Slots[i].Coeff;
    return numbers;
}

Numbers Charges(const ParsedLine& parsed)
{
    Numbers numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = parsed.record.Slots[i].Charge;
    return numbers;
}

/// The charge of the first reactant of `species=B`, so of a species without "+".
int ChargeOf(const QString& species)
{
    return ParseEquationLine(species + u"=B/1,1"_s).record.Slots[0].Charge;
}

const Texts kNoData{u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s};

} // namespace

// Worked examples.

TEST(EquationLine, ReadsFormulasStatesAndCoefficients)
{
    const ParsedLine parsed = ParseEquationLine(u"H2<g>+O2<g>=H2O<l>/2,1,2"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"H2"_s, u"O2"_s, u""_s, u"H2O"_s, u""_s, u""_s}));
    EXPECT_EQ(States(parsed), (Texts{u"g"_s, u"g"_s, u""_s, u"l"_s, u""_s, u""_s}));
    EXPECT_EQ(Coefficients(parsed), (Numbers{2, 1, 0, 2, 0, 0}));
    EXPECT_EQ(Charges(parsed), (Numbers{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Data(parsed), kNoData);
    EXPECT_FALSE(parsed.chargesPresent);
    EXPECT_EQ(parsed.points, 5);
}

TEST(EquationLine, ReadsChargesOfBothSides)
{
    const ParsedLine parsed = ParseEquationLine(u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"Fe"_s, u"Cu"_s, u""_s, u"Fe"_s, u"Cu"_s, u""_s}));
    EXPECT_EQ(Charges(parsed), (Numbers{3, 0, 0, 2, 2, 0}));
    EXPECT_EQ(Coefficients(parsed), (Numbers{2, 1, 0, 2, 1, 0}));
    EXPECT_TRUE(parsed.chargesPresent);
}

TEST(EquationLine, ReadsProgressDataForTheSpeciesPresent)
{
    const ParsedLine parsed = ParseEquationLine(u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#Q0.5,Q1.2,Q0,Q0"_s);

    EXPECT_EQ(Data(parsed), (Texts{u"Q0.5"_s, u"Q1.2"_s, u"0"_s, u"Q0"_s, u"Q0"_s, u"0"_s}));
    EXPECT_EQ(Coefficients(parsed), (Numbers{1, 2, 0, 1, 2, 0}));
    EXPECT_EQ(parsed.points, 10);
}

// Blanks and the marks that part the line.

TEST(EquationLine, TakesBlanksOutAnywhere)
{
    const ParsedLine parsed = ParseEquationLine(u"  H 2 < g > + O2 = H2 O / 2 , 1 , 2 # Q 0 . 5, Q1 ,Q 0 "_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"H2"_s, u"O2"_s, u""_s, u"H2O"_s, u""_s, u""_s}));
    EXPECT_EQ(States(parsed)[0], u"g"_s);
    EXPECT_EQ(Coefficients(parsed), (Numbers{2, 1, 0, 2, 0, 0}));
    EXPECT_EQ(Data(parsed), (Texts{u"Q0.5"_s, u"Q1"_s, u"0"_s, u"Q0"_s, u"0"_s, u"0"_s}));
}

TEST(EquationLine, TakesTheFirstEqualsSign)
{
    const ParsedLine parsed = ParseEquationLine(u"A=B=C/1,1"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"A"_s, u""_s, u""_s, u"B=C"_s, u""_s, u""_s}));
}

TEST(EquationLine, TakesTheFirstSlash)
{
    // The fields are "1" and "2/3", which reads as 2 up to the second slash.
    const ParsedLine parsed = ParseEquationLine(u"A=B/1,2/3"_s);

    EXPECT_EQ(Molecules(parsed)[3], u"B"_s);
    EXPECT_EQ(Coefficients(parsed), (Numbers{1, 0, 0, 2, 0, 0}));
}

TEST(EquationLine, TakesTheFirstHash)
{
    const ParsedLine parsed = ParseEquationLine(u"A=B/1,1#Q1,Q2#Q3"_s);

    EXPECT_EQ(Data(parsed), (Texts{u"Q1"_s, u"0"_s, u"0"_s, u"Q2#Q3"_s, u"0"_s, u"0"_s}));
}

TEST(EquationLine, WithoutSlashTheLastProductTakesInTheDataWhichAreReadAllTheSame)
{
    const ParsedLine parsed = ParseEquationLine(u"A=B+C#Q1,Q2,Q3"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"A"_s, u""_s, u""_s, u"B"_s, u"C#Q1,Q2,Q3"_s, u""_s}));
    EXPECT_EQ(Data(parsed), (Texts{u"Q1"_s, u"0"_s, u"0"_s, u"Q2"_s, u"Q3"_s, u"0"_s}));
    EXPECT_EQ(parsed.points, 10);
}

// Species of a side.

TEST(EquationLine, FillsOnlyTheFirstSlotOfASideWithoutPlus)
{
    EXPECT_EQ(Molecules(ParseEquationLine(u"A=B/1,1"_s)),
              (Texts{u"A"_s, u""_s, u""_s, u"B"_s, u""_s, u""_s}));
}

TEST(EquationLine, FillsAllSixSlots)
{
    const ParsedLine parsed = ParseEquationLine(u"A+B+C=D+E+F/1,2,3,4,5,6"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s}));
    EXPECT_EQ(Coefficients(parsed), (Numbers{1, 2, 3, 4, 5, 6}));
}

TEST(EquationLine, TheThirdSlotTakesAFourthSpeciesToo)
{
    const ParsedLine parsed = ParseEquationLine(u"A+B+C+D=E/1,1,1,1"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"A"_s, u"B"_s, u"C+D"_s, u"E"_s, u""_s, u""_s}));
}

TEST(EquationLine, PlusOfAChargeDoesNotPartSpecies)
{
    for (const QString& charge : {u"{+}"_s, u"{2+}"_s, u"{+2}"_s}) {
        SCOPED_TRACE(charge.toStdString());
        const ParsedLine parsed
            = ParseEquationLine(u"A"_s + charge + u"+B"_s + charge + u"+C"_s + charge + u"=D/1,1"_s);
        EXPECT_EQ(Molecules(parsed), (Texts{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u""_s, u""_s}));
    }
}

TEST(EquationLine, ReadsChargedSpeciesOnOneSide)
{
    const ParsedLine parsed = ParseEquationLine(u"H{+}+OH{-}=H2O/1,1,1"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"H"_s, u"OH"_s, u""_s, u"H2O"_s, u""_s, u""_s}));
    EXPECT_EQ(Charges(parsed), (Numbers{1, -1, 0, 0, 0, 0}));
}

TEST(EquationLine, OnlyOneChargePlusIsSkippedPerSearch)
{
    // `A{2+}{+}+B`: the search passes the first charge's "+" and takes the second
    // charge's without a look, so the species is cut inside `{+}`.
    const ParsedLine parsed = ParseEquationLine(u"A{2+}{+}+B=C/1,1"_s);

    EXPECT_EQ(Molecules(parsed)[0], u"A"_s);
    EXPECT_EQ(Molecules(parsed)[1], u"}"_s);
    EXPECT_EQ(Molecules(parsed)[2], u"B"_s);
}

TEST(EquationLine, ChargedSpeciesAloneOnTheLeftIsAFault)
{
    EXPECT_THROW(ParseEquationLine(u"NH4{+}=NH3+H{+}/1,1,1"_s), FatalFault);
    EXPECT_THROW(ParseEquationLine(u"Na{+}=Na/1,1"_s), FatalFault);
}

TEST(EquationLine, ChargedSpeciesAloneOnTheRightIsAFault)
{
    EXPECT_THROW(ParseEquationLine(u"Mg=Mg{2+}/1,1"_s), FatalFault);
}

TEST(EquationLine, NegativeSpeciesAloneOnItsSideIsRead)
{
    EXPECT_EQ(Charges(ParseEquationLine(u"Cl{-}=Br{-}/1,1"_s)), (Numbers{-1, 0, 0, -1, 0, 0}));
}

TEST(EquationLine, LastOfTwoSpeciesMayHaveAPositiveCharge)
{
    // The second search finds the charge's "+" and nothing behind: two species.
    const ParsedLine parsed = ParseEquationLine(u"Fe+Cu=Fe{2+}+Cu{2+}/1,1,1,1"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"Fe"_s, u"Cu"_s, u""_s, u"Fe"_s, u"Cu"_s, u""_s}));
}

// States.

TEST(EquationLine, StateMayStandBeforeOrBehindTheCharge)
{
    const ParsedLine parsed = ParseEquationLine(u"Cl<aq>{-}+Br{-}<aq>=C/1,1,1"_s);

    EXPECT_EQ(Molecules(parsed), (Texts{u"Cl"_s, u"Br"_s, u""_s, u"C"_s, u""_s, u""_s}));
    EXPECT_EQ(States(parsed), (Texts{u"aq"_s, u"aq"_s, u""_s, u""_s, u""_s, u""_s}));
    EXPECT_EQ(Charges(parsed), (Numbers{-1, -1, 0, 0, 0, 0}));
}

TEST(EquationLine, StateIsLoweredAndTrimmed)
{
    const ParsedLine parsed = ParseEquationLine(u"A< G >+B<AQ>=C<anything>/1,1,1"_s);

    EXPECT_EQ(States(parsed), (Texts{u"g"_s, u"aq"_s, u""_s, u"anything"_s, u""_s, u""_s}));
}

TEST(EquationLine, StateWithoutItsEndIsAFault)
{
    EXPECT_THROW(ParseEquationLine(u"H2<g+O2=H2O/1,1,1"_s), FatalFault);
    EXPECT_THROW(ParseEquationLine(u"H2>g<=H2O/1,1"_s), FatalFault);
}

TEST(EquationLine, TextBehindTheChargeIsLost)
{
    EXPECT_EQ(Molecules(ParseEquationLine(u"Cl{-}H2O=B/1,1"_s))[0], u"Cl"_s);
}

// Charges.

TEST(EquationLine, ReadsTheChargeAsANumberFromItsStart)
{
    EXPECT_EQ(Charges(ParseEquationLine(u"A{+}+B=C/1,1,1"_s))[0], 1);
    EXPECT_EQ(Charges(ParseEquationLine(u"A{2+}+B=C/1,1,1"_s))[0], 2);
    EXPECT_EQ(Charges(ParseEquationLine(u"A{+2}+B=C/1,1,1"_s))[0], 2);
    EXPECT_EQ(ChargeOf(u"A{-}"_s), -1);
    EXPECT_EQ(ChargeOf(u"A{2-}"_s), -2);
    EXPECT_EQ(ChargeOf(u"A{3}"_s), 3);
}

TEST(EquationLine, SignBeforeTheDigitOfANegativeChargeGivesAPositiveOne)
{
    // The number read is -2 already, and the "-" flips it.
    EXPECT_EQ(ChargeOf(u"A{-2}"_s), 2);
}

TEST(EquationLine, EmptyChargeIsOne)
{
    EXPECT_EQ(ChargeOf(u"A{}"_s), 1);
    EXPECT_EQ(ChargeOf(u"A{"_s), 1);
    EXPECT_EQ(ChargeOf(u"A{0}"_s), 1);
}

TEST(EquationLine, MinusAnywhereInTheSpeciesFlipsTheCharge)
{
    EXPECT_EQ(ChargeOf(u"A-B{2}"_s), -2);
    EXPECT_EQ(ChargeOf(u"A{2}-B"_s), -2);
}

TEST(EquationLine, FractionalChargeIsRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(ChargeOf(u"A{2.5}"_s), 2);
    EXPECT_EQ(ChargeOf(u"A{1.5}"_s), 2);
    // 0.5 rounds to 0, which becomes 1.
    EXPECT_EQ(ChargeOf(u"A{0.5}"_s), 1);
}

TEST(EquationLine, ChargeOutsideSixteenBitsIsAFault)
{
    EXPECT_EQ(ChargeOf(u"A{32767}"_s), 32767);
    EXPECT_THROW(ChargeOf(u"A{32768}"_s), FatalFault);
    // -32768 can be held, but not the 32768 that the sign makes of it.
    EXPECT_THROW(ChargeOf(u"A{-32768}"_s), FatalFault);
}

TEST(EquationLine, BraceAloneMakesTheEquationCharged)
{
    EXPECT_TRUE(ParseEquationLine(u"A{}=B/1,1"_s).chargesPresent);
    EXPECT_TRUE(ParseEquationLine(u"A=B{-}/1,1"_s).record.HasCharges());
    EXPECT_FALSE(ParseEquationLine(u"A=B/1,1"_s).record.HasCharges());
}

// Coefficients.

TEST(EquationLine, WithoutSlashAllSixCoefficientsAreOne)
{
    const ParsedLine parsed = ParseEquationLine(u"A=B"_s);

    EXPECT_EQ(Coefficients(parsed), (Numbers{1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(parsed.points, 5);
}

TEST(EquationLine, SlashWithNothingBehindGivesOnesAndNoPoints)
{
    const ParsedLine parsed = ParseEquationLine(u"A=B/"_s);

    EXPECT_EQ(Coefficients(parsed), (Numbers{1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(parsed.points, 0);
}

TEST(EquationLine, SlashBeforeHashStopsTheReading)
{
    const ParsedLine parsed = ParseEquationLine(u"A=B/#Q1,Q2"_s);

    EXPECT_EQ(Coefficients(parsed), (Numbers{1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(Data(parsed), kNoData);
    EXPECT_EQ(parsed.points, 0);
}

TEST(EquationLine, SlashBeforeHashDoesNotRefuseEmptyData)
{
    EXPECT_EQ(ParseEquationLine(u"A=B/#Q0"_s).points, 0);
}

TEST(EquationLine, CoefficientsWithoutAnyCommaAreAFault)
{
    EXPECT_THROW(ParseEquationLine(u"A=B/1"_s), FatalFault);
    EXPECT_THROW(ParseEquationLine(u"A=B/1;1"_s), FatalFault);
    // The commas of the data do not count.
    EXPECT_THROW(ParseEquationLine(u"A=B/1#Q1,Q2"_s), FatalFault);
}

TEST(EquationLine, SpeciesWithoutAFieldKeepZero)
{
    EXPECT_EQ(Coefficients(ParseEquationLine(u"A+B=C+D/3,4"_s)), (Numbers{3, 4, 0, 0, 0, 0}));
    EXPECT_EQ(Coefficients(ParseEquationLine(u"A=B/3,"_s)), (Numbers{3, 0, 0, 0, 0, 0}));
}

TEST(EquationLine, ExcessCoefficientsAreIgnored)
{
    EXPECT_EQ(Coefficients(ParseEquationLine(u"A=B/3,4,5,6"_s)), (Numbers{3, 0, 0, 4, 0, 0}));
}

TEST(EquationLine, FieldThatIsNoNumberReadsAsZero)
{
    EXPECT_EQ(Coefficients(ParseEquationLine(u"A+B=C/x,,2"_s)), (Numbers{0, 0, 0, 2, 0, 0}));
}

TEST(EquationLine, FractionalCoefficientIsRoundedToTheEvenNeighbour)
{
    // 0.5 -> 0, 1.5 -> 2, 2.5 -> 2, 2.6 -> 3
    EXPECT_EQ(Coefficients(ParseEquationLine(u"A+B=C+D/0.5,1.5,2.5,2.6"_s)), (Numbers{0, 2, 0, 2, 3, 0}));
}

TEST(EquationLine, CoefficientOutsideSixteenBitsIsAFault)
{
    EXPECT_EQ(Coefficients(ParseEquationLine(u"A=B/32767,1"_s))[0], 32767);
    EXPECT_THROW(ParseEquationLine(u"A=B/32768,1"_s), FatalFault);
}

// Progress data.

TEST(EquationLine, DataAreReadInUpperCase)
{
    EXPECT_EQ(Data(ParseEquationLine(u"A=B/1,1#m2.5,v3"_s)),
              (Texts{u"M2.5"_s, u"0"_s, u"0"_s, u"V3"_s, u"0"_s, u"0"_s}));
}

TEST(EquationLine, SpeciesWithoutAnItemKeepZero)
{
    EXPECT_EQ(Data(ParseEquationLine(u"A+B=C/1,1,1#Q1"_s)),
              (Texts{u"Q1"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
}

TEST(EquationLine, DatumForOneProductAloneIsEnough)
{
    EXPECT_EQ(Data(ParseEquationLine(u"A=B/1,1#Q0,Q2"_s)),
              (Texts{u"Q0"_s, u"0"_s, u"0"_s, u"Q2"_s, u"0"_s, u"0"_s}));
}

TEST(EquationLine, OneItemTooManyIsTheGeneralFault)
{
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#Q1,Q2,Q3"_s), FatalFault);
    EXPECT_THROW(ParseEquationLine(u"A+B=C+D/1,1,1,1#Q1,Q2,Q3,Q4,Q5"_s), FatalFault);
}

TEST(EquationLine, TwoItemsTooManyAreTheSyntaxError)
{
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#Q1,Q2,Q3,Q4"_s), DataSyntaxError);
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#Q1,Q2,Q3,Q4,Q5"_s), DataSyntaxError);
    EXPECT_THROW(ParseEquationLine(u"A+B=C+D/1,1,1,1#Q1,Q2,Q3,Q4,Q5,Q6"_s), DataSyntaxError);
}

TEST(EquationLine, DecimalCommasAreTheSyntaxError)
{
    // Four items for two species: Q0, 5, Q1, 2.
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#Q0,5,Q1,2"_s), DataSyntaxError);
}

TEST(EquationLine, AnyExcessBehindAThirdProductIsTheGeneralFault)
{
    const QString line = u"A=B+C+D/1,1,1,1#Q1,Q2,Q3,Q4"_s;
    EXPECT_EQ(Data(ParseEquationLine(line)), (Texts{u"Q1"_s, u"0"_s, u"0"_s, u"Q2"_s, u"Q3"_s, u"Q4"_s}));

    EXPECT_THROW(ParseEquationLine(line + u",Q5"_s), FatalFault);
    EXPECT_THROW(ParseEquationLine(line + u",Q5,Q6"_s), FatalFault);
    EXPECT_THROW(ParseEquationLine(line + u",Q5,Q6,Q7"_s), FatalFault);
}

TEST(EquationLine, DataThatAllReadAsZeroAreRefused)
{
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#Q0"_s), MissingDataError);
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#Q0,M0.0"_s), MissingDataError);
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#Q,Qx"_s), MissingDataError);
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#"_s), MissingDataError);
}

TEST(EquationLine, TheKindLetterIsNotPartOfTheNumber)
{
    // "12" without a letter: the number is what follows the first character, 2.
    EXPECT_EQ(Data(ParseEquationLine(u"A=B/1,1#12"_s))[0], u"12"_s);
    // "5" alone leaves no number.
    EXPECT_THROW(ParseEquationLine(u"A=B/1,1#5"_s), MissingDataError);
}

TEST(EquationLine, MissingDataMessageTellsTheLineWithoutBlanks)
{
    try {
        ParseEquationLine(u"A = B / 1, 1 # Q0"_s);
        FAIL() << "the line was taken";
    } catch (const MissingDataError& error) {
        EXPECT_EQ(error.Line(), u"A=B/1,1#Q0"_s);
        EXPECT_EQ(error.Title(), u"Erreur dans fichier d'équations"_s);
        EXPECT_EQ(error.Text(),
                  u"Il n'y a aucune donnée pour les paramètres d'avancement\n"
                  "pour l'équation en cours dans la ligne A=B/1,1#Q0.\n"
                  "Veuillez corriger le fichier corrompu.\n"
                  "\n"
                  "L'application va se fermer."_s);
    }
}

TEST(EquationLine, SyntaxMessageHasItsFixedText)
{
    const DataSyntaxError error;

    EXPECT_EQ(error.Title(), u"Stoikal - Erreur de syntaxe"_s);
    EXPECT_EQ(error.Text(),
              u"Le fichier sélectionné comporte une erreur de syntaxe.\n"
              "Assurez-vous que les nombres décimaux aient des points et non des virgules comme séparateur.\n"
              "L'application Stoikal va se fermer."_s);
}

// Lines that cannot be cut at all.

TEST(EquationLine, LineWithoutEqualsSignIsAFault)
{
    EXPECT_THROW(ParseEquationLine(u"H2+O2/1,1"_s), FatalFault);
}

TEST(EquationLine, LineOfBlanksOnlyIsAFault)
{
    EXPECT_THROW(ParseEquationLine(u" "_s), FatalFault);
    EXPECT_THROW(ParseEquationLine(u"   "_s), FatalFault);
}

TEST(EquationLine, SlashBeforeTheEqualsSignIsAFault)
{
    EXPECT_THROW(ParseEquationLine(u"A/1,1=B"_s), FatalFault);
}

TEST(EquationLine, HashBeforeTheSlashIsAFault)
{
    EXPECT_THROW(ParseEquationLine(u"A=B#Q1,Q2/1,1"_s), FatalFault);
}

TEST(EquationLine, FaultsLeaveThePlaceToTheCaller)
{
    try {
        ParseEquationLine(u"A/1,1"_s);
        FAIL() << "the line was taken";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.Cause(), u"la ligne n'a pas de signe « = »."_s);
        EXPECT_TRUE(fault.File().isEmpty());
        EXPECT_EQ(fault.Line(), 0);
    }
}
