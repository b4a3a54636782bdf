#include "charts/histogram.h"

#include "charts/reaction_tables.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(Histogram, LargestValueOfHalfAMoleCountsInTenths)
{
    const Histogram histogram = HistogramAt(OneToOne(0.5), 0, Ordinate::Amount);

    EXPECT_EQ(histogram.scale.unit, 0.1);
    EXPECT_DOUBLE_EQ(histogram.scale.top, 5);
    EXPECT_EQ(histogram.verticalTitle, u"Quantité de matière (x0,1 mol)"_s);
}

TEST(Histogram, LargestValueOfExactlyOneMoleCountsInMoles)
{
    const Histogram histogram = HistogramAt(OneToOne(1), 0, Ordinate::Amount);

    EXPECT_EQ(histogram.scale.unit, 1);
    EXPECT_DOUBLE_EQ(histogram.scale.top, 1);
    EXPECT_DOUBLE_EQ(histogram.scale.step, 0.05); // 1 x 1000, step 50 / 1000.
    EXPECT_EQ(histogram.verticalTitle, u"Quantité de matière (mol)"_s);
}

TEST(Histogram, LargestValueOfExactlyHundredMolesCountsInTens)
{
    const Histogram histogram = HistogramAt(OneToOne(100), 0, Ordinate::Amount);

    EXPECT_EQ(histogram.scale.unit, 10);
    EXPECT_DOUBLE_EQ(histogram.scale.top, 10);
    EXPECT_EQ(histogram.verticalTitle, u"Quantité de matière (x10 mol)"_s);
}

TEST(Histogram, BarsStandOneApartReactantsFirst)
{
    const Histogram histogram = HistogramAt(BurningMethane(), 0.25, Ordinate::Amount);

    ASSERT_EQ(histogram.bars.size(), 4U);
    const int slots[]{0, 1, 3, 4};
    const QString labels[]{u"CH4"_s, u"O2"_s, u"CO2"_s, u"H2O"_s};
    // 0.5 - 0.25, 1.2 - 0.5, 0.25, 2 x 0.25.
    const double levels[]{0.25, 0.7, 0.25, 0.5};
    for (std::size_t i = 0; i < 4; ++i) {
        const Bar& bar = histogram.bars[i];
        EXPECT_EQ(bar.slot, slots[i]);
        EXPECT_EQ(bar.label, labels[i]);
        EXPECT_DOUBLE_EQ(bar.left, static_cast<double>(i) + 0.15); // Position - 0.85.
        EXPECT_DOUBLE_EQ(bar.right, static_cast<double>(i) + 0.85); // Position - 0.15.
        EXPECT_DOUBLE_EQ(bar.present, levels[i]);
    }
    EXPECT_DOUBLE_EQ(histogram.bars[0].initial.value(), 0.5);
    EXPECT_DOUBLE_EQ(histogram.bars[1].initial.value(), 1.2);
    EXPECT_FALSE(histogram.bars[2].initial.has_value());
    EXPECT_FALSE(histogram.bars[3].initial.has_value());
}

TEST(Histogram, LevelsAreInUnitsOfTheAxis)
{
    const Histogram histogram = HistogramAt(OneToOne(0.5), 0.2, Ordinate::Amount);

    EXPECT_DOUBLE_EQ(histogram.bars[0].initial.value(), 5); // 0.5 / 0.1.
    EXPECT_DOUBLE_EQ(histogram.bars[0].present, 3); // (0.5 - 0.2) / 0.1.
    EXPECT_DOUBLE_EQ(histogram.bars[1].present, 2);
}

TEST(Histogram, ReactantUsedUpHasNoBarAndKeepsItsInitialLevel)
{
    const Histogram histogram = HistogramAt(BurningMethane(), 0.5, Ordinate::Amount);

    EXPECT_EQ(histogram.bars[0].present, 0);
    EXPECT_DOUBLE_EQ(histogram.bars[0].initial.value(), 0.5);
}

TEST(Histogram, ReactantIsNeverNegative)
{
    const Histogram histogram = HistogramAt(BurningMethane(), 0.6, Ordinate::Amount);

    EXPECT_EQ(histogram.bars[0].present, 0); // 0.5 - 0.6.
    EXPECT_EQ(HistogramAt(BurningMethane(), 0.6, Ordinate::Mass).bars[0].present, 0);
}

TEST(Histogram, MassChangesValuesTextsAndGridAlone)
{
    const Histogram amounts = HistogramAt(BurningMethane(), 0.25, Ordinate::Amount);
    const Histogram masses = HistogramAt(BurningMethane(), 0.25, Ordinate::Mass);

    // 38.4 g: in grams, 38400, step 5, top (7 + 1) x 5.
    EXPECT_EQ(masses.scale.unit, 1);
    EXPECT_DOUBLE_EQ(masses.scale.step, 5);
    EXPECT_DOUBLE_EQ(masses.scale.top, 40);
    EXPECT_EQ(masses.verticalTitle, u"Masse (g)"_s);
    EXPECT_EQ(masses.heading[0], u"Evolution des masses"_s);
    EXPECT_DOUBLE_EQ(masses.bars[1].initial.value(), 38.4);
    EXPECT_DOUBLE_EQ(masses.bars[1].present, 22.4); // 0.7 x 32.
    EXPECT_DOUBLE_EQ(masses.bars[2].present, 11); // 0.25 x 44.

    EXPECT_EQ(amounts.heading[0], u"Evolution des quantités de matière"_s);
    EXPECT_EQ(masses.heading[1], amounts.heading[1]);
    EXPECT_EQ(masses.horizontalTitle, amounts.horizontalTitle);
    EXPECT_EQ(masses.bars[1].label, amounts.bars[1].label);
    EXPECT_EQ(masses.bars[1].left, amounts.bars[1].left);
}

TEST(Histogram, TextsAroundThePlot)
{
    const Histogram histogram = HistogramAt(BurningMethane(), 0, Ordinate::Amount);

    EXPECT_EQ(histogram.horizontalTitle, u"Espèces chimiques présentes au cours de la réaction"_s);
    EXPECT_EQ(histogram.heading[1], u"en fonction des espèces chimiques"_s);
}

TEST(Histogram, LabelCarriesTheCharge)
{
    ProgressTable table = OneToOne(1);
    table.Charge[0] = -2;
    table.Charge[3] = 1;
    const Histogram histogram = HistogramAt(table, 0, Ordinate::Amount);

    EXPECT_EQ(histogram.bars[0].label, u"A{2-}"_s);
    EXPECT_EQ(histogram.bars[1].label, u"B{+}"_s);
}

} // namespace stoikal
