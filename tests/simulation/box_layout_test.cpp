#include "simulation/box_layout.h"

#include <gtest/gtest.h>

namespace stoikal {
namespace {

/// A window of 1000 x 700 pixels of 15 twips.
BoxLayoutInput Window()
{
    BoxLayoutInput input;
    input.width = 15000;
    input.height = 10500;
    input.numbersBottom = 1900;
    input.temperature = {1200, 450};
    input.thermoWidth = 300;
    input.cursorWidth = 30;
    input.wave = {510, 240};
    input.labelsWidth = 900;
    input.timesHeight = 500;
    input.zeroHeight = 200;
    return input;
}

} // namespace

TEST(BoxLayout, PutsTheBoxIntoTheLeftHalf)
{
    const auto layout = LayOutBox(Window());
    ASSERT_TRUE(layout);

    // Width 7500 - 180 - 1200, top 1900 + 100, height 10500 - 700 - 1900 - 100.
    EXPECT_EQ(layout->milieu, QRect(120, 2000, 6120, 7800));
}

TEST(BoxLayout, PutsTheTemperatureBesideTheBox)
{
    const auto layout = LayOutBox(Window());
    ASSERT_TRUE(layout);

    // 60 behind 120 + 6120.
    EXPECT_EQ(layout->temperature, QRect(6300, 2000, 1200, 450));
}

TEST(BoxLayout, CentresTheTubeUnderItsCaptionAndEndsItWithTheBox)
{
    const auto layout = LayOutBox(Window());
    ASSERT_TRUE(layout);

    // Left 6300 + (1200 - 300) / 2; top 2000 + 450 + 60; to 2000 + 7800 = 9800.
    EXPECT_EQ(layout->thermo, QRect(6750, 2510, 300, 7290));
}

TEST(BoxLayout, PutsTheScaleIntoTheTube)
{
    const auto layout = LayOutBox(Window());
    ASSERT_TRUE(layout);

    // Centred, 120 lower and 240 less high; the cursor centred as well.
    EXPECT_EQ(layout->cursor, QRect(6750 + 135, 2630, 30, 7050));
    EXPECT_EQ(layout->waveLeft, 6750 - 105);
}

TEST(BoxLayout, FillsTheRightHalfWithThePlot)
{
    const auto layout = LayOutBox(Window());
    ASSERT_TRUE(layout);

    // 60 behind the caption, which ends at 7500; the plot ends 120 before the edge.
    EXPECT_EQ(layout->labels, QRect(7560, 2000, 900, 7300));
    EXPECT_EQ(layout->plot, QRect(8460, 2000, 6420, 7300));
    EXPECT_EQ(layout->times, QRect(8460, 9300, 6420, 500));
    EXPECT_EQ(layout->zero, QRect(7560, 9300, 900, 200));
}

TEST(BoxLayout, DoesNothingInAWindowAsNarrowAsItsThermometer)
{
    BoxLayoutInput input = Window();
    input.width = 2 * (240 + 300);
    input.temperature = {0, 0};
    input.labelsWidth = 0;

    EXPECT_FALSE(LayOutBox(input));
}

TEST(BoxLayout, DoesNothingWhereAPictureWouldHaveNoArea)
{
    BoxLayoutInput low = Window();
    low.height = 1900 + 800;
    EXPECT_FALSE(LayOutBox(low));
    BoxLayoutInput lowForTheScale = Window();
    lowForTheScale.height = 1900 + 800 + 450 + 60 + 240;
    EXPECT_FALSE(LayOutBox(lowForTheScale));
    BoxLayoutInput narrow = Window();
    narrow.width = 2 * (180 + 1200);
    EXPECT_FALSE(LayOutBox(narrow));
}

} // namespace stoikal
