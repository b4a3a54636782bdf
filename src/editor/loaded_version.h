#pragma once

#include <QByteArray>
#include <QString>

namespace stoikal {

/// Which file the editor took in, and how it read then: its bytes stand for
/// themselves by their digest, since times of files can lie.
struct LoadedVersion {
    QString fileName; ///< with its extension; empty for a new file
    QString digest;

    bool operator==(const LoadedVersion&) const = default;
};

/// The version of a file that holds these bytes.
LoadedVersion VersionOf(const QString& fileName, const QByteArray& bytes);

/// What a file that is to be written finds under its name.
enum class WritingTarget {
    Free, ///< no file
    Existing, ///< the file as it was taken in, or any other file
    ChangedSinceLoaded, ///< another has written over what was taken in
    DeletedSinceLoaded ///< what was taken in is not there any more
};

/// Looks into the folder for the name, without regard to case.
WritingTarget FindWritingTarget(const QString& folder, const QString& fileName, const LoadedVersion& loaded);

} // namespace stoikal
