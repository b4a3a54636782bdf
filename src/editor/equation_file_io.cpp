#include "editor/equation_file_io.h"

#include "base/fatal_fault.h"
#include "base/file_access.h"
#include "base/shown_path.h"
#include "base/text_lines.h"
#include "base/whole_file.h"
#include "equation_files/equation_file.h"
#include "equation_files/equation_pieces.h"

#include <QDir>
#include <QFileInfo>

namespace stoikal {
namespace {

constexpr QLatin1Char kComma(',');
constexpr QLatin1Char kApostrophe('\'');
/// The work file of more is written for longer than a person waits for a key.
constexpr int kMostEquations = 4000;

void TakeCoefficients(const QString& text, WorkEquation& equation)
{
    if (text.isEmpty())
        return;
    const QStringList fields = text.split(kComma);
    qsizetype next = 0;
    for (std::size_t slot = 0; slot < WorkEquation::kSlots && next < fields.size(); ++slot) {
        if (equation.IsInUse(slot))
            equation.Coeff.at(slot) = fields.at(next++);
    }
}

void TakeData(const QString& text, WorkEquation& equation)
{
    const QStringList items = text.toUpper().split(kComma);
    std::size_t slot = 0;
    for (const QString& item : items) {
        while (slot < WorkEquation::kSlots && !equation.IsInUse(slot))
            ++slot;
        if (slot == WorkEquation::kSlots)
            throw FatalFault(QStringLiteral("la ligne a plus de données d'avancement que d'espèces."));
        equation.MVQ.at(slot++) = item;
    }
}

WorkEquation ReadEquation(const QString& line)
{
    const EquationPieces pieces = CutEquationLine(line);
    WorkEquation equation;
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        equation.Molecule.at(slot) = pieces.species.at(slot);
        equation.Etat.at(slot) = TakeState(equation.Molecule.at(slot));
    }
    if (pieces.coefficients)
        TakeCoefficients(*pieces.coefficients, equation);
    if (pieces.data)
        TakeData(*pieces.data, equation);
    return equation;
}

/// One side of an equation: the species present, each with its state.
QString Side(const WorkEquation& equation, std::size_t first)
{
    QStringList species;
    for (std::size_t slot = first; slot < first + 3; ++slot) {
        if (!equation.IsInUse(slot))
            continue;
        const QString& state = equation.Etat.at(slot);
        species << equation.Molecule.at(slot)
                + (state.isEmpty() ? QString() : QLatin1Char('<') + state + QLatin1Char('>'));
    }
    return species.join(QLatin1Char('+'));
}

QString ForPresentSpecies(const WorkEquation& equation,
                          const std::array<QString, WorkEquation::kSlots>& texts)
{
    QStringList fields;
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        if (equation.IsInUse(slot))
            fields << texts.at(slot);
    }
    return fields.join(kComma);
}

QString EquationLine(const WorkEquation& equation, FileType type)
{
    QString line = Side(equation, 0) + QLatin1Char('=') + Side(equation, 3) + QLatin1Char('/')
        + ForPresentSpecies(equation, equation.Coeff);
    if (type == FileType::Avt)
        line += QLatin1Char('#') + ForPresentSpecies(equation, equation.MVQ);
    return line;
}

Failure WouldBeTooLarge(const QString& path, const QString& reason)
{
    return {QStringLiteral("Le fichier « %1 » n'a pas été écrit\u00A0:\n%2\n\n"
                           "Votre saisie est conservée. Répartissez-la entre plusieurs fichiers, puis "
                           "recommencez.")
                .arg(ShownPath(path), reason)};
}

Failure NotWritten(const QString& path, const QString& reason)
{
    return {QStringLiteral("Le fichier « %1 » n'a pas pu être écrit\u00A0:\n%2\n\n"
                           "Votre saisie est conservée. Libérez de la place ou demandez le droit "
                           "d'écrire dans ce dossier, puis recommencez.")
                .arg(ShownPath(path), reason)};
}

} // namespace

LoadedFile ReadEquations(const QByteArray& bytes, const QString& path)
{
    LoadedFile loaded;
    QStringList head;
    QString comment;
    int number = 0;
    const QStringList lines = DecodeLines(bytes);
    for (const QString& line : lines) {
        ++number;
        if (line.startsWith(kApostrophe)) {
            if (loaded.equations.empty())
                head << line.sliced(1).trimmed();
            else
                comment = line.sliced(1).trimmed();
            continue;
        }
        if (line.count(QLatin1Char(' ')) == line.size())
            continue;
        try {
            loaded.equations.push_back(ReadEquation(line));
        } catch (const FatalFault& fault) {
            throw fault.At(path, number, line);
        }
        loaded.equations.back().Comment = comment;
        comment.clear();
    }
    loaded.head = head.join(QLatin1Char('\n'));
    return loaded;
}

Outcome<LoadedFile> LoadFileIntoEditor(const QString& path)
{
    const auto bytes = ReadEquationFile(path);
    if (!bytes)
        return Failure{bytes.Reason()};
    const int count = CountEquations(NormaliseTextBytes(*bytes)).equationCount;
    if (count > kMostEquations)
        return Failure{QStringLiteral("Le fichier d'équations « %1 » compte %2 équations\u00A0: "
                                      "l'éditeur en prend %3 au plus.\n\nPartagez-le en plusieurs fichiers.")
                           .arg(ShownPath(path), QString::number(count), QString::number(kMostEquations))};
    LoadedFile loaded = ReadEquations(*bytes, path);
    loaded.version = VersionOf(QFileInfo(path).fileName(), *bytes);
    return loaded;
}

QByteArray EquationFileBytes(const QString& head, const std::vector<WorkEquation>& equations, FileType type)
{
    QByteArray bytes;
    const auto add = [&bytes](const QString& line) { bytes += EncodeLine(line) + "\r\n"; };
    // The box parts its lines by CR and LF and is cut at the LF: each piece but
    // the last keeps its CR, so those lines end in CR CR LF.
    QStringList pieces = head.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i + 1 < pieces.size(); ++i)
        pieces[i] += QLatin1Char('\r');
    for (const QString& piece : pieces)
        add(kApostrophe + piece);
    for (const WorkEquation& equation : equations) {
        if (!equation.Comment.isEmpty())
            add(kApostrophe + equation.Comment);
        add(EquationLine(equation, type));
    }
    return bytes;
}

QString EquationFileName(const QString& name, FileType type)
{
    return name + (type == FileType::Avt ? QStringLiteral(".Avt") : QStringLiteral(".Equ"));
}

QStringList SameNames(const QString& folder, const QString& fileName)
{
    QStringList same;
    const QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names) {
        if (name.compare(fileName, Qt::CaseInsensitive) == 0)
            same << name;
    }
    return same;
}

Outcome<QString> WriteEquationFile(const QString& folder, const QString& fileName, const QByteArray& bytes)
{
    const QDir place(folder);
    const QString path = place.filePath(fileName);
    if (!MakeFolders(folder))
        return NotWritten(path, QStringLiteral("le dossier n'existe pas."));
    if (const auto above = AboveLimit(bytes, kExerciseLimit))
        return WouldBeTooLarge(path, above->text);
    if (const auto written = ReplaceFile(path, bytes, Sharing::Account); !written)
        return NotWritten(path, written.Reason());
    const QStringList spellings = SameNames(folder, fileName);
    for (const QString& other : spellings) {
        if (other != fileName && !RemoveFile(place.filePath(other)))
            return NotWritten(place.filePath(other),
                              QStringLiteral("une autre écriture du même nom n'a pas pu être supprimée."));
    }
    return path;
}

} // namespace stoikal
