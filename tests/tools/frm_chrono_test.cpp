#include "forms/window_events.h"
#include "tools/windows/frm_chrono.h"

#include "forms/colours.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QColor kRed(255, 0, 0);

/// The stopwatch on the screen, with a clock of ten counts a second.
class FrmChrono : public testing::Test
{
protected:
    FrmChrono() { window.show(); }

    QLabel& Label(const char* name) { return Control<QLabel>(window, name); }
    QToolButton& StartStop() { return Control<QToolButton>(window, "chkStart_Stop"); }
    QToolButton& Alarm() { return Control<QToolButton>(window, "chkAlarme"); }
    QPushButton& Raz() { return Control<QPushButton>(window, "cmdRAZ"); }
    QSlider& Interval() { return Control<QSlider>(window, "sldAlarme"); }
    QTimer& Timer() { return Control<QTimer>(window, "tmrChrono"); }
    QColor BackColour() { return window.grab().toImage().pixelColor(window.width() / 2, 14); }

    /// The colour of an active window's title.
    static QColor ActiveTitle() { return colours::kAccent; }

    /// Moves the counter and lets the running timer fire.
    void TickAt(std::int64_t counter)
    {
        clock.counter = counter;
        Tick(Timer());
    }

    void ExpectAtRest()
    {
        EXPECT_EQ(Label("lblTime").text(), u"00:00,0"_s);
        EXPECT_EQ(Label("lblStop").text(), u"STOP"_s);
        EXPECT_TRUE(Label("lblStop").isVisible());
        EXPECT_FALSE(Label("lblOnOff").isVisible());
        EXPECT_EQ(StartStop().toolTip(), u"Pour démarrer le chronomètre."_s);
        EXPECT_FALSE(StartStop().isChecked());
        EXPECT_FALSE(Timer().isActive());
    }

    StopwatchSeconds seconds;
    FakeClock clock;
    FakeSound sound;
    frmChrono window{seconds, clock, sound, u',', nullptr};
};

} // namespace

TEST_F(FrmChrono, IsAtRestFirst)
{
    EXPECT_EQ(window.windowTitle(), u"Chronomètre"_s);
    EXPECT_EQ(Label("lblOnOff").text(), u"MARCHE"_s);
    EXPECT_EQ(Label("lblAlarme").text(), u"ALARME"_s);
    EXPECT_FALSE(Label("lblAlarme").isVisible());
    EXPECT_EQ(Timer().interval(), 100);
    ExpectAtRest();
}

TEST_F(FrmChrono, HasAnIntervalOfOneToTenSecondsFiveAtFirst)
{
    EXPECT_EQ(Interval().minimum(), 1);
    EXPECT_EQ(Interval().maximum(), 10);
    EXPECT_EQ(Interval().value(), 5);
    EXPECT_EQ(Label("Label1").text(), u"1s         5s           10s"_s);
}

TEST_F(FrmChrono, TellsWhatItsButtonsDo)
{
    EXPECT_EQ(Alarm().toolTip(), u"Pour déclencher l'alarme."_s);
    EXPECT_EQ(Raz().toolTip(), u"Pour remettre à zéro le chronomètre."_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdEnd").toolTip(), u"Pour fermer le chronomètre."_s);
    EXPECT_TRUE(Interval().toolTip().startsWith(u"Pour augmenter ou diminuer l'intervalle de temps"_s));

    Interval().setValue(7);
    EXPECT_TRUE(Interval().toolTip().startsWith(u"Pour augmenter ou diminuer l'intervalle de temps"_s));
    EXPECT_TRUE(Interval().toolTip().contains(u"7 s"_s));
}

TEST_F(FrmChrono, NamesItsControlsForReaders)
{
    // The time is read as its text.
    EXPECT_TRUE(Control<QWidget>(window, "lblTime").accessibleName().isEmpty());
    for (const char* const name : {"chkStart_Stop", "chkAlarme", "sldAlarme", "cmdRAZ", "cmdEnd"})
        EXPECT_FALSE(Control<QWidget>(window, name).accessibleName().isEmpty()) << name;
}

TEST_F(FrmChrono, RunsAtAPressOfTheStartButton)
{
    clock.counter = 1000;
    Click(StartStop());

    EXPECT_TRUE(Timer().isActive());
    EXPECT_TRUE(Label("lblOnOff").isVisible());
    EXPECT_FALSE(Label("lblStop").isVisible());
    EXPECT_EQ(StartStop().toolTip(), u"Pour suspendre le chronomètre."_s);
    EXPECT_TRUE(StartStop().isChecked());
    TickAt(1015); // (1015 - 1000) / 10
    EXPECT_EQ(Label("lblTime").text(), u"00:01,5"_s);
    EXPECT_DOUBLE_EQ(seconds.ElapsedSeconds, 1.5);
}

TEST_F(FrmChrono, StopsTheDisplayWhileSuspended)
{
    Click(StartStop());
    TickAt(50);
    Click(StartStop());

    EXPECT_FALSE(Timer().isActive());
    EXPECT_FALSE(Label("lblOnOff").isVisible());
    EXPECT_TRUE(Label("lblStop").isVisible());
    EXPECT_EQ(Label("lblStop").text(), u"ARRET"_s);
    EXPECT_EQ(StartStop().toolTip(), u"Pour démarrer le chronomètre."_s);
    EXPECT_FALSE(StartStop().isChecked());
    TickAt(90);
    EXPECT_EQ(Label("lblTime").text(), u"00:05,0"_s);
    EXPECT_DOUBLE_EQ(seconds.ElapsedSeconds, 5.0);
}

TEST_F(FrmChrono, CountsTheTimeSpentSuspendedOnceItGoesOn)
{
    Click(StartStop());
    TickAt(50);
    Click(StartStop());
    clock.counter = 150;
    Click(StartStop());

    EXPECT_TRUE(Label("lblOnOff").isVisible());
    EXPECT_FALSE(Label("lblStop").isVisible());
    EXPECT_EQ(Label("lblStop").text(), u"STOP"_s);
    EXPECT_EQ(StartStop().toolTip(), u"Pour suspendre le chronomètre."_s);
    TickAt(151);
    EXPECT_EQ(Label("lblTime").text(), u"00:15,1"_s); // 5 s, 10 s suspended, one tick
}

TEST_F(FrmChrono, RoundsTheSecondsWithoutCarryingTheMinute)
{
    seconds.BankedSeconds = 0.06;
    Click(StartStop());
    TickAt(599); // 59.9 + 0.06 = 59.96

    EXPECT_EQ(Label("lblTime").text(), u"00:60,0"_s);
}

TEST_F(FrmChrono, GoesBackToZeroAtRest)
{
    Click(Raz());

    ExpectAtRest();
}

TEST_F(FrmChrono, GoesBackToZeroWhileItRuns)
{
    seconds.BankedSeconds = 20;
    Click(StartStop());
    TickAt(50);
    Click(Raz());

    ExpectAtRest();
    EXPECT_EQ(seconds.ElapsedSeconds, 0.0);
    EXPECT_EQ(seconds.BankedSeconds, 0.0);
}

TEST_F(FrmChrono, GoesBackToZeroWhileItIsSuspended)
{
    Click(StartStop());
    TickAt(50);
    Click(StartStop());
    Click(Raz());

    ExpectAtRest();
    EXPECT_EQ(seconds.ElapsedSeconds, 0.0);
}

TEST_F(FrmChrono, StartsFromZeroBehindAReset)
{
    Click(StartStop());
    TickAt(50);
    Click(Raz());
    Click(StartStop());
    TickAt(60);

    EXPECT_EQ(Label("lblTime").text(), u"00:01,0"_s); // 60 - 50 counts
}

TEST_F(FrmChrono, AddsTheSecondsBankedBeforeARestart)
{
    seconds.BankedSeconds = 75;
    clock.counter = 100;
    window.StartRun();
    TickAt(105);

    EXPECT_EQ(Label("lblTime").text(), u"01:15,5"_s); // 75 + 0.5
    EXPECT_DOUBLE_EQ(seconds.ElapsedSeconds, 75.5);
}

TEST_F(FrmChrono, IsRestartedByTheExerciseWhileItRuns)
{
    window.StartRun();
    TickAt(50);
    window.StartRun(); // at 50

    TickAt(60);
    EXPECT_EQ(Label("lblTime").text(), u"00:01,0"_s);
    EXPECT_TRUE(StartStop().isChecked());
}

TEST_F(FrmChrono, IsRestartedByTheExerciseWhileItIsSuspended)
{
    window.StartRun();
    TickAt(50);
    window.StopRun();
    EXPECT_EQ(Label("lblStop").text(), u"ARRET"_s);
    EXPECT_FALSE(Timer().isActive());
    clock.counter = 100;
    window.StartRun();

    TickAt(110);
    EXPECT_EQ(Label("lblTime").text(), u"00:01,0"_s);
}

TEST_F(FrmChrono, StaysAtRestWhenTheExerciseStopsIt)
{
    window.StopRun();

    ExpectAtRest();
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(FrmChrono, KeepsThePupilsHandsOffTheClockInAScoredRun)
{
    window.StartRun();
    window.SetButtonsEnabled(false);

    EXPECT_FALSE(Raz().isEnabled());
    EXPECT_FALSE(StartStop().isEnabled());
    QTest::mouseClick(&StartStop(), Qt::LeftButton);
    QTest::mouseClick(&Raz(), Qt::LeftButton);
    QTest::keyClick(&StartStop(), Qt::Key_Space);
    EXPECT_TRUE(window.IsRunning());
    TickAt(30);
    EXPECT_EQ(Label("lblTime").text(), u"00:03,0"_s);

    window.SetButtonsEnabled(true);
    Click(Raz());
    ExpectAtRest();
}

TEST_F(FrmChrono, IsResetByTheProgramEvenWhileItsButtonsAreLocked)
{
    window.StartRun();
    window.SetButtonsEnabled(false);
    TickAt(30);
    window.Reset();

    ExpectAtRest();
}

TEST_F(FrmChrono, ShowsWhetherTheAlarmIsOn)
{
    Click(Alarm());
    EXPECT_TRUE(Label("lblAlarme").isVisible());

    Click(Alarm());
    EXPECT_FALSE(Label("lblAlarme").isVisible());
}

TEST_F(FrmChrono, BeepsAndTurnsRedAtEachMultipleOfTheInterval)
{
    Click(Alarm());
    Click(StartStop());

    TickAt(49);
    EXPECT_EQ(sound.beeps, 0);
    EXPECT_EQ(BackColour(), ActiveTitle());
    TickAt(50); // 5 s
    EXPECT_EQ(sound.beeps, 1);
    EXPECT_EQ(BackColour(), kRed);
    TickAt(51);
    EXPECT_EQ(sound.beeps, 2);
    TickAt(53);
    EXPECT_EQ(sound.beeps, 2);
    EXPECT_EQ(BackColour(), ActiveTitle());
}

TEST_F(FrmChrono, HasAScaleToBeReadOnEachOfItsColours)
{
    const auto contrast = [this] {
        const auto luminance = [](const QColor& colour) {
            const auto part
                = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
            return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
                + 0.0722 * part(colour.blueF());
        };
        const double ink = luminance(Label("Label1").palette().color(QPalette::WindowText));
        const double ground = luminance(BackColour());
        return (std::max(ink, ground) + 0.05) / (std::min(ink, ground) + 0.05);
    };
    EXPECT_GE(contrast(), 4.5);
    Click(Alarm());
    Click(StartStop());
    TickAt(49);
    EXPECT_GE(contrast(), 4.5);
    TickAt(50);
    EXPECT_GE(contrast(), 3.9); // the better of both inks on pure red
}

TEST_F(FrmChrono, BeepsAtTheIntervalOfTheSlider)
{
    Click(Alarm());
    Interval().setValue(3);
    Click(StartStop());

    TickAt(50);
    EXPECT_EQ(sound.beeps, 0);
    TickAt(60); // 2 * 3 s
    EXPECT_EQ(sound.beeps, 1);
}

TEST_F(FrmChrono, IsSilentAtWholeMinutes)
{
    Click(Alarm());
    Click(StartStop());

    TickAt(600);
    EXPECT_EQ(sound.beeps, 0);
    EXPECT_EQ(BackColour(), ActiveTitle());
    TickAt(650);
    EXPECT_EQ(sound.beeps, 1);
}

TEST_F(FrmChrono, IsSilentWithoutTheAlarm)
{
    const QColor ordinary = BackColour();
    Click(StartStop());
    TickAt(50);

    EXPECT_EQ(sound.beeps, 0);
    EXPECT_EQ(BackColour(), ordinary);
}

TEST_F(FrmChrono, LosesTheRedWithTheAlarmAndWithAReset)
{
    const QColor ordinary = BackColour();
    Click(Alarm());
    Click(StartStop());
    TickAt(50);
    ASSERT_EQ(BackColour(), kRed);
    Click(Alarm());
    EXPECT_EQ(BackColour(), ordinary);

    Click(Alarm());
    TickAt(100);
    ASSERT_EQ(BackColour(), kRed);
    Click(Raz());
    EXPECT_EQ(BackColour(), ordinary);
}

TEST_F(FrmChrono, IsCutToAnEllipseOfItsSize)
{
    EXPECT_EQ(window.mask(), QRegion(window.rect(), QRegion::Ellipse));
    EXPECT_FALSE(window.mask().contains(QPoint(2, 2)));
    EXPECT_TRUE(window.mask().contains(window.rect().center()));
}

TEST_F(FrmChrono, KeepsItsEllipseWhenItsSizeChanges)
{
    window.resize(420, 180);
    Settle();

    EXPECT_EQ(window.mask(), QRegion(QRect(0, 0, 420, 180), QRegion::Ellipse));
}

TEST_F(FrmChrono, HasNoControlCutAwayByItsEllipse)
{
    for (const char* const name :
         {"lblEcran", "chkStart_Stop", "chkAlarme", "cmdRAZ", "cmdEnd", "sldAlarme", "Label1"}) {
        const QRect place = Control<QWidget>(window, name).geometry();
        for (const QPoint& corner :
             {place.topLeft(), place.topRight(), place.bottomLeft(), place.bottomRight()})
            EXPECT_TRUE(window.mask().contains(corner)) << name;
    }
}

TEST_F(FrmChrono, AsksToBeClosedByItsButtonAndByItsTitleBar)
{
    int asked = 0;
    QObject::connect(&window, &Form::CloseAsked, &window, [&asked] { ++asked; });
    Click(StartStop());

    Click(Control<QPushButton>(window, "cmdEnd"));
    EXPECT_EQ(asked, 1);
    window.close();
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(window.isVisible()); // who holds it decides
    EXPECT_TRUE(window.IsRunning());
}

TEST_F(FrmChrono, KeepsTheTimeOfARunWhileItIsHidden)
{
    window.StartRun();
    window.hide();

    TickAt(120);
    EXPECT_DOUBLE_EQ(seconds.ElapsedSeconds, 12.0);
}

TEST_F(FrmChrono, AsksForHelpAtF1)
{
    const WindowEvents events;
    int asked = 0;
    QObject::connect(&events, &WindowEvents::HelpRequested, &window, [&asked] { ++asked; });

    Press(StartStop(), Qt::Key_F1);
    EXPECT_EQ(asked, 1);
}

TEST(FrmChronoSeparator, IsThatOfTheSystem)
{
    StopwatchSeconds seconds;
    FakeClock clock;
    FakeSound sound;
    const frmChrono window(seconds, clock, sound, u'.', nullptr);

    EXPECT_EQ(window.findChild<QLabel*>(u"lblTime"_s)->text(), u"00:00.0"_s);
}

} // namespace stoikal
