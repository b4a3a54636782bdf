#include "exercise/results_journal.h"

#include "base/file_access.h"
#include "base/text_lines.h"

#include <utility>

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
    m_path = path;
    m_isMeantOpen = true;
    return OpenAgain();
}

Outcome<QString> ResultsJournal::OpenAgain()
{
    m_file.Close();
    auto file = OpenForAppending(m_path, IfMissing::Make, Sharing::Folder);
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
    if (m_pending.isEmpty())
        return true;
    // Lines written to a file that has lost its name would be seen by nobody.
    const bool isThere = IsOpen() && m_file.HasName();
    if (m_isMeantOpen && !isThere && !OpenAgain())
        return false;
    if (!IsOpen())
        return false;
    qint64 written = WriteBytes(m_pending.constData(), m_pending.size());
    // A share that was away and is back does not know the open file any more.
    if (written < 0 && OpenAgain())
        written = WriteBytes(m_pending.constData(), m_pending.size());
    if (written > 0)
        m_pending.remove(0, written);
    return m_pending.isEmpty();
}

qint64 ResultsJournal::WriteBytes(const char* bytes, qint64 count)
{
    return m_file.Write(bytes, count);
}

} // namespace stoikal
