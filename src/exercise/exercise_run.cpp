#include "exercise/exercise_run.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"
#include "base/number_text.h"
#include "equation_files/equation_line.h"
#include "exercise/charge_totals.h"

#include <QFileInfo>
#include <algorithm>
#include <span>

namespace stoikal {

int CoefficientOf(const QString& text)
{
    return CountOrOne(ReadNumber(text));
}

void ExerciseRun::ChooseFile(const QString& path)
{
    m_state.CheminFichier = path;
    m_state.TitreFichier = QFileInfo(path).fileName();
    m_state.NumEquation = 0;
}

void ExerciseRun::ForgetFile()
{
    m_state.CheminFichier.clear();
    m_state.TitreFichier.clear();
}

void ExerciseRun::Open(EquationFile file)
{
    m_file = std::move(file);
    m_isOver = false;
    m_record = {};
    m_state.Score = 0;
    m_state.MaxScore = 0;
    m_state.AnswerOpen = true;
    m_state.BadKey = false;
    m_state.NumEquation = 0;
}

void ExerciseRun::Close()
{
    m_file.reset();
    m_isOver = false;
    m_state.NumEquation = 0;
    m_state.LigneEquation.clear();
    m_state.NumeroLigne = 0;
}

ExerciseRun::Step ExerciseRun::ReadNextEquation()
{
    if (!m_file)
        return Step::NoFile;
    if (m_isOver)
        return Step::RunIsOver;
    if (!m_file->NextLine()) {
        m_isOver = true;
        return Step::EndOfFile;
    }
    m_state.LigneEquation = m_file->Line();
    m_state.NumeroLigne = m_file->LineNumber();
    m_state.NumEquation = Checked16(m_state.NumEquation + 1);
    const ParsedLine parsed = ParseEquationLine(m_state.LigneEquation);
    m_record = parsed.record;
    m_state.ChargesPresentes = parsed.chargesPresent;
    m_state.MaxScore = Checked32(std::int64_t(m_state.MaxScore) + parsed.points);
    return Step::Equation;
}

std::array<SpeciesInput, 6> ExerciseRun::Inputs(const Texts& coefficients) const
{
    std::array<SpeciesInput, 6> inputs;
    for (size_t slot = 0; slot < inputs.size(); ++slot)
        inputs.at(slot) = {m_record.Slots.at(slot).Molecule, CoefficientOf(coefficients.at(slot))};
    return inputs;
}

QStringList ExerciseRun::Compose(const Texts& coefficients)
{
    const auto inputs = Inputs(coefficients);
    const std::span<const SpeciesInput> all(inputs);
    ComputeComposition(m_reactants, all.first(3));
    QStringList unknown = UnknownSymbols(m_reactants);
    ComputeComposition(m_products, all.last(3));
    unknown += UnknownSymbols(m_products);
    AlignAtomLists(m_reactants, m_products);
    SumCharges(coefficients);
    return unknown;
}

void ExerciseRun::SumCharges(const Texts& coefficients)
{
    std::array<int, 6> counts{};
    std::transform(coefficients.begin(), coefficients.end(), counts.begin(), CoefficientOf);
    const ChargeTotals totals = ComputeChargeTotals(m_record, counts);
    m_state.ChargeTotalReactants = totals.reactants;
    m_state.ChargeTotalProducts = totals.products;
}

AtomList ExerciseRun::ComposeSlot(int slot, const Texts& coefficients) const
{
    const auto inputs = Inputs(coefficients);
    AtomList list;
    ComputeComposition(list, std::span<const SpeciesInput>(inputs).subspan(static_cast<size_t>(slot), 1));
    return list;
}

ExerciseRun::Verdict ExerciseRun::Judge(const Texts& coefficients)
{
    if (m_isOver)
        return Verdict::RunIsOver;
    if (!m_state.AnswerOpen)
        return Verdict::SolutionWasShown;
    std::array<int, 6> counts{};
    std::transform(coefficients.begin(), coefficients.end(), counts.begin(), CoefficientOf);
    std::array<bool, 6> visible{};
    for (size_t slot = 0; slot < visible.size(); ++slot)
        visible.at(slot) = slot == 0 || slot == 3 || !m_record.Slots.at(slot).Molecule.isEmpty();
    SumCharges(coefficients);
    const ChargeTotals charges{m_state.ChargeTotalReactants, m_state.ChargeTotalProducts};
    switch (stoikal::Judge({m_reactants, m_products, m_state.ChargesPresentes, charges, counts, visible})) {
    case Balance::Unbalanced:
        m_state.Score = AfterWrong(m_state.Score);
        if (m_state.Score != 0)
            return Verdict::Wrong;
        m_state.AnswerOpen = false;
        return Verdict::WrongAndSolved;
    case Balance::Reducible:
        return Verdict::Reducible;
    case Balance::Right:
        m_state.Score = AfterRight(m_state.Score);
        return Verdict::Right;
    }
    Q_UNREACHABLE();
}

void ExerciseRun::PassStep()
{
    if (!m_isOver)
        m_state.Score = AfterRight(m_state.Score);
}

bool ExerciseRun::FailStep()
{
    if (m_isOver)
        return false;
    m_state.Score = AfterWrong(m_state.Score);
    return m_state.Score == 0;
}

} // namespace stoikal
