#include "help/html_walker.h"

#include <algorithm>
#include <array>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

/// The names of the characters from U+00A0 to U+00FF, in their order.
constexpr std::array<const char*, 96> kLatinNames{
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",
    "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",
    "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12",
    "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil",
    "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde",
    "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",
    "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",
    "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",
    "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

struct NamedCharacter {
    const char* name;
    char16_t character;
};

constexpr std::array<NamedCharacter, 16> kOtherNames{{{"amp", u'&'},
                                                      {"lt", u'<'},
                                                      {"gt", u'>'},
                                                      {"quot", u'"'},
                                                      {"apos", u'\''},
                                                      {"OElig", 0x0152},
                                                      {"oelig", 0x0153},
                                                      {"ndash", 0x2013},
                                                      {"mdash", 0x2014},
                                                      {"lsquo", 0x2018},
                                                      {"rsquo", 0x2019},
                                                      {"ldquo", 0x201C},
                                                      {"rdquo", 0x201D},
                                                      {"hellip", 0x2026},
                                                      {"euro", 0x20AC},
                                                      {"rarr", 0x2192}}};
constexpr qsizetype kLongestEntity = 10;

/// The character that an entity stands for, without its "&" and ";"; 0 for none.
char32_t CharacterOf(QStringView entity)
{
    if (entity.startsWith(u'#')) {
        const bool isHexadecimal = entity.size() > 1 && entity[1].toLower() == u'x';
        bool isNumber = false;
        const char32_t code = entity.sliced(isHexadecimal ? 2 : 1).toUInt(&isNumber, isHexadecimal ? 16 : 10);
        const bool isCharacter = isNumber && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
        return isCharacter ? code : 0;
    }
    for (const NamedCharacter& named : kOtherNames) {
        if (entity == QLatin1String(named.name))
            return named.character;
    }
    const auto* const found
        = std::find_if(kLatinNames.begin(), kLatinNames.end(),
                       [entity](const char* name) { return entity == QLatin1String(name); });
    return found == kLatinNames.end() ? 0 : static_cast<char32_t>(0xA0 + (found - kLatinNames.begin()));
}

} // namespace

QString DecodeEntities(QStringView text)
{
    QString decoded;
    decoded.reserve(text.size());
    for (qsizetype position = 0; position < text.size(); ++position) {
        if (text[position] == u'&') {
            const qsizetype end = text.mid(position + 1, kLongestEntity).indexOf(u';');
            const char32_t character = end < 1 ? 0 : CharacterOf(text.sliced(position + 1, end));
            if (character != 0) {
                decoded += QString::fromUcs4(&character, 1);
                position += end + 1;
                continue;
            }
        }
        decoded += text[position];
    }
    return decoded;
}

bool HtmlWalker::Next()
{
    m_tag.clear();
    m_text = {};
    while (m_position < m_html.size()) {
        const QStringView rest = m_html.sliced(m_position);
        if (rest.startsWith(u"<!--")) {
            SkipTo(u"-->");
            m_position = std::min(m_position + 3, m_html.size());
            continue;
        }
        if (ParseTag()) {
            // What these hold is for no reader; their end tag is the next piece.
            if (m_tag == "script"_L1 || m_tag == "style"_L1)
                SkipTo(QString(u"</"_s + m_tag));
            return true;
        }
        // A "<" that begins no tag is text like any other.
        const qsizetype next = rest.indexOf(u'<', 1);
        m_text = next < 0 ? rest : rest.first(next);
        m_position += m_text.size();
        return true;
    }
    return false;
}

bool HtmlWalker::ParseTag()
{
    const QStringView rest = m_html.sliced(m_position);
    if (rest.size() < 2 || rest[0] != u'<' || !(rest[1].isLetter() || rest[1] == u'/' || rest[1] == u'!'))
        return false;
    // A ">" inside a quoted value ends nothing.
    QChar quote;
    qsizetype end = 1;
    for (; end < rest.size(); ++end) {
        const QChar c = rest[end];
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if ((c == u'"' || c == u'\'') && rest[end - 1] == u'=') {
            quote = c;
        } else if (c == u'>') {
            break;
        }
    }
    if (end == rest.size())
        return false;
    const QStringView inside = rest.sliced(1, end - 1);
    qsizetype name = 1;
    while (name < inside.size() && !inside[name].isSpace() && inside[name] != u'/')
        ++name;
    m_tag = inside.first(name).toString().toLower();
    m_inside = inside.sliced(name);
    m_position += end + 1;
    return true;
}

void HtmlWalker::SkipTo(QStringView end)
{
    const qsizetype found = m_html.indexOf(end, m_position, Qt::CaseInsensitive);
    m_position = found < 0 ? m_html.size() : found;
}

QString HtmlWalker::Attribute(const QString& name) const
{
    qsizetype position = 0;
    while (position < m_inside.size()) {
        while (position < m_inside.size() && (m_inside[position].isSpace() || m_inside[position] == u'/'))
            ++position;
        const qsizetype nameStart = position;
        while (position < m_inside.size() && m_inside[position] != u'=' && !m_inside[position].isSpace())
            ++position;
        const QStringView found = m_inside.sliced(nameStart, position - nameStart);
        if (position >= m_inside.size() || m_inside[position] != u'=') {
            ++position;
            continue;
        }
        ++position;
        QStringView value;
        if (position < m_inside.size() && (m_inside[position] == u'"' || m_inside[position] == u'\'')) {
            const qsizetype end = m_inside.indexOf(m_inside[position], position + 1);
            const qsizetype last = end < 0 ? m_inside.size() : end;
            value = m_inside.sliced(position + 1, last - position - 1);
            position = last + 1;
        } else {
            const qsizetype start = position;
            while (position < m_inside.size() && !m_inside[position].isSpace())
                ++position;
            value = m_inside.sliced(start, position - start);
        }
        if (found.compare(name, Qt::CaseInsensitive) == 0)
            return DecodeEntities(value);
    }
    return {};
}

} // namespace stoikal
