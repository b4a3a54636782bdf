#include "base/litter.h"

#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/unix/file_opening.h"
#include "base/unix/lock_kinds.h"
#include "base/unix/temporary_name.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {
namespace {

/// A program locks a file that grows as soon as it has made it.
constexpr qint64 kToLockSeconds = 2;
/// Where no lock tells, none takes so long to write.
constexpr qint64 kToWriteSeconds = 600;

/// "HighScore.txt" of "HighScore.txt.lock"; empty for other names.
QString NameBeforeLock(const QString& name)
{
    for (const QString& end : {QStringLiteral(".lock"), QStringLiteral(".lock.own")}) {
        if (name.endsWith(end))
            return name.chopped(end.size());
    }
    return {};
}

bool IsNobodys(int file, qint64 ageSeconds)
{
    const Locking locking = LockWhole(file);
    return (locking == Locking::Held && ageSeconds >= kToLockSeconds)
        || (locking == Locking::Unknown && ageSeconds >= kToWriteSeconds);
}

void SweepGrown(const QString& path)
{
    const auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    if (!end)
        return;
    const auto file = OpenThere(*end, O_RDONLY);
    struct stat status {
    };
    if (!file || ::fstat(file->Number(), &status) != 0)
        return;
    if (IsNobodys(file->Number(), QDateTime::currentSecsSinceEpoch() - status.st_mtim.tv_sec))
        (void)::unlinkat(end->folder.Number(), end->name.constData(), 0);
}

} // namespace

void SweepLitter(const QString& folder, const QStringList& names)
{
    const QDir place(folder);
    const QStringList found
        = place.entryList(QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks, QDir::NoSort);
    for (const QString& name : found) {
        // Others sweep their own; they could plant more than a start has time for.
        if (QFileInfo(place.filePath(name)).ownerId() != ::geteuid())
            continue;
        const QString locked = NameBeforeLock(name);
        const QString grown = NameBeforeTemporaryLetters(name);
        // A lock that is free is taken, and goes when it is given back.
        if (!locked.isEmpty() && QDir::match(names, locked))
            const FileLock taken(place.filePath(locked), 0);
        else if (!grown.isEmpty() && QDir::match(names, grown))
            SweepGrown(place.filePath(name));
    }
}

} // namespace stoikal
