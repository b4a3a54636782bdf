#include "tools/text_file.h"

#include "base/system_reason.h"
#include "base/text_lines.h"
#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>

namespace stoikal {

TextFile::State TextFile::Now() const
{
    const QFileInfo info(m_path);
    return {info.exists(), info.exists() ? info.size() : 0,
            info.exists() ? info.lastModified() : QDateTime()};
}

Outcome<QStringList> TextFile::Load()
{
    const State found = Now();
    if (!found.exists) {
        m_state = found;
        return QStringList();
    }
    if (QFileInfo(m_path).isDir())
        return Failure{QStringLiteral("c'est un dossier")};
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure{FrenchReason(file.errorString())};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return Failure{FrenchReason(file.errorString())};
    m_state = found;
    return DecodeLines(NormaliseTextBytes(bytes));
}

Outcome<QString> TextFile::Save(const QStringList& lines)
{
    QByteArray bytes;
    for (const QString& line : lines)
        bytes += EncodeLine(line) + "\r\n";
    auto written = ReplaceFile(m_path, bytes);
    if (written)
        m_state = Now();
    return written;
}

bool TextFile::HasChangedOutside() const
{
    return !(Now() == m_state);
}

} // namespace stoikal
