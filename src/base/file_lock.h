#pragma once

#include "base/open_file.h"

#include <QString>
#include <cstdint>

namespace stoikal {

/// A lock beside a file ("name.lock") against other programs, held while this
/// lives. It is the kernel's lock on that file, so it goes with its program even
/// if that is killed. It is asked for every 10 ms and given up after the wait, which
/// begins anew whenever another program has come to hold it, ten times at most.
class FileLock
{
public:
    /// Asks for the lock of the file at `path`; `waitMs` 0 asks once.
    FileLock(const QString& path, int waitMs);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    bool IsHeld() const { return m_file.IsOpen(); }

    /// Why it is not held, in French words; empty when it is.
    QString Reason() const;

private:
    enum class Try { Held, Busy, Impossible };
    Try TryOnce();

    QString m_path;
    OpenFile m_file; ///< open while it is held
    QString m_hindrance; ///< what made it impossible, in French words; empty when nothing did
    std::int32_t m_holder = 0; ///< the process that had it at the last try, 0 unknown
};

} // namespace stoikal
