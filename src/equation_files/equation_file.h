#pragma once

#include "base/outcome.h"
#include "base/text_lines.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace stoikal {

/// What a first walk over an equation file tells.
struct FirstPass {
    int equationCount = 0; ///< lines that are neither empty nor a comment
    bool hasProgressData = false; ///< some line, a comment too, has text behind its "#"
};

/// Walks over the bytes of an equation file without decoding them. A line is a
/// comment when its first character other than a blank (code 32) is an
/// apostrophe; a line of blanks alone counts as an equation. Never fails.
FirstPass CountEquations(QByteArrayView bytes);

/// The bytes of an equation file as they stand there; a link is followed, as a
/// teacher may keep his files elsewhere, but not to the file of the password. Fails
/// with the bare reason.
Outcome<QByteArray> ReadEquationBytes(const QString& path);

/// The same; fails with a French sentence.
Outcome<QByteArray> ReadEquationFile(const QString& path);

/// The equation file of a run: gives its usable lines one after another, in the
/// file's order. It is read whole at the opening, so that nothing that happens
/// to the file later disturbs the run; what a line means is not its matter.
class EquationFile
{
public:
    /// Reads the file. Fails with a French sentence when that does not work.
    static Outcome<EquationFile> Open(const QString& path);

    /// Whether what stands at a path is no exercise, however it is read: it is no file,
    /// or above the limit.
    static bool IsNone(const QString& path);

    /// The number of equations and whether there are progress data.
    FirstPass Pass() const { return CountEquations(m_bytes); }

    /// Moves to the next line that is neither empty nor a comment; false, and no
    /// line any more, at the end of the file.
    bool NextLine();

    /// The line reached, blanks and all; empty before the first and at the end.
    QString Line() const { return m_line; }

    /// The number of that line in the file, from 1, comments and empty lines
    /// counted; 0 before the first, the number of lines at the end.
    int LineNumber() const { return m_lineNumber; }

private:
    explicit EquationFile(QByteArray bytes);

    QByteArray m_bytes; ///< never changed: the walker and copies of it point into it
    LineWalker m_walker;
    QString m_line;
    int m_lineNumber = 0;
};

} // namespace stoikal
