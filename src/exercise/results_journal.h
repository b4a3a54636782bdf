#pragma once

#include "base/file_access.h"
#include "base/open_file.h"
#include "base/outcome.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace stoikal {

/// The text file that records the work of the pupils, open for appending as
/// long as the program runs. What is written stands in the file at once. When
/// the disk is full the unwritten rest is kept in memory and goes first at the
/// next opportunity, so that nothing is lost or written twice. Where the file was
/// taken away (a teacher emptied it from another machine, a share was gone for a
/// while) it is made or opened anew. Does not know what the lines say.
class ResultsJournal
{
public:
    ResultsJournal() = default;
    /// Closes; what cannot be written then is lost.
    virtual ~ResultsJournal();
    ResultsJournal(const ResultsJournal&) = delete;
    ResultsJournal& operator=(const ResultsJournal&) = delete;

    /// Opens a file for appending and returns its path. The file is made when
    /// missing, its folder is not. A journal open before is closed first. Fails
    /// with the reason in French words; the journal is then closed, and
    /// each write tries once more to open it. A last line without an end, which only
    /// a power cut leaves, gets one: the journal goes on on a line of its own.
    /// One that is made is shared as told.
    Outcome<QString> Open(const QString& path, Sharing sharing = Sharing::Folder);

    /// Opens the file of the last Open again.
    Outcome<QString> Reopen() { return Open(m_path, m_sharing); }

    /// Whether the last Open found such a line.
    bool HadTornEnd() const { return m_hadTornEnd; }

    bool IsOpen() const { return m_file.IsOpen(); }

    /// The path of the last Open, empty before the first.
    const QString& Path() const { return m_path; }

    /// Appends lines, each on one line whatever it holds and ended by CRLF, all of
    /// them in one write. True once they would outlive a power cut. False while
    /// something waits in memory, as it does when the disk is full or the journal is
    /// closed, or while the disk does not promise to keep it.
    bool WriteLines(const QStringList& lines);

    /// How many bytes wait in memory.
    qsizetype PendingBytes() const { return m_pending.size(); }

    /// Whether the last write left something that is not safe yet.
    bool HasUnsavedLines() const { return !m_pending.isEmpty() || m_awaitsTheDisk; }

    /// Tries once more to write what waits, then closes. False when something
    /// still waits; the next Open and WriteLines carry on with it.
    bool Close();

protected:
    /// Hands bytes to the file. Returns how many it took, -1 for none by an error.
    virtual qint64 WriteBytes(const char* bytes, qint64 count);

private:
    Outcome<QString> OpenAgain();
    bool WritePending();
    void WriteOnce();

    QString m_path;
    Sharing m_sharing = Sharing::Folder;
    OpenFile m_file;
    bool m_isMeantOpen = false; ///< between Open, even one that failed, and Close
    QByteArray m_pending;
    bool m_hadTornEnd = false;
    bool m_awaitsTheDisk = false; ///< the file took all, the disk has not promised to keep it
};

} // namespace stoikal
