#pragma once

#include "exercise/high_score_file.h"

#include <QObject>
#include <optional>
#include <vector>

namespace stoikal {

class ExerciseDesk;
class frmStoikal;
struct Session;

/// The life of an equation file in the program: who opens it, its first pass,
/// the run over it, its closing and the mark at its end. The windows of the run
/// are the desk's.
class FileSession final : public QObject
{
    Q_OBJECT

public:
    FileSession(Session& session, frmStoikal& mainWindow, ExerciseDesk& desk);

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
    void RefuseFile(const QString& reason);
    void StartRun(int equationCount);
    void EndOfFile();
    std::optional<std::vector<HighScore>> RecordHighScore(const NewResult& own, QChar separator);
    void LeaveRun();
    void ReturnHome();

    Session& m_session;
    frmStoikal& m_mainWindow;
    ExerciseDesk& m_desk;
};

} // namespace stoikal
