#include "balancing/windows/frm_search.h"

#include "balancing/equation_search.h"
#include "balancing/windows/molecule_boxes.h"
#include "balancing/windows/save_request.h"
#include "base/fatal_fault.h"
#include "base/password_file.h"
#include "base/text_lines.h"
#include "equation_files/equation_file.h"
#include "forms/messages.h"
#include "platform/doors.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace stoikal {
namespace {

/// So many lines are looked at before the clock is asked again.
constexpr int kLinesBetween = 256;
/// More findings than these characters hold take long to be shown at once.
constexpr qsizetype kMostUnshown = 60000;

/// An empty line or a comment.
bool IsPassedOver(QByteArrayView line)
{
    qsizetype first = 0;
    while (first < line.size() && line[first] == ' ')
        ++first;
    return line.isEmpty() || (first < line.size() && line[first] == '\'');
}

} // namespace

frmSearch::frmSearch(const Doors& doors, QWidget* parent)
    : SearchingForm(QStringLiteral("frmSearch"), QStringLiteral("Rechercher dans les fichiers d'équations"),
                    doors, parent)
    , m_turns(doors.clock)
    , m_boxes(new MoleculeBoxes(FormulaField::Search, doors.messages, this))
    , cmdSearch(Named(new QPushButton(QStringLiteral("Lancer la recherche"), this),
                      QStringLiteral("cmdSearch"), QStringLiteral("Lancer la recherche")))
    , cmdNewMol(Named(new QPushButton(QStringLiteral("Nouvelles molécules"), this),
                      QStringLiteral("cmdNewMol"), QStringLiteral("Nouvelles molécules")))
    , cmdClearList(Named(new QPushButton(QStringLiteral("Effacer"), this), QStringLiteral("cmdClearList"),
                         QStringLiteral("Effacer")))
    , chkSave(Named(
          new QCheckBox(QStringLiteral("Créer un nouveau fichier avec les équations trouvées"), this),
          QStringLiteral("chkSave"), QStringLiteral("Créer un nouveau fichier avec les équations trouvées")))
    , flbEQU(Named(new QListWidget(this), QStringLiteral("flbEQU"), QStringLiteral("Fichiers d'équations")))
    , txtResult(
          Named(new QPlainTextEdit(this), QStringLiteral("txtResult"), QStringLiteral("Équations trouvées")))
{
    Build();
    connect(m_boxes, &MoleculeBoxes::FormulaChanged, this,
            [this] { cmdSearch->setEnabled(m_boxes->HasText(0) || m_boxes->HasText(1)); });
    connect(cmdSearch, &QPushButton::clicked, this, &frmSearch::SearchEquations);
    connect(cmdNewMol, &QPushButton::clicked, m_boxes, &MoleculeBoxes::Empty);
    connect(cmdClearList, &QPushButton::clicked, txtResult, &QPlainTextEdit::clear);
    cmdSearch->setEnabled(false);
    setFocusProxy(m_boxes);
}

void frmSearch::Build()
{
    SetUpList(*txtResult);
    flbEQU->setUniformItemSizes(true);
    flbEQU->setSelectionMode(QAbstractItemView::SingleSelection);
    flbEQU->setFixedWidth(240);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    for (QPushButton* const button : {cmdSearch, cmdNewMol, cmdClearList})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(chkSave);
    auto* const lists = new QHBoxLayout;
    lists->setSpacing(8);
    lists->addWidget(txtResult, 1);
    lists->addWidget(flbEQU);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    rows->addWidget(m_boxes);
    rows->addLayout(buttons);
    rows->addLayout(lists, 1);
}

void frmSearch::ShowFiles(const Outcome<QStringList>& files)
{
    const QStringList names = files ? *files : QStringList();
    // Thousands of files are mostly those that stand there already.
    if (names == m_listed)
        return;
    m_listed = names;
    flbEQU->clear();
    flbEQU->addItems(names);
}

void frmSearch::showEvent(QShowEvent* event)
{
    ShowFiles(EquationFilesOf(Desktop().equationFolder));
    Form::showEvent(event);
}

void frmSearch::SearchEquations()
{
    if (IsSearching())
        return;
    const auto output = chkSave->isChecked() ? ChooseOutput() : QString();
    if (!output)
        return;
    const auto files = EquationFilesOf(Desktop().equationFolder);
    ShowFiles(files);
    if (!files) {
        Report(files.Reason());
        return;
    }
    // Listed first: a file that comes only now is none of those searched.
    if (!OpenOutput(*output))
        return;
    BeginSearch();
    setCursor(Qt::WaitCursor);
    const bool isComplete = SearchFiles(*files);
    WriteFindings();
    unsetCursor();
    if (!EndSearch() || !isComplete || !m_findings)
        return;
    ShowFiles(EquationFilesOf(Desktop().equationFolder));
    Q_EMIT FileGathered(m_findings->Path());
}

std::optional<QString> frmSearch::ChooseOutput()
{
    Dialogs::Request request
        = EquationFileRequest(Desktop().settings, Desktop().equationFolder, QStringLiteral("cdgSave"),
                              QStringLiteral("Créer un fichier d'équations"));
    request.fileName = QStringLiteral("Nom_du_Fichier.EQU");
    const auto choice = Desktop().dialogs.AppendToFile(this, request);
    if (!choice)
        return std::nullopt;
    RememberFilter(Desktop().settings, choice->filter);
    if (!QFileInfo(choice->path).suffix().isEmpty())
        return choice->path;
    return choice->path + (choice->filter == 1 ? QStringLiteral(".Avt") : QStringLiteral(".Equ"));
}

/// An empty path gathers nothing.
bool frmSearch::OpenOutput(const QString& path)
{
    m_findings.reset();
    if (path.isEmpty())
        return true;
    const auto opened = FindingsFile::Open(path, Desktop().passwordFile);
    if (!opened) {
        Report(opened.Reason());
        return false;
    }
    m_findings = *opened;
    return true;
}

/// A file that takes no more ends the search: it would go on for nothing.
void frmSearch::WriteFindings()
{
    if (!m_findings)
        return;
    const auto written = m_findings->WriteOut();
    if (written)
        return;
    m_findings.reset();
    StopSearch();
    Report(written.Reason());
}

void frmSearch::Report(const QString& reason)
{
    Desktop().messages.Critical(this, QStringLiteral("Stoikal"), reason);
}

bool frmSearch::SearchFiles(const QStringList& files)
{
    m_turns.Restart();
    EquationPattern pattern(m_boxes->Texts());
    try {
        for (const QString& name : files) {
            const bool goesOn = SearchFile(name, pattern);
            TakeTurn();
            if (!goesOn || IsStopped()) {
                ShowList();
                return false;
            }
        }
    } catch (const FatalFault& fault) {
        // The search is over; what was found so far stays.
        ShowList();
        WriteFindings();
        Desktop().messages.OperationFault(this, fault.OperationText());
        return false;
    }
    AddToList(QLatin1Char('\n') + QString(100, QLatin1Char('*')));
    ShowList();
    return true;
}

Outcome<QByteArray> frmSearch::ReadFile(const QString& path) const
{
    if (IsPasswordFile(path, Desktop().passwordFile))
        return Failure{QStringLiteral("ce fichier est réservé à l'enseignant")};
    // Read whole before it is matched: the file may be the one written to.
    auto bytes = ReadEquationBytes(path);
    if (!bytes)
        return bytes;
    if (m_findings && m_findings->IsAt(path))
        bytes->truncate(m_findings->SizeBefore());
    return NormaliseTextBytes(*bytes);
}

bool frmSearch::SearchFile(const QString& name, EquationPattern& pattern)
{
    AddToList(QStringLiteral("\nDans le fichier %1 : ").arg(OnOneLine(name)));
    const QString path = Desktop().equationFolder + QLatin1Char('/') + name;
    const auto bytes = ReadFile(path);
    if (!bytes) {
        AddToList(QStringLiteral("(illisible : %1)").arg(bytes.Reason()));
        return true;
    }
    LineWalker walker(*bytes);
    int number = 0;
    while (!walker.AtEnd()) {
        const QByteArrayView line = walker.Next();
        if (++number % kLinesBetween == 0 || m_unshown.size() > kMostUnshown) {
            TakeTurn();
            if (IsStopped())
                return false;
        }
        if (IsPassedOver(line))
            continue;
        // A search that gathers ends at such a line without a word.
        if (m_findings && !line.contains('='))
            return false;
        try {
            if (!pattern.Matches(line))
                continue;
        } catch (const FatalFault& fault) {
            throw fault.At(path, number, DecodeLine(line));
        }
        if (m_findings)
            m_findings->Add(line);
        AddToList(QLatin1Char('\n') + QString(20, QLatin1Char(' ')) + DecodeLine(line));
    }
    return true;
}

void frmSearch::AddToList(const QString& text)
{
    m_unshown += text;
}

void frmSearch::ShowList()
{
    ShowAtEnd(*txtResult, m_unshown);
    m_unshown.clear();
}

void frmSearch::TakeTurn()
{
    if (!m_turns.IsDue() && m_unshown.size() <= kMostUnshown)
        return;
    ShowList();
    // The turn may bring the end of the program.
    WriteFindings();
    m_turns.Take();
}

} // namespace stoikal
