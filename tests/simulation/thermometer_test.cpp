#include "simulation/thermometer.h"

#include <gtest/gtest.h>

namespace stoikal {
namespace {

/// A scale of 4500 twips from 1000 to 5500: 100 twips a step of speed; a cursor
/// of 241 twips, so that its half is cut down to 120.
Thermometer Laid()
{
    Thermometer thermometer;
    thermometer.LayOut(1000, 4500, 241);
    return thermometer;
}

} // namespace

TEST(Thermometer, BeginsWithASpeedOf15)
{
    const Thermometer thermometer = Laid();

    // 5500 - 120 - 10 / 0.01 = 4380.
    EXPECT_EQ(thermometer.WaveTop(), 4380);
    EXPECT_EQ(thermometer.ThermalSpeed(), 15.0F);
}

TEST(Thermometer, BeginsWithASpeedOf15AtAnyHeight)
{
    for (Twips height = 900; height < 20000; height += 7) {
        Thermometer thermometer;
        thermometer.LayOut(300, height, 240);
        ASSERT_EQ(thermometer.ThermalSpeed(), 15.0F) << height;
    }
}

TEST(Thermometer, Gives50AtTheTopAnd5AtTheBottom)
{
    Thermometer thermometer = Laid();

    thermometer.Drag(-100000, 0);
    // Its middle stands on the end of the scale: 1000 - 120.
    EXPECT_EQ(thermometer.WaveTop(), 880);
    EXPECT_EQ(thermometer.ThermalSpeed(), 50.0F);

    thermometer.Drag(100000, 0);
    EXPECT_EQ(thermometer.WaveTop(), 5380);
    EXPECT_EQ(thermometer.ThermalSpeed(), 5.0F);
}

TEST(Thermometer, FollowsTheMouseFromWhereItWentDown)
{
    Thermometer thermometer = Laid();

    // Held 30 below its top, the mouse is now 270 above it: 300 upwards.
    thermometer.Drag(-270, 30);

    EXPECT_EQ(thermometer.WaveTop(), 4080);
    EXPECT_EQ(thermometer.ThermalSpeed(), 18.0F);
}

TEST(Thermometer, CutsTheSpeedDownToAWholeNumber)
{
    Thermometer thermometer = Laid();

    thermometer.Drag(-99, 0); // 1099 twips above the bottom: 10.99.
    EXPECT_EQ(thermometer.ThermalSpeed(), 15.0F);

    thermometer.Drag(-1, 0); // 1100.
    EXPECT_EQ(thermometer.ThermalSpeed(), 16.0F);
}

TEST(Thermometer, GoesBackToItsFirstSpeedWhenItIsLaidOutAgain)
{
    Thermometer thermometer = Laid();
    thermometer.Drag(-100000, 0);

    thermometer.LayOut(1000, 9000, 241);

    EXPECT_EQ(thermometer.ThermalSpeed(), 15.0F);
    EXPECT_EQ(thermometer.WaveTop(), 10000 - 120 - 2000);
}

TEST(Thermometer, StepsByWholeSpeedsWithinItsScale)
{
    Thermometer thermometer = Laid();

    thermometer.Step(1);
    EXPECT_EQ(thermometer.ThermalSpeed(), 16.0F);
    thermometer.Step(-3);
    EXPECT_EQ(thermometer.ThermalSpeed(), 13.0F);
    thermometer.Step(100);
    EXPECT_EQ(thermometer.ThermalSpeed(), 50.0F);
    thermometer.Step(-100);
    EXPECT_EQ(thermometer.ThermalSpeed(), 5.0F);
}

TEST(ThermometerColour, GoesFromRedAtTheTopToBlueAtTheBottom)
{
    EXPECT_EQ(ThermometerColour(0, 300), 0x0000FFU);
    EXPECT_EQ(ThermometerColour(300, 300), 0xFF0000U);
    // 255 x 100 / 300 = 85: red 170, blue 85.
    EXPECT_EQ(ThermometerColour(100, 300), 0x5500AAU);
}

TEST(ThermometerColour, CutsTheShareOfBlueDown)
{
    // 255 x 1 / 300 = 0.85: 0.
    EXPECT_EQ(ThermometerColour(1, 300), 0x0000FFU);
    // 255 x 2 / 300 = 1.7: 1.
    EXPECT_EQ(ThermometerColour(2, 300), 0x0100FEU);
}

} // namespace stoikal
