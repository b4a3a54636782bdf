#include "exercise/results_journal.h"

#include "base/system_reason.h"
#include "base/text_lines.h"

#include <QFileInfo>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

ResultsJournal::~ResultsJournal()
{
    // A virtual call would no longer reach a derived class.
    if (IsOpen() && !m_pending.isEmpty())
        ResultsJournal::WriteBytes(m_pending.constData(), m_pending.size());
}

Outcome<QString> ResultsJournal::Open(const QString& path)
{
    Close();
    m_file.setFileName(path);
    m_isMeantOpen = true;
    if (!OpenFile())
        return Failure{FrenchReason(m_file.errorString())};
    return path;
}

bool ResultsJournal::OpenFile()
{
    m_file.close();
    const bool isNew = !m_file.exists();
    // Unbuffered: a write that the disk takes only in part must be seen here.
    if (!m_file.open(QIODevice::Append | QIODevice::Unbuffered))
        return false;
    if (isNew)
        ShareWithFolder(m_file, QFileInfo(m_file).absolutePath());
    return true;
}

bool ResultsJournal::WasTakenAway() const
{
    struct stat status {
    };
    return ::fstat(m_file.handle(), &status) == 0 && status.st_nlink == 0;
}

bool ResultsJournal::WriteLines(const QStringList& lines)
{
    for (const QString& line : lines)
        m_pending += EncodeLine(OnOneLine(line)) + "\r\n";
    return WritePending();
}

bool ResultsJournal::Close()
{
    const bool isWhole = WritePending();
    m_isMeantOpen = false;
    m_file.close();
    return isWhole;
}

bool ResultsJournal::WritePending()
{
    if (m_pending.isEmpty())
        return true;
    // Lines written to a file that has lost its name would be seen by nobody.
    if (m_isMeantOpen && (!IsOpen() || WasTakenAway()))
        OpenFile();
    if (!IsOpen())
        return false;
    qint64 written = WriteBytes(m_pending.constData(), m_pending.size());
    // A share that was away and is back does not know the open file any more.
    if (written < 0 && m_file.error() == QFileDevice::WriteError && OpenFile())
        written = WriteBytes(m_pending.constData(), m_pending.size());
    if (written > 0)
        m_pending.remove(0, written);
    return m_pending.isEmpty();
}

qint64 ResultsJournal::WriteBytes(const char* bytes, qint64 count)
{
    return m_file.write(bytes, count);
}

void ShareWithFolder(QFileDevice& file, const QString& folder)
{
    const QFileDevice::Permissions mayWrite = QFileInfo(folder).permissions();
    QFileDevice::Permissions extra;
    if (mayWrite.testFlag(QFileDevice::WriteGroup))
        extra |= QFileDevice::ReadGroup | QFileDevice::WriteGroup;
    if (mayWrite.testFlag(QFileDevice::WriteOther))
        extra |= QFileDevice::ReadOther | QFileDevice::WriteOther;
    // Where the file system knows no such rights, its own rule holds.
    if (extra != QFileDevice::Permissions())
        file.setPermissions(file.permissions() | extra);
}

} // namespace stoikal
