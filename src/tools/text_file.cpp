#include "tools/text_file.h"

#include "base/file_access.h"
#include "base/text_lines.h"
#include "base/whole_file.h"

#include <QFileInfo>
#include <algorithm>

namespace stoikal {
namespace {

/// Ten thousand answers; more takes long to be shown.
constexpr qint64 kShownEnd = 512 * kKilobyte;
constexpr qsizetype kShownLines = 20'000;

QStringList WithoutLongLines(QStringList lines)
{
    constexpr qsizetype kLongestLine = 2000;
    for (QString& line : lines) {
        if (line.size() > kLongestLine)
            line = line.first(kLongestLine - 1) + QChar(u'…');
    }
    return lines;
}

} // namespace

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
    const auto bytes = ReadWholeFile(m_path, kTipsLimit, Links::Refused);
    if (!bytes)
        return bytes.Why();
    m_state = found;
    m_isCut = false;
    return DecodeLines(NormaliseTextBytes(*bytes));
}

Outcome<QStringList> TextFile::LoadEnd()
{
    const State found = Now();
    const auto file = OpenForReading(m_path, Links::Refused);
    if (!file && !file.IsMissing())
        return file.Why();
    const qint64 from = file ? std::max<qint64>(file->Size() - kShownEnd, 0) : 0;
    auto bytes = file ? file->Read(from, kShownEnd) : QByteArray();
    if (!bytes)
        return bytes.Why();
    // The first line is whole only where the end begins behind another's.
    const qsizetype whole = from == 0 ? 0 : bytes->indexOf('\n') + 1;
    QStringList lines = WithoutLongLines(DecodeLines(NormaliseTextBytes(bytes->sliced(whole))));
    m_state = found;
    m_isCut = from > 0 || lines.size() > kShownLines;
    // In place: where memory runs out, the toolkit's copy of a part ends the program.
    lines.remove(0, std::max<qsizetype>(lines.size() - kShownLines, 0));
    return lines;
}

Outcome<QString> TextFile::Save(const QStringList& lines)
{
    QByteArray bytes;
    for (const QString& line : lines)
        bytes += EncodeLine(line) + "\r\n";
    if (const auto above = AboveLimit(bytes, kTipsLimit))
        return *above;
    auto written = ReplaceFile(m_path, bytes, Sharing::Account);
    if (written)
        m_state = Now();
    return written;
}

bool TextFile::HasChangedOutside() const
{
    return !(Now() == m_state);
}

} // namespace stoikal
