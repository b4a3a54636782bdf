#include "balancing/windows/frm_expert.h"

#include "balancing/equation_line_writer.h"
#include "balancing/equation_search.h"
#include "balancing/windows/molecule_boxes.h"
#include "balancing/windows/save_request.h"
#include "base/fatal_fault.h"
#include "base/shown_path.h"
#include "forms/messages.h"
#include "platform/doors.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace stoikal {
frmExpert::frmExpert(const Doors& doors, QWidget* parent)
    : SearchingForm(QStringLiteral("frmExpert"), QStringLiteral("Equilibrer une équation"), doors, parent)
    , BalancingWatch(*this, doors.messages, doors.clock, QEventLoop::AllEvents)
    , m_boxes(new MoleculeBoxes(FormulaField::Expert, doors.messages, this))
    , cmdBalance(Named(new QPushButton(QStringLiteral("Equilibrage"), this), QStringLiteral("cmdBalance"),
                       QStringLiteral("Equilibrage")))
    , cmdNewMol(Named(new QPushButton(QStringLiteral("Nouvelles molécules"), this),
                      QStringLiteral("cmdNewMol"), QStringLiteral("Nouvelles molécules")))
    , cmdClearList(Named(new QPushButton(QStringLiteral("Effacer"), this), QStringLiteral("cmdClearList"),
                         QStringLiteral("Effacer")))
    , cmdSave(Named(new QPushButton(QStringLiteral("Sauvegarder"), this), QStringLiteral("cmdSave"),
                    QStringLiteral("Sauvegarder")))
    , chkOption(Named(new QCheckBox(QStringLiteral("Afficher le coefficient lorsqu'il est égal à 1"), this),
                      QStringLiteral("chkOption(1)"),
                      QStringLiteral("Afficher le coefficient lorsqu'il est égal à 1")))
    , txtResult(Named(new QPlainTextEdit(this), QStringLiteral("txtResult"),
                      QStringLiteral("Liste des équations équilibrées")))
    , pgbCompteur(Named(new QProgressBar(this), QStringLiteral("pgbCompteur"),
                        QStringLiteral("Progression de la recherche")))
{
    Build();
    connect(m_boxes, &MoleculeBoxes::Edited, this, [this] { cmdSave->setEnabled(false); });
    connect(m_boxes, &MoleculeBoxes::FormulaChanged, this, &frmExpert::ShowWhatCanBeDone);
    connect(cmdBalance, &QPushButton::clicked, this, &frmExpert::cmdBalance_Click);
    connect(cmdNewMol, &QPushButton::clicked, this, &frmExpert::cmdNewMol_Click);
    connect(cmdClearList, &QPushButton::clicked, this, &frmExpert::cmdClearList_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmExpert::cmdSave_Click);
    cmdSave->setEnabled(false);
    ShowWhatCanBeDone();
    setFocusProxy(m_boxes);
}

void frmExpert::Build()
{
    cmdBalance->setToolTip(
        QStringLiteral("Pour lancer la recherche automatique d'équilibrage de l'équation chimique"));
    cmdNewMol->setToolTip(
        QStringLiteral("Pour effacer les formules chimiques moléculaires afin d'en saisir d'autres"));
    cmdClearList->setToolTip(QStringLiteral("Pour effacer la liste de toutes les équations équilibrées"));
    cmdSave->setToolTip(
        QStringLiteral("Pour sauvegarder la dernière équation équilibrée dans le fichier de votre choix"));
    SetUpList(*txtResult);
    txtResult->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    QSizePolicy keepsPlace = pgbCompteur->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    pgbCompteur->setSizePolicy(keepsPlace);
    pgbCompteur->setTextVisible(false);
    pgbCompteur->hide();

    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    for (QPushButton* const button : {cmdBalance, cmdNewMol, cmdClearList, cmdSave})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(chkOption);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    rows->addWidget(m_boxes);
    rows->addLayout(buttons);
    rows->addWidget(txtResult, 1);
    rows->addWidget(pgbCompteur);
}

void frmExpert::ShowWhatCanBeDone()
{
    cmdBalance->setEnabled(m_boxes->HasText(0) && m_boxes->HasText(1));
}

void frmExpert::cmdBalance_Click()
{
    // A press during a search changes nothing.
    if (IsSearching())
        return;
    BeginSearch();
    cmdSave->setEnabled(false);
    m_listBefore = txtResult->toPlainText();
    m_numberBefore = m_equationNumber;
    BalancingTask task;
    task.number = ++m_equationNumber;
    task.molecules = m_boxes->Texts();
    task.showsOnes = chkOption->isChecked();
    try {
        const BalancingResult result = BalanceEquation(task, *this);
        m_molecules = task.molecules;
        m_coefficients = result.coefficients;
    } catch (const FatalFault& fault) {
        // The operation is over without a result; what was typed stays.
        SearchEnds();
        AttemptsEnd();
        m_equationNumber = m_numberBefore;
        txtResult->setPlainText(m_listBefore);
        txtResult->moveCursor(QTextCursor::End);
        cmdSave->setEnabled(false);
        Desktop().messages.OperationFault(this, fault.OperationText());
    }
    EndSearch();
}

void frmExpert::cmdNewMol_Click()
{
    cmdSave->setEnabled(false);
    m_boxes->Empty();
}

void frmExpert::cmdClearList_Click()
{
    // A search that is going on gives the first result of the new list, or none:
    // failing, it must not bring the old list back.
    m_equationNumber = IsSearching() ? 1 : 0;
    txtResult->clear();
    m_numberBefore = 0;
    m_listBefore.clear();
}

void frmExpert::cmdSave_Click()
{
    Dialogs::Request request
        = EquationFileRequest(Desktop().settings, Desktop().equationFolder, QStringLiteral("cdgSave"),
                              QStringLiteral("Sauvegarder l'équation"));
    // The file exists, but it is written to, not opened.
    request.accept = QStringLiteral("&Enregistrer");
    const auto choice = Desktop().dialogs.OpenFile(this, request);
    if (!choice)
        return;
    RememberFilter(Desktop().settings, choice->filter);
    const auto written
        = EquationAppender::AppendEquation(choice->path, BalancedEquationLine(m_molecules, m_coefficients));
    if (!written) {
        Desktop().messages.Critical(this, QStringLiteral("Stoikal"), written.Reason());
        return;
    }
    const QFileInfo file(choice->path);
    Desktop().messages.Information(
        this, QStringLiteral("Enregistrement réussie"),
        QStringLiteral(
            "La dernière équation équilibrée vient d'être copiée dans le fichier %1 dans le dossier :\n%2")
            .arg(file.fileName(), ShownPath(file.absolutePath())));
}

void frmExpert::Append(const QString& text)
{
    ShowAtEnd(*txtResult, text);
}

void frmExpert::ResultWritten()
{
    cmdSave->setEnabled(true);
}

} // namespace stoikal
