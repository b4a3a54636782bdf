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

Failure SecondName()
{
    return {QStringLiteral("ce fichier porte un second nom dans un autre dossier")};
}

Outcome<OpenFile> Opened(Descriptor file, const PathEnd& end, bool isNew)
{
    return OpenFile(file.Release(), QFile::decodeName(end.name), isNew);
}

/// Lets all who may write into the folder write a file just made in it.
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

/// What this account alone may write is not another's.
std::optional<Failure> RefusedOwner(const Descriptor& file, const Descriptor& folder, Sharing sharing)
{
    if (sharing == Sharing::FolderReads || sharing == Sharing::Private)
        return ForeignOwner(file, folder);
    return std::nullopt;
}

Outcome<OpenFile> OpenForWriting(const QString& path, int flags, IfMissing ifMissing,
                                 std::optional<Sharing> sharing)
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
                return SecondName();
            if (const auto refused = sharing ? RefusedOwner(*file, end->folder, *sharing) : std::nullopt)
                return *refused;
            return Opened(std::move(*file), *end, false);
        }
        if (!file.IsMissing() && i < kTriesOfLock && !sharing && IsLockJustMade(*end)) {
            QThread::msleep(kPauseMs);
            continue;
        }
        if (!file.IsMissing() || ifMissing == IfMissing::Refuse)
            return file.Why();
        const mode_t rights = sharing ? LargestRights(*sharing) : kEverybody;
        Descriptor made(Uninterrupted([&] {
            return ::openat(end->folder.Number(), end->name.constData(), flags | kAlways | O_CREAT | O_EXCL,
                            rights);
        }));
        if (made.IsOpen()) {
            if (sharing)
                SetRightsOfNew(made.Number(), end->folder, *sharing);
            else
                (void)::fchmod(made.Number(), kEverybody); // The mask took some away.
            // A lock is not to outlive anything.
            if (sharing && !NameReachesTheDisk(end->folder, made.Number()))
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

std::optional<Failure> ForeignOwner(const Descriptor& file, const Descriptor& folder)
{
    struct stat status {
    };
    struct stat around {
    };
    if (::fstat(file.Number(), &status) != 0 || ::fstat(folder.Number(), &around) != 0)
        return SystemFailure(errno);
    const bool mayOthersPutItThere = (around.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    const uid_t owner = status.st_uid;
    // A share that knows one account only says that all is that one's, the folder too.
    if (!mayOthersPutItThere || owner == ::geteuid() || owner == 0 || owner == around.st_uid)
        return std::nullopt;
    return Failure{QStringLiteral("ce fichier appartient à un autre compte")};
}

mode_t LargestRights(Sharing sharing)
{
    if (sharing == Sharing::Private)
        return S_IRUSR | S_IWUSR;
    if (sharing == Sharing::FolderReads)
        return S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
    return kEverybody;
}

void SetRightsOfNew(int file, const Descriptor& folder, Sharing sharing)
{
    if (sharing == Sharing::Folder)
        ShareWithFolder(file, folder);
    else if (sharing != Sharing::Account)
        (void)::fchmod(file, LargestRights(sharing)); // The mask may have taken some away.
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

Outcome<OpenFile> OpenOwnForReading(const QString& path)
{
    auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    if (!end)
        return end.Why();
    auto file = OpenThere(*end, O_RDONLY);
    if (!file)
        return file.Why();
    if (const auto foreign = ForeignOwner(*file, end->folder))
        return *foreign;
    return Opened(std::move(*file), *end, false);
}

Outcome<OpenFile> OpenForAppending(const QString& path, IfMissing ifMissing, Sharing sharing)
{
    return OpenForWriting(path, O_WRONLY | O_APPEND, ifMissing, sharing);
}

Outcome<OpenFile> OpenForRewriting(const QString& path, IfMissing ifMissing)
{
    auto file = OpenForWriting(path, O_RDWR, ifMissing, Sharing::Folder);
    struct stat status {
    };
    // What is written over would be lost under the other name, whoever it belongs to.
    if (file && (::fstat(file->Descriptor(), &status) != 0 || status.st_nlink > 1))
        return SecondName();
    return file;
}

Outcome<OpenFile> OpenForLocking(const QString& path)
{
    return OpenForWriting(path, O_RDWR, IfMissing::Make, std::nullopt);
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

bool EmptyFile(const QString& path)
{
    if (RemoveFile(path))
        return true;
    auto file = OpenForAppending(path, IfMissing::Refuse, Sharing::Folder);
    return file && file->CutTo(0) && file->ReachesTheDisk();
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
