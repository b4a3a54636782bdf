#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <cstdint>
#include <functional>

namespace stoikal {

/// The longest number at the start of a text (blanks skipped, a sign, digits, a
/// point, digits; 0 when there is none), rounded to the nearest integer, ties to
/// the even one. What does not fit 16 bits is a FatalFault.
std::int16_t LeadingInteger(QStringView text);

/// Puts a point for the first comma of a number typed by a person, and takes the
/// blanks around both parts away. A second comma stays; a text without a comma
/// is left alone.
void NormaliseDecimalComma(QString& value);

/// Whether the text is exactly one of the 109 symbols that a formula may use,
/// "H" to "Mt". Case counts.
bool IsKnownAtom(QStringView symbol);

/// The text of the box that names an unknown symbol.
QString UnknownAtomMessage(const QString& symbol);

/// "A" to "Z": begins an atom.
bool IsCapital(QChar c);

/// "a" to "z": belongs to the symbol before it.
bool IsSmallLetter(QChar c);

/// The position behind the symbol whose capital stands at this position: behind
/// the capital and all small letters that follow it, however many.
qsizetype SymbolEnd(QStringView formula, qsizetype capital);

/// The position of the ")" that closes the bracket opened at this position;
/// the formula's length when there is none. Square brackets are not looked at:
/// a "[" that holds a "(...)" passes over it and seeks a ")" of its own.
qsizetype MatchingCloser(QStringView formula, qsizetype opener);

/// The index that stands at this position: its LeadingInteger, 0 read as 1, and
/// 1 behind the formula's end.
std::int16_t IndexAt(QStringView formula, qsizetype position);

/// The atoms of one formula: a symbol at most once, in the order of first
/// appearance, without gaps; "" marks a free place.
struct AtomTally {
    static constexpr int kPlaces = 10;

    std::array<QString, kPlaces> symbols;
    std::array<std::int16_t, kPlaces> counts{};

    /// How many places are taken, 0 to 10.
    int Used() const;

    /// Counts atoms of this symbol: at its place if it has one, else at the
    /// first free place. The symbol needs a free place in either case: with all
    /// ten taken it is a FatalFault, as is a count that does not fit 16 bits.
    void Add(QString symbol, std::int64_t count);
};

/// Told a symbol that is not known, once for each box that is due. Must be
/// callable.
using UnknownAtomReport = std::function<void(const QString& symbol)>;

/// What MolarMass found: the mass, and the atoms read.
struct MolarMassResult {
    double gramsPerMole = 0;
    AtomTally tally;
};

/// The molar mass of a formula; 0 when it has no atom or holds an unknown
/// symbol, at which the reading stops with the symbol left in the tally. The
/// symbol is reported unless it is a single capital at the very end, which may
/// still get its second letter. Overflow of the 16-bit counts and of the
/// multiplier, and an eleventh atom, are a FatalFault.
MolarMassResult MolarMass(const QString& formula, const UnknownAtomReport& report);

/// Reads a formula for its reports only: each small letter that follows no
/// capital, and the first unknown symbol, at which the reading stops. Fails as
/// MolarMass does.
void CheckFormulaAtoms(const QString& formula, const UnknownAtomReport& report);

} // namespace stoikal
