#pragma once

#include "progress/progress_table.h"

#include <QString>

namespace stoikal {

constexpr int kSlots = 6;
constexpr int kReactantSlots = 3;

/// What the drawings show on their vertical axis: amounts in mol or masses in g.
enum class Ordinate { Amount, Mass };

/// How much there is of a slot's species at a progress in mol: initial amount
/// less coefficient x progress for a reactant, which may come out negative;
/// coefficient x progress for a product. In mol, or in g by the molar mass.
double LevelAt(const ProgressTable& table, int slot, double progress, Ordinate ordinate);

/// What there was of a reactant at the beginning, in mol or g.
double InitialLevel(const ProgressTable& table, int slot, Ordinate ordinate);

/// The largest value that the drawings of a table can reach: over the slots in
/// use, initial for reactants and final for products. 0 when none is in use.
double LargestLevel(const ProgressTable& table, Ordinate ordinate);

/// The formula and the charge as an equation file writes it: "Fe{3+}", "Cl{-}",
/// nothing for a charge of 0.
QString InlineSpecies(const QString& formula, int charge);

/// The title of the vertical axis: "Quantité de matière (x0,1 mol)", "Masse (g)".
QString OrdinateTitle(Ordinate ordinate, const QString& unitText);

/// The first line above a drawing.
QString EvolutionHeading(Ordinate ordinate);

} // namespace stoikal
