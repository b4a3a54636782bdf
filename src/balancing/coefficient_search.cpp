#include "balancing/coefficient_search.h"

#include "base/fatal_fault.h"

#include <cmath>

namespace stoikal {
namespace {

constexpr int kPositions = 6;
/// How far the counter of each position goes, from 1.
constexpr std::array<int, kPositions> kLargestValue{15, 15, 10, 10, 1, 1};
constexpr int kAllAttempts = 22500; ///< their product
constexpr double kNoneFound = 100000.0;

/// The positions whose coefficients are fixed. An excess of 2 frees A and B, one
/// of 3 also C; above 3 they stay at 0 and only position 0 is free.
struct FreePositions {
    int a = 0;
    int b = 0;
    int c = 0;
    int excess = 0;

    explicit FreePositions(int ofExcess)
        : excess(ofExcess)
    {
        if (excess <= 3)
            b = 1;
        if (excess == 3)
            c = 2;
    }

    bool CanAdvance() const { return excess <= 3; }
    bool IsLast() const { return a == 4 && b == 5; }

    /// B restarts at 0 and not behind A: earlier pairs come again the other way round.
    void Advance()
    {
        if (excess == 3) {
            if (++c <= 5)
                return;
            c = 0;
        }
        if (++b == 6) {
            b = 0;
            ++a;
        }
    }

    std::array<bool, kPositions> Marks() const
    {
        if (a >= kPositions)
            throw FatalFault(QStringLiteral("la recherche d'équilibrage est sortie de ses limites."));
        std::array<bool, kPositions> marks{};
        marks.at(static_cast<size_t>(a)) = true;
        marks.at(static_cast<size_t>(b)) = true;
        if (excess == 3)
            marks.at(static_cast<size_t>(c)) = true;
        return marks;
    }
};

/// A sum of coefficients, rounded to a 32-bit integer at each step.
std::int32_t RunningSum(const std::array<double, kPositions>& values)
{
    std::int32_t sum = 0;
    for (const double value : values) {
        const double next = std::nearbyint(sum + value);
        if (!(std::fabs(next) < 2147483648.0))
            throw FatalFault(QStringLiteral("la somme des coefficients dépasse la capacité permise."));
        sum = static_cast<std::int32_t>(next);
    }
    return sum;
}

/// All attempts of one choice of free positions.
class Attempt
{
public:
    Attempt(const SearchSystem& system, const std::array<bool, kPositions>& marks)
        : m_system(system)
        , m_marks(marks)
    {
    }

    enum class Outcome { Singular, Dropped, Solved };

    /// Solves with these values at the marked positions.
    Outcome Try(const std::array<int, kPositions>& values)
    {
        for (size_t position = 0; position < kPositions; ++position)
            coefficients.at(position) = m_marks.at(position) ? values.at(position) : 0;
        BalanceMatrix work;
        int rightSide = 0;
        for (int position = 0; position < kPositions; ++position) {
            if (!IsPresent(position) || IsMarked(position))
                continue;
            for (int row = 0; row <= m_system.lastRow; ++row)
                work.At(row, rightSide) = m_system.matrix.At(row, position);
            ++rightSide;
        }
        for (int row = 0; row <= m_system.lastRow; ++row) {
            double sum = 0;
            for (int position = 0; position < kPositions; ++position)
                sum += IsMarked(position)
                    ? m_system.matrix.At(row, position) * values.at(static_cast<size_t>(position))
                    : 0;
            work.At(row, rightSide) = -sum;
        }
        const bool isSingular = PreparePivots(work, m_system.lastRow, rightSide);
        if (isSingular && m_system.excess <= 3)
            return Outcome::Singular;
        ReduceMatrix(work, m_system.lastRow, rightSide);
        return TakeSolution(work, rightSide);
    }

    std::array<double, kPositions> coefficients{};

private:
    bool IsPresent(int position) const { return m_system.present.at(static_cast<size_t>(position)); }
    bool IsMarked(int position) const { return m_marks.at(static_cast<size_t>(position)); }

    Outcome TakeSolution(const BalanceMatrix& work, int rightSide)
    {
        int row = 0;
        for (int position = 0; position < kPositions; ++position) {
            double& coefficient = coefficients.at(static_cast<size_t>(position));
            if (IsPresent(position) && coefficient == 0)
                coefficient = work.At(row++, rightSide);
        }
        for (int position = 0; position < kPositions; ++position) {
            if (IsPresent(position) && coefficients.at(static_cast<size_t>(position)) <= 0)
                return Outcome::Dropped;
        }
        ScaleToIntegers(kPositions - 1, coefficients);
        return Outcome::Solved;
    }

    const SearchSystem& m_system;
    std::array<bool, kPositions> m_marks;
};

/// Six nested counters, the first position innermost.
class Counters
{
public:
    explicit Counters(const std::array<bool, kPositions>& moving)
        : m_moving(moving)
    {
        values.fill(1);
        for (size_t position = 0; position < kPositions; ++position)
            count *= m_moving.at(position) ? kLargestValue.at(position) : 1;
    }

    /// Moves on; false behind the last one.
    bool Next()
    {
        for (size_t position = 0; position < kPositions; ++position) {
            if (!m_moving.at(position))
                continue;
            if (++values.at(position) <= kLargestValue.at(position))
                return true;
            values.at(position) = 1;
        }
        return false;
    }

    std::array<int, kPositions> values{};
    int count = 1;

private:
    std::array<bool, kPositions> m_moving;
};

} // namespace

SearchResult SearchCoefficients(const SearchSystem& system, BalancingObserver& observer, Attempts attempts)
{
    std::array<bool, kPositions> all{};
    all.fill(true);
    std::array<double, kPositions> best{};
    best.fill(kNoneFound);
    SearchResult result;
    for (FreePositions free(system.excess);; free.Advance()) {
        const auto marks = free.Marks();
        // Only the counters of marked positions are read: the others would
        // repeat each attempt with the same outcome, which never wins a tie.
        Counters counters(attempts == Attempts::All ? all : marks);
        const int weight = kAllAttempts / counters.count;
        Attempt attempt(system, marks);
        observer.AttemptsBegin(kAllAttempts);
        bool endedBySingular = false;
        int done = 0;
        do {
            done += weight;
            if (!observer.AttemptsDone(done)) {
                result.end = SearchResult::End::Stopped;
                return result;
            }
            const Attempt::Outcome outcome = attempt.Try(counters.values);
            result.coefficients = attempt.coefficients;
            if (outcome == Attempt::Outcome::Singular) {
                endedBySingular = true;
                break;
            }
            if (outcome == Attempt::Outcome::Solved && RunningSum(attempt.coefficients) < RunningSum(best))
                best = attempt.coefficients;
        } while (counters.Next());
        if (endedBySingular)
            continue;
        observer.AttemptsEnd();
        if (best[0] != kNoneFound) {
            result.coefficients = best;
            result.end = SearchResult::End::Found;
            return result;
        }
        if (free.IsLast()) {
            result.end = SearchResult::End::Impossible;
            return result;
        }
        if (!free.CanAdvance())
            return result;
    }
}

} // namespace stoikal
