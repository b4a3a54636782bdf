#pragma once

#include <QFile>

namespace stoikal {

/// A file that opens and cannot be read, as on a disk that fails: the memory of
/// this process, in which nothing lies at the first byte.
inline QString FailingFile()
{
    return QStringLiteral("/proc/self/mem");
}

/// Makes a link to such a file.
inline bool MakeFailingFile(const QString& path)
{
    return QFile::link(FailingFile(), path);
}

/// What the system's word for such a failure reads like in French.
inline QString FailingFileReason()
{
    return QStringLiteral("le disque ou le partage ne répond pas");
}

} // namespace stoikal
