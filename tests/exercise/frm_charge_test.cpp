#include "exercise/windows/frm_charge.h"
#include "forms/window_events.h"

#include "base/places.h"
#include "base/settings_store.h"
#include "exercise/run_state.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QFrame>
#include <QLabel>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The totals above an exercise of 400 x 135 pixels whose frame begins at (300, 603).
class FrmCharge : public testing::Test
{
protected:
    FrmCharge()
    {
        places.LargeurUtile = 15310; // 1024 * 15 - 50
        places.HauteurUtile = 10770; // 768 * 15 - 750
        exercise.resize(400, 135);
        exercise.show();
        exercise.move(300, 603);
        Settle();
        Make();
    }

    void Make() { window = std::make_unique<frmCharge>(run, places, settings, screen, nullptr); }

    QString Reactants() { return Control<QLabel>(*window, "lblChargeReac").text(); }
    QString Products() { return Control<QLabel>(*window, "lblChargeProd").text(); }
    QColor ShapeColour(const char* name)
    {
        return Control<QFrame>(*window, name).grab().toImage().pixelColor(4, 4);
    }
    QString Stored(const QString& key) { return settings.Read(u"Charge Window"_s, key); }
    void Store(const QString& key, const QString& value)
    {
        EXPECT_TRUE(settings.Write(u"Charge Window"_s, key, value));
    }

    QTemporaryDir folder;
    QString file = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;
    Settings settings{store, file};
    RunState run;
    Places places;
    FakeScreen screen;
    QWidget exercise;
    std::unique_ptr<frmCharge> window;
};

} // namespace

TEST_F(FrmCharge, ShowsTheTotalsOfBothSides)
{
    run.ChargeTotalReactants = 3;
    run.ChargeTotalProducts = -2;
    Make();

    EXPECT_EQ(window->windowTitle(), u"Total des charges"_s);
    EXPECT_EQ(Reactants(), u"+ 3"_s);
    EXPECT_EQ(Products(), u"- 2"_s);
}

TEST_F(FrmCharge, ShowsZeroWithoutASign)
{
    EXPECT_EQ(Reactants(), u"0"_s);
    EXPECT_EQ(Products(), u"0"_s);
}

TEST_F(FrmCharge, FollowsTheTotals)
{
    run.ChargeTotalReactants = -12;
    run.ChargeTotalProducts = 120;
    window->ShowTotals();

    EXPECT_EQ(Reactants(), u"- 12"_s);
    EXPECT_EQ(Products(), u"+ 120"_s);
}

TEST_F(FrmCharge, StandsOnTheColoursOfTheSides)
{
    window->OpenBeside(exercise);

    EXPECT_EQ(ShapeColour("shpColor(0)"), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(ShapeColour("shpColor(1)"), QColor(0x80, 0xFF, 0xFF));
}

TEST_F(FrmCharge, TakesTheColoursOfTheSettings)
{
    EXPECT_TRUE(settings.Write(u"Options"_s, u"BackGround Color Reactifs"_s, u"255"_s));
    Make();
    window->OpenBeside(exercise);
    EXPECT_EQ(ShapeColour("shpColor(0)"), QColor(255, 0, 0));

    EXPECT_TRUE(settings.Write(u"Options"_s, u"BackGround Color Produits"_s, u"16711680"_s));
    window->RefreshColours();
    EXPECT_EQ(ShapeColour("shpColor(1)"), QColor(0, 0, 255));
}

TEST_F(FrmCharge, OpensInTheMiddleAboveTheExercise)
{
    window->OpenBeside(exercise);

    EXPECT_TRUE(window->isVisible());
    const QSize frame = window->frameGeometry().size();
    EXPECT_NEAR(window->x() + frame.width() / 2.0, 15310 / 2.0 / 15, 1.0);
    // Half of the gap above the exercise, and 400 twips.
    EXPECT_NEAR(window->y(), (603 - frame.height()) / 2.0 + 400 / 15.0, 1.0);
}

TEST_F(FrmCharge, OpensAtItsRememberedPlace)
{
    Store(u"Left"_s, u"1500"_s);
    Store(u"Top"_s, u"900"_s);
    window->OpenBeside(exercise);

    EXPECT_EQ(window->x(), 100); // 1500 / 15
    EXPECT_EQ(window->y(), 60); // 900 / 15
}

TEST_F(FrmCharge, RemembersItsPlaceFromTheCornerOfTheWorkArea)
{
    screen.area = QRect(40, 30, 900, 700);
    Store(u"Left"_s, u"1500"_s);
    Store(u"Top"_s, u"900"_s);
    window->OpenBeside(exercise);

    EXPECT_EQ(window->x(), 140); // 40 + 100
    EXPECT_EQ(window->y(), 90); // 30 + 60
    EXPECT_EQ(Stored(u"Left"_s), u"1500"_s);
    EXPECT_EQ(Stored(u"Top"_s), u"900"_s);
}

TEST_F(FrmCharge, WritesItsPlaceWhenItOpens)
{
    window->OpenBeside(exercise);

    EXPECT_EQ(Stored(u"Left"_s), QString::number(window->x() * 15));
    EXPECT_EQ(Stored(u"Top"_s), QString::number(window->y() * 15));
}

TEST_F(FrmCharge, WritesItsPlaceOnceADragHasComeToRest)
{
    window->OpenBeside(exercise);
    window->move(200, 80);
    Settle();
    EXPECT_NE(Stored(u"Left"_s), u"3000"_s);
    Tick(Control<QTimer>(*window, "tmrPlace"));

    EXPECT_EQ(Stored(u"Left"_s), u"3000"_s); // 200 * 15
    EXPECT_EQ(Stored(u"Top"_s), u"1200"_s); // 80 * 15
}

TEST_F(FrmCharge, WritesItsPlaceWhenItGoes)
{
    window->OpenBeside(exercise);
    window->move(210, 90);
    window->hide();

    EXPECT_EQ(Stored(u"Left"_s), u"3150"_s);
    EXPECT_EQ(Stored(u"Top"_s), u"1350"_s);
}

TEST_F(FrmCharge, WritesNothingBeforeItWasOpened)
{
    window->ShowTotals();
    window.reset();

    EXPECT_EQ(Stored(u"Left"_s), u""_s);
}

TEST_F(FrmCharge, NeverOpensOverTheExercise)
{
    Store(u"Left"_s, u"4500"_s); // 300 pixels
    Store(u"Top"_s, u"9045"_s); // 603 pixels
    window->OpenBeside(exercise);

    EXPECT_FALSE(window->frameGeometry().intersects(exercise.frameGeometry()));
    EXPECT_EQ(window->x(), 300);
}

TEST_F(FrmCharge, CountsItsFrameWhenItKeepsOffTheExercise)
{
    // Without its frame it would just end where the exercise begins.
    window->OpenBeside(exercise);
    ASSERT_GT(window->frameGeometry().height(), window->height());
    Store(u"Left"_s, u"4500"_s);
    Store(u"Top"_s, QString::number((603 - window->height()) * 15));
    Make();
    window->OpenBeside(exercise);

    EXPECT_FALSE(window->frameGeometry().intersects(exercise.frameGeometry()));
}

TEST_F(FrmCharge, OpensInsideTheScreen)
{
    Store(u"Left"_s, u"99999"_s);
    Store(u"Top"_s, u"900"_s);
    window->OpenBeside(exercise);

    EXPECT_NEAR(window->frameGeometry().right() + 1, 15310 / 15.0, 1.0);
}

TEST_F(FrmCharge, LeavesItsClosingAndItsHelpToOthers)
{
    const WindowEvents events;
    int closes = 0;
    int helps = 0;
    QObject::connect(window.get(), &Form::CloseAsked, window.get(), [&closes] { ++closes; });
    QObject::connect(&events, &WindowEvents::HelpRequested, window.get(), [&helps] { ++helps; });
    window->OpenBeside(exercise);

    window->close();
    Press(*window, Qt::Key_F1);

    EXPECT_EQ(closes, 1);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(helps, 1);
}

TEST_F(FrmCharge, NamesItsTotalsForReaders)
{
    EXPECT_EQ(Control<QLabel>(*window, "lblChargeReac").accessibleName(),
              u"Charge totale des réactifs : "_s + Control<QLabel>(*window, "lblChargeReac").text());
    EXPECT_EQ(Control<QLabel>(*window, "lblChargeProd").accessibleName(),
              u"Charge totale des produits : "_s + Control<QLabel>(*window, "lblChargeProd").text());
}

} // namespace stoikal
