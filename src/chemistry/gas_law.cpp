#include "chemistry/gas_law.h"

#include "base/fatal_fault.h"

namespace stoikal {
namespace {

constexpr double kGasConstant = 8.314472; ///< J/(mol K)
constexpr double kCelsiusOffset = 273.15; ///< K

} // namespace

double MolarVolumeFrom(double pressure, double temperature)
{
    return 1000 * (kGasConstant * (temperature + kCelsiusOffset)) / (100 * pressure);
}

double TemperatureFrom(double pressure, double molarVolume)
{
    return ((100 * molarVolume) * pressure / 1000) / kGasConstant - kCelsiusOffset;
}

double PressureFrom(double molarVolume, double temperature)
{
    if (molarVolume == 0)
        throw FatalFault(QStringLiteral("un volume molaire nul ne permet pas de calculer la pression."));
    return (kGasConstant * (temperature + kCelsiusOffset)) / (molarVolume / 1000) / 100;
}

} // namespace stoikal
