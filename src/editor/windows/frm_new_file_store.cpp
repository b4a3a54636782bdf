#include "base/fatal_fault.h"
#include "base/shown_path.h"
#include "editor/number_list.h"
#include "editor/progress_data.h"
#include "editor/windows/comment_page.h"
#include "editor/windows/data_page.h"
#include "editor/windows/formula_page.h"
#include "editor/windows/frm_new_file.h"
#include "editor/windows/frm_preview.h"
#include "editor/windows/state_page.h"
#include "forms/messages.h"
#include "platform/doors.h"

#include <QLabel>
#include <QProgressBar>
#include <QTabWidget>
#include <QTimer>
#include <utility>

namespace stoikal {
namespace {

/// "Réactif 1 : H2".
QString SlotCaption(std::size_t slot, const QString& formula)
{
    const QString caption = slot < 3 ? QStringLiteral("Réactif %1 :").arg(slot + 1)
                                     : QStringLiteral("Produit %1 :").arg(slot - 2);
    return formula.isEmpty() ? caption : caption + QLatin1Char(' ') + formula;
}

} // namespace

/// The equation as the boxes hold it; what no box shows is as it was stored.
WorkEquation frmNewFile::Entered() const
{
    WorkEquation equation = m_stored;
    equation.SetFormulas(m_formulas->Texts());
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        equation.Etat.at(slot) = m_states->State(slot, m_stored.Etat.at(slot));
        if (Type() == FileType::Avt && equation.IsInUse(slot))
            equation.MVQ.at(slot) = m_data->Datum(slot, m_stored.MVQ.at(slot));
    }
    if (m_comments->TakesComments())
        equation.Comment = m_comments->Comment();
    return equation;
}

bool frmNewFile::CheckEquationEntry()
{
    const QString sides[]{QStringLiteral("réactifs"), QStringLiteral("produits")};
    for (int side = 0; side < 2; ++side) {
        if (m_formulas->HasText(side))
            continue;
        m_doors.messages.Warning(this, QStringLiteral("Stoikal"),
                                 QStringLiteral("Il n'y a aucune formule de %1 saisie.\n"
                                                "Veuillez en saisir au moins une.\n"
                                                "Sinon, cliquez sur 'Supprimer une équation'")
                                     .arg(sides[side]));
        return false;
    }
    return CheckData();
}

/// Whether no datum of a progress file is negative: such a line ends the study of the
/// reaction. None can be typed; a file written by hand may hold one.
bool frmNewFile::CheckData()
{
    const auto slot = Type() == FileType::Avt ? FirstNegativeDatum(Entered()) : std::nullopt;
    if (!slot)
        return true;
    m_doors.messages.InputError(this,
                                QStringLiteral("La donnée de %1 est négative.\n"
                                               "Veuillez saisir une masse, un volume ou une quantité de "
                                               "matière positive, ou 0.")
                                    .arg(m_formulas->Texts().at(*slot)));
    sstEdit->setCurrentWidget(m_data);
    m_data->FocusNumber(*slot);
    return false;
}

/// True when the work file took the change; else the teacher is told.
bool frmNewFile::Kept(const Outcome<QString>& written)
{
    m_draftFailed = m_draftFailed && !written;
    if (!written) {
        m_doors.messages.Critical(
            this, QStringLiteral("Stoikal"),
            QStringLiteral("Le fichier de travail de l'éditeur ne peut pas être écrit\u00A0:\n%1\n(%2)\n\n"
                           "Remédiez à cette cause, puis recommencez.")
                .arg(ShownPath(m_work.Path()), written.Reason()));
    }
    return written.Succeeded();
}

bool frmNewFile::StoreEquation(int number)
{
    WorkEquation equation = Entered();
    QString fault;
    if (equation.NeedsBalancing()) {
        m_isBusy = true;
        try {
            EnterBalancing(equation, number, m_comments->TakesComments(), *this);
        } catch (const FatalFault& trouble) {
            fault = trouble.OperationText();
        }
        // A search may end without saying so: behind a fault, or without any result.
        SearchEnds();
        AttemptsEnd();
        m_isBusy = false;
    }
    tmrDraft->stop();
    if (!Kept(m_work.Store(number, equation, DeskNow())))
        return false;
    m_stored = equation;
    if (!fault.isEmpty())
        m_doors.messages.OperationFault(this, fault);
    return fault.isEmpty();
}

/// A box that a button's click left is checked before the button does its work.
bool frmNewFile::MayStore()
{
    if (m_isBusy)
        return false;
    ReportUnknownSymbols();
    return CheckEquationEntry();
}

bool frmNewFile::CheckAndStore()
{
    if (m_isBusy || !CheckEquationEntry() || !StoreEquation(m_desk.number))
        return false;
    RefreshPreview(m_desk.count);
    return true;
}

void frmNewFile::ShowEquation(int number)
{
    m_isShowing = true;
    m_stored = m_work.Equation(number);
    m_formulas->Show(m_stored.Molecule);
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        m_states->Show(slot, m_stored.Etat.at(slot));
        m_data->Show(slot, m_stored.MVQ.at(slot));
    }
    m_comments->ShowComment(m_stored.Comment);
    m_isShowing = false;
    ShowUse();
}

/// A species that is there can have a datum on a progress file.
void frmNewFile::ShowUse()
{
    if (m_isShowing)
        return;
    const auto formulas = m_formulas->Texts();
    const bool wasShowing = std::exchange(m_isShowing, true);
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot)
        m_data->Enable(slot, Type() == FileType::Avt && !formulas.at(slot).isEmpty());
    m_isShowing = wasShowing;
}

void frmNewFile::RefreshMVQCaptions()
{
    const auto formulas = m_formulas->Texts();
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        const QString caption = SlotCaption(slot, formulas.at(slot));
        m_states->SetCaption(slot, caption);
        m_data->SetCaption(slot, caption);
    }
}

void frmNewFile::RefreshPreview(int count)
{
    if (m_preview != nullptr)
        m_preview->ShowListing(
            m_listing.Text(m_comments->Head(), m_work.Equations(count), m_comments->TakesComments()),
            m_desk.number);
    m_failed = m_work.FailedEquations(count);
    imgECHEC->setVisible(!m_failed.empty());
    lblECHEC->setVisible(!m_failed.empty());
    lblECHEC->setText(QStringLiteral("Non équilibrée\u00A0: n° %1").arg(NumberList(m_failed)));
}

void frmNewFile::Append(const QString& text)
{
    if (m_preview != nullptr)
        m_preview->Append(text);
}

} // namespace stoikal
