#pragma once

#include "balancing/windows/searching_form.h"
#include "forms/messages.h"
#include "shell/hosted_window.h"

#include <array>
#include <memory>
#include <set>

namespace stoikal {

class Clipboard;
class RunController;
class ExerciseRun;
class FileSession;
class frmCalMol;
class frmDataAtomes;
class frmExpert;
class frmSearch;
class frmSimulAnim;
class frmTableauPeriodique;
class Randomness;
class Regional;
class Sound;

/// The windows of the tools, a row each: it opens and closes them by their menu
/// entries, takes them out of the way of a run, and hands a gathered file over to
/// the file session.
class ToolWindows final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        Clock& clock;
        Dialogs& dialogs;
        Messages& messages;
        Settings& settings;
        Sound& sound;
        Clipboard& clipboard;
        Randomness& randomness;
        const Regional& regional;
        const ExerciseRun& run;
    };

    ToolWindows(const Services& services, const WindowHost& host, RunController& desk, FileSession& files);
    ~ToolWindows() override;

    /// Opens the window of an entry, or takes it away.
    void Toggle(Command entry);
    bool IsOpen(Command entry) const;
    /// The entries whose windows are there, shown or hidden.
    std::set<Command> OpenEntries() const;

    /// Gives up whatever a tool is doing, at the end of the program.
    void StopTools();

Q_SIGNALS:
    /// A window came or went.
    void Changed();

private:
    void MakeWay(InARun rule);
    void BeginRun();
    void EndRun();
    void OpenGathered(const QString& path);
    void ShowElement(int index);
    std::array<HostedWindow*, 6> All() const;
    HostedWindow& WindowOf(Command entry) const;
    SearchingForm::Doors SearchServices() const;
    frmCalMol* MakeCalMol(QWidget* parent);
    frmSearch* MakeSearch(QWidget* parent);
    frmTableauPeriodique* MakeTableau(QWidget* parent);
    frmSimulAnim* MakeSimulAnim(QWidget* parent);
    frmDataAtomes* MakeDataAtomes(QWidget* parent);

    Services m_services;
    WindowHost m_host;
    RunController& m_desk;
    FileSession& m_files;
    AttendedMessages m_calMolMessages; ///< the exercise never covers its boxes
    int m_element = 0; ///< index of the element that is shown
    std::unique_ptr<Hosted<frmCalMol>> m_calMol;
    std::unique_ptr<Hosted<frmExpert>> m_expert;
    std::unique_ptr<Hosted<frmSearch>> m_search;
    std::unique_ptr<Hosted<frmTableauPeriodique>> m_tableau;
    std::unique_ptr<Hosted<frmSimulAnim>> m_simulAnim;
    std::unique_ptr<Hosted<frmDataAtomes>> m_dataAtomes;
};

} // namespace stoikal
