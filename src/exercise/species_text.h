#pragma once

#include "base/character_height.h"
#include "equation_files/equation_record.h"

#include <QString>
#include <vector>

namespace stoikal {

/// A species as the pupil reads it, with the height of each character.
struct SpeciesText {
    QString text;
    std::vector<CharacterHeight> heights;
};

/// The text of a slot: the formula, its charge when charges are shown ("Fe3+",
/// "Cl-"), its state in parentheses on a progress file (" (g)"). Digits of the
/// formula are subscripts; digits behind it, and every "+" and "-", superscripts.
/// An empty slot gives an empty text.
SpeciesText FormatSpecies(const SpeciesSlot& slot, bool showsCharges, bool isProgressFile);

} // namespace stoikal
