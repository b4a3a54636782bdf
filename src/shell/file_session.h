#pragma once

#include "exercise/high_score_file.h"
#include "exercise/run_state.h"

#include <QObject>
#include <optional>
#include <vector>

namespace stoikal {

class Clock;
class Dialogs;
class ExerciseRun;
class frmStoikal;
class Messages;
class Regional;
class ResultsJournal;
class RunController;
class Screen;
class Settings;
class Sound;
class StopwatchController;
struct Places;
struct Pupil;
struct StopwatchSeconds;

/// The life of an equation file in the program: who opens it, its first pass,
/// the run over it, its closing and the mark at its end. The windows of the run
/// are not its matter.
class FileSession final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        Pupil& pupil;
        ExerciseRun& run;
        ResultsJournal& journal;
        const Places& places;
        const StopwatchSeconds& seconds;
        Settings& settings;
        Messages& messages;
        Dialogs& dialogs;
        Sound& sound;
        const Clock& clock;
        const Screen& screen;
        const Regional& regional;
    };

    FileSession(const Services& services, frmStoikal& mainWindow, RunController& windows,
                StopwatchController& stopwatch);

    /// The menu's open command: 0 for balancing, 1 for progress.
    void Mnu_Open_Click(int index);

    /// The menu's close command, with its question.
    void Mnu_Close_Click();

    /// Chooses a file, counts its equations and starts the run. False when no
    /// run was started.
    bool OpenEquationFile();

    /// Starts the run over a file that is already chosen, for an identified pupil;
    /// who is not identified yet is asked first.
    void OpenKnownFile(const QString& path);

    /// Ends the run without a question, by the steps that every way of closing
    /// shares; the file is forgotten.
    void CloseRun();

Q_SIGNALS:
    void EndAsked();
    /// The user is about to choose a file: the preferences go.
    void OpenConsidered();
    /// A run starts or ends: the open tools are to be hidden.
    void ToolsToHide();
    /// A run is about to open its windows.
    void RunBegins();
    /// The windows of a run are gone or hidden.
    void RunEnded();
    /// The user was asked for the end of a run: the data of an element go first.
    void CloseConsidered();

private:
    bool Identify();
    bool ChooseFile();
    bool ReadChosenFile();
    RunKind AskForKind();
    void RefuseFile(const QString& reason);
    void StartRun(int equationCount);
    void EndOfFile();
    std::optional<std::vector<HighScore>> RecordHighScore(const NewResult& own, QChar separator);
    void LeaveRun();
    void ReturnHome();

    Services m_services;
    frmStoikal& m_mainWindow;
    RunController& m_windows;
    StopwatchController& m_stopwatch;
};

} // namespace stoikal
