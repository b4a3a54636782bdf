#pragma once

#include "base/file_access.h"
#include "base/outcome.h"

#include <QByteArray>
#include <QString>

namespace stoikal {

/// How large a file of a kind may be. A larger one is refused before it is read: it
/// is none of ours, and would hold the program up.
struct FileLimit {
    qint64 bytes = 0;
    qint64 lineBytes = 0; ///< of its longest line; 0 for any
};

/// Texts that this program or a teacher writes: settings, scores, tips, exercises.
constexpr FileLimit kTextLimit{qint64{4} * 1024 * 1024, qint64{64} * 1024};

/// All bytes of a file, as they stand there. Fails with a reason in French, also
/// for what is above the limit; `IsMissing` tells that there is no such file.
Outcome<QByteArray> ReadWholeFile(const QString& path, const FileLimit& limit, Links links);

/// The same of a file that is open.
Outcome<QByteArray> ReadWholeFile(const OpenFile& file, const FileLimit& limit);

/// Puts bytes in the place of a file, which is made when missing (its folder is
/// not): whatever happens on the way, a power cut or a full disk, the file is
/// afterwards the old one or the new one, whole. The new one has the rights of the
/// old one; one that is made is shared as told. What stands in the place and is no
/// regular file, a link too, stays.
/// \returns the path; fails with the system's reason, the old file then stands.
Outcome<QString> ReplaceFile(const QString& path, const QByteArray& bytes, Sharing sharing);

} // namespace stoikal
