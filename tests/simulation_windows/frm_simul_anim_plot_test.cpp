#include "simul_anim_fixture.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QMouseEvent>
#include <cmath>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class SimulPlot : public FrmSimulAnim
{
protected:
    std::vector<PictureSurface::Line> Lines(const QColor& colour)
    {
        std::vector<PictureSurface::Line> lines = Plot().Drawn<PictureSurface::Line>();
        std::erase_if(lines, [&](const auto& line) { return line.colour != colour; });
        return lines;
    }

    /// Moves the mouse there without a button, and says which bubble it gets.
    QString BubbleAt(const QPoint& pixel, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent move(QEvent::MouseMove, pixel, Plot().mapToGlobal(pixel), Qt::NoButton, buttons,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&Plot(), &move);
        return Plot().toolTip();
    }

    /// A pixel of the plot at user coordinates.
    QPoint PixelOf(const QPointF& place)
    {
        const QPointF pixel = Plot().ToPixel(place);
        return {static_cast<int>(std::floor(pixel.x())), static_cast<int>(std::floor(pixel.y()))};
    }

    /// A pixel that shows exactly this colour.
    QPoint FindColour(const QColor& colour)
    {
        for (int y = 0; y < Plot().height(); ++y)
            for (int x = 0; x < Plot().width(); ++x)
                if (Plot().ColourAt({x, y}) == colour)
                    return {x, y};
        throw std::runtime_error("colour not found");
    }

    const QColor kRed{255, 0, 0};
    const QColor kBlack{0, 0, 0};
};

} // namespace

TEST_F(SimulPlot, DrawsItsGridBlackAndOnePixelWide)
{
    const auto lines = Plot().Drawn<PictureSurface::Line>();

    // 0 to 220 by 20: 12 level lines; 0 to 40 by 4: 11 upright ones.
    ASSERT_EQ(lines.size(), 23U);
    for (const auto& line : lines) {
        EXPECT_EQ(line.colour, kBlack);
        EXPECT_EQ(line.width, 1);
        EXPECT_EQ(line.style, Qt::SolidLine);
    }
    EXPECT_EQ(lines[1].from, QPointF(0, 20));
    EXPECT_EQ(lines[1].to, QPointF(40, 20));
    EXPECT_EQ(lines[13].from, QPointF(4, 0));
    EXPECT_EQ(lines[13].to, QPointF(4, 220));
}

TEST_F(SimulPlot, PrintsTheNumbersOfItsAxes)
{
    const auto texts = Get<PictureSurface>("picY").Drawn<PictureSurface::Text>();
    // 11 numbers and the title.
    ASSERT_EQ(texts.size(), 12U);
    EXPECT_EQ(texts[0].text, u"20 "_s);
    EXPECT_EQ(texts[0].place.x(), 5);
    EXPECT_NEAR(texts[0].place.y(), 20, 1e-9);
    EXPECT_EQ(texts[0].side, Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(texts[10].text, u"220 "_s);
    EXPECT_EQ(texts[0].font.pointSizeF(), 8);

    const auto times = Get<PictureSurface>("picX").Drawn<PictureSurface::Text>();
    ASSERT_EQ(times.size(), 11U);
    EXPECT_EQ(times[0].text, u"4"_s);
    EXPECT_NEAR(times[0].place.x(), 4, 1e-9);
    EXPECT_EQ(times[0].place.y(), 5);
    EXPECT_EQ(times[9].text, u"40"_s);
}

TEST_F(SimulPlot, WritesTheVerticalTitleUpwardsInTheMiddle)
{
    PictureSurface& labels = Get<PictureSurface>("picY");
    const auto title = labels.Drawn<PictureSurface::Text>().back();

    EXPECT_EQ(title.text, u"Nombre de particules"_s);
    EXPECT_EQ(title.degrees, 90);
    EXPECT_EQ(title.font.pointSizeF(), 10);
    EXPECT_FALSE(title.font.bold());
    // It starts half its length below the middle, at 0.1 of 5 to the nearest pixel.
    const double length = QFontMetricsF(title.font).horizontalAdvance(title.text);
    const QPointF pixel = labels.ToPixel(title.place);
    EXPECT_NEAR(pixel.y(), (labels.height() + length) / 2, 0.51);
    EXPECT_NEAR(pixel.x(), labels.width() * 0.1 / 5, 0.51);
}

TEST_F(SimulPlot, WritesTheTimeTitleOnTheLowerEdge)
{
    const auto title = Get<PictureSurface>("picX").Drawn<PictureSurface::Text>().back();

    EXPECT_EQ(title.text, u"Temps (en s)"_s);
    EXPECT_EQ(title.place, QPointF(20.2, 0)); // Half of 40.4.
    EXPECT_EQ(title.side, Qt::AlignHCenter | Qt::AlignBottom);
}

TEST_F(SimulPlot, CutsNoNumberAtAnEdge)
{
    const PictureSurface& times = Get<PictureSurface>("picX");
    for (const auto& text : times.Drawn<PictureSurface::Text>()) {
        const double half = QFontMetricsF(text.font).horizontalAdvance(text.text) / 2;
        EXPECT_LE(times.ToPixel(text.place).x() + half, times.width() + 1e-6) << text.text.toStdString();
    }
    ChooseCurve(1);
    const PictureSurface& levels = Get<PictureSurface>("picY");
    for (const auto& text : levels.Drawn<PictureSurface::Text>()) {
        // The title stands upright, from its lower end.
        const double above = text.degrees == 0 ? QFontMetricsF(text.font).height() / 2
                                               : QFontMetricsF(text.font).horizontalAdvance(text.text);
        EXPECT_GE(levels.ToPixel(text.place).y() - above, -1e-6) << text.text.toStdString();
    }
}

TEST_F(SimulPlot, ShowsA0InTheCorner)
{
    const auto texts = Get<PictureSurface>("picZero").Drawn<PictureSurface::Text>();

    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].text.trimmed(), u"0"_s);
    EXPECT_EQ(texts[0].place, QPointF(100, 100));
    EXPECT_EQ(texts[0].side, Qt::AlignRight | Qt::AlignBottom);
}

TEST_F(SimulPlot, DrawsFourCurvesTwoPixelsWide)
{
    ClickStart();

    Tick(3);

    for (std::size_t kind = 0; kind < 4; ++kind) {
        const auto strokes = Lines(FromBgr(KindColor.at(kind)));
        ASSERT_EQ(strokes.size(), 3U) << kind;
        EXPECT_EQ(strokes[0].width, 2);
        EXPECT_EQ(strokes[0].from, QPointF(0, Particles().InitialCount.at(kind)));
        EXPECT_EQ(strokes[2].to, QPointF(0.3, Particles().KindCount.at(kind)));
    }
    // The solvent has none.
    EXPECT_TRUE(Lines(QColor(150, 150, 150)).empty());
}

TEST_F(SimulPlot, DrawsTheQuotientInRed)
{
    ChooseCurve(1);
    ClickStart();

    Tick(3);

    EXPECT_EQ(Lines(kRed).size(), 3U);
    EXPECT_TRUE(Lines(QColor(0, 0, 255)).empty());
    EXPECT_EQ(Get<PictureSurface>("picY").Drawn<PictureSurface::Text>().back().text,
              u"Quotient de réaction Qr"_s);
}

TEST_F(SimulPlot, ShowsNewStrokesOnTheScreenWithoutDrawingAllAgain)
{
    ClickStart();
    Tick(2);
    Settle();

    Tick(100);
    Settle();

    EXPECT_EQ(Plot().grab().toImage(), Plot().Picture(Plot().devicePixelRatioF()));
}

TEST_F(SimulPlot, HasACrossForItsPointer)
{
    EXPECT_EQ(Plot().cursor().shape(), Qt::CrossCursor);
}

TEST_F(SimulPlot, TellsTimeAndNumberOverACurve)
{
    ClickStart();
    Tick(100);
    // Curves over a whole tenth of the time: a place on the red one.
    const QPoint pixel = FindColour(kRed);
    const QPointF place = Plot().ToUser(pixel);

    EXPECT_EQ(BubbleAt(pixel),
              u"Temps : %1 s ; Nombre de particules : %2"_s.arg(std::lround(place.x()))
                  .arg(std::lround(place.y())));
}

TEST_F(SimulPlot, TellsNothingOverGridAndPaper)
{
    ClickStart();
    Tick(100);
    ASSERT_FALSE(BubbleAt(FindColour(kRed)).isEmpty());

    const QPoint grid = PixelOf({30, 100});
    ASSERT_EQ(Plot().ColourAt(grid), kBlack);
    EXPECT_EQ(BubbleAt(grid), QString());
    ASSERT_FALSE(BubbleAt(FindColour(kRed)).isEmpty());
    EXPECT_EQ(BubbleAt(PixelOf({30, 110})), QString());
}

TEST_F(SimulPlot, FindsTheCurveOfTheQuotientByTheRedOfA)
{
    ChooseCurve(1);
    ClickStart();
    Tick(100);

    EXPECT_TRUE(BubbleAt(FindColour(kRed)).contains(u" s ; Quotient de réaction : "_s));
}

TEST_F(SimulPlot, ReadsNothingWhileTheLeftButtonIsDown)
{
    ClickStart();
    Tick(100);
    const QPoint pixel = FindColour(kRed);

    EXPECT_EQ(BubbleAt(pixel, Qt::LeftButton), QString());
    EXPECT_NE(BubbleAt(pixel, Qt::RightButton), QString());
}

TEST_F(SimulPlot, ZoomsToTheHeightWhereAnyButtonIsReleased)
{
    ChooseCurve(1);
    ClickStart();
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        // 2 x 1.01 at the top: a quotient of 2 is the least, so first the scale is raised.
        SetNumbers({u"1"_s, u"1"_s, u"30"_s, u"30"_s, u"0"_s}); // 900.
        ClickStart();
        const QPoint pixel = PixelOf({20, 450});
        // By hand: 909 at the top, -9 at the bottom.
        const double y = 909.0 - 918.0 * pixel.y() / Plot().height();

        QTest::mouseClick(&Plot(), button, Qt::NoModifier, pixel);

        // Between 200 and 500 the steps are 20: the next multiple.
        EXPECT_GE(window.Curves().QuotientMax(), std::floor(y / 20) * 20);
        EXPECT_LE(window.Curves().QuotientMax(), std::ceil(y / 20) * 20);
        ClickStart();
    }
}

TEST_F(SimulPlot, ADoubleClickGoesToThePresentQuotientAndItsReleaseIsSwallowed)
{
    SetNumbers({u"1"_s, u"1"_s, u"30"_s, u"30"_s, u"0"_s});
    ChooseCurve(1);
    ClickStart();
    ASSERT_EQ(window.Curves().QuotientNow(), 900);

    const QPoint pixel = PixelOf({20, 100});
    QTest::mouseClick(&Plot(), Qt::LeftButton, Qt::NoModifier, pixel);
    EXPECT_LT(window.Curves().QuotientMax(), 120);
    // The second press comes as a double click; then the button is released.
    QMouseEvent twice(QEvent::MouseButtonDblClick, pixel, Plot().mapToGlobal(pixel), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Plot(), &twice);
    QTest::mouseRelease(&Plot(), Qt::LeftButton, Qt::NoModifier, pixel);
    EXPECT_EQ(window.Curves().QuotientMax(), 900);

    // The next click zooms again.
    QTest::mouseClick(&Plot(), Qt::LeftButton, Qt::NoModifier, PixelOf({20, 100}));
    EXPECT_LT(window.Curves().QuotientMax(), 120);
}

TEST_F(SimulPlot, ReadsAClickInNumbersOfParticlesAfterTyping)
{
    ChooseCurve(1);
    TypeNumber(2, u"60"_s);
    // max(150 + 60, 200 + 20) = 220: from 224.4 to -2.2, although Qr is shown to 2.
    const QPoint pixel(50, Plot().height() / 2);
    const double y = 224.4 - 226.6 * pixel.y() / Plot().height();

    QTest::mouseClick(&Plot(), Qt::LeftButton, Qt::NoModifier, pixel);

    // y is about 111: steps of 10, the next multiple.
    EXPECT_NEAR(y, 111, 1);
    EXPECT_EQ(window.Curves().QuotientMax(),
              std::lround(y) % 10 == 0 ? std::floor(y / 10) * 10 : std::floor(y / 10) * 10 + 10);
}

TEST_F(SimulPlot, HelpLineFollowsTheCurveChosen)
{
    EXPECT_TRUE(Get<QLabel>("lblAide").text().startsWith(u"Chaque courbe"_s));

    ChooseCurve(1);

    EXPECT_TRUE(Get<QLabel>("lblAide").text().startsWith(u"Un clic sur le graphique"_s));
}

TEST_F(SimulPlot, CopiesTheWholePlotAsOneImage)
{
    clipboard.SetText(u"before"_s);
    ClickStart();
    Tick(50);
    const PictureSurface& labels = Get<PictureSurface>("picY");
    const PictureSurface& times = Get<PictureSurface>("picX");
    ShowTab(2);

    Click(Get<QAbstractButton>("cmdCopy"));

    const QImage& image = clipboard.image;
    EXPECT_TRUE(clipboard.text.isEmpty());
    ASSERT_EQ(image.size(), QSize(labels.width() + Plot().width(), Plot().height() + times.height()));
    EXPECT_EQ(image.copy(QRect(QPoint(0, 0), labels.size())), labels.Picture());
    EXPECT_EQ(image.copy(QRect(QPoint(labels.width(), 0), Plot().size())), Plot().Picture());
    EXPECT_EQ(image.copy(QRect(QPoint(labels.width(), Plot().height()), times.size())), times.Picture());
}

TEST_F(SimulPlot, SignsTheCopyInItsLowerLeftCorner)
{
    ShowTab(2);

    Click(Get<QAbstractButton>("cmdCopy"));

    const PictureSurface& name = Get<PictureSurface>("picName");
    EXPECT_FALSE(name.isVisible());
    const auto texts = name.Drawn<PictureSurface::Text>();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].text, u"Stoikal"_s);
    EXPECT_EQ(texts[0].font.pointSizeF(), 6);
    EXPECT_EQ(texts[0].place.x(), 0);
    const QImage& image = clipboard.image;
    EXPECT_EQ(image.copy(QRect(QPoint(0, image.height() - name.height()), name.size())), name.Picture());
}

} // namespace stoikal
