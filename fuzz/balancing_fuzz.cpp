#include "balancing/balancing_engine.h"
#include "fuzz.h"

#include <QStringList>
#include <cmath>

using namespace stoikal;

namespace {

/// Keeps every symbol, and gives a long search up after some turns.
class Patient final : public BalancingObserver
{
public:
    void Append(const QString& text) override { fuzz::Require(!text.isEmpty(), "a text says something"); }
    bool KeepsUnknownSymbol(const QString& /*title*/, const QString& /*question*/) override { return true; }
    bool AttemptsDone(int /*attempts*/) override { return ++m_turns < kMostTurns; }

private:
    static constexpr int kMostTurns = 2000;
    int m_turns = 0;
};

} // namespace

/// Six formulas, parted by ";".
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    BalancingTask task;
    const QStringList formulas = fuzz::LineOf(data, size).split(QLatin1Char(';'));
    for (qsizetype i = 0; i < std::min<qsizetype>(6, formulas.size()); ++i)
        task.molecules.at(static_cast<size_t>(i)) = formulas[i];
    fuzz::Tolerating([&] {
        Patient observer;
        const BalancingResult result = BalanceEquation(task, observer);
        for (const double coefficient : result.coefficients)
            fuzz::Require(std::isfinite(coefficient), "a coefficient is a number");
    });
    return 0;
}
