#include "chemistry/gas_data.h"

#include "base/number_text.h"
#include "chemistry/formula.h"
#include "chemistry/gas_law.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

constexpr double kLowestTemperature = -273; ///< °C

double Typed(QString text)
{
    NormaliseDecimalComma(text);
    return ReadNumber(text);
}

} // namespace

GasData ComputeGasData(const GasTexts& texts, const std::array<bool, 3>& given, QChar separator)
{
    Q_ASSERT(std::ranges::count(given, true) == 2);
    GasData data{texts, {}};
    if (Typed(data.texts[Pressure]) == 0)
        data.texts[Pressure] = u"1"_s;
    if (Typed(data.texts[Temperature]) < kLowestTemperature)
        data.texts[Temperature] = u"-273"_s;
    auto& [pressure, temperature, molarVolume] = data.numbers;
    pressure = Typed(data.texts[Pressure]);
    temperature = Typed(data.texts[Temperature]);
    molarVolume = Typed(data.texts[MolarVolume]);
    if (!given[MolarVolume]) {
        molarVolume = MolarVolumeFrom(pressure, temperature);
        data.texts[MolarVolume] = FormatMask(molarVolume, u"0.000", separator);
    } else if (!given[Temperature]) {
        temperature = TemperatureFrom(pressure, molarVolume);
        data.texts[Temperature] = FormatMask(temperature, u"0.0", separator);
    } else {
        pressure = PressureFrom(molarVolume, temperature);
        data.texts[Pressure] = FormatMask(pressure, u"0", separator);
    }
    return data;
}

} // namespace stoikal
