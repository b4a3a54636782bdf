#pragma once

#include "support/ordinary_user.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <vector>

namespace stoikal {

/// The two accounts of a test that runs as the superuser: who plants something,
/// and who then starts the program. Any other account that runs the tests is
/// both of them, which is enough for all that does not ask who owns a link.
constexpr uid_t kPlanter = 65534;
constexpr uid_t kVictim = 65533;

inline bool HasTwoAccounts()
{
    return geteuid() == 0;
}

/// A folder that every account may write, with what others planted there and the
/// victim's own folder beside it.
class SharedFolder
{
public:
    SharedFolder()
        : m_folder(EnterableBase() + QStringLiteral("/stoikal-XXXXXX"))
        , shared(m_folder.filePath(QStringLiteral("partage")))
        , home(m_folder.filePath(QStringLiteral("victime")))
    {
        if (!QDir().mkdir(shared) || !QDir().mkdir(home) || ::chmod(qPrintable(m_folder.path()), 0755) != 0
            || ::chmod(qPrintable(shared), 0777) != 0)
            throw std::runtime_error("cannot make the shared folder");
        GiveTo(kVictim, home);
    }

    QString Path(const QString& name) const { return shared + QLatin1Char('/') + name; }

    /// A file of the victim's that nobody else may read or write.
    QString PrivateFile(const QByteArray& bytes) const
    {
        const QString path = home + QStringLiteral("/.profile");
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            throw std::runtime_error("cannot write the private file");
        file.close();
        GiveTo(kVictim, path);
        ::chmod(qPrintable(path), 0600);
        return path;
    }

    /// The rights of a file, of a link's target too.
    static mode_t RightsOf(const QString& path)
    {
        struct stat status {
        };
        return ::stat(qPrintable(path), &status) == 0 ? status.st_mode & 07777U : 0;
    }

    void PlantLink(const QString& target, const QString& name) const
    {
        Require(::symlink(qPrintable(target), qPrintable(Path(name))) == 0);
        GiveTo(kPlanter, Path(name));
    }

    /// A second name of a file. The system may refuse it to an account to which
    /// the file does not belong; one account is both here.
    void PlantSecondName(const QString& target, const QString& name) const
    {
        Require(::link(qPrintable(target), qPrintable(Path(name))) == 0);
    }

    enum class Kind { Folder, Pipe, Socket, Device };

    /// All kinds that this account can make.
    static std::vector<Kind> Kinds()
    {
        std::vector<Kind> kinds{Kind::Folder, Kind::Pipe, Kind::Socket};
        if (HasTwoAccounts())
            kinds.push_back(Kind::Device);
        return kinds;
    }

    void Plant(Kind kind, const QString& name) const
    {
        const QByteArray path = QFile::encodeName(Path(name));
        switch (kind) {
        case Kind::Folder:
            Require(::mkdir(path.constData(), 0777) == 0);
            break;
        case Kind::Pipe:
            Require(::mkfifo(path.constData(), 0666) == 0);
            break;
        case Kind::Socket:
            PlantSocket(path);
            break;
        case Kind::Device:
            // The device that takes all bytes.
            Require(::mknod(path.constData(), S_IFCHR | 0666, makedev(1, 3)) == 0);
            break;
        }
        Require(::chmod(path.constData(), 0777) == 0);
        GiveTo(kPlanter, Path(name));
    }

private:
    static void Require(bool isDone)
    {
        if (!isDone)
            throw std::runtime_error("cannot plant");
    }

    static void GiveTo(uid_t account, const QString& path)
    {
        if (HasTwoAccounts())
            Require(::lchown(qPrintable(path), account, account) == 0);
    }

    static void PlantSocket(const QByteArray& path)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        Require(path.size() < static_cast<qsizetype>(sizeof address.sun_path));
        std::copy(path.begin(), path.end(), address.sun_path);
        const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the system's own way
        Require(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0);
        ::close(descriptor);
    }

    /// The temporary folder may be closed to other accounts.
    static QString EnterableBase()
    {
        const AsOrdinaryUser user(kVictim);
        for (const QString& base : {QDir::tempPath(), QStringLiteral("/tmp"), QStringLiteral("/var/tmp"),
                                    QStringLiteral("/dev/shm")}) {
            if (::access(qPrintable(base), X_OK) == 0)
                return base;
        }
        throw std::runtime_error("no folder in which two accounts meet");
    }

    QTemporaryDir m_folder;

public:
    const QString shared;
    const QString home;
};

} // namespace stoikal
