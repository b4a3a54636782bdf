#pragma once

#include "exercise/atom_list.h"
#include "exercise/charge_totals.h"

#include <array>
#include <cstdint>

namespace stoikal {

/// What is to be said of an answer.
enum class Balance {
    Unbalanced, ///< atoms or charges differ
    Reducible, ///< balanced, but there is a simpler answer
    Right
};

/// An answer with what it leads to. The atom lists are aligned; the file's own
/// coefficients play no part.
struct JudgedAnswer {
    const AtomList& reactants;
    const AtomList& products;
    bool chargesPresent = false; ///< the charges have to agree too
    ChargeTotals charges{};
    std::array<int, 6> coefficients{}; ///< those of the boxes, 0 and empty being 1
    std::array<bool, 6> visible{}; ///< whether the box of the slot is shown
};

/// Whether the totals at each place of the aligned lists are equal, and the
/// charges where there are any. Only numbers are compared, not the symbols at
/// their place: the alignment is trusted.
bool IsBalanced(const JudgedAnswer& answer);

/// Whether the coefficients have a common factor that the test sees. The primes
/// 2 to 29 are tried, those that do not divide the first coefficient passed
/// over. Once a tried prime fails at a visible box, no later one succeeds: 6, 3,
/// 9 is not reducible, since 2 divides 6 and not 3. A factor of 31 is not seen.
bool IsReducible(const std::array<int, 6>& coefficients, const std::array<bool, 6>& visible);

/// The verdict on an answer.
Balance Judge(const JudgedAnswer& answer);

/// The score after a right answer. Outside 32 bits a FatalFault.
std::int32_t AfterRight(std::int32_t score);

/// The score after a wrong answer, never below 0.
std::int32_t AfterWrong(std::int32_t score);

} // namespace stoikal
