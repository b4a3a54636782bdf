#include "platform/trash_folder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {
namespace {

/// So many files of one name find a place.
constexpr int kMostNames = 10000;

/// Makes a folder for the user alone, unless there is one.
bool MakeFolder(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status {
    };
    (void)::mkdir(name.constData(), S_IRWXU);
    return ::stat(name.constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && ::access(name.constData(), W_OK | X_OK) == 0;
}

/// "Serie.Equ", then "Serie 2.Equ", "Serie 3.Equ".
QString NumberedName(const QFileInfo& file, int number)
{
    if (number == 1)
        return file.fileName();
    const QString suffix = file.suffix().isEmpty() ? QString() : QLatin1Char('.') + file.suffix();
    return QStringLiteral("%1 %2").arg(file.completeBaseName(), QString::number(number)) + suffix;
}

bool IsTaken(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// Every byte that a reader could take for something else is written "%E9": a
/// "%" in a name would otherwise come back as another character.
QByteArray NoteText(const QString& origin)
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddThh:mm:ss"));
    return "[Trash Info]\nPath=" + QFile::encodeName(origin).toPercentEncoding("/")
        + "\nDeletionDate=" + now.toLatin1() + '\n';
}

} // namespace

bool TrashFolder::Prepare() const
{
    // On a volume that many write to, a link may lead into another's folder.
    const bool isForeign = !m_top.isEmpty() && QFileInfo(m_folder).isSymLink();
    return !isForeign && MakeFolder(m_folder) && MakeFolder(m_folder + QStringLiteral("/files"))
        && MakeFolder(m_folder + QStringLiteral("/info"));
}

QString TrashFolder::FileIn(const QString& name) const
{
    return QStringLiteral("%1/files/%2").arg(m_folder, name);
}

QString TrashFolder::NoteIn(const QString& name) const
{
    return QStringLiteral("%1/info/%2.trashinfo").arg(m_folder, name);
}

std::optional<QString> TrashFolder::Origin(const QString& path) const
{
    const QFileInfo file(path);
    if (m_top.isEmpty())
        return file.absoluteFilePath();
    // The folder's links are followed, the file's own is not: it is what goes.
    const QString real
        = QFileInfo(file.absolutePath()).canonicalFilePath() + QLatin1Char('/') + file.fileName();
    const QString origin = QDir(m_top).relativeFilePath(real);
    if (origin.startsWith(QLatin1String("../")) || QDir::isAbsolutePath(origin))
        return std::nullopt;
    return origin;
}

bool TrashFolder::Receive(const QString& path) const
{
    const auto origin = Origin(path);
    if (!origin || !IsTaken(path))
        return false;
    const QFileInfo file(path);
    for (int number = 1; number <= kMostNames; ++number) {
        const QString name = NumberedName(file, number);
        if (IsTaken(FileIn(name)) || IsTaken(NoteIn(name)))
            continue;
        // The note is made first and by one program only: it holds the name.
        QFile note(NoteIn(name));
        if (!note.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
            if (IsTaken(NoteIn(name)))
                continue;
            return false;
        }
        const QByteArray text = NoteText(*origin);
        const bool isNoted = note.write(text) == text.size();
        note.close();
        if (isNoted
            && std::rename(QFile::encodeName(path).constData(), QFile::encodeName(FileIn(name)).constData())
                == 0)
            return true;
        note.remove();
        return false;
    }
    return false;
}

} // namespace stoikal
