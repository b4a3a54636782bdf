#include "shell/tool_desk.h"

#include "balancing/windows/frm_expert.h"
#include "balancing/windows/frm_search.h"
#include "chemistry/windows/frm_cal_mol.h"
#include "chemistry/windows/frm_data_atomes.h"
#include "chemistry/windows/frm_tableau_periodique.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "shell/data_folders.h"
#include "shell/exercise_desk.h"
#include "shell/file_session.h"
#include "shell/password_store.h"
#include "shell/session.h"
#include "shell/windows/frm_stoikal.h"
#include "simulation/windows/frm_simul_anim.h"

#include <QFileInfo>
#include <QMdiSubWindow>

namespace stoikal {
namespace {

QString DataAtomesSection()
{
    return QStringLiteral("DataAtomes Window");
}

QString CalMolSection()
{
    return QStringLiteral("CalMol Window");
}

} // namespace

ToolDesk::ToolDesk(Session& session, frmStoikal& mainWindow, ExerciseDesk& desk, FileSession& files)
    : m_session(session)
    , m_mainWindow(mainWindow)
    , m_desk(desk)
    , m_files(files)
    , m_calMolMessages(
          session.messages, [&desk] { desk.HideExercise(); },
          [this] {
              m_desk.ShowExerciseInactive();
              // The keyboard goes on where the formula is typed.
              if (m_calMol != nullptr)
                  m_calMol->activateWindow();
          })
{
    connect(&files, &FileSession::ToolsToHide, this, &ToolDesk::HideTools);
    connect(&files, &FileSession::RunBegins, this, &ToolDesk::HideSimulation);
    connect(&files, &FileSession::RunEnded, this, &ToolDesk::ShowSimulationAgain);
    connect(&files, &FileSession::CloseConsidered, this, &ToolDesk::UnloadDataAtomes);
}

ToolDesk::~ToolDesk() = default;

template <typename Window>
void ToolDesk::Unload(QPointer<Window>& window, const char* entry)
{
    if (window != nullptr) {
        window->parentWidget()->hide();
        window->parentWidget()->deleteLater();
    }
    window = nullptr;
    m_session.menu.SetChecked(entry, false);
}

/// The window comes into the main area, and its entry has a mark.
template <typename Window>
void ToolDesk::ShowTool(QPointer<Window>& window, const char* entry)
{
    m_session.menu.SetChecked(entry, true);
    m_mainWindow.AddTool(window);
}

/// Its title bar gives up a search first.
template <typename Window>
void ToolDesk::ShowSearchingTool(QPointer<Window>& window, const char* entry)
{
    const Platform& desktop = m_session.desktop;
    window = new Window({desktop.clock, desktop.dialogs, m_session.messages, m_session.settings,
                         m_session.state.DossierDocuments + OwnFolder(), CommonPasswordFile(m_session.state)},
                        nullptr);
    connect(window, &Window::Unloaded, this, [this, &window, entry] { Unload(window, entry); });
    connect(window, &Form::CloseAsked, window, &Window::Close);
    ShowTool(window, entry);
}

/// Its title bar takes it away at once.
template <typename Window>
void ToolDesk::ShowStandingTool(QPointer<Window>& window, const char* entry)
{
    connect(window, &Form::CloseAsked, this, [this, &window, entry] { Unload(window, entry); });
    ShowTool(window, entry);
}

void ToolDesk::Mnu_Balance_Click()
{
    if (m_expert != nullptr)
        m_expert->Close();
    else
        ShowSearchingTool(m_expert, "Mnu_Balance");
}

void ToolDesk::Mnu_Search_Click()
{
    if (m_search != nullptr) {
        m_search->Close();
        return;
    }
    ShowSearchingTool(m_search, "Mnu_Search");
    connect(m_search, &frmSearch::FileGathered, this, &ToolDesk::OpenGathered);
}

void ToolDesk::Mnu_Tableau_Click()
{
    if (m_tableau != nullptr) {
        Unload(m_tableau, "Mnu_Tableau");
        return;
    }
    m_tableau = new frmTableauPeriodique(nullptr);
    connect(m_tableau, &frmTableauPeriodique::ElementChosen, this, &ToolDesk::ShowElement);
    ShowStandingTool(m_tableau, "Mnu_Tableau");
}

void ToolDesk::Mnu_SimulAnim_Click()
{
    if (m_simulAnim != nullptr) {
        Unload(m_simulAnim, "Mnu_SimulAnim");
        return;
    }
    const Platform& desktop = m_session.desktop;
    m_simulAnim = new frmSimulAnim({desktop.clock, m_session.messages, desktop.sound, desktop.clipboard,
                                    desktop.randomness, desktop.regional.DecimalSeparator()},
                                   nullptr);
    ShowStandingTool(m_simulAnim, "Mnu_SimulAnim");
}

void ToolDesk::ShowElement(int index)
{
    UnloadDataAtomes();
    const Platform& desktop = m_session.desktop;
    m_dataAtomes = new frmDataAtomes(desktop.regional.DecimalSeparator(), &m_mainWindow);
    connect(m_dataAtomes, &Form::CloseAsked, this, &ToolDesk::UnloadDataAtomes);
    m_dataAtomes->ShowElementData(index);
    m_dataAtomes->adjustSize();
    const QPoint centre((m_session.state.LargeurUtile - FromPixels(m_dataAtomes->width())) / 2,
                        FromPixels(120));
    RestorePlace(*m_dataAtomes, desktop.screen, m_session.settings, DataAtomesSection(), centre);
    m_dataAtomes->show();
    m_dataAtomes->activateWindow();
}

template <typename Window>
void ToolDesk::UnloadFloating(QPointer<Window>& window, const QString& section)
{
    if (window == nullptr)
        return;
    KeepPlace(*window, m_session.desktop.screen, m_session.settings, section);
    window->hide();
    window->deleteLater();
    window = nullptr;
}

void ToolDesk::UnloadDataAtomes()
{
    UnloadFloating(m_dataAtomes, DataAtomesSection());
}

void ToolDesk::Mnu_CalMol_Click()
{
    if (m_calMol != nullptr) {
        UnloadCalMol();
        return;
    }
    const Platform& desktop = m_session.desktop;
    m_calMol = new frmCalMol(m_calMolMessages, desktop.regional.DecimalSeparator(), &m_mainWindow);
    connect(m_calMol, &Form::CloseAsked, this, &ToolDesk::UnloadCalMol);
    m_session.menu.SetChecked("Mnu_CalMol", true);
    m_calMol->adjustSize();
    const QPoint centre((m_session.state.LargeurUtile - FromPixels(m_calMol->width())) / 2, FromPixels(120));
    RestorePlace(*m_calMol, desktop.screen, m_session.settings, CalMolSection(), centre);
    m_calMol->show();
    m_calMol->activateWindow();
    m_calMol->setFocus();
}

void ToolDesk::UnloadCalMol()
{
    UnloadFloating(m_calMol, CalMolSection());
    m_session.menu.SetChecked("Mnu_CalMol", false);
}

void ToolDesk::HideTools()
{
    m_desk.ShowMassMol(false);
    if (m_tableau != nullptr)
        m_tableau->parentWidget()->hide();
    if (m_expert != nullptr)
        m_expert->parentWidget()->hide();
    if (m_search != nullptr)
        m_search->parentWidget()->hide();
}

void ToolDesk::HideSimulation()
{
    if (m_simulAnim == nullptr)
        return;
    m_simulAnim->StopAnimation();
    m_simulAnim->parentWidget()->hide();
}

void ToolDesk::ShowSimulationAgain()
{
    if (m_simulAnim != nullptr)
        m_simulAnim->parentWidget()->show();
}

void ToolDesk::StopTools()
{
    if (m_expert != nullptr)
        m_expert->StopSearch();
    if (m_search != nullptr)
        m_search->StopSearch();
}

void ToolDesk::OpenGathered(const QString& path)
{
    const QString title = QStringLiteral("Ouvrir un fichier");
    const QString question = QStringLiteral("Souhaitez-vous ouvrir le fichier %1 que vous venez de créer ?")
                                 .arg(QFileInfo(path).fileName());
    if (!m_session.messages.Ask(&m_mainWindow, title, question, QMessageBox::Warning))
        return;
    if (m_session.run.IsOpen()) {
        if (!m_session.messages.Ask(
                &m_mainWindow, title,
                QStringLiteral("Un fichier est déjà ouvert.\n"
                               "Souhaitez-vous néanmoins ouvrir celui que vous venez de créer ?"),
                QMessageBox::Critical))
            return;
        m_files.CloseRun();
    }
    m_files.OpenKnownFile(path);
}

} // namespace stoikal
