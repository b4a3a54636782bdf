#pragma once

#include "base/session_state.h"
#include "base/settings_store.h"
#include "exercise/exercise_run.h"
#include "exercise/results_journal.h"
#include "forms/menu_state.h"
#include "platform/doors.h"

namespace stoikal {

class Messages;

/// All that one run of the program shares: the doors of the desktop, the session
/// record, the settings, the menu state, the journal and the exercise. It owns
/// the state, does nothing by itself, and must outlive all windows.
struct Session {
    Session(const Platform& doors, Messages& boxes)
        : desktop(doors)
        , messages(boxes)
        , settings(store, state.IniUtilisateur)
        , run(state)
    {
    }

    Platform desktop;
    Messages& messages;
    SessionState state;
    SettingsStore store;
    Settings settings;
    MenuState menu;
    ResultsJournal journal;
    ExerciseRun run;
};

} // namespace stoikal
