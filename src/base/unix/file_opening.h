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

} // namespace stoikal
