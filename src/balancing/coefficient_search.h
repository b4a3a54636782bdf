#pragma once

#include "balancing/balancing_engine.h"

#include <array>

namespace stoikal {

/// A system with more unknowns than rows, as the engine hands it to the search.
struct SearchSystem {
    BalanceMatrix matrix; ///< a column a position, empty ones zero
    std::array<bool, 6> present{}; ///< the position holds a molecule
    int lastRow = 0;
    int excess = 2; ///< last column less last row: 2 or more
};

struct SearchResult {
    enum class End {
        Found,
        Impossible, ///< no choice of free positions gave a solution
        Nothing, ///< an excess above 3 that gave none: neither result nor failure
        Stopped ///< given up by the observer
    };
    End end = End::Nothing;
    std::array<double, 6> coefficients{}; ///< the solution, else the last ones tried
};

/// Fixes two or three coefficients at chosen values, solves for the others, and
/// keeps the solution of smallest sum of the first choice of positions that has
/// one. A choice that runs out of positions is a FatalFault.
SearchResult SearchCoefficients(const SearchSystem& system, BalancingObserver& observer, Attempts attempts);

} // namespace stoikal
