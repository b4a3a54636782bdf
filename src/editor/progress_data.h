#pragma once

#include "editor/work_equation.h"

#include <QStringView>
#include <optional>
#include <vector>

namespace stoikal {

/// Why a character cannot go into the number of a datum, in a French sentence; nothing
/// when it can. A number is made of digits and one comma or point: a second comma
/// would cut the datum in two in the file. `before` is the text without what the
/// character replaces.
std::optional<QString> DatumKeyRefusal(QChar key, QStringView before);

/// The first species that is there and whose datum ("Q-1") is below 0.
std::optional<std::size_t> FirstNegativeDatum(const WorkEquation& equation);

/// The numbers, from 1, of the equations without any datum other than 0. The study of
/// a reaction's progress ends the program at such a line.
std::vector<int> EquationsWithoutDatum(const std::vector<WorkEquation>& equations);

} // namespace stoikal
