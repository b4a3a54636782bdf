#include "chemistry/formula.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"
#include "base/number_text.h"
#include "chemistry/element_table.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

/// What becomes of an unknown capital that ends the formula.
enum class LastCapital { Silent, Reported };

bool IsKnownIndex(int element)
{
    return element >= 0 && element < kKnownAtomCount;
}

/// The one reader of formulas with both kinds of brackets, the comma of
/// hydrates and unread charges. Answers whether it came to the end; an unknown
/// symbol stops it, and stays in the tally with the count 0.
bool ScanFormula(QStringView formula, LastCapital lastCapital, AtomTally& tally,
                 const UnknownAtomReport& report)
{
    std::int16_t multiplier = 1;
    qsizetype i = 0;
    while (i < formula.size()) {
        const QChar c = formula[i];
        if (IsCapital(c)) {
            const qsizetype end = SymbolEnd(formula, i);
            const QStringView symbol = formula.sliced(i, end - i);
            const int element = ElementIndex(symbol);
            if (!IsKnownIndex(element)) {
                tally.Add(symbol.toString(), 0);
                const bool mayGrow = symbol.size() == 1 && end == formula.size();
                if (!mayGrow || lastCapital == LastCapital::Reported)
                    report(symbol.toString());
                return false;
            }
            tally.Add(ElementSymbol(element), std::int64_t{multiplier} * IndexAt(formula, end));
            i = end;
            continue;
        }
        if (c == u'(' || c == u'[') {
            multiplier
                = Checked16(std::int64_t{multiplier} * IndexAt(formula, MatchingCloser(formula, i) + 1));
        } else if (c == u')' || c == u']') {
            multiplier = RoundToEven16(static_cast<double>(multiplier) / IndexAt(formula, i + 1));
        } else if (c == u',') {
            // Nothing divides this factor again: it counts to the formula's end.
            multiplier = Checked16(std::int64_t{multiplier} * IndexAt(formula, i + 1));
        } else if (IsSmallLetter(c)) {
            report(QString(c));
        }
        ++i;
    }
    return true;
}

} // namespace

std::int16_t LeadingInteger(QStringView text)
{
    return RoundToEven16(ReadNumber(text));
}

void NormaliseDecimalComma(QString& value)
{
    const qsizetype comma = value.indexOf(u',');
    if (comma >= 0)
        value = value.first(comma).trimmed() + u'.' + value.sliced(comma + 1).trimmed();
}

bool IsKnownAtom(QStringView symbol)
{
    return IsKnownIndex(ElementIndex(symbol));
}

QString UnknownAtomMessage(const QString& symbol)
{
    return u"Le symbole '%1' n'est pas le symbole d'un atome connu.\nVeuillez vérifier votre saisie."_s.arg(
        symbol);
}

bool IsCapital(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

bool IsSmallLetter(QChar c)
{
    return c >= u'a' && c <= u'z';
}

qsizetype SymbolEnd(QStringView formula, qsizetype capital)
{
    qsizetype end = capital + 1;
    while (end < formula.size() && IsSmallLetter(formula[end]))
        ++end;
    return end;
}

qsizetype MatchingCloser(QStringView formula, qsizetype opener)
{
    int inner = 0;
    for (qsizetype i = opener + 1; i < formula.size(); ++i) {
        if (formula[i] == u'(')
            ++inner;
        else if (formula[i] == u')' && inner-- == 0)
            return i;
    }
    return formula.size();
}

std::int16_t IndexAt(QStringView formula, qsizetype position)
{
    // Most symbols are followed by the next one: no number to be read.
    if (position >= formula.size() || IsCapital(formula[position]))
        return 1;
    const std::int16_t index = LeadingInteger(formula.sliced(position));
    return index == 0 ? std::int16_t{1} : index;
}

int AtomTally::Used() const
{
    const auto firstFree
        = std::ranges::find_if(symbols, [](const QString& symbol) { return symbol.isEmpty(); });
    return static_cast<int>(firstFree - symbols.begin());
}

void AtomTally::Add(QString symbol, std::int64_t count)
{
    if (!symbols.back().isEmpty()) {
        throw FatalFault(
            u"une formule garde %1 atomes différents au plus, il ne reste aucune place pour %2."_s.arg(
                QString::number(kPlaces), symbol));
    }
    const std::int16_t added = Checked16(count);
    std::size_t place = 0;
    while (!symbols[place].isEmpty() && symbols[place] != symbol)
        ++place;
    if (symbols[place].isEmpty())
        symbols[place] = std::move(symbol);
    counts[place] = Checked16(std::int64_t{counts[place]} + added);
}

MolarMassResult MolarMass(const QString& formula, const UnknownAtomReport& report)
{
    MolarMassResult result;
    if (!ScanFormula(formula, LastCapital::Silent, result.tally, report))
        return result;
    for (std::size_t place = 0; place < result.tally.symbols.size(); ++place) {
        const int element = ElementIndex(result.tally.symbols[place]);
        result.gramsPerMole += result.tally.counts[place] * ElementMolarMass(element);
    }
    return result;
}

void CheckFormulaAtoms(const QString& formula, const UnknownAtomReport& report)
{
    AtomTally tally;
    ScanFormula(formula, LastCapital::Reported, tally, report);
}

} // namespace stoikal
