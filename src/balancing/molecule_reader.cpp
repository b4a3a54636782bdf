#include "balancing/molecule_reader.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"
#include "base/quote.h"

#include <QStringView>

namespace stoikal {
namespace {

/// The charge that begins with the "{" at this position; `i` moves to its "}".
std::int16_t ReadCharge(QStringView formula, qsizetype& i)
{
    const qsizetype close = formula.indexOf(QLatin1Char('}'), i);
    if (close < 0)
        throw FatalFault(
            QStringLiteral("il manque une accolade fermante dans la formule %1.").arg(Quoted(formula)));
    const std::int64_t magnitude = IndexAt(formula, i + 1);
    const bool isNegative = formula.sliced(i + 1, close - i - 1).contains(QLatin1Char('-'));
    i = close;
    return Checked16(isNegative ? -magnitude : magnitude);
}

} // namespace

MoleculeAtoms ParseMolecule(const QString& formula)
{
    MoleculeAtoms atoms;
    ParseMolecule(formula, atoms);
    return atoms;
}

void ParseMolecule(const QString& formula, MoleculeAtoms& atoms)
{
    const QStringView text(formula);
    std::int16_t multiplier = 1;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (IsCapital(c)) {
            const qsizetype end = SymbolEnd(text, i);
            atoms.tally.Add(text.sliced(i, end - i).toString(),
                            std::int64_t{multiplier} * IndexAt(text, end));
            i = end - 1;
        } else if (c == QLatin1Char('(')) {
            multiplier = Checked16(std::int64_t{multiplier} * IndexAt(text, MatchingCloser(text, i) + 1));
        } else if (c == QLatin1Char(')')) {
            multiplier = RoundToEven16(static_cast<double>(multiplier) / IndexAt(text, i + 1));
        } else if (c == QLatin1Char(',')) {
            multiplier = Checked16(std::int64_t{multiplier} * IndexAt(text, i + 1));
        } else if (c == QLatin1Char('{')) {
            atoms.charge = Checked16(std::int64_t{atoms.charge} + ReadCharge(text, i));
        } else if (IsSmallLetter(c)) {
            atoms.hasLowerCaseStart = true;
            return;
        }
    }
}

} // namespace stoikal
