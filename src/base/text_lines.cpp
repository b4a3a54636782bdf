#include "base/text_lines.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <algorithm>
#include <array>
#include <cstring>

namespace stoikal {
namespace {

/// The characters of Windows-1252 at 0x80 to 0x9F; the five places that the
/// page leaves free stand for the control characters of the same number.
constexpr std::array<char16_t, 32> kUpperPage{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                              0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString DecodePage(QByteArrayView line)
{
    QString text(line.size(), Qt::Uninitialized);
    std::transform(line.begin(), line.end(), text.begin(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return QChar(code >= 0x80 && code <= 0x9F ? kUpperPage.at(code - 0x80U) : char16_t(code));
    });
    return text;
}

} // namespace

QString DecodeLine(QByteArrayView line)
{
    const bool hasHighByte = std::any_of(line.begin(), line.end(),
                                         [](char byte) { return static_cast<unsigned char>(byte) > 127; });
    if (!hasHighByte)
        return QString::fromLatin1(line);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(line);
    return utf8.hasError() ? DecodePage(line) : text;
}

QByteArray EncodeLine(const QString& line)
{
    QByteArray bytes;
    bytes.reserve(line.size());
    for (const QChar c : line) {
        const char16_t code = c.unicode();
        if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
            bytes += static_cast<char>(code);
            continue;
        }
        const auto* const place = std::find(kUpperPage.begin(), kUpperPage.end(), code);
        if (place == kUpperPage.end())
            return line.toUtf8();
        bytes += static_cast<char>(0x80 + (place - kUpperPage.begin()));
    }
    // A line such as "Ã©" would read back as the UTF-8 of another text.
    return DecodeLine(bytes) == line ? bytes : line.toUtf8();
}

QByteArray NormaliseTextBytes(const QByteArray& bytes)
{
    // A mark again behind a mark would be one of the text as it is next written.
    constexpr QByteArrayView kMark("\xEF\xBB\xBF");
    if (bytes.startsWith(kMark)) {
        qsizetype from = 0;
        while (QByteArrayView(bytes).sliced(from).startsWith(kMark))
            from += kMark.size();
        return bytes.sliced(from);
    }
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        QStringDecoder utf16(QStringDecoder::Utf16);
        const QString text = utf16.decode(bytes);
        return NormaliseTextBytes(text.toUtf8());
    }
    return bytes;
}

QString OnOneLine(const QString& text)
{
    const auto breaksTheLine = [](QChar c) {
        const bool turnsWriting
            = (c >= QChar(0x202A) && c <= QChar(0x202E)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator || turnsWriting;
    };
    QString line = text;
    std::replace_if(line.begin(), line.end(), breaksTheLine, QChar(u' '));
    return line;
}

QByteArrayView LineWalker::Next()
{
    const char* const from = m_next;
    const char* to = from;
    while (to != m_end && *to != '\n' && *to != '\r')
        ++to;
    m_next = to;
    if (m_next != m_end)
        m_next += (*to == '\r' && to + 1 != m_end && to[1] == '\n') ? 2 : 1;
    return {from, to};
}

QStringList DecodeLines(const QByteArray& bytes)
{
    QStringList lines;
    const QByteArray normal = NormaliseTextBytes(bytes);
    LineWalker walker(normal);
    while (!walker.AtEnd())
        lines << DecodeLine(walker.Next());
    return lines;
}

} // namespace stoikal
