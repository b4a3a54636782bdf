#include "base/profile_text.h"

#include "base/text_lines.h"

#include <QSet>
#include <algorithm>
#include <utility>

namespace stoikal {
namespace {

constexpr qsizetype kLongestValue = 254;

QString Folded(const QString& name)
{
    return name.trimmed().toCaseFolded();
}

QString Place(const QString& section, const QString& key)
{
    return section + QLatin1Char('\n') + key;
}

QString Unquoted(const QString& raw)
{
    QString value = raw.trimmed();
    if (value.size() >= 2 && (value.front() == QLatin1Char('"') || value.front() == QLatin1Char('\''))
        && value.front() == value.back())
        value = value.sliced(1, value.size() - 2);
    return value.first(std::min(value.size(), kLongestValue));
}

/// What reading would cut is put between quotes, so that every value of one
/// line comes back as it was given.
QString Quoted(const QString& value)
{
    QString oneLine = value;
    oneLine.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (Unquoted(oneLine) == oneLine)
        return oneLine;
    const QString quoted = QLatin1Char('"') + oneLine + QLatin1Char('"');
    return Unquoted(quoted) == oneLine ? quoted : oneLine;
}

} // namespace

ProfileText::ProfileText(const QByteArray& bytes)
{
    const QByteArray normal = NormaliseTextBytes(bytes);
    LineWalker walker(normal);
    while (!walker.AtEnd())
        m_lines.push_back(ParseLine(walker.Next().toByteArray()));
    Reindex();
}

ProfileText::Line ProfileText::ParseLine(const QByteArray& raw)
{
    Line line;
    line.raw = raw;
    const QString text = DecodeLine(raw).trimmed();
    const qsizetype equals = text.indexOf(QLatin1Char('='));
    if (text.startsWith(QLatin1Char('['))) {
        const qsizetype close = text.indexOf(QLatin1Char(']'));
        line.section = Folded(text.mid(1, (close < 0 ? text.size() : close) - 1));
    } else if (equals > 0 && !text.startsWith(QLatin1Char(';'))) {
        line.key = Folded(text.first(equals));
        line.value = Unquoted(text.sliced(equals + 1));
    }
    return line;
}

void ProfileText::Reindex()
{
    m_values.clear();
    QString section;
    bool inSection = false;
    for (const Line& line : m_lines) {
        if (!line.section.isEmpty()) {
            section = line.section;
            inSection = true;
        } else if (inSection && !line.key.isEmpty() && !m_values.contains(Place(section, line.key))) {
            m_values.insert(Place(section, line.key), line.value);
        }
    }
}

QString ProfileText::Read(const QString& section, const QString& key) const
{
    return m_values.value(Place(Folded(section), Folded(key)));
}

qsizetype ProfileText::FindSection(const QString& section) const
{
    const QString folded = Folded(section);
    const auto place = std::find_if(m_lines.begin(), m_lines.end(),
                                    [&](const Line& line) { return line.section == folded; });
    return place == m_lines.end() ? -1 : place - m_lines.begin();
}

qsizetype ProfileText::SectionEnd(qsizetype header) const
{
    auto place = m_lines.begin() + header + 1;
    while (place != m_lines.end() && place->section.isEmpty())
        ++place;
    return place - m_lines.begin();
}

void ProfileText::Write(const QString& section, const QString& key, const QString& value)
{
    const Line line = ParseLine(EncodeLine(key + QLatin1Char('=') + Quoted(value)));
    qsizetype header = FindSection(section);
    if (header < 0) {
        m_lines.push_back(ParseLine(EncodeLine(QLatin1Char('[') + section + QLatin1Char(']'))));
        header = static_cast<qsizetype>(m_lines.size()) - 1;
    }
    const auto from = m_lines.begin() + header + 1;
    const auto to = m_lines.begin() + SectionEnd(header);
    const auto place = std::find_if(from, to, [&](const Line& other) { return other.key == line.key; });
    if (place != to) {
        *place = line;
    } else {
        // Behind the last line of the section that is not blank.
        auto behind = to;
        while (behind != from && std::prev(behind)->raw.trimmed().isEmpty())
            --behind;
        m_lines.insert(behind, line);
    }
    m_values.insert(Place(Folded(section), line.key), line.value);
}

void ProfileText::DeleteSection(const QString& section)
{
    const qsizetype header = FindSection(section);
    if (header < 0)
        return;
    m_lines.erase(m_lines.begin() + header, m_lines.begin() + SectionEnd(header));
    Reindex();
}

void ProfileText::WriteSection(const QString& section, const QStringList& lines)
{
    qsizetype header = FindSection(section);
    if (header < 0) {
        m_lines.push_back(ParseLine(EncodeLine(QLatin1Char('[') + section + QLatin1Char(']'))));
        header = static_cast<qsizetype>(m_lines.size()) - 1;
    }
    m_lines.erase(m_lines.begin() + header + 1, m_lines.begin() + SectionEnd(header));
    std::vector<Line> parsed;
    std::transform(lines.begin(), lines.end(), std::back_inserter(parsed),
                   [](const QString& text) { return ParseLine(EncodeLine(text)); });
    m_lines.insert(m_lines.begin() + header + 1, parsed.begin(), parsed.end());
    Reindex();
}

void ProfileText::RenameSections(const std::vector<Renaming>& renamings)
{
    QHash<QString, QString> names;
    QSet<QString> taken;
    for (const Renaming& renaming : renamings) {
        names.insert(Folded(renaming.from), renaming.to);
        taken.insert(Folded(renaming.to));
    }
    std::vector<Line> kept;
    kept.reserve(m_lines.size());
    bool isDeleted = false;
    for (Line& line : m_lines) {
        if (!line.section.isEmpty()) {
            const auto name = names.constFind(line.section);
            isDeleted = name == names.constEnd() && taken.contains(line.section);
            if (name != names.constEnd())
                line = ParseLine(EncodeLine(QLatin1Char('[') + *name + QLatin1Char(']')));
        }
        if (!isDeleted)
            kept.push_back(std::move(line));
    }
    m_lines = std::move(kept);
    Reindex();
}

QByteArray ProfileText::ToBytes() const
{
    QByteArray bytes;
    for (const Line& line : m_lines)
        bytes += line.raw + "\r\n";
    return bytes;
}

} // namespace stoikal
