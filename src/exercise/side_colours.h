#pragma once

#include <cstdint>

namespace stoikal {

class Settings;

enum class Side { Reactants, Products };

/// The background colour of a side, as a 24-bit number with red in the low
/// byte: the user's, else pale green for reactants and pale blue for products.
std::uint32_t SideColour(const Settings& settings, Side side);

} // namespace stoikal
