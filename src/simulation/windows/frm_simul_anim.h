#pragma once

#include "forms/form.h"
#include "simulation/particle_model.h"
#include "simulation/simulation_curves.h"
#include "simulation/thermometer.h"
#include "simulation/windows/plot_pictures.h"

class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSlider;
class QTabWidget;
class QTimer;
class QToolButton;

namespace stoikal {

class Clipboard;
class Clock;
class FilterEdit;
class Messages;
class PictureSurface;
class Randomness;
class RunButton;
class Sound;
class WaveHandle;

/// The reversible reaction A + B = C + D as moving discs, with curves of their
/// numbers or of the reaction quotient. Whatever is set by hand stops the
/// animation: a start always begins anew.
class frmSimulAnim final : public Form
{
    Q_OBJECT

public:
    struct Doors {
        Clock& clock;
        Messages& messages;
        Sound& sound;
        Clipboard& clipboard;
        Randomness& randomness;
        QChar separator; ///< the system's decimal sign
    };

    frmSimulAnim(const Doors& doors, QWidget* parent);

    /// Does what a second click on the start button does, where the animation runs.
    void StopAnimation();

    const ParticleModel& Particles() const { return m_particles; }
    const SimulationCurves& Curves() const { return m_curves; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Build();
    void BuildNumbers();
    void BuildThermometer();
    void BuildTabs();
    QWidget* BuildAnimationTab();
    QWidget* BuildParticlesTab();
    QWidget* BuildCurveTab();
    void BuildShares();
    void BuildShare(int index, const char* labelName, const QString& caption, QLabel*& label);
    void OrderTabs();
    void Connect();
    void LoadNumbers();

    void ResizeForm();
    void WrapCaption(bool inTwoLines);
    int LeastWidth();
    void PlaceFrames();
    void PlaceThermometer(const BoxLayout& layout);
    void PaintThermometer();

    void chkStart_Click();
    void tmrAnim_Timer();
    void txtMol_KeyPress(int index, QChar key);
    void txtMol_Change(int index);
    void sldChoc_Change(int index);
    void sldWidth_Change();
    void picWave_MouseMove(Twips y, Twips rememberedY);
    void picWave_Stepped(int steps);
    void picCourbe_MouseMove(const QPoint& pixel, const QPointF& share);
    void cmdCopy_Click();

    void ResetSimHistory();
    void PlaceParticles();
    void TakeSpeed();
    void ShowParticles();
    void ShowState();
    KindNumbers TypedNumbers() const;
    bool IsCurveColour(const QColor& colour) const;

    static constexpr int kKindBoxes = static_cast<int>(kKinds);

    Doors m_doors;
    ParticleModel m_particles;
    Thermometer m_thermometer;
    PlotPictures m_plot;
    SimulationCurves m_curves;
    bool m_badKeyFlag = false;
    QString m_lastKey; ///< one character

    QGroupBox* fraNbrMol;
    QGroupBox* fraChocs;
    QTabWidget* sstAnim;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QLabel* Label4;
    QLabel* Label5;
    QLabel* Label6;
    QLabel* Label7;
    QLabel* Label8;
    QLabel* Label9;
    QLabel* Label10;
    std::array<QLabel*, kKinds> lblCorps{};
    std::array<FilterEdit*, kKinds> txtMol{};
    std::array<QLabel*, kKinds> lblMol{};
    PictureSurface* picMilieu;
    QLabel* lblTemperature;
    PictureSurface* picThermo;
    std::array<QFrame*, 2> lblCurseur{};
    WaveHandle* picWave;
    QLineEdit* txtCompteur;
    RunButton* chkStart;
    QSlider* sldWidth;
    std::array<QRadioButton*, 2> optY{};
    QFrame* Line1;
    QToolButton* cmdCopy;
    std::array<QSlider*, 2> sldChoc{};
    std::array<QLabel*, 2> lblChoc{};
    QLabel* lblEtat;
    QLabel* lblAide;
    QTimer* tmrAnim;
};

} // namespace stoikal
