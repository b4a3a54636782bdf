#include "exercise/atom_list.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"
#include "base/quote.h"
#include "chemistry/formula.h"

#include <QStringView>
#include <utility>

namespace stoikal {
namespace {

constexpr std::size_t kPlaces = std::tuple_size_v<decltype(AtomList::Symbol)>;

bool IsDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

int DigitValue(QChar c)
{
    return c.unicode() - u'0';
}

/// How many digits the decimal text of a count has; 0 has one.
qsizetype DigitsOf(int count)
{
    qsizetype digits = 1;
    for (; count >= 10; count /= 10)
        ++digits;
    return digits;
}

/// Adds the atoms of one species behind those that a list holds already. Equal
/// symbols are left apart.
class FormulaScanner
{
public:
    FormulaScanner(AtomList& list, const SpeciesInput& species)
        : m_list(list)
        , m_formula(species.molecule)
        , m_coefficient(species.coefficient)
        , m_entry(static_cast<std::size_t>(list.Kinds))
    {
    }

    void Scan()
    {
        for (m_pos = 0; m_pos < m_formula.size(); ++m_pos) {
            if (m_formula[m_pos] == QLatin1Char('('))
                ScanGroup();
            else
                ScanFormulaChar(1);
        }
    }

private:
    /// From "(" to the last digit behind its ")", where the position stays.
    void ScanGroup()
    {
        const qsizetype found = m_formula.indexOf(QLatin1Char(')'), m_pos + 1);
        const qsizetype closing = found < 0 ? m_formula.size() : found;
        qsizetype behind = closing + 1;
        std::int16_t multiplier = 0;
        for (; behind < m_formula.size() && IsDigit(m_formula[behind]); ++behind)
            multiplier = Checked16(multiplier * 10 + DigitValue(m_formula[behind]));
        for (++m_pos; m_pos < closing; ++m_pos)
            ScanFormulaChar(multiplier);
        // Without digits the multiplier 0 is taken for one digit: a character is jumped.
        m_pos = behind == closing + 1 ? behind : behind - 1;
    }

    /// The character at the position; an index may move the position on.
    void ScanFormulaChar(std::int16_t multiplier)
    {
        const QChar c = m_formula[m_pos];
        if (IsSmallLetter(c))
            m_list.Symbol[LastEntry()] += c;
        else if (IsDigit(c))
            ScanIndex(multiplier);
        else if (IsCapital(c))
            AddAtom(c, multiplier);
    }

    void ScanIndex(std::int16_t multiplier)
    {
        int index = DigitValue(m_formula[m_pos]);
        if (m_pos + 1 < m_formula.size() && IsDigit(m_formula[m_pos + 1]))
            index = index * 10 + DigitValue(m_formula[m_pos + 1]);
        const std::size_t last = LastEntry();
        const std::int16_t count = Checked16(std::int64_t{index} * multiplier);
        m_list.UnitCount[last] = count;
        m_list.TotalCount[last] = Times(count);
        // The digits of the product are passed, not those that were read: in
        // `(C5H2)2` the 5 makes 10, two digits, and the H behind it is jumped.
        m_pos += DigitsOf(count) - 1;
    }

    void AddAtom(QChar letter, std::int16_t multiplier)
    {
        if (m_entry == kPlaces)
            throw FatalFault(QStringLiteral("un côté de l'équation compte plus de 11 atomes à la formule %1.")
                                 .arg(Quoted(m_formula)));
        m_list.Symbol[m_entry] = letter;
        m_list.UnitCount[m_entry] = multiplier;
        m_list.TotalCount[m_entry] = Times(multiplier);
        ++m_entry;
    }

    /// The place of the atom read last, which on a side may be one of the species before.
    std::size_t LastEntry() const
    {
        if (m_entry == 0)
            throw FatalFault(QStringLiteral("la formule %1 ne commence pas par une lettre majuscule.")
                                 .arg(Quoted(m_formula)));
        return m_entry - 1;
    }

    std::int16_t Times(std::int16_t count) const { return Checked16(std::int64_t{count} * m_coefficient); }

    AtomList& m_list;
    QStringView m_formula;
    int m_coefficient;
    std::size_t m_entry;
    qsizetype m_pos = 0;
};

void RemoveEntry(AtomList& list, std::size_t entry)
{
    for (; entry + 1 < kPlaces; ++entry) {
        list.Symbol[entry] = std::move(list.Symbol[entry + 1]);
        list.UnitCount[entry] = list.UnitCount[entry + 1];
        list.TotalCount[entry] = list.TotalCount[entry + 1];
    }
    list.Symbol[entry].clear();
    list.UnitCount[entry] = 0;
    list.TotalCount[entry] = 0;
}

/// Adds each repeated symbol to its first place and closes the gap. The place
/// where the gap was is tested again, as it holds another atom now.
void MergeDuplicates(AtomList& list)
{
    std::size_t i = 0;
    for (; i < kPlaces && !list.Symbol[i].isEmpty(); ++i) {
        std::size_t j = i + 1;
        while (j < kPlaces && !list.Symbol[j].isEmpty()) {
            if (list.Symbol[j] != list.Symbol[i]) {
                ++j;
                continue;
            }
            list.UnitCount[i] = Checked16(list.UnitCount[i] + list.UnitCount[j]);
            list.TotalCount[i] = Checked16(list.TotalCount[i] + list.TotalCount[j]);
            RemoveEntry(list, j);
        }
    }
    list.Kinds = static_cast<int>(i);
}

} // namespace

void ComputeComposition(AtomList& list, std::span<const SpeciesInput> species)
{
    list = {};
    for (const SpeciesInput& one : species) {
        FormulaScanner(list, one).Scan();
        MergeDuplicates(list);
    }
}

void AlignAtomLists(AtomList& reactants, AtomList& products)
{
    for (std::size_t i = 0; i < kPlaces; ++i) {
        for (std::size_t j = i + 1; j < kPlaces; ++j) {
            if (reactants.Symbol[i].isEmpty() || reactants.Symbol[i] != products.Symbol[j])
                continue;
            std::swap(products.Symbol[i], products.Symbol[j]);
            std::swap(products.UnitCount[i], products.UnitCount[j]);
            std::swap(products.TotalCount[i], products.TotalCount[j]);
        }
    }
}

QStringList UnknownSymbols(const AtomList& list)
{
    QStringList unknown;
    for (const QString& symbol : list.Symbol) {
        if (!symbol.isEmpty() && !IsKnownAtom(symbol))
            unknown << symbol;
    }
    return unknown;
}

QString UnknownSymbolTitle(const QString& fileTitle)
{
    return QStringLiteral("Stoikal - Erreur dans le fichier %1").arg(fileTitle);
}

QString UnknownSymbolText(const QString& fileTitle, const QString& symbol)
{
    return QStringLiteral("Il existe une erreur dans le fichier d'équations : %1\n\n"
                          "Le symbole de l'atome suivant '%2' est incorrect.\n"
                          "Veuillez corriger ce fichier.")
        .arg(fileTitle, Quoted(symbol.trimmed()));
}

} // namespace stoikal
