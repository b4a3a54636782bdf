#pragma once

#include "forms/messages.h"

#include <QObject>
#include <QPointer>

namespace stoikal {

class ExerciseDesk;
class FileSession;
class frmCalMol;
class frmDataAtomes;
class frmExpert;
class frmSearch;
class frmSimulAnim;
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
    void Mnu_SimulAnim_Click();
    /// Opens the calculator of molar masses, with the keyboard on its box, or takes it away.
    void Mnu_CalMol_Click();
    /// Takes the window of an element's data away, as closing a file does.
    void UnloadDataAtomes();

    /// Hides the open tools of the main area, as a run that starts or ends does.
    /// Their marks stay: the next click on an entry unloads its window. The molar
    /// masses go; the calculator of molar masses floats on.
    void HideTools();
    /// Gives up whatever a tool is doing, at the end of the program.
    void StopTools();

private:
    void OpenGathered(const QString& path);
    void ShowElement(int index);
    /// The simulation stands still and out of sight while a run needs the main
    /// area, and is there again after it.
    void HideSimulation();
    void ShowSimulationAgain();
    void UnloadCalMol();
    template <typename Window>
    void ShowTool(QPointer<Window>& window, const char* entry);
    template <typename Window>
    void ShowSearchingTool(QPointer<Window>& window, const char* entry);
    template <typename Window>
    void ShowStandingTool(QPointer<Window>& window, const char* entry);
    template <typename Window>
    void Unload(QPointer<Window>& window, const char* entry);
    template <typename Window>
    void UnloadFloating(QPointer<Window>& window, const QString& section);

    Session& m_session;
    frmStoikal& m_mainWindow;
    ExerciseDesk& m_desk;
    FileSession& m_files;
    AttendedMessages m_calMolMessages; ///< the exercise never covers its boxes
    QPointer<frmCalMol> m_calMol;
    QPointer<frmExpert> m_expert;
    QPointer<frmSearch> m_search;
    QPointer<frmTableauPeriodique> m_tableau;
    QPointer<frmSimulAnim> m_simulAnim;
    QPointer<frmDataAtomes> m_dataAtomes;
};

} // namespace stoikal
