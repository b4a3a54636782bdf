#pragma once

#include <QLockFile>
#include <QString>

namespace stoikal {

/// A lock beside a file ("name.lock") against other programs, held while this
/// lives. It is asked for every 10 ms and given up after the wait: one long
/// wait of QLockFile tries only a few times and starves in a crowd.
class FileLock
{
public:
    FileLock(const QString& path, int waitMs);
    bool IsHeld() const { return m_lock.isLocked(); }

private:
    QLockFile m_lock;
};

} // namespace stoikal
