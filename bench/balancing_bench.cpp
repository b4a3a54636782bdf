#include "balancing/balancing_engine.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <numeric>
#include <string>
#include <utility>

using namespace stoikal;

namespace {

/// Watches without a window: nothing is shown, nothing asked.
class SilentObserver final : public BalancingObserver
{
public:
    void Append(const QString& text) override { benchmark::DoNotOptimize(text.constData()); }
    bool KeepsUnknownSymbol(const QString&, const QString&) override { return true; }
};

/// A fraction of 64-bit integers in lowest terms.
struct Fraction {
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;
};

Fraction InLowestTerms(std::int64_t numerator, std::int64_t denominator)
{
    const std::int64_t common = std::gcd(numerator, denominator) * (denominator < 0 ? -1 : 1);
    return {numerator / common, denominator / common};
}

/// An equation as a user types it, and as a matrix a chemist would write down.
struct Example {
    std::array<const char16_t*, 6> molecules;
    int rows;
    int columns;
    std::array<std::array<std::int64_t, 6>, 8> matrix;
    std::array<std::int64_t, 6> coefficients;
};

const std::array<Example, 3> kExamples{{
    // C, H, O
    {{u"C3H8", u"O2", u"", u"CO2", u"H2O", u""},
     3,
     4,
     {{{3, 0, -1, 0}, {8, 0, 0, -2}, {0, 2, -2, -1}}},
     {1, 5, 3, 4}},
    // Al, O, H, S
    {{u"Al(OH)3", u"H2SO4", u"", u"Al2(SO4)3", u"H2O", u""},
     4,
     4,
     {{{1, 0, -2, 0}, {3, 4, -12, -1}, {3, 2, 0, -2}, {0, 1, -3, 0}}},
     {2, 3, 1, 6}},
    // Mn, O, Fe, H, the charge
    {{u"MnO4{-}", u"Fe{2+}", u"H{+}", u"Mn{2+}", u"Fe{3+}", u"H2O"},
     5,
     6,
     {{{1, 0, 0, -1, 0, 0},
       {4, 0, 0, 0, 0, -1},
       {0, 1, 0, 0, -1, 0},
       {0, 0, 1, 0, 0, -2},
       {-1, 2, 1, -2, -3, 0}}},
     {1, 5, 8, 1, 5, 4}},
}};

const Example& ExampleOf(const benchmark::State& state)
{
    return kExamples.at(static_cast<size_t>(state.range(0)));
}

BalancingTask TaskOf(const Example& example)
{
    BalancingTask task;
    task.number = 1;
    for (size_t position = 0; position < 6; ++position)
        task.molecules.at(position) = QString::fromUtf16(example.molecules.at(position));
    return task;
}

/// The engine from the typed formulas to the written line.
void BalanceDirectly(benchmark::State& state)
{
    const Example& example = ExampleOf(state);
    const BalancingTask task = TaskOf(example);
    SilentObserver observer;
    for ([[maybe_unused]] auto _ : state) {
        const BalancingResult result = BalanceEquation(task, observer);
        if (result.failed || result.coefficients[0] != static_cast<double>(example.coefficients[0]))
            state.SkipWithError("not balanced");
    }
}
BENCHMARK(BalanceDirectly)->DenseRange(0, 2);

/// The peer: Gauss-Jordan elimination of the matrix alone, the last column on
/// the right, then the whole numbers.
std::array<std::int64_t, 6> EliminateExactly(const Example& example)
{
    std::array<std::array<Fraction, 6>, 8> cells;
    const auto rows = static_cast<size_t>(example.rows);
    const auto columns = static_cast<size_t>(example.columns);
    for (size_t row = 0; row < rows; ++row) {
        for (size_t column = 0; column < columns; ++column)
            cells[row][column] = {example.matrix[row][column], 1};
    }
    for (size_t column = 0; column + 1 < columns; ++column) {
        size_t pivotRow = column;
        while (cells[pivotRow][column].numerator == 0)
            ++pivotRow;
        std::swap(cells[column], cells[pivotRow]);
        const Fraction pivot = cells[column][column];
        for (size_t j = column; j < columns; ++j) {
            Fraction& cell = cells[column][j];
            cell = InLowestTerms(cell.numerator * pivot.denominator, cell.denominator * pivot.numerator);
        }
        for (size_t row = 0; row < rows; ++row) {
            const Fraction factor = cells[row][column];
            if (row == column || factor.numerator == 0)
                continue;
            for (size_t j = column; j < columns; ++j) {
                const Fraction& above = cells[column][j];
                Fraction& cell = cells[row][j];
                const std::int64_t product = factor.denominator * above.denominator;
                cell = InLowestTerms(cell.numerator * product
                                         - factor.numerator * above.numerator * cell.denominator,
                                     cell.denominator * product);
            }
        }
    }
    std::array<std::int64_t, 6> coefficients{};
    std::int64_t common = 1;
    for (size_t k = 0; k + 1 < columns; ++k)
        common = std::lcm(common, cells[k][columns - 1].denominator);
    for (size_t k = 0; k + 1 < columns; ++k)
        coefficients[k] = -cells[k][columns - 1].numerator * (common / cells[k][columns - 1].denominator);
    coefficients[columns - 1] = common;
    return coefficients;
}

void EliminateBare(benchmark::State& state)
{
    Example example = ExampleOf(state);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(example);
        const auto coefficients = EliminateExactly(example);
        if (coefficients != example.coefficients)
            state.SkipWithError("not balanced");
    }
}
BENCHMARK(EliminateBare)->DenseRange(0, 2);

/// The peer of the whole way: typed formulas in plain characters (symbols of one or
/// two letters, indices, one level of brackets, "{2+}"), an exact elimination, the
/// line written into a buffer. No Qt, no allocation, no check.
class BareBalancer
{
public:
    explicit BareBalancer(const Example& example)
    {
        for (size_t position = 0; position < 6; ++position)
            for (const char16_t* c = example.molecules.at(position); *c != 0; ++c)
                m_formulas.at(position).push_back(static_cast<char>(*c));
    }

    std::int64_t Balance()
    {
        Example system{};
        m_rows = 0;
        for (size_t position = 0; position < 6; ++position) {
            if (m_formulas.at(position).empty())
                continue;
            Read(m_formulas.at(position), position < 3 ? 1 : -1, system);
            ++system.columns;
        }
        system.rows = m_rows;
        const auto coefficients = EliminateExactly(system);
        char* end = m_line.data();
        size_t column = 0;
        for (size_t position = 0; position < 6; ++position) {
            if (m_formulas.at(position).empty())
                continue;
            end = std::to_chars(end, m_line.data() + m_line.size(), coefficients.at(column++)).ptr;
            end = std::copy(m_formulas.at(position).begin(), m_formulas.at(position).end(), end);
            *end++ = position == 2 ? '=' : '+';
        }
        benchmark::DoNotOptimize(m_line);
        return coefficients[0];
    }

private:
    void Count(int symbol, std::int64_t count, Example& system)
    {
        int row = 0;
        while (row < m_rows && m_symbols.at(static_cast<size_t>(row)) != symbol)
            ++row;
        if (row == m_rows)
            m_symbols.at(static_cast<size_t>(m_rows++)) = symbol;
        system.matrix.at(static_cast<size_t>(row)).at(static_cast<size_t>(system.columns)) += count;
    }

    static std::int64_t Number(const std::string& text, size_t& i)
    {
        std::int64_t number = 0;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
            number = number * 10 + (text[i] - '0');
        return number == 0 ? 1 : number;
    }

    void Read(const std::string& formula, std::int64_t sign, Example& system)
    {
        std::int64_t factor = sign;
        for (size_t i = 0; i < formula.size();) {
            const char c = formula[i++];
            if (c == '(') {
                size_t behind = formula.find(')', i) + 1;
                factor = sign * Number(formula, behind);
            } else if (c == ')') {
                Number(formula, i);
                factor = sign;
            } else if (c == '{') {
                const std::int64_t charge = Number(formula, i);
                Count(0, sign * (formula[i] == '-' ? -charge : charge), system);
                i += 2;
            } else {
                int symbol = c;
                if (i < formula.size() && formula[i] >= 'a' && formula[i] <= 'z')
                    symbol = symbol * 256 + formula[i++];
                Count(symbol, factor * Number(formula, i), system);
            }
        }
    }

    std::array<std::string, 6> m_formulas;
    std::array<int, 8> m_symbols{};
    int m_rows = 0;
    std::array<char, 256> m_line{};
};

void BalanceBare(benchmark::State& state)
{
    const Example& example = ExampleOf(state);
    BareBalancer balancer(example);
    for ([[maybe_unused]] auto _ : state) {
        if (balancer.Balance() != example.coefficients[0])
            state.SkipWithError("not balanced");
    }
}
BENCHMARK(BalanceBare)->DenseRange(0, 2);

/// Two atoms for four molecules: the coefficients are sought.
void BalanceBySearch(benchmark::State& state)
{
    BalancingTask task;
    task.number = 1;
    task.molecules = {QStringLiteral("C"),  QStringLiteral("O2"),  QString(),
                      QStringLiteral("CO"), QStringLiteral("CO2"), QString()};
    const auto attempts = static_cast<Attempts>(state.range(0));
    SilentObserver observer;
    for ([[maybe_unused]] auto _ : state) {
        const BalancingResult result = BalanceEquation(task, observer, attempts);
        if (result.failed || result.coefficients[0] != 3)
            state.SkipWithError("not balanced");
    }
}
BENCHMARK(BalanceBySearch)
    ->ArgName("all")
    ->Arg(static_cast<int>(Attempts::OnlyDifferent))
    ->Arg(static_cast<int>(Attempts::All))
    ->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
