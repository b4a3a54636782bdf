#include "equation_files/equation_file.h"

#include "base/file_access.h"
#include "base/password_file.h"
#include "base/shown_path.h"
#include "base/whole_file.h"

#include <QFileInfo>
#include <algorithm>
#include <cstring>
#include <utility>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The first place of a byte, the end when it does not come. Not to be called
/// with an empty range.
const char* Find(const char* from, const char* end, char byte)
{
    const void* const hit = std::memchr(from, byte, static_cast<std::size_t>(end - from));
    return hit == nullptr ? end : static_cast<const char*>(hit);
}

/// Where a byte next stands. It searches again only once its last find has been
/// passed, so that a byte that never comes costs one walk over the text in all.
class NextByte
{
public:
    NextByte(char byte, const char* from, const char* end)
        : m_byte(byte)
        , m_end(end)
        , m_place(Find(from, end, byte))
    {
    }

    const char* From(const char* from)
    {
        if (m_place < from)
            m_place = Find(from, m_end, m_byte);
        return m_place;
    }

private:
    char m_byte;
    const char* m_end;
    const char* m_place;
};

bool IsComment(const char* from, const char* end)
{
    while (from != end && *from == ' ')
        ++from;
    return from != end && *from == '\'';
}

/// A "#" that is not the last character of its line. Whether it is the line's
/// first need not be asked: a first one at the end has no second behind it.
bool HasTextBehindHash(const char* from, const char* end)
{
    while (from != end) {
        const char* const hash = Find(from, end, '#');
        if (hash == end)
            return false;
        from = hash + 1;
        if (from != end && *from != '\r' && *from != '\n')
            return true;
    }
    return false;
}

} // namespace

FirstPass CountEquations(QByteArrayView bytes)
{
    FirstPass pass;
    if (bytes.isEmpty())
        return pass;
    const char* from = bytes.data();
    const char* const end = from + bytes.size();
    pass.hasProgressData = HasTextBehindHash(from, end);

    NextByte lineFeed('\n', from, end);
    NextByte carriageReturn('\r', from, end);
    while (from != end) {
        const char* const lineEnd = std::min(lineFeed.From(from), carriageReturn.From(from));
        // The empty piece between CR and LF is no line, and would not count if it were.
        if (lineEnd != from && !IsComment(from, lineEnd))
            ++pass.equationCount;
        from = lineEnd == end ? end : lineEnd + 1;
    }
    return pass;
}

Outcome<QByteArray> ReadEquationBytes(const QString& path)
{
    const auto file = OpenForReading(path, Links::Followed);
    if (!file)
        return file.Why();
    if (file->Name().compare(PasswordFileName(), Qt::CaseInsensitive) == 0)
        return Failure{u"ce n'est pas un fichier d'équations"_s};
    return ReadWholeFile(*file, kExerciseLimit);
}

Outcome<QByteArray> ReadEquationFile(const QString& path)
{
    auto bytes = ReadEquationBytes(path);
    if (!bytes)
        return Failure{u"Le fichier d'équations « %1 » ne peut pas être lu\u00A0: %2."_s.arg(ShownPath(path),
                                                                                             bytes.Reason())};
    return bytes;
}

EquationFile::EquationFile(QByteArray bytes)
    : m_bytes(std::move(bytes))
    , m_walker(m_bytes)
{
}

Outcome<EquationFile> EquationFile::Open(const QString& path)
{
    const auto bytes = ReadEquationFile(path);
    if (!bytes)
        return Failure{bytes.Reason()};
    return EquationFile(NormaliseTextBytes(*bytes));
}

bool EquationFile::IsNone(const QString& path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return true;
    const auto file = OpenForReading(path, Links::Followed);
    const auto bytes = file ? file->Read(0, kExerciseLimit.bytes + 1) : file.Why();
    return bytes && AboveLimit(*bytes, kExerciseLimit);
}

bool EquationFile::NextLine()
{
    while (!m_walker.AtEnd()) {
        const QByteArrayView line = m_walker.Next();
        ++m_lineNumber;
        if (line.isEmpty() || IsComment(line.begin(), line.end()))
            continue;
        m_line = DecodeLine(line);
        return true;
    }
    m_line.clear();
    return false;
}

} // namespace stoikal
