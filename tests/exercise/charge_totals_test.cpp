#include "exercise/charge_totals.h"

#include "base/fatal_fault.h"
#include "equation_files/equation_line.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

EquationRecord RecordOf(const QString& line)
{
    return ParseEquationLine(line).record;
}

EquationRecord WithCharges(const std::array<std::int16_t, 6>& charges)
{
    EquationRecord record;
    for (std::size_t i = 0; i < charges.size(); ++i)
        record.Slots[i].Charge = charges[i];
    return record;
}

} // namespace

TEST(ChargeTotals, OppositeChargesAddUpToZero)
{
    const ChargeTotals totals = ComputeChargeTotals(RecordOf(u"H{+}+OH{-}=H2O/1,1,1"_s), {1, 1, 1, 1, 1, 1});

    EXPECT_EQ(totals.reactants, 0);
    EXPECT_EQ(totals.products, 0);
    EXPECT_EQ(ChargeLabel(totals.reactants), u"0"_s);
    EXPECT_EQ(ChargeLabel(totals.products), u"0"_s);
}

TEST(ChargeTotals, WeighChargesWithTheCoefficients)
{
    // 2 x 3 on the left; 2 x 2 + 1 x 2 on the right.
    const ChargeTotals totals
        = ComputeChargeTotals(RecordOf(u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s), {2, 1, 1, 2, 1, 1});

    EXPECT_EQ(totals.reactants, 6);
    EXPECT_EQ(totals.products, 6);
}

TEST(ChargeTotals, TakeThreeSlotsASide)
{
    // 1x1 + 2x10 + 3x100 = 321; 4x(-1) + 5x(-10) + 6x(-100) = -654
    const ChargeTotals totals
        = ComputeChargeTotals(WithCharges({1, 10, 100, -1, -10, -100}), {1, 2, 3, 4, 5, 6});

    EXPECT_EQ(totals.reactants, 321);
    EXPECT_EQ(totals.products, -654);
}

TEST(ChargeTotals, PassSixteenBits)
{
    // 99 x 32767 = 3243933
    EXPECT_EQ(ComputeChargeTotals(WithCharges({32767, 0, 0, 0, 0, 0}), {99, 1, 1, 1, 1, 1}).reactants,
              3243933);
}

TEST(ChargeTotals, OutsideThirtyTwoBitsAreAFault)
{
    // 32767 x 65539 = 2147516413 > 2147483647
    EXPECT_THROW(ComputeChargeTotals(WithCharges({32767, 0, 0, 0, 0, 0}), {65539, 1, 1, 1, 1, 1}),
                 FatalFault);
}

TEST(ChargeLabel, PartsSignAndNumberByABlank)
{
    EXPECT_EQ(ChargeLabel(3), u"+ 3"_s);
    EXPECT_EQ(ChargeLabel(-2), u"- 2"_s);
    EXPECT_EQ(ChargeLabel(12), u"+ 12"_s);
}

TEST(ChargeLabel, ShowsZeroWithoutASign)
{
    EXPECT_EQ(ChargeLabel(0), u"0"_s);
}
