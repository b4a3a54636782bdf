#pragma once

#include <QChar>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <array>

namespace stoikal {

/// The lines that the identification of a pupil leaves in the journal: an empty
/// one, a row of stars, the surname, the first name and the class as typed.
QStringList IdentityLines(const QString& nom, const QString& prenom, const QString& classe);

/// The lines that a newly opened equation file leaves: a row of stars, the
/// file's title with the number of its equations, day and hour
/// (dd/MM/yyyy HH:mm:ss), a row of hyphens.
QStringList HeaderLines(const QString& title, int equationCount, const QDateTime& now);

/// One of the six terms of an answer, as the window shows it.
struct JournalTerm {
    QString coefficient; ///< the text of the coefficient box, which may be empty
    QString species; ///< the formula as shown; empty: the slot is not in use
    int fileCoefficient = 0; ///< what the equation file says; 0 takes no part in the comparison
};

/// The two lines of one answer: "  N°1 : ", then
/// "2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5".
/// Terms 0 to 2 are the reactants, 3 to 5 the products. Term 1 is printed even
/// when it is not in use, and term 5 only behind a term 4. CORRECT says that
/// the coefficients equal those of the file (a box of value 0 counts 1), not
/// that the equation balances.
QStringList AnswerLines(int equationNumber, const std::array<JournalTerm, 6>& terms, qint64 score);

/// The line that ends a scored run, the time in seconds:
/// " -------> Note : 20,00/20 - Temps écoulé : 12,30 s".
QString MarkLine(double mark, double seconds, QChar separator);

} // namespace stoikal
