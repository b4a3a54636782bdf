#pragma once

#include <QFile>

namespace stoikal {

/// Makes a file that opens and cannot be read, as on a disk that fails: the
/// memory of this process, in which nothing lies at the first byte.
inline bool MakeFailingFile(const QString& path)
{
    return QFile::link(QStringLiteral("/proc/self/mem"), path);
}

/// What the system's word for such a failure reads like in French.
inline QString FailingFileReason()
{
    return QStringLiteral("le disque ou le partage ne répond pas");
}

} // namespace stoikal
