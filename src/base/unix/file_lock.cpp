#include "base/file_lock.h"

#include "base/file_access.h"
#include "base/system_reason.h"

#include <QDeadlineTimer>
#include <QThread>
#include <cerrno>
#include <sys/file.h>
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

} // namespace

FileLock::FileLock(const QString& path, int waitMs)
    : m_path(path + QStringLiteral(".lock"))
{
    constexpr unsigned long kPauseMs = 10;
    constexpr int kMostHolders = 10;
    QDeadlineTimer deadline(waitMs);
    const QDeadlineTimer last(qint64{waitMs} * kMostHolders);
    std::int32_t holder = 0;
    // A folder where no lock can stand will not get one by waiting.
    while (TryOnce() == Try::Busy && !deadline.hasExpired() && !last.hasExpired()) {
        // A queue that moves on is not a program that hangs: each has its own time.
        if (m_holder != holder) {
            holder = m_holder;
            deadline.setRemainingTime(waitMs);
        }
        QThread::msleep(kPauseMs);
    }
}

FileLock::Try FileLock::TryOnce()
{
    auto opened = OpenForLocking(m_path);
    m_hindrance = opened ? QString() : opened.Reason();
    if (!opened)
        return Try::Impossible;
    OpenFile& file = *opened;
    if (::flock(file.Descriptor(), LOCK_EX | LOCK_NB) != 0) {
        const bool isBusy = errno == EWOULDBLOCK || errno == EINTR;
        if (!isBusy)
            m_hindrance = FrenchReason(errno);
        if (::pread(file.Descriptor(), &m_holder, sizeof m_holder, 0) != sizeof m_holder)
            m_holder = 0;
        return isBusy ? Try::Busy : Try::Impossible;
    }
    // The holder before us takes the file away: a lock on a file that has lost
    // its name protects nothing.
    const auto named = OpenForReading(m_path, Links::Refused);
    if (!named || !IsSameFile(file, *named))
        return Try::Busy;
    // Told to those who wait; without it they only wait less.
    const std::int32_t self = ::getpid();
    (void)!::pwrite(file.Descriptor(), &self, sizeof self, 0);
    m_file = std::move(file);
    return Try::Held;
}

QString FileLock::Reason() const
{
    if (IsHeld())
        return {};
    return m_hindrance.isEmpty() ? QStringLiteral("un autre programme l'écrit en ce moment") : m_hindrance;
}

FileLock::~FileLock()
{
    if (IsHeld())
        RemoveFile(m_path);
}

} // namespace stoikal
