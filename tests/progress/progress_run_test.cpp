#include "progress/progress_run.h"

#include "base/fatal_fault.h"
#include "progress/progress_fixture.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kMethane = u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#Q0.5,Q1.2,Q0,Q0"_s;
constexpr MolarMasses kMasses{16, 32, 0, 44, 18, 0};

ProgressRun Started(const QString& line, bool isSeries, double molarVolume = 24)
{
    ProgressRun run(u',');
    run.TakeEquation(RecordOf(line), kMasses, isSeries, molarVolume);
    return run;
}

ProgressTexts Amounts(const QString& first, const QString& second)
{
    ProgressTexts texts;
    texts.txtQmat0 = {first, second, {}, u"0"_s, u"0"_s, {}};
    return texts;
}

} // namespace

TEST(ProgressRun, BeginsASeriesWithTheDataGiven)
{
    const ProgressRun run = Started(kMethane, true);

    EXPECT_EQ(run.CurrentStep(), ProgressRun::Step::Masses);
    EXPECT_EQ(Joined(run.StartTexts().txtQmat0), u"0.5|1.2||0|0|"_s);
    EXPECT_EQ(Joined(run.StartTexts().txtMasse), u"|||||"_s);
}

TEST(ProgressRun, BeginsAFreeSimulationWithTheWholeTable)
{
    const ProgressRun run = Started(kMethane, false);

    EXPECT_EQ(run.CurrentStep(), ProgressRun::Step::FreeSimulation);
    EXPECT_EQ(Joined(run.StartTexts().txtQmat0), u"0,50|1,2||0|0|"_s);
    EXPECT_EQ(Joined(run.StartTexts().txtMasse), u"8,0|38,4||22,0|18,0|"_s);
}

TEST(ProgressRun, GoesFromTheMolarMassesToTheTableToTheEnd)
{
    ProgressRun run = Started(kMethane, true);

    run.EndMolarMasses();
    EXPECT_EQ(run.CurrentStep(), ProgressRun::Step::Table);
    run.EndTable();
    EXPECT_EQ(run.CurrentStep(), ProgressRun::Step::Done);
}

TEST(ProgressRun, IsDoneWithTheMolarMassesOfALineWithoutData)
{
    ProgressRun run = Started(u"CH4+O2=CO2+H2O/1,2,1,2"_s, true);

    EXPECT_FALSE(run.HasProgress());
    run.EndMolarMasses();

    EXPECT_EQ(run.CurrentStep(), ProgressRun::Step::Done);
}

TEST(ProgressRun, ShowsAMolarMassWithOneDecimal)
{
    EXPECT_EQ(Started(kMethane, true).MolarMassText(1), u"32,0"_s);
}

TEST(ProgressRun, StaysOnItsEquationWhenTheNextCannotBeComputed)
{
    ProgressRun run = Started(kMethane, true);

    EXPECT_THROW(run.TakeEquation(RecordOf(u"C+O2=CO2/1,0,1#Q1"_s), kMasses, false, 24), FatalFault);

    EXPECT_EQ(run.Record().Slots[0].Molecule, u"CH4"_s);
    EXPECT_EQ(run.CurrentStep(), ProgressRun::Step::Masses);
    EXPECT_DOUBLE_EQ(run.Table().Xmax, 0.5);
}

TEST(ProgressRun, JudgesByTheLineAndKeepsWhatWasTyped)
{
    ProgressRun run = Started(kMethane, true);
    ProgressTexts texts = run.Solution(run.StartTexts());
    EXPECT_TRUE(run.CheckTable(texts, {true, true, false, true, false, false}).AreAllRight());

    texts.txtMasse[0] = u"9"_s;
    const TableVerdicts verdicts = run.CheckTable(texts, {});

    EXPECT_EQ(verdicts.txtMasse[0], BoxVerdict::Wrong);
    EXPECT_EQ(run.Table().TypedMass[0], 9);
    EXPECT_DOUBLE_EQ(run.Table().Mass[0], 8);
}

TEST(ProgressRun, SimulatesTheAmountsTyped)
{
    ProgressRun run = Started(kMethane, false);

    const ProgressTexts texts = run.Simulate(Amounts(u"2"_s, u"1,5"_s), 24);

    // 2 / 1 against 1.5 / 2 = 0.75: 1.25 of CH4 is left.
    EXPECT_DOUBLE_EQ(run.Table().Xmax, 0.75);
    EXPECT_EQ(Joined(texts.txtQmat0), u"2,0|1,5||0|0|"_s);
    EXPECT_EQ(Joined(texts.txtQmatf), u"1,3|0||0,75|1,5|"_s);
    EXPECT_EQ(Joined(texts.txtQmati), u"2,0-1*xmax|1,5-2*xmax||1*xmax|2*xmax|"_s);
}

TEST(ProgressRun, SimulatesOneMoleWhenAllAmountsAreZero)
{
    ProgressRun run = Started(kMethane, false);

    const ProgressTexts texts = run.Simulate(Amounts(u"0"_s, QString()), 24);

    EXPECT_EQ(run.Table().Xmax, 1);
    EXPECT_EQ(Joined(texts.txtQmat0), u"1,00|2,0||0|0|"_s);
}

TEST(ProgressRun, TakesAReactantSetToZeroBesideAnotherInProportion)
{
    ProgressRun run = Started(kMethane, false);

    const ProgressTexts texts = run.Simulate(Amounts(u"0"_s, u"3"_s), 24);

    EXPECT_EQ(Joined(texts.txtQmat0), u"1,5|3,0||0|0|"_s);
}

TEST(ProgressRun, FeedsTheRoundedTextBack)
{
    ProgressRun run = Started(kMethane, false);
    // 0.337 shows as 0,34, and that is what the next validation reads.
    const ProgressTexts texts = run.Simulate(Amounts(u"0.337"_s, u"2"_s), 24);
    ASSERT_EQ(texts.txtQmat0[0], u"0,34"_s);
    EXPECT_DOUBLE_EQ(run.Table().Xmax, 0.337);

    run.Simulate(texts, 24);

    EXPECT_DOUBLE_EQ(run.Table().Xmax, 0.34);
}

TEST(ProgressRun, ForgetsTheDataOfTheFileInASimulation)
{
    ProgressRun run = Started(u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#M16,V48,Q0.9"_s, false);

    run.Simulate(Amounts(u"1"_s, u"4"_s), 24);

    // No mass, no volume and no product's amount has a say any more.
    EXPECT_EQ(run.Table().Xmax, 1);
    EXPECT_EQ(run.Table().FinalAmount[1], 2);
}

TEST(ProgressRun, RefusesAmountsBeyondItsScales)
{
    const ProgressRun run = Started(kMethane, false);

    EXPECT_EQ(run.RefusalOf(Amounts(u"1000000"_s, u"1"_s)), QString());
    EXPECT_EQ(run.RefusalOf(Amounts(u"1000001"_s, u"1"_s)),
              u"La quantité de matière de CH4 est trop grande\u00A0: 1000000 mol au plus."_s);
    EXPECT_NE(run.RefusalOf(Amounts(u"1"_s, QString(400, u'9'))), QString());
    // 0.00000001 for each of the two O2.
    EXPECT_EQ(run.RefusalOf(Amounts(u"0,00000001"_s, u"0,00000002"_s)), QString());
    EXPECT_EQ(run.RefusalOf(Amounts(u"1"_s, u"0,000000019"_s)),
              u"La quantité de matière de O2 est trop petite pour être étudiée.\n"
              u"Saisissez 0 ou une valeur plus grande."_s);
    EXPECT_EQ(run.RefusalOf(Amounts(u"0"_s, QString())), QString());
}

TEST(ProgressRun, SimulatesWhateverItDoesNotRefuse)
{
    for (const QString& amount : {u"1000000"_s, u"0,00000001"_s}) {
        ProgressRun run = Started(kMethane, false);
        const ProgressTexts texts = Amounts(amount, QString());
        ASSERT_EQ(run.RefusalOf(texts), QString());
        EXPECT_NO_THROW(run.Simulate(texts, 24)) << amount.toStdString();
    }
}

TEST(ProgressRun, FollowsANewMolarVolumeFromTheLinesData)
{
    ProgressRun run = Started(u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#V12,Q1.2"_s, true);
    EXPECT_DOUBLE_EQ(run.Table().InitialAmount[0], 0.5);

    run.ChangeMolarVolume(48);

    // 12 / 48; the amounts of the boxes play no part.
    EXPECT_DOUBLE_EQ(run.Table().InitialAmount[0], 0.25);
    EXPECT_EQ(run.Table().MolarVolume, 48);
}

} // namespace stoikal
