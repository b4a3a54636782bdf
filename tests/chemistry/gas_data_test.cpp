#include "chemistry/gas_data.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using Given = std::array<bool, 3>;

constexpr Given kPressureAndTemperature{true, true, false};
constexpr Given kPressureAndVolume{true, false, true};
constexpr Given kTemperatureAndVolume{false, true, true};
constexpr std::array kPairs{kPressureAndTemperature, kPressureAndVolume, kTemperatureAndVolume};

GasData Compute(const QString& pressure, const QString& temperature, const QString& volume,
                const Given& given)
{
    return ComputeGasData({pressure, temperature, volume}, given, u',');
}

} // namespace

TEST(ComputeGasData, GivesTheVolumeInThreeDecimalsAndInForceWithAllItsDigits)
{
    const GasData data = Compute(u"1013"_s, u"0"_s, {}, kPressureAndTemperature);

    EXPECT_EQ(data.texts[MolarVolume], u"22,420"_s);
    EXPECT_NEAR(data.numbers[MolarVolume], 22.4195264, 1e-7); // 2271098.0268 / 101300
    EXPECT_EQ(data.numbers[Pressure], 1013);
    EXPECT_EQ(data.numbers[Temperature], 0);
}

TEST(ComputeGasData, GivesTheTemperatureInOneDecimal)
{
    const GasData data = Compute(u"1000"_s, {}, u"24"_s, kPressureAndVolume);

    EXPECT_EQ(data.texts, (GasTexts{u"1000"_s, u"15,5"_s, u"24"_s}));
    EXPECT_NEAR(data.numbers[Temperature], 15.5033264, 1e-6); // 2400 / 8.314472 - 273.15
    EXPECT_EQ(data.numbers[MolarVolume], 24);
}

TEST(ComputeGasData, GivesThePressureWithoutDecimals)
{
    const GasData data = Compute(u"1"_s, u"20"_s, u"24"_s, kTemperatureAndVolume);

    EXPECT_EQ(data.texts, (GasTexts{u"1016"_s, u"20"_s, u"24"_s}));
    EXPECT_NEAR(data.numbers[Pressure], 1015.578111, 1e-6); // 2437.3874668 / 0.024 / 100
    EXPECT_EQ(data.numbers[MolarVolume], 24);
}

TEST(ComputeGasData, ReadsACommaAsAPoint)
{
    const GasData data = Compute(u"1013,25"_s, u" 20,5"_s, {}, kPressureAndTemperature);

    // 8.314472 * 293.65 = 2441.5447028; 2441544.7028 / 101325 = 24.0961727
    EXPECT_NEAR(data.numbers[MolarVolume], 24.0961727, 1e-6);
    EXPECT_EQ(data.texts, (GasTexts{u"1013,25"_s, u" 20,5"_s, u"24,096"_s}));
}

TEST(ComputeGasData, WritesTheSeparatorOfTheSystem)
{
    const GasData data = ComputeGasData({u"1013,25"_s, u"20.5"_s, {}}, kPressureAndTemperature, u'.');

    EXPECT_EQ(data.texts, (GasTexts{u"1013,25"_s, u"20.5"_s, u"24.096"_s}));
}

TEST(ComputeGasData, TakesOneForAnEmptyPressureOrOneOfZero)
{
    for (const QString& pressure : {QString(), u"0"_s, u"0,00"_s, u"abc"_s}) {
        const GasData data = Compute(pressure, u"0"_s, {}, kPressureAndTemperature);

        EXPECT_EQ(data.texts[Pressure], u"1"_s) << pressure.toStdString();
        EXPECT_EQ(data.texts[MolarVolume], u"22710,980"_s); // 2271098.0268 / 100
    }
}

TEST(ComputeGasData, RaisesATemperatureBelowTheLowestOneWhicheverPairIsGiven)
{
    const GasData volume = Compute(u"1013"_s, u"-300"_s, {}, kPressureAndTemperature);
    EXPECT_EQ(volume.texts[Temperature], u"-273"_s);
    EXPECT_EQ(volume.numbers[Temperature], -273);
    // 8.314472 * 0.15 = 1.2471708; 1247.1708 / 101300 = 0.01231
    EXPECT_EQ(volume.texts[MolarVolume], u"0,012"_s);

    const GasData pressure = Compute({}, u"-300"_s, u"24"_s, kTemperatureAndVolume);
    EXPECT_EQ(pressure.texts[Temperature], u"-273"_s);
    EXPECT_EQ(pressure.texts[Pressure], u"1"_s); // 1.2471708 / 0.024 / 100 = 0.52

    // Here it is computed anew.
    const GasData temperature = Compute(u"1000"_s, u"-300"_s, u"24"_s, kPressureAndVolume);
    EXPECT_EQ(temperature.texts[Temperature], u"15,5"_s);
}

TEST(ComputeGasData, LeavesTheLowestTemperatureItself)
{
    EXPECT_EQ(Compute(u"1013"_s, u"-273"_s, {}, kPressureAndTemperature).texts[Temperature], u"-273"_s);
    EXPECT_EQ(Compute(u"1013"_s, u"-272,9"_s, {}, kPressureAndTemperature).texts[Temperature], u"-272,9"_s);
    EXPECT_EQ(Compute(u"1013"_s, u"-273,1"_s, {}, kPressureAndTemperature).texts[Temperature], u"-273"_s);
}

TEST(ComputeGasData, DoesNotLookAtTheValueThatIsComputed)
{
    for (const Given& given : kPairs) {
        GasTexts texts{u"1000"_s, u"20"_s, u"24"_s};
        const GasData plain = ComputeGasData(texts, given, u',');
        for (size_t value = 0; value < 3; ++value) {
            if (!given.at(value))
                texts.at(value) = u"77"_s;
        }
        EXPECT_EQ(ComputeGasData(texts, given, u',').numbers, plain.numbers);
    }
}

TEST(ComputeGasData, FailsOnAPressureFromAVolumeOfZero)
{
    for (const QString& volume : {QString(), u"0"_s, u"0,0"_s})
        EXPECT_THROW(Compute(u"1013"_s, u"20"_s, volume, kTemperatureAndVolume), FatalFault);
}

} // namespace stoikal
