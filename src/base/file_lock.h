#pragma once

#include "base/open_file.h"

#include <QString>
#include <cstdint>

namespace stoikal {

enum class Locking;

/// A lock beside a file ("name.lock") against other programs, held while this
/// lives. It is the kernel's lock on that file, so it goes with its program even
/// if that is killed; where the file system knows no such lock, a second file that
/// only one program can make ("name.lock.own") stands for it. It is asked for every
/// 10 ms and given up after the wait, which begins anew whenever another program has
/// come to hold it: five seconds in all, or the wait itself where that is longer.
class FileLock
{
public:
    /// Asks for the lock of the file at `path`; `waitMs` 0 asks once.
    FileLock(const QString& path, int waitMs);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    bool IsHeld() const { return m_file.IsOpen(); }

    /// Whether other programs are kept off while it is held. They are not where the
    /// file system knows no lock of any kind: its owner then goes on without.
    bool IsProtected() const { return m_kind != Kind::None; }

    /// Whether it is not held only because another program holds it.
    bool IsBusy() const { return !IsHeld() && m_hindrance.isEmpty(); }

    /// Why it is not held, in French words; empty when it is.
    QString Reason() const;

private:
    enum class Try { Held, Busy, Impossible };
    enum class Kind { Kernel, Claim, None };
    Try TryOnce(bool isLongHeld);
    Try TryClaim(bool isLongHeld);
    Try Refused(Locking locking, int error);

    QString m_path;
    OpenFile m_file; ///< open while it is held
    QString m_hindrance; ///< what made it impossible, in French words; empty when nothing did
    std::int32_t m_holder = 0; ///< the process that had it at the last try, 0 unknown
    Kind m_kind = Kind::Kernel;
};

} // namespace stoikal
