#pragma once

#include "progress/progress_table.h"

#include <array>

namespace stoikal {

/// What is to be said of one box.
enum class BoxVerdict { NotJudged, Right, Wrong };

using RowVerdicts = std::array<BoxVerdict, 6>;

/// Whether a typed molar mass is right: 2 % of the typed value at most, limit
/// included. 18.3 passes for 18 (1.6 %), 17.6 does not (2.3 %).
bool IsMolarMassRight(double typed, double molarMass);

/// The verdicts on the molar masses typed for each slot in use.
RowVerdicts CheckMolarMasses(const ProgressTable& table, const std::array<QString, 6>& typed);

/// Whether a typed amount is right: 5 % of the true one at most, limit included;
/// for a true value of 0 the typed one is 0.05 mol at most.
bool IsAmountRight(double typed, double amount);

/// Whether a typed mass or volume is right: 5 % of the true one at most, limit
/// included. A true value of 0 cannot be divided by: a FatalFault without a place.
bool IsQuantityRight(double typed, double quantity);

/// The verdicts on a typed table, row by row.
struct TableVerdicts {
    RowVerdicts txtMasse{};
    RowVerdicts txtVolGaz{};
    RowVerdicts txtQmat0{};
    RowVerdicts txtQmatf{};

    bool AreAllRight() const;
};

/// Whether no box of a row is wrong.
bool AreAllRight(const RowVerdicts& row);

/// Reads what was typed into the table's fields for it. An empty box gives 0.
void ReadTypedTable(const ProgressTexts& texts, ProgressTable& table);

/// Judges what was typed against the table: initial amounts of reactants, final
/// amounts and masses of all, volumes where they were asked. All boxes are
/// judged, none stops the others. FatalFault as `IsQuantityRight`.
TableVerdicts CheckProgressTable(const ProgressTable& table, const std::array<bool, 6>& volumeAsked);

/// Whether each box of each slot in use holds a text; a volume only where it is asked.
bool IsTableComplete(const ProgressTable& table, const ProgressTexts& texts,
                     const std::array<bool, 6>& volumeAsked);

} // namespace stoikal
