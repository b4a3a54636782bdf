#include "progress/progress_fixture.h"

#include "base/fatal_fault.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kMethane = u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#Q0.5,Q1.2,Q0,Q0"_s;

QString CauseOf(const QString& line)
{
    try {
        TableOf(line);
    } catch (const FatalFault& fault) {
        return fault.Cause();
    }
    return u"(no fault)"_s;
}

/// The texts with one box written over.
ProgressTexts With(ProgressTexts texts, ProgressTexts::Row ProgressTexts::*row, std::size_t slot,
                   const QString& text)
{
    (texts.*row)[slot] = text;
    return texts;
}

ProgressTable Compute(const EquationRecord& record, const ProgressTexts& texts)
{
    return ComputeProgress(record, MassesOf(record), texts, kDefaultMolarVolume);
}

} // namespace

TEST(FillProgressTable, PutsEachDatumIntoItsRow)
{
    const ProgressTexts texts
        = FillProgressTable(RecordOf(u"Zn<s>+HCl<aq>=ZnCl2<aq>+H2<g>/1,2,1,1#M3.27,Q0.2,Q0.05,V1.12"_s));

    EXPECT_EQ(Joined(texts.txtMasse), u"3.27|||||"_s);
    EXPECT_EQ(Joined(texts.txtVolGaz), u"||||1.12|"_s);
    // The initial amount of a reactant, the final one of a product; products begin at 0.
    EXPECT_EQ(Joined(texts.txtQmat0), u"|0.2||0|0|"_s);
    EXPECT_EQ(Joined(texts.txtQmatf), u"|||0.05||"_s);
}

TEST(FillProgressTable, LeavesTheBoxOfADatumOfZeroEmpty)
{
    const ProgressTexts texts
        = FillProgressTable(RecordOf(u"H2<g>+O2<g>=H2O<g>+CO2<g>/1,1,1,1#M0,V0.0,Q0,Q1"_s));

    EXPECT_EQ(Joined(texts.txtMasse), u"|||||"_s);
    EXPECT_EQ(Joined(texts.txtVolGaz), u"|||||"_s);
    EXPECT_EQ(Joined(texts.txtQmatf), u"||||1|"_s);
}

TEST(FillProgressTable, ShowsAMassAsItStandsAndAnAmountWithAPoint)
{
    EquationRecord record = RecordOf(u"C+O2=CO2/1,1,1#M1,Q1"_s);
    record.Slots[0].MVQ = u"M2,50"_s;
    record.Slots[1].MVQ = u"Q0 ,25"_s;

    const ProgressTexts texts = FillProgressTable(record);

    EXPECT_EQ(texts.txtMasse[0], u"2,50"_s);
    EXPECT_EQ(texts.txtQmat0[1], u"0.25"_s);
}

TEST(FillProgressTable, WritesTheIntermediateStateAsFormulas)
{
    const ProgressTexts texts = FillProgressTable(RecordOf(u"H2<g>+O2<g>=H2O<l>/2,1,2#Q0.5,Q0,Q0"_s));

    EXPECT_EQ(Joined(texts.txtQmati), u"0.5-2*xmax|ni(1)-1*xmax||2*xmax||"_s);
}

TEST(FillProgressTable, PassesOverAnUnknownKindOfDatum)
{
    const ProgressTexts texts = FillProgressTable(RecordOf(u"C+O2=CO2/1,1,1#X5,Q1"_s));

    EXPECT_EQ(texts.txtMasse[0] + texts.txtVolGaz[0] + texts.txtQmat0[0], QString());
}

TEST(IntermediateText, CountsTheSlotFromZero)
{
    EXPECT_EQ(IntermediateText(0, 2, QString()), u"ni(0)-2*xmax"_s);
    EXPECT_EQ(IntermediateText(2, 13, u"0"_s), u"ni(2)-13*xmax"_s);
    EXPECT_EQ(IntermediateText(1, 3, u"0,000"_s), u"ni(1)-3*xmax"_s);
}

TEST(IntermediateText, KeepsTheTextOfTheInitialAmount)
{
    EXPECT_EQ(IntermediateText(0, 2, u"0,50"_s), u"0,50-2*xmax"_s);
    EXPECT_EQ(IntermediateText(4, 2, u"0,50"_s), u"2*xmax"_s);
}

TEST(TypedNumber, ReadsACommaOrAPoint)
{
    EXPECT_EQ(TypedNumber(u"0,5"_s), 0.5);
    EXPECT_EQ(TypedNumber(u"0.5"_s), 0.5);
    EXPECT_EQ(TypedNumber(u" 1 , 25 "_s), 1.25);
}

TEST(TypedNumber, StopsAtASecondComma)
{
    EXPECT_EQ(TypedNumber(u"1,2,3"_s), 1.2);
    EXPECT_EQ(TypedNumber(u"1,2.3"_s), 1.2);
}

TEST(TypedNumber, KnowsNoExponentAndReadsNothingAsZero)
{
    EXPECT_EQ(TypedNumber(u"1e5"_s), 1);
    EXPECT_EQ(TypedNumber(QString()), 0);
    EXPECT_EQ(TypedNumber(u","_s), 0);
}

TEST(MolarVolumeOf, ReadsTheSettingAndElseTheDefault)
{
    EXPECT_EQ(MolarVolumeOf(u"24"_s), 24);
    EXPECT_EQ(MolarVolumeOf(u"24,05"_s), 24.05);
    EXPECT_EQ(MolarVolumeOf(QString()), 22.4);
    EXPECT_EQ(MolarVolumeOf(u"0"_s), 22.4);
    EXPECT_EQ(MolarVolumeOf(u"rien"_s), 22.4);
}

TEST(ComputeProgress, FindsTheLimitingReactant)
{
    const ProgressTable table = TableOf(kMethane);

    // 0.5 / 1 = 0.5 < 1.2 / 2 = 0.6
    EXPECT_DOUBLE_EQ(table.Xmax, 0.5);
    ExpectNumbers(table.InitialAmount, {0.5, 1.2, 0, 0, 0, 0});
    // 1.2 - 2 x 0.5 = 0.2; 1 x 0.5; 2 x 0.5
    ExpectNumbers(table.FinalAmount, {0, 0.2, 0, 0.5, 1, 0});
}

TEST(ComputeProgress, LimitsByTheSecondReactantToo)
{
    const ProgressTable table = TableOf(u"C<s>+O2<g>=CO2<g>/1,1,1#Q3,Q2"_s);

    EXPECT_DOUBLE_EQ(table.Xmax, 2);
    ExpectNumbers(table.FinalAmount, {1, 0, 0, 2, 0, 0});
}

TEST(ComputeProgress, LimitsByTheThirdReactantToo)
{
    // 0.01 / 5 = 0.002; 0.003 / 1; 0.008 / 8 = 0.001
    const ProgressTable table
        = TableOf(u"Fe{2+}+MnO4{-}+H{+}=Fe{3+}+Mn{2+}+H2O/5,1,8,5,1,4#Q0.01,Q0.003,Q0.008"_s);

    EXPECT_DOUBLE_EQ(table.Xmax, 0.001);
    ExpectNumbers(table.FinalAmount, {0.005, 0.002, 0, 0.005, 0.001, 0.004});
}

TEST(ComputeProgress, LeavesNothingOfAStoichiometricMixture)
{
    const ProgressTable table = TableOf(u"H2<g>+O2<g>=H2O<l>/2,1,2#Q2,Q1"_s);

    EXPECT_EQ(table.Xmax, 1);
    EXPECT_EQ(table.FinalAmount[0], 0.0);
    EXPECT_EQ(table.FinalAmount[1], 0.0);
}

TEST(ComputeProgress, TakesReactantsWithoutADatumInProportion)
{
    // A datum on the second alone: 3 x 0.7 / 2 = 1.05 of the first.
    const ProgressTable table = TableOf(u"Fe+O2=Fe3O4/3,2,1#Q0,Q0.7"_s);

    ExpectNumbers(table.InitialAmount, {1.05, 0.7, 0, 0, 0, 0});
    EXPECT_DOUBLE_EQ(table.Xmax, 0.35);
    EXPECT_EQ(table.FinalAmount[0], 0.0);
    EXPECT_EQ(table.FinalAmount[1], 0.0);
    EXPECT_DOUBLE_EQ(table.FinalAmount[3], 0.35);
}

TEST(ComputeProgress, TakesTheLastReactantWithADatumAsReference)
{
    // Slot 2 without a datum follows slot 1, the last with one, and not slot 0:
    // 8 x 0.003 / 1 = 0.024.
    const ProgressTable table = TableOf(u"Fe{2+}+MnO4{-}+H{+}=Fe{3+}+Mn{2+}+H2O/5,1,8,5,1,4#Q0.01,Q0.003"_s);

    EXPECT_DOUBLE_EQ(table.InitialAmount[2], 0.024);
}

TEST(ComputeProgress, ReadsTheReactionBackwardsFromAProduct)
{
    // 0.6 mol of NH3: 1 x 0.6 / 2 = 0.3 of N2, 3 x 0.6 / 2 = 0.9 of H2.
    const ProgressTable table = TableOf(u"N2<g>+H2<g>=NH3<g>/1,3,2#Q0,Q0,Q0.6"_s);

    ExpectNumbers(table.InitialAmount, {0.3, 0.9, 0, 0, 0, 0});
    ExpectNumbers(table.FinalAmount, {0, 0, 0, 0.6, 0, 0});
    EXPECT_DOUBLE_EQ(table.Xmax, 0.3);
}

TEST(ComputeProgress, TakesTheOtherProductsInProportion)
{
    // 0.2 mol of CO2: 2 x 0.2 / 1 = 0.4 of H2O, 2 x 0.2 of O2.
    const ProgressTable table = TableOf(u"CH4+O2=CO2+H2O/1,2,1,2#Q0,Q0,Q0.2"_s);

    ExpectNumbers(table.FinalAmount, {0, 0, 0, 0.2, 0.4, 0});
    ExpectNumbers(table.InitialAmount, {0.2, 0.4, 0, 0, 0, 0});
}

TEST(ComputeProgress, KeepsAGivenReactantBesideAGivenProduct)
{
    const ProgressTable table = TableOf(u"CH4+O2=CO2+H2O/1,2,1,2#Q0.5,Q0,Q0.2"_s);

    // The reference is the product: 2 x 0.2 / 1 of O2. The amount itself, 0.4, is
    // less than 0.5, so the advancement becomes 0.4 / 2.
    ExpectNumbers(table.InitialAmount, {0.5, 0.4, 0, 0, 0, 0});
    EXPECT_DOUBLE_EQ(table.Xmax, 0.2);
    EXPECT_EQ(table.FinalAmount[0], 0.0);
}

TEST(ComputeProgress, ComparesTheAmountItselfInTheBackwardCase)
{
    // 0.5 of the first gives 0.5; 0.6 of the second is not less than 0.5, although
    // 0.6 / 2 is: the advancement stays.
    const ProgressTable table = TableOf(u"CH4+O2=CO2+H2O/1,2,1,2#Q0.5,Q0.6,Q0.2"_s);

    EXPECT_DOUBLE_EQ(table.Xmax, 0.5);
}

TEST(ComputeProgress, LeavesEmptySlotsOutOfTheBackwardCase)
{
    // Without "/" every coefficient is 1, that of empty slots too.
    EquationRecord record = RecordOf(u"CaCO3=CaO+CO2"_s);
    record.Slots[4].MVQ = u"Q0.5"_s;
    ASSERT_EQ(record.Slots[1].Coeff, 1);

    const ProgressTable table = Compute(record, FillProgressTable(record));

    ExpectNumbers(table.InitialAmount, {0.5, 0, 0, 0, 0, 0});
    ExpectNumbers(table.FinalAmount, {0, 0, 0, 0.5, 0.5, 0});
}

TEST(ComputeProgress, LeavesEmptySlotsOutOfTheForwardCase)
{
    EquationRecord record = RecordOf(u"CaCO3=CaO+CO2"_s);
    record.Slots[0].MVQ = u"Q0.5"_s;

    const ProgressTable table = Compute(record, FillProgressTable(record));

    ExpectNumbers(table.InitialAmount, {0.5, 0, 0, 0, 0, 0});
    ExpectNumbers(table.FinalAmount, {0, 0, 0, 0.5, 0.5, 0});
    EXPECT_FALSE(table.IsUsed(1));
    EXPECT_TRUE(table.IsUsed(4));
}

TEST(ComputeProgress, DividesAMassByTheMolarMass)
{
    const EquationRecord record = RecordOf(u"A=B/1,1#M10"_s);

    const ProgressTable table
        = ComputeProgress(record, {40, 0, 0, 40, 0, 0}, FillProgressTable(record), 22.4);

    // 10 / 40
    EXPECT_EQ(table.InitialAmount[0], 0.25);
    EXPECT_EQ(table.Mass[0], 10);
    EXPECT_EQ(table.Mass[3], 10);
}

TEST(ComputeProgress, DividesAVolumeByTheMolarVolume)
{
    const ProgressTable table = TableOf(u"H2<g>+O2<g>=H2O<g>/2,1,2#V11.2,V11.2"_s);

    // 11.2 / 22.4 = 0.5 of each; 0.5 / 2 = 0.25.
    ExpectNumbers(table.InitialAmount, {0.5, 0.5, 0, 0, 0, 0});
    EXPECT_DOUBLE_EQ(table.Xmax, 0.25);
    // Volumes: initial for reactants, final for products.
    ExpectNumbers(table.Volume, {11.2, 11.2, 0, 11.2, 0, 0});
}

TEST(ComputeProgress, FollowsAnotherMolarVolume)
{
    const ProgressTable table = TableOf(u"H2<g>+O2<g>=H2O<g>/2,1,2#Q2,Q1"_s, 24);

    EXPECT_EQ(table.MolarVolume, 24);
    ExpectNumbers(table.Volume, {48, 24, 0, 48, 0, 0});
}

TEST(ComputeProgress, LetsTheLowerRowOfASlotWin)
{
    const EquationRecord record = RecordOf(u"A=B/1,1"_s);
    const ProgressTexts mass = With({}, &ProgressTexts::txtMasse, 0, u"80"_s);
    const ProgressTexts volume = With(mass, &ProgressTexts::txtVolGaz, 0, u"11,2"_s);
    const ProgressTexts amount = With(volume, &ProgressTexts::txtQmat0, 0, u"3"_s);
    const auto initial = [&record](const ProgressTexts& texts) {
        return ComputeProgress(record, {40, 0, 0, 40, 0, 0}, texts, 22.4).InitialAmount[0];
    };

    EXPECT_EQ(initial(mass), 2); // 80 / 40
    EXPECT_DOUBLE_EQ(initial(volume), 0.5); // 11.2 / 22.4
    EXPECT_EQ(initial(amount), 3);
}

TEST(ComputeProgress, LetsTheLowerRowOfAProductWin)
{
    const EquationRecord record = RecordOf(u"A=B/1,1"_s);
    const ProgressTexts mass = With({}, &ProgressTexts::txtMasse, 3, u"80"_s);
    const ProgressTexts amount = With(mass, &ProgressTexts::txtQmatf, 3, u"3"_s);
    const auto final = [&record](const ProgressTexts& texts) {
        return ComputeProgress(record, {40, 0, 0, 40, 0, 0}, texts, 22.4).FinalAmount[3];
    };

    EXPECT_EQ(final(mass), 2);
    EXPECT_EQ(final(amount), 3);
}

TEST(ComputeProgress, GivesMassesAndVolumesToAllSpecies)
{
    const ProgressTable table = TableOf(kMethane);
    const ProgressTable::Numbers& mass = table.MolarMass;

    ExpectNumbers(table.Mass, {0.5 * mass[0], 1.2 * mass[1], 0, 0.5 * mass[3], 1 * mass[4], 0});
    // The liquid has one too; only the display sorts it out. 0.5 x 22.4 = 11.2
    ExpectNumbers(table.Volume, {11.2, 26.88, 0, 11.2, 22.4, 0});
}

TEST(ComputeProgress, SetsTheRestOfASubtractionToZero)
{
    // 0.3 - 3 x 0.1 is 5.6E-17 in binary fractions.
    const ProgressTable table = TableOf(u"N2+H2=NH3/1,3,2#Q0.1,Q0.3"_s);

    EXPECT_EQ(table.FinalAmount[0], 0.0);
    EXPECT_EQ(table.FinalAmount[1], 0.0);
}

TEST(ComputeProgress, SetsAmountsUnderOneHundredMillionthToZero)
{
    const ProgressTable table = TableOf(u"C+O2=CO2/1,1,1#Q1,Q0.000000009"_s);

    EXPECT_EQ(table.InitialAmount[1], 0.0);
    EXPECT_EQ(table.FinalAmount[3], 0.0);
    EXPECT_DOUBLE_EQ(TableOf(u"C+O2=CO2/1,1,1#Q1,Q0.00000001"_s).InitialAmount[1], 1e-8);
}

TEST(ComputeProgress, ScalesByAThousandAtLeast)
{
    // The whole value of 10^n x Xmax is not 0 from n = 0, 1 on: n + 1 is under 3.
    EXPECT_EQ(TableOf(u"C+O2=CO2/1,1,1#Q5"_s).XmaxScale, 1000);
    EXPECT_EQ(TableOf(u"C+O2=CO2/1,1,1#Q0.1"_s).XmaxScale, 1000);
    // 10^2 x 0.01 = 1: n = 2, then 3.
    EXPECT_EQ(TableOf(u"C+O2=CO2/1,1,1#Q0.01"_s).XmaxScale, 1000);
}

TEST(ComputeProgress, ScalesASmallAdvancementMore)
{
    // 10^2 x 0.005 = 0.5, 10^3 x 0.005 = 5: n = 3, then 4.
    EXPECT_EQ(TableOf(u"C+O2=CO2/1,1,1#Q0.005"_s).XmaxScale, 10000);
    // 10^8 x 0.00000002 = 2: n = 8, then 9.
    EXPECT_EQ(TableOf(u"C+O2=CO2/1,1,1#Q0.00000002"_s).XmaxScale, 1000000000);
}

TEST(ComputeProgress, ScalesByTheFirstReactantAlone)
{
    const ProgressTable table = TableOf(u"C+O2=CO2/1,1,1#Q5,Q0.0005"_s);

    EXPECT_DOUBLE_EQ(table.Xmax, 0.0005);
    EXPECT_EQ(table.XmaxScale, 1000);
}

TEST(ComputeProgress, GivesZerosWithoutAnyDatum)
{
    const EquationRecord record = RecordOf(u"C+O2=CO2/1,1,1"_s);

    const ProgressTable table = Compute(record, FillProgressTable(record));

    ExpectNumbers(table.InitialAmount, {});
    ExpectNumbers(table.FinalAmount, {});
    ExpectNumbers(table.Mass, {});
    EXPECT_EQ(table.Xmax, 0);
    EXPECT_EQ(table.XmaxScale, 1000);
    EXPECT_EQ(table.Molecule[0], u"C"_s);
}

TEST(ComputeProgress, CarriesTheSpeciesForTheDrawings)
{
    const ProgressTable table = TableOf(u"Cu{2+}<aq>+Zn<s>=Cu<s>+Zn{2+}<aq>/1,1,1,1#Q0.02,Q0.1"_s);

    EXPECT_EQ(table.Molecule[0], u"Cu"_s);
    EXPECT_EQ(table.Charge[0], 2);
    EXPECT_EQ(table.Charge[1], 0);
    EXPECT_EQ(table.Charge[4], 2);
    EXPECT_EQ(table.Coeff[4], 1);
    EXPECT_EQ(table.Coeff[5], 0);
    EXPECT_NEAR(table.MolarMass[1], 65.4, 0.1);
}

TEST(ComputeProgress, EndsAtACoefficientOfZero)
{
    EXPECT_EQ(CauseOf(u"C+O2=CO2/1,0,1#Q1"_s), u"le coefficient de O2 est nul."_s);
    EXPECT_EQ(CauseOf(u"C+O2=CO2/1,1#Q1"_s), u"le coefficient de CO2 est nul."_s);
    EXPECT_EQ(CauseOf(u"C+O2=CO2/x,1,1#Q1"_s), u"le coefficient de C est nul."_s);
}

TEST(ComputeProgress, EndsWithoutAFirstReactant)
{
    // The furthest advancement is counted from the first reactant's amount.
    EquationRecord record = RecordOf(u"C+O2=CO2/1,1,1#Q1,Q1"_s);
    const MolarMasses masses = MassesOf(record);
    const ProgressTexts texts = FillProgressTable(record);
    record.Slots[0] = {};

    try {
        ComputeProgress(record, masses, texts, 22.4);
        ADD_FAILURE() << "no fault";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.Cause(), u"l'équation n'a pas de premier réactif."_s);
    }
}

TEST(ComputeProgress, EndsAtWhatIsNegative)
{
    // Judged against a negative amount, every answer would be right.
    EXPECT_EQ(CauseOf(u"C+O2=CO2/1,1,1#Q1,V-2"_s), u"la donnée d'avancement de O2 est négative."_s);
    EXPECT_EQ(CauseOf(u"C+O2=CO2/1,1,-1#Q1"_s), u"le coefficient de CO2 est négatif."_s);
}

TEST(ComputeProgress, EndsAtAMassOfASpeciesWithoutAtoms)
{
    EXPECT_EQ(CauseOf(u"e+O2=CO2/1,1,1#M1"_s), u"la masse molaire de e est nulle."_s);
    EXPECT_EQ(CauseOf(u"Xy+O2=CO2/1,1,1#M1"_s), u"la masse molaire de Xy est nulle."_s);
}

TEST(ComputeProgress, EndsWithAnAdvancementTooSmallInsteadOfSeekingForEver)
{
    EXPECT_EQ(CauseOf(u"C+O2=CO2/1,1,1#Q0.000000001"_s), u"l'avancement maximal est nul ou trop petit."_s);
}

TEST(ComputeProgress, EndsAtADatumOutsideTheNumbers)
{
    EXPECT_EQ(CauseOf(u"C+O2=CO2/1,1,1#Q"_s + QString(400, u'9')),
              u"une donnée d'avancement est hors limites."_s);
}

TEST(ComputeProgress, TakesADatumOfFortyDigits)
{
    const ProgressTable table = TableOf(u"C+O2=CO2/1,1,1#Q1"_s + QString(39, u'0'));

    EXPECT_DOUBLE_EQ(table.Xmax, 1e39);
}

TEST(AmountText, FitsThePrecisionToTheSize)
{
    EXPECT_EQ(AmountText(0, u','), u"0"_s);
    EXPECT_EQ(AmountText(0.0056, u','), u"0,006"_s);
    EXPECT_EQ(AmountText(0.5, u','), u"0,50"_s);
    EXPECT_EQ(AmountText(12.34, u','), u"12,3"_s);
    EXPECT_EQ(AmountText(123.4, u','), u"123"_s);
}

TEST(AmountText, CountsABoundaryToTheSmallerNumbers)
{
    EXPECT_EQ(AmountText(0.01, u'.'), u"0.010"_s);
    EXPECT_EQ(AmountText(0.0101, u'.'), u"0.01"_s);
    EXPECT_EQ(AmountText(1, u'.'), u"1.00"_s);
    EXPECT_EQ(AmountText(1.01, u'.'), u"1.0"_s);
    EXPECT_EQ(AmountText(50, u'.'), u"50.0"_s);
    EXPECT_EQ(AmountText(50.4, u'.'), u"50"_s);
}

TEST(QuantityText, FitsThePrecisionToTheSize)
{
    EXPECT_EQ(QuantityText(0, u','), QString());
    EXPECT_EQ(QuantityText(0.005, u','), u"0,01"_s);
    EXPECT_EQ(QuantityText(0.125, u','), u"0,13"_s);
    EXPECT_EQ(QuantityText(72.34, u','), u"72,3"_s);
    EXPECT_EQ(QuantityText(523.6, u','), u"524"_s);
    EXPECT_EQ(QuantityText(12345.6, u','), u"12346"_s);
}

TEST(QuantityText, CountsABoundaryToTheSmallerNumbers)
{
    EXPECT_EQ(QuantityText(1, u'.'), u"1.00"_s);
    EXPECT_EQ(QuantityText(1.04, u'.'), u"1.0"_s);
    EXPECT_EQ(QuantityText(100, u'.'), u"100.0"_s);
    EXPECT_EQ(QuantityText(100.4, u'.'), u"100"_s);
}

TEST(ShowComputedTable, WritesTheWholeTable)
{
    const EquationRecord record = RecordOf(kMethane);
    const ProgressTable table
        = ComputeProgress(record, {16, 32, 0, 44, 18, 0}, FillProgressTable(record), 24);

    const ProgressTexts texts = ShowComputedTable(record, table, u',', FillProgressTable(record));

    // 0.5 x 16, 1.2 x 32 = 38.4, 0.5 x 44, 1 x 18
    EXPECT_EQ(Joined(texts.txtMasse), u"8,0|38,4||22,0|18,0|"_s);
    // 0.5 x 24, 1.2 x 24 = 28.8; the water is a liquid.
    EXPECT_EQ(Joined(texts.txtVolGaz), u"12,0|28,8||12,0||"_s);
    EXPECT_EQ(Joined(texts.txtQmat0), u"0,50|1,2||0|0|"_s);
    EXPECT_EQ(Joined(texts.txtQmati), u"0,50-1*xmax|1,2-2*xmax||1*xmax|2*xmax|"_s);
    EXPECT_EQ(Joined(texts.txtQmatf), u"0|0,20||0,50|1,00|"_s);
}

TEST(ShowComputedTable, LeavesAVolumeThatIsNoGasAsItStands)
{
    const EquationRecord record = RecordOf(u"A<l>=B<g>/1,1#V5"_s);
    const ProgressTexts given = FillProgressTable(record);
    const ProgressTable table = ComputeProgress(record, {40, 0, 0, 40, 0, 0}, given, 22.4);

    EXPECT_EQ(Joined(ShowComputedTable(record, table, u',', given).txtVolGaz), u"5|||5,0||"_s);
}

} // namespace stoikal
