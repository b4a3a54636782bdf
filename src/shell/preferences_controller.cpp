#include "shell/preferences_controller.h"

#include "base/places.h"
#include "shell/data_folders.h"
#include "shell/file_session.h"
#include "shell/run_controller.h"
#include "shell/window_rows.h"
#include "shell/windows/frm_pref.h"
#include "shell/windows/frm_stoikal.h"
#include "tools/windows/frm_tip.h"

namespace stoikal {

PreferencesController::PreferencesController(const Services& services, const WindowHost& host,
                                             RunController& run, FileSession& files)
    : m_services(services)
    , m_host(host)
    , m_run(run)
    , m_pref(window_rows::kPref, host, [this](QWidget* parent) { return Make(parent); })
{
    connect(&m_pref, &HostedWindow::Opened, this, &PreferencesController::Changed);
    connect(&m_pref, &HostedWindow::Closed, this, &PreferencesController::Changed);
    connect(&m_pref, &HostedWindow::Closed, &run, &RunController::ShowArrangement);
    connect(&files, &FileSession::OpenConsidered, &m_pref, &HostedWindow::Close);
    connect(&files, &FileSession::ToolsToHide, &m_pref, &HostedWindow::Close);
}

PreferencesController::~PreferencesController() = default;

frmPref* PreferencesController::Make(QWidget* parent)
{
    auto* const window = new frmPref({m_host.settings, m_services.dialogs, m_services.messages}, parent);
    connect(window, &frmPref::ColoursChanged, &m_run, &RunController::RefreshColours);
    connect(window, &frmPref::ArrangementChanged, &m_run, &RunController::ShowArrangement);
    return window;
}

void PreferencesController::Mnu_Pref_Click()
{
    m_pref.Toggle();
}

void PreferencesController::Mnu_Tip_Click()
{
    frmTip window({m_host.settings, m_services.randomness, m_services.messages},
                  m_host.places.DossierDocuments + OwnFolder() + QStringLiteral("/TipOfDayEqChm.txt"),
                  &m_host.mainWindow);
    window.exec();
    // The switch of the start stands in both windows.
    if (m_pref.IsOpen())
        m_pref.Get()->ShowSettings();
}

} // namespace stoikal
