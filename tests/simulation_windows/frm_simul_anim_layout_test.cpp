#include "forms/window_events.h"
#include "simul_anim_fixture.h"

#include <QGroupBox>
#include <QMouseEvent>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class SimulLayout : public FrmSimulAnim
{
protected:
    QWidget& Wave() { return Get<QWidget>("picWave"); }

    /// Holds the cursor two pixels below its top and drags it by so many pixels.
    void DragWave(int pixels, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint from(5, 2);
        QTest::mousePress(&Wave(), button, Qt::NoModifier, from);
        const QPoint to = from + QPoint(0, pixels);
        QMouseEvent move(QEvent::MouseMove, to, Wave().mapToGlobal(to), Qt::NoButton, button, Qt::NoModifier);
        QCoreApplication::sendEvent(&Wave(), &move);
        QTest::mouseRelease(&Wave(), button);
    }
};

} // namespace

TEST_F(SimulLayout, PutsTheBoxIntoTheLeftHalf)
{
    const QWidget& box = Get<QWidget>("picMilieu");
    const QWidget& caption = Get<QWidget>("lblTemperature");
    const int numbersBottom = Get<QGroupBox>("fraNbrMol").geometry().bottom() + 1;

    EXPECT_EQ(box.x(), 8); // 120 twips.
    EXPECT_EQ(box.width(), 600 - 12 - caption.width()); // Half of 1200, less 180 twips.
    EXPECT_NEAR(box.y(), numbersBottom + 100 / 15.0, 0.51);
    EXPECT_NEAR(box.height(), 700 - 700 / 15.0 - numbersBottom - 100 / 15.0, 1.01);
}

TEST_F(SimulLayout, PutsThermometerAndPlotBesideTheBox)
{
    const QRect box = Get<QWidget>("picMilieu").geometry();
    const QRect caption = Get<QWidget>("lblTemperature").geometry();
    const QRect tube = Get<QWidget>("picThermo").geometry();
    const QRect scale = Get<QWidget>("lblCurseur(0)").geometry();

    EXPECT_EQ(caption.top(), box.top());
    EXPECT_EQ(caption.left(), box.right() + 1 + 4); // 60 twips.
    EXPECT_NEAR(tube.center().x(), caption.center().x(), 1);
    EXPECT_EQ(tube.bottom(), box.bottom());
    EXPECT_EQ(scale.top(), tube.top() + 8); // 120 twips.
    EXPECT_EQ(scale.height(), tube.height() - 16);
    const QRect labels = Get<QWidget>("picY").geometry();
    const QRect times = Get<QWidget>("picX").geometry();
    EXPECT_EQ(labels.left(), caption.right() + 1 + 4);
    EXPECT_EQ(Plot().x(), labels.right() + 1);
    EXPECT_EQ(Plot().y(), box.top());
    EXPECT_EQ(times.left(), Plot().x());
    EXPECT_EQ(times.width(), Plot().width());
    EXPECT_EQ(times.top(), Plot().geometry().bottom() + 1);
    EXPECT_EQ(times.bottom(), box.bottom());
    EXPECT_EQ(Get<QWidget>("picZero").geometry().topRight(), QPoint(labels.right(), times.top()));
}

TEST_F(SimulLayout, SqueezesNothingAtItsSmallestSize)
{
    window.resize(window.minimumSize());
    Settle();

    EXPECT_LE(window.width(), 955); // half of 1920, for a screen at 200 %, less a rim
    const QWidget& shares = Get<QWidget>("fraChocs");
    EXPECT_LE(shares.geometry().right(), window.width());
    EXPECT_GE(shares.width(), shares.minimumSizeHint().width());
    EXPECT_GE(Get<QWidget>("sstAnim").width(), Get<QWidget>("sstAnim").sizeHint().width());
    EXPECT_GE(Get<QWidget>("fraNbrMol").width(), Get<QWidget>("fraNbrMol").sizeHint().width());
    EXPECT_LE(Get<QWidget>("fraNbrMol").geometry().right(), Get<QWidget>("sstAnim").x());
}

TEST_F(SimulLayout, LeavesAllInPlaceInAWindowTooSmallForIt)
{
    const QRect box = Get<QWidget>("picMilieu").geometry();
    window.setMinimumSize(0, 0);

    window.resize(200, 150);
    Settle();

    EXPECT_EQ(Get<QWidget>("picMilieu").geometry(), box);
}

TEST_F(SimulLayout, AResizeDuringARunLeavesTheTimerOffAndTheButtonDown)
{
    ClickStart();
    Tick(30);
    ASSERT_FALSE(Plot().Drawn<PictureSurface::Line>().size() == 23U);

    window.resize(1250, 720);
    Settle();

    EXPECT_TRUE(Start().isChecked());
    EXPECT_EQ(Start().text(), u"Arrêter l'animation"_s);
    EXPECT_FALSE(Timer().isActive());
    EXPECT_EQ(Clock(), u"00:00:00"_s);
    EXPECT_EQ(Numbers("lblMol"), u"200 150 50 20 50"_s);
    // The axes alone: the history stays and comes back with the option.
    EXPECT_EQ(Plot().Drawn<PictureSurface::Line>().size(), 23U);
    EXPECT_EQ(window.Curves().Samples().SampleIndex(), 31);

    ClickStart();
    EXPECT_FALSE(Start().isChecked());
    ClickStart();
    EXPECT_TRUE(Timer().isActive());
}

TEST_F(SimulLayout, GivesAFirstSpeedOf15)
{
    EXPECT_EQ(Particles().ThermalSpeed, 15.0F);
    EXPECT_EQ(Particles().ParticleSpeed.at(1), 15);
}

TEST_F(SimulLayout, PaintsTheTubeFromRedToBlue)
{
    const PictureSurface& tube = Get<PictureSurface>("picThermo");
    const int height = tube.height();

    // A band from row y - 1 to y + 1 in the colour of y: row r has that of y = r + 1.
    EXPECT_EQ(tube.ColourAt({3, 0}), FromBgr(ThermometerColour(1, height)));
    EXPECT_EQ(tube.ColourAt({3, 100}), FromBgr(ThermometerColour(101, height)));
    EXPECT_EQ(tube.ColourAt({3, height - 1}), QColor(0, 0, 255));
    EXPECT_EQ(tube.ColourAt({3, 0}).blue(), 0);
    EXPECT_EQ(tube.ColourAt({3, 0}).red(), 255);
}

TEST_F(SimulLayout, DraggingTheCursorStopsAndSetsTheSpeedOfTheNextStart)
{
    EXPECT_EQ(Wave().toolTip(), u"Modifier la température à l'aide du curseur"_s);
    ClickStart();
    Tick(3);
    const int top = Wave().y();

    DragWave(-2000);

    ExpectStopped();
    EXPECT_LT(Wave().y(), top);
    EXPECT_EQ(Particles().ThermalSpeed, 50.0F);
    // It reaches the particles by the next placement alone.
    EXPECT_EQ(Particles().ParticleSpeed.at(1), 15);
    ClickStart();
    EXPECT_EQ(Particles().ParticleSpeed.at(1), 50);

    DragWave(3000);
    EXPECT_EQ(Particles().ThermalSpeed, 5.0F);
}

TEST_F(SimulLayout, TheCursorFollowsTheMouse)
{
    const int top = Wave().y();

    DragWave(-30);

    EXPECT_NEAR(Wave().y(), top - 30, 1);
}

TEST_F(SimulLayout, OnlyTheLeftButtonDragsTheCursor)
{
    const int top = Wave().y();
    ClickStart();

    DragWave(-100, Qt::RightButton);

    EXPECT_EQ(Wave().y(), top);
    EXPECT_TRUE(Timer().isActive());
}

TEST_F(SimulLayout, TheCursorStaysOnItsScale)
{
    const QRect scale = Get<QWidget>("lblCurseur(0)").geometry();

    DragWave(-2000);
    EXPECT_NEAR(Wave().y() + Wave().height() / 2, scale.top(), 1);
    DragWave(3000);
    EXPECT_NEAR(Wave().y() + Wave().height() / 2, scale.bottom() + 1, 1);
}

TEST_F(SimulLayout, KeysMoveTheCursorByAStepOfSpeed)
{
    ClickStart();

    Press(Wave(), Qt::Key_Up);

    ExpectStopped();
    EXPECT_EQ(Particles().ThermalSpeed, 16.0F);
    Press(Wave(), Qt::Key_PageDown);
    EXPECT_EQ(Particles().ThermalSpeed, 11.0F);
}

TEST_F(SimulLayout, ALayoutPutsTheCursorBackTo15)
{
    DragWave(-2000);

    window.resize(1250, 720);
    Settle();

    EXPECT_EQ(Particles().ThermalSpeed, 15.0F);
    EXPECT_EQ(Particles().ParticleSpeed.at(1), 15);
}

TEST_F(SimulLayout, TheTabKeyFollowsTheEye)
{
    QStringList order;
    const QWidget* widget = &Box(0);
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->objectName().isEmpty()
            && !widget->objectName().startsWith(u"Scroll"_s) && !widget->objectName().startsWith(u"qt_"_s)
            && widget != &window)
            order << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != &Box(0));

    EXPECT_EQ(order,
              QStringList({u"txtMol(0)"_s, u"txtMol(1)"_s, u"txtMol(2)"_s, u"txtMol(3)"_s, u"txtMol(4)"_s,
                           u"sstAnim"_s, u"chkStart"_s, u"sldWidth"_s, u"optY(0)"_s, u"optY(1)"_s,
                           u"cmdCopy"_s, u"sldChoc(0)"_s, u"sldChoc(1)"_s, u"picWave"_s}));
}

TEST_F(SimulLayout, TellsOfTheMouseOverIt)
{
    const WindowEvents events;
    int moves = 0;
    QObject::connect(&events, &WindowEvents::PointerMoved, [&moves] { ++moves; });

    QTest::mouseMove(&window, QPoint(3, window.height() - 3));
    QTest::mouseMove(&window, QPoint(4, window.height() - 4));
    Settle();

    EXPECT_GT(moves, 0);
}

} // namespace stoikal
