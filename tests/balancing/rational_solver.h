#pragma once

#include <QString>

#include <cstdint>
#include <limits>
#include <map>
#include <numeric>
#include <stdexcept>
#include <utility>
#include <vector>

/// An exact measure for the balancing engine, built without any of its code: a
/// reader of formulas by the chemist's rules, and the null space of the matrix
/// of atoms and charges in fractions.
namespace stoikal::exact {

__extension__ typedef __int128 Wide;

/// A fraction in lowest terms with a positive denominator, on 64 bits. Sums and
/// products are formed on 128 bits; what does not fit again is thrown.
class Rational
{
public:
    Rational(std::int64_t whole = 0)
        : m_numerator(whole)
    {
    }

    std::int64_t Numerator() const { return m_numerator; }
    std::int64_t Denominator() const { return m_denominator; }
    bool IsZero() const { return m_numerator == 0; }

    friend Rational operator-(const Rational& a, const Rational& b)
    {
        return Of(Wide{a.m_numerator} * b.m_denominator - Wide{b.m_numerator} * a.m_denominator,
                  Wide{a.m_denominator} * b.m_denominator);
    }
    friend Rational operator*(const Rational& a, const Rational& b)
    {
        return Of(Wide{a.m_numerator} * b.m_numerator, Wide{a.m_denominator} * b.m_denominator);
    }
    friend Rational operator/(const Rational& a, const Rational& b)
    {
        return Of(Wide{a.m_numerator} * b.m_denominator, Wide{a.m_denominator} * b.m_numerator);
    }

private:
    static Rational Of(Wide numerator, Wide denominator)
    {
        if (denominator == 0)
            throw std::domain_error("division by zero");
        Wide a = numerator < 0 ? -numerator : numerator;
        Wide b = denominator < 0 ? -denominator : denominator;
        while (b != 0)
            a = std::exchange(b, a % b);
        if (denominator < 0)
            a = -a;
        Rational result;
        result.m_numerator = Narrow(numerator / a);
        result.m_denominator = Narrow(denominator / a);
        return result;
    }
    static std::int64_t Narrow(Wide value)
    {
        if (value > std::numeric_limits<std::int64_t>::max()
            || value < std::numeric_limits<std::int64_t>::min())
            throw std::overflow_error("a fraction beyond 64 bits");
        return static_cast<std::int64_t>(value);
    }

    std::int64_t m_numerator = 0;
    std::int64_t m_denominator = 1;
};

using Integers = std::vector<std::int64_t>;

/// The integers without their common factor.
inline Integers InLowestTerms(Integers values)
{
    std::int64_t common = 0;
    for (const std::int64_t value : values)
        common = std::gcd(common, value);
    for (std::int64_t& value : values)
        value /= common == 0 ? 1 : common;
    return values;
}

/// A basis of the vectors that every row sends to 0, each in whole numbers
/// without a common factor, its first free place positive.
inline std::vector<Integers> NullSpace(const std::vector<Integers>& rows, std::size_t columns)
{
    std::vector<std::vector<Rational>> cells;
    for (const Integers& row : rows)
        cells.emplace_back(row.begin(), row.end());
    std::vector<std::size_t> pivots;
    std::vector<std::size_t> freeColumns;
    for (std::size_t column = 0; column < columns; ++column) {
        const std::size_t rank = pivots.size();
        std::size_t found = rank;
        while (found < cells.size() && cells[found][column].IsZero())
            ++found;
        if (found >= cells.size()) {
            freeColumns.push_back(column);
            continue;
        }
        std::swap(cells[rank], cells[found]);
        const Rational pivot = cells[rank][column];
        for (Rational& cell : cells[rank])
            cell = cell / pivot;
        for (std::size_t row = 0; row < cells.size(); ++row) {
            const Rational factor = cells[row][column];
            for (std::size_t k = 0; row != rank && k < columns; ++k)
                cells[row][k] = cells[row][k] - factor * cells[rank][k];
        }
        pivots.push_back(column);
    }
    std::vector<Integers> basis;
    for (const std::size_t freeColumn : freeColumns) {
        std::int64_t common = 1;
        for (std::size_t row = 0; row < pivots.size(); ++row)
            common = std::lcm(common, cells[row][freeColumn].Denominator());
        Integers vector(columns);
        vector[freeColumn] = common;
        for (std::size_t row = 0; row < pivots.size(); ++row) {
            const Rational& cell = cells[row][freeColumn];
            vector[pivots[row]] = -cell.Numerator() * (common / cell.Denominator());
        }
        basis.push_back(InLowestTerms(vector));
    }
    return basis;
}

/// Counts by symbol; the charge stands under "{}".
using Counts = std::map<QString, std::int64_t>;

/// Reads a formula as a chemist does: "(...)" and "[...]" with their indices,
/// nested; behind a comma so many molecules of a solvent; a charge "{2-}".
class FormulaReader
{
public:
    explicit FormulaReader(QString formula)
        : m_formula(std::move(formula))
    {
    }

    Counts Read()
    {
        Counts counts;
        Group(1, counts);
        while (Peek() == u',') {
            ++m_at;
            Group(Number(), counts);
        }
        if (Peek() == u'{') {
            ++m_at;
            const std::int64_t size = Number();
            counts[QStringLiteral("{}")] = Peek() == u'-' ? -size : size;
            m_at += 2;
        }
        if (m_at != m_formula.size())
            throw std::invalid_argument(("not a formula: " + m_formula.toUtf8()).toStdString());
        return counts;
    }

private:
    char16_t Peek() const { return m_at < m_formula.size() ? m_formula[m_at].unicode() : u'\0'; }

    std::int64_t Number()
    {
        std::int64_t number = 0;
        for (; Peek() >= u'0' && Peek() <= u'9'; ++m_at)
            number = 10 * number + (Peek() - u'0');
        return number == 0 ? 1 : number;
    }

    void Group(std::int64_t factor, Counts& counts)
    {
        for (;;) {
            Counts inner;
            if (Peek() == u'(' || Peek() == u'[') {
                ++m_at;
                Group(1, inner);
                ++m_at;
            } else if (Peek() >= u'A' && Peek() <= u'Z') {
                const qsizetype from = m_at++;
                while (Peek() >= u'a' && Peek() <= u'z')
                    ++m_at;
                inner[m_formula.sliced(from, m_at - from)] = 1;
            } else {
                return;
            }
            const std::int64_t index = Number();
            for (const auto& [symbol, count] : inner)
                counts[symbol] += factor * index * count;
        }
    }

    QString m_formula;
    qsizetype m_at = 0;
};

/// The null space of an equation, a place a formula: reactants, then products.
inline std::vector<Integers> SolutionsOf(const std::vector<QString>& reactants,
                                         const std::vector<QString>& products)
{
    const std::size_t columns = reactants.size() + products.size();
    std::map<QString, Integers> rows;
    for (std::size_t column = 0; column < columns; ++column) {
        const bool isReactant = column < reactants.size();
        const QString& formula = isReactant ? reactants[column] : products[column - reactants.size()];
        for (const auto& [symbol, count] : FormulaReader(formula).Read()) {
            rows.try_emplace(symbol, columns);
            rows[symbol][column] = isReactant ? count : -count;
        }
    }
    std::vector<Integers> matrix;
    for (const auto& [symbol, row] : rows)
        matrix.push_back(row);
    return NullSpace(matrix, columns);
}

} // namespace stoikal::exact
