#pragma once

#include "base/open_file.h"
#include "base/outcome.h"

#include <QString>

namespace stoikal {

// The only way of this program to its files. Several accounts may write into
// the folders that it works in, and what one of them puts there must neither lead
// another's program elsewhere nor hold it up:
//
// - The path is walked part by part. A link on the way is followed only when the
//   superuser or this account made it, or the owner of a folder that nobody else
//   may write. The file itself may be no link, whoever made it.
// - Only a regular file opens, and never by waiting: no folder, pipe, socket or
//   device. This is looked up on the open file, not before.
// - A file that is written and belongs to this account may have no second name,
//   where others could have given it one.
// - What this account alone may write belongs to it, to the superuser or to the owner
//   of the folder, where others could have put theirs in its place.
// - Rights are changed only on a file that was just made here.
//
// Reasons are in French words and begin small, as they stand in brackets or after
// a colon.

/// What happens where a path ends at a link.
enum class Links {
    Refused,
    /// For a file that is only read and that the user may read anyway. Links on
    /// the way are then followed as well, whoever made them.
    Followed
};

/// Whom a file that is made here belongs to.
enum class Sharing {
    Account, ///< the account, as its mask says
    /// All who may write into its folder may read and write the file too: the one
    /// that happens to make a file must not lock the others out.
    Folder,
    /// This account alone writes it, whatever its mask; all whom the folder lets in
    /// may read it. One that another account put in its place is not appended to.
    FolderReads,
    /// This account alone writes and reads it. One of another account in its place is
    /// neither read nor written.
    Private
};

enum class IfMissing { Make, Refuse };

/// Opens a file that is there.
Outcome<OpenFile> OpenForReading(const QString& path, Links links);

/// Opens one that no other account may have put there; no link is followed.
Outcome<OpenFile> OpenOwnForReading(const QString& path);

/// Opens a file whose writes all go to its end.
Outcome<OpenFile> OpenForAppending(const QString& path, IfMissing ifMissing, Sharing sharing);

/// Opens or makes a lock file, which every account may open.
Outcome<OpenFile> OpenForLocking(const QString& path);

/// Makes a folder and those around it where they are missing.
bool MakeFolders(const QString& path);

/// Makes a folder; false where anything stands there already.
bool MakeNewFolder(const QString& path);

/// Takes a file, or a link and not what it leads to, away. True when it is gone.
bool RemoveFile(const QString& path);

/// Empties a file: takes it away, or cuts it to nothing where only that is allowed, as
/// in a folder where each account takes away its own files alone.
bool EmptyFile(const QString& path);

/// Takes a folder with all that is in it away. Links in it and in its place go
/// themselves; what they lead to stays. A file in its place stays. True when nothing
/// is left there.
bool RemoveTree(const QString& path);

/// Gives a folder another name beside it, which must be free or an empty folder's.
bool RenameFolder(const QString& path, const QString& newName);

} // namespace stoikal
