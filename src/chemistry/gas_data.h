#pragma once

#include <QChar>
#include <QString>
#include <array>

namespace stoikal {

/// The three values of the gas law, in the order of their boxes.
enum GasValue { Pressure, Temperature, MolarVolume };

/// What stands in the three boxes: pressure (hPa), temperature (°C) and molar
/// volume (L/mol), as typed or as shown.
using GasTexts = std::array<QString, 3>;

/// The values in force, with all their digits, in the same units.
using GasNumbers = std::array<double, 3>;

struct GasData {
    GasTexts texts;
    GasNumbers numbers;
};

/// Computes the value that is not given from the two that are; exactly two of
/// `given` are true. First an empty pressure, or one that reads 0, becomes "1",
/// and a temperature below -273 becomes "-273", given or not. The computed box is
/// written in "0" (hPa), "0.0" (°C) or "0.000" (L/mol) with the separator; the
/// given ones stay as they were typed, with a comma or a point.
/// FatalFault: a pressure from a molar volume of 0, a result that is no number.
GasData ComputeGasData(const GasTexts& texts, const std::array<bool, 3>& given, QChar separator);

} // namespace stoikal
