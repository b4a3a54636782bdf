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

/// Writes one side behind the text, each molecule by `writeTerm`.
template <typename WriteTerm>
void AppendSide(QString& text, const BalancingTask& task, size_t first, WriteTerm writeTerm)
{
    bool isFirst = true;
    for (size_t position = first; position < first + 3; ++position) {
        if (task.molecules.at(position).isEmpty())
            continue;
        if (!isFirst)
            text += QLatin1String(" + ");
        isFirst = false;
        writeTerm(position);
    }
}

} // namespace

QString Line(const BalancingTask& task, const std::array<double, 6>& coefficients)
{
    constexpr qsizetype kUsualLength = 120;
    QString line;
    line.reserve(kUsualLength);
    const auto writeTerm = [&](size_t position) {
        const double coefficient = coefficients.at(position);
        if (task.showsOnes || coefficient != 1)
            line += PlainNumber(coefficient) + QLatin1Char(' ');
        line += task.molecules.at(position);
        if (task.mode == BalancingTask::Mode::Editor && !task.states.at(position).isEmpty())
            line += QLatin1String(" (") + task.states.at(position) + QLatin1Char(')');
    };
    if (task.mode == BalancingTask::Mode::Window)
        line += QStringLiteral("¤) Equation n°") + QString::number(task.number) + QLatin1String("  : ");
    else if (!task.comment.isEmpty())
        line += task.comment + QLatin1String("\n     ");
    AppendSide(line, task, 0, writeTerm);
    if (!line.isEmpty())
        line += QLatin1String(" -----> ");
    AppendSide(line, task, 3, writeTerm);
    line += QLatin1Char('\n');
    return line;
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
    QString text = Failure(QStringLiteral("équation chimique impossible à équilibrer.\n")) + Blanks();
    const auto writeTerm
        = [&](size_t position) { text += QLatin1String(" ? ") + task.molecules.at(position); };
    AppendSide(text, task, 0, writeTerm);
    text += QLatin1String(" -----> ");
    AppendSide(text, task, 3, writeTerm);
    return text + QLatin1String("\n\n");
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
