#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <vector>

namespace stoikal {

/// A text of sections and keys, in memory:
///
///     [Options]
///     PassWord=secret
///
/// Names of sections and keys compare without case. Blanks around a value are
/// cut and one pair of quotes is taken off. Lines that are neither a section
/// nor a key stay in their place, byte for byte. Does not touch any file.
class ProfileText
{
public:
    ProfileText() = default;
    explicit ProfileText(const QByteArray& bytes);

    /// The value, at most 254 characters; empty when there is no such key.
    QString Read(const QString& section, const QString& key) const;

    /// Changes or adds a key; the section is made at the end when missing.
    void Write(const QString& section, const QString& key, const QString& value);

    /// Takes the section and its lines away. Nothing happens without it.
    void DeleteSection(const QString& section);

    /// Replaces the lines of a section by others ("key=value" each).
    void WriteSection(const QString& section, const QStringList& lines);

    /// A section and the name it is to bear.
    struct Renaming {
        QString from;
        QString to;
    };

    /// Gives sections other names, all at once, so that numbers can move along
    /// ("1" becomes "2" while "2" becomes "3"). Afterwards a name given bears what
    /// its old name bore, which may be no section at all: what bore the name
    /// before and took none itself is deleted. All other lines keep their place.
    void RenameSections(const std::vector<Renaming>& renamings);

    /// The whole text, lines ended by CRLF.
    QByteArray ToBytes() const;

private:
    struct Line {
        QByteArray raw;
        QString section; ///< folded name of a header line, else empty
        QString key; ///< folded name of a key line, else empty
        QString value;
    };

    static Line ParseLine(const QByteArray& raw);
    void Reindex();
    qsizetype FindSection(const QString& section) const;
    qsizetype SectionEnd(qsizetype header) const;

    std::vector<Line> m_lines;
    QHash<QString, QString> m_values; ///< "section\nkey", folded
};

} // namespace stoikal
