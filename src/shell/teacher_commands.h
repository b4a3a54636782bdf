#pragma once

#include "shell/password_store.h"
#include "tools/windows/text_window.h"

#include <QObject>
#include <QPointer>
#include <optional>
#include <vector>

namespace stoikal {

class Dialogs;
class EditorController;
class FileSession;
class frmStoikal;
class ResultsJournal;
class RunController;
class Screen;
class ToolWindows;
class Trash;

/// What stands behind the teacher's password; the numbers are those that wait in
/// the session record.
enum class TeacherAction {
    CreateFile = 1,
    ModifyFile = 2,
    KillFile = 3,
    ShowAnswers = 4,
    AddTip = 5,
    CleanAnswers = 6,
    ShowSolution = 7,
    OpenBalance = 8,
    OpenSearch = 9,
    OpenCalMol = 10
};

/// The teacher's side: it asks for the password and carries out what it protects.
/// There is no other way to one of these actions than through here.
class TeacherCommands final : public QObject
{
    Q_OBJECT

public:
    struct Others {
        frmStoikal& mainWindow;
        RunController& run;
        FileSession& files;
        ToolWindows& tools;
        EditorController& editor;
    };

    struct Services {
        const Places& places;
        int& ActionMotPasse; ///< of the session record
        ResultsJournal& journal;
        Settings& settings;
        Messages& messages;
        Dialogs& dialogs;
        Programs& programs;
        Trash& trash;
        const Screen& screen;
    };

    TeacherCommands(const Services& services, const Others& others);
    ~TeacherCommands() override;

    /// Asks for the password; once it is right the action is carried out.
    void Ask(TeacherAction action);

    /// A tool behind the password: one that is open, shown or hidden, goes without
    /// a question; the password is asked for each time that it is to come.
    void ToggleTool(TeacherAction action);

    void Mnu_Password_Click();

    /// Whether a text is open in front of the teacher.
    bool ShowsText() const;

    /// Offers to save what is unsaved, at the end of the program.
    void SaveTexts();

private:
    void WarnOfLostPassword();
    void CarryOut(TeacherAction action);
    void KillFile();
    void ShowAnswers();
    void AddTip();
    void CleanAnswers();
    void ShowSolution();

    std::optional<QString> ChooseResults(const QString& title);
    Outcome<QString> ReopenJournal();
    void ReportJournal(const Outcome<QString>& opened);
    void ReportMissingText();
    QString EquationFolder() const;

    void ShowText(const QString& path, const QString& caption, TextWindow::Use use);
    TextWindow* OpenText(const QString& path) const;
    void CloseText(TextWindow* window);
    void CloseTextsForRun();

    Services m_services;
    Others m_others;
    PasswordStore m_store;
    bool m_hasWarned = false; ///< of a lost password, once a start
    std::vector<QPointer<TextWindow>> m_texts;
};

} // namespace stoikal
