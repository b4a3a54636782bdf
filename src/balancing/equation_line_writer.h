#pragma once

#include <QString>
#include <array>

namespace stoikal {

/// A balanced equation as a line of an equation file: "H2+O2=H2O/2,1,2".
/// Empty positions are left out; 0 to 2 are the reactants.
QString BalancedEquationLine(const std::array<QString, 6>& molecules,
                             const std::array<double, 6>& coefficients);

} // namespace stoikal
