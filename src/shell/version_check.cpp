#include "shell/version_check.h"

#include "base/number_text.h"

#include <QStringList>

namespace stoikal {

QString ReplaceAll(const QString& text, const QString& found, const QString& replacement)
{
    return QString(text).replace(found, replacement);
}

QString RemoveLineBreaks(const QString& text)
{
    QString joined;
    const QStringList lines
        = QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).split(QLatin1Char('\n'));
    for (const QString& line : lines)
        joined += line.trimmed();
    return joined;
}

QString RemoteVersion(const QString& fileText)
{
    const qsizetype equals = fileText.indexOf(QLatin1Char('='));
    return RemoveLineBreaks(fileText.sliced(equals + 1).trimmed());
}

bool IsNewer(const QString& remote, const QString& local)
{
    // A page of a network's own, or a server's jest, is no version to tell of.
    constexpr qsizetype kLongestVersion = 32;
    if (remote.size() > kLongestVersion)
        return false;
    const auto value = [](const QString& version) {
        return ReadNumber(ReplaceAll(version, QStringLiteral("."), QString()));
    };
    return value(local) < value(remote);
}

} // namespace stoikal
