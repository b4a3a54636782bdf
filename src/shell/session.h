#pragma once

#include "base/session_state.h"
#include "base/settings_store.h"
#include "exercise/exercise_run.h"
#include "exercise/results_journal.h"
#include "forms/menu_state.h"
#include "platform/doors.h"
#include "shell/guarded_dialogs.h"

namespace stoikal {

class Messages;

/// The same services with other dialogs of files.
inline Platform WithDialogs(const Platform& services, Dialogs& dialogs)
{
    return {services.clock,    services.folders,   services.user,
            services.regional, services.screen,    services.sound,
            dialogs,           services.programs,  services.browser,
            services.web,      services.clipboard, services.randomness,
            services.trash};
}

/// All that one run of the program shares: the doors of the desktop, the session
/// record, the settings, the menu state, the journal and the exercise. It owns
/// the state, does nothing by itself, and must outlive all windows.
struct Session {
    Session(const Platform& doors, Messages& boxes)
        : dialogs(doors.dialogs, boxes, state)
        , desktop(WithDialogs(doors, dialogs))
        , messages(boxes)
        , settings(store, state.IniUtilisateur)
        , run(state)
    {
    }

    SessionState state;
    GuardedDialogs dialogs; ///< what `desktop` holds in place of the desktop's own
    Platform desktop;
    Messages& messages;
    SettingsStore store;
    Settings settings;
    MenuState menu;
    ResultsJournal journal;
    ExerciseRun run;
};

} // namespace stoikal
