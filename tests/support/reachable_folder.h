#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {

/// Whether each account may step down to a folder, from the root on.
inline bool IsOpenToAllAccounts(const QString& folder)
{
    struct stat status {
    };
    if (::stat(QFile::encodeName(folder).constData(), &status) != 0 || (status.st_mode & S_IXOTH) == 0)
        return false;
    const QString above = QDir(folder).filePath(QStringLiteral(".."));
    return QDir(folder).isRoot() || IsOpenToAllAccounts(QDir::cleanPath(above));
}

/// A temporary folder for a test that goes on as another account. The usual place may
/// be closed to that one (a TMPDIR of one's own): then one of those that the system
/// has for all. Where there is none, the test is left out:
///
///     if (!folder.IsReachable())
///         GTEST_SKIP() << ReachableFolder::WhyNot();
class ReachableFolder : public QTemporaryDir
{
public:
    ReachableFolder()
        : QTemporaryDir(Place() + QStringLiteral("/stoikal_test-XXXXXX"))
    {
    }

    /// Whether another account can get here, once the folder itself lets it in.
    bool IsReachable() const { return isValid() && IsGoodPlace(QFileInfo(path()).absolutePath()); }

    static const char* WhyNot() { return "no temporary folder is open to another account"; }

private:
    /// Only the superuser becomes another account.
    static bool IsGoodPlace(const QString& place)
    {
        return ::geteuid() != 0
            || (::access(QFile::encodeName(place).constData(), W_OK) == 0 && IsOpenToAllAccounts(place));
    }

    static QString Place()
    {
        const QStringList places{QDir::tempPath(), QStringLiteral("/tmp"), QStringLiteral("/var/tmp")};
        for (const QString& place : places) {
            if (IsGoodPlace(place))
                return place;
        }
        return places.first();
    }
};

} // namespace stoikal
