#include "base/file_access.h"

#include "base/unix/file_opening.h"

#include <QFile>
#include <QThread>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

namespace stoikal {
namespace {

/// Neither a pipe nor a file that another program has leased is waited for.
constexpr int kAlways = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
constexpr mode_t kEverybody = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

/// Nothing for a regular file.
std::optional<Failure> RefusedKind(const struct stat& status)
{
    if (S_ISREG(status.st_mode))
        return std::nullopt;
    if (S_ISDIR(status.st_mode))
        return SystemFailure(EISDIR);
    if (S_ISLNK(status.st_mode))
        return SystemFailure(ELOOP);
    return Failure{QStringLiteral("ce n'est pas un fichier")};
}

bool MayOthersWrite(const Descriptor& folder)
{
    struct stat status {
    };
    return ::fstat(folder.Number(), &status) != 0 || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0
        || (status.st_uid != ::geteuid() && status.st_uid != 0);
}

/// A file of this account that another account gave a name in this folder, so that
/// what is meant for the folder's file would go into it. The system need not hinder
/// that. A file of another's is his to damage.
bool MayBeAnotherFile(const Descriptor& file, const Descriptor& folder)
{
    struct stat status {
    };
    return ::fstat(file.Number(), &status) != 0
        || (status.st_nlink > 1 && status.st_uid == ::geteuid() && MayOthersWrite(folder));
}

Outcome<OpenFile> Opened(Descriptor file, const PathEnd& end, bool isNew)
{
    return OpenFile(file.Release(), QFile::decodeName(end.name), isNew);
}

enum class Rights { AsMask, AsFolder, Everybody };

void SetRights(const Descriptor& made, const Descriptor& folder, Rights rights)
{
    if (rights == Rights::AsFolder)
        ShareWithFolder(made.Number(), folder);
    else if (rights == Rights::Everybody)
        (void)::fchmod(made.Number(), kEverybody); // The mask took some away.
}

/// Whether this account may not open a lock only because another made it this moment
/// and has not opened it to everybody yet.
bool IsLockJustMade(const PathEnd& end)
{
    struct stat status {
    };
    return ::fstatat(end.folder.Number(), end.name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0
        && S_ISREG(status.st_mode) && (status.st_mode & kEverybody) != kEverybody
        && status.st_uid != ::geteuid();
}

Outcome<OpenFile> OpenForWriting(const QString& path, int flags, IfMissing ifMissing, Rights rightsOfNew)
{
    auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    if (!end)
        return end.Why();
    // Another program may make or take away the file between two looks at it.
    constexpr int kMostTries = 100;
    constexpr int kTriesOfLock = 20;
    constexpr unsigned long kPauseMs = 5;
    for (int i = 0; i < kMostTries; ++i) {
        auto file = OpenThere(*end, flags);
        if (file) {
            if (MayBeAnotherFile(*file, end->folder))
                return Failure{QStringLiteral("ce fichier porte un second nom dans un autre dossier")};
            return Opened(std::move(*file), *end, false);
        }
        if (!file.IsMissing() && i < kTriesOfLock && rightsOfNew == Rights::Everybody
            && IsLockJustMade(*end)) {
            QThread::msleep(kPauseMs);
            continue;
        }
        if (!file.IsMissing() || ifMissing == IfMissing::Refuse)
            return file.Why();
        Descriptor made(Uninterrupted([&] {
            return ::openat(end->folder.Number(), end->name.constData(), flags | kAlways | O_CREAT | O_EXCL,
                            kEverybody);
        }));
        if (made.IsOpen()) {
            SetRights(made, end->folder, rightsOfNew);
            // A lock is not to outlive anything.
            if (rightsOfNew != Rights::Everybody && !NameReachesTheDisk(end->folder, made.Number()))
                return SystemFailure(errno);
            return Opened(std::move(made), *end, true);
        }
        if (errno != EEXIST)
            return SystemFailure(errno);
    }
    return SystemFailure(EBUSY);
}

bool RemoveThere(int folder, const char* name, int depth);

bool RemoveContents(int folder, const char* name, int depth)
{
    // Deeper than any folder of ours, and few enough to be held open at once.
    constexpr int kDeepest = 32;
    Descriptor inside(
        Uninterrupted([&] { return ::openat(folder, name, O_RDONLY | O_DIRECTORY | kAlways); }));
    if (!inside.IsOpen() || depth > kDeepest)
        return false;
    const int number = inside.Number();
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::fdopendir(number), &::closedir);
    if (entries == nullptr)
        return false;
    inside.Release();
    bool isEmpty = true;
    while (const dirent* const entry = ::readdir(entries.get())) {
        const QByteArrayView found(&entry->d_name[0]);
        if (found != "." && found != "..")
            isEmpty = RemoveThere(number, &entry->d_name[0], depth + 1) && isEmpty;
    }
    return isEmpty;
}

bool RemoveThere(int folder, const char* name, int depth)
{
    if (::unlinkat(folder, name, 0) == 0 || errno == ENOENT)
        return true;
    return errno == EISDIR && RemoveContents(folder, name, depth)
        && ::unlinkat(folder, name, AT_REMOVEDIR) == 0;
}

} // namespace

Outcome<Descriptor> OpenThere(const PathEnd& end, int flags)
{
    struct stat status {
    };
    // To open a device may do something already.
    if (::fstatat(end.folder.Number(), end.name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return SystemFailure(errno);
    if (const auto refused = RefusedKind(status))
        return *refused;
    Descriptor file(
        Uninterrupted([&] { return ::openat(end.folder.Number(), end.name.constData(), flags | kAlways); }));
    // It may have become another meanwhile.
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0)
        return SystemFailure(errno);
    if (const auto refused = RefusedKind(status))
        return *refused;
    return file;
}

void ShareWithFolder(int file, const Descriptor& folder)
{
    struct stat status {
    };
    struct stat around {
    };
    if (::fstat(file, &status) != 0 || ::fstat(folder.Number(), &around) != 0)
        return;
    mode_t extra = 0;
    if ((around.st_mode & S_IWGRP) != 0)
        extra |= S_IRGRP | S_IWGRP;
    if ((around.st_mode & S_IWOTH) != 0)
        extra |= S_IROTH | S_IWOTH;
    // Where the file system knows no such rights, its own rule holds.
    if (extra != 0)
        (void)::fchmod(file, (status.st_mode & kEverybody) | extra);
}

bool NameReachesTheDisk(const Descriptor& folder, int file)
{
    // The folder at hand serves only to name; an order needs one that may be read.
    const Descriptor readable(Uninterrupted(
        [&folder] { return ::openat(folder.Number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    // Where this account may put files but not look, the file takes its name along.
    const int asked = readable.IsOpen() ? readable.Number() : file;
    // A file system that knows no such order has done what it can.
    return asked < 0 || ::fsync(asked) == 0 || errno == EINVAL || errno == ENOSYS;
}

Outcome<OpenFile> OpenForReading(const QString& path, Links links)
{
    auto end = WalkTo(path, links, IfMissing::Refuse);
    if (!end)
        return end.Why();
    auto file = OpenThere(*end, O_RDONLY);
    if (!file)
        return file.Why();
    return Opened(std::move(*file), *end, false);
}

Outcome<OpenFile> OpenForAppending(const QString& path, IfMissing ifMissing, Sharing sharing)
{
    return OpenForWriting(path, O_WRONLY | O_APPEND, ifMissing,
                          sharing == Sharing::Folder ? Rights::AsFolder : Rights::AsMask);
}

Outcome<OpenFile> OpenForLocking(const QString& path)
{
    return OpenForWriting(path, O_RDWR, IfMissing::Make, Rights::Everybody);
}

bool MakeFolders(const QString& path)
{
    // The folder itself is the last that is walked through on the way to a name in it.
    return WalkTo(path + QStringLiteral("/nom"), Links::Refused, IfMissing::Make).Succeeded();
}

bool MakeNewFolder(const QString& path)
{
    const auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    return end && ::mkdirat(end->folder.Number(), end->name.constData(), S_IRWXU | S_IRWXG | S_IRWXO) == 0;
}

bool RemoveFile(const QString& path)
{
    const auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    return end ? ::unlinkat(end->folder.Number(), end->name.constData(), 0) == 0 || errno == ENOENT
               : end.IsMissing();
}

bool RemoveTree(const QString& path)
{
    const auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    if (!end)
        return end.IsMissing();
    struct stat status {
    };
    if (::fstatat(end->folder.Number(), end->name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT;
    return (S_ISDIR(status.st_mode) || S_ISLNK(status.st_mode))
        && RemoveThere(end->folder.Number(), end->name.constData(), 0);
}

bool RenameFolder(const QString& path, const QString& newName)
{
    const auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    return end
        && ::renameat(end->folder.Number(), end->name.constData(), end->folder.Number(),
                      QFile::encodeName(newName).constData())
        == 0
        && NameReachesTheDisk(end->folder, -1);
}

} // namespace stoikal
