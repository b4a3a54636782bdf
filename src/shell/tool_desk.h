#pragma once

#include <QObject>
#include <QPointer>

namespace stoikal {

class ExerciseDesk;
class FileSession;
class frmDataAtomes;
class frmExpert;
class frmSearch;
class frmStoikal;
class frmTableauPeriodique;
struct Session;

/// The tool windows of the main area: it opens and closes them by their menu
/// entries and hands a gathered file over to the file session.
class ToolDesk final : public QObject
{
    Q_OBJECT

public:
    ToolDesk(Session& session, frmStoikal& mainWindow, ExerciseDesk& desk, FileSession& files);
    ~ToolDesk() override;

    void Mnu_Balance_Click();
    void Mnu_Search_Click();
    void Mnu_Tableau_Click();
    /// Takes the window of an element's data away, as closing a file does.
    void UnloadDataAtomes();

    /// Hides the open tools, as a run that starts or ends does. Their marks stay:
    /// the next click on an entry unloads its window.
    void HideTools();
    /// Gives up whatever a tool is doing, at the end of the program.
    void StopTools();

Q_SIGNALS:
    void HelpAsked(int topic);

private:
    void OpenGathered(const QString& path);
    void ShowElement(int index);
    template <typename Window>
    void Unload(QPointer<Window>& window, const char* entry);

    Session& m_session;
    frmStoikal& m_mainWindow;
    ExerciseDesk& m_desk;
    FileSession& m_files;
    QPointer<frmExpert> m_expert;
    QPointer<frmSearch> m_search;
    QPointer<frmTableauPeriodique> m_tableau;
    QPointer<frmDataAtomes> m_dataAtomes;
};

} // namespace stoikal
