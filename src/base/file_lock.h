#pragma once

#include <QString>

namespace stoikal {

/// A lock beside a file ("name.lock") against other programs, held while this
/// lives. It is the kernel's lock on that file, so it goes with its program even
/// if that is killed. It is asked for every 10 ms and given up after the wait.
class FileLock
{
public:
    /// Asks for the lock of the file at `path`; `waitMs` 0 asks once.
    FileLock(const QString& path, int waitMs);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    bool IsHeld() const { return m_descriptor >= 0; }

private:
    enum class Try { Held, Busy, Impossible };
    Try TryOnce();

    QByteArray m_path;
    int m_descriptor = -1;
};

} // namespace stoikal
