#include "balancing/findings_file.h"

#include "balancing/equation_search.h"
#include "base/password_file.h"
#include "base/text_lines.h"

#include <QFileInfo>

namespace stoikal {

Outcome<FindingsFile> FindingsFile::Open(const QString& path, const QString& passwordFile)
{
    if (IsPasswordFile(path, passwordFile))
        return Failure{PasswordFileRefusal()};
    const qsizetype sizeBefore = QFileInfo(path).size();
    const auto made = EquationAppender::AppendLines(path, {});
    if (!made)
        return Failure{made.Reason()};
    return FindingsFile(path, sizeBefore);
}

bool FindingsFile::IsAt(const QString& path) const
{
    return QFileInfo(path) == QFileInfo(m_path);
}

void FindingsFile::Add(QByteArrayView line)
{
    m_waiting << EncodeLine(DecodeLine(line));
}

Outcome<qsizetype> FindingsFile::WriteOut()
{
    if (m_waiting.isEmpty())
        return qsizetype{0};
    auto written = EquationAppender::AppendLines(m_path, m_waiting);
    if (written)
        m_waiting.clear();
    return written;
}

} // namespace stoikal
