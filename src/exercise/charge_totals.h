#pragma once

#include "equation_files/equation_record.h"

#include <QString>
#include <array>
#include <cstdint>

namespace stoikal {

/// The sum of the charges of each side of an equation.
struct ChargeTotals {
    std::int32_t reactants = 0;
    std::int32_t products = 0;
};

/// Sums coefficient times charge over slots 0 to 2 and over slots 3 to 5. In the
/// coefficients 0 and an empty box have become 1 already; an empty slot has no
/// charge and adds nothing. A sum outside 32 bits is a FatalFault.
ChargeTotals ComputeChargeTotals(const EquationRecord& record, const std::array<int, 6>& coefficients);

/// A total as its label shows it: "+ 3", "- 2", "0".
QString ChargeLabel(std::int32_t total);

} // namespace stoikal
