#pragma once

#include "base/open_file.h"

#include <QByteArray>
#include <mspack.h>

namespace stoikal {

/// What the unpacking library works on instead of files of the system: an open
/// file that it reads, or bytes that it writes. The library opens a file by a
/// name that it never looks into: here that name is the address of one of these.
struct UnpackingFile {
    const OpenFile* source = nullptr; ///< none: it is written
    qint64 mayRead = 0; ///< from one opening to its closing
    QByteArray written{};

    qint64 Size() const { return source != nullptr ? source->Size() : written.size(); }
    const char* Name() { return static_cast<const char*>(static_cast<const void*>(this)); }
};

/// The largest piece of memory that the library is given. Its window has 2 MB at most.
constexpr std::size_t kLargestUnpackingMemory = std::size_t{4} * 1024 * 1024;

/// How the library reaches files and memory. It copies this structure, so nothing
/// may be stored beside it.
mspack_system UnpackingSystem();

} // namespace stoikal
