#pragma once

#include "balancing/matrix_reduction.h"

#include <QString>
#include <array>

namespace stoikal {

/// What is to be balanced, and how its result is written.
struct BalancingTask {
    enum class Mode {
        Window, ///< lines of a running list: "¤) Equation n°3  : H2 + Cl2 -----> 2 HCl"
        Editor ///< lines of a preview, with states and the comment of the equation
    };

    Mode mode = Mode::Window;
    int number = 0; ///< running number of the list, or of the equation in the editor
    std::array<QString, 6> molecules; ///< 0 to 2 the reactants, 3 to 5 the products; empty ones are left out
    bool showsOnes = false; ///< a coefficient of 1 is written
    std::array<QString, 6> states; ///< editor: physical states, empty when not shown
    QString comment; ///< editor: shown above the equation, empty when not shown
};

/// Who watches a balancing: texts appended to a result box, a question, the
/// progress of a search. The engine knows no window.
class BalancingObserver
{
public:
    virtual ~BalancingObserver() = default;

    /// Text behind what the result box holds; the caret goes to its end.
    virtual void Append(const QString& text) = 0;
    /// The running number of a result, asked for when its line is written: the list
    /// may have begun anew since the task was given.
    virtual int ResultNumber(int numberOfTask) const { return numberOfTask; }
    /// A result line was written: it can be saved.
    virtual void ResultWritten() { }
    /// Whether a symbol that no element has is to be kept. The whole question is given.
    virtual bool KeepsUnknownSymbol(const QString& title, const QString& question) = 0;
    /// The pointer waits from here to `SearchEnds`, which does not come behind a
    /// fault nor when there is neither result nor failure.
    virtual void SearchBegins() { }
    virtual void SearchEnds() { }
    /// The attempts of one choice of free positions begin, of so many.
    virtual void AttemptsBegin(int /*attempts*/) { }
    /// So many attempts are behind; the event loop may have a turn.
    /// \returns false when the search is to be given up.
    virtual bool AttemptsDone(int /*attempts*/) { return true; }
    virtual void AttemptsEnd() { }
};

/// The outcome of a balancing. The coefficients of a failure are the last ones
/// found.
struct BalancingResult {
    std::array<double, 6> coefficients{};
    bool failed = false;
    bool stopped = false; ///< given up by the observer: neither result nor failure
    bool foundNothing = false; ///< a search of excess above 3 without a solution: neither of them
};

/// All attempts of a search, or only those that differ. Both give the same
/// solution; the first way is kept as the measure of the second.
enum class Attempts { OnlyDifferent, All };

/// Finds the coefficients of an equation. With as many independent atoms as
/// unknowns it solves directly, the first coefficient fixed at 1; with fewer it
/// searches, fixing two or three coefficients, for the solution of smallest sum.
/// Failures are texts that begin with 15 blanks and "ECHEC". Formulas beyond the
/// limits (10 different atoms, 16-bit counts, a "{" without "}") and a search
/// that runs out of positions are FatalFaults.
BalancingResult BalanceEquation(const BalancingTask& task, BalancingObserver& observer,
                                Attempts attempts = Attempts::OnlyDifferent);

/// Scales values 0 to `lastIndex` to integers by their common denominator. Left
/// as they are where a denominator would exceed 32000; a common one beyond 16
/// bits is a FatalFault.
void ScaleToIntegers(int lastIndex, std::array<double, 6>& values);

} // namespace stoikal
