#include "balancing/result_text.h"

#include "base/number_text.h"

namespace stoikal::result_text {
namespace {

/// Every failure begins with 15 blanks.
QString Failure(const QString& text)
{
    return QStringLiteral("               ECHEC : ") + text;
}

QString Blanks()
{
    return QStringLiteral("               ");
}

/// One side, each term preceded by what `term` makes of its position.
template <typename Term>
QString Side(const BalancingTask& task, size_t first, Term term)
{
    QString side;
    for (size_t position = first; position < first + 3; ++position) {
        if (task.molecules.at(position).isEmpty())
            continue;
        if (!side.isEmpty())
            side += QStringLiteral(" + ");
        side += term(position);
    }
    return side;
}

} // namespace

QString Line(const BalancingTask& task, const std::array<double, 6>& coefficients)
{
    const auto term = [&](size_t position) {
        const double coefficient = coefficients.at(position);
        QString text;
        if (task.showsOnes || coefficient != 1)
            text = PlainNumber(coefficient) + QLatin1Char(' ');
        text += task.molecules.at(position);
        if (task.mode == BalancingTask::Mode::Editor && !task.states.at(position).isEmpty())
            text += QStringLiteral(" (") + task.states.at(position) + QLatin1Char(')');
        return text;
    };
    QString left;
    if (task.mode == BalancingTask::Mode::Window)
        left = QStringLiteral("¤) Equation n°") + QString::number(task.number) + QStringLiteral("  : ");
    else if (!task.comment.isEmpty())
        left = task.comment + QStringLiteral("\n     ");
    left += Side(task, 0, term);
    if (!left.isEmpty())
        left += QStringLiteral(" -----> ");
    return left + Side(task, 3, term) + QLatin1Char('\n');
}

QString WrongSymbol(const QString& formula, int position)
{
    return Failure(
        QStringLiteral(
            "Erreur dans la saisie du symbole d'un atome pour la molécule %1 à la %2ème position.\n\n")
            .arg(formula, QString::number(position)));
}

QString AtomMissing(const QString& symbol)
{
    return Failure(QStringLiteral("il n'y a pas les mêmes types d'atomes dans les réactifs et les produits : "
                                  "l'atome %1 présent dans les "
                                  "réactifs n'est pas présent dans les produits.\n\n")
                       .arg(symbol));
}

QString DifferentAtoms()
{
    return Failure(
        QStringLiteral("il n'y a pas les mêmes types d'atomes dans les réactifs et les produits.\n\n"));
}

QString SymbolRefused(const QString& symbol)
{
    return Failure(QStringLiteral("le symbole %1 n'est pas un symbole connu d'atome.\n\n").arg(symbol));
}

QString Impossible(const BalancingTask& task)
{
    const auto term
        = [&task](size_t position) { return QStringLiteral(" ? ") + task.molecules.at(position); };
    return Failure(QStringLiteral("équation chimique impossible à équilibrer.\n")) + Blanks()
        + Side(task, 0, term) + QStringLiteral(" -----> ") + Side(task, 3, term) + QStringLiteral("\n\n");
}

QString PleaseWait()
{
    return QStringLiteral("Veuillez patienter pendant les calculs ...\n");
}

QString UnknownSymbolTitle()
{
    return QStringLiteral("Symbole d'atome inconnu");
}

QString UnknownSymbolQuestion(const QString& symbol, bool amongReactants)
{
    return QStringLiteral("Le symbole %1 présent dans les %2 n'est pas le symbole d'un atome connu.\n"
                          "Souhaitez-vous néanmoins conserver ce symbole ?")
        .arg(symbol, amongReactants ? QStringLiteral("réactifs") : QStringLiteral("produits"));
}

} // namespace stoikal::result_text
