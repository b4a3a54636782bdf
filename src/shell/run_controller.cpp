#include "shell/run_controller.h"

#include "base/number_text.h"
#include "base/settings_store.h"
#include "exercise/composition_text.h"
#include "exercise/windows/atom_window.h"
#include "exercise/windows/frm_charge.h"
#include "exercise/windows/frm_equation.h"
#include "forms/messages.h"
#include "platform/doors.h"
#include "shell/molar_masses_controller.h"
#include "shell/session_state.h"
#include "shell/stopwatch_controller.h"
#include "shell/window_rows.h"
#include "shell/windows/frm_stoikal.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <algorithm>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

void Unload(QWidget* window)
{
    if (window == nullptr)
        return;
    window->hide();
    window->deleteLater();
}

} // namespace

RunController::RunController(const Services& services, const WindowHost& host)
    : m_services(services)
    , m_host(host)
    , m_progress({services.run, services.messages, services.clipboard, services.regional}, host)
    , m_charge(
          window_rows::kCharge, host, [this](QWidget* parent) { return MakeCharge(parent); },
          [this](frmCharge& window) { window.OpenBeside(*m_equation); })
{
    connect(&m_progress, &ProgressController::EquationEnded, &services.stopwatch, &StopwatchController::Bank);
    connect(&m_progress, &ProgressController::MassMolAsked, &services.molarMasses,
            &MolarMassesController::Show);
    connect(&services.molarMasses, &MolarMassesController::Shown, &m_progress,
            &ProgressController::NoteMassMolShown);
    connect(&services.molarMasses, &MolarMassesController::GasDataChanged, &m_progress,
            &ProgressController::FollowMolarVolume);
    connect(&m_charge, &HostedWindow::Opened, this, &RunController::Changed);
    connect(&m_charge, &HostedWindow::Closed, this, &RunController::Changed);
    connect(&services.stopwatch, &StopwatchController::ClosedByUser, this, &RunController::ReturnToExercise);
}

RunController::~RunController() = default;

frmEquation* RunController::Exercise() const
{
    return m_equation;
}

template <typename Window>
Window* RunController::OpenAtomWindow()
{
    auto* const window = new Window(m_host.settings, nullptr);
    ConnectAtomWindow(*window);
    m_host.mainWindow.AddChild(window);
    return window;
}

void RunController::ConnectAtomWindow(AtomWindow& window)
{
    connect(&window, &AtomWindow::MouseReleasedOver, this, &RunController::RaiseWorkingWindows);
}

void RunController::ConnectExercise()
{
    connect(m_equation, &frmEquation::EquationRead, this, &RunController::TakeEquation);
    connect(m_equation, &frmEquation::Recomposed, this, &RunController::ShowCounts);
    connect(m_equation, &frmEquation::EquationShown, &m_services.molarMasses,
            &MolarMassesController::Refresh);
    connect(m_equation, &frmEquation::EquationShown, this, &RunController::RestartSeriesClock);
    connect(m_equation, &frmEquation::EndOfFileReached, this, &RunController::EndOfFileReached);
    connect(m_equation, &Form::CloseAsked, this, &RunController::CloseAsked);
}

void RunController::Open()
{
    m_equation = new frmEquation(
        m_services.run,
        {m_host.places, m_services.journal, m_services.messages, m_host.screen, m_services.sound},
        &m_host.mainWindow);
    m_services.view.showsAtoms = true;
    ConnectExercise();
    m_progress.Attach(*m_equation);
    CloseAtoms();
    m_reactif = OpenAtomWindow<frmReactif>();
    m_produit = OpenAtomWindow<frmProduit>();
    ArrangeAtomWindows();
    m_services.stopwatch.ForgetBanked();
    if (m_services.run.State().IsScored())
        m_services.stopwatch.BeginRun();
    m_equation->ReadNextEquation();
    if (m_equation == nullptr)
        return;
    m_equation->Open();
    if (m_services.run.State().ChargesPresentes)
        m_charge.Open();
    m_equation->activateWindow();
    m_equation->FocusFirstBox();
}

void RunController::CloseExercise()
{
    m_progress.Detach();
    Unload(m_equation);
    m_equation = nullptr;
    m_charge.Close();
    m_services.view.showsAtoms = false;
}

void RunController::CloseAtoms()
{
    if (m_reactif != nullptr)
        Unload(m_reactif->parentWidget());
    if (m_produit != nullptr)
        Unload(m_produit->parentWidget());
    m_reactif = nullptr;
    m_produit = nullptr;
}

void RunController::HideAtoms()
{
    if (m_reactif != nullptr)
        m_reactif->parentWidget()->hide();
    if (m_produit != nullptr)
        m_produit->parentWidget()->hide();
}

void RunController::HideExercise()
{
    if (m_equation != nullptr)
        m_equation->hide();
}

void RunController::ShowExercise()
{
    if (m_equation == nullptr)
        return;
    m_equation->show();
    m_equation->activateWindow();
    m_progress.NoteExerciseShown();
}

void RunController::ShowExerciseInactive()
{
    if (m_equation == nullptr)
        return;
    m_equation->setAttribute(Qt::WA_ShowWithoutActivating);
    m_equation->show();
    m_equation->setAttribute(Qt::WA_ShowWithoutActivating, false);
    m_progress.NoteExerciseShown();
}

void RunController::HideWindowsOfRun()
{
    HideExercise();
    m_charge.HideForRun();
}

void RunController::ShowWindowsOfRun()
{
    m_charge.ShowAfterRun();
    ShowExercise();
}

void RunController::TakeEquation()
{
    Q_EMIT Changed();
    ClearAtoms();
    m_progress.TakeEquation();
}

void RunController::RestartSeriesClock()
{
    if (m_services.run.State().SerieExercices())
        m_services.stopwatch.Start();
}

void RunController::ShowCounts()
{
    DrawAtoms();
    if (!m_services.run.State().ChargesPresentes)
        m_charge.Close();
    else if (m_charge.IsOpen())
        m_charge.Get()->ShowTotals();
}

void RunController::DrawAtoms()
{
    if (!m_services.view.showsAtoms) {
        ClearAtoms();
        return;
    }
    if (m_reactif != nullptr)
        m_reactif->ShowAtoms(m_services.run.Reactants(), m_services.view.atomSize + 1);
    if (m_produit != nullptr)
        m_produit->ShowAtoms(m_services.run.Products(), m_services.view.atomSize + 1);
}

void RunController::ClearAtoms()
{
    if (m_reactif != nullptr)
        m_reactif->Clear();
    if (m_produit != nullptr)
        m_produit->Clear();
}

void RunController::NotePointer(const QString& window)
{
    static const QStringList kOfTheRun{u"frmEquation"_s, u"frmReactif"_s, u"frmProduit"_s};
    if (!kOfTheRun.contains(window))
        return;
    if (m_reactif != nullptr)
        m_reactif->HideBubble();
    if (m_produit != nullptr)
        m_produit->HideBubble();
}

void RunController::ArrangeAtomWindows()
{
    if (!m_services.run.IsOpen() || m_reactif == nullptr || m_produit == nullptr)
        return;
    const QSize viewport = m_host.mainWindow.Area().viewport()->size();
    // What the menu and the frame take from the usable area is not there to fill.
    const int width = std::min(ToPixels(m_host.places.LargeurUtile), viewport.width());
    const int height = std::min(ToPixels(m_host.places.HauteurUtile), viewport.height());
    const QString setting
        = m_host.settings.Read(QStringLiteral("Options"), QStringLiteral("Affichage fenetres"));
    const bool isStacked = ReadFileNumber(setting) != 0;
    const int gap = ToPixels(10);
    const QRect reactants
        = isStacked ? QRect(0, 0, width - gap, height / 2 - gap) : QRect(0, 0, width / 2, height);
    const QRect products = isStacked ? QRect(0, height / 2, width - gap, height / 2 - gap)
                                     : QRect(width / 2, 0, width / 2, height);
    m_reactif->parentWidget()->setGeometry(reactants);
    m_produit->parentWidget()->setGeometry(products);
}

void RunController::ShowArrangement()
{
    ArrangeAtomWindows();
    if (m_equation != nullptr && m_services.view.showsAtoms)
        DrawAtoms();
}

void RunController::RefreshColours()
{
    if (m_reactif != nullptr)
        m_reactif->RefreshColour();
    if (m_produit != nullptr)
        m_produit->RefreshColour();
    if (m_charge.IsOpen())
        m_charge.Get()->RefreshColours();
}

void RunController::RaiseWorkingWindows()
{
    if (m_charge.IsOpen())
        m_charge.Get()->raise();
    if (m_equation != nullptr && m_services.run.IsOpen()) {
        m_equation->raise();
        m_equation->activateWindow();
    }
}

frmCharge* RunController::MakeCharge(QWidget* parent)
{
    return new frmCharge(m_services.run.State(), m_host.places, m_host.settings, m_host.screen, parent);
}

void RunController::Mnu_Atome_Click()
{
    m_services.view.showsAtoms = !m_services.view.showsAtoms;
    if (!m_services.view.showsAtoms)
        ClearAtoms();
    else if (m_equation != nullptr)
        m_equation->Recompose();
}

void RunController::Mnu_Taille_Click(int index)
{
    m_services.view.atomSize = index;
    ClearAtoms();
    if (m_equation != nullptr)
        m_equation->Recompose();
}

void RunController::Mnu_Compo_Click(int slot)
{
    if (m_equation == nullptr)
        return;
    const AtomList atoms = m_services.run.ComposeSlot(slot, m_equation->Coefficients());
    for (const QString& symbol : UnknownSymbols(atoms)) {
        const QString& file = m_services.run.State().TitreFichier;
        m_services.messages.Critical(m_equation, UnknownSymbolTitle(file), UnknownSymbolText(file, symbol));
    }
    const QString text
        = CompositionText(m_services.run.Record().Slots.at(static_cast<size_t>(slot)).Molecule, atoms);
    // The message about a reactant takes the exercise out of its way; the one
    // about a product leaves it where it is.
    const bool isReactant = slot < 3;
    if (isReactant)
        HideExercise();
    m_services.messages.Information(&m_host.mainWindow, QStringLiteral("Stoikal"), text);
    if (isReactant)
        ShowExercise();
}

void RunController::ReturnToExercise()
{
    // The menu and a message leave the keyboard with the main window.
    if (m_equation != nullptr && m_equation->isVisible())
        m_equation->activateWindow();
}

void RunController::Mnu_Charge_Click()
{
    if (m_equation != nullptr)
        m_charge.Toggle();
}

void RunController::Mnu_Copy_Click()
{
    if (m_equation == nullptr)
        return;
    m_services.clipboard.SetText(m_equation->EquationText());
    m_equation->FocusFirstBox();
}

void RunController::Mnu_Del_Click()
{
    if (m_equation != nullptr)
        m_equation->EmptyCoefficients();
}

void RunController::CloseMolarMasses()
{
    m_services.molarMasses.Show(false);
}

} // namespace stoikal
