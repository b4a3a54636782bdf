#include "base/password_file.h"

#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

namespace stoikal {
namespace {

bool HasItsName(const QString& path)
{
    return QFileInfo(path).fileName().compare(PasswordFileName(), Qt::CaseInsensitive) == 0;
}

/// One file can have several names without a link being seen.
bool IsSameFile(const QString& one, const QString& other)
{
    struct stat first {
    };
    struct stat second {
    };
    return ::stat(QFile::encodeName(one).constData(), &first) == 0
        && ::stat(QFile::encodeName(other).constData(), &second) == 0 && first.st_dev == second.st_dev
        && first.st_ino == second.st_ino;
}

} // namespace

QString PasswordFileName()
{
    return QStringLiteral("MotDePasse.txt");
}

bool IsPasswordFile(const QString& path, const QString& commonFile)
{
    return HasItsName(path) || HasItsName(QFileInfo(path).canonicalFilePath())
        || (!commonFile.isEmpty() && IsSameFile(path, commonFile));
}

QString PasswordFileRefusal()
{
    return QStringLiteral("Ce fichier est réservé à l'enseignant et ne peut pas être choisi.\n\n"
                          "Choisissez un autre fichier.");
}

} // namespace stoikal
