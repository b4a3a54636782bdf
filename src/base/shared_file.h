#pragma once

#include "base/outcome.h"

#include <QByteArray>
#include <QString>

namespace stoikal {

// A file that several accounts rewrite. In a folder where each account takes away and
// renames its own files alone, the second account may write the first one's file and
// not put another in its place. It then writes it over where it stands, and what a
// power cut leaves of that is mended from a copy beside it: first the whole new content
// and its checksum go into the copy, then the content into the file, then the copy is
// emptied, each of them on the disk before the next begins.
//
// Who calls these holds a lock against the other programs.

/// Puts bytes in the place of a file, by a new file where that is allowed, else by
/// writing it over with the help of the copy. Afterwards, and whatever happens on the
/// way, the file is the old one or the new one, once `FinishRewriting` was called.
/// \returns the path; fails with a reason in French.
Outcome<QString> RewriteSharedFile(const QString& path, const QString& copyPath, const QByteArray& bytes);

/// Ends what a program left undone: a whole copy goes into the file, and the copy is
/// taken away, or emptied where only that is allowed. `largest` is the size of the
/// largest file of this kind. Fails with a reason in French when something stands there
/// that can be neither used nor taken away.
Outcome<QString> FinishRewriting(const QString& path, const QString& copyPath, qint64 largest);

} // namespace stoikal
