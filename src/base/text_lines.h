#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace stoikal {

/// One line of a text file: as UTF-8 when it is valid UTF-8 with a byte above
/// 127, else as Windows-1252.
QString DecodeLine(QByteArrayView line);

/// One line of a text file, without its end: in Windows-1252, and only when it
/// holds a character outside that page in UTF-8, so that no name is damaged.
QByteArray EncodeLine(const QString& line);

/// A text that takes one line of a file or of a list, whatever it holds: each line
/// break, control character and mark that turns the direction of writing becomes
/// a blank. So the name of a file cannot pass for a line of its own.
QString OnOneLine(const QString& text);

/// The bytes of a text file in the form the readers of lines take: a byte order
/// mark is dropped, and a file in UTF-16 (known by its mark) becomes UTF-8.
QByteArray NormaliseTextBytes(const QByteArray& bytes);

/// Walks over the lines of a text. Lines end in CR, LF or CRLF (so CR CR LF
/// ends two); what stands behind the last end is a line if it is not empty.
/// Does not copy: the bytes must outlive it.
class LineWalker
{
public:
    explicit LineWalker(QByteArrayView bytes)
        : m_next(bytes.data())
        , m_end(bytes.data() + bytes.size())
    {
    }

    bool AtEnd() const { return m_next == m_end; }

    /// The next line without its end. Must not be called at the end.
    QByteArrayView Next();

private:
    const char* m_next;
    const char* m_end;
};

/// All lines of a text, decoded.
QStringList DecodeLines(const QByteArray& bytes);

} // namespace stoikal
