#include "progress/progress_run.h"

#include "base/number_text.h"
#include "base/quote.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

/// What can be typed in free simulation: between them the slider's steps, the
/// scales of the drawings and the boxes hold every number.
constexpr double kMostAmount = 1E6; ///< mol
constexpr double kLeastAdvancement = 1E-8; ///< mol, an amount for one of its coefficient

} // namespace

void ProgressRun::TakeEquation(const EquationRecord& record, const MolarMasses& masses, bool isSeries,
                               double molarVolume)
{
    ProgressTexts texts = FillProgressTable(record);
    const ProgressTable table = ComputeProgress(record, masses, texts, molarVolume);
    if (!isSeries)
        texts = ShowComputedTable(record, table, m_separator, texts);
    m_record = record;
    m_masses = masses;
    m_table = table;
    m_startTexts = texts;
    m_step = isSeries ? Step::Masses : Step::FreeSimulation;
}

RowVerdicts ProgressRun::CheckMolarMasses(const std::array<QString, 6>& typed) const
{
    return stoikal::CheckMolarMasses(m_table, typed);
}

QString ProgressRun::MolarMassText(int slot) const
{
    return FormatMask(m_table.MolarMass[static_cast<std::size_t>(slot)], u"0.0", m_separator);
}

void ProgressRun::EndMolarMasses()
{
    m_step = HasProgress() ? Step::Table : Step::Done;
}

TableVerdicts ProgressRun::CheckTable(const ProgressTexts& texts, const std::array<bool, 6>& volumeAsked)
{
    ReadTypedTable(texts, m_table);
    return CheckProgressTable(m_table, volumeAsked);
}

void ProgressRun::EndTable()
{
    m_step = Step::Done;
}

ProgressTexts ProgressRun::Solution(const ProgressTexts& texts) const
{
    return ShowComputedTable(m_record, m_table, m_separator, texts);
}

QString ProgressRun::RefusalOf(const ProgressTexts& texts) const
{
    for (std::size_t slot = 0; slot < 3; ++slot) {
        const SpeciesSlot& species = m_record.Slots[slot];
        if (species.Molecule.isEmpty())
            continue;
        const double amount = TypedNumber(texts.txtQmat0[slot]);
        if (amount > kMostAmount) {
            return QStringLiteral("La quantité de matière de %1 est trop grande\u00A0: 1000000 mol au plus.")
                .arg(Quoted(species.Molecule));
        }
        if (amount != 0 && amount < kLeastAdvancement * std::abs(species.Coeff)) {
            return QStringLiteral("La quantité de matière de %1 est trop petite pour être étudiée.\n"
                                  "Saisissez 0 ou une valeur plus grande.")
                .arg(Quoted(species.Molecule));
        }
    }
    return {};
}

ProgressTexts ProgressRun::Simulate(const ProgressTexts& texts, double molarVolume)
{
    EquationRecord record = m_record;
    bool isAllZero = true;
    for (std::size_t slot = 0; slot < 6; ++slot) {
        SpeciesSlot& species = record.Slots[slot];
        species.MVQ.clear();
        if (slot >= 3 || species.Molecule.isEmpty())
            continue;
        species.MVQ = QLatin1Char('Q') + texts.txtQmat0[slot].trimmed();
        isAllZero = isAllZero && TypedNumber(texts.txtQmat0[slot]) == 0;
    }
    if (isAllZero)
        record.Slots[0].MVQ = QStringLiteral("Q1");
    const ProgressTexts filled = FillProgressTable(record);
    m_table = ComputeProgress(record, m_masses, filled, molarVolume);
    m_record = record;
    return ShowComputedTable(record, m_table, m_separator, filled);
}

void ProgressRun::ChangeMolarVolume(double molarVolume)
{
    m_table = ComputeProgress(m_record, m_masses, FillProgressTable(m_record), molarVolume);
}

} // namespace stoikal
