#pragma once

#include <QString>
#include <cstdint>

namespace stoikal {

/// What tells that a file on the disk is another than the one read last.
struct FileStamp {
    bool exists = false;
    std::uint64_t device = 0;
    std::uint64_t number = 0; ///< of the file on its device
    std::int64_t size = 0;
    std::int64_t changedNs = 0; ///< since 1970

    bool operator==(const FileStamp&) const = default;
};

/// The stamp of what stands at a path: of a link itself, not of what it leads to.
FileStamp StampOf(const QString& path);

} // namespace stoikal
