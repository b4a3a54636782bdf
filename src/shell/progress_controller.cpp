#include "shell/progress_controller.h"

#include "base/fatal_fault.h"
#include "charts/windows/frm_histo_mol.h"
#include "exercise/windows/frm_equation.h"
#include "forms/messages.h"
#include "platform/doors.h"
#include "shell/window_rows.h"
#include "shell/windows/frm_stoikal.h"

namespace stoikal {

ProgressController::ProgressController(const Services& services, const WindowHost& host)
    : m_services(services)
    , m_host(host)
    , m_drawings(window_rows::kHistoMol, host, [this](QWidget* parent) { return MakeDrawings(parent); })
{
    connect(&m_drawings, &HostedWindow::Closed, this, &ProgressController::NoteDrawingsGone);
}

ProgressController::~ProgressController() = default;

void ProgressController::Attach(frmEquation& equation)
{
    m_equation = &equation;
    m_table = new ProgressPane({m_host.settings, m_services.messages, m_services.regional.DecimalSeparator()},
                               *this);
    equation.SetLowerPane(m_table);
    connect(m_table, &ProgressPane::DataToggled, this, &ProgressController::MassMolAsked);
    connect(m_table, &ProgressPane::DrawingsToggled, this, &ProgressController::ShowDrawings);
    connect(m_table, &ProgressPane::TableChanged, this, &ProgressController::RefreshDrawings);
}

void ProgressController::Detach()
{
    ShowDrawings(false);
    m_equation = nullptr;
    m_table = nullptr;
}

void ProgressController::TakeEquation()
{
    const RunState& run = m_services.run.State();
    if (run.FichierAvancement())
        m_table->TakeEquation(m_services.run.Record(), run.SerieExercices());
}

void ProgressController::NoteExerciseShown()
{
    if (m_drawings.IsOpen())
        m_drawings.Get()->ClearMask();
}

void ProgressController::NoteMassMolShown(bool shown)
{
    if (m_table != nullptr)
        m_table->SetShowsData(shown);
}

void ProgressController::FollowMolarVolume()
{
    if (m_table == nullptr || !m_services.run.State().FichierAvancement())
        return;
    try {
        m_table->FollowMolarVolume();
    } catch (const FatalFault& fault) {
        m_services.messages.OperationFault(&m_host.mainWindow, fault.OperationText());
    }
}

void ProgressController::PassStep()
{
    m_equation->PassStep();
}

bool ProgressController::FailStep()
{
    return m_equation->FailStep();
}

void ProgressController::SetInstruction(const QString& words)
{
    m_equation->SetInstruction(words);
}

void ProgressController::EndEquation()
{
    m_equation->ShowNext();
    Q_EMIT EquationEnded();
}

void ProgressController::ShowDrawings(bool shown)
{
    if (shown)
        m_drawings.Open();
    else
        m_drawings.Close();
}

frmHistoMol* ProgressController::MakeDrawings(QWidget* parent)
{
    auto* const window = new frmHistoMol(
        m_table->Table(), {m_services.clipboard, m_services.regional.DecimalSeparator()}, parent);
    connect(window, &frmHistoMol::HideEquationAsked, this, &ProgressController::HideExercise);
    return window;
}

void ProgressController::NoteDrawingsGone()
{
    if (m_table != nullptr)
        m_table->SetShowsDrawings(false);
}

void ProgressController::RefreshDrawings()
{
    if (m_drawings.IsOpen())
        m_drawings.Get()->Refresh();
}

void ProgressController::HideExercise(bool hidden)
{
    if (m_equation == nullptr)
        return;
    m_equation->setVisible(!hidden);
    if (!hidden)
        m_equation->activateWindow();
}

} // namespace stoikal
