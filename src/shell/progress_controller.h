#pragma once

#include "progress/windows/progress_pane.h"
#include "shell/hosted_window.h"

#include <QObject>
#include <QPointer>

namespace stoikal {

class Clipboard;
class ExerciseRun;
class frmEquation;
class frmHistoMol;
class Messages;
class Regional;

/// The table of progress in the exercise's window, and the window of its
/// drawings: it brings them together and passes on what one does for the other.
/// The clock and the window of molar masses are the run's.
class ProgressController final : public QObject, private ProgressExercise
{
    Q_OBJECT

public:
    struct Services {
        const ExerciseRun& run;
        Messages& messages;
        Clipboard& clipboard;
        const Regional& regional;
    };

    ProgressController(const Services& services, const WindowHost& host);
    ~ProgressController() override;

    /// Gives an exercise its table. The exercise owns it from then on.
    void Attach(frmEquation& equation);
    /// The exercise is going: the drawings go first.
    void Detach();

    /// The equation of the run is a new one: in a progress file the table starts on it.
    void TakeEquation();

    /// The exercise was shown again: nothing masks it any more.
    void NoteExerciseShown();
    /// The window of molar masses came or went.
    void NoteMassMolShown(bool shown);
    /// The molar volume of the settings was computed again. What cannot be
    /// computed with it is told in a box and changes nothing.
    void FollowMolarVolume();

Q_SIGNALS:
    /// The box of the molar masses' window was ticked or unticked.
    void MassMolAsked(bool shown);
    /// An equation of a series is done.
    void EquationEnded();

private:
    void PassStep() override;
    bool FailStep() override;
    void SetInstruction(const QString& words) override;
    void EndEquation() override;

    void ShowDrawings(bool shown);
    frmHistoMol* MakeDrawings(QWidget* parent);
    void NoteDrawingsGone();
    void RefreshDrawings();
    void HideExercise(bool hidden);

    Services m_services;
    WindowHost m_host;
    QPointer<frmEquation> m_equation;
    QPointer<ProgressPane> m_table;
    Hosted<frmHistoMol> m_drawings;
};

} // namespace stoikal
