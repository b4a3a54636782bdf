#include "forms/picture_surface.h"

#include "image_colours.h"
#include "support/window_driver.h"

#include <QFontMetricsF>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QColor kBack(255, 255, 255);
const QColor kRed(200, 30, 40);
const QColor kBlue(30, 60, 210);

/// A surface of 60 x 40 pixels that nobody sees.
struct Surface : PictureSurface {
    explicit Surface(const QSize& size = QSize(60, 40))
    {
        resize(size);
        SetBackColour(kBack);
    }
};

/// All colours that can be read back, as 0xAARRGGBB.
std::set<QRgb> ColoursOf(const PictureSurface& surface)
{
    std::set<QRgb> colours;
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.width(); ++x)
            colours.insert(surface.ColourAt({x, y}).rgba());
    return colours;
}

std::set<QRgb> Only(std::initializer_list<QColor> colours)
{
    std::set<QRgb> numbers;
    for (const QColor& colour : colours)
        numbers.insert(colour.rgba());
    return numbers;
}

} // namespace

TEST(PictureSurface, ColourInsideADiscIsExactlyTheGivenOne)
{
    Surface surface;
    surface.DrawDisc({300, 300}, 150, kRed); // 15 twips a pixel: centre (20, 20), radius 10.

    EXPECT_EQ(surface.ColourAt({20, 20}), kRed);
    EXPECT_EQ(surface.ColourAt({20, 28}), kRed);
    EXPECT_EQ(surface.ColourAt({12, 20}), kRed);
    EXPECT_EQ(surface.ColourAt({26, 26}), kRed); // 9.2 from the centre, by the pixel's middle.
    EXPECT_EQ(surface.ColourAt({31, 20}), kBack);
    EXPECT_EQ(surface.ColourAt({28, 28}), kBack); // 12 from it.
    EXPECT_EQ(surface.ColourAt({0, 0}), kBack);
}

TEST(PictureSurface, EdgeOfADiscIsNeverABlend)
{
    // Pixel radii from 2 to 19.4, the centre at every part of a pixel.
    for (int step = 0; step < 30; ++step) {
        Surface surface;
        surface.DrawDisc({400 + step * 1.7, 300 + step * 0.9}, 30 + step * 9, kRed);

        EXPECT_EQ(ColoursOf(surface), Only({kBack, kRed})) << step;
    }
}

TEST(PictureSurface, DiscWithASymbolHasBlackBesideItsColour)
{
    for (const double radius : {60.0, 120.0, 240.0}) { // 4, 8 and 16 pixels.
        Surface surface;
        surface.DrawDisc({450, 300}, radius, kRed, u"Fe"_s);

        EXPECT_EQ(ColoursOf(surface), Only({kBack, kRed, Qt::black})) << radius;
    }
}

TEST(PictureSurface, OverlappingDiscsKeepPureColours)
{
    Surface surface;
    surface.DrawDisc({400, 300}, 200, kRed, u"O"_s);
    surface.DrawDisc({520, 310}, 180, kBlue, u"H"_s);

    EXPECT_EQ(ColoursOf(surface), Only({kBack, kRed, kBlue, Qt::black}));
}

TEST(PictureSurface, NearlyEqualColoursStayApart)
{
    // Colours one step apart name different elements.
    const QColor one(0x55, 0x66, 0x77);
    const QColor next(0x55, 0x66, 0x78);
    Surface surface;
    surface.DrawDisc({225, 300}, 150, one);
    surface.DrawDisc({675, 300}, 150, next);

    EXPECT_EQ(surface.ColourAt({15, 20}), one);
    EXPECT_EQ(surface.ColourAt({45, 20}), next);
}

TEST(PictureSurface, OutsideThereIsNoColour)
{
    const Surface surface;

    for (const QPoint& pixel : {QPoint(-1, 0), QPoint(0, -1), QPoint(60, 0), QPoint(0, 40)})
        EXPECT_FALSE(surface.ColourAt(pixel).isValid()) << pixel.x() << ", " << pixel.y();
    EXPECT_EQ(surface.ColourAt({59, 39}), kBack);
}

TEST(PictureSurface, LaterDrawingCoversEarlier)
{
    Surface surface;
    surface.FillBox(QRectF(0, 0, 900, 600), kBlue);
    surface.DrawDisc({300, 300}, 150, kRed);

    EXPECT_EQ(surface.ColourAt({20, 20}), kRed);
    EXPECT_EQ(surface.ColourAt({50, 20}), kBlue);
}

TEST(PictureSurface, WithoutAScaleItMeasuresInTwips)
{
    const Surface surface;

    EXPECT_EQ(surface.ToPixel({150, 300}), QPointF(10, 20)); // 15 to a pixel.
    EXPECT_EQ(surface.ToUser({10, 20}), QPointF(150, 300));
}

TEST(PictureSurface, ScaleDownwards)
{
    Surface surface(QSize(40, 40));
    surface.SetScale({-10, -10}, {10, 10}); // 20 units on 40 pixels: 0.5 a pixel.

    EXPECT_EQ(surface.ToPixel({0, 0}), QPointF(20, 20));
    EXPECT_EQ(surface.ToPixel({5, -2.5}), QPointF(30, 15));
    EXPECT_EQ(surface.ToUser({0, 40}), QPointF(-10, 10));

    surface.FillBox(QRectF(QPointF(0, 0), QPointF(5, 10)), kRed); // Pixels 20 to 29 and 20 to 39.
    EXPECT_EQ(surface.ColourAt({20, 20}), kRed);
    EXPECT_EQ(surface.ColourAt({29, 39}), kRed);
    EXPECT_EQ(surface.ColourAt({30, 39}), kBack);
    EXPECT_EQ(surface.ColourAt({20, 19}), kBack);
}

TEST(PictureSurface, ScaleUpwards)
{
    Surface surface(QSize(100, 50));
    surface.SetScale({0, 100}, {200, 0}); // 2 units a pixel; y = 0 is the lower edge.

    EXPECT_EQ(surface.ToPixel({20, 10}), QPointF(10, 45)); // (10 - 100) / -2.
    EXPECT_EQ(surface.ToUser({10, 45}), QPointF(20, 10));

    surface.FillBox(QRectF(QPointF(20, 0), QPointF(40, 60)), kRed); // Pixels 10 to 19 and 20 to 49.
    EXPECT_EQ(surface.ColourAt({10, 49}), kRed);
    EXPECT_EQ(surface.ColourAt({19, 20}), kRed);
    EXPECT_EQ(surface.ColourAt({15, 19}), kBack);
    EXPECT_EQ(surface.ColourAt({20, 49}), kBack);
    EXPECT_EQ(surface.ColourAt({9, 49}), kBack);
}

TEST(PictureSurface, RadiusOfADiscIsMeasuredAlongX)
{
    Surface surface(QSize(100, 50));
    surface.SetScale({0, 50}, {200, 0}); // 2 units a pixel along x, 1 along y.
    surface.DrawDisc({100, 25}, 20, kRed); // Centre (50, 25), 10 pixels round.

    EXPECT_EQ(surface.ColourAt({50, 33}), kRed);
    EXPECT_EQ(surface.ColourAt({58, 25}), kRed);
    EXPECT_EQ(surface.ColourAt({50, 36}), kBack);
    EXPECT_EQ(surface.ColourAt({61, 25}), kBack);
}

TEST(PictureSurface, BackToTwips)
{
    Surface surface(QSize(40, 40));
    surface.SetScale({0, 0}, {40, 40});
    surface.FillBox(QRectF(15, 15, 15, 15), kRed); // A unit a pixel: 15 to 29.
    ASSERT_EQ(surface.ColourAt({20, 20}), kRed);

    surface.ResetScale();

    EXPECT_EQ(surface.ToPixel({15, 15}), QPointF(1, 1));
    EXPECT_EQ(surface.ColourAt({20, 20}), kBack); // In twips it is the one pixel (1, 1).
    EXPECT_EQ(surface.ColourAt({1, 1}), kRed);
}

TEST(PictureSurface, NewScaleAppliesToWhatWasDrawn)
{
    Surface surface(QSize(40, 40));
    surface.SetScale({0, 0}, {40, 40});
    surface.FillBox(QRectF(0, 0, 10, 10), kRed);
    ASSERT_EQ(surface.ColourAt({15, 15}), kBack);

    surface.SetScale({0, 0}, {20, 20}); // Half a unit a pixel: the box covers 20 pixels.

    EXPECT_EQ(surface.ColourAt({15, 15}), kRed);
    EXPECT_EQ(surface.ColourAt({20, 15}), kBack);
}

TEST(PictureSurface, ResizeKeepsTheScale)
{
    Surface surface(QSize(40, 40));
    surface.SetScale({0, 100}, {100, 0});
    surface.FillBox(QRectF(QPointF(50, 0), QPointF(100, 100)), kRed); // The right half.
    surface.show();
    ASSERT_EQ(surface.ColourAt({19, 10}), kBack);
    ASSERT_EQ(surface.ColourAt({20, 10}), kRed);

    surface.resize(80, 60);

    EXPECT_EQ(surface.ColourAt({39, 10}), kBack);
    EXPECT_EQ(surface.ColourAt({40, 10}), kRed);
    EXPECT_EQ(surface.ColourAt({79, 59}), kRed);
}

TEST(PictureSurface, HiddenSurfaceMayBeResizedToo)
{
    Surface surface(QSize(40, 40));
    surface.SetScale({0, 100}, {100, 0});
    surface.FillBox(QRectF(QPointF(50, 0), QPointF(100, 100)), kRed);
    ASSERT_EQ(surface.ColourAt({20, 10}), kRed);

    surface.resize(80, 60);

    EXPECT_EQ(surface.ColourAt({39, 10}), kBack);
    EXPECT_EQ(surface.ColourAt({79, 59}), kRed);
}

TEST(PictureSurface, ClearTakesAllAway)
{
    Surface surface;
    surface.DrawDisc({300, 300}, 150, kRed);
    surface.DrawDisc({600, 300}, 150, kBlue);
    surface.DrawLine({0, 0}, {900, 600}, kRed);
    ASSERT_EQ(surface.DiscCount(), 2);
    ASSERT_EQ(surface.ColourAt({20, 20}), kRed);

    surface.Clear();

    EXPECT_EQ(surface.DiscCount(), 0);
    EXPECT_EQ(ColoursOf(surface), Only({kBack}));
}

TEST(PictureSurface, BackColourChangesUnderTheDrawing)
{
    Surface surface;
    surface.DrawDisc({300, 300}, 150, kRed);
    ASSERT_EQ(surface.ColourAt({0, 0}), kBack);

    surface.SetBackColour(kBlue);

    EXPECT_EQ(surface.BackColour(), kBlue);
    EXPECT_EQ(surface.ColourAt({0, 0}), kBlue);
    EXPECT_EQ(surface.ColourAt({20, 20}), kRed);
}

TEST(PictureSurface, ColoursFollowWhatIsDrawnNext)
{
    Surface surface;
    ASSERT_EQ(surface.ColourAt({20, 20}), kBack);

    surface.DrawDisc({300, 300}, 150, kRed);
    EXPECT_EQ(surface.ColourAt({20, 20}), kRed);

    surface.FillBox(QRectF(0, 0, 900, 600), kBlue);
    EXPECT_EQ(surface.ColourAt({20, 20}), kBlue);
}

TEST(PictureSurface, LevelAndUprightLinesLieOnWholePixels)
{
    Surface surface;
    surface.DrawLine({150, 307}, {750, 307}, kRed); // Row 20 (307 / 15 = 20.5), from 10 to 50.
    surface.DrawLine({157, 0}, {157, 600}, kRed); // Column 10.

    EXPECT_EQ(surface.ColourAt({30, 20}), kRed);
    EXPECT_EQ(surface.ColourAt({30, 19}), kBack);
    EXPECT_EQ(surface.ColourAt({30, 21}), kBack);
    EXPECT_EQ(surface.ColourAt({10, 5}), kRed);
    EXPECT_EQ(surface.ColourAt({11, 5}), kBack);
    // Shown as sharp: no grey beside them.
    const QImage shown = surface.Picture();
    EXPECT_EQ(shown.pixelColor(30, 20), kRed);
    EXPECT_EQ(shown.pixelColor(30, 19), kBack);
    EXPECT_EQ(shown.pixelColor(30, 21), kBack);
}

TEST(PictureSurface, SlantedLineIsReadBackWithoutBlends)
{
    Surface surface;
    surface.DrawLine({30, 40}, {800, 560}, kRed, 3);

    EXPECT_EQ(ColoursOf(surface), Only({kBack, kRed}));
    EXPECT_GT(ColoursOf(surface.Picture()).size(), 2U); // Shown smooth.
}

TEST(PictureSurface, DottedLineHasGaps)
{
    Surface surface;
    surface.DrawLine({0, 307}, {900, 307}, kRed, 1, Qt::DotLine);

    int inked = 0;
    for (int x = 0; x < 60; ++x)
        inked += surface.ColourAt({x, 20}) == kRed ? 1 : 0;

    EXPECT_GT(inked, 10);
    EXPECT_LT(inked, 50);
}

TEST(PictureSurface, TextLiesRightAndBelowItsPlace)
{
    Surface surface;
    QFont font;
    font.setPixelSize(16);
    surface.DrawText({150, 75}, u"HH"_s, kRed, font); // Upper left corner at pixel (10, 5).

    EXPECT_EQ(ColoursOf(surface), Only({kBack, kRed}));
    QRect inked;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            if (surface.ColourAt({x, y}) == kRed)
                inked |= QRect(x, y, 1, 1);
    const QFontMetricsF metrics(font);
    const QRectF room(9, 4, metrics.horizontalAdvance(u"HH"_s) + 2, metrics.height() + 2);
    EXPECT_TRUE(room.contains(QRectF(inked)));
    // The letters stand on the base line, one ascent below the place.
    EXPECT_NEAR(inked.bottom() + 1, 5 + metrics.ascent(), 1.5);
}

TEST(PictureSurface, TextIsMeasuredInUserUnits)
{
    QFont font;
    font.setPixelSize(12);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(u"x (mol)"_s);
    Surface surface(QSize(100, 50));

    EXPECT_DOUBLE_EQ(surface.TextWidth(u"x (mol)"_s, font), width * 15); // Twips.
    EXPECT_DOUBLE_EQ(surface.TextHeight(font), metrics.height() * 15);

    surface.SetScale({0, 200}, {50, 0}); // Half a unit a pixel along x, 4 along y, upwards.
    EXPECT_DOUBLE_EQ(surface.TextWidth(u"x (mol)"_s, font), width / 2);
    EXPECT_DOUBLE_EQ(surface.TextHeight(font), metrics.height() * 4);
}

TEST(PictureSurface, PictureIsSharpAtEveryRatio)
{
    Surface surface;
    surface.DrawDisc({450, 300}, 200, kRed); // Centre (30, 20), radius 13.3.

    const QImage single = surface.Picture();
    const QImage twofold = surface.Picture(2);

    EXPECT_EQ(single.size(), QSize(60, 40));
    EXPECT_EQ(twofold.size(), QSize(120, 80));
    EXPECT_EQ(twofold.devicePixelRatio(), 2.0);
    EXPECT_EQ(single.pixelColor(30, 20), kRed);
    EXPECT_EQ(twofold.pixelColor(60, 40), kRed);
    EXPECT_EQ(twofold.pixelColor(2, 2), kBack);
    // Smooth: more than the ground, the disc and its darker rim.
    EXPECT_GT(ColoursOf(single).size(), 3U);
    EXPECT_GT(ColoursOf(twofold).size(), 3U);
    // Drawn anew, not stretched: some block of 2 x 2 has more than one colour.
    bool isFiner = false;
    for (int y = 0; y < 80; y += 2)
        for (int x = 0; x < 120; x += 2)
            isFiner = isFiner || twofold.pixel(x, y) != twofold.pixel(x + 1, y);
    EXPECT_TRUE(isFiner);
}

TEST(PictureSurface, WindowShowsThePicture)
{
    Surface surface;
    surface.DrawDisc({450, 300}, 200, kRed, u"O"_s);
    surface.DrawLine({0, 0}, {900, 600}, kBlue);
    surface.show();

    const QImage shown = surface.grab().toImage().convertToFormat(QImage::Format_RGB32);

    EXPECT_EQ(shown, surface.Picture(surface.devicePixelRatioF()));
}

TEST(PictureSurface, ReadingColoursDoesNotChangeWhatIsShown)
{
    Surface surface;
    surface.DrawDisc({450, 300}, 200, kRed, u"O"_s);
    const QImage before = surface.Picture();

    ASSERT_EQ(surface.ColourAt({22, 20}), kRed);

    EXPECT_EQ(surface.Picture(), before);
}

} // namespace stoikal
