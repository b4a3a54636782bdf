#include "base/whole_file.h"

#include "base/text_lines.h"

#include <algorithm>

namespace stoikal {
namespace {

/// The number, from 1, of the first line that is longer; 0 when there is none.
int LineAbove(QByteArrayView bytes, qint64 limit)
{
    int number = 0;
    LineWalker lines(bytes);
    while (!lines.AtEnd()) {
        ++number;
        if (lines.Next().size() > limit)
            return number;
    }
    return 0;
}

} // namespace

Outcome<QByteArray> ReadWholeFile(const OpenFile& file, const FileLimit& limit)
{
    constexpr qint64 kKilobyte = 1024;
    auto bytes = file.Read(0, limit.bytes + 1);
    if (!bytes)
        return bytes;
    if (bytes->size() > limit.bytes)
        return Failure{QStringLiteral("le fichier est trop grand\u00A0: %1\u00A0Ko au plus")
                           .arg(limit.bytes / kKilobyte)};
    if (limit.lineBytes == 0)
        return bytes;
    // Lines are those of the text that the bytes stand for.
    const int tooLong = LineAbove(NormaliseTextBytes(*bytes), limit.lineBytes);
    if (tooLong != 0)
        return Failure{QStringLiteral("la ligne %1 est trop longue\u00A0: %2\u00A0Ko au plus")
                           .arg(QString::number(tooLong), QString::number(limit.lineBytes / kKilobyte))};
    return bytes;
}

Outcome<QByteArray> ReadWholeFile(const QString& path, const FileLimit& limit, Links links)
{
    const auto file = OpenForReading(path, links);
    if (!file)
        return file.Why();
    return ReadWholeFile(*file, limit);
}

} // namespace stoikal
