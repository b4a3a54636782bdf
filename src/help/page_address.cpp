#include "help/page_address.h"

#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

/// The path without "." and ".."; nothing when it climbs above the root.
std::optional<QString> Normalised(const QString& path)
{
    QStringList parts;
    const auto all = path.split(u'/', Qt::SkipEmptyParts);
    for (const QString& part : all) {
        if (part == ".."_L1) {
            if (parts.isEmpty())
                return std::nullopt;
            parts.removeLast();
        } else if (part != "."_L1) {
            parts << part;
        }
    }
    return QString(u'/' + parts.join(u'/'));
}

} // namespace

std::optional<PageAddress> ReadPageAddress(const QString& link, const QString& from)
{
    // "ms-its:Other.chm::/page.html" and its older form lead to another help file.
    static const QRegularExpression kOtherFile(u"^(?:ms-its|mk:@msitstore):([^/\\\\:]+\\.chm)::(.*)$"_s,
                                               QRegularExpression::CaseInsensitiveOption
                                                   | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression kScheme(u"^[a-z][a-z0-9+.-]*:"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    PageAddress address;
    QString rest = link.trimmed().replace(u'\\', u'/');
    if (const auto match = kOtherFile.match(rest); match.hasMatch()) {
        address.file = QUrl::fromPercentEncoding(match.captured(1).toUtf8());
        rest = match.captured(2);
        if (address.file.contains(u'/') || address.file.contains(u'\\'))
            return std::nullopt;
        if (!rest.startsWith(u'/'))
            rest.prepend(u'/');
    } else if (kScheme.match(rest).hasMatch() || rest.startsWith("//"_L1)) {
        return std::nullopt;
    }
    if (const qsizetype mark = rest.indexOf(u'#'); mark >= 0) {
        address.anchor = QUrl::fromPercentEncoding(rest.sliced(mark + 1).toUtf8());
        rest.truncate(mark);
    }
    if (const qsizetype query = rest.indexOf(u'?'); query >= 0)
        rest.truncate(query);
    rest = QUrl::fromPercentEncoding(rest.toUtf8());
    if (rest.isEmpty())
        rest = from;
    else if (!rest.startsWith(u'/'))
        rest.prepend(from.first(from.lastIndexOf(u'/') + 1));
    const auto path = Normalised(rest);
    if (!path)
        return std::nullopt;
    address.path = *path;
    return address;
}

} // namespace stoikal
