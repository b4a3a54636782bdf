#pragma once

#include "exercise/high_scores.h"
#include "forms/form.h"

#include <optional>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace stoikal {

class Messages;
class PictureSurface;
class Screen;
struct Places;

/// The end of a run: the mark, the time, and the ten best of the file. What the
/// pupil wants next is told by the way the window ends.
class frmNote final : public ModalForm
{
    Q_OBJECT

public:
    enum Choice { Again = 10, Stay, End };

    /// What the run has earned. Nothing for a run that is not scored.
    struct Earned {
        double mark = 0; ///< out of 20
        double seconds = 0;
    };

    frmNote(const Places& places, QChar separator, const QString& fileTitle, std::optional<Earned> earned,
            QWidget* parent);

    /// Draws the table of the ten best; the pupil's own result stands in red.
    void ShowHighScores(const std::vector<HighScore>& section, const NewResult& own);

    /// Centres the window in the usable area.
    void Place(const Screen& screen);

protected:
    bool event(QEvent* event) override;
    void TitleBarClosed() override { done(Stay); }

private:
    QFont TableFont() const;
    void BuildChoices();
    void chkHighScore_Click();

    const Places& m_places;
    QChar m_separator;
    const Screen* m_screen = nullptr;
    int m_width = 0; ///< pixels, as the heights
    int m_height = 0;
    int m_leastHeight = 0; ///< of what stands above the table
    int m_heightWithScores = 0;

    QWidget* m_upper; ///< what stands above the table
    QLabel* lblInfo;
    QLabel* lblNote;
    QLabel* lblTemps;
    QGroupBox* fraChoix;
    QPushButton* cmdAgain;
    QPushButton* cmdStay;
    QPushButton* cmdEnd;
    QCheckBox* chkHighScore;
    PictureSurface* picHighSCore;
};

} // namespace stoikal
