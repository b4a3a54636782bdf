#include "base/whole_file.h"

#include "base/text_lines.h"

namespace stoikal {
std::optional<Failure> AboveLimit(const QByteArray& bytes, const FileLimit& limit)
{
    if (bytes.size() > limit.bytes)
        return Failure{QStringLiteral("le fichier est trop grand\u00A0: %1\u00A0Ko au plus")
                           .arg(limit.bytes / kKilobyte)};
    // Lines are those of the text that the bytes stand for.
    const QByteArray text = NormaliseTextBytes(bytes);
    LineWalker lines(text);
    int number = 0;
    while (!lines.AtEnd()) {
        ++number;
        if (lines.Next().size() > limit.lineBytes)
            return Failure{QStringLiteral("la ligne %1 est trop longue\u00A0: %2\u00A0Ko au plus")
                               .arg(QString::number(number), QString::number(limit.lineBytes / kKilobyte))};
        if (limit.lines != 0 && number > limit.lines)
            return Failure{
                QStringLiteral("le fichier compte trop de lignes\u00A0: %1 au plus").arg(limit.lines)};
    }
    return std::nullopt;
}

Outcome<QByteArray> ReadWholeFile(const OpenFile& file, const FileLimit& limit)
{
    auto bytes = file.Read(0, limit.bytes + 1);
    if (!bytes)
        return bytes;
    if (const auto above = AboveLimit(*bytes, limit))
        return *above;
    return bytes;
}

Outcome<QByteArray> ReadOwnFile(const QString& path, const FileLimit& limit)
{
    const auto file = OpenOwnForReading(path);
    if (!file)
        return file.Why();
    return ReadWholeFile(*file, limit);
}

Outcome<QByteArray> ReadWholeFile(const QString& path, const FileLimit& limit, Links links)
{
    const auto file = OpenForReading(path, links);
    if (!file)
        return file.Why();
    return ReadWholeFile(*file, limit);
}

} // namespace stoikal
