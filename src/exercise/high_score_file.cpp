#include "exercise/high_score_file.h"

#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/shared_file.h"
#include "base/shown_path.h"
#include "base/text_lines.h"
#include "base/whole_file.h"

#include <QDir>
#include <optional>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLockWaitMs = 2000;

/// The whole file; empty when there is none yet, nothing when it cannot be read.
std::optional<QByteArray> ReadWhole(const QString& path)
{
    const auto bytes = ReadWholeFile(path, kScoresLimit, Links::Refused);
    if (!bytes)
        return bytes.IsMissing() ? std::optional(QByteArray()) : std::nullopt;
    return NormaliseTextBytes(*bytes);
}

/// The lines of a text, each decoded and as it stands with its end.
struct OldLines {
    QStringList texts;
    std::vector<QByteArrayView> pieces;
};

/// Does not copy the pieces: the bytes must outlive them.
OldLines SplitLines(const QByteArray& bytes)
{
    OldLines lines;
    const char* const end = bytes.constData() + bytes.size();
    LineWalker walker(bytes);
    while (!walker.AtEnd()) {
        const QByteArrayView line = walker.Next();
        if (!lines.pieces.empty())
            lines.pieces.back() = QByteArrayView(lines.pieces.back().data(), line.data());
        lines.pieces.emplace_back(line.data(), end);
        lines.texts << DecodeLine(line);
    }
    return lines;
}

bool HasEnd(const QByteArray& bytes)
{
    return bytes.isEmpty() || bytes.endsWith('\n') || bytes.endsWith('\r');
}

/// Kept lines byte for byte, new ones encoded, with CRLF.
QByteArray Compose(const std::vector<HighScoreTable::Line>& lines,
                   const std::vector<QByteArrayView>& oldPieces)
{
    QByteArray bytes;
    for (const HighScoreTable::Line& line : lines) {
        if (!HasEnd(bytes))
            bytes += "\r\n";
        if (line.keptFrom < 0)
            bytes += EncodeLine(line.text) + "\r\n";
        else
            bytes += oldPieces[static_cast<std::size_t>(line.keptFrom)];
    }
    return bytes;
}

} // namespace

HighScoreFile::HighScoreFile(const QString& folder)
    : m_folder(folder)
    , m_path(QDir(folder).filePath(u"HighScore.txt"_s))
    , m_temporaryPath(QDir(folder).filePath(u"HighScore_Temp.txt"_s))
{
}

Failure HighScoreFile::PathFailure() const
{
    return {u"Erreur sur le chemin d'accés des fichiers :\n%1\n%2"_s.arg(ShownPath(m_path),
                                                                         ShownPath(m_temporaryPath))};
}

Outcome<std::vector<HighScore>> HighScoreFile::Record(const QString& fileTitle, const NewResult& result,
                                                      QChar separator)
{
    if (m_folder.isEmpty())
        return PathFailure(); // Would mean the current folder.
    const FileLock lock(m_path, kLockWaitMs);
    m_wasBusy = lock.IsBusy();
    if (!lock.IsHeld() || !FinishRewriting(m_path, m_temporaryPath, kScoresLimit.bytes))
        return PathFailure();
    const std::optional<QByteArray> bytes = ReadWhole(m_path);
    if (!bytes)
        return PathFailure();

    const OldLines oldLines = SplitLines(*bytes);
    HighScoreTable table(oldLines.texts, fileTitle);
    table.Insert(result);
    const QByteArray updated = Compose(table.Lines(separator), oldLines.pieces);
    if (AboveLimit(updated, kScoresLimit) || !RewriteSharedFile(m_path, m_temporaryPath, updated))
        return PathFailure();
    return table.Section();
}

} // namespace stoikal
