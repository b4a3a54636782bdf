#include "exercise/journal_lines.h"

#include "base/number_text.h"

#include <algorithm>
#include <cmath>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kRowLength = 38;

QString Stars()
{
    return QString(kRowLength, u'*');
}

QString TermText(const JournalTerm& term)
{
    return term.coefficient + u' ' + term.species;
}

bool IsInUse(const JournalTerm& term)
{
    return !term.species.isEmpty();
}

bool EqualsFile(const JournalTerm& term)
{
    if (term.fileCoefficient == 0)
        return true;
    const double typed = std::trunc(ReadNumber(term.coefficient));
    return (typed == 0 ? 1 : typed) == term.fileCoefficient;
}

} // namespace

QStringList IdentityLines(const QString& nom, const QString& prenom, const QString& classe)
{
    return {QString(), Stars(), u"Nom élève :"_s + nom, u"Prénom élève :"_s + prenom,
            u"Classe élève :"_s + classe};
}

QStringList HeaderLines(const QString& title, int equationCount, const QDateTime& now)
{
    const QString count = FormatMask(equationCount, u"#0", u'.');
    return {Stars(), u"Nom du fichier : "_s + title + u" - "_s + count + u" équations"_s,
            u"Jour et Heure :"_s + now.toString(u"dd/MM/yyyy HH:mm:ss"_s), QString(kRowLength, u'-')};
}

QStringList AnswerLines(int equationNumber, const std::array<JournalTerm, 6>& terms, qint64 score)
{
    const QString plus = u" + "_s;
    QString equation = TermText(terms[0]) + plus + TermText(terms[1]);
    if (IsInUse(terms[2]))
        equation += plus + TermText(terms[2]);
    equation += u" ---> "_s + TermText(terms[3]);
    if (IsInUse(terms[4])) {
        equation += plus + TermText(terms[4]);
        if (IsInUse(terms[5]))
            equation += plus + TermText(terms[5]);
    }
    const bool isAsInFile = std::all_of(terms.begin(), terms.end(), EqualsFile);
    equation += isAsInFile ? u" : CORRECT"_s : u" : FAUX"_s;
    return {u"  N°"_s + QString::number(equationNumber) + u" : "_s,
            equation + u" - Score : "_s + QString::number(score)};
}

QString MarkLine(double mark, double seconds, QChar separator)
{
    return u" -------> Note : "_s + FormatMask(mark, u"00.00", separator) + u"/20 - Temps écoulé : "_s
        + FormatMask(seconds, u"00.00", separator) + u" s"_s;
}

} // namespace stoikal
