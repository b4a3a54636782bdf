#pragma once

#include "exercise/atom_list.h"

#include <QString>

namespace stoikal {

/// The composition of a species in words, lines ended by "\n":
///
///     La molécule H2O est composée de :
///      -->  2 atomes d'hydrogène de symbole H;
///      -->  1 atome d'oxygène de symbole O.
///
/// The numbers are the totals of the list, so the coefficient counts.
QString CompositionText(const QString& molecule, const AtomList& list);

} // namespace stoikal
