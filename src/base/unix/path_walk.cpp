#include "base/unix/path_walk.h"

#include "base/system_reason.h"

#include <QFile>
#include <QList>
#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

namespace stoikal {
namespace {

/// A folder that only serves to name what is in it; a share is mounted by it.
constexpr int kOpenFolder = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

QList<QByteArray> PartsOf(const QByteArray& path)
{
    QList<QByteArray> parts = path.split('/');
    parts.removeAll(QByteArray());
    return parts;
}

struct LinkTarget {
    QByteArray path;
    struct stat status {
    };
};

/// The link of that name in a folder; none for anything else.
std::optional<LinkTarget> ReadLink(int folder, const QByteArray& name)
{
    // Held open, so that what is said of its owner is said of what is read.
    const Descriptor link(::openat(folder, name.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    LinkTarget target;
    std::array<char, PATH_MAX> text{};
    if (!link.IsOpen() || ::fstat(link.Number(), &target.status) != 0 || !S_ISLNK(target.status.st_mode))
        return std::nullopt;
    const ssize_t length = ::readlinkat(link.Number(), "", text.data(), text.size());
    if (length <= 0)
        return std::nullopt;
    target.path = QByteArray(text.data(), length);
    return target;
}

class Walker
{
public:
    Walker(Links links, IfMissing folders)
        : m_links(links)
        , m_folders(folders)
    {
    }

    /// Why it cannot begin or go on; nothing when it did.
    using Stop = std::optional<Failure>;

    Stop Begin(const QByteArray& path)
    {
        if (m_folder.IsOpen() && !path.startsWith('/'))
            return std::nullopt;
        m_folder = Descriptor(
            Uninterrupted([&path] { return ::open(path.startsWith('/') ? "/" : ".", kOpenFolder); }));
        return m_folder.IsOpen() ? Stop() : SystemFailure(errno);
    }

    /// Enters the folders of these names, one in the other.
    Stop Enter(const QList<QByteArray>& parts)
    {
        for (const QByteArray& part : parts) {
            if (const Stop stop = EnterOne(part))
                return stop;
        }
        return std::nullopt;
    }

    /// The target of the link of that name, if it is one that may be followed.
    Outcome<QByteArray> Follow(const QByteArray& name)
    {
        constexpr int kMostLinks = 40;
        const auto target = ReadLink(m_folder.Number(), name);
        if (!target)
            return SystemFailure(ENOTDIR);
        if (!MayFollow(*target))
            return Failure{QStringLiteral("un des dossiers du chemin est un lien d'un autre compte")};
        if (++m_followed > kMostLinks)
            return SystemFailure(ELOOP);
        return target->path;
    }

    bool IsLink(const QByteArray& name) const
    {
        struct stat status {
        };
        return ::fstatat(m_folder.Number(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISLNK(status.st_mode);
    }

    Descriptor TakeFolder() { return std::move(m_folder); }

private:
    Stop EnterOne(const QByteArray& part)
    {
        Descriptor next = Open(part);
        if (!next.IsOpen() && errno == ENOENT && m_folders == IfMissing::Make
            && (::mkdirat(m_folder.Number(), part.constData(), S_IRWXU | S_IRWXG | S_IRWXO) == 0
                || errno == EEXIST))
            next = Open(part);
        if (next.IsOpen()) {
            m_folder = std::move(next);
            return std::nullopt;
        }
        // A link is no folder; how the system says so is its own affair.
        if (errno != ENOTDIR && errno != ELOOP)
            return SystemFailure(errno);
        const auto target = Follow(part);
        if (!target)
            return target.Why();
        if (const Stop stop = Begin(*target))
            return stop;
        return Enter(PartsOf(*target));
    }

    Descriptor Open(const QByteArray& part) const
    {
        return Descriptor(
            Uninterrupted([&] { return ::openat(m_folder.Number(), part.constData(), kOpenFolder); }));
    }

    bool MayFollow(const LinkTarget& link) const
    {
        if (m_links == Links::Followed)
            return true;
        struct stat folder {
        };
        const uid_t owner = link.status.st_uid;
        return owner == 0 || owner == ::geteuid()
            || (::fstat(m_folder.Number(), &folder) == 0 && owner == folder.st_uid
                && (folder.st_mode & (S_IWGRP | S_IWOTH)) == 0);
    }

    Links m_links;
    IfMissing m_folders;
    Descriptor m_folder;
    int m_followed = 0;
};

} // namespace

Failure SystemFailure(int error)
{
    return {FrenchReason(error), error == ENOENT};
}

Outcome<PathEnd> WalkTo(const QString& path, Links links, IfMissing folders)
{
    Walker walker(links, folders);
    QByteArray left = QFile::encodeName(path);
    if (left.isEmpty() || left.contains('\0'))
        return SystemFailure(ENOENT);
    for (;;) {
        if (const auto stop = walker.Begin(left))
            return *stop;
        QList<QByteArray> parts = PartsOf(left);
        if (parts.isEmpty() || parts.last() == "." || parts.last() == "..")
            return SystemFailure(EISDIR);
        const QByteArray name = parts.takeLast();
        if (const auto stop = walker.Enter(parts))
            return *stop;
        if (links == Links::Refused || !walker.IsLink(name))
            return PathEnd{walker.TakeFolder(), name};
        const auto target = walker.Follow(name);
        if (!target)
            return target.Why();
        left = *target;
    }
}

} // namespace stoikal
