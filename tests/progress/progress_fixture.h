#pragma once

#include "chemistry/formula.h"
#include "equation_files/equation_line.h"
#include "progress/progress_table.h"
#include "support/qt_printers.h"

#include <QStringList>
#include <cmath>
#include <gtest/gtest.h>

namespace stoikal {

inline EquationRecord RecordOf(const QString& line)
{
    return ParseEquationLine(line).record;
}

inline MolarMasses MassesOf(const EquationRecord& record)
{
    MolarMasses masses{};
    for (std::size_t slot = 0; slot < 6; ++slot)
        masses[slot] = MolarMass(record.Slots[slot].Molecule, [](const QString&) {}).gramsPerMole;
    return masses;
}

/// The table that a line's own data give.
inline ProgressTable TableOf(const QString& line, double molarVolume = kDefaultMolarVolume)
{
    const EquationRecord record = RecordOf(line);
    return ComputeProgress(record, MassesOf(record), FillProgressTable(record), molarVolume);
}

/// The texts of a row, separated by "|".
inline QString Joined(const ProgressTexts::Row& row)
{
    return QStringList(row.begin(), row.end()).join(QLatin1Char('|'));
}

/// Compares the numbers of a row with those wanted, slot by slot.
inline void ExpectNumbers(const ProgressTable::Numbers& numbers, const ProgressTable::Numbers& wanted)
{
    for (std::size_t slot = 0; slot < 6; ++slot)
        EXPECT_NEAR(numbers[slot], wanted[slot], 1e-12 * (1 + std::abs(wanted[slot]))) << "slot " << slot;
}

} // namespace stoikal
