#pragma once

#include "base/outcome.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

namespace stoikal {

/// The file in which a search gathers the lines that it finds, behind what the file
/// held before. Lines wait here until they are written out; the search decides
/// when. A line is kept character for character, in the encoding of text files.
class FindingsFile
{
public:
    /// Opens a file, which is made when missing. Fails with French sentences for one
    /// that cannot be written and for the file of a password; `passwordFile` is the
    /// one in force, empty where there is none.
    static Outcome<FindingsFile> Open(const QString& path, const QString& passwordFile);

    const QString& Path() const { return m_path; }

    /// Whether a path leads to this very file.
    bool IsAt(const QString& path) const;

    /// How much the file held before: what came to it since is no line to be searched.
    qsizetype SizeBefore() const { return m_sizeBefore; }

    void Add(QByteArrayView line);

    /// Writes out what waits. Fails with a French sentence; the lines then still wait.
    Outcome<qsizetype> WriteOut();

private:
    FindingsFile(QString path, qsizetype sizeBefore)
        : m_path(std::move(path))
        , m_sizeBefore(sizeBefore)
    {
    }

    QString m_path;
    qsizetype m_sizeBefore = 0;
    QList<QByteArray> m_waiting;
};

} // namespace stoikal
