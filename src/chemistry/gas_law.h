#pragma once

namespace stoikal {

/// The ideal-gas relation between pressure (hPa), temperature (°C) and molar
/// volume (L/mol): p V = n R T with R = 8.314472 J/(mol K) and 0 °C = 273.15 K.
/// The order of the operations is fixed: results are compared bit for bit.

/// L/mol from hPa (not 0) and °C.
double MolarVolumeFrom(double pressure, double temperature);

/// °C from hPa and L/mol.
double TemperatureFrom(double pressure, double molarVolume);

/// hPa from L/mol and °C. A molar volume of 0 is a FatalFault.
double PressureFrom(double molarVolume, double temperature);

} // namespace stoikal
