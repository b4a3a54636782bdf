#pragma once

#include <QObject>
#include <QPointer>

namespace stoikal {

class ExerciseDesk;
class FileSession;
class frmPref;
class frmStoikal;
struct Session;

/// What anybody may set and read at home: the preferences and the tip of the day.
class HomeDesk final : public QObject
{
    Q_OBJECT

public:
    HomeDesk(Session& session, frmStoikal& mainWindow, ExerciseDesk& desk, FileSession& files);
    ~HomeDesk() override;

    void Mnu_Pref_Click();
    void Mnu_Tip_Click();

    /// Takes the preferences away, if they are open.
    void UnloadPreferences();

private:
    Session& m_session;
    frmStoikal& m_mainWindow;
    ExerciseDesk& m_desk;
    QPointer<frmPref> m_pref;
};

} // namespace stoikal
