#include "shell/tool_windows.h"

#include "balancing/windows/frm_expert.h"
#include "balancing/windows/frm_search.h"
#include "base/places.h"
#include "chemistry/windows/frm_cal_mol.h"
#include "chemistry/windows/frm_data_atomes.h"
#include "chemistry/windows/frm_tableau_periodique.h"
#include "exercise/exercise_run.h"
#include "platform/doors.h"
#include "shell/data_folders.h"
#include "shell/file_session.h"
#include "shell/password_store.h"
#include "shell/run_controller.h"
#include "shell/window_rows.h"
#include "shell/windows/frm_stoikal.h"
#include "simulation/windows/frm_simul_anim.h"

#include <QFileInfo>
#include <algorithm>

namespace stoikal {
namespace {

/// The one window of a class, made by a member of the owner.
template <typename Window, typename Owner>
std::unique_ptr<Hosted<Window>> Host(const WindowRow& row, const WindowHost& host, Owner& owner,
                                     Window* (Owner::*make)(QWidget*))
{
    return std::make_unique<Hosted<Window>>(
        row, host, [&owner, make](QWidget* parent) { return (owner.*make)(parent); });
}

} // namespace

ToolWindows::ToolWindows(const Services& services, const WindowHost& host, RunController& desk,
                         FileSession& files)
    : m_services(services)
    , m_host(host)
    , m_desk(desk)
    , m_files(files)
    , m_calMolMessages(
          services.messages, [&desk] { desk.HideExercise(); },
          [this] {
              m_desk.ShowExerciseInactive();
              // The keyboard goes on where the formula is typed.
              if (m_calMol->IsOpen())
                  m_calMol->Get()->activateWindow();
          })
    , m_calMol(Host(window_rows::kCalMol, host, *this, &ToolWindows::MakeCalMol))
    , m_expert(std::make_unique<Hosted<frmExpert>>(
          window_rows::kExpert, host,
          [this](QWidget* parent) { return new frmExpert(SearchServices(), parent); }))
    , m_search(Host(window_rows::kSearch, host, *this, &ToolWindows::MakeSearch))
    , m_tableau(Host(window_rows::kTableau, host, *this, &ToolWindows::MakeTableau))
    , m_simulAnim(Host(window_rows::kSimulAnim, host, *this, &ToolWindows::MakeSimulAnim))
    , m_dataAtomes(Host(window_rows::kDataAtomes, host, *this, &ToolWindows::MakeDataAtomes))
{
    for (HostedWindow* const window : All()) {
        connect(window, &HostedWindow::Opened, this, &ToolWindows::Changed);
        connect(window, &HostedWindow::Closed, this, &ToolWindows::Changed);
    }
    connect(&files, &FileSession::ToolsToHide, this, [this] { MakeWay(InARun::Hides); });
    connect(&files, &FileSession::RunBegins, this, &ToolWindows::BeginRun);
    connect(&files, &FileSession::RunEnded, this, &ToolWindows::EndRun);
    connect(&files, &FileSession::CloseConsidered, m_dataAtomes.get(), &HostedWindow::Close);
}

ToolWindows::~ToolWindows() = default;

std::array<HostedWindow*, 6> ToolWindows::All() const
{
    return {m_calMol.get(),  m_expert.get(),    m_search.get(),
            m_tableau.get(), m_simulAnim.get(), m_dataAtomes.get()};
}

HostedWindow& ToolWindows::WindowOf(Command entry) const
{
    const auto windows = All();
    const auto window = std::find_if(windows.begin(), windows.end(),
                                     [&](const HostedWindow* one) { return one->Row().entry == entry; });
    Q_ASSERT(window != windows.end());
    return **window;
}

void ToolWindows::Toggle(Command entry)
{
    WindowOf(entry).Toggle();
}

bool ToolWindows::IsOpen(Command entry) const
{
    return WindowOf(entry).IsOpen();
}

std::set<Command> ToolWindows::OpenEntries() const
{
    std::set<Command> entries;
    for (const HostedWindow* const window : All()) {
        if (window->IsOpen() && window->Row().entry)
            entries.insert(*window->Row().entry);
    }
    return entries;
}

SearchingForm::Doors ToolWindows::SearchServices() const
{
    return {m_services.clock,
            m_services.dialogs,
            m_services.messages,
            m_services.settings,
            m_host.places.DossierDocuments + OwnFolder(),
            CommonPasswordFile(m_host.places)};
}

frmSearch* ToolWindows::MakeSearch(QWidget* parent)
{
    auto* const window = new frmSearch(SearchServices(), parent);
    connect(window, &frmSearch::FileGathered, this, &ToolWindows::OpenGathered);
    return window;
}

frmTableauPeriodique* ToolWindows::MakeTableau(QWidget* parent)
{
    auto* const window = new frmTableauPeriodique(parent);
    connect(window, &frmTableauPeriodique::ElementChosen, this, &ToolWindows::ShowElement);
    return window;
}

frmSimulAnim* ToolWindows::MakeSimulAnim(QWidget* parent)
{
    return new frmSimulAnim({m_services.clock, m_services.messages, m_services.sound, m_services.clipboard,
                             m_services.randomness, m_services.regional.DecimalSeparator()},
                            parent);
}

frmCalMol* ToolWindows::MakeCalMol(QWidget* parent)
{
    return new frmCalMol(m_calMolMessages, m_services.regional.DecimalSeparator(), parent);
}

frmDataAtomes* ToolWindows::MakeDataAtomes(QWidget* parent)
{
    auto* const window = new frmDataAtomes(m_services.regional.DecimalSeparator(), parent);
    window->ShowElementData(m_element);
    return window;
}

void ToolWindows::ShowElement(int index)
{
    m_dataAtomes->Close();
    m_element = index;
    m_dataAtomes->Open();
}

void ToolWindows::MakeWay(InARun rule)
{
    for (HostedWindow* const window : All()) {
        if (window->Row().inARun == rule)
            window->HideForRun();
    }
}

void ToolWindows::BeginRun()
{
    if (m_simulAnim->IsOpen())
        m_simulAnim->Get()->StopAnimation();
    MakeWay(InARun::Pauses);
}

void ToolWindows::EndRun()
{
    for (HostedWindow* const window : All()) {
        if (window->Row().inARun == InARun::Pauses)
            window->ShowAfterRun();
    }
}

void ToolWindows::StopTools()
{
    if (m_expert->IsOpen())
        m_expert->Get()->StopSearch();
    if (m_search->IsOpen())
        m_search->Get()->StopSearch();
}

void ToolWindows::OpenGathered(const QString& path)
{
    const QString title = QStringLiteral("Ouvrir un fichier");
    const QString question = QStringLiteral("Souhaitez-vous ouvrir le fichier %1 que vous venez de créer ?")
                                 .arg(QFileInfo(path).fileName());
    if (!m_services.messages.Ask(&m_host.mainWindow, title, question, QMessageBox::Warning))
        return;
    if (m_services.run.IsOpen()) {
        if (!m_services.messages.Ask(
                &m_host.mainWindow, title,
                QStringLiteral("Un fichier est déjà ouvert.\n"
                               "Souhaitez-vous néanmoins ouvrir celui que vous venez de créer ?"),
                QMessageBox::Critical))
            return;
        m_files.CloseRun();
    }
    m_files.OpenKnownFile(path);
}

} // namespace stoikal
