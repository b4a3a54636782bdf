#include "editor/loaded_version.h"

#include "editor/equation_file_io.h"
#include "equation_files/equation_file.h"

#include <QCryptographicHash>
#include <QDir>

namespace stoikal {
namespace {

/// A file that cannot be read is not known to be the one that was taken in.
bool StillHolds(const QString& folder, const LoadedVersion& loaded)
{
    const auto bytes = ReadEquationFile(QDir(folder).filePath(loaded.fileName));
    return bytes.Succeeded() && VersionOf(loaded.fileName, *bytes) == loaded;
}

} // namespace

LoadedVersion VersionOf(const QString& fileName, const QByteArray& bytes)
{
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    return {fileName, QString::fromLatin1(digest.toHex())};
}

WritingTarget FindWritingTarget(const QString& folder, const QString& fileName, const LoadedVersion& loaded)
{
    const bool isFree = SameNames(folder, fileName).isEmpty();
    const bool isTheLoadedFile = fileName.compare(loaded.fileName, Qt::CaseInsensitive) == 0;
    if (!isTheLoadedFile)
        return isFree ? WritingTarget::Free : WritingTarget::Existing;
    if (isFree)
        return WritingTarget::DeletedSinceLoaded;
    return StillHolds(folder, loaded) ? WritingTarget::Existing : WritingTarget::ChangedSinceLoaded;
}

} // namespace stoikal
