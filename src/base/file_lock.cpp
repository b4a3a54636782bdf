#include "base/file_lock.h"

#include <QDeadlineTimer>
#include <QThread>

namespace stoikal {

FileLock::FileLock(const QString& path, int waitMs)
    : m_lock(path + QStringLiteral(".lock"))
{
    constexpr unsigned long kPauseMs = 10;
    const QDeadlineTimer deadline(waitMs);
    while (!m_lock.tryLock(0) && !deadline.hasExpired()) {
        // A folder where no lock can stand will not get one by waiting.
        if (m_lock.error() == QLockFile::PermissionError || m_lock.error() == QLockFile::UnknownError)
            return;
        QThread::msleep(kPauseMs);
    }
}

} // namespace stoikal
