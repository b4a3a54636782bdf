#include "charts_windows/histo_mol_bench.h"
#include "forms/window_events.h"

#include "base/fatal_fault.h"

#include <QFontMetricsF>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(FrmHistoMol, OpensAtTheBeginningOfTheReaction)
{
    HistoMolBench bench;

    EXPECT_EQ(bench.window->windowTitle(), u"Courbes d'évolution des espèces"_s);
    EXPECT_EQ(bench.Slider().value(), 0);
    EXPECT_EQ(bench.Slider().maximum(), 500); // 0.5 x 1000.
    EXPECT_EQ(bench.Label("Label1"), u"Etat d'avancement : "_s);
    EXPECT_EQ(bench.Label("lblAvct"), u"0,0 mol"_s);
    EXPECT_EQ(bench.Label("lblMaxEtat"), u"0,500 mol"_s);
    EXPECT_TRUE(bench.Get<QRadioButton>("optCourbe(0)").isChecked());
    EXPECT_FALSE(bench.Get<QTimer>("tmrAnim").isActive());
    EXPECT_EQ(bench.Get<QTimer>("tmrAnim").interval(), 100);
    EXPECT_DOUBLE_EQ(bench.BarHeight(1), 1.2); // O2, nothing reacted.
    EXPECT_DOUBLE_EQ(bench.BarHeight(3), 0);
}

TEST(FrmHistoMol, FramesAndOptionsHaveTheirCaptions)
{
    HistoMolBench bench;

    EXPECT_EQ(bench.Get<QGroupBox>("fraOption").title(), u"Grandeurs en ordonnée : "_s);
    EXPECT_EQ(bench.Get<QGroupBox>("fraAnim").title(), u"Animation  : "_s);
    EXPECT_EQ(bench.Get<QRadioButton>("optCourbe(0)").text(), u"quantité de matière (mol)"_s);
    EXPECT_EQ(bench.Get<QRadioButton>("optCourbe(1)").text(), u"masse (g)"_s);
}

TEST(FrmHistoMol, ControlsTellTheirUse)
{
    HistoMolBench bench;
    const std::pair<const char*, QString> tips[]{
        {"optCourbe(0)", u"Pour afficher la quantité de matière en ordonnées des histogrammes"_s},
        {"optCourbe(1)", u"Pour afficher la masse des réactifs/produits en ordonnées des histogrammes"_s},
        {"cmdCopy(0)", u"Pour copier la courbe dans le presse-papiers"_s},
        {"cmdCopy(1)", u"Pour copier l'histogramme dans le presse-papiers"_s},
        {"chkMask", u"Pour masquer / afficher l'équation"_s},
        {"chkAnim", u"Pour lancer / stopper l'animation"_s},
        {"cmdRAZ", u"Pour recommencer au début l'animation"_s},
        {"sldAnim", u"Déplacez le curseur pour un état d'avancement donné"_s},
    };
    for (const auto& [name, tip] : tips) {
        EXPECT_EQ(bench.Get<QWidget>(name).toolTip(), tip) << name;
        EXPECT_FALSE(bench.Get<QWidget>(name).accessibleName().isEmpty()) << name;
    }
}

TEST(FrmHistoMol, TicksAndKeysFollowTheTable)
{
    HistoMolBench small;
    EXPECT_EQ(small.Slider().tickInterval(), 50); // 500 steps.
    EXPECT_EQ(small.Slider().singleStep(), 1); // Below 5 mol.
    EXPECT_EQ(small.Slider().pageStep(), 5);

    HistoMolBench large(OneToOne(12));
    EXPECT_EQ(large.Slider().maximum(), 12000);
    EXPECT_EQ(large.Slider().tickInterval(), 1000);
    EXPECT_EQ(large.Slider().singleStep(), 100); // From 10 to 50 mol.
    EXPECT_EQ(large.Slider().pageStep(), 500);
}

TEST(FrmHistoMol, TinyProgressShowsTenThousandths)
{
    // 0.0005 = 5.0 x 0.0001; one hundred thousand steps a mole.
    HistoMolBench bench(OneToOne(0.0005, 100000));

    EXPECT_EQ(bench.Label("lblMaxEtat"), u"5,0 x0,0001 mol"_s);
    EXPECT_EQ(bench.Slider().maximum(), 50);
}

TEST(FrmHistoMol, DecimalSignIsTheSystems)
{
    HistoMolBench bench(BurningMethane(), u'.');

    EXPECT_EQ(bench.Label("lblAvct"), u"0.0 mol"_s);
    EXPECT_EQ(bench.Label("lblMaxEtat"), u"0.500 mol"_s);
}

TEST(FrmHistoMol, SliderMovesTheReaction)
{
    HistoMolBench bench;
    bench.Slider().setFocus();
    Press(bench.Slider(), Qt::Key_End);

    EXPECT_EQ(bench.Label("lblAvct"), u"0,500 mol"_s);
    EXPECT_DOUBLE_EQ(bench.BarHeight(0), 0); // Used up.
    EXPECT_NEAR(bench.BarHeight(1), 0.2, 1e-9);
    EXPECT_NEAR(bench.BarHeight(4), 1, 1e-9);
    EXPECT_NEAR(bench.CurveEnd(4).x(), 50, 1e-9); // In hundredths of a mole.
    EXPECT_NEAR(bench.CurveEnd(4).y(), 1, 1e-9);

    Press(bench.Slider(), Qt::Key_PageDown);
    EXPECT_EQ(bench.Label("lblAvct"), u"0,495 mol"_s); // 5 steps back.
    Press(bench.Slider(), Qt::Key_Left);
    EXPECT_EQ(bench.Label("lblAvct"), u"0,494 mol"_s);
    EXPECT_NEAR(bench.BarHeight(0), 0.006, 1e-9); // 0.5 - 0.494.
}

TEST(FrmHistoMol, SliderDraggedDrawsOnTheWay)
{
    HistoMolBench bench;
    QSlider& slider = bench.Slider();
    const int y = slider.height() / 2;
    QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(5, 8));
    QTest::mouseMove(&slider, QPoint(slider.width() / 2, y));

    const double half = slider.value() / 1000.0;
    EXPECT_GT(half, 0.2);
    EXPECT_LT(half, 0.3);
    EXPECT_NEAR(bench.BarHeight(3), half, 1e-9);
    EXPECT_NEAR(bench.CurveEnd(3).x(), half * 100, 1e-9);
    QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(slider.width() / 2, y));
}

TEST(FrmHistoMol, MassOptionRedrawsBothPicturesAtTheSameProgress)
{
    HistoMolBench bench;
    bench.Slider().setValue(250);
    Click(bench.Get<QRadioButton>("optCourbe(1)"));

    EXPECT_NEAR(bench.BarHeight(1), 22.4, 1e-9); // (1.2 - 0.5) x 32.
    EXPECT_NEAR(bench.CurveEnd(1).x(), 25, 1e-9);
    EXPECT_NEAR(bench.CurveEnd(1).y(), 22.4, 1e-9);
    EXPECT_EQ(bench.Slider().value(), 250);

    Click(bench.Get<QRadioButton>("optCourbe(0)"));
    EXPECT_NEAR(bench.BarHeight(1), 0.7, 1e-9);
    EXPECT_NEAR(bench.CurveEnd(1).y(), 0.7, 1e-9);
}

TEST(FrmHistoMol, AnimationRunsToTheEndAndStops)
{
    HistoMolBench bench;
    auto& timer = bench.Get<QTimer>("tmrAnim");
    auto& button = bench.Get<QAbstractButton>("chkAnim");
    Click(button);
    ASSERT_TRUE(timer.isActive());

    Tick(timer);
    EXPECT_EQ(bench.Slider().value(), 10); // 500 / 50.
    int ticks = 1;
    while (timer.isActive() && ticks < 1000) {
        Tick(timer);
        ++ticks;
    }
    EXPECT_EQ(ticks, 50);
    EXPECT_EQ(bench.Slider().value(), 500);
    EXPECT_FALSE(button.isChecked());
}

TEST(FrmHistoMol, AnimationBelowFiftyStepsGoesByOne)
{
    HistoMolBench bench(OneToOne(0.03)); // 30 steps.
    auto& timer = bench.Get<QTimer>("tmrAnim");
    Click(bench.Get<QAbstractButton>("chkAnim"));
    int ticks = 0;
    while (timer.isActive() && ticks < 1000) {
        Tick(timer);
        ++ticks;
    }

    EXPECT_EQ(ticks, 30);
}

TEST(FrmHistoMol, AnimationCanBeStopped)
{
    HistoMolBench bench;
    auto& button = bench.Get<QAbstractButton>("chkAnim");
    Click(button);
    Tick(bench.Get<QTimer>("tmrAnim"));
    Click(button);

    EXPECT_FALSE(bench.Get<QTimer>("tmrAnim").isActive());
    EXPECT_EQ(bench.Slider().value(), 10);
}

TEST(FrmHistoMol, AnimationGoesOnFromWhereTheHandMovesIt)
{
    HistoMolBench bench;
    auto& timer = bench.Get<QTimer>("tmrAnim");
    Click(bench.Get<QAbstractButton>("chkAnim"));
    Tick(timer);
    bench.Slider().setFocus();
    for (int i = 0; i < 20; ++i)
        Press(bench.Slider(), Qt::Key_PageUp); // 10 + 20 x 5.
    ASSERT_EQ(bench.Slider().value(), 110);

    Tick(timer);
    EXPECT_EQ(bench.Slider().value(), 120);
    EXPECT_TRUE(timer.isActive());
}

TEST(FrmHistoMol, ResetDoesNotStopTheAnimation)
{
    HistoMolBench bench;
    auto& timer = bench.Get<QTimer>("tmrAnim");
    Click(bench.Get<QAbstractButton>("chkAnim"));
    Tick(timer);
    Tick(timer);
    Click(bench.Get<QAbstractButton>("cmdRAZ"));

    EXPECT_EQ(bench.Slider().value(), 0);
    EXPECT_EQ(bench.Label("lblAvct"), u"0,0 mol"_s);
    EXPECT_TRUE(timer.isActive());
    Tick(timer);
    EXPECT_EQ(bench.Slider().value(), 10);
}

TEST(FrmHistoMol, FirstCopyIsTheCurve)
{
    HistoMolBench bench;
    bench.Slider().setValue(300);
    bench.clipboard.text = u"before"_s;
    Click(bench.Get<QAbstractButton>("cmdCopy(0)"));

    EXPECT_EQ(bench.clipboard.image, bench.Curves().Picture(bench.window->devicePixelRatioF()));
    EXPECT_TRUE(bench.clipboard.text.isEmpty());
}

TEST(FrmHistoMol, SecondCopyIsTheHistogram)
{
    HistoMolBench bench;
    bench.Slider().setValue(300);
    Click(bench.Get<QAbstractButton>("cmdCopy(1)"));

    EXPECT_EQ(bench.clipboard.image, bench.Histogram().Picture(bench.window->devicePixelRatioF()));
    EXPECT_NE(bench.clipboard.image, bench.Curves().Picture(bench.window->devicePixelRatioF()));
}

TEST(FrmHistoMol, PicturesShareTheRoomBelowTheFrames)
{
    HistoMolBench bench;
    const QRect left = bench.Histogram().geometry();
    const QRect right = bench.Curves().geometry();
    const QWidget& frame = bench.Get<QWidget>("fraAnim");
    const int frameEnd = frame.mapTo(bench.window.get(), QPoint(0, frame.height())).y();

    EXPECT_EQ(left.width(), 500); // Half of 1000.
    EXPECT_EQ(right, left.translated(500, 0));
    EXPECT_EQ(left.top(), frameEnd + 4); // 60 twips.
    EXPECT_EQ(left.height(), 640 - left.top() - 35); // 520 twips, 34.7 pixels.
    for (const auto& [name, picture] : {std::pair{"cmdCopy(1)", left}, std::pair{"cmdCopy(0)", right}}) {
        const QRect button = bench.Get<QWidget>(name).geometry();
        EXPECT_GT(button.top(), picture.bottom()) << name;
        EXPECT_GE(button.left(), picture.left()) << name;
        EXPECT_LE(button.right(), picture.right()) << name;
        EXPECT_LE(button.bottom(), 640) << name;
    }
}

TEST(FrmHistoMol, ResizeDrawsBothPicturesAnew)
{
    HistoMolBench bench;
    bench.Slider().setValue(100);
    bench.window->resize(1400, 900);
    Settle();

    EXPECT_EQ(bench.Histogram().width(), 700);
    EXPECT_NEAR(bench.CurveEnd(3).x(), 10, 1e-9);
    // The title that runs upwards stands in the middle of its axis, from 0 to 1.3.
    for (const auto& text : bench.Histogram().Drawn<PictureSurface::Text>()) {
        if (text.degrees != 90)
            continue;
        const double start = bench.Histogram().ToPixel(text.place).y();
        const double half = QFontMetricsF(text.font).horizontalAdvance(text.text) / 2;
        EXPECT_NEAR(start - half, bench.Histogram().ToPixel({0, 0.65}).y(), 1);
    }
}

TEST(FrmHistoMol, MouseOverItIsReported)
{
    const WindowEvents events;
    HistoMolBench bench;
    QSignalSpy moves(&events, &WindowEvents::PointerMoved);
    for (const char* name : {"picHistoMol", "picCourbeMol", "fraAnim"}) {
        moves.clear();
        QTest::mouseMove(&bench.Get<QWidget>(name), QPoint(6, 6));
        EXPECT_GE(moves.count(), 1) << name;
    }
    moves.clear();
    QTest::mouseMove(bench.window.get(), QPoint(20, bench.window->height() - 4));
    EXPECT_GE(moves.count(), 1);
}

TEST(FrmHistoMol, HelpKeyAsksForHelpFromEveryControl)
{
    const WindowEvents events;
    HistoMolBench bench;
    QSignalSpy asked(&events, &WindowEvents::HelpRequested);
    bench.Slider().setFocus();
    Press(bench.Slider(), Qt::Key_F1);

    EXPECT_EQ(asked.count(), 1);
}

TEST(FrmHistoMol, TabFollowsTheEye)
{
    HistoMolBench bench;
    const char* order[]{"optCourbe(0)", "chkAnim",    "cmdRAZ",    "sldAnim",
                        "chkMask",      "cmdCopy(1)", "cmdCopy(0)"};
    bench.Get<QWidget>(order[0]).setFocus();
    for (std::size_t i = 1; i < std::size(order); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String(order[i]));
    }
}

TEST(FrmHistoMol, ProgressPastThirtyTwoBitsIsAFault)
{
    FakeClipboard clipboard;
    const ProgressTable table = OneToOne(3e6); // 3 x 10^9 steps.

    EXPECT_THROW(frmHistoMol(table, {clipboard, u','}, nullptr), FatalFault);
}

TEST(FrmHistoMol, IsWalkedRoundByTheKeyboardInTheMainArea)
{
    HistoMolBench bench;
    QMdiArea area;
    QMdiSubWindow* const child = area.addSubWindow(bench.window.release());
    area.show();
    child->showMaximized();
    child->widget()->setFocus();
    Settle();
    const auto walk = [](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QStringList walked;
        for (int i = 0; i < 7; ++i) {
            walked << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        }
        return walked.join(u' ');
    };

    EXPECT_EQ(walk(Qt::Key_Tab, Qt::NoModifier),
              u"sldAnim chkMask cmdCopy(1) cmdCopy(0) optCourbe(0) chkAnim cmdRAZ"_s);
    EXPECT_EQ(walk(Qt::Key_Backtab, Qt::ShiftModifier),
              u"sldAnim cmdRAZ chkAnim optCourbe(0) cmdCopy(0) cmdCopy(1) chkMask"_s);
    delete child;
}

} // namespace stoikal
