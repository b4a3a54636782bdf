#pragma once

#include "shell/hosted_window.h"

namespace stoikal {

class Dialogs;
class FileSession;
class frmPref;
class Messages;
class Randomness;
class RunController;

/// What anybody may set and read: the preferences and the tip of the day.
class PreferencesController final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        Dialogs& dialogs;
        Messages& messages;
        Randomness& randomness;
    };

    PreferencesController(const Services& services, const WindowHost& host, RunController& run,
                          FileSession& files);
    ~PreferencesController() override;

    void Mnu_Pref_Click();
    void Mnu_Tip_Click();
    bool IsShown() const { return m_pref.IsOpen(); }

Q_SIGNALS:
    /// The preferences came or went.
    void Changed();

private:
    frmPref* Make(QWidget* parent);

    Services m_services;
    WindowHost m_host;
    RunController& m_run;
    Hosted<frmPref> m_pref;
};

} // namespace stoikal
