#pragma once

#include "forms/window_events.h"
#include "shell/calculator.h"
#include "shell/editor_desk.h"
#include "shell/exercise_desk.h"
#include "shell/file_session.h"
#include "shell/help_desk.h"
#include "shell/home_desk.h"
#include "shell/session.h"
#include "shell/start_up.h"
#include "shell/teacher_desk.h"
#include "shell/tool_desk.h"
#include "shell/windows/frm_stoikal.h"

#include <QObject>
#include <functional>

namespace stoikal {

class FatalFault;

/// The roof of the house: it owns the session and the main window and sends each
/// menu entry to whom it concerns.
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

    Session& State() { return m_session; }
    frmStoikal& MainWindow() { return m_mainWindow; }
    ExerciseDesk& Desk() { return m_desk; }
    FileSession& Files() { return m_files; }
    ToolDesk& Tools() { return m_tools; }
    EditorDesk& Editor() { return m_editor; }
    TeacherDesk& Teacher() { return m_teacher; }
    HomeDesk& Home() { return m_home; }
    HelpDesk& Help() { return m_help; }
    WindowEvents& Events() { return m_windowEvents; }
    StartUp& Starter() { return m_startUp; }

Q_SIGNALS:
    /// The process is to end; nothing is open any more.
    void EndAsked();

private:
    void Choose(const QString& entry);
    /// Whether the entry left a window in front that is there to be typed in or
    /// read, so that the keyboard is its own.
    bool KeepsKeyboard(const QString& entry) const;
    void ShowHelpOf(const QString& window);
    void Mnu_Web_Click();
    void Mnu_About_Click();

    Session m_session;
    frmStoikal m_mainWindow;
    ExerciseDesk m_desk;
    FileSession m_files;
    ToolDesk m_tools;
    EditorDesk m_editor;
    TeacherDesk m_teacher;
    HomeDesk m_home;
    HelpDesk m_help;
    Calculator m_calculator;
    WindowEvents m_windowEvents;
    StartUp m_startUp;
    QHash<QString, std::function<void()>> m_commands;
    bool m_hasEnded = false;
};

} // namespace stoikal
