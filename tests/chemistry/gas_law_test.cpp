#include "chemistry/gas_law.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

TEST(GasLaw, GivesTheMolarVolumeOfMeltingIce)
{
    // 8.314472 * 273.15 = 2271.0980268; 2271098.0268 / 101300 = 22.4195264
    EXPECT_NEAR(MolarVolumeFrom(1013, 0), 22.4195264, 1e-7);
}

TEST(GasLaw, GivesTheTemperature)
{
    // 2400 / 8.314472 = 288.6533264
    EXPECT_NEAR(TemperatureFrom(1000, 24), 288.6533264 - 273.15, 1e-6);
}

TEST(GasLaw, GivesThePressure)
{
    // 8.314472 * 293.15 = 2437.3874668; / 0.024 = 101557.8111; / 100 = 1015.578111
    EXPECT_NEAR(PressureFrom(24, 20), 1015.578111, 1e-6);
}

TEST(GasLaw, ItsThreeFormsAgree)
{
    const double volume = MolarVolumeFrom(987, 33.5);

    EXPECT_NEAR(TemperatureFrom(987, volume), 33.5, 1e-9);
    EXPECT_NEAR(PressureFrom(volume, 33.5), 987, 1e-9);
}

TEST(GasLaw, KeepsTheOrderOfItsOperations)
{
    const double r = 8.314472;
    const double t = 18.7;
    const double p = 1003.3;
    const double v = 23.9;

    EXPECT_EQ(MolarVolumeFrom(p, t), 1000 * (r * (t + 273.15)) / (100 * p));
    EXPECT_EQ(TemperatureFrom(p, v), ((100 * v) * p / 1000) / r - 273.15);
    EXPECT_EQ(PressureFrom(v, t), (r * (t + 273.15)) / (v / 1000) / 100);
}

TEST(GasLaw, HasNoPressureForAVolumeOfZero)
{
    EXPECT_THROW(PressureFrom(0, 20), FatalFault);
}

TEST(GasLaw, CallsAVolumeOfZeroAbsoluteCold)
{
    EXPECT_DOUBLE_EQ(TemperatureFrom(1013, 0), -273.15);
}

} // namespace stoikal
