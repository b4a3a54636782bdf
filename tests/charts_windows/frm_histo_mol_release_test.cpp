#include "charts_windows/histo_mol_bench.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(FrmHistoMolRelease, MaskHidesAndShowsTheEquation)
{
    HistoMolBench bench;
    QSignalSpy asked(bench.window.get(), &frmHistoMol::HideEquationAsked);
    Click(bench.Get<QAbstractButton>("chkMask"));
    Click(bench.Get<QAbstractButton>("chkMask"));

    ASSERT_EQ(asked.count(), 2);
    EXPECT_TRUE(asked.at(0).at(0).toBool());
    EXPECT_FALSE(asked.at(1).at(0).toBool());
}

TEST(FrmHistoMolRelease, HiddenEquationComesBackBeforeTheWindowGoes)
{
    HistoMolBench bench;
    Click(bench.Get<QAbstractButton>("chkMask"));
    QStringList heard;
    QObject::connect(bench.window.get(), &frmHistoMol::HideEquationAsked, bench.window.get(),
                     [&heard](bool hidden) { heard << (hidden ? u"hide"_s : u"show"_s); });
    QObject::connect(bench.window.get(), &Form::Released, bench.window.get(),
                     [&heard] { heard << u"released"_s; });
    bench.window->Release();

    EXPECT_EQ(heard, (QStringList{u"show"_s, u"released"_s}));
}

TEST(FrmHistoMolRelease, VisibleEquationIsLeftAlone)
{
    HistoMolBench bench;
    QSignalSpy asked(bench.window.get(), &frmHistoMol::HideEquationAsked);
    bench.window->Release();

    EXPECT_EQ(asked.count(), 0);
}

TEST(FrmHistoMolRelease, TitleBarOnlyAsks)
{
    HistoMolBench bench;
    QSignalSpy closes(bench.window.get(), &Form::CloseAsked);
    bench.window->close();

    EXPECT_EQ(closes.count(), 1);
}

TEST(FrmHistoMolRelease, IsSaidOnce)
{
    HistoMolBench bench;
    QSignalSpy released(bench.window.get(), &Form::Released);
    // The check box in the exercise answers by releasing again.
    QObject::connect(bench.window.get(), &Form::Released, bench.window.get(), &frmHistoMol::Release);
    bench.window->Release();
    bench.window->Release();

    EXPECT_EQ(released.count(), 1);
}

TEST(FrmHistoMolRelease, AnimationStopsWithTheWindow)
{
    HistoMolBench bench;
    Click(bench.Get<QAbstractButton>("chkAnim"));
    bench.window->Release();

    EXPECT_FALSE(bench.Get<QTimer>("tmrAnim").isActive());
}

TEST(FrmHistoMolRefresh, TakesTheNewTableAndKeepsThePosition)
{
    HistoMolBench bench;
    bench.Slider().setValue(250);
    bench.table = OneToOne(2); // 2000 steps.
    bench.window->Refresh();

    EXPECT_EQ(bench.Slider().maximum(), 2000);
    EXPECT_EQ(bench.Slider().tickInterval(), 100);
    EXPECT_EQ(bench.Slider().value(), 250);
    EXPECT_EQ(bench.Label("lblMaxEtat"), u"2,00 mol"_s);
    EXPECT_EQ(bench.Label("lblAvct"), u"0,250 mol"_s);
    EXPECT_NEAR(bench.BarHeight(0), 1.75, 1e-9); // 2 - 0.25.
    EXPECT_EQ(bench.BarHeight(1), -1); // O2 is gone.
    EXPECT_NEAR(bench.CurveEnd(3).x(), 2.5, 1e-9); // In tenths of a mole.
}

TEST(FrmHistoMolRefresh, PositionGivesWayToANearerEnd)
{
    HistoMolBench bench;
    bench.Slider().setValue(400);
    bench.table = OneToOne(0.1); // 100 steps.
    bench.window->Refresh();

    EXPECT_EQ(bench.Slider().value(), 100);
    EXPECT_EQ(bench.Label("lblAvct"), u"0,100 mol"_s);
    EXPECT_NEAR(bench.BarHeight(3), 1, 1e-9); // 0.1 / 0.1.
}

TEST(FrmHistoMolRefresh, PositionIsReadInTheNewSteps)
{
    HistoMolBench bench;
    bench.Slider().setValue(40);
    bench.table = OneToOne(0.0005, 100000); // 50 steps, a hundred thousand a mole.
    bench.window->Refresh();

    EXPECT_EQ(bench.Slider().value(), 40);
    EXPECT_EQ(bench.Label("lblAvct"), u"4,0 x0,0001 mol"_s); // 40 / 100000.
}

TEST(FrmHistoMolRefresh, KeepsTheChosenOrdinate)
{
    HistoMolBench bench;
    Click(bench.Get<QRadioButton>("optCourbe(1)"));
    bench.table = OneToOne(2); // 20 g.
    bench.window->Refresh();

    EXPECT_NEAR(bench.BarHeight(0), 20, 1e-9);
}

TEST(FrmHistoMolSetUp, DrawsTheEndAndThenTheBeginning)
{
    HistoMolBench bench;
    bench.Slider().setValue(120);
    QList<int> values;
    QObject::connect(&bench.Slider(), &QSlider::valueChanged, bench.window.get(),
                     [&values](int value) { values << value; });
    bench.window->SetUpProgressSlider();

    EXPECT_EQ(values, (QList<int>{500, 0}));
    EXPECT_EQ(bench.Label("lblAvct"), u"0,0 mol"_s);
}

TEST(FrmHistoMolSetUp, EndThatIsNotEvenOneStepStillMoves)
{
    HistoMolBench bench(OneToOne(0.0004)); // 0.4 steps: the end is 1.
    EXPECT_EQ(bench.Slider().maximum(), 1);
    bench.Slider().setValue(1);

    // 0.001 mol is past the end of 0.0004: the reactant is used up, the product went its way.
    EXPECT_EQ(bench.Label("lblAvct"), u"0,001 mol"_s);
    EXPECT_DOUBLE_EQ(bench.BarHeight(0), 0);
    EXPECT_NEAR(bench.CurveEnd(3).x(), 4, 1e-9); // 0.0004 / 0.0001; a level line follows.
}

} // namespace stoikal
