#pragma once

#include "equation_files/equation_record.h"
#include "exercise/journal_lines.h"

#include <array>

namespace stoikal {

/// An equation on one line as the pupil sees it, for the clipboard: each term is
/// what its box holds and the species, with nothing between them
/// ("2H2 + 1O2---->2H2O"). The second reactant stands there even if its slot is
/// empty; other empty slots are left out.
QString EquationText(const EquationRecord& record, const std::array<JournalTerm, 6>& terms);

} // namespace stoikal
