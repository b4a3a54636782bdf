#pragma once

#include "base/settings_store.h"
#include "exercise/exercise_run.h"
#include "exercise/results_journal.h"
#include "forms/window_events.h"
#include "platform/doors.h"
#include "shell/calculator_watch.h"
#include "shell/editor_controller.h"
#include "shell/file_session.h"
#include "shell/guarded_dialogs.h"
#include "shell/help_controller.h"
#include "shell/molar_masses_controller.h"
#include "shell/preferences_controller.h"
#include "shell/run_controller.h"
#include "shell/session_state.h"
#include "shell/start_up.h"
#include "shell/stopwatch_controller.h"
#include "shell/teacher_commands.h"
#include "shell/tool_windows.h"
#include "shell/windows/frm_stoikal.h"

#include <functional>
#include <map>

namespace stoikal {

class FatalFault;

/// The top of the program: it owns the session record, the main window and the
/// controllers, hands to each what it works with, and sends each menu entry to
/// the one that it concerns.
class Shell final : public QObject
{
    Q_OBJECT

public:
    Shell(const Platform& desktop, Messages& messages);

    /// The start-up, with the main window shown at its end.
    void Start();

    /// Closes every open file and asks the process to end at once.
    void EndProgram();

    /// The same fault with the line being worked as its place.
    FatalFault WithPlace(const FatalFault& fault) const;

    SessionState& State() { return m_state; }
    SettingsStore& Store() { return m_store; }
    Settings& UserSettings() { return m_settings; }
    ResultsJournal& Journal() { return m_journal; }
    const ExerciseRun& Run() const { return m_run; }

    frmStoikal& MainWindow() { return m_mainWindow; }
    RunController& RunWindows() { return m_runWindows; }
    StopwatchController& Stopwatch() { return m_stopwatch; }
    MolarMassesController& MolarMasses() { return m_molarMasses; }
    FileSession& Files() { return m_files; }
    ToolWindows& Tools() { return m_tools; }
    EditorController& Editor() { return m_editor; }
    TeacherCommands& Teacher() { return m_teacher; }
    PreferencesController& Preferences() { return m_preferences; }
    HelpController& Help() { return m_help; }
    WindowEvents& Events() { return m_windowEvents; }
    StartUp& Starter() { return m_startUp; }

Q_SIGNALS:
    /// The process is to end; nothing is open any more.
    void EndAsked();

private:
    std::map<Command, std::function<void()>> Commands();
    void Connect();
    void Choose(Command command);
    ProgramState StateForMenu() const;
    void ShowMenu();
    /// Whether the entry left a window in front that is there to be typed in or
    /// read, so that the keyboard is its own.
    bool KeepsKeyboard(Command command) const;
    void ShowHelpOf(const QString& window);
    void Mnu_Web_Click();
    void Mnu_About_Click();

    SessionState m_state;
    Messages& m_messages;
    GuardedDialogs m_dialogs; ///< what `m_desktop` holds in place of the desktop's own
    Platform m_desktop;
    SettingsStore m_store;
    Settings m_settings;
    ResultsJournal m_journal;
    ExerciseRun m_run;
    frmStoikal m_mainWindow;
    WindowHost m_host;
    StopwatchController m_stopwatch;
    MolarMassesController m_molarMasses;
    RunController m_runWindows;
    FileSession m_files;
    ToolWindows m_tools;
    EditorController m_editor;
    TeacherCommands m_teacher;
    PreferencesController m_preferences;
    HelpController m_help;
    StartUp m_startUp;
    CalculatorWatch m_calculator;
    WindowEvents m_windowEvents;
    std::map<Command, std::function<void()>> m_commands;
    bool m_hasEnded = false;
};

} // namespace stoikal
