#pragma once

#include "progress/progress_run.h"
#include "progress/windows/progress_controls.h"

namespace stoikal {

class Settings;

/// What the exercise around the table does for it: the points, the words above,
/// the end of an equation.
class ProgressExercise
{
public:
    virtual ~ProgressExercise() = default;

    /// A step was passed as a whole.
    virtual void PassStep() = 0;
    /// A try at a step was wrong. \returns whether the score is 0 now.
    virtual bool FailStep() = 0;
    virtual void SetInstruction(const QString& words) = 0;
    /// The equation of a series is done: the clock stops, the next can come.
    virtual void EndEquation() = 0;
};

/// The table of progress below an equation. In a series the pupil works it in
/// two steps, the molar masses and the table; in free simulation he varies the
/// amounts of the reactants and sees the table computed. The windows of the data
/// and of the drawings are others': their boxes only tell.
class ProgressPane final : public LowerPane
{
    Q_OBJECT

public:
    struct Doors {
        const Settings& settings;
        Messages& messages;
        QChar separator;
    };

    ProgressPane(const Doors& doors, ProgressExercise& exercise);

    /// Starts on an equation. FatalFault as `ComputeProgress`.
    void TakeEquation(const EquationRecord& record, bool isSeries);

    /// The molar volume of the settings has changed: a free simulation shows it
    /// at once, a series only judges by it. FatalFault as `ComputeProgress`;
    /// nothing has changed then.
    void FollowMolarVolume();

    const ProgressTable& Table() const { return m_run.Table(); }

    void SetShowsData(bool shown);
    void SetShowsDrawings(bool shown);

    Needs FitTo(int titleRoom, const QWidget& next) override;
    void PlaceUnder(const Columns& columns, QWidget& next) override;
    void FocusFirstBox() override;

Q_SIGNALS:
    /// The box of the window of molar masses was ticked or unticked.
    void DataToggled(bool shown);
    /// The box of the window of drawings was ticked or unticked.
    void DrawingsToggled(bool shown);
    /// The numbers of the present equation were computed again.
    void TableChanged();

private:
    MolarMasses ComputeMolarMasses(const EquationRecord& record);
    void ReportUnknownAtom(const QString& symbol);
    double MolarVolume() const;
    bool IsSeries() const;

    void ShowEquation();
    void txtMasMol_Change();
    void txtQmat0_Change(int slot);
    void CheckTableComplete();
    void cmdValidMassMol_Click();
    void cmdValidMVQ_Click();
    void chkDataMol_Click(bool checked);

    void EndMolarMasses();
    void EnableTableInput();
    void ValidateTable();
    void Simulate();
    void ShowSimulation(const ProgressTexts& texts);
    void EndEquation();
    void SetOutOfDate(bool isOutOfDate);
    void WriteTexts(const ProgressTexts& texts);
    std::array<bool, 6> VolumeAsked() const;

    Doors m_doors;
    ProgressExercise& m_exercise;
    ProgressRun m_run;
    ProgressControls m_controls;
    bool m_isWriting = false; ///< the program writes the boxes, nobody types
};

} // namespace stoikal
