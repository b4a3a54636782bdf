#pragma once

#include "base/outcome.h"

#include <cstdint>

namespace stoikal {

class Settings;

enum class Side { Reactants, Products };

/// The colour of a side that nobody has changed, as a 24-bit number with red in
/// the low byte: pale green for reactants, pale blue for products.
std::uint32_t DefaultSideColour(Side side);

/// Stores the colour of a side in the settings, as a plain decimal number. Fails
/// with French sentences to be shown.
Outcome<QString> SetSideColour(Settings& settings, Side side, std::uint32_t colour);

/// Gives both sides back their own colours, or neither.
Outcome<QString> SetDefaultSideColours(Settings& settings);

/// The background colour of a side, as a 24-bit number with red in the low
/// byte: the user's, else pale green for reactants and pale blue for products.
std::uint32_t SideColour(const Settings& settings, Side side);

} // namespace stoikal
