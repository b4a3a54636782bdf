#pragma once

#include "balancing/balancing_engine.h"

#include <array>

namespace stoikal {

using Coefficients = std::array<double, 6>;

/// The first equation of a running list, with these molecules; "" is an empty box.
inline BalancingTask Task(const std::array<const char16_t*, 6>& molecules)
{
    BalancingTask task;
    task.number = 1;
    for (std::size_t position = 0; position < molecules.size(); ++position)
        task.molecules[position] = QString::fromUtf16(molecules[position]);
    return task;
}

/// The line of the first equation, as the window shows it.
inline QString Line(const QString& equation)
{
    return QStringLiteral("¤) Equation n°1  : ") + equation + u'\n';
}

/// What a failure begins with: 15 blanks.
inline QString FailureHead()
{
    return QString(15, u' ') + QStringLiteral("ECHEC : ");
}

} // namespace stoikal
