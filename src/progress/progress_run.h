#pragma once

#include "progress/progress_check.h"

namespace stoikal {

/// The study of one equation's progress: a series works it in two steps, the
/// molar masses and the table, a free simulation computes it again and again. It
/// holds the true numbers and which step is on; points and clocks are others'.
class ProgressRun
{
public:
    enum class Step { Masses, Table, Done, FreeSimulation };

    explicit ProgressRun(QChar separator)
        : m_separator(separator)
    {
    }

    /// Starts on an equation. FatalFault as `ComputeProgress`; the run is then as before.
    void TakeEquation(const EquationRecord& record, const MolarMasses& masses, bool isSeries,
                      double molarVolume);

    /// What the boxes hold at first: the data of the line in a series, the whole
    /// computed table in free simulation.
    const ProgressTexts& StartTexts() const { return m_startTexts; }

    Step CurrentStep() const { return m_step; }
    const EquationRecord& Record() const { return m_record; }
    const ProgressTable& Table() const { return m_table; }
    /// Some datum is there: there is a table to fill and a progress to draw.
    bool HasProgress() const { return m_table.Xmax != 0; }

    /// Judges the molar masses typed.
    RowVerdicts CheckMolarMasses(const std::array<QString, 6>& typed) const;
    /// The molar mass of a slot as it is shown, with one decimal.
    QString MolarMassText(int slot) const;
    /// The molar masses are done. A line without data has no table to fill: it is
    /// done with them.
    void EndMolarMasses();

    /// Judges a typed table; FatalFault as `CheckProgressTable`.
    TableVerdicts CheckTable(const ProgressTexts& texts, const std::array<bool, 6>& volumeAsked);
    void EndTable();

    /// The true values in the boxes.
    ProgressTexts Solution(const ProgressTexts& texts) const;

    /// Why the amounts typed in free simulation cannot be computed with, a French
    /// sentence; empty when they can.
    QString RefusalOf(const ProgressTexts& texts) const;

    /// Free simulation: computes the table from the reactants' amounts in the
    /// boxes. With none but 0 it is that of one mole of the first reactant.
    /// \returns the boxes with the whole table. FatalFault as `ComputeProgress`.
    ProgressTexts Simulate(const ProgressTexts& texts, double molarVolume);

    /// A series: the truth follows a new molar volume, from the line's own data;
    /// what stands in the boxes is left alone.
    void ChangeMolarVolume(double molarVolume);

private:
    QChar m_separator;
    EquationRecord m_record;
    MolarMasses m_masses{};
    ProgressTable m_table;
    ProgressTexts m_startTexts;
    Step m_step = Step::Done;
};

} // namespace stoikal
