#pragma once

#include "forms/form.h"
#include "tools/stopwatch.h"

class QFrame;
class QLabel;
class QPushButton;
class QSlider;
class QTimer;
class QToolButton;

namespace stoikal {

class Clock;
class Sound;

/// A small elliptic stopwatch that also keeps the time of an exercise. During a
/// scored run the pupil can hide it but not touch the clock.
class frmChrono final : public Form
{
    Q_OBJECT

public:
    frmChrono(StopwatchSeconds& seconds, Clock& clock, Sound& sound, QChar separator, QWidget* parent);

    /// The reset button and the start button can be used, or not.
    void SetButtonsEnabled(bool enabled);
    /// Presses the reset button, whether it can be used or not.
    void Reset() { cmdRAZ_Click(); }
    /// The exercise starts the watch, from the seconds banked.
    void StartRun();
    /// The exercise stops the display.
    void StopRun();

    bool IsRunning() const { return m_stopwatch.CurrentState() == Stopwatch::State::Running; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void BuildControls();
    void PlaceControls();
    void chkStart_Stop_Click();
    void chkAlarme_Click();
    void cmdRAZ_Click();
    void tmrChrono_Timer();
    void ShowState();
    void SetBackColour(const QColor& colour);

    StopwatchSeconds& m_seconds;
    Clock& m_clock;
    Sound& m_sound;
    QChar m_separator;
    Stopwatch m_stopwatch;
    QPoint m_grip;

    QLabel* lblEcran;
    QLabel* lblTime;
    QLabel* lblOnOff;
    QLabel* lblStop;
    QLabel* lblAlarme;
    QLabel* Label1;
    QToolButton* chkStart_Stop;
    QToolButton* chkAlarme;
    QSlider* sldAlarme;
    QPushButton* cmdRAZ;
    QPushButton* cmdEnd;
    QTimer* tmrChrono;
};

} // namespace stoikal
