#include "exercise/equation_layout.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

namespace {

/// Boxes of 450, species of 300 to 800, "+" of 330, an arrow of 720.
EquationWidths Widths(const std::array<bool, 6>& present)
{
    EquationWidths widths;
    widths.present = present;
    widths.species = {300, 400, 500, 600, 700, 800};
    widths.coefficient = 450;
    widths.plus = 330;
    widths.arrow = 720;
    return widths;
}

constexpr std::array<bool, 6> kAll{true, true, true, true, true, true};
constexpr std::array<bool, 6> kTwoByTwo{true, true, false, true, true, false};
constexpr std::array<bool, 6> kOneByOne{true, false, false, true, false, false};

} // namespace

TEST(EquationLayout, FillsTheBandFromLeftToRight)
{
    const EquationLayout layout = LayoutEquation(Widths(kAll));

    EXPECT_EQ(layout.coefficientLeft[0], 100);
    EXPECT_EQ(layout.speciesLeft[0], 570); // 100 + 450 + 20
    EXPECT_EQ(layout.plusLeft[0], 870); // 570 + 300
    EXPECT_EQ(layout.coefficientLeft[1], 1200); // 870 + 330
    EXPECT_EQ(layout.speciesLeft[1], 1670); // 1200 + 470
    EXPECT_EQ(layout.plusLeft[1], 2070); // 1670 + 400
    EXPECT_EQ(layout.coefficientLeft[2], 2400); // 2070 + 330
    EXPECT_EQ(layout.speciesLeft[2], 2870); // 2400 + 470
    EXPECT_EQ(layout.arrowLeft, 3370); // 2870 + 500
    EXPECT_EQ(layout.coefficientLeft[3], 4090); // 3370 + 720
    EXPECT_EQ(layout.speciesLeft[3], 4560); // 4090 + 470
    EXPECT_EQ(layout.plusLeft[2], 5160); // 4560 + 600
    EXPECT_EQ(layout.coefficientLeft[4], 5490); // 5160 + 330
    EXPECT_EQ(layout.speciesLeft[4], 5960); // 5490 + 470
    EXPECT_EQ(layout.plusLeft[3], 6660); // 5960 + 700
    EXPECT_EQ(layout.coefficientLeft[5], 6990); // 6660 + 330
    EXPECT_EQ(layout.speciesLeft[5], 7460); // 6990 + 470
}

TEST(EquationLayout, EndsTheWindowAHundredTwipsBehindTheLastBox)
{
    EXPECT_EQ(LayoutEquation(Widths(kAll)).width, 8360); // 7460 + 800 + 100
    // 100 + 450 + 20 + 300, arrow 720, 450 + 20 + 600, 100
    EXPECT_EQ(LayoutEquation(Widths(kOneByOne)).width, 2760);
}

TEST(EquationLayout, GivesEmptySlotsNoRoom)
{
    const EquationLayout layout = LayoutEquation(Widths(kTwoByTwo));

    EXPECT_EQ(layout.speciesLeft[1], 1670);
    EXPECT_EQ(layout.arrowLeft, 2070); // 1670 + 400, the third slot takes nothing
    EXPECT_EQ(layout.coefficientLeft[3], 2790); // 2070 + 720
    EXPECT_EQ(layout.speciesLeft[4], 4660); // 2790 + 470 + 600 + 330 + 470
    EXPECT_EQ(layout.width, 5460); // 4660 + 700 + 100
}

TEST(EquationLayout, ShowsTheSlotsInUseAndThePlusBeforeThem)
{
    const EquationLayout layout = LayoutEquation(Widths(kTwoByTwo));

    EXPECT_EQ(layout.shown, kTwoByTwo);
    EXPECT_EQ(layout.plusShown, (std::array<bool, 4>{true, false, true, false}));
}

TEST(EquationLayout, ShowsEachPlusWithTheSlotBehindIt)
{
    const EquationLayout third = LayoutEquation(Widths({true, true, true, true, true, true}));
    EXPECT_EQ(third.plusShown, (std::array<bool, 4>{true, true, true, true}));

    const EquationLayout onlyFifth = LayoutEquation(Widths({true, false, false, true, true, false}));
    EXPECT_EQ(onlyFifth.plusShown, (std::array<bool, 4>{false, false, true, false}));
}

TEST(EquationLayout, AlwaysShowsTheFirstSlotOfASide)
{
    const EquationLayout layout = LayoutEquation(Widths({false, false, false, false, false, false}));

    EXPECT_EQ(layout.shown, kOneByOne);
    EXPECT_EQ(layout.plusShown, (std::array<bool, 4>{false, false, false, false}));
}

TEST(EquationLayout, IsLowForABalancingFile)
{
    EXPECT_EQ(LayoutEquation(Widths(kTwoByTwo)).height, 2025);
}

TEST(EquationLayout, IsHighForAProgressFileAndLeavesRoomForTheTitlesOfTheTable)
{
    EquationWidths widths = Widths(kOneByOne);
    widths.isProgressFile = true;

    const EquationLayout layout = LayoutEquation(widths);

    EXPECT_EQ(layout.height, 6630);
    EXPECT_EQ(layout.coefficientLeft[0], 1560);
    EXPECT_EQ(layout.arrowLeft, 2330); // 1560 + 470 + 300
    EXPECT_EQ(layout.width, 4220); // 2330 + 720 + 470 + 600 + 100
}

TEST(EquationLayout, BeginsTheBandBehindTitlesThatNeedMore)
{
    EquationWidths widths = Widths(kOneByOne);
    widths.titles = 1800;
    EXPECT_EQ(LayoutEquation(widths).coefficientLeft[0], 100);

    widths.isProgressFile = true;
    EXPECT_EQ(LayoutEquation(widths).coefficientLeft[0], 1800);
    widths.titles = 1000;
    EXPECT_EQ(LayoutEquation(widths).coefficientLeft[0], 1560);
}

TEST(EquationLayout, GivesEachColumnOfATableItsLeastWidth)
{
    EquationWidths widths = Widths(kTwoByTwo);
    widths.isProgressFile = true;
    widths.column = 1100;

    const EquationLayout layout = LayoutEquation(widths);

    // 450 + 20 + 300 and 450 + 20 + 400 are less than 1100, 450 + 20 + 700 is more.
    EXPECT_EQ(layout.columnWidth[0], 1100);
    EXPECT_EQ(layout.columnWidth[1], 1100);
    EXPECT_EQ(layout.columnWidth[4], 1170);
    EXPECT_EQ(layout.plusLeft[0], 2660); // 1560 + 1100
    EXPECT_EQ(layout.coefficientLeft[1], 2990); // 2660 + 330
    // 2990 + 1100 + 720 for the arrow + 1100 + 330 + 1170
    EXPECT_EQ(layout.bandEnd, 7410);
    EXPECT_EQ(layout.width, 7510);
}

TEST(EquationLayout, KnowsNoColumnsInABalancingFile)
{
    EquationWidths widths = Widths(kAll);
    widths.column = 5000;

    EXPECT_EQ(LayoutEquation(widths).coefficientLeft[1], 1200);
}

TEST(EquationLayout, LeavesRoomForTheScoreBesideTheButton)
{
    EquationWidths widths = Widths(kOneByOne);
    widths.scoreRow = 5000;
    EXPECT_EQ(LayoutEquation(widths).width, 5000);

    widths.scoreRow = 2759; // the band needs 2760
    EXPECT_EQ(LayoutEquation(widths).width, 2760);
}

TEST(EquationLayout, MakesASpeciesBoxFourTenthsWiderThanItsText)
{
    EXPECT_EQ(SpeciesWidth(0), 0);
    EXPECT_EQ(SpeciesWidth(10), 210); // 1.4 * 10 pixels * 15 twips
    EXPECT_EQ(SpeciesWidth(33.2), 697); // 1.4 * 33.2 * 15 = 697.2
}

TEST(EquationLayout, KeepsTheFixedPlacesOfTheButtons)
{
    EXPECT_EQ(kValidateTop, 840);
    EXPECT_EQ(kTableButtonsTop, 5580);
}

} // namespace stoikal
