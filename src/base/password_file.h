#pragma once

#include <QString>

namespace stoikal {

/// The name of the file that holds the one password of a class.
QString PasswordFileName();

/// Whether a path leads to a file of that kind: by its name in any spelling and in
/// any folder, by a link to such a file, or as the very file given, whatever it is
/// called. `commonFile` is the one in force, empty where there is none.
bool IsPasswordFile(const QString& path, const QString& commonFile);

/// Why such a file is not taken, in French sentences.
QString PasswordFileRefusal();

} // namespace stoikal
