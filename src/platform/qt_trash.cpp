#include "platform/qt_platform.h"

#include "base/file_access.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace stoikal {
namespace {

/// The note beside the trash's files that says where a file came from, as the
/// freedesktop trash has it: files/a.Equ, info/a.Equ.trashinfo.
QString NoteOf(const QString& pathInTrash)
{
    const QFileInfo file(pathInTrash);
    return QStringLiteral("%1/../info/%2.trashinfo").arg(file.absolutePath(), file.fileName());
}

} // namespace

bool QtTrash::Move(const QString& path)
{
    // Where the user's data folder is missing, Qt 6.4 moves the file into the
    // current folder and reports success.
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (home.isEmpty() || !MakeFolders(home))
        return false;
    QString pathInTrash;
    if (!QFile::moveToTrash(path, &pathInTrash))
        return false;
    if (!pathInTrash.isEmpty() && QFileInfo::exists(NoteOf(pathInTrash)))
        return true;
    // A file that nothing can bring back is not in the trash: it comes back now.
    if (!pathInTrash.isEmpty())
        QFile::rename(pathInTrash, path);
    return false;
}

} // namespace stoikal
