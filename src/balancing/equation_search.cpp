#include "balancing/equation_search.h"

#include "base/fatal_fault.h"
#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/shown_path.h"
#include "base/text_lines.h"
#include "base/whole_file.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <optional>
#include <string_view>

namespace stoikal {
namespace {

constexpr int kLockWaitMs = 2000;

/// Puts the formulas of one side into the places from `first` on. A "+" beside a
/// brace belongs to a charge.
void SplitSide(QByteArrayView side, size_t first, std::array<QByteArray, 6>& places)
{
    size_t place = first;
    const auto clear = [&places](size_t index) {
        if (index >= places.size())
            throw FatalFault(QStringLiteral("une ligne compte plus de six formules."));
        places.at(index).resize(0);
    };
    clear(place);
    char before = 0;
    for (qsizetype i = 0; i < side.size(); ++i) {
        const char c = side[i];
        if (c == ' ')
            continue;
        qsizetype next = i + 1;
        while (next < side.size() && side[next] == ' ')
            ++next;
        const bool isOfCharge = before == '{' || (next < side.size() && side[next] == '}');
        if (c == '+' && !isOfCharge)
            clear(++place);
        else
            places.at(place) += c;
        before = c;
    }
}

bool IsAmong(const QByteArray& sought, const std::array<QByteArray, 6>& places, size_t first)
{
    return sought.isEmpty()
        || std::find(places.begin() + static_cast<int>(first), places.begin() + static_cast<int>(first) + 3,
                     sought)
        != places.begin() + static_cast<int>(first) + 3;
}

Failure WriteFailure(const QString& path, const QString& reason)
{
    return {QStringLiteral("Le fichier %1 n'a pas pu être complété :\n%2").arg(ShownPath(path), reason)};
}

Failure LockFailure(const QString& path, const FileLock& lock)
{
    return {
        QStringLiteral("Le fichier %1 n'a pas pu être complété :\n%2").arg(ShownPath(path), lock.Reason())};
}

/// Writes all bytes at the file's end or says why not; a file that took only a
/// part gets back its old length.
Outcome<qsizetype> Append(const QString& path, OpenFile& file, const QByteArray& bytes)
{
    const qint64 oldSize = file.Size();
    if (oldSize + bytes.size() > kExerciseLimit.bytes)
        return WriteFailure(path, QStringLiteral("le fichier deviendrait trop grand pour être lu"));
    if (file.WriteAll(bytes) && file.ReachesTheDisk())
        return bytes.size();
    const Failure failure = WriteFailure(path, file.WriteFailure().text);
    file.CutTo(oldSize);
    return failure;
}

/// Why lines are not added: one that is longer than a line may be would keep the
/// whole file from being read again. Nothing when each is short enough.
std::optional<Failure> TooLongLine(const QString& path, const QList<QByteArray>& lines)
{
    const auto isTooLong = [](const QByteArray& line) { return line.size() > kExerciseLimit.lineBytes; };
    if (std::none_of(lines.begin(), lines.end(), isTooLong))
        return std::nullopt;
    return WriteFailure(path,
                        QStringLiteral("une ligne à ajouter est trop longue\u00A0: %1\u00A0Ko au plus")
                            .arg(kExerciseLimit.lineBytes / kKilobyte));
}

/// What parts new lines from those of a file: an end for its last line.
Outcome<QByteArray> MissingLineEnd(const QString& path)
{
    const auto file = OpenForReading(path, Links::Refused);
    if (!file)
        return file.Why();
    const qint64 size = file->Size();
    auto last = file->Read(std::max<qint64>(size - 1, 0), 1);
    if (!last)
        return last;
    return last->isEmpty() || *last == "\n" || *last == "\r" ? QByteArray() : QByteArray("\r\n");
}

} // namespace

EquationPattern::EquationPattern(const std::array<QString, 6>& molecules)
{
    std::transform(molecules.begin(), molecules.end(), m_sought.begin(),
                   [](const QString& molecule) { return EncodeLine(molecule); });
}

/// Most lines of a folder are another's: they lack what is sought, and are seen
/// off without being taken apart. Blanks, which may stand inside a formula, and
/// signs enough for too many formulas call for the whole way.
bool EquationPattern::LacksAFormula(QByteArrayView line, qsizetype equals) const
{
    constexpr int kMostSignsLeft = 5;
    constexpr int kMostSignsRight = 2;
    const std::string_view text(line.data(), static_cast<size_t>(line.size()));
    const auto lacks = [text](const QByteArray& sought) {
        return !sought.isEmpty()
            && text.find({sought.data(), static_cast<size_t>(sought.size())}) == std::string_view::npos;
    };
    if (std::none_of(m_sought.begin(), m_sought.end(), lacks))
        return false;
    int left = 0;
    int right = 0;
    int blanks = 0;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const int isSign = line[i] == '+' ? 1 : 0;
        left += i < equals ? isSign : 0;
        right += i < equals ? 0 : isSign;
        blanks += line[i] == ' ' ? 1 : 0;
    }
    return blanks == 0 && left <= kMostSignsLeft && right <= kMostSignsRight;
}

bool EquationPattern::Matches(QByteArrayView line)
{
    const qsizetype equals = line.indexOf('=');
    if (equals < 0)
        throw FatalFault(QStringLiteral("une ligne ne contient pas le signe « = »."));
    if (LacksAFormula(line, equals))
        return false;
    for (QByteArray& place : m_places)
        place.resize(0);
    SplitSide(line.first(equals), 0, m_places);
    QByteArrayView right = line.sliced(equals + 1);
    if (const qsizetype slash = right.indexOf('/'); slash >= 0)
        right = right.first(slash);
    SplitSide(right, 3, m_places);
    for (size_t i = 0; i < m_sought.size(); ++i) {
        if (!IsAmong(m_sought.at(i), m_places, i < 3 ? 0 : 3))
            return false;
    }
    return true;
}

Outcome<QStringList> EquationFilesOf(const QString& folder)
{
    const QFileInfo info(folder);
    if (!info.isDir() || !info.isReadable())
        return Failure{
            QStringLiteral("Le dossier des fichiers d'équations est introuvable ou illisible :\n%1")
                .arg(ShownPath(folder))};
    // Name filters compare without case. A link that leads nowhere is listed too:
    // who reads it tells that it cannot be read.
    const QFileInfoList entries
        = QDir(folder).entryInfoList({QStringLiteral("*.Equ"), QStringLiteral("*.Avt")},
                                     QDir::Files | QDir::System, QDir::Name | QDir::IgnoreCase);
    QStringList names;
    for (const QFileInfo& entry : entries) {
        if (entry.isFile() || (entry.isSymLink() && !entry.exists()))
            names << entry.fileName();
    }
    return names;
}

Outcome<qsizetype> EquationAppender::AppendLines(const QString& path, const QList<QByteArray>& lines)
{
    if (const auto tooLong = TooLongLine(path, lines))
        return *tooLong;
    const FileLock lock(path, kLockWaitMs);
    if (!lock.IsHeld())
        return LockFailure(path, lock);
    auto file = OpenForAppending(path, IfMissing::Make, Sharing::Account);
    if (!file)
        return WriteFailure(path, file.Reason());
    const auto lineEnd = MissingLineEnd(path);
    if (!lineEnd)
        return WriteFailure(path, lineEnd.Reason());
    QByteArray bytes = *lineEnd;
    for (const QByteArray& line : lines)
        bytes += line + "\r\n";
    return Append(path, *file, bytes);
}

Outcome<qsizetype> EquationAppender::AppendEquation(const QString& path, const QString& line)
{
    const QByteArray bytes = EncodeLine(line);
    if (const auto tooLong = TooLongLine(path, {bytes}))
        return *tooLong;
    const FileLock lock(path, kLockWaitMs);
    if (!lock.IsHeld())
        return LockFailure(path, lock);
    auto file = OpenForAppending(path, IfMissing::Refuse, Sharing::Account);
    if (!file)
        return WriteFailure(path, file.Reason());
    return Append(path, *file, "\r\n'\r\n" + bytes);
}

} // namespace stoikal
