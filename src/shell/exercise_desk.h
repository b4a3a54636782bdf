#pragma once

#include "exercise/side_colours.h"
#include "shell/progress_desk.h"

#include <QObject>
#include <QPointer>
#include <memory>

namespace stoikal {

class AtomWindow;
class Form;
class frmCharge;
class frmChrono;
class frmEquation;
class frmProduit;
class frmReactif;
class frmStoikal;
class MassMolDesk;
struct Session;

/// The windows of a run and what the menu does with them: the exercise with its
/// table of progress, the atoms of both sides, the charges, the stopwatch. It opens and closes them and
/// passes on what one has to tell another; opening and ending files is not its
/// matter.
class ExerciseDesk final : public QObject
{
    Q_OBJECT

public:
    ExerciseDesk(Session& session, frmStoikal& mainWindow);
    ~ExerciseDesk() override;

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

    /// The stopwatch, loaded on first use.
    frmChrono& Chrono();
    /// Back to rest, with buttons that the user can press.
    void ResetChrono();
    void StopChrono();
    void LockChrono(bool locked);

    void Mnu_Atome_Click();
    void Mnu_Taille_Click(int index);
    void Mnu_Compo_Click(int slot);
    void Mnu_Charge_Click();
    void Mnu_Chrono_Click();
    void Mnu_Copy_Click();
    void Mnu_Del_Click();

    void Mnu_MassMol_Click();

    /// Opens the window of the molar masses or takes it away.
    void ShowMassMol(bool shown);

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
    /// The window of the molar masses came or went, whoever wanted it so.
    void MassMolShown(bool shown);
    /// The molar volume of the settings was computed again.
    void GasDataChanged();

private:
    template <typename Window>
    Window* OpenAtomWindow();
    void ConnectAtomWindow(AtomWindow& window);
    void ConnectExercise();
    void TakeEquation();
    void RestartSeriesClock();
    void BankSeconds();
    void ShowCounts();
    void DrawAtoms();
    void ClearAtoms();
    void OpenCharge();
    void UnloadCharge();
    void RaiseWorkingWindows();
    void CloseChrono();
    int AtomScale() const;

    Session& m_session;
    frmStoikal& m_mainWindow;
    ProgressDesk m_progress;
    QPointer<frmEquation> m_equation;
    QPointer<frmReactif> m_reactif;
    QPointer<frmProduit> m_produit;
    QPointer<frmCharge> m_charge;
    QPointer<frmChrono> m_chrono;
    MassMolDesk* m_massMol;
    bool m_chronoIsLocked = false;
};

} // namespace stoikal
