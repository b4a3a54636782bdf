#pragma once

#include <QString>

namespace stoikal {

// The kinds of lock that a file system may know, the best first.

enum class Locking {
    Held,
    Busy, ///< another program holds it
    Unknown, ///< the file system knows no lock of this kind
    Refused ///< for another reason, which the system's number of the error tells
};

/// The kernel's lock on a whole open file.
Locking LockWhole(int file);

/// The kernel's lock on the bytes of an open file, which shares know that lack the
/// other. It too belongs to the open file and goes with it.
Locking LockRange(int file);

/// A file that only one program can make stands for the lock. One that a program left
/// which ended is taken away: when that program was one of this machine and runs no
/// more, or when the file is a minute old, which no write takes; `isLongHeld` says
/// that the lock may be held for hours, and a day is let pass.
/// `clock` is a file open for writing beside it, which tells the share's own time.
Locking MakeClaim(const QString& path, int clock, bool isLongHeld);

} // namespace stoikal
