#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <span>

namespace stoikal {

/// The atoms of one side of an equation, or of one species: three arrays in
/// step, in the order of first appearance. A free place has an empty `Symbol`.
struct AtomList {
    std::array<QString, 11> Symbol;
    std::array<std::int16_t, 11> UnitCount{}; ///< the species' coefficient left out
    std::array<std::int16_t, 11> TotalCount{}; ///< the species' coefficient included
    int Kinds = 0; ///< the number of places in use
};

/// A species to be counted.
struct SpeciesInput {
    QString molecule; ///< the formula without state and charge; empty: nothing to count
    int coefficient = 1; ///< 0 and an empty box have become 1 already
};

/// Counts the atoms of the species together; what the list held before is gone.
///
/// The formulas are read by simple rules of their own: a capital begins an atom,
/// small letters join the symbol before them, an index has two digits at most (a
/// third is an index again), a group ends at the first ")" and takes the digits
/// behind it as its multiplier. Without digits the multiplier is 0 and the next
/// character is jumped, without ")" it is 0 for all the rest. Characters without
/// a rule leave no trace; a hydrate's comma is such a one, so that its factor
/// becomes the index of the letter before.
///
/// FatalFault: a small letter or a digit before the first atom of the side, more
/// than 11 atoms before equal ones are merged, a count outside 16 bits.
void ComputeComposition(AtomList& list, std::span<const SpeciesInput> species);

/// Reorders the products after the reactants, so that an element that stands on
/// both sides of a balanced equation has the same place in both lists. The
/// reactants keep their order; places in use stay together at the beginning.
void AlignAtomLists(AtomList& reactants, AtomList& products);

/// The symbols that no known atom has, in the order of the list.
QStringList UnknownSymbols(const AtomList& list);

/// Title of the message box about such a symbol; `fileTitle` is the name of the
/// equation file with its extension.
QString UnknownSymbolTitle(const QString& fileTitle);

/// Text of that message box, lines ended by "\n".
QString UnknownSymbolText(const QString& fileTitle, const QString& symbol);

} // namespace stoikal
