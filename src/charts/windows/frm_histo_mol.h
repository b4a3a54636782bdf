#pragma once

#include "charts/reaction_levels.h"
#include "forms/form.h"

#include <array>

class QGroupBox;
class QLabel;
class QRadioButton;
class QSlider;
class QTimer;
class QToolButton;

namespace stoikal {

class Clipboard;
class PictureSurface;

/// The evolution of a reaction: a histogram and curves at the progress that the
/// slider or the animation has reached. It reads the table and changes nothing
/// in it; who holds the exercise hides it and clears its check box.
class frmHistoMol final : public Form
{
    Q_OBJECT

public:
    struct Doors {
        Clipboard& clipboard;
        QChar separator; ///< the decimal sign
    };

    /// The table must outlive the window and have an `Xmax` above 0. Opens at the
    /// beginning of the reaction; a FatalFault as `SetUpProgressSlider`.
    frmHistoMol(const ProgressTable& table, const Doors& doors, QWidget* parent);

    /// Limits, ticks and key steps of the slider from the table; both pictures
    /// are drawn at the end of the reaction and then at its beginning. A
    /// FatalFault for a greatest progress of more than 32 bits of steps.
    void SetUpProgressSlider();

    /// The table has changed: limits and ticks anew, the position kept as far as
    /// it is still there, both pictures drawn. Fails as `SetUpProgressSlider`.
    void Refresh();

    /// The exercise shows again, whoever brought it back: the mask's box is cleared.
    void ClearMask();

    /// Stops the animation and brings a hidden equation back; says `Released` once.
    void Release() override;

Q_SIGNALS:
    /// The exercise is to be hidden, or shown again.
    void HideEquationAsked(bool hidden);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void Build();
    void BuildOptions();
    void BuildAnimation();
    void Connect();
    void SetSliderLimits();
    double Progress() const;
    Ordinate ShownOrdinate() const;
    void DrawHistogram(double progress);
    void DrawProgressCurves(double progress);
    void DrawBoth();
    void sldAnim_Change();
    void chkAnim_Click();
    void tmrAnim_Timer();
    void cmdCopy_Click(int index);

    const ProgressTable& m_table;
    Doors m_doors;
    bool m_isReleased = false;

    QWidget* m_head; ///< the row of frames above the pictures
    QGroupBox* fraOption;
    std::array<QRadioButton*, 2> optCourbe{};
    QGroupBox* fraAnim;
    QToolButton* chkAnim;
    QToolButton* cmdRAZ;
    QSlider* sldAnim;
    QLabel* Label1;
    QLabel* lblAvct;
    QLabel* lblMaxEtat;
    QToolButton* chkMask;
    PictureSurface* picHistoMol;
    PictureSurface* picCourbeMol;
    std::array<QToolButton*, 2> cmdCopy{};
    QTimer* tmrAnim;
};

} // namespace stoikal
