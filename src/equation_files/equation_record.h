#pragma once

#include <QString>
#include <algorithm>
#include <array>
#include <cstdint>

namespace stoikal {

/// One place of an equation: a species, or nothing when `Molecule` is empty.
struct SpeciesSlot {
    QString Molecule; ///< the formula, without state and charge
    std::int16_t Coeff = 0; ///< the file's coefficient; 0 for an empty slot
    QString Etat; ///< the physical state in lower case, empty when none is given
    std::int16_t Charge = 0; ///< with its sign; 0 when the species has none
    QString MVQ = QStringLiteral("0"); ///< progress datum: a kind letter and a number; "0" when none
};

/// The equation being worked. Slots 0 to 2 are the reactants, 3 to 5 the
/// products. It only holds what a line of a file says and computes nothing.
struct EquationRecord {
    std::array<SpeciesSlot, 6> Slots;

    /// Whether a species is charged. A charge that is written is never 0, so
    /// this is also whether a charge is written.
    bool HasCharges() const
    {
        return std::any_of(Slots.begin(), Slots.end(),
                           [](const SpeciesSlot& slot) { return slot.Charge != 0; });
    }
};

} // namespace stoikal
