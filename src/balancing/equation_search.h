#pragma once

#include "base/outcome.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <array>

namespace stoikal {

/// Finds the lines of equation files that hold given molecules, each on the side
/// where it was asked for. Works on the bytes of a line: formulas are plain ASCII.
class EquationPattern
{
public:
    /// 0 to 2 are sought among the reactants, 3 to 5 among the products; empty
    /// ones ask for nothing.
    explicit EquationPattern(const std::array<QString, 6>& molecules);

    /// Whether the line holds all of them. Blanks count nowhere; case counts; a
    /// formula must equal one of the line's wholly, its state and charge too.
    /// A line without "=", or with more formulas than there are places, is a
    /// FatalFault.
    bool Matches(QByteArrayView line);

private:
    bool LacksAFormula(QByteArrayView line, qsizetype equals) const;

    std::array<QByteArray, 6> m_sought;
    std::array<QByteArray, 6> m_places; ///< kept between lines for their memory
};

/// The equation files of a folder, ".Equ" and ".Avt" in any case, by name; not
/// those of folders inside it. Fails when the folder cannot be read.
Outcome<QStringList> EquationFilesOf(const QString& folder);

/// A text file to which lines are appended, by one program at a time. An existing
/// file gets a line end first if it lacks one. What cannot be written is told.
class EquationAppender
{
public:
    /// Appends lines (each ended by CRLF) to a file, which is made when missing.
    static Outcome<qsizetype> AppendLines(const QString& path, const QList<QByteArray>& lines);

    /// Appends to an existing file: a line end, a lone apostrophe, the line
    /// without an end.
    static Outcome<qsizetype> AppendEquation(const QString& path, const QString& line);
};

} // namespace stoikal
