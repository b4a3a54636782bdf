#include "platform/qt_platform.h"

#include "base/file_access.h"
#include "base/file_stamp.h"
#include "platform/trash_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {
namespace {

/// A volume's common trash is safe when nobody can take the folders of others away.
bool IsSafeCommonTrash(const QString& path)
{
    struct stat status {
    };
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && (status.st_mode & S_ISVTX) != 0;
}

/// The folders that a file on another volume than the user's data can go to, the
/// best first.
QList<TrashFolder> TrashOfVolume(const QString& path)
{
    const QString top = QStorageInfo(QFileInfo(path).absolutePath()).rootPath();
    if (top.isEmpty())
        return {};
    const QString below = QDir::cleanPath(top + QStringLiteral("/.Trash"));
    const QString user = QString::number(::getuid());
    QList<TrashFolder> folders;
    if (IsSafeCommonTrash(below))
        folders << TrashFolder::OfVolume(below + QLatin1Char('/') + user, top);
    folders << TrashFolder::OfVolume(below + QLatin1Char('-') + user, top);
    return folders;
}

} // namespace

// The toolkit's own move is not used: without a trash folder it moves the file
// into the current folder and reports success, and its notes bring "100% juste.Equ"
// back under another name.
bool QtTrash::Move(const QString& path)
{
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QDir::isAbsolutePath(home) || !MakeFolders(home))
        return false;
    // Of a link, its own volume counts and not that of what it leads to.
    const FileStamp file = StampOf(path);
    if (!file.exists)
        return false;
    const bool isAtHome = file.device == StampOf(QFileInfo(home).canonicalFilePath()).device;
    const QList<TrashFolder> folders
        = isAtHome ? QList{TrashFolder::OfUser(home + QStringLiteral("/Trash"))} : TrashOfVolume(path);
    for (const TrashFolder& folder : folders) {
        if (folder.Prepare())
            return folder.Receive(path);
    }
    return false;
}

} // namespace stoikal
