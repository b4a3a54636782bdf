#pragma once

#include <QString>
#include <QStringList>

namespace stoikal {

/// Takes away what programs that were killed have left in a folder: the locks of the
/// files of these names ("HighScore.txt", "*.Equ") and those that grew to take their
/// place. What a running program holds stays, and so does all that has another name,
/// belongs to another account or is no plain file. What cannot go stays for the next
/// time.
void SweepLitter(const QString& folder, const QStringList& names);

} // namespace stoikal
