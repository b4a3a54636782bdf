#pragma once

#include "exercise/exercise_run.h"
#include "exercise/windows/band_controls.h"
#include "forms/form.h"

class QLabel;
class QPushButton;
class QTimer;

namespace stoikal {

struct JournalTerm;
class LowerPane;
class Messages;
class ResultsJournal;
class Screen;
class Sound;
struct Places;

/// The window in which the pupil works: the band of the current equation, the
/// score, the button that validates. It shows the run and hands each answer to
/// it; what stands below the band in a progress file, the atom windows, the charge
/// window and the end of the run are others'.
class frmEquation final : public Form
{
    Q_OBJECT

public:
    struct Doors {
        const Places& places;
        ResultsJournal& journal;
        Messages& messages;
        const Screen& screen;
        Sound& sound;
    };

    frmEquation(ExerciseRun& run, const Doors& doors, QWidget* parent);

    /// Takes the next equation, or tells that there is none left.
    void ReadNextEquation();

    /// Shows the window with the score of a run that begins.
    void Open();

    /// The texts of the six coefficient boxes.
    ExerciseRun::Texts Coefficients() const;
    void EmptyCoefficients();
    /// Writes the file's coefficients into the boxes; the run goes on as before.
    void ShowSolution();
    /// The equation as the pupil sees it, for the clipboard.
    QString EquationText() const;
    void FocusFirstBox();
    /// Counts the atoms and charges again and tells who draws them.
    void Recompose();

    /// What stands below the band in a progress file; the window takes it over.
    void SetLowerPane(LowerPane* pane);
    /// A step of what stands below was passed: points and the green flash.
    void PassStep();
    /// A try at such a step was wrong: points lost and the red flash.
    /// \returns whether the score is 0 now, which shows the solution.
    bool FailStep();
    void SetInstruction(const QString& words);
    /// The equation is done: the button that leads on comes, with the keyboard.
    void ShowNext();

Q_SIGNALS:
    /// A new equation is in the run's record; nothing of it is shown yet.
    void EquationRead();
    /// Atoms and charges were counted again.
    void Recomposed();
    /// The whole new equation stands on the screen.
    void EquationShown();
    void EndOfFileReached();

private:
    void ConnectBand();
    void BuildScoreRow();
    void txtCoef_KeyPress(int index, QChar key);
    void txtCoef_Change(int index);
    void cmdOther_Click();
    void Timer1_Timer();

    void ShowRecord();
    void FillBoxes();
    void PlaceControls();
    void PlaceScoreRow(int bandBottom);
    void PlaceLowerPane(const EquationLayout& layout, int top, int leastHeight);
    static int RowTop(int bandBottom);
    int ButtonHeight() const;
    int VerdictHeight() const;
    void PlaceInWorkArea();
    void RemoveLastCharacter(int index);
    void ShowScore();
    void ShowWrong(bool solutionIsShown);
    void ShowRight();
    void FillEmptyBoxes();
    void StartFlash(const QColor& colour, const QString& words);
    void WriteResultLine();
    std::array<JournalTerm, 6> Terms() const;

    ExerciseRun& m_run;
    Doors m_doors;

    BandControls m_band;
    LowerPane* m_lowerPane = nullptr;
    QLabel* lblNomScore;
    QLabel* lblScore;
    QPushButton* cmdOther;
    QPushButton* cmdNext;
    QLabel* lblInstruction;
    QLabel* lblVerdict;
    QTimer* Timer1;
};

} // namespace stoikal
