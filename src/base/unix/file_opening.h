#pragma once

#include "base/outcome.h"
#include "base/unix/descriptor.h"
#include "base/unix/path_walk.h"

namespace stoikal {

/// Opens the regular file where a path ends, with the flags of the system; a
/// missing one is `IsMissing`.
Outcome<Descriptor> OpenThere(const PathEnd& end, int flags);

/// Lets all who may write into the folder write a file just made in it.
void ShareWithFolder(int file, const Descriptor& folder);

/// Has a name that was just given or taken in a folder reach the disk. `file` is the
/// file of that name, -1 where there is none at hand. False, with the system's number
/// of the error, when the disk refuses.
bool NameReachesTheDisk(const Descriptor& folder, int file);

} // namespace stoikal
