#pragma once

#include "base/file_access.h"
#include "base/outcome.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace stoikal {

/// How large a file of a kind may be. A larger one is none of ours, and would hold
/// the program up: these are read, and what stands in them shown, in 200 ms.
struct FileLimit {
    qint64 bytes = 0;
    qint64 lineBytes = 0; ///< of its longest line
    int lines = 0; ///< 0 for any
};

constexpr qint64 kKilobyte = 1024;
constexpr qint64 kMegabyte = 1024 * kKilobyte;

/// Each character of a formula is drawn and measured.
constexpr FileLimit kExerciseLimit{4 * kMegabyte, 8 * kKilobyte};
/// The settings of an account, and the editor's work.
constexpr FileLimit kSettingsLimit{2 * kMegabyte, 64 * kKilobyte};
/// Ten results for each of some thousand exercises.
constexpr FileLimit kScoresLimit{kMegabyte, 64 * kKilobyte};
constexpr FileLimit kTipsLimit{kMegabyte, 8 * kKilobyte, 20'000};
constexpr FileLimit kPasswordLimit{64 * kKilobyte, 64 * kKilobyte};

/// Why bytes are above a limit; nothing when they are not. Who writes a file that
/// is read with a limit asks first.
std::optional<Failure> AboveLimit(const QByteArray& bytes, const FileLimit& limit);

/// All bytes of a file, as they stand there. Fails with a reason in French, also
/// for what is above the limit; `IsMissing` tells that there is no such file.
Outcome<QByteArray> ReadWholeFile(const QString& path, const FileLimit& limit, Links links);

/// The same of a file that no other account may have put there; see `Sharing::Private`.
Outcome<QByteArray> ReadOwnFile(const QString& path, const FileLimit& limit);

/// The same of a file that is open.
Outcome<QByteArray> ReadWholeFile(const OpenFile& file, const FileLimit& limit);

/// Puts bytes in the place of a file, which is made when missing (its folder is
/// not): whatever happens on the way, a power cut or a full disk, the file is
/// afterwards the old one or the new one, whole. The new one has the rights of the
/// old one, less those that its sharing gives to nobody else; one that is made is
/// shared as told. What stands in the place and is no
/// regular file, a link too, stays.
/// \returns the path, once the new file would outlive a power cut; fails with the
/// system's reason, the old file then stands, or the new one that the disk has not
/// promised to keep.
Outcome<QString> ReplaceFile(const QString& path, const QByteArray& bytes, Sharing sharing);

} // namespace stoikal
