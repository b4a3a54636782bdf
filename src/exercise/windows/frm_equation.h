#pragma once

#include "exercise/exercise_run.h"
#include "forms/form.h"

#include <array>

class QFrame;
class QLabel;
class QPushButton;
class QTimer;

namespace stoikal {

class FilterEdit;
class MenuState;
class Messages;
class ReactionArrow;
class ResultsJournal;
class Screen;
class Sound;
class SpeciesLabel;

/// The window in which the pupil works: the band of the current equation, the
/// score, the button that validates. It shows the run and hands each answer to
/// it; the atom windows, the charge window and the end of the run are others'.
class frmEquation final : public Form
{
    Q_OBJECT

public:
    struct Doors {
        SessionState& session;
        const MenuState& menu;
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

Q_SIGNALS:
    /// A new equation is in the run's record; nothing of it is shown yet.
    void EquationRead();
    /// Atoms and charges were counted again.
    void Recomposed();
    /// The whole new equation stands on the screen.
    void EquationShown();
    void EndOfFileReached();
    void MouseMovedOver();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void BuildBand();
    void BuildScoreRow();
    void txtCoef_KeyPress(int index, QChar key);
    void txtCoef_Change(int index);
    void cmdOther_Click();
    void Timer1_Timer();

    void ShowRecord();
    void FillBoxes();
    void PlaceControls();
    void PlaceScoreRow(int bandBottom);
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
    void SetBandColour(const QColor& colour);
    void WriteResultLine();
    QString Term(int slot) const;

    ExerciseRun& m_run;
    Doors m_doors;

    std::array<FilterEdit*, 6> txtCoef{};
    std::array<SpeciesLabel*, 6> rtbCorp{};
    std::array<QFrame*, 4> picPlus{};
    std::array<QLabel*, 4> lblPlus{};
    ReactionArrow* imgFleche;
    QLabel* lblNomScore;
    QLabel* lblScore;
    QPushButton* cmdOther;
    QPushButton* cmdNext;
    QLabel* lblInstruction;
    QLabel* lblVerdict;
    QTimer* Timer1;
};

} // namespace stoikal
