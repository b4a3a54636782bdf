#pragma once

#include "base/file_access.h"
#include "base/outcome.h"
#include "base/unix/descriptor.h"

#include <QByteArray>
#include <QString>

namespace stoikal {

/// Where a path ends: the folder of its last part, held open, and that part.
struct PathEnd {
    Descriptor folder; ///< serves only to name what is in it
    QByteArray name;
};

/// Walks a path part by part, as file_access.h says of links, up to the folder of
/// its last part. With `Links::Followed` a link in the last part's place is walked
/// on too. `IfMissing::Make` makes the folders on the way.
Outcome<PathEnd> WalkTo(const QString& path, Links links, IfMissing folders);

/// The reason and kind of a failure by the system's number for it.
Failure SystemFailure(int error);

} // namespace stoikal
