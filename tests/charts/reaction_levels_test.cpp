#include "charts/reaction_levels.h"

#include "charts/reaction_tables.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(ReactionLevels, ReactantFallsByCoefficientTimesProgress)
{
    const ProgressTable table = BurningMethane();

    EXPECT_DOUBLE_EQ(LevelAt(table, 1, 0, Ordinate::Amount), 1.2);
    EXPECT_DOUBLE_EQ(LevelAt(table, 1, 0.25, Ordinate::Amount), 0.7); // 1.2 - 2 x 0.25.
    EXPECT_DOUBLE_EQ(LevelAt(table, 0, 0.6, Ordinate::Amount), -0.1); // 0.5 - 0.6.
}

TEST(ReactionLevels, ProductRisesByCoefficientTimesProgress)
{
    EXPECT_DOUBLE_EQ(LevelAt(BurningMethane(), 3, 0.25, Ordinate::Amount), 0.25);
    EXPECT_DOUBLE_EQ(LevelAt(BurningMethane(), 4, 0.25, Ordinate::Amount), 0.5);
}

TEST(ReactionLevels, MassIsAmountTimesMolarMass)
{
    EXPECT_DOUBLE_EQ(LevelAt(BurningMethane(), 1, 0.25, Ordinate::Mass), 22.4); // 0.7 x 32.
    EXPECT_DOUBLE_EQ(LevelAt(BurningMethane(), 4, 0.25, Ordinate::Mass), 9); // 0.5 x 18.
    EXPECT_DOUBLE_EQ(InitialLevel(BurningMethane(), 1, Ordinate::Mass), 38.4);
    EXPECT_DOUBLE_EQ(InitialLevel(BurningMethane(), 1, Ordinate::Amount), 1.2);
}

TEST(ReactionLevels, LargestIsTakenOverBothSides)
{
    EXPECT_EQ(LargestLevel(BurningMethane(), Ordinate::Amount), 1.2); // 0.5, 1.2 and 0.5, 1.
    EXPECT_EQ(LargestLevel(BurningMethane(), Ordinate::Mass), 38.4); // 8, 38.4 and 22, 18.

    ProgressTable table = BurningMethane();
    table.FinalAmount[4] = 3;
    EXPECT_EQ(LargestLevel(table, Ordinate::Amount), 3);
}

TEST(ReactionLevels, FinalAmountOfAReactantAndInitialOneOfAProductDoNotCount)
{
    ProgressTable table = BurningMethane();
    table.FinalAmount[1] = 50;
    table.InitialAmount[3] = 50;

    EXPECT_EQ(LargestLevel(table, Ordinate::Amount), 1.2);
}

TEST(ReactionLevels, EmptySlotIsSkipped)
{
    ProgressTable table = BurningMethane();
    table.InitialAmount[2] = 50;
    table.Mass[5] = 500;

    EXPECT_EQ(LargestLevel(table, Ordinate::Amount), 1.2);
    EXPECT_EQ(LargestLevel(table, Ordinate::Mass), 38.4);
}

TEST(SpeciesLabel, CarriesTheChargeInItsInlineForm)
{
    EXPECT_EQ(InlineSpecies(u"H2O"_s, 0), u"H2O"_s);
    EXPECT_EQ(InlineSpecies(u"Na"_s, 1), u"Na{+}"_s);
    EXPECT_EQ(InlineSpecies(u"Fe"_s, 3), u"Fe{3+}"_s);
    EXPECT_EQ(InlineSpecies(u"Cl"_s, -1), u"Cl{-}"_s);
    EXPECT_EQ(InlineSpecies(u"SO4"_s, -2), u"SO4{2-}"_s);
}

TEST(OrdinateTitle, NamesQuantityAndUnit)
{
    EXPECT_EQ(OrdinateTitle(Ordinate::Amount, u"x0,1 "_s), u"Quantité de matière (x0,1 mol)"_s);
    EXPECT_EQ(OrdinateTitle(Ordinate::Amount, u""_s), u"Quantité de matière (mol)"_s);
    EXPECT_EQ(OrdinateTitle(Ordinate::Mass, u"x10 "_s), u"Masse (x10 g)"_s);
    EXPECT_EQ(EvolutionHeading(Ordinate::Amount), u"Evolution des quantités de matière"_s);
    EXPECT_EQ(EvolutionHeading(Ordinate::Mass), u"Evolution des masses"_s);
}

} // namespace stoikal
