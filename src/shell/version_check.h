#pragma once

#include <QString>

namespace stoikal {

/// The version that a fetched version file announces: what stands behind its
/// first "=", its lines joined. Without "=" the whole text.
QString RemoteVersion(const QString& fileText);

/// Each occurrence replaced, from left to right, the search going on just
/// behind the place replaced.
QString ReplaceAll(const QString& text, const QString& found, const QString& replacement);

/// The lines of a text trimmed and joined.
QString RemoveLineBreaks(const QString& text);

/// Whether the announced version is newer than this program's. Both are read
/// as one number without their points: 1.10 (110) is newer than 1.9 (19), and
/// 3.10 (310) newer than 4.0 (40). A text of more than 32 characters is no version
/// and never newer.
bool IsNewer(const QString& remote, const QString& local);

} // namespace stoikal
