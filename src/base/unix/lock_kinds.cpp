#include "base/unix/lock_kinds.h"

#include "base/open_file.h"
#include "base/unix/file_opening.h"
#include "base/unix/temporary_name.h"

#include <QSysInfo>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {
namespace {

constexpr mode_t kEverybody = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

Locking ByError(int error)
{
    switch (error) {
    case EWOULDBLOCK:
    case EACCES: // As the lock on bytes may say it.
        return Locking::Busy;
    case ENOLCK:
    case EOPNOTSUPP:
    case ENOSYS:
    case EINVAL:
        return Locking::Unknown;
    default:
        return Locking::Refused;
    }
}

/// Who made a claim: "machine process".
QByteArray OwnMark()
{
    return QSysInfo::machineHostName().toUtf8() + ' ' + QByteArray::number(::getpid()) + '\n';
}

bool HasEnded(const QByteArray& mark)
{
    const qsizetype blank = mark.lastIndexOf(' ');
    bool isNumber = false;
    const int process = mark.mid(blank + 1).trimmed().toInt(&isNumber);
    return blank > 0 && isNumber && process > 0 && mark.first(blank) == QSysInfo::machineHostName().toUtf8()
        && ::kill(process, 0) != 0 && errno == ESRCH;
}

/// How long ago a file was changed, by the clock of its own file system.
double AgeSeconds(const struct stat& status, int clock)
{
    constexpr double kNanosecond = 1e-9;
    struct stat now {
    };
    (void)::futimens(clock, nullptr);
    if (::fstat(clock, &now) != 0)
        return 0;
    return static_cast<double>(now.st_mtim.tv_sec - status.st_mtim.tv_sec)
        + kNanosecond * static_cast<double>(now.st_mtim.tv_nsec - status.st_mtim.tv_nsec);
}

/// Takes the file away that is open here; another that has come in its place stays.
void RemoveThatOne(const PathEnd& end, const struct stat& status)
{
    const int folder = end.folder.Number();
    const QByteArray aside = end.name + '.' + TemporaryLetters();
    if (::renameat(folder, end.name.constData(), folder, aside.constData()) != 0)
        return;
    struct stat moved {
    };
    if (::fstatat(folder, aside.constData(), &moved, AT_SYMLINK_NOFOLLOW) == 0
        && moved.st_ino == status.st_ino && moved.st_dev == status.st_dev)
        (void)::unlinkat(folder, aside.constData(), 0);
    else
        (void)::renameat(folder, aside.constData(), folder, end.name.constData());
}

/// True when a claim that nobody holds any more has been taken away.
bool RemoveIfLeft(const PathEnd& end, int clock, bool isLongHeld)
{
    constexpr double kMinute = 60;
    constexpr double kDay = 24 * 60 * kMinute;
    constexpr qint64 kLongestMark = 300;
    auto there = OpenThere(end, O_RDONLY);
    if (!there)
        return there.IsMissing();
    struct stat status {
    };
    if (::fstat(there->Number(), &status) != 0)
        return false;
    const OpenFile file(there->Release(), {}, false);
    const auto mark = file.Read(0, kLongestMark);
    const bool isLeft
        = (mark && HasEnded(*mark)) || AgeSeconds(status, clock) > (isLongHeld ? kDay : kMinute);
    if (isLeft)
        RemoveThatOne(end, status);
    return isLeft;
}

} // namespace

Locking LockWhole(int file)
{
    return Uninterrupted([file] { return ::flock(file, LOCK_EX | LOCK_NB); }) == 0 ? Locking::Held
                                                                                   : ByError(errno);
}

Locking LockRange(int file)
{
    struct flock range {
    };
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    return ::fcntl(file, F_OFD_SETLK, &range) == 0 ? Locking::Held : ByError(errno);
}

Locking MakeClaim(const QString& path, int clock, bool isLongHeld)
{
    const auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    if (!end)
        return Locking::Unknown;
    constexpr int kTries = 3;
    for (int i = 0; i < kTries; ++i) {
        const int made = ::openat(end->folder.Number(), end->name.constData(),
                                  O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kEverybody);
        if (made >= 0) {
            OpenFile file(made, {}, true);
            (void)::fchmod(made, kEverybody); // The mask took some away.
            // Without its mark only its age tells that it was left.
            (void)file.WriteAll(OwnMark());
            return Locking::Held;
        }
        if (errno != EEXIST)
            return ByError(errno) == Locking::Unknown || errno == EACCES || errno == EPERM || errno == EROFS
                ? Locking::Unknown
                : Locking::Refused;
        if (!RemoveIfLeft(*end, clock, isLongHeld))
            break;
    }
    return Locking::Busy;
}

} // namespace stoikal
