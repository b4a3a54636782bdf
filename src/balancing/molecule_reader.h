#pragma once

#include "chemistry/formula.h"

#include <QString>
#include <cstdint>

namespace stoikal {

/// The atoms and the charge of one molecule, as the balancing engine reads them.
struct MoleculeAtoms {
    AtomTally tally;
    std::int16_t charge = 0;
    bool hasLowerCaseStart = false; ///< a small letter where no symbol is open: the formula is refused
};

/// Reads a formula: capitals open symbols, which are not checked; "(" and ")"
/// multiply, "[" and "]" are skipped, "," multiplies all behind it, "{2+}" is a
/// charge. Stops at a small letter where no symbol is open. More than 10
/// different atoms, counts beyond 16 bits and a "{" without "}" are FatalFaults.
MoleculeAtoms ParseMolecule(const QString& formula);

/// The same into an empty record that is there already.
void ParseMolecule(const QString& formula, MoleculeAtoms& atoms);

} // namespace stoikal
