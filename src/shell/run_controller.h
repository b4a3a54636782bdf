#pragma once

#include "exercise/side_colours.h"
#include "shell/progress_controller.h"

#include <QObject>
#include <QPointer>

namespace stoikal {

class AtomWindow;
class Form;
class frmCharge;
class frmEquation;
class frmProduit;
class frmReactif;
class MolarMassesController;
class ResultsJournal;
class Sound;
class StopwatchController;
struct Pupil;
struct ViewOptions;

/// The windows of a run and what the menu does with them: the exercise with its
/// table of progress, the atoms of both sides, the charges. It opens and closes them and
/// passes on what one has to tell another; opening and ending files is not its
/// matter.
class RunController final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        ExerciseRun& run;
        ViewOptions& view;
        StopwatchController& stopwatch;
        MolarMassesController& molarMasses;
        ResultsJournal& journal;
        Messages& messages;
        Sound& sound;
        Clipboard& clipboard;
        const Regional& regional;
    };

    RunController(const Services& services, const WindowHost& host);
    ~RunController() override;

    /// Opens the windows of a run and shows its first equation.
    void Open();
    /// Takes the exercise and the charges away, at the end of a run.
    void CloseExercise();
    /// Takes the atom windows away.
    void CloseAtoms();
    void HideAtoms();

    /// For the time of a question, so that the windows never cover it.
    void HideWindowsOfRun();
    void ShowWindowsOfRun();
    void HideExercise();
    void ShowExercise();
    /// Shows it again and leaves the keyboard to another window.
    void ShowExerciseInactive();

    frmEquation* Exercise() const;

    void Mnu_Atome_Click();
    void Mnu_Taille_Click(int index);
    void Mnu_Compo_Click(int slot);
    void Mnu_Charge_Click();
    void Mnu_Copy_Click();
    void Mnu_Del_Click();

    /// Takes the window of the molar masses away.
    void CloseMolarMasses();

    bool ShowsCharges() const { return m_charge.IsOpen(); }

    /// Places the two atom windows as the preferences say; only in a run.
    void ArrangeAtomWindows();
    /// The same behind a change of the preferences, with the atoms drawn again.
    void ShowArrangement();
    /// Paints the sides of the open windows in the colours of the preferences.
    void RefreshColours();
    /// The pointer went on over one of its windows: the names of atoms under it go.
    void NotePointer(const QString& window);
    /// Gives the keyboard back to the exercise, if one is shown.
    void ReturnToExercise();

Q_SIGNALS:
    void EndOfFileReached();
    void CloseAsked();
    /// Something that the menu shows is another: the equation, a window.
    void Changed();

private:
    template <typename Window>
    Window* OpenAtomWindow();
    void ConnectAtomWindow(AtomWindow& window);
    void ConnectExercise();
    void TakeEquation();
    void RestartSeriesClock();
    void ShowCounts();
    void DrawAtoms();
    void ClearAtoms();
    frmCharge* MakeCharge(QWidget* parent);
    void RaiseWorkingWindows();

    Services m_services;
    WindowHost m_host;
    ProgressController m_progress;
    QPointer<frmEquation> m_equation;
    QPointer<frmReactif> m_reactif;
    QPointer<frmProduit> m_produit;
    Hosted<frmCharge> m_charge;
};

} // namespace stoikal
