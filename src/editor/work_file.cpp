#include "editor/work_file.h"

#include "base/file_access.h"
#include "base/number_text.h"
#include "base/settings_store.h"
#include "base/shown_path.h"

#include <QFileInfo>
#include <algorithm>
#include <utility>

namespace stoikal {
namespace {

constexpr qsizetype kLongestPiece = 254; ///< the store cuts a value there

QString DeskSection()
{
    return QStringLiteral("Fichier");
}

QString SectionOf(int number)
{
    return QString::number(number);
}

/// The key of a slot counts from 1: "Molecule1".
QString SlotKey(QLatin1String kind, std::size_t slot)
{
    return kind + QString::number(slot + 1);
}

/// A text longer than the store takes goes on under "Comment.2", "Comment.3".
QString PieceKey(const QString& key, int piece)
{
    return piece == 1 ? key : QStringLiteral("%1.%2").arg(key, QString::number(piece));
}

/// Where the piece that begins at `from` ends; a pair of surrogates stays whole.
qsizetype PieceEnd(const QString& text, qsizetype from)
{
    qsizetype end = std::min(text.size(), from + kLongestPiece);
    if (end < text.size() && text.at(end).isLowSurrogate())
        --end;
    return end;
}

void WriteText(ProfileText& file, const QString& section, const QString& key, const QString& text)
{
    int piece = 0;
    qsizetype from = 0;
    do {
        const qsizetype end = PieceEnd(text, from);
        const QString value = text.sliced(from, end - from);
        const QString name = PieceKey(key, ++piece);
        // A key that holds nothing reads the same as none.
        if (file.Read(section, name) != value)
            file.Write(section, name, value);
        from = end;
    } while (from < text.size());
    for (++piece; !file.Read(section, PieceKey(key, piece)).isEmpty(); ++piece)
        file.Write(section, PieceKey(key, piece), {});
}

QString ReadText(const ProfileText& file, const QString& section, const QString& key)
{
    QString text = file.Read(section, key);
    qsizetype last = text.size();
    // A piece may be one character short of the longest, see PieceEnd.
    for (int piece = 2; last >= kLongestPiece - 1; ++piece) {
        const QString next = file.Read(section, PieceKey(key, piece));
        last = next.size();
        text += next;
    }
    return text;
}

/// A value is one line: line ends are written as "\n", "\" as "\\".
QString OneLine(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    return text.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
}

QString ManyLines(const QString& text)
{
    QString lines;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\') || i + 1 == text.size())
            lines += text.at(i);
        else
            lines += text.at(++i) == QLatin1Char('n') ? QLatin1Char('\n') : text.at(i);
    }
    return lines;
}

QString FlagText(bool flag)
{
    return flag ? QStringLiteral("1") : QStringLiteral("0");
}

bool ReadFlag(const ProfileText& file, const char* key)
{
    return file.Read(DeskSection(), QLatin1String(key)) == QLatin1String("1");
}

void WriteDesk(ProfileText& file, const WorkDesk& desk)
{
    const QString section = DeskSection();
    WriteText(file, section, QStringLiteral("Nom"), desk.name);
    WriteText(file, section, QStringLiteral("Type"),
              desk.type == FileType::Avt ? QStringLiteral("AVT") : QStringLiteral("EQU"));
    WriteText(file, section, QStringLiteral("Entete"), OneLine(desk.head));
    WriteText(file, section, QStringLiteral("Nombre"), QString::number(desk.count));
    WriteText(file, section, QStringLiteral("Numero"), QString::number(desk.number));
    WriteText(file, section, QStringLiteral("Origine"), desk.loaded.fileName);
    WriteText(file, section, QStringLiteral("Empreinte"), desk.loaded.digest);
    WriteText(file, section, QStringLiteral("EnCours"), FlagText(desk.isUnfinished));
}

/// Applies `work(key, text)` to each text of an equation.
template <typename Equation, typename Work>
void ForEachText(Equation& equation, Work work)
{
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        work(SlotKey(QLatin1String("Molecule"), slot), equation.Molecule.at(slot));
        work(SlotKey(QLatin1String("Etat"), slot), equation.Etat.at(slot));
        work(SlotKey(QLatin1String("Coeff"), slot), equation.Coeff.at(slot));
        work(SlotKey(QLatin1String("MVQ"), slot), equation.MVQ.at(slot));
    }
    work(QStringLiteral("Comment"), equation.Comment);
    work(QStringLiteral("ECHEC"), equation.ECHEC);
}

void WriteEquation(ProfileText& file, int number, const WorkEquation& equation)
{
    ForEachText(equation, [&file, section = SectionOf(number)](const QString& key, const QString& text) {
        WriteText(file, section, key, text);
    });
}

WorkEquation ReadEquation(const ProfileText& file, int number)
{
    WorkEquation equation;
    ForEachText(equation, [&file, section = SectionOf(number)](const QString& key, QString& text) {
        text = ReadText(file, section, key);
    });
    return equation;
}

/// A whole work file. Made of bytes, as adding one section after another to a
/// long text would search it each time.
QByteArray BytesOf(const WorkDesk& desk, const std::vector<WorkEquation>& equations)
{
    ProfileText head;
    WriteDesk(head, desk);
    QByteArray bytes = head.ToBytes();
    int number = 0;
    for (const WorkEquation& equation : equations) {
        ProfileText section;
        section.WriteSection(SectionOf(++number), {});
        WriteEquation(section, number, equation);
        bytes += section.ToBytes();
    }
    return bytes;
}

/// So many editors of one account can run at once.
constexpr int kMostEditors = 20;

QString PathOf(const QString& folder, int number)
{
    return folder
        + (number == 1 ? QStringLiteral("/FileTemp.txt") : QStringLiteral("/FileTemp_%1.txt").arg(number));
}

WorkPlace Place(const QString& folder, int number)
{
    const QString path = PathOf(folder, number);
    return {path, std::make_shared<FileLock>(path + QStringLiteral(".editeur"), 0)};
}

int CountIn(const ProfileText& file, const char* key)
{
    constexpr double kMost = 32767;
    return static_cast<int>(std::clamp(ReadNumber(file.Read(DeskSection(), QLatin1String(key))), 1.0, kMost));
}

} // namespace

WorkFile::WorkFile(SettingsStore& store, QString path)
    : m_store(store)
    , m_path(std::move(path))
{
}

Outcome<QString> WorkFile::Begin(const WorkDesk& desk)
{
    return BeginWith(desk, {WorkEquation()});
}

Outcome<QString> WorkFile::BeginWith(const WorkDesk& desk, const std::vector<WorkEquation>& equations)
{
    const QByteArray bytes = BytesOf(desk, equations);
    return Change([&bytes](ProfileText& file) { file = ProfileText(bytes); });
}

Outcome<QString> WorkFile::Change(const std::function<void(ProfileText&)>& change)
{
    return m_store.Change(m_path, change);
}

WorkEquation WorkFile::Equation(int number) const
{
    return ReadEquation(m_store.Contents(m_path), number);
}

std::vector<WorkEquation> WorkFile::Equations(int count) const
{
    const ProfileText& file = m_store.Contents(m_path);
    std::vector<WorkEquation> equations;
    equations.reserve(static_cast<std::size_t>(count));
    for (int number = 1; number <= count; ++number)
        equations.push_back(ReadEquation(file, number));
    return equations;
}

std::vector<int> WorkFile::FailedEquations(int count) const
{
    const ProfileText& file = m_store.Contents(m_path);
    std::vector<int> failed;
    for (int number = 1; number <= count; ++number) {
        if (file.Read(SectionOf(number), QStringLiteral("ECHEC")) == QLatin1String("1"))
            failed.push_back(number);
    }
    return failed;
}

Outcome<QString> WorkFile::Store(int number, const WorkEquation& equation, const WorkDesk& desk)
{
    return Change([&](ProfileText& file) {
        WriteEquation(file, number, equation);
        WriteDesk(file, desk);
    });
}

Outcome<QString> WorkFile::InsertEquation(int number, int last, const WorkDesk& desk)
{
    return Change([&](ProfileText& file) {
        std::vector<ProfileText::Renaming> moves;
        for (int from = number; from <= last; ++from)
            moves.push_back({SectionOf(from), SectionOf(from + 1)});
        file.RenameSections(moves);
        file.DeleteSection(SectionOf(number));
        WriteDesk(file, desk);
    });
}

Outcome<QString> WorkFile::DeleteEquation(int number, int last, const WorkDesk& desk)
{
    return Change([&](ProfileText& file) {
        std::vector<ProfileText::Renaming> moves;
        for (int from = number + 1; from <= last; ++from)
            moves.push_back({SectionOf(from), SectionOf(from - 1)});
        file.RenameSections(moves);
        if (number == last)
            file.DeleteSection(SectionOf(last));
        WriteDesk(file, desk);
    });
}

void WorkFile::Finish()
{
    const auto written = Change([](ProfileText& file) {
        WriteText(file, DeskSection(), QStringLiteral("EnCours"), FlagText(false));
    });
    if (!written)
        Remove();
}

std::optional<WorkDesk> WorkFile::LeftBehind() const
{
    const ProfileText& file = m_store.Contents(m_path);
    const QString section = DeskSection();
    if (!ReadFlag(file, "EnCours"))
        return std::nullopt;
    WorkDesk desk;
    desk.isUnfinished = true;
    desk.name = ReadText(file, section, QStringLiteral("Nom"));
    desk.type
        = file.Read(section, QStringLiteral("Type")) == QLatin1String("AVT") ? FileType::Avt : FileType::Equ;
    desk.head = ManyLines(ReadText(file, section, QStringLiteral("Entete")));
    desk.count = CountIn(file, "Nombre");
    desk.number = std::min(CountIn(file, "Numero"), desk.count);
    desk.loaded.fileName = ReadText(file, section, QStringLiteral("Origine"));
    desk.loaded.digest = ReadText(file, section, QStringLiteral("Empreinte"));
    return desk;
}

void WorkFile::Remove()
{
    RemoveFile(m_path);
}

Outcome<WorkPlace> FreeWorkPlace(const QString& folder)
{
    MakeFolders(folder);
    for (int number = 1; number <= kMostEditors; ++number) {
        WorkPlace place = Place(folder, number);
        if (place.lock->IsHeld())
            return place;
    }
    return Failure{QStringLiteral("Le dossier de travail de l'éditeur ne peut pas être écrit\u00A0:\n%1")
                       .arg(ShownPath(folder))};
}

std::vector<WorkPlace> PlacesWithLeftWork(const QString& folder, SettingsStore& store)
{
    std::vector<WorkPlace> left;
    for (int number = 1; number <= kMostEditors; ++number) {
        if (!QFileInfo::exists(PathOf(folder, number)))
            continue;
        WorkPlace place = Place(folder, number);
        if (place.lock->IsHeld() && WorkFile(store, place.path).LeftBehind())
            left.push_back(place);
    }
    return left;
}

} // namespace stoikal
