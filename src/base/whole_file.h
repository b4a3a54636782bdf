#pragma once

#include "base/outcome.h"

#include <QByteArray>
#include <QString>
#include <functional>

class QFileDevice;

namespace stoikal {

/// Puts bytes in the place of a file, which is made when missing (its folder is
/// not): whatever happens on the way, a power cut or a full disk, the file is
/// afterwards the old one or the new one, whole. `prepare` sees the new file
/// while it is still without its name, for its rights.
/// \returns the path; fails with the system's reason, the old file then stands.
Outcome<QString> ReplaceFile(const QString& path, const QByteArray& bytes,
                             const std::function<void(QFileDevice&)>& prepare = {});

} // namespace stoikal
