#pragma once

#include "progress/progress_table.h"

#include <QString>

namespace stoikal {

/// CH4 + 2 O2 = CO2 + 2 H2O from 0.5 mol and 1.2 mol: the methane limits, xmax is
/// min(0.5 / 1, 1.2 / 2) = 0.5. Molar masses 16, 32, 44 and 18.
inline ProgressTable BurningMethane()
{
    ProgressTable table;
    table.Molecule = {QStringLiteral("CH4"), QStringLiteral("O2"),  QString(),
                      QStringLiteral("CO2"), QStringLiteral("H2O"), QString()};
    table.Coeff = {1, 2, 0, 1, 2, 0};
    table.MolarMass = {16, 32, 0, 44, 18, 0};
    table.InitialAmount = {0.5, 1.2, 0, 0, 0, 0};
    table.FinalAmount = {0, 0.2, 0, 0.5, 1, 0}; // 1.2 - 2 x 0.5 = 0.2; 2 x 0.5 = 1.
    table.Mass = {8, 38.4, 0, 22, 18, 0}; // 0.5 x 16, 1.2 x 32, 0.5 x 44, 1 x 18.
    table.Xmax = 0.5;
    table.XmaxScale = 1000;
    return table;
}

/// A = B, one to one, from an amount: a table whose only number is that amount.
inline ProgressTable OneToOne(double amount, std::int32_t xmaxScale = 1000)
{
    ProgressTable table;
    table.Molecule[0] = QStringLiteral("A");
    table.Molecule[3] = QStringLiteral("B");
    table.Coeff = {1, 0, 0, 1, 0, 0};
    table.MolarMass = {10, 0, 0, 10, 0, 0};
    table.InitialAmount[0] = amount;
    table.FinalAmount[3] = amount;
    table.Mass[0] = 10 * amount;
    table.Mass[3] = 10 * amount;
    table.Xmax = amount;
    table.XmaxScale = xmaxScale;
    return table;
}

} // namespace stoikal
