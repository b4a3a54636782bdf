#include "exercise/high_scores.h"

#include "base/number_text.h"
#include "base/text_lines.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kPlaces = 10;
constexpr qsizetype kShownNameLength = 15;
constexpr QChar kFieldMark = u'©';
constexpr QChar kHeaderMark = u'#';

QString HeaderOf(const QString& fileTitle)
{
    return OnOneLine(kHeaderMark + fileTitle).trimmed();
}

bool IsHeader(const QString& line)
{
    return line.startsWith(kHeaderMark);
}

/// A name as it is stored. The sign that parts the fields becomes a blank.
QString StoredName(const QString& name)
{
    return OnOneLine(name).replace(kFieldMark, u' ').trimmed();
}

/// What is too large for the type stays at its largest value: it must be
/// possible to write it again.
float ToFloat(double value)
{
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

/// The number that the shortest text of the float shows. Rounding starts from
/// it: as a 64-bit float 12.335 would already be 12.33500003 or 12.33499999.
double ShownValue(float value)
{
    return ReadNumber(PlainNumber(value));
}

/// Rounded to two decimals.
float Rounded(double value)
{
    return ToFloat(ReadNumber(FormatMask(value, u"#0.00", u'.')));
}

std::optional<HighScore> ParseRecord(const QString& line)
{
    const qsizetype first = line.indexOf(kFieldMark);
    const qsizetype second = first < 0 ? -1 : line.indexOf(kFieldMark, first + 1);
    if (second < 0)
        return std::nullopt;
    const QStringView text(line);
    return HighScore{line.first(first).trimmed(),
                     ToFloat(ReadFileNumber(text.sliced(first + 1, second - first - 1))),
                     ToFloat(ReadFileNumber(text.sliced(second + 1)))};
}

QString NumberForFile(float value, QChar separator)
{
    // A sign other than the comma could not be read back.
    const QChar sign = separator == u',' ? u',' : u'.';
    return PlainNumber(value).replace(u'.', sign);
}

QString RecordLine(const HighScore& record, QChar separator)
{
    const QString name = StoredName(record.name);
    // A blank before "#" keeps a name from being read as a header.
    const QString guard = IsHeader(name) ? u" "_s : QString();
    return guard + name + kFieldMark + NumberForFile(record.mark, separator) + kFieldMark
        + NumberForFile(record.seconds, separator);
}

/// A capital first letter, the rest small, cut.
QString ShownName(const QString& name)
{
    QString shown = (name.left(1).toUpper() + name.mid(1).toLower()).left(kShownNameLength);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    return shown;
}

} // namespace

HighScoreTable::HighScoreTable(QStringList lines, const QString& fileTitle)
    : m_lines(std::move(lines))
    , m_header(HeaderOf(fileTitle))
{
    const auto isOwnHeader = [this](const QString& line) {
        return IsHeader(line) && line.trimmed().compare(m_header, Qt::CaseInsensitive) == 0;
    };
    const auto header = std::find_if(m_lines.cbegin(), m_lines.cend(), isOwnHeader);
    m_start = header - m_lines.cbegin();
    m_isNew = header == m_lines.cend();
    m_end = m_start;
    if (m_isNew)
        return;
    // The list is the caller's too: a reading that could also change it would copy it.
    for (m_end = m_start + 1; m_end < m_lines.size() && !IsHeader(m_lines.at(m_end)); ++m_end) {
        const std::optional<HighScore> record = ParseRecord(m_lines.at(m_end));
        if (!record)
            m_otherLines.push_back(m_end);
        else if (m_section.size() < kPlaces)
            m_section.push_back(*record);
    }
}

void HighScoreTable::Insert(const NewResult& result)
{
    const HighScore newcomer{StoredName(result.name), Rounded(result.mark), Rounded(result.seconds)};
    if (std::exchange(m_isNew, false)) {
        m_section.push_back(newcomer);
        return;
    }
    if (m_section.empty())
        return; // A header without records stays empty for ever.

    auto place = std::find_if(m_section.begin(), m_section.end(),
                              [&](const HighScore& record) { return record.mark <= newcomer.mark; });
    if (place != m_section.end() && place->mark == newcomer.mark) {
        const float seconds = ToFloat(result.seconds); // Compared as it is, stored rounded.
        place = std::find_if(place, m_section.end(), [&](const HighScore& record) {
            return record.mark != newcomer.mark || record.seconds > seconds;
        });
    }
    m_section.insert(place, newcomer);
    if (m_section.size() > kPlaces)
        m_section.pop_back();
}

std::vector<HighScoreTable::Line> HighScoreTable::Lines(QChar separator) const
{
    std::vector<Line> lines;
    const auto keep = [&](qsizetype index) { lines.push_back({index, m_lines[index]}); };
    for (qsizetype i = 0; i < m_start; ++i)
        keep(i);
    lines.push_back({-1, m_header});
    for (const HighScore& record : m_section)
        lines.push_back({-1, RecordLine(record, separator)});
    std::for_each(m_otherLines.begin(), m_otherLines.end(), keep);
    for (qsizetype i = m_end; i < m_lines.size(); ++i)
        keep(i);
    return lines;
}

std::vector<HighScoreRow> HighScoreRows(const std::vector<HighScore>& section, const NewResult& own,
                                        QChar separator)
{
    const QString ownName = StoredName(own.name).toLower();
    const QString ownMark = FormatMask(own.mark, u"00.00", separator);
    const QString ownTime = FormatMask(own.seconds, u"00.00", separator);

    std::vector<HighScoreRow> rows;
    rows.reserve(section.size());
    for (const HighScore& record : section) {
        HighScoreRow row{ShownName(record.name), FormatMask(ShownValue(record.mark), u"00.00", separator),
                         FormatMask(ShownValue(record.seconds), u"00.00", separator), false};
        row.isPupil = record.name.toLower() == ownName && row.mark == ownMark && row.time == ownTime;
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace stoikal
