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

/// The same, asking nothing: unknown symbols are kept, and a FatalFault is a
/// failure like the others.
void EnterBalancingSilently(WorkEquation& equation);

/// The text of the preview: the head, then each equation with its number. What
/// an equation holds is shown as it is; one that failed, or has no coefficients
/// yet, is balanced again for its text, and no question is asked about it.
class PreviewListing
{
public:
    QString Text(const QString& head, const std::vector<WorkEquation>& equations, bool showsComments);

private:
    QString TextOf(const WorkEquation& equation, bool showsComments);

    QHash<QString, QString> m_engineTexts; ///< by formulas, states and outcome: the engine's text
};

} // namespace stoikal
