#include "progress/progress_check.h"

#include "base/fatal_fault.h"
#include "progress/progress_fixture.h"

#include <cmath>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<bool, 6> kNoVolume{};

/// CH4 0.5, O2 1.2 (excess 0.2), CO2 0.5, H2O 1, with round molar masses.
ProgressTable Methane()
{
    const EquationRecord record = RecordOf(u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#Q0.5,Q1.2"_s);
    return ComputeProgress(record, {16, 32, 0, 44, 18, 0}, FillProgressTable(record), 24);
}

/// The boxes of `Methane` filled rightly.
ProgressTexts RightTexts()
{
    ProgressTexts texts;
    texts.txtMasse = {u"8"_s, u"38,4"_s, {}, u"22"_s, u"18"_s, {}};
    texts.txtVolGaz = {u"12"_s, u"28.8"_s, {}, u"12"_s, {}, {}};
    texts.txtQmat0 = {u"0.5"_s, u"1,2"_s, {}, u"0"_s, u"0"_s, {}};
    texts.txtQmati = {u"0.5-1*xmax"_s, u"1.2-2*xmax"_s, {}, u"1*xmax"_s, u"2*xmax"_s, {}};
    texts.txtQmatf = {u"0"_s, u"0,2"_s, {}, u"0.5"_s, u"1"_s, {}};
    return texts;
}

TableVerdicts VerdictsOn(const ProgressTexts& texts, const std::array<bool, 6>& volumeAsked)
{
    ProgressTable table = Methane();
    ReadTypedTable(texts, table);
    return CheckProgressTable(table, volumeAsked);
}

constexpr std::array<bool, 6> kGases{true, true, false, true, false, false};

} // namespace

TEST(IsMolarMassRight, AllowsTwoPercentOfTheTypedValue)
{
    EXPECT_TRUE(IsMolarMassRight(18.3, 18.0)); // 0.3 / 18.3 = 1.6 %
    EXPECT_FALSE(IsMolarMassRight(17.6, 18.0)); // 0.4 / 17.6 = 2.3 %
    // The same distance on the other side: 0.36 / 18.36 passes, 0.36 / 17.64 does not.
    EXPECT_TRUE(IsMolarMassRight(18.36, 18.0));
    EXPECT_FALSE(IsMolarMassRight(17.64, 18.0));
}

TEST(IsMolarMassRight, IncludesTheLimit)
{
    EXPECT_TRUE(IsMolarMassRight(50, 49)); // 1 / 50
    EXPECT_TRUE(IsMolarMassRight(50, 51));
    EXPECT_TRUE(IsMolarMassRight(0.1, 0.102)); // 0.002 / 0.1, a binary rest above 2 %
    EXPECT_FALSE(IsMolarMassRight(50, 48.98)); // 1.02 / 50 = 2.04 %
    EXPECT_FALSE(IsMolarMassRight(50, 51.02));
}

TEST(IsMolarMassRight, RefusesAnythingForASpeciesWithoutMass)
{
    EXPECT_FALSE(IsMolarMassRight(18, 0));
}

TEST(IsMolarMassRight, RefusesWhatIsTooLargeForANumber)
{
    EXPECT_FALSE(IsMolarMassRight(HUGE_VAL, 18));
}

TEST(CheckMolarMasses, JudgesEverySpeciesByItself)
{
    const RowVerdicts verdicts
        = CheckMolarMasses(Methane(), {u"16,1"_s, u"16"_s, u"5"_s, u"44"_s, u"18.3"_s, {}});

    EXPECT_EQ(verdicts,
              RowVerdicts({BoxVerdict::Right, BoxVerdict::Wrong, BoxVerdict::NotJudged, BoxVerdict::Right,
                           BoxVerdict::Right, BoxVerdict::NotJudged}));
    EXPECT_FALSE(AreAllRight(verdicts));
}

TEST(IsAmountRight, AllowsFivePercentOfTheTrueValue)
{
    EXPECT_TRUE(IsAmountRight(1.04, 1));
    EXPECT_FALSE(IsAmountRight(1.06, 1));
    EXPECT_FALSE(IsAmountRight(0.94, 1));
}

TEST(IsAmountRight, IncludesTheLimit)
{
    EXPECT_TRUE(IsAmountRight(1.05, 1)); // in binary fractions 1.05 - 1 is above 0.05
    EXPECT_TRUE(IsAmountRight(0.525, 0.5));
    EXPECT_TRUE(IsAmountRight(0.95, 1));
    EXPECT_FALSE(IsAmountRight(1.0501, 1)); // 5.01 %
    EXPECT_FALSE(IsAmountRight(0.9499, 1));
}

TEST(IsAmountRight, IsAbsoluteForATrueValueOfZero)
{
    EXPECT_TRUE(IsAmountRight(0, 0));
    EXPECT_TRUE(IsAmountRight(0.04, 0));
    EXPECT_TRUE(IsAmountRight(0.05, 0));
    EXPECT_FALSE(IsAmountRight(0.0501, 0));
}

TEST(IsQuantityRight, AllowsFivePercentOfTheTrueValue)
{
    EXPECT_TRUE(IsQuantityRight(10.5, 10));
    EXPECT_FALSE(IsQuantityRight(10.6, 10));
    EXPECT_TRUE(IsQuantityRight(9.5, 10));
    EXPECT_FALSE(IsQuantityRight(9.4, 10));
    EXPECT_FALSE(IsQuantityRight(0, 10));
}

TEST(IsQuantityRight, IncludesTheLimit)
{
    EXPECT_TRUE(IsQuantityRight(1.05, 1)); // in binary fractions 1.05 - 1 is above 0.05
    EXPECT_FALSE(IsQuantityRight(1.0501, 1)); // 5.01 %
    EXPECT_FALSE(IsQuantityRight(0.9499, 1));
}

TEST(IsQuantityRight, CannotBeToldForATrueValueOfZero)
{
    EXPECT_THROW(IsQuantityRight(1, 0), FatalFault);
}

TEST(ReadTypedTable, ReadsCommasPointsAndEmptyBoxes)
{
    ProgressTable table = Methane();

    ReadTypedTable(RightTexts(), table);

    ExpectNumbers(table.TypedMass, {8, 38.4, 0, 22, 18, 0});
    ExpectNumbers(table.TypedVolume, {12, 28.8, 0, 12, 0, 0});
    ExpectNumbers(table.TypedInitial, {0.5, 1.2, 0, 0, 0, 0});
    ExpectNumbers(table.TypedFinal, {0, 0.2, 0, 0.5, 1, 0});
}

TEST(CheckProgressTable, PassesATableThatIsRight)
{
    const TableVerdicts verdicts = VerdictsOn(RightTexts(), kGases);

    EXPECT_TRUE(verdicts.AreAllRight());
    EXPECT_EQ(verdicts.txtQmatf[0], BoxVerdict::Right);
    EXPECT_EQ(verdicts.txtVolGaz[3], BoxVerdict::Right);
}

TEST(CheckProgressTable, JudgesAllBoxesWhateverTheFirstWas)
{
    ProgressTexts texts = RightTexts();
    texts.txtQmat0[0] = u"5"_s;
    texts.txtQmatf[4] = u"5"_s;
    texts.txtMasse[3] = u"5"_s;
    texts.txtVolGaz[1] = u"5"_s;

    const TableVerdicts verdicts = VerdictsOn(texts, kGases);

    EXPECT_FALSE(verdicts.AreAllRight());
    EXPECT_EQ(verdicts.txtQmat0[0], BoxVerdict::Wrong);
    EXPECT_EQ(verdicts.txtQmat0[1], BoxVerdict::Right);
    EXPECT_EQ(verdicts.txtQmatf[4], BoxVerdict::Wrong);
    EXPECT_EQ(verdicts.txtMasse[3], BoxVerdict::Wrong);
    EXPECT_EQ(verdicts.txtVolGaz[1], BoxVerdict::Wrong);
}

TEST(CheckProgressTable, FailsByEachRowAlone)
{
    for (const auto row : {&ProgressTexts::txtMasse, &ProgressTexts::txtVolGaz, &ProgressTexts::txtQmat0,
                           &ProgressTexts::txtQmatf}) {
        ProgressTexts texts = RightTexts();
        (texts.*row)[1] = u"500"_s;
        EXPECT_FALSE(VerdictsOn(texts, kGases).AreAllRight());
    }
}

TEST(CheckProgressTable, JudgesNoVolumeThatIsNotAsked)
{
    ProgressTexts texts = RightTexts();
    texts.txtVolGaz = {};

    const TableVerdicts verdicts = VerdictsOn(texts, kNoVolume);

    EXPECT_TRUE(verdicts.AreAllRight());
    EXPECT_EQ(verdicts.txtVolGaz[0], BoxVerdict::NotJudged);
}

TEST(CheckProgressTable, JudgesNoInitialAmountOfAProductAndNoEmptySlot)
{
    const TableVerdicts verdicts = VerdictsOn(RightTexts(), kGases);

    EXPECT_EQ(verdicts.txtQmat0[3], BoxVerdict::NotJudged);
    EXPECT_EQ(verdicts.txtQmatf[2], BoxVerdict::NotJudged);
    EXPECT_EQ(verdicts.txtMasse[5], BoxVerdict::NotJudged);
}

TEST(CheckProgressTable, EndsAtASpeciesWithoutMass)
{
    const EquationRecord record = RecordOf(u"Xy=C/1,1#Q1"_s);
    ProgressTable table = ComputeProgress(record, {0, 0, 0, 12, 0, 0}, FillProgressTable(record), 24);

    EXPECT_THROW(CheckProgressTable(table, kNoVolume), FatalFault);
}

TEST(IsTableComplete, WantsATextInEveryBoxAsked)
{
    EXPECT_TRUE(IsTableComplete(Methane(), RightTexts(), kGases));
    for (const auto row : {&ProgressTexts::txtMasse, &ProgressTexts::txtVolGaz, &ProgressTexts::txtQmat0,
                           &ProgressTexts::txtQmati, &ProgressTexts::txtQmatf}) {
        ProgressTexts texts = RightTexts();
        (texts.*row)[3].clear();
        EXPECT_FALSE(IsTableComplete(Methane(), texts, kGases));
    }
}

TEST(IsTableComplete, IgnoresTheVolumeOfWhatIsNoGas)
{
    ProgressTexts texts = RightTexts();
    texts.txtVolGaz = {};

    EXPECT_TRUE(IsTableComplete(Methane(), texts, kNoVolume));
}

TEST(IsTableComplete, TakesAnyTextForAnAnswer)
{
    ProgressTexts texts = RightTexts();
    texts.txtQmatf[0] = u","_s;

    EXPECT_TRUE(IsTableComplete(Methane(), texts, kGases));
}

} // namespace stoikal
