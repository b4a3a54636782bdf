#include "forms/window_events.h"
#include "simul_anim_fixture.h"

#include "base/fatal_fault.h"

#include <QGroupBox>
#include <numeric>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST_F(FrmSimulAnim, BeginsAtRestWithItsFirstSettings)
{
    EXPECT_EQ(window.windowTitle(), u"Représentation dynamique de l'avancement"_s);
    const QStringList numbers{u"200"_s, u"150"_s, u"50"_s, u"20"_s, u"50"_s};
    for (int kind = 0; kind < 5; ++kind)
        EXPECT_EQ(Box(kind).text(), numbers.at(kind)) << kind;
    EXPECT_EQ(Numbers("lblMol"), u"200 150 50 20 50"_s);
    EXPECT_EQ(Get<QTabWidget>("sstAnim").currentIndex(), 0);
    EXPECT_EQ(Clock(), u"00:00:00"_s);
    EXPECT_EQ(Get<QSlider>("sldWidth").value(), 10);
    EXPECT_EQ(Get<QSlider>("sldChoc(0)").value(), 50);
    EXPECT_EQ(Get<QSlider>("sldChoc(1)").value(), 50);
    EXPECT_EQ(Get<QLabel>("lblChoc(0)").text(), u"50%"_s);
    EXPECT_EQ(Get<QLabel>("lblChoc(1)").text(), u"50%"_s);
    EXPECT_TRUE(Get<QRadioButton>("optY(0)").isChecked());
    EXPECT_EQ(window.Curves().ParticleMax(), 220);
    EXPECT_EQ(Timer().interval(), 100);
    ExpectStopped();
}

TEST_F(FrmSimulAnim, CarriesItsFrenchCaptions)
{
    EXPECT_EQ(Get<QGroupBox>("fraNbrMol").title(), u"Nombre de particules de chaque corps chimique :"_s);
    EXPECT_EQ(Get<QLabel>("Label4").text(), u"Quantité initiale : "_s);
    EXPECT_EQ(Get<QLabel>("Label5").text(), u"Quantité au cours de l'avancement : "_s);
    EXPECT_EQ(Numbers("lblCorps"), u"A B C D solvant"_s);
    EXPECT_EQ(Get<QLabel>("lblTemperature").text(), u"Température du milieu"_s);
    const QTabWidget& tabs = Get<QTabWidget>("sstAnim");
    EXPECT_EQ(tabs.tabText(0), u"Animation"_s);
    EXPECT_EQ(tabs.tabText(1), u"Particules"_s);
    EXPECT_EQ(tabs.tabText(2), u"Courbe"_s);
    EXPECT_EQ(Get<QLabel>("Label9").text(), u"Chronomètre : "_s);
    EXPECT_EQ(Start().toolTip(), u"Lancer/Arrêter l'animation"_s);
    EXPECT_EQ(Get<QLabel>("Label6").text(), u"Grosseur des particules :"_s);
    EXPECT_EQ(Get<QSlider>("sldWidth").toolTip(), u"Modifier la taille des particules"_s);
    EXPECT_EQ(Get<QLabel>("Label10").text(), u"Grandeur en ordonnées :"_s);
    EXPECT_EQ(Get<QRadioButton>("optY(0)").text(), u"nombre particules"_s);
    EXPECT_EQ(Get<QRadioButton>("optY(1)").text(), u"Quotient de réaction Qr"_s);
    EXPECT_EQ(Get<QAbstractButton>("cmdCopy").toolTip(), u"Copier la courbe"_s);
    EXPECT_EQ(Get<QGroupBox>("fraChocs").title(), u"Chocs efficaces : "_s);
    EXPECT_EQ(Get<QLabel>("Label7").text(), u"dans le sens A + B --> C + D : "_s);
    EXPECT_EQ(Get<QLabel>("Label8").text(), u"dans le sens C + D --> A + B : "_s);
}

TEST_F(FrmSimulAnim, WritesTheReactionFromLeftToRightInTheKindsColours)
{
    const char* const names[]{"lblCorps(0)", "Label1", "lblCorps(1)", "Label3",
                              "lblCorps(2)", "Label2", "lblCorps(3)"};
    QString reaction;
    int left = 0;
    for (const char* const name : names) {
        const QLabel& part = Get<QLabel>(name);
        EXPECT_GT(part.x(), left) << name;
        left = part.x();
        reaction += part.text();
    }
    EXPECT_EQ(reaction, u"A+B=C+D"_s);
    const QColor colours[]{QColor(255, 0, 0), QColor(0, 0, 255), QColor(255, 200, 0), QColor(0, 200, 100),
                           QColor(150, 150, 150)};
    for (int kind = 0; kind < 5; ++kind)
        EXPECT_EQ(Get<QLabel>(qPrintable(ArrayName("lblCorps", kind))).palette().color(QPalette::WindowText),
                  colours[kind]);
}

TEST_F(FrmSimulAnim, TurnsRedWhenItStartsAndGreenWhenItStops)
{
    ClickStart();

    EXPECT_EQ(Start().text(), u"Arrêter l'animation"_s);
    EXPECT_EQ(Start().palette().color(QPalette::Button), QColor(255, 0, 0));
    EXPECT_EQ(Start().grab().toImage().pixelColor(6, Start().height() / 2), QColor(255, 0, 0));
    EXPECT_TRUE(Timer().isActive());

    ClickStart();

    EXPECT_EQ(Start().palette().color(QPalette::Button), QColor(0, 255, 0));
    EXPECT_EQ(Start().grab().toImage().pixelColor(6, Start().height() / 2), QColor(0, 255, 0));
    ExpectStopped();
}

TEST_F(FrmSimulAnim, ShowsTheClockOfTheRun)
{
    clock.counter = 5000;
    ClickStart();

    // 61.2 s later.
    clock.counter = 5611;
    Tick();

    EXPECT_EQ(Clock(), u"00:01:01"_s);
    EXPECT_EQ(window.Curves().RunSeconds(), 61.2);
}

TEST_F(FrmSimulAnim, KeepsTheNumberOfAllParticlesAtEveryTick)
{
    ClickStart();

    for (int tick = 0; tick < 50; ++tick) {
        Tick();
        int sum = 0;
        for (int kind = 0; kind < 5; ++kind) {
            const QString shown = Get<QLabel>(qPrintable(ArrayName("lblMol", kind))).text();
            EXPECT_EQ(shown, QString::number(Particles().KindCount.at(static_cast<std::size_t>(kind))));
            sum += shown.toInt();
        }
        ASSERT_EQ(sum, 470); // 200 + 150 + 50 + 20 + 50.
    }
    EXPECT_GT(Particles().ForwardEffective, 0);
    EXPECT_GT(Particles().ReverseEffective, 0);
}

TEST_F(FrmSimulAnim, DrawsEveryParticleAtItsPlaceInItsColour)
{
    ClickStart();
    Tick(5);

    const auto discs = Get<PictureSurface>("picMilieu").Drawn<PictureSurface::Disc>();
    ASSERT_EQ(discs.size(), 470U);
    for (std::size_t i = 0; i < discs.size(); ++i) {
        EXPECT_EQ(discs[i].centre, QPointF(Particles().ParticleX[i + 1], Particles().ParticleY[i + 1]));
        EXPECT_EQ(discs[i].radius, 10);
        EXPECT_EQ(discs[i].colour, FromBgr(Particles().DrawnColor[i + 1]).rgb());
    }
}

TEST_F(FrmSimulAnim, GivesTheBoxSquareUnitsFrom0To1000)
{
    const PictureSurface& box = Get<PictureSurface>("picMilieu");

    EXPECT_EQ(box.ToUser({0, 0}), QPointF(0, 0));
    const QPointF corner = box.ToUser(QPointF(box.width(), box.height()));
    EXPECT_DOUBLE_EQ(corner.x(), 1000);
    EXPECT_DOUBLE_EQ(corner.y(), 1000.0 * box.height() / box.width());
}

TEST_F(FrmSimulAnim, AStartAlwaysPlacesAnew)
{
    ClickStart();
    Tick(30);
    ClickStart();
    EXPECT_NE(Numbers("lblMol"), u"200 150 50 20 50"_s);
    EXPECT_EQ(Clock(), u"00:00:03"_s);

    ClickStart();

    EXPECT_EQ(Numbers("lblMol"), u"200 150 50 20 50"_s);
    EXPECT_EQ(Clock(), u"00:00:00"_s);
    EXPECT_EQ(window.Curves().Samples().SampleIndex(), 1);
    EXPECT_TRUE(Timer().isActive());
}

TEST_F(FrmSimulAnim, AStopKeepsTheHistoryAndThePicture)
{
    ClickStart();
    Tick(12);
    const QString numbers = Numbers("lblMol");

    ClickStart();
    clock.counter += 50;
    Settle();

    EXPECT_EQ(Clock(), u"00:00:01"_s);
    EXPECT_EQ(Numbers("lblMol"), numbers);
    EXPECT_EQ(window.Curves().Samples().SampleIndex(), 13);
}

TEST_F(FrmSimulAnim, ChangingAShareOfCollisionsStopsAndForgetsTheRun)
{
    ClickStart();
    Tick(30);
    ASSERT_GT(Particles().ForwardCollisions, 0);

    Press(Get<QSlider>("sldChoc(1)"), Qt::Key_PageUp);

    ExpectStopped();
    EXPECT_EQ(Get<QLabel>("lblChoc(1)").text(), u"55%"_s);
    EXPECT_EQ(Get<QLabel>("lblChoc(0)").text(), u"50%"_s);
    EXPECT_EQ(Particles().ForwardCollisions, 0);
    EXPECT_EQ(Particles().ForwardEffective, 0);
    EXPECT_EQ(Particles().ReverseCollisions, 0);
    EXPECT_EQ(Particles().ReverseEffective, 0);
    EXPECT_EQ(window.Curves().Samples().SampleIndex(), 1);
    EXPECT_EQ(Clock(), u"00:00:00"_s);
}

TEST_F(FrmSimulAnim, ShareSlidersGoFrom0To100InStepsOf5)
{
    for (const char* const name : {"sldChoc(0)", "sldChoc(1)"}) {
        const QSlider& slider = Get<QSlider>(name);
        EXPECT_EQ(slider.minimum(), 0);
        EXPECT_EQ(slider.maximum(), 100);
        EXPECT_EQ(slider.pageStep(), 5);
        EXPECT_EQ(slider.tickInterval(), 10);
    }
}

TEST_F(FrmSimulAnim, WithoutEffectiveCollisionsNothingReacts)
{
    Get<QSlider>("sldChoc(0)").setValue(0);
    Get<QSlider>("sldChoc(1)").setValue(0);
    ClickStart();

    Tick(30);

    EXPECT_GT(Particles().ForwardCollisions, 0);
    EXPECT_EQ(Numbers("lblMol"), u"200 150 50 20 50"_s);
}

TEST_F(FrmSimulAnim, ChangingTheSizeStopsAndPlacesButKeepsTheHistory)
{
    ClickStart();
    Tick(30);
    ShowTab(1);
    QSlider& width = Get<QSlider>("sldWidth");
    EXPECT_EQ(width.minimum(), 6);
    EXPECT_EQ(width.maximum(), 14);
    EXPECT_EQ(width.pageStep(), 2);

    Press(width, Qt::Key_PageUp);

    ExpectStopped();
    EXPECT_EQ(Particles().ParticleRadius, 12);
    EXPECT_EQ(Numbers("lblMol"), u"200 150 50 20 50"_s);
    EXPECT_EQ(window.Curves().Samples().SampleIndex(), 31);
}

TEST_F(FrmSimulAnim, StateLineTellsWhatGoesOn)
{
    const QLabel& line = Get<QLabel>("lblEtat");
    EXPECT_EQ(line.text(), u"À l'arrêt. Une animation commence toujours par les quantités initiales."_s);

    ClickStart();
    EXPECT_EQ(line.text(), u"Animation en cours. Changer un réglage l'arrête."_s);

    window.resize(1210, 700);
    Settle();
    EXPECT_EQ(line.text(),
              u"La fenêtre a changé de taille, l'animation est interrompue\u00A0: arrêtez-la, puis "
              "relancez-la."_s);
}

TEST_F(FrmSimulAnim, AsksForItsHelpByF1EvenFromABox)
{
    const WindowEvents events;
    int asked = 0;
    QObject::connect(&events, &WindowEvents::HelpRequested, [&asked] { ++asked; });

    Press(Box(0), Qt::Key_F1);
    Press(Start(), Qt::Key_F1);

    EXPECT_EQ(asked, 2);
}

TEST_F(FrmSimulAnim, StopsByAFaultInTheCurveOfARunWithoutB)
{
    SetNumbers({u"10"_s, u"0"_s, u"20"_s, u"30"_s, u"0"_s});
    ChooseCurve(1);
    ClickStart();

    EXPECT_THROW(Tick(), FatalFault);
}

} // namespace stoikal
