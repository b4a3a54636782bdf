#include "shell/home_desk.h"

#include "forms/place.h"
#include "shell/data_folders.h"
#include "shell/exercise_desk.h"
#include "shell/file_session.h"
#include "shell/session.h"
#include "shell/windows/frm_pref.h"
#include "shell/windows/frm_stoikal.h"
#include "tools/windows/frm_tip.h"

namespace stoikal {

HomeDesk::HomeDesk(Session& session, frmStoikal& mainWindow, ExerciseDesk& desk, FileSession& files)
    : m_session(session)
    , m_mainWindow(mainWindow)
    , m_desk(desk)
{
    connect(&files, &FileSession::OpenConsidered, this, &HomeDesk::UnloadPreferences);
    connect(&files, &FileSession::ToolsToHide, this, &HomeDesk::UnloadPreferences);
}

HomeDesk::~HomeDesk() = default;

void HomeDesk::Mnu_Pref_Click()
{
    if (m_pref != nullptr) {
        UnloadPreferences();
        return;
    }
    m_pref = new frmPref({m_session.settings, m_session.desktop.dialogs, m_session.messages}, &m_mainWindow);
    connect(m_pref, &frmPref::ColoursChanged, &m_desk, &ExerciseDesk::RefreshColours);
    connect(m_pref, &frmPref::ArrangementChanged, &m_desk, &ExerciseDesk::ShowArrangement);
    connect(m_pref, &Form::CloseAsked, this, &HomeDesk::UnloadPreferences);
    m_session.menu.SetChecked("Mnu_Pref", true);
    CentreOver(*m_pref, m_session.desktop.screen, m_mainWindow);
    m_pref->show();
    m_pref->activateWindow();
    m_pref->setFocus();
}

void HomeDesk::UnloadPreferences()
{
    if (m_pref == nullptr)
        return;
    m_pref->hide();
    m_pref->deleteLater();
    m_pref = nullptr;
    m_session.menu.SetChecked("Mnu_Pref", false);
    m_desk.ShowArrangement();
}

void HomeDesk::Mnu_Tip_Click()
{
    frmTip window({m_session.settings, m_session.desktop.randomness, m_session.messages},
                  m_session.state.DossierDocuments + OwnFolder() + QStringLiteral("/TipOfDayEqChm.txt"),
                  &m_mainWindow);
    window.exec();
    // The switch of the start stands in both windows.
    if (m_pref != nullptr)
        m_pref->ShowSettings();
}

} // namespace stoikal
