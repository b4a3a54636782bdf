#include "balancing/balancing_engine.h"
#include "balancing/rational_solver.h"
#include "balancing/recording_observer.h"
#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <QFile>
#include <QSet>
#include <gtest/gtest.h>

#include <optional>
#include <random>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

using exact::Integers;

/// An equation with its coefficients, a place a species that is there.
struct KnownEquation {
    BalancingTask task;
    std::vector<QString> reactants;
    std::vector<QString> products;
    Integers coefficients;
};

std::string Text(const KnownEquation& equation)
{
    return (QStringList(equation.reactants.begin(), equation.reactants.end()).join(u" + "_s) + u" = "_s
            + QStringList(equation.products.begin(), equation.products.end()).join(u" + "_s))
        .toStdString();
}

std::vector<QString> Species(const QString& side)
{
    const QStringList species = side.trimmed().split(u" + "_s);
    return {species.begin(), species.end()};
}

std::vector<KnownEquation> ReadCorpus()
{
    QFile file(QStringLiteral(STOIKAL_TEST_DATA "/balancing/corpus.txt"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no corpus");
    std::vector<KnownEquation> corpus;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList parts = line.split(u" : "_s);
        const QStringList sides = parts.at(0).split(u" = "_s);
        KnownEquation equation;
        equation.reactants = Species(sides.at(0));
        equation.products = Species(sides.at(1));
        for (const QString& coefficient : parts.at(1).split(u' '))
            equation.coefficients.push_back(coefficient.toInt());
        for (std::size_t i = 0; i < equation.reactants.size(); ++i)
            equation.task.molecules.at(i) = equation.reactants[i];
        for (std::size_t i = 0; i < equation.products.size(); ++i)
            equation.task.molecules.at(3 + i) = equation.products[i];
        corpus.push_back(equation);
    }
    return corpus;
}

/// The coefficients of the positions that hold a molecule.
std::vector<double> Present(const BalancingTask& task, const BalancingResult& result)
{
    std::vector<double> present;
    for (std::size_t position = 0; position < 6; ++position) {
        if (!task.molecules[position].isEmpty())
            present.push_back(result.coefficients[position]);
    }
    return present;
}

std::vector<double> AsDoubles(const Integers& values)
{
    return {values.begin(), values.end()};
}

/// Equations built from coefficients that are known beforehand.
class EquationMaker
{
public:
    explicit EquationMaker(unsigned seed)
        : m_random(seed)
    {
    }

    /// 0 to `last`.
    int UpTo(int last) { return static_cast<int>(m_random() % static_cast<unsigned>(last + 1)); }

    /// An equation of so many molecules and rows (one of them the charge, if
    /// wanted) that its coefficients balance.
    KnownEquation Make(std::size_t molecules, std::size_t rows, bool hasCharge)
    {
        for (;;) {
            if (auto equation = Attempt(molecules, rows, hasCharge))
                return *equation;
        }
    }

private:
    std::optional<KnownEquation> Attempt(std::size_t molecules, std::size_t rows, bool hasCharge)
    {
        static const std::array<const char16_t*, 9> kSymbols{u"C", u"H",  u"O", u"N", u"Na",
                                                             u"S", u"Cl", u"P", u"Fe"};
        KnownEquation equation;
        for (std::size_t i = 0; i < molecules; ++i)
            equation.coefficients.push_back(1 + UpTo(8));
        const std::size_t most = std::min<std::size_t>(3, molecules - 1);
        const std::size_t least = molecules > 3 ? molecules - 3 : 1;
        const std::size_t reactants = least + static_cast<std::size_t>(UpTo(static_cast<int>(most - least)));
        const std::size_t atoms = rows - (hasCharge ? 1 : 0);
        std::vector<Integers> counts;
        for (std::size_t atom = 0; atom < atoms; ++atom) {
            const auto row = Row(equation.coefficients, reactants, 0, 5);
            if (!row)
                return std::nullopt;
            counts.push_back(*row);
        }
        Integers charges(molecules);
        if (hasCharge) {
            const auto row = Row(equation.coefficients, reactants, -3, 3);
            if (!row)
                return std::nullopt;
            charges = *row;
        }
        for (std::size_t i = 0; i < molecules; ++i) {
            QString formula;
            for (std::size_t atom = 0; atom < atoms; ++atom)
                formula += Atom(kSymbols[atom], counts[atom][i]);
            if (formula.isEmpty())
                return std::nullopt;
            (i < reactants ? equation.reactants : equation.products).push_back(formula + Charge(charges[i]));
        }
        Place(equation.reactants, 0, equation.task);
        Place(equation.products, 3, equation.task);
        return equation;
    }

    /// Counts of one atom, or charges, that the coefficients bring to the same
    /// total on both sides; none of an atom that is missing on both.
    std::optional<Integers> Row(const Integers& coefficients, std::size_t reactants, int smallest,
                                int largest)
    {
        Integers row(coefficients.size());
        std::int64_t total = 0;
        std::int64_t amount = 0;
        for (std::size_t i = 0; i + 1 < row.size(); ++i) {
            row[i] = UpTo(2) == 0 ? 0 : smallest + UpTo(largest - smallest);
            total += (i < reactants ? 1 : -1) * coefficients[i] * row[i];
            amount += i < reactants ? std::abs(row[i]) : 0;
        }
        row.back() = total / coefficients.back();
        const bool fits
            = total % coefficients.back() == 0 && row.back() >= smallest && row.back() <= 4 * largest;
        return fits && amount > 0 ? std::optional(row) : std::nullopt;
    }

    QString Atom(const char16_t* symbol, std::int64_t count)
    {
        const QString name = QString::fromUtf16(symbol);
        if (count == 0)
            return QString();
        // Now and then as a group or behind brackets, which mean the same here.
        switch (UpTo(5)) {
        case 0:
            return u'(' + name + u')' + QString::number(count);
        case 1:
            return u'[' + name + QString::number(count) + u']';
        default:
            return count == 1 ? name : name + QString::number(count);
        }
    }

    static QString Charge(std::int64_t charge)
    {
        if (charge == 0)
            return QString();
        const QString size = std::abs(charge) == 1 ? QString() : QString::number(std::abs(charge));
        return u'{' + size + (charge < 0 ? u'-' : u'+') + u'}';
    }

    /// Into a side's three positions, gaps anywhere.
    void Place(const std::vector<QString>& species, std::size_t first, BalancingTask& task)
    {
        std::size_t position = first;
        for (std::size_t i = 0; i < species.size(); ++i) {
            const std::size_t room = first + 3 - position - (species.size() - i);
            position += static_cast<std::size_t>(UpTo(static_cast<int>(room)));
            task.molecules.at(position++) = species[i];
        }
    }

    std::mt19937 m_random;
};

/// All that a search shows.
struct Searched {
    QString text;
    QString end;
    std::array<double, 6> coefficients{};
    std::size_t choices = 0;
};

Searched Search(const BalancingTask& task, Attempts attempts)
{
    RecordingObserver observer;
    Searched searched;
    try {
        const BalancingResult result = BalanceEquation(task, observer, attempts);
        searched.coefficients = result.coefficients;
        searched.end = result.failed ? u"failure"_s : u"solution"_s;
    } catch (const FatalFault& fault) {
        searched.end = fault.Cause();
    }
    searched.text = observer.text;
    searched.choices = observer.choices.size();
    return searched;
}

} // namespace

TEST(ExactSolver, ReadsFormulasAsAChemist)
{
    using exact::FormulaReader;
    EXPECT_EQ(FormulaReader(u"K3[Fe(CN)6]"_s).Read(),
              (exact::Counts{{u"K"_s, 3}, {u"Fe"_s, 1}, {u"C"_s, 6}, {u"N"_s, 6}}));
    EXPECT_EQ(FormulaReader(u"[Cu(NH3)4]2{2-}"_s).Read(),
              (exact::Counts{{u"Cu"_s, 2}, {u"N"_s, 8}, {u"H"_s, 24}, {u"{}"_s, -2}}));
    EXPECT_EQ(FormulaReader(u"CuSO4,5H2O"_s).Read(),
              (exact::Counts{{u"Cu"_s, 1}, {u"S"_s, 1}, {u"O"_s, 9}, {u"H"_s, 10}}));
    EXPECT_EQ(FormulaReader(u"H{+}"_s).Read(), (exact::Counts{{u"H"_s, 1}, {u"{}"_s, 1}}));
    EXPECT_THROW(FormulaReader(u"H2o"_s).Read(), std::invalid_argument);
}

TEST(ExactSolver, FindsTheNullSpace)
{
    // x + 2y = 0: y free, x = -2.
    EXPECT_EQ(exact::NullSpace({{1, 2}}, 2), (std::vector<Integers>{{-2, 1}}));
    EXPECT_EQ(exact::NullSpace({{1, 2}, {3, 4}}, 2), std::vector<Integers>{});
    EXPECT_EQ(exact::NullSpace({{2, 4}, {3, 6}}, 2), (std::vector<Integers>{{-2, 1}}));
    // 2x = 3z, 4y = 5z: z = 4 gives x = 6, y = 5.
    EXPECT_EQ(exact::NullSpace({{2, 0, -3}, {0, 4, -5}}, 3), (std::vector<Integers>{{6, 5, 4}}));
    EXPECT_EQ(exact::NullSpace({{0, 1, -1}}, 3).size(), 2U);
    EXPECT_EQ(exact::SolutionsOf({u"H2"_s, u"O2"_s}, {u"H2O"_s}), (std::vector<Integers>{{2, 1, 2}}));
}

TEST(BalancingCorpus, HoldsEnoughDifferentEquations)
{
    QSet<QString> different;
    for (const KnownEquation& equation : ReadCorpus()) {
        different << QString::fromStdString(Text(equation));
        EXPECT_LE(equation.reactants.size(), 3U) << Text(equation);
        EXPECT_LE(equation.products.size(), 3U) << Text(equation);
        EXPECT_EQ(equation.coefficients.size(), equation.reactants.size() + equation.products.size());
    }
    EXPECT_GE(different.size(), 130);
    EXPECT_EQ(static_cast<std::size_t>(different.size()), ReadCorpus().size());
}

TEST(BalancingCorpus, AgreesWithTheExactSolver)
{
    for (const KnownEquation& equation : ReadCorpus()) {
        EXPECT_EQ(exact::SolutionsOf(equation.reactants, equation.products),
                  std::vector<Integers>{equation.coefficients})
            << Text(equation);
    }
}

TEST(BalancingCorpus, IsBalancedByTheEngine)
{
    for (const KnownEquation& equation : ReadCorpus()) {
        RecordingObserver observer;
        const BalancingResult result = BalanceEquation(equation.task, observer);
        EXPECT_FALSE(result.failed) << Text(equation);
        EXPECT_EQ(Present(equation.task, result), AsDoubles(equation.coefficients)) << Text(equation);
        EXPECT_EQ(observer.searchesBegun, 0) << Text(equation);
    }
}

TEST(RandomEquations, AreBalancedToTheirKnownCoefficientsInLowestTerms)
{
    // The first coefficient is fixed at 1 and all are scaled by the common
    // denominator: that leaves no common factor.
    EquationMaker maker(20240917);
    int balanced = 0;
    int charged = 0;
    while (balanced < 1000) {
        const auto molecules = static_cast<std::size_t>(2 + maker.UpTo(4));
        const std::size_t rows = molecules - 1 + static_cast<std::size_t>(maker.UpTo(2));
        const bool hasCharge = rows > 1 && maker.UpTo(2) == 0;
        const KnownEquation equation = maker.Make(molecules, rows, hasCharge);
        const auto solutions = exact::SolutionsOf(equation.reactants, equation.products);
        if (solutions.size() != 1)
            continue;
        const Integers known = exact::InLowestTerms(equation.coefficients);
        ASSERT_EQ(solutions[0], known) << Text(equation);

        RecordingObserver observer;
        const BalancingResult result = BalanceEquation(equation.task, observer);
        ASSERT_FALSE(result.failed) << Text(equation) << observer.text.toStdString();
        ASSERT_EQ(Present(equation.task, result), AsDoubles(known)) << Text(equation);
        ++balanced;
        charged += hasCharge ? 1 : 0;
    }
    EXPECT_GT(charged, 100);
}

TEST(RandomEquations, AreSearchedByDifferentAttemptsAsByAll)
{
    // One row for every molecule but two or three.
    EquationMaker maker(7);
    int solved = 0;
    int beyondTheFirstChoice = 0;
    for (int searched = 0; searched < 200;) {
        const auto molecules = static_cast<std::size_t>(4 + maker.UpTo(2));
        const std::size_t rows = molecules - 2 - static_cast<std::size_t>(maker.UpTo(1));
        const KnownEquation equation = maker.Make(molecules, rows, rows > 1 && maker.UpTo(2) == 0);
        const Searched different = Search(equation.task, Attempts::OnlyDifferent);
        if (!different.text.startsWith(u"Veuillez patienter"_s))
            continue; // Balanced as it stands.
        const Searched all = Search(equation.task, Attempts::All);
        ASSERT_EQ(different.text, all.text) << Text(equation);
        ASSERT_EQ(different.end, all.end) << Text(equation);
        ASSERT_EQ(different.coefficients, all.coefficients) << Text(equation);
        ASSERT_EQ(different.choices, all.choices) << Text(equation);
        solved += different.end == u"solution"_s ? 1 : 0;
        beyondTheFirstChoice += different.choices > 1 ? 1 : 0;
        ++searched;
    }
    EXPECT_GT(solved, 100);
    EXPECT_GT(beyondTheFirstChoice, 30);
}

} // namespace stoikal
