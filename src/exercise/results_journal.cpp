#include "exercise/results_journal.h"

#include "base/text_lines.h"

#include <utility>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Whether the last line of a file has no end. A file that cannot be read is not
/// known to be torn.
bool EndsWithinALine(const QString& path)
{
    const auto file = OpenForReading(path, Links::Refused);
    if (!file || file->Size() == 0)
        return false;
    const auto last = file->Read(file->Size() - 1, 1);
    return last && *last != "\n";
}

} // namespace

ResultsJournal::~ResultsJournal()
{
    // A virtual call would no longer reach a derived class.
    if (IsOpen() && !m_pending.isEmpty())
        ResultsJournal::WriteBytes(m_pending.constData(), m_pending.size());
}

Outcome<QString> ResultsJournal::Open(const QString& path, Sharing sharing)
{
    Close();
    m_path = path;
    m_sharing = sharing;
    m_isMeantOpen = true;
    // A line that this journal itself has begun goes on with what waits.
    m_hadTornEnd = m_pending.isEmpty() && EndsWithinALine(path);
    auto opened = OpenAgain();
    if (opened && m_hadTornEnd)
        m_pending.prepend("\r\n");
    return opened;
}

Outcome<QString> ResultsJournal::OpenAgain()
{
    m_file.Close();
    auto file = OpenForAppending(m_path, IfMissing::Make, m_sharing);
    if (!file)
        return file.Why();
    m_file = std::move(*file);
    return m_path;
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
    m_file.Close();
    return isWhole;
}

bool ResultsJournal::WritePending()
{
    if (m_pending.isEmpty() && !m_awaitsTheDisk)
        return true;
    // Lines written to a file that has lost its name would be seen by nobody.
    const bool isThere = IsOpen() && m_file.HasName();
    if (m_isMeantOpen && !isThere && !OpenAgain())
        return false;
    if (!IsOpen())
        return false;
    WriteOnce();
    if (!m_pending.isEmpty())
        return false;
    // What a pupil is told of his answer outlives a power cut.
    m_awaitsTheDisk = !m_file.ReachesTheDisk();
    return !m_awaitsTheDisk;
}

void ResultsJournal::WriteOnce()
{
    if (m_pending.isEmpty())
        return;
    qint64 written = WriteBytes(m_pending.constData(), m_pending.size());
    // A share that was away and is back does not know the open file any more.
    if (written < 0 && OpenAgain())
        written = WriteBytes(m_pending.constData(), m_pending.size());
    if (written > 0)
        m_pending.remove(0, written);
}

qint64 ResultsJournal::WriteBytes(const char* bytes, qint64 count)
{
    return m_file.Write(bytes, count);
}

} // namespace stoikal
