#pragma once

#include "base/file_access.h"
#include "base/outcome.h"
#include "base/unix/descriptor.h"
#include "base/unix/path_walk.h"

#include <QByteArray>
#include <optional>
#include <sys/types.h>

namespace stoikal {

/// Opens the regular file where a path ends, with the flags of the system; a
/// missing one is `IsMissing`.
Outcome<Descriptor> OpenThere(const PathEnd& end, int flags);

/// Why a file is not this account's own: another account may have put it there;
/// nothing when it is.
std::optional<Failure> ForeignOwner(const Descriptor& file, const Descriptor& folder);

/// The rights with which a file is made and those that it may keep.
mode_t LargestRights(Sharing sharing);

/// Gives a file just made in a folder the rights of its kind.
void SetRightsOfNew(int file, const Descriptor& folder, Sharing sharing);

/// Opens a file to read and write it anywhere. It must have one name; one that is
/// made is shared with its folder.
Outcome<OpenFile> OpenForRewriting(const QString& path, IfMissing ifMissing);

/// What came of putting a new file in the place of another.
struct Replacing {
    std::optional<Failure> failure; ///< none when it is done
    bool isPlaceRefused = false; ///< the new file stood there; only the old one's name was refused
};
Replacing TryToReplace(const QString& path, const QByteArray& bytes, Sharing sharing);

/// Has a name that was just given or taken in a folder reach the disk. `file` is the
/// file of that name, -1 where there is none at hand. False, with the system's number
/// of the error, when the disk refuses.
bool NameReachesTheDisk(const Descriptor& folder, int file);

} // namespace stoikal
