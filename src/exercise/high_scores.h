#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <vector>

namespace stoikal {

/// A result kept among the ten best of an equation file.
struct HighScore {
    QString name;
    float mark = 0; ///< out of 20, two decimals
    float seconds = 0; ///< two decimals
};

/// A result as the run gives it, not rounded.
struct NewResult {
    QString name; ///< as the pupil typed it
    double mark = 0; ///< out of 20
    double seconds = 0;
};

/// The text of the high-score file, seen from one equation file: the lines of
/// its own section become records, all other lines are kept as they stand.
///
///     #chimie1.equ
///     Dupont©18©74.23
///     Martin©12.5©80.1
///
/// A section reaches from its header to the next header of any kind. Its
/// records stand best first, ten at most; further ones are dropped at reading.
/// Lines of the section that are no records are kept behind the records.
/// Does not touch any file.
class HighScoreTable
{
public:
    /// One line of the new text: an old line as it stands, or a new text.
    struct Line {
        qsizetype keptFrom = -1; ///< index among the old lines, -1 for a new text
        QString text;
    };

    /// Takes the whole text, decoded, without line ends, and the title of the
    /// equation file. Headers are compared without regard to case; numbers are
    /// read with a comma or a point.
    HighScoreTable(QStringList lines, const QString& fileTitle);

    /// The records of the section, best first.
    const std::vector<HighScore>& Section() const { return m_section; }

    /// Ranks a result: the higher mark first, at equal marks the shorter time,
    /// at equal times the earlier comer. The mark is compared rounded to two
    /// decimals, the time as it is, both as 32-bit floats. What falls behind
    /// the tenth place is not kept. A section without records stays empty.
    void Insert(const NewResult& result);

    /// The lines of the new text, in order. Numbers are written plainly, with a
    /// comma where that is the separator, else with a point.
    std::vector<Line> Lines(QChar separator) const;

private:
    QStringList m_lines;
    QString m_header;
    qsizetype m_start = 0; ///< index of the header, or the number of lines
    qsizetype m_end = 0; ///< index of the first line behind the section
    bool m_isNew = false; ///< the text has no such section yet
    std::vector<HighScore> m_section;
    std::vector<qsizetype> m_otherLines; ///< lines of the section that are no records
};

/// One row of the drawn table, ready to be printed.
struct HighScoreRow {
    QString name; ///< capital first letter, the rest small, 15 characters at most
    QString mark; ///< "18,00"
    QString time; ///< "74,23"
    bool isPupil = false; ///< the pupil's own result, printed in red
};

/// The rows of a section. A row is the pupil's when its name equals the name
/// under which the own result is stored, without regard to case, and its mark
/// and time read as the own ones.
std::vector<HighScoreRow> HighScoreRows(const std::vector<HighScore>& section, const NewResult& own,
                                        QChar separator);

} // namespace stoikal
