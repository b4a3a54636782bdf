#pragma once

namespace stoikal {

/// Where a character of a species stands: H₂O has its 2 below, Fe³⁺ its charge above.
enum class CharacterHeight { Line, Subscript, Superscript };

} // namespace stoikal
