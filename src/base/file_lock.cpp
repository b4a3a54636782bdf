#include "base/file_lock.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {
namespace {

/// Everybody who may write into the folder may ask for the lock, as several
/// accounts share the folder's files.
constexpr mode_t kLockMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

bool IsSameFile(int descriptor, const QByteArray& path)
{
    struct stat held {
    };
    struct stat named {
    };
    return ::fstat(descriptor, &held) == 0 && ::stat(path.constData(), &named) == 0
        && held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

} // namespace

FileLock::FileLock(const QString& path, int waitMs)
    : m_path(QFile::encodeName(path + QStringLiteral(".lock")))
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
    const int descriptor = ::open(m_path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, kLockMode);
    if (descriptor < 0)
        return Try::Impossible;
    // The mask of the account must not lock the others out; not ours to change is fine.
    (void)::fchmod(descriptor, kLockMode);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const bool isBusy = errno == EWOULDBLOCK || errno == EINTR;
        if (::pread(descriptor, &m_holder, sizeof m_holder, 0) != sizeof m_holder)
            m_holder = 0;
        ::close(descriptor);
        return isBusy ? Try::Busy : Try::Impossible;
    }
    // The holder before us takes the file away: a lock on a file that has lost
    // its name protects nothing.
    if (!IsSameFile(descriptor, m_path)) {
        ::close(descriptor);
        return Try::Busy;
    }
    // Told to those who wait; without it they only wait less.
    const std::int32_t self = ::getpid();
    (void)!::pwrite(descriptor, &self, sizeof self, 0);
    m_descriptor = descriptor;
    return Try::Held;
}

FileLock::~FileLock()
{
    if (m_descriptor < 0)
        return;
    ::unlink(m_path.constData());
    ::close(m_descriptor);
}

} // namespace stoikal
