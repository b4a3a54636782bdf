#include "base/shared_file.h"

#include "base/unix/file_opening.h"

#include <QCryptographicHash>
#include <algorithm>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {
namespace {

/// The last line of a copy, which tells that the bytes before it are all there.
QByteArray ChecksumLine(const QByteArray& bytes)
{
    return "\r\n# " + QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex() + "\r\n";
}

/// The bytes that a copy holds; nothing when it is not whole.
std::optional<QByteArray> ContentOf(const OpenFile& copy, qint64 largest)
{
    const qsizetype lineSize = ChecksumLine({}).size();
    const auto bytes = copy.Read(0, largest + lineSize + 1);
    if (!bytes || bytes->size() < lineSize || bytes->size() > largest + lineSize)
        return std::nullopt;
    const QByteArray content = bytes->chopped(lineSize);
    if (bytes->last(lineSize) != ChecksumLine(content))
        return std::nullopt;
    return content;
}

/// Whether who made the copy may write the file as well.
bool MayItsMakerWrite(const OpenFile& file, const OpenFile& copy)
{
    struct stat of {
    };
    struct stat by {
    };
    if (::fstat(file.Descriptor(), &of) != 0 || ::fstat(copy.Descriptor(), &by) != 0)
        return false;
    return by.st_uid == of.st_uid || by.st_uid == ::geteuid() || by.st_uid == 0
        || (of.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

/// Empties a copy for good: what a later cut brings back would undo later writes.
bool Discard(OpenFile& copy, const QString& copyPath)
{
    const bool isEmpty = copy.Size() == 0 || (copy.CutTo(0) && copy.ReachesTheDisk());
    // It stays, empty, where this account may not take it away.
    (void)RemoveFile(copyPath);
    return isEmpty;
}

bool FillCopy(OpenFile& copy, const QByteArray& bytes)
{
    return copy.CutTo(0) && copy.WriteAllAt(0, bytes + ChecksumLine(bytes)) && copy.ReachesTheDisk();
}

/// Writes a file over. What needs more room comes first: where there is none, the old
/// content still stands.
bool WriteOver(OpenFile& file, const QByteArray& bytes)
{
    const qsizetype standing = std::min<qsizetype>(file.Size(), bytes.size());
    return file.WriteAllAt(standing, QByteArrayView(bytes).sliced(standing))
        && file.WriteAllAt(0, QByteArrayView(bytes).first(standing)) && file.CutTo(bytes.size())
        && file.ReachesTheDisk();
}

/// The old content is there again after a write that did not go well.
bool Restore(OpenFile& file, const QByteArray& old)
{
    return file.CutTo(std::min<qint64>(file.Size(), old.size())) && WriteOver(file, old);
}

Outcome<QString> WriteOverWithCopy(const QString& path, const QString& copyPath, const QByteArray& bytes)
{
    auto file = OpenForRewriting(path, IfMissing::Refuse);
    if (!file)
        return file.Why();
    const auto old = file->Read(0, file->Size());
    if (!old)
        return old.Why();
    auto copy = OpenForRewriting(copyPath, IfMissing::Make);
    if (!copy)
        return copy.Why();
    if (!FillCopy(*copy, bytes)) {
        const Failure failure = copy->WriteFailure();
        Discard(*copy, copyPath);
        return failure;
    }
    if (!WriteOver(*file, bytes)) {
        const Failure failure = file->WriteFailure();
        // A torn file keeps its copy, by which it is mended.
        if (Restore(*file, *old))
            Discard(*copy, copyPath);
        return failure;
    }
    // A copy that stays whole would undo the next write after a cut.
    if (!Discard(*copy, copyPath))
        return copy->WriteFailure();
    return path;
}

/// Puts what a copy holds into a file that is not as it says.
std::optional<Failure> Mend(const QString& path, OpenFile& file, const QByteArray& content)
{
    const auto torn = file.Read(0, file.Size());
    if (!torn)
        return torn.Why();
    if (*torn == content)
        return std::nullopt;
    const Replacing replacing = TryToReplace(path, content, Sharing::Folder);
    if (!replacing.isPlaceRefused)
        return replacing.failure;
    if (!WriteOver(file, content))
        return file.WriteFailure();
    return std::nullopt;
}

} // namespace

Outcome<QString> RewriteSharedFile(const QString& path, const QString& copyPath, const QByteArray& bytes)
{
    const Replacing replacing = TryToReplace(path, bytes, Sharing::Folder);
    if (replacing.isPlaceRefused)
        return WriteOverWithCopy(path, copyPath, bytes);
    if (replacing.failure)
        return *replacing.failure;
    return path;
}

Outcome<QString> FinishRewriting(const QString& path, const QString& copyPath, qint64 largest)
{
    auto copy = OpenForRewriting(copyPath, IfMissing::Refuse);
    if (!copy) {
        // What is no file of ours is only in the way.
        if (RemoveFile(copyPath))
            return path;
        return copy.Why();
    }
    if (const auto content = ContentOf(*copy, largest)) {
        auto file = OpenForRewriting(path, IfMissing::Refuse);
        // Without the file there is nothing to mend: it was taken away since.
        if (!file && !file.IsMissing())
            return file.Why();
        const auto failure
            = file && MayItsMakerWrite(*file, *copy) ? Mend(path, *file, *content) : std::nullopt;
        if (failure)
            return *failure;
    }
    if (!Discard(*copy, copyPath))
        return copy->WriteFailure();
    return path;
}

} // namespace stoikal
