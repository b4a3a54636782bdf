#include "editor/equation_balancing.h"

#include "balancing/result_text.h"
#include "base/fatal_fault.h"
#include "base/number_text.h"

#include <algorithm>

namespace stoikal {
namespace {

/// Keeps the engine's text and answers its questions.
class SilentObserver final : public BalancingObserver
{
public:
    explicit SilentObserver(bool keepsSymbols)
        : m_keepsSymbols(keepsSymbols)
    {
    }
    void Append(const QString& appended) override
    {
        // The word of patience is for who waits.
        if (appended != result_text::PleaseWait())
            text += appended;
    }
    bool KeepsUnknownSymbol(const QString& /*title*/, const QString& /*question*/) override
    {
        return m_keepsSymbols;
    }

    QString text;

private:
    bool m_keepsSymbols;
};

QString Broken(const QString& cause)
{
    return QStringLiteral("               ECHEC : %1\n\n").arg(cause);
}

/// What the engine writes about an equation. One that failed, yet can be
/// balanced with its unknown symbols, failed because they were refused.
QString EngineText(const WorkEquation& equation)
{
    const BalancingTask task = TaskOf(equation, 0, false);
    try {
        SilentObserver observer(true);
        const BalancingResult result = BalanceEquation(task, observer);
        if (result.foundNothing)
            return observer.text + result_text::Line(task, result.coefficients)
                + Broken(QStringLiteral("aucune solution n'a été trouvée."));
        if (!equation.HasFailed() || result.failed)
            return observer.text;
        SilentObserver refusing(false);
        BalanceEquation(task, refusing);
        return refusing.text;
    } catch (const FatalFault& fault) {
        return result_text::Line(task, {}) + Broken(fault.Cause());
    }
}

/// An equation with the coefficients that it holds.
QString HeldText(const WorkEquation& equation)
{
    std::array<double, WorkEquation::kSlots> coefficients{};
    // A coefficient of 1 is not written, and so none stands where none is known.
    std::transform(
        equation.Coeff.begin(), equation.Coeff.end(), coefficients.begin(),
        [](const QString& coefficient) { return coefficient.isEmpty() ? 1 : ReadFileNumber(coefficient); });
    const QString line = result_text::Line(TaskOf(equation, 0, false), coefficients);
    return equation.HasCoefficients() ? line
                                      : line
            + QStringLiteral("     Les coefficients manquent\u00A0: ils seront calculés quand vous passerez "
                             "par cette équation.\n");
}

} // namespace

BalancingTask TaskOf(const WorkEquation& equation, int number, bool showsComment)
{
    BalancingTask task;
    task.mode = BalancingTask::Mode::Editor;
    task.number = number;
    std::transform(equation.Molecule.begin(), equation.Molecule.end(), task.molecules.begin(),
                   [](const QString& molecule) { return molecule.trimmed(); });
    task.states = equation.Etat;
    if (showsComment)
        task.comment = equation.Comment;
    return task;
}

void EnterBalancing(WorkEquation& equation, int number, bool showsComment, BalancingObserver& observer)
{
    equation.ECHEC = QStringLiteral("1");
    const BalancingResult result = BalanceEquation(TaskOf(equation, number, showsComment), observer);
    if (result.failed || result.foundNothing || result.stopped)
        return;
    equation.ECHEC = QStringLiteral("0");
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        if (result.coefficients.at(slot) != 0)
            equation.Coeff.at(slot) = PlainNumber(result.coefficients.at(slot));
    }
}

QString PreviewListing::TextOf(const WorkEquation& equation, bool showsComments)
{
    QString text;
    if (showsComments && !equation.Comment.isEmpty())
        text = equation.Comment + QStringLiteral("\n     ");
    if (!equation.HasFailed())
        return text + HeldText(equation);
    QString key = equation.ECHEC;
    for (const auto& texts : {equation.Molecule, equation.Etat}) {
        for (const QString& part : texts)
            key += QLatin1Char('\n') + part;
    }
    auto known = m_engineTexts.constFind(key);
    if (known == m_engineTexts.constEnd())
        known = m_engineTexts.insert(key, EngineText(equation));
    return text + *known;
}

QString PreviewListing::Text(const QString& head, const std::vector<WorkEquation>& equations,
                             bool showsComments)
{
    QString text = head + QStringLiteral("\n\n");
    int number = 0;
    for (const WorkEquation& equation : equations)
        text += QStringLiteral("%1) ").arg(++number) + TextOf(equation, showsComments);
    return text;
}

} // namespace stoikal
