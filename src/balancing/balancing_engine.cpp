#include "balancing/balancing_engine.h"

#include "balancing/coefficient_search.h"
#include "balancing/molecule_reader.h"
#include "balancing/result_text.h"
#include "base/checked_integer.h"
#include "base/fatal_fault.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace stoikal {
namespace {

constexpr int kPositions = 6;
constexpr int kMostAtoms = AtomTally::kPlaces;

/// The distinct symbols of one side, in the order of first appearance. When the
/// ten places are full a further one is dropped without a word.
struct SideAtoms {
    std::array<QString, kMostAtoms> symbols;
    int count = 0;

    /// The place of a symbol, `count` when it has none.
    int PlaceOf(const QString& symbol) const
    {
        return static_cast<int>(std::find(symbols.begin(), symbols.begin() + count, symbol)
                                - symbols.begin());
    }
    bool Holds(const QString& symbol) const { return PlaceOf(symbol) < count; }
    void Add(const AtomTally& tally)
    {
        const auto used = static_cast<size_t>(tally.Used());
        for (size_t i = 0; i < used && count < kMostAtoms; ++i) {
            if (!Holds(tally.symbols.at(i)))
                symbols.at(static_cast<size_t>(count++)) = tally.symbols.at(i);
        }
    }
};

/// One run of the engine, stage after stage; a stage that fails ends it.
class Run
{
public:
    Run(const BalancingTask& task, BalancingObserver& observer, Attempts attempts)
        : m_task(task)
        , m_observer(observer)
        , m_attempts(attempts)
    {
    }

    BalancingResult Do()
    {
        if (ReadMolecules() && GatherAtoms())
            Solve();
        return m_result;
    }

private:
    bool ReadMolecules();
    bool GatherAtoms();
    bool ConfirmAtoms(const SideAtoms& side, bool amongReactants);
    bool CompareSides();
    void FillMatrix();
    bool IsBalancedAsItStands() const;
    void Solve();
    void SolveDirectly();
    void Search();
    void ShowResult();
    void WriteLine();
    bool Fail(const QString& text);
    bool IsPresent(int position) const
    {
        return !m_task.molecules.at(static_cast<size_t>(position)).isEmpty();
    }

    const BalancingTask& m_task;
    BalancingObserver& m_observer;
    Attempts m_attempts;
    BalancingResult m_result;
    std::array<MoleculeAtoms, kPositions> m_molecules;
    int m_moleculeCount = 0;
    SideAtoms m_reactants;
    SideAtoms m_products;
    int m_lastRow = 0;
    int m_lastColumn = 0;
    BalanceMatrix m_matrix;
};

void Run::WriteLine()
{
    BalancingTask task = m_task;
    task.number = m_observer.ResultNumber(task.number);
    m_observer.Append(result_text::Line(task, m_result.coefficients));
}

bool Run::Fail(const QString& text)
{
    WriteLine();
    m_observer.ResultWritten();
    m_observer.Append(text);
    m_result.failed = true;
    return false;
}

bool Run::ReadMolecules()
{
    for (int position = 0; position < kPositions; ++position) {
        const QString& formula = m_task.molecules.at(static_cast<size_t>(position));
        if (formula.isEmpty())
            continue;
        ++m_moleculeCount;
        MoleculeAtoms& atoms = m_molecules.at(static_cast<size_t>(position));
        ParseMolecule(formula, atoms);
        if (atoms.hasLowerCaseStart)
            return Fail(result_text::WrongSymbol(formula, position + 1));
    }
    return true;
}

bool Run::ConfirmAtoms(const SideAtoms& side, bool amongReactants)
{
    for (int i = 0; i < side.count; ++i) {
        const QString& symbol = side.symbols.at(static_cast<size_t>(i));
        if (IsKnownAtom(symbol))
            continue;
        // After a refusal the other unknown symbols of the side are still asked about.
        if (!m_observer.KeepsUnknownSymbol(result_text::UnknownSymbolTitle(),
                                           result_text::UnknownSymbolQuestion(symbol, amongReactants)))
            Fail(result_text::SymbolRefused(symbol));
    }
    return !m_result.failed;
}

bool Run::GatherAtoms()
{
    for (size_t position = 0; position < 3; ++position)
        m_reactants.Add(m_molecules.at(position).tally);
    if (!ConfirmAtoms(m_reactants, true))
        return false;
    for (size_t position = 3; position < kPositions; ++position)
        m_products.Add(m_molecules.at(position).tally);
    return ConfirmAtoms(m_products, false) && CompareSides();
}

bool Run::CompareSides()
{
    if (m_reactants.count != m_products.count)
        return Fail(result_text::DifferentAtoms());
    for (int i = 0; i < m_reactants.count; ++i) {
        const QString& symbol = m_reactants.symbols.at(static_cast<size_t>(i));
        if (!m_products.Holds(symbol))
            return Fail(result_text::AtomMissing(symbol));
    }
    // The comparison goes on to the empty place behind the last symbol.
    if (m_reactants.count == kMostAtoms)
        throw FatalFault(
            QStringLiteral("une équation ne peut pas compter %1 atomes différents de chaque côté.")
                .arg(kMostAtoms));
    return true;
}

void Run::FillMatrix()
{
    const bool hasCharge = std::any_of(m_molecules.begin(), m_molecules.end(),
                                       [](const MoleculeAtoms& atoms) { return atoms.charge != 0; });
    m_lastRow = m_reactants.count - 1 + (hasCharge ? 1 : 0);
    m_lastColumn = m_moleculeCount - 1;
    for (int position = 0; position < kPositions; ++position) {
        const MoleculeAtoms& atoms = m_molecules.at(static_cast<size_t>(position));
        const int sign = position > 2 ? -1 : 1;
        const auto used = static_cast<size_t>(atoms.tally.Used());
        for (size_t i = 0; i < used; ++i)
            m_matrix.At(m_reactants.PlaceOf(atoms.tally.symbols.at(i)), position)
                = sign * atoms.tally.counts.at(i);
        if (hasCharge)
            m_matrix.At(m_lastRow, position) = sign * atoms.charge;
    }
}

bool Run::IsBalancedAsItStands() const
{
    for (int row = 0; row <= m_lastRow; ++row) {
        double sum = 0;
        for (int position = 0; position < kPositions; ++position)
            sum += m_matrix.At(row, position);
        if (sum != 0)
            return false;
    }
    return true;
}

void Run::ShowResult()
{
    WriteLine();
    m_observer.ResultWritten();
    if (m_task.mode == BalancingTask::Mode::Window)
        m_observer.Append(QStringLiteral("\n"));
}

void Run::Solve()
{
    FillMatrix();
    if (IsBalancedAsItStands()) {
        for (int position = 0; position < kPositions; ++position)
            m_result.coefficients.at(static_cast<size_t>(position)) = IsPresent(position) ? 1 : 0;
        ShowResult();
    } else if (m_lastColumn <= m_lastRow + 1) {
        SolveDirectly();
    } else {
        Search();
    }
}

void Run::SolveDirectly()
{
    BalanceMatrix work;
    int column = 0;
    for (int position = 0; position < kPositions; ++position) {
        if (!IsPresent(position))
            continue;
        for (int row = 0; row <= m_lastRow; ++row)
            work.At(row, column) = m_matrix.At(row, position);
        ++column;
    }
    // The first molecule is fixed at 1: its column becomes the right-hand side.
    for (int k = 0; k < m_lastColumn; ++k)
        SwapColumns(work, k, k + 1);
    for (int row = 0; row <= m_lastRow; ++row)
        work.At(row, m_lastColumn) = -work.At(row, m_lastColumn);
    PreparePivots(work, m_lastRow, m_lastColumn);
    ReduceMatrix(work, m_lastRow, m_lastColumn);

    int found = -1;
    bool isPositive = true;
    for (int position = 0; position < kPositions; ++position) {
        if (!IsPresent(position))
            continue;
        m_result.coefficients.at(static_cast<size_t>(position))
            = found < 0 ? 1.0 : work.At(found, m_lastColumn);
        ++found;
    }
    ScaleToIntegers(kPositions - 1, m_result.coefficients);
    // A contradiction shows as a 0: nothing is put back into the rows.
    for (int position = 0; position < kPositions; ++position)
        isPositive = isPositive
            && (!IsPresent(position) || m_result.coefficients.at(static_cast<size_t>(position)) > 0);
    if (isPositive)
        ShowResult();
    else
        Fail(result_text::Impossible(m_task));
}

void Run::Search()
{
    SearchSystem system;
    system.matrix = m_matrix;
    system.lastRow = m_lastRow;
    system.excess = m_lastColumn - m_lastRow;
    for (int position = 0; position < kPositions; ++position)
        system.present.at(static_cast<size_t>(position)) = IsPresent(position);

    m_observer.Append(result_text::PleaseWait());
    m_observer.SearchBegins();
    const SearchResult found = SearchCoefficients(system, m_observer, m_attempts);
    // A search that ends with neither result nor failure leaves the pointer waiting.
    if (found.end != SearchResult::End::Nothing)
        m_observer.SearchEnds();
    m_result.coefficients = found.coefficients;
    switch (found.end) {
    case SearchResult::End::Found:
        ShowResult();
        break;
    case SearchResult::End::Impossible:
        Fail(result_text::Impossible(m_task));
        break;
    case SearchResult::End::Nothing:
        m_result.foundNothing = true;
        break;
    case SearchResult::End::Stopped:
        m_result.stopped = true;
        break;
    }
}

double RoundToNearest(double x)
{
    const double floor = std::floor(x);
    return std::fabs(x - floor) < 0.5 ? floor : floor + 1;
}

/// The smallest factor that makes an integer of the value; 0 above 32000.
int DenominatorOf(double value)
{
    constexpr int kLargest = 32000;
    for (int m = 1; m <= kLargest; ++m) {
        const double x = value * m;
        if (std::fabs(RoundToNearest(x) - x) <= 1e-9)
            return m;
    }
    return 0;
}

} // namespace

void ScaleToIntegers(int lastIndex, std::array<double, 6>& values)
{
    std::array<std::int64_t, 6> denominators{};
    for (int i = 0; i <= lastIndex; ++i) {
        const int denominator = DenominatorOf(values.at(static_cast<size_t>(i)));
        if (denominator == 0)
            return;
        denominators.at(static_cast<size_t>(i)) = denominator;
    }
    std::int64_t common = 1;
    for (int i = 0; i <= lastIndex; ++i) {
        const std::int64_t next = denominators.at(static_cast<size_t>(i));
        common = Checked16(common * next / std::gcd(common, next));
    }
    for (int i = 0; i <= lastIndex; ++i) {
        double& value = values.at(static_cast<size_t>(i));
        value = RoundToNearest(value * static_cast<double>(common));
    }
}

BalancingResult BalanceEquation(const BalancingTask& task, BalancingObserver& observer, Attempts attempts)
{
    return Run(task, observer, attempts).Do();
}

} // namespace stoikal
