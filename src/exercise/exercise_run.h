#pragma once

#include "equation_files/equation_file.h"
#include "equation_files/equation_record.h"
#include "exercise/answer_judge.h"
#include "exercise/atom_list.h"
#include "exercise/run_state.h"

#include <QStringList>
#include <array>
#include <optional>

namespace stoikal {

/// A run over one equation file: the file's place, the current equation, the
/// atoms of both sides, the score. It draws nothing, asks nobody and writes no
/// journal; the window does.
class ExerciseRun
{
public:
    using Texts = std::array<QString, 6>;

    enum class Step {
        Equation,
        EndOfFile, ///< given once: the run is over from then on
        RunIsOver, ///< the end of the file was reached before
        NoFile
    };
    enum class Verdict {
        RunIsOver, ///< nothing is judged: the end of the file was reached before
        SolutionWasShown, ///< nothing is judged: the run moves on
        Wrong, ///< points are lost, the pupil tries again
        WrongAndSolved, ///< the score fell to 0: the solution is shown
        Reducible, ///< balanced, but there is a simpler answer: nothing won or lost
        Right
    };

    /// Keeps its state in the record given, which must outlive it.
    explicit ExerciseRun(RunState& state)
        : m_state(state)
    {
    }

    /// A file was chosen; nothing of it is read yet.
    void ChooseFile(const QString& path);
    /// No file is chosen any more.
    void ForgetFile();
    /// What the chosen file is for, known once its lines were counted.
    void SetKind(RunKind kind) { m_state.kind = kind; }

    /// Starts over on a file: score and maximum 0, before its first equation.
    void Open(EquationFile file);
    /// The run ends; the file stays chosen.
    void Close();
    bool IsOpen() const { return m_file.has_value(); }
    /// The end of the open file was reached: score and file do not change any more.
    bool IsOver() const { return m_isOver; }
    /// A file is open and its end was not reached yet.
    bool IsUnderWay() const { return IsOpen() && !m_isOver; }

    /// Moves to the next equation of the file and reads it into the state and
    /// the record. A line that cannot be read is a FatalFault, whose place stands in
    /// the state by then; the two faults of data are thrown as they are.
    Step ReadNextEquation();

    /// Counts the atoms of both sides with the coefficients as they stand in the
    /// boxes, sets them side by side, and sums the charges.
    /// \returns the symbols that no element has, reactants first: each is told.
    QStringList Compose(const Texts& coefficients);

    /// Judges the boxes as they stand and moves the score.
    Verdict Judge(const Texts& coefficients);

    /// A step of the table of progress was right: points. Nothing once the run is over.
    void PassStep();
    /// A try at such a step was wrong: points lost. Nothing once the run is over.
    /// \returns whether the score is 0 now.
    bool FailStep();

    /// The run goes on: the next answer will be judged.
    void MoveOn() { m_state.AnswerOpen = true; }
    /// A key came to a box, and was refused or not.
    void NoteKey(bool isRefused) { m_state.BadKey = isRefused; }

    const EquationRecord& Record() const { return m_record; }
    const RunState& State() const { return m_state; }
    const AtomList& Reactants() const { return m_reactants; }
    const AtomList& Products() const { return m_products; }

    /// The atoms of one slot alone, its coefficient included.
    AtomList ComposeSlot(int slot, const Texts& coefficients) const;

private:
    std::array<SpeciesInput, 6> Inputs(const Texts& coefficients) const;
    void SumCharges(const Texts& coefficients);

    RunState& m_state;
    std::optional<EquationFile> m_file;
    EquationRecord m_record;
    bool m_isOver = false;
    AtomList m_reactants;
    AtomList m_products;
};

/// The whole value of a coefficient's box: 0 and an empty box count as 1.
int CoefficientOf(const QString& text);

} // namespace stoikal
