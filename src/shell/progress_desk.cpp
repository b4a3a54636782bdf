#include "shell/progress_desk.h"

#include "base/fatal_fault.h"
#include "charts/windows/frm_histo_mol.h"
#include "exercise/windows/frm_equation.h"
#include "forms/messages.h"
#include "shell/session.h"
#include "shell/windows/frm_stoikal.h"

#include <QMdiSubWindow>

namespace stoikal {

ProgressDesk::ProgressDesk(Session& session, frmStoikal& mainWindow)
    : m_session(session)
    , m_mainWindow(mainWindow)
{
}

ProgressDesk::~ProgressDesk() = default;

void ProgressDesk::Attach(frmEquation& equation)
{
    m_equation = &equation;
    m_table = new ProgressPane(
        {m_session.settings, m_session.messages, m_session.desktop.regional.DecimalSeparator()}, *this);
    equation.SetLowerPane(m_table);
    connect(m_table, &ProgressPane::DataToggled, this, &ProgressDesk::MassMolAsked);
    connect(m_table, &ProgressPane::DrawingsToggled, this, &ProgressDesk::ShowDrawings);
    connect(m_table, &ProgressPane::TableChanged, this, &ProgressDesk::RefreshDrawings);
}

void ProgressDesk::Detach()
{
    ShowDrawings(false);
    m_equation = nullptr;
    m_table = nullptr;
}

void ProgressDesk::TakeEquation()
{
    if (m_session.state.FichierAvancement)
        m_table->TakeEquation(m_session.run.Record(), m_session.state.SerieExercices);
}

void ProgressDesk::NoteExerciseShown()
{
    if (m_drawings != nullptr)
        m_drawings->ClearMask();
}

void ProgressDesk::NoteMassMolShown(bool shown)
{
    if (m_table != nullptr)
        m_table->SetShowsData(shown);
}

void ProgressDesk::FollowMolarVolume()
{
    if (m_table == nullptr || !m_session.state.FichierAvancement)
        return;
    try {
        m_table->FollowMolarVolume();
    } catch (const FatalFault& fault) {
        m_session.messages.OperationFault(&m_mainWindow, fault.OperationText());
    }
}

void ProgressDesk::PassStep()
{
    m_equation->PassStep();
}

bool ProgressDesk::FailStep()
{
    return m_equation->FailStep();
}

void ProgressDesk::SetInstruction(const QString& words)
{
    m_equation->SetInstruction(words);
}

void ProgressDesk::EndEquation()
{
    m_equation->ShowNext();
    Q_EMIT EquationEnded();
}

void ProgressDesk::ShowDrawings(bool shown)
{
    if (shown && m_drawings == nullptr)
        OpenDrawings();
    else if (!shown && m_drawings != nullptr)
        m_drawings->Unload();
}

void ProgressDesk::OpenDrawings()
{
    const Platform& desktop = m_session.desktop;
    m_drawings = new frmHistoMol(m_table->Table(), {desktop.clipboard, desktop.regional.DecimalSeparator()},
                                 nullptr);
    connect(m_drawings, &frmHistoMol::HideEquationAsked, this, &ProgressDesk::HideExercise);
    connect(m_drawings, &frmHistoMol::Unloaded, this, &ProgressDesk::FreeDrawings);
    connect(m_drawings, &Form::CloseAsked, m_drawings, &frmHistoMol::Unload);
    m_mainWindow.AddTool(m_drawings);
}

void ProgressDesk::FreeDrawings()
{
    if (m_drawings == nullptr)
        return;
    QWidget* const child = m_drawings->parentWidget();
    m_drawings = nullptr;
    child->hide();
    child->deleteLater();
    if (m_table != nullptr)
        m_table->SetShowsDrawings(false);
}

void ProgressDesk::RefreshDrawings()
{
    if (m_drawings != nullptr)
        m_drawings->Refresh();
}

void ProgressDesk::HideExercise(bool hidden)
{
    if (m_equation == nullptr)
        return;
    m_equation->setVisible(!hidden);
    if (!hidden)
        m_equation->activateWindow();
}

} // namespace stoikal
