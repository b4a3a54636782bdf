#pragma once

#include "progress/windows/progress_pane.h"

#include <QObject>
#include <QPointer>

namespace stoikal {

class frmEquation;
class frmHistoMol;
class frmStoikal;
struct Session;

/// The table of progress in the exercise's window, and the window of its
/// drawings: it brings them together and passes on what one does for the other.
/// The clock and the window of molar masses are the desk's.
class ProgressDesk final : public QObject, private ProgressExercise
{
    Q_OBJECT

public:
    ProgressDesk(Session& session, frmStoikal& mainWindow);
    ~ProgressDesk() override;

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
    void OpenDrawings();
    void FreeDrawings();
    void RefreshDrawings();
    void HideExercise(bool hidden);

    Session& m_session;
    frmStoikal& m_mainWindow;
    QPointer<frmEquation> m_equation;
    QPointer<ProgressPane> m_table;
    QPointer<frmHistoMol> m_drawings;
};

} // namespace stoikal
