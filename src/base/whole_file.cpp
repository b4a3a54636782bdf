#include "base/whole_file.h"

#include "base/system_reason.h"

#include <QSaveFile>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace stoikal {
namespace {

/// A share may report only now that it has no room; commit() would not look.
/// A file system that knows no such order has done what it can.
bool ReachesTheDisk(const QSaveFile& file)
{
    return ::fdatasync(file.handle()) == 0 || errno == EINVAL || errno == ENOSYS;
}

} // namespace

Outcome<QString> ReplaceFile(const QString& path, const QByteArray& bytes,
                             const std::function<void(QFileDevice&)>& prepare)
{
    QSaveFile file(path);
    // Unbuffered: commit() of a buffered file lets a write pass that the disk took only in part.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return Failure{FrenchReason(file.errorString())};
    if (prepare)
        prepare(file);
    if (file.write(bytes) != bytes.size())
        return Failure{FrenchReason(file.errorString())};
    if (!ReachesTheDisk(file))
        return Failure{FrenchReason(QString::fromLocal8Bit(std::strerror(errno)))};
    if (!file.commit())
        return Failure{FrenchReason(file.errorString())};
    return path;
}

} // namespace stoikal
