#include "base/unix/file_opening.h"
#include "base/unix/lock_kinds.h"
#include "base/unix/temporary_name.h"
#include "base/whole_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

namespace stoikal {
namespace {

/// A file that grows beside another under a name of its own, and takes that one's
/// place when it is whole. One that does not is taken away.
class GrowingFile
{
public:
    GrowingFile(const PathEnd& end, mode_t rights)
        : m_end(end)
    {
        constexpr int kMostTries = 100;
        for (int i = 0; i < kMostTries && !m_file.IsOpen(); ++i) {
            m_name = end.name + '.' + TemporaryLetters();
            const auto make = [&] {
                return ::openat(end.folder.Number(), m_name.constData(),
                                O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights);
            };
            m_file = OpenFile(Uninterrupted(make), {}, true);
            if (!m_file.IsOpen() && errno != EEXIST)
                break;
        }
        m_error = errno;
        // While it grows it is nobody's litter; a file system without locks lets time tell.
        if (m_file.IsOpen())
            (void)LockWhole(m_file.Descriptor());
    }
    ~GrowingFile()
    {
        if (m_file.IsOpen())
            ::unlinkat(m_end.folder.Number(), m_name.constData(), 0);
    }
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;

    OpenFile& File() { return m_file; }
    int Error() const { return m_error; }

    /// Gives it the name of the other, for good; false when that fails.
    bool TakePlace()
    {
        // What has been put there meanwhile goes; a link itself, not what it leads to.
        if (::renameat(m_end.folder.Number(), m_name.constData(), m_end.folder.Number(),
                       m_end.name.constData())
            != 0)
            return false;
        const OpenFile placed = std::move(m_file);
        return NameReachesTheDisk(m_end.folder, placed.Descriptor());
    }

private:
    const PathEnd& m_end;
    QByteArray m_name;
    OpenFile m_file;
    int m_error = 0;
};

bool IsFolderOurs(const PathEnd& end)
{
    struct stat status {
    };
    return ::fstat(end.folder.Number(), &status) == 0 && status.st_uid == ::geteuid();
}

/// The rights that the file that stands there leaves to the new one; none where there
/// is none.
Outcome<std::optional<mode_t>> RightsOfOld(const PathEnd& end, Sharing sharing)
{
    // Who may not write it may not put another in its place; but what one account alone
    // writes is for the owner of the folder to take over.
    const bool takesOver = sharing == Sharing::FolderReads && IsFolderOurs(end);
    const auto old = OpenThere(end, takesOver ? O_RDONLY : O_WRONLY);
    if (!old && old.IsMissing())
        return std::optional<mode_t>();
    struct stat status {
    };
    if (!old)
        return old.Why();
    if (::fstat(old->Number(), &status) != 0)
        return SystemFailure(errno);
    if (const auto foreign = sharing == Sharing::Private ? ForeignOwner(*old, end.folder) : std::nullopt)
        return *foreign;
    return std::optional<mode_t>(status.st_mode & (LargestRights(sharing) | S_IXUSR | S_IXGRP | S_IXOTH));
}

} // namespace

Replacing TryToReplace(const QString& path, const QByteArray& bytes, Sharing sharing)
{
    const auto end = WalkTo(path, Links::Refused, IfMissing::Refuse);
    if (!end)
        return {end.Why()};
    const auto rights = RightsOfOld(*end, sharing);
    if (!rights)
        return {rights.Why()};
    // What only some may read is at no moment readable by others.
    GrowingFile growing(*end, *rights ? S_IRUSR | S_IWUSR : LargestRights(sharing));
    OpenFile& file = growing.File();
    if (!file.IsOpen())
        return {SystemFailure(growing.Error())};
    if (*rights)
        (void)::fchmod(file.Descriptor(), **rights);
    else
        SetRightsOfNew(file.Descriptor(), end->folder, sharing);
    if (!file.WriteAll(bytes) || !file.ReachesTheDisk())
        return {file.WriteFailure()};
    if (growing.TakePlace())
        return {};
    const int error = errno;
    return {SystemFailure(error), file.IsOpen() && (error == EPERM || error == EACCES)};
}

Outcome<QString> ReplaceFile(const QString& path, const QByteArray& bytes, Sharing sharing)
{
    const Replacing replacing = TryToReplace(path, bytes, sharing);
    if (replacing.failure)
        return *replacing.failure;
    return path;
}

} // namespace stoikal
