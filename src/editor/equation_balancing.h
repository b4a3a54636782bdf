#pragma once

#include "balancing/balancing_engine.h"
#include "editor/work_equation.h"

#include <QHash>
#include <QString>
#include <vector>

namespace stoikal {

/// What the engine is asked for an equation of the work file.
BalancingTask TaskOf(const WorkEquation& equation, int number, bool showsComment);

/// Balances an equation and enters the outcome: ECHEC "1" when no solution was
/// found; else "0", and each coefficient other than 0 as text. A FatalFault of
/// the engine leaves ECHEC "1" and passes on.
void EnterBalancing(WorkEquation& equation, int number, bool showsComment, BalancingObserver& observer);

/// The text of the preview: the head, then each equation with its number. What
/// an equation holds is shown as it is; where coefficients are missing, that is
/// said. For the cause of a failure the engine works once more, and no question is
/// asked about it; an equation that nobody tried to balance it never sees.
class PreviewListing
{
public:
    QString Text(const QString& head, const std::vector<WorkEquation>& equations, bool showsComments);

private:
    QString TextOf(const WorkEquation& equation, bool showsComments);

    QHash<QString, QString> m_engineTexts; ///< by formulas, states and outcome: the engine's text
};

} // namespace stoikal
