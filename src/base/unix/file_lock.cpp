#include "base/file_lock.h"

#include "base/file_access.h"
#include "base/system_reason.h"
#include "base/unix/lock_kinds.h"

#include <QDeadlineTimer>
#include <QThread>
#include <algorithm>
#include <cerrno>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace stoikal {
namespace {

bool IsSameFile(const OpenFile& held, const OpenFile& named)
{
    struct stat first {
    };
    struct stat second {
    };
    return ::fstat(held.Descriptor(), &first) == 0 && ::fstat(named.Descriptor(), &second) == 0
        && first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

QString ClaimPath(const QString& lockPath)
{
    return lockPath + QStringLiteral(".own");
}

} // namespace

FileLock::FileLock(const QString& path, int waitMs)
    : m_path(path + QStringLiteral(".lock"))
{
    constexpr unsigned long kPauseMs = 10;
    constexpr int kLongestMs = 5000;
    QDeadlineTimer deadline(waitMs);
    const QDeadlineTimer last(waitMs == 0 ? 0 : std::max(waitMs, kLongestMs));
    std::int32_t holder = 0;
    // Who does not wait wants to know of another at work, who may be so for hours.
    const bool isLongHeld = waitMs == 0;
    // A folder where no lock can stand will not get one by waiting.
    while (TryOnce(isLongHeld) == Try::Busy && !deadline.hasExpired() && !last.hasExpired()) {
        // A queue that moves on is not a program that hangs: each has its own time.
        if (m_holder != holder) {
            holder = m_holder;
            deadline.setRemainingTime(waitMs);
        }
        QThread::msleep(kPauseMs);
    }
}

FileLock::Try FileLock::TryOnce(bool isLongHeld)
{
    auto opened = OpenForLocking(m_path);
    m_hindrance = opened ? QString() : opened.Reason();
    if (!opened)
        return Try::Impossible;
    m_file = std::move(*opened);
    m_kind = Kind::Kernel;
    Locking locking = LockWhole(m_file.Descriptor());
    if (locking == Locking::Unknown)
        locking = LockRange(m_file.Descriptor());
    if (locking == Locking::Unknown)
        return TryClaim(isLongHeld);
    if (locking != Locking::Held)
        return Refused(locking, errno);
    // The holder before us takes the file away: a lock on a file that has lost
    // its name protects nothing.
    const auto named = OpenForReading(m_path, Links::Refused);
    if (!named || !IsSameFile(m_file, *named))
        return Refused(Locking::Busy, 0);
    // Told to those who wait; without it they only wait less.
    const std::int32_t self = ::getpid();
    (void)!::pwrite(m_file.Descriptor(), &self, sizeof self, 0);
    return Try::Held;
}

FileLock::Try FileLock::TryClaim(bool isLongHeld)
{
    const Locking locking = MakeClaim(ClaimPath(m_path), m_file.Descriptor(), isLongHeld);
    m_kind = locking == Locking::Unknown ? Kind::None : Kind::Claim;
    if (locking == Locking::Busy || locking == Locking::Refused)
        return Refused(locking, errno);
    return Try::Held;
}

/// What a try says that did not bring the lock.
FileLock::Try FileLock::Refused(Locking locking, int error)
{
    if (::pread(m_file.Descriptor(), &m_holder, sizeof m_holder, 0) != sizeof m_holder)
        m_holder = 0;
    m_file.Close();
    if (locking == Locking::Busy)
        return Try::Busy;
    m_hindrance = FrenchReason(error);
    return Try::Impossible;
}

QString FileLock::Reason() const
{
    if (IsHeld())
        return {};
    return m_hindrance.isEmpty() ? QStringLiteral("un autre programme l'écrit en ce moment") : m_hindrance;
}

FileLock::~FileLock()
{
    if (!IsHeld())
        return;
    try {
        RemoveFile(m_path);
        if (m_kind == Kind::Claim)
            RemoveFile(ClaimPath(m_path));
    } catch (const std::bad_alloc&) {
        // What stays there is swept at a later start; it must not end the program now.
    }
}

} // namespace stoikal
