#pragma once

#include "base/outcome.h"
#include "editor/loaded_version.h"
#include "editor/work_equation.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace stoikal {

/// An equation file as the editor takes it in.
struct LoadedFile {
    QString head; ///< the comment lines before the first equation, parted by "\n"
    std::vector<WorkEquation> equations;
    LoadedVersion version; ///< empty where only bytes were read
};

/// Reads the bytes of an equation file. A line is a comment when an apostrophe
/// is its very first character: before the first equation it belongs to the
/// head, later to the next equation, the last of several remaining. Every other
/// line that holds more than blanks is an equation. Coefficients are taken as
/// texts, and only where there are some; a state may be any text.
/// FatalFault, with `path` and the line as its place: a line that cannot be cut,
/// and more data than species.
LoadedFile ReadEquations(const QByteArray& bytes, const QString& path);

/// Reads an equation file; fails with a French sentence when that does not work.
Outcome<LoadedFile> LoadFileIntoEditor(const QString& path);

/// The bytes of an equation file: the head, each line behind an apostrophe, one
/// at least; then each equation behind its comment. Data are written on a
/// progress file only. Checks nothing.
QByteArray EquationFileBytes(const QString& head, const std::vector<WorkEquation>& equations, FileType type);

/// The name of an equation file: "Serie" and ".Equ" or ".Avt".
QString EquationFileName(const QString& name, FileType type);

/// The names of a folder that differ from this one in case at most.
QStringList SameNames(const QString& folder, const QString& fileName);

/// Writes a file of that name into the folder, whole or not at all, and takes
/// other spellings of its name away: two never stand beside each other. Returns
/// the path; fails with a French sentence.
Outcome<QString> WriteEquationFile(const QString& folder, const QString& fileName, const QByteArray& bytes);

} // namespace stoikal
