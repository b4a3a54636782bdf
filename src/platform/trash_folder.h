#pragma once

#include <QString>
#include <optional>

namespace stoikal {

/// One folder of the freedesktop trash: what was thrown away lies in "files", and
/// for each of it a note in "info" says where it came from and when. It decides
/// nothing about which of the folders a file belongs to.
class TrashFolder
{
public:
    /// The trash of the user, whose notes hold whole paths.
    static TrashFolder OfUser(const QString& folder) { return {folder, {}}; }

    /// The trash of a volume, whose notes hold paths from the volume's top folder on.
    static TrashFolder OfVolume(const QString& folder, const QString& top) { return {folder, top}; }

    /// Makes the folder with its two parts, for the user alone, where they are
    /// missing. False when something cannot be made or written.
    bool Prepare() const;

    /// Moves a file here, in one step and under a name that is free, once its note
    /// stands. False when that cannot be done: the file is then where it was.
    bool Receive(const QString& path) const;

private:
    TrashFolder(QString folder, QString top)
        : m_folder(std::move(folder))
        , m_top(std::move(top))
    {
    }

    /// What the note says of where a file came from; nothing for one outside the volume.
    std::optional<QString> Origin(const QString& path) const;
    QString FileIn(const QString& name) const;
    QString NoteIn(const QString& name) const;

    QString m_folder;
    QString m_top; ///< empty: whole paths
};

} // namespace stoikal
