#pragma once

#include "support/reachable_folder.h"

#include <QDir>
#include <QFile>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <grp.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace stoikal {

/// The accounts of a school, all of one group; any numbers do.
constexpr uid_t kTeacher = 65530;
constexpr uid_t kPupilA = 65531;
constexpr uid_t kPupilB = 65532;
constexpr gid_t kClass = 65530;

/// Another account of the group while this lives. Only the superuser becomes one.
class AsAccount
{
public:
    explicit AsAccount(uid_t account)
        : m_groups(static_cast<std::size_t>(::getgroups(0, nullptr)))
    {
        const std::array<gid_t, 1> groups{kClass};
        if (::getgroups(static_cast<int>(m_groups.size()), m_groups.data()) < 0
            || ::setgroups(groups.size(), groups.data()) != 0 || ::setresgid(kClass, kClass, 0) != 0
            || ::setresuid(account, account, 0) != 0)
            throw std::runtime_error("cannot become another account");
    }
    ~AsAccount()
    {
        if (::setresuid(0, 0, 0) == 0 && ::setresgid(0, 0, 0) == 0
            && ::setgroups(m_groups.size(), m_groups.data()) == 0)
            ::prctl(PR_SET_DUMPABLE, 1); // The change took it away, and the leak checker needs it.
    }
    AsAccount(const AsAccount&) = delete;
    AsAccount& operator=(const AsAccount&) = delete;

private:
    std::vector<gid_t> m_groups;
};

/// A mask of new files while this lives.
class WithMask
{
public:
    explicit WithMask(mode_t mask)
        : m_before(::umask(mask))
    {
    }
    ~WithMask() { ::umask(m_before); }
    WithMask(const WithMask&) = delete;
    WithMask& operator=(const WithMask&) = delete;

private:
    mode_t m_before;
};

/// The shared folder of a school, with the rights that docs/security.md gives it:
///
///     if (!school.IsPlayable())
///         GTEST_SKIP() << School::WhyNot();
class School
{
public:
    /// `rights` are those of the folder, its owner the teacher or another.
    explicit School(mode_t rights, uid_t owner = kTeacher)
        : shared(m_folder.filePath(QStringLiteral("partage")))
    {
        if (!IsPlayable())
            return;
        if (!QDir().mkdir(shared) || ::chmod(qPrintable(m_folder.path()), 0755) != 0
            || ::chown(qPrintable(shared), owner, kClass) != 0 || ::chmod(qPrintable(shared), rights) != 0)
            throw std::runtime_error("cannot make the folder of the school");
    }

    bool IsPlayable() const { return ::geteuid() == 0 && m_folder.IsReachable(); }
    static const char* WhyNot() { return "only the superuser plays several accounts"; }

    QString Path(const QString& name) const { return shared + QLatin1Char('/') + name; }

    struct stat StatusOf(const QString& name) const
    {
        struct stat status {
        };
        if (::stat(QFile::encodeName(Path(name)).constData(), &status) != 0)
            throw std::runtime_error("not there: " + name.toStdString());
        return status;
    }
    uid_t OwnerOf(const QString& name) const { return StatusOf(name).st_uid; }
    mode_t RightsOf(const QString& name) const { return StatusOf(name).st_mode & 07777U; }

    /// Whether an account may open a file with these flags of the system.
    bool MayOpen(uid_t account, const QString& name, int flags) const
    {
        const AsAccount as(account);
        const int file = ::open(QFile::encodeName(Path(name)).constData(), flags);
        if (file >= 0)
            ::close(file);
        return file >= 0;
    }

    /// Whether an account takes a file away; it does where it may.
    bool TakesAway(uid_t account, const QString& name) const
    {
        const AsAccount as(account);
        return ::unlink(QFile::encodeName(Path(name)).constData()) == 0;
    }

    /// Whether an account gives a file another name, or a file of its own that one's.
    bool Renames(uid_t account, const QString& name) const
    {
        const AsAccount as(account);
        const QByteArray path = QFile::encodeName(Path(name));
        const QByteArray own = QFile::encodeName(Path(QStringLiteral("a_moi.txt")));
        const int made = ::open(own.constData(), O_WRONLY | O_CREAT | O_EXCL, 0600);
        if (made < 0)
            return false;
        ::close(made);
        const bool isDone = ::rename(path.constData(), (path + ".ailleurs").constData()) == 0
            || ::rename(own.constData(), path.constData()) == 0;
        ::unlink(own.constData());
        return isDone;
    }

private:
    ReachableFolder m_folder;

public:
    const QString shared;
};

} // namespace stoikal
