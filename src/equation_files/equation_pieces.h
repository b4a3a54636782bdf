#pragma once

#include <QString>
#include <array>
#include <optional>

namespace stoikal {

/// An equation line in pieces, nothing of them read yet.
struct EquationPieces {
    std::array<QString, 6> species; ///< with state and charge; 0 to 2 the reactants
    std::optional<QString> coefficients; ///< between "/" and "#"; nothing without "/"
    std::optional<QString> data; ///< all behind "#"; nothing without "#"
};

/// Cuts an equation line at its first "=", "/" and "#", and its sides at the
/// "+" signs that belong to no charge. Blanks (code 32) are taken out first.
/// Without "/" the right side is all the rest, data included; "/" at the end of
/// the line, or directly before "#", gives an empty text. A fourth species of a
/// side stays in the third. FatalFault, without a place: no "=", "/" before "=",
/// "#" before a "/" with text behind it, a side whose only "+" belongs to a charge.
EquationPieces CutEquationLine(QString line);

/// Takes `<state>` out of a species, before or behind its charge.
/// \returns the state, trimmed and in lower case; empty when there is none. A
/// "<" without ">" behind it is a FatalFault.
QString TakeState(QString& species);

} // namespace stoikal
