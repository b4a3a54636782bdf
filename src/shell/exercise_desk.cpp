#include "shell/exercise_desk.h"

#include "base/number_text.h"
#include "exercise/composition_text.h"
#include "exercise/windows/atom_window.h"
#include "exercise/windows/frm_charge.h"
#include "exercise/windows/frm_equation.h"
#include "forms/messages.h"
#include "shell/mass_mol_desk.h"
#include "shell/session.h"
#include "shell/windows/frm_stoikal.h"
#include "tools/windows/frm_chrono.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <algorithm>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kScaleEntries[]{"Mnu_Taille(0)", "Mnu_Taille(1)", "Mnu_Taille(2)", "Mnu_Taille(3)"};
constexpr const char* kSlotEntries[]{"Mnu_Reactif(0)", "Mnu_Reactif(1)", "Mnu_Reactif(2)",
                                     "Mnu_Produit(3)", "Mnu_Produit(4)", "Mnu_Produit(5)"};
constexpr const char* kSlotNames[]{"R1", "R2", "R3", "P1", "P2", "P3"};

void Unload(QWidget* window)
{
    if (window == nullptr)
        return;
    window->hide();
    window->deleteLater();
}

} // namespace

ExerciseDesk::ExerciseDesk(Session& session, frmStoikal& mainWindow)
    : m_session(session)
    , m_mainWindow(mainWindow)
    , m_progress(session, mainWindow)
    , m_massMol(new MassMolDesk(session, mainWindow, this))
{
    connect(&m_progress, &ProgressDesk::EquationEnded, this, &ExerciseDesk::BankSeconds);
    connect(&m_progress, &ProgressDesk::MassMolAsked, this, &ExerciseDesk::ShowMassMol);
    connect(this, &ExerciseDesk::MassMolShown, &m_progress, &ProgressDesk::NoteMassMolShown);
    connect(this, &ExerciseDesk::GasDataChanged, &m_progress, &ProgressDesk::FollowMolarVolume);
    connect(m_massMol, &MassMolDesk::Shown, this, &ExerciseDesk::MassMolShown);
    connect(m_massMol, &MassMolDesk::GasDataChanged, this, &ExerciseDesk::GasDataChanged);
}

ExerciseDesk::~ExerciseDesk() = default;

frmEquation* ExerciseDesk::Exercise() const
{
    return m_equation;
}

template <typename Window>
Window* ExerciseDesk::OpenAtomWindow()
{
    auto* const window = new Window(m_session.settings, nullptr);
    ConnectAtomWindow(*window);
    m_mainWindow.AddChild(window);
    return window;
}

void ExerciseDesk::ConnectAtomWindow(AtomWindow& window)
{
    connect(&window, &AtomWindow::MouseReleasedOver, this, &ExerciseDesk::RaiseWorkingWindows);
}

void ExerciseDesk::ConnectExercise()
{
    connect(m_equation, &frmEquation::EquationRead, this, &ExerciseDesk::TakeEquation);
    connect(m_equation, &frmEquation::Recomposed, this, &ExerciseDesk::ShowCounts);
    connect(m_equation, &frmEquation::EquationShown, m_massMol, &MassMolDesk::Refresh);
    connect(m_equation, &frmEquation::EquationShown, this, &ExerciseDesk::RestartSeriesClock);
    connect(m_equation, &frmEquation::EndOfFileReached, this, &ExerciseDesk::EndOfFileReached);
    connect(m_equation, &Form::CloseAsked, this, &ExerciseDesk::CloseAsked);
}

void ExerciseDesk::Open()
{
    m_equation = new frmEquation(m_session.run,
                                 {m_session.state, m_session.menu, m_session.journal, m_session.messages,
                                  m_session.desktop.screen, m_session.desktop.sound},
                                 &m_mainWindow);
    ConnectExercise();
    m_progress.Attach(*m_equation);
    CloseAtoms();
    m_reactif = OpenAtomWindow<frmReactif>();
    m_produit = OpenAtomWindow<frmProduit>();
    ArrangeAtomWindows();
    m_session.state.BankedSeconds = 0;
    if (m_session.state.IsScored()) {
        Chrono().Reset();
        Chrono().StartRun();
    }
    m_equation->ReadNextEquation();
    if (m_equation == nullptr)
        return;
    m_equation->Open();
    if (m_session.menu.IsEnabled("Mnu_Charge"))
        OpenCharge();
    m_equation->activateWindow();
    m_equation->FocusFirstBox();
}

void ExerciseDesk::CloseExercise()
{
    m_progress.Detach();
    Unload(m_equation);
    m_equation = nullptr;
    UnloadCharge();
    m_session.menu.SetEnabled("Mnu_Charge", false);
    for (size_t slot = 0; slot < 6; ++slot) {
        m_session.menu.SetCaption(kSlotEntries[slot], QLatin1String(kSlotNames[slot]));
        m_session.menu.SetVisible(kSlotEntries[slot], true);
    }
}

void ExerciseDesk::CloseAtoms()
{
    if (m_reactif != nullptr)
        Unload(m_reactif->parentWidget());
    if (m_produit != nullptr)
        Unload(m_produit->parentWidget());
    m_reactif = nullptr;
    m_produit = nullptr;
}

void ExerciseDesk::HideAtoms()
{
    if (m_reactif != nullptr)
        m_reactif->parentWidget()->hide();
    if (m_produit != nullptr)
        m_produit->parentWidget()->hide();
}

void ExerciseDesk::HideExercise()
{
    if (m_equation != nullptr)
        m_equation->hide();
}

void ExerciseDesk::ShowExercise()
{
    if (m_equation == nullptr)
        return;
    m_equation->show();
    m_equation->activateWindow();
    m_progress.NoteExerciseShown();
}

void ExerciseDesk::ShowExerciseInactive()
{
    if (m_equation == nullptr)
        return;
    m_equation->setAttribute(Qt::WA_ShowWithoutActivating);
    m_equation->show();
    m_equation->setAttribute(Qt::WA_ShowWithoutActivating, false);
    m_progress.NoteExerciseShown();
}

void ExerciseDesk::HideWindowsOfRun()
{
    HideExercise();
    if (m_charge != nullptr)
        m_charge->hide();
}

void ExerciseDesk::ShowWindowsOfRun()
{
    if (m_charge != nullptr)
        m_charge->show();
    ShowExercise();
}

void ExerciseDesk::TakeEquation()
{
    const EquationRecord& record = m_session.run.Record();
    m_session.menu.SetEnabled("Mnu_Charge", m_session.state.ChargesPresentes);
    for (size_t slot = 0; slot < 6; ++slot) {
        m_session.menu.SetCaption(kSlotEntries[slot], record.Slots.at(slot).Molecule);
        m_session.menu.SetVisible(kSlotEntries[slot], !record.Slots.at(slot).Molecule.isEmpty());
    }
    ClearAtoms();
    m_progress.TakeEquation();
}

void ExerciseDesk::RestartSeriesClock()
{
    if (m_session.state.FichierAvancement && m_session.state.SerieExercices)
        Chrono().StartRun();
}

void ExerciseDesk::BankSeconds()
{
    // The time spent on the drawings of an equation that is done does not count.
    StopChrono();
    m_session.state.BankedSeconds = m_session.state.ElapsedSeconds;
}

void ExerciseDesk::ShowCounts()
{
    DrawAtoms();
    if (!m_session.state.ChargesPresentes)
        UnloadCharge();
    else if (m_charge != nullptr)
        m_charge->ShowTotals();
}

int ExerciseDesk::AtomScale() const
{
    for (int i = 0; i < 4; ++i) {
        if (m_session.menu.IsChecked(kScaleEntries[i]))
            return i + 1;
    }
    return 1;
}

void ExerciseDesk::DrawAtoms()
{
    if (!m_session.menu.IsChecked("Mnu_Atome")) {
        ClearAtoms();
        return;
    }
    if (m_reactif != nullptr)
        m_reactif->ShowAtoms(m_session.run.Reactants(), AtomScale());
    if (m_produit != nullptr)
        m_produit->ShowAtoms(m_session.run.Products(), AtomScale());
}

void ExerciseDesk::ClearAtoms()
{
    if (m_reactif != nullptr)
        m_reactif->Clear();
    if (m_produit != nullptr)
        m_produit->Clear();
}

void ExerciseDesk::NotePointer(const QString& window)
{
    static const QStringList kOfTheRun{u"frmEquation"_s, u"frmReactif"_s, u"frmProduit"_s};
    if (!kOfTheRun.contains(window))
        return;
    if (m_reactif != nullptr)
        m_reactif->HideBubble();
    if (m_produit != nullptr)
        m_produit->HideBubble();
}

void ExerciseDesk::ArrangeAtomWindows()
{
    if (m_session.menu.IsEnabled("Mnu_Open(0)") || m_reactif == nullptr || m_produit == nullptr)
        return;
    const QSize viewport = m_mainWindow.Area().viewport()->size();
    // What the menu and the frame take from the usable area is not there to fill.
    const int width = std::min(ToPixels(m_session.state.LargeurUtile), viewport.width());
    const int height = std::min(ToPixels(m_session.state.HauteurUtile), viewport.height());
    const QString setting
        = m_session.settings.Read(QStringLiteral("Options"), QStringLiteral("Affichage fenetres"));
    const bool isStacked = ReadFileNumber(setting) != 0;
    const int gap = ToPixels(10);
    const QRect reactants
        = isStacked ? QRect(0, 0, width - gap, height / 2 - gap) : QRect(0, 0, width / 2, height);
    const QRect products = isStacked ? QRect(0, height / 2, width - gap, height / 2 - gap)
                                     : QRect(width / 2, 0, width / 2, height);
    m_reactif->parentWidget()->setGeometry(reactants);
    m_produit->parentWidget()->setGeometry(products);
}

void ExerciseDesk::ShowArrangement()
{
    ArrangeAtomWindows();
    if (m_equation != nullptr && m_session.menu.IsChecked("Mnu_Atome"))
        DrawAtoms();
}

void ExerciseDesk::RefreshColours()
{
    if (m_reactif != nullptr)
        m_reactif->RefreshColour();
    if (m_produit != nullptr)
        m_produit->RefreshColour();
    if (m_charge != nullptr)
        m_charge->RefreshColours();
}

void ExerciseDesk::RaiseWorkingWindows()
{
    if (m_charge != nullptr)
        m_charge->raise();
    if (m_equation != nullptr && m_session.menu.IsEnabled("Mnu_Close")) {
        m_equation->raise();
        m_equation->activateWindow();
    }
}

void ExerciseDesk::OpenCharge()
{
    if (m_equation == nullptr)
        return;
    m_charge = new frmCharge(m_session.state, m_session.settings, m_session.desktop.screen, &m_mainWindow);
    connect(m_charge, &Form::CloseAsked, this, &ExerciseDesk::UnloadCharge);
    m_session.menu.SetChecked("Mnu_Charge", true);
    m_charge->OpenBeside(*m_equation);
}

void ExerciseDesk::UnloadCharge()
{
    Unload(m_charge);
    m_charge = nullptr;
    m_session.menu.SetChecked("Mnu_Charge", false);
}

frmChrono& ExerciseDesk::Chrono()
{
    if (m_chrono == nullptr) {
        m_chrono = new frmChrono(m_session.state, m_session.desktop.clock, m_session.desktop.sound,
                                 m_session.desktop.regional.DecimalSeparator(), &m_mainWindow);
        connect(m_chrono, &Form::CloseAsked, this, &ExerciseDesk::CloseChrono);
        const QRect area = m_session.desktop.screen.WorkArea();
        m_chrono->move(area.right() - m_chrono->width() - 24, area.top() + 64);
        m_chrono->SetButtonsEnabled(!m_chronoIsLocked);
    }
    return *m_chrono;
}

void ExerciseDesk::ResetChrono()
{
    LockChrono(false);
    Chrono().Reset();
}

void ExerciseDesk::StopChrono()
{
    Chrono().StopRun();
}

void ExerciseDesk::LockChrono(bool locked)
{
    m_chronoIsLocked = locked;
    Chrono().SetButtonsEnabled(!locked);
}

void ExerciseDesk::CloseChrono()
{
    ReturnToExercise();
    m_session.menu.SetChecked("Mnu_Chrono", false);
    // The clock of a scored run goes on behind the scenes.
    if (m_chronoIsLocked) {
        m_chrono->hide();
        return;
    }
    Unload(m_chrono);
    m_chrono = nullptr;
}

void ExerciseDesk::Mnu_Atome_Click()
{
    const bool wasShown = m_session.menu.IsChecked("Mnu_Atome");
    m_session.menu.SetChecked("Mnu_Atome", !wasShown);
    m_session.menu.SetEnabled("Mnu_Grow", !wasShown);
    if (wasShown)
        ClearAtoms();
    else if (m_equation != nullptr)
        m_equation->Recompose();
}

void ExerciseDesk::Mnu_Taille_Click(int index)
{
    for (int i = 0; i < 4; ++i)
        m_session.menu.SetChecked(kScaleEntries[i], i == index);
    ClearAtoms();
    if (m_equation != nullptr)
        m_equation->Recompose();
}

void ExerciseDesk::Mnu_Compo_Click(int slot)
{
    if (m_equation == nullptr)
        return;
    const AtomList atoms = m_session.run.ComposeSlot(slot, m_equation->Coefficients());
    for (const QString& symbol : UnknownSymbols(atoms)) {
        const QString& file = m_session.state.TitreFichier;
        m_session.messages.Critical(m_equation, UnknownSymbolTitle(file), UnknownSymbolText(file, symbol));
    }
    const QString text
        = CompositionText(m_session.run.Record().Slots.at(static_cast<size_t>(slot)).Molecule, atoms);
    // The message about a reactant takes the exercise out of its way; the one
    // about a product leaves it where it is.
    const bool isReactant = slot < 3;
    if (isReactant)
        HideExercise();
    m_session.messages.Information(&m_mainWindow, QStringLiteral("Stoikal"), text);
    if (isReactant)
        ShowExercise();
}

void ExerciseDesk::ReturnToExercise()
{
    // The menu and a message leave the keyboard with the main window.
    if (m_equation != nullptr && m_equation->isVisible())
        m_equation->activateWindow();
}

void ExerciseDesk::Mnu_Charge_Click()
{
    if (m_session.menu.IsChecked("Mnu_Charge"))
        UnloadCharge();
    else
        OpenCharge();
}

void ExerciseDesk::Mnu_Chrono_Click()
{
    const bool wasShown = m_session.menu.IsChecked("Mnu_Chrono");
    m_session.menu.SetChecked("Mnu_Chrono", !wasShown);
    if (wasShown) {
        Chrono().hide();
        return;
    }
    Chrono().show();
    Chrono().raise();
}

void ExerciseDesk::Mnu_Copy_Click()
{
    if (m_equation == nullptr)
        return;
    m_session.desktop.clipboard.SetText(m_equation->EquationText());
    m_equation->FocusFirstBox();
}

void ExerciseDesk::Mnu_Del_Click()
{
    if (m_equation != nullptr)
        m_equation->EmptyCoefficients();
}

void ExerciseDesk::Mnu_MassMol_Click()
{
    ShowMassMol(!m_massMol->IsShown());
}

void ExerciseDesk::ShowMassMol(bool shown)
{
    m_massMol->Show(shown);
}

} // namespace stoikal
