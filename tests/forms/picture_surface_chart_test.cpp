#include "forms/picture_surface.h"

#include "support/window_driver.h"

#include <QFontMetricsF>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QColor kBack(255, 255, 255);
const QColor kRed(200, 30, 40);

/// A surface of 100 x 80 pixels, one user unit a pixel.
struct Surface : PictureSurface {
    Surface()
    {
        resize(100, 80);
        SetBackColour(kBack);
        SetScale({0, 0}, {100, 80});
    }
};

QRect Inked(const PictureSurface& surface)
{
    QRect inked;
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.width(); ++x)
            if (surface.ColourAt({x, y}) == kRed)
                inked |= QRect(x, y, 1, 1);
    return inked;
}

QFont SmallFont()
{
    QFont font(u"Liberation Sans"_s);
    font.setPixelSize(16);
    return font;
}

/// Colours of an image that are neither ink nor paper.
int Blends(const QImage& image)
{
    int blends = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            blends += colour != kRed && colour != kBack ? 1 : 0;
        }
    return blends;
}

} // namespace

TEST(PictureSurfaceChart, OpenBoxIsARimInsideItsEdges)
{
    Surface surface;
    surface.DrawOpenBox(QRectF(10, 20, 30, 40), kRed, 2); // Pixels 10 to 39 and 20 to 59.

    EXPECT_EQ(Inked(surface), QRect(10, 20, 30, 40));
    for (const QPoint& rim :
         {QPoint(10, 30), QPoint(11, 30), QPoint(38, 30), QPoint(39, 59), QPoint(25, 21), QPoint(25, 58)})
        EXPECT_EQ(surface.ColourAt(rim), kRed) << rim.x() << ", " << rim.y();
    for (const QPoint& inside : {QPoint(12, 30), QPoint(37, 30), QPoint(25, 22), QPoint(25, 57)})
        EXPECT_EQ(surface.ColourAt(inside), kBack) << inside.x() << ", " << inside.y();
}

TEST(PictureSurfaceChart, OpenBoxGrowsUpwardsWithTheScale)
{
    Surface surface;
    surface.SetScale({0, 80}, {100, 0});
    surface.DrawOpenBox(QRectF(10, 0, 20, 30), kRed); // From the lower edge up by 30.

    EXPECT_EQ(Inked(surface), QRect(10, 50, 20, 30));
    EXPECT_EQ(surface.ColourAt({20, 65}), kBack);
}

TEST(PictureSurfaceChart, BoxWithoutHeight)
{
    Surface surface;
    surface.FillBox(QRectF(10, 20, 30, 0), kRed);
    EXPECT_TRUE(Inked(surface).isEmpty());

    surface.DrawOpenBox(QRectF(50, 20, 30, 0), kRed); // Its level alone.
    EXPECT_EQ(Inked(surface).width(), 30);
    EXPECT_LE(Inked(surface).height(), 2);
}

TEST(PictureSurfaceChart, BoxesAreSharpAtEveryRatio)
{
    Surface surface;
    surface.FillBox(QRectF(10.3, 10.7, 20.1, 30.4), kRed);
    surface.DrawOpenBox(QRectF(50.3, 10.7, 20.1, 30.4), kRed, 2);

    EXPECT_EQ(Blends(surface.Picture()), 0);
    EXPECT_EQ(Blends(surface.Picture(1.5)), 0);
    EXPECT_EQ(Blends(surface.Picture(2)), 0);
}

TEST(PictureSurfaceChart, LevelAndUprightLinesAreSharpAtEveryRatioAndWidth)
{
    for (const double width : {1.0, 2.0, 3.0}) {
        Surface surface;
        surface.DrawLine({10.3, 20.6}, {80.2, 20.6}, kRed, width);
        surface.DrawLine({40.4, 5.1}, {40.4, 70.9}, kRed, width);
        for (const double ratio : {1.0, 1.25, 1.5, 2.0})
            EXPECT_EQ(Blends(surface.Picture(ratio)), 0) << width << " at " << ratio;
    }
}

TEST(PictureSurfaceChart, LineOfWidthTwoIsTwoPixelsWide)
{
    Surface surface;
    surface.DrawLine({10, 20}, {60, 20}, kRed, 2);

    EXPECT_EQ(Inked(surface).height(), 2);
    EXPECT_EQ(Inked(surface).top(), 19); // About its place: 19 and 20.
}

TEST(PictureSurfaceChart, DottedLineHasGapsAtEveryRatio)
{
    Surface surface;
    surface.DrawLine({0, 20}, {100, 20}, kRed, 1, Qt::DotLine);
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const QImage image = surface.Picture(ratio);
        int inked = 0;
        for (int x = 0; x < image.width(); ++x)
            inked += image.pixelColor(x, static_cast<int>(20 * ratio)) == kRed ? 1 : 0;
        EXPECT_GT(inked, image.width() / 6) << ratio;
        EXPECT_LT(inked, image.width() * 9 / 20) << ratio; // A third dots, two thirds gaps.
    }
}

TEST(PictureSurfaceChart, TextStandsByThePartOfItsBoxThatIsNamed)
{
    const QFontMetricsF metrics(SmallFont());
    const double width = metrics.horizontalAdvance(u"HHH"_s);
    const auto printed = [](Qt::Alignment side) {
        Surface surface;
        surface.DrawText({50, 40}, u"HHH"_s, kRed, SmallFont(), side);
        return QRectF(Inked(surface));
    };
    const QRectF corner = printed(Qt::AlignLeft | Qt::AlignTop);
    const QRectF middle = printed(Qt::AlignHCenter | Qt::AlignVCenter);
    const QRectF opposite = printed(Qt::AlignRight | Qt::AlignBottom);

    EXPECT_GE(corner.left(), 50);
    EXPECT_GE(corner.top(), 40);
    EXPECT_NEAR(corner.left() - middle.left(), width / 2, 1);
    EXPECT_NEAR(corner.top() - middle.top(), metrics.height() / 2, 1);
    EXPECT_NEAR(corner.left() - opposite.left(), width, 1);
    EXPECT_NEAR(corner.top() - opposite.top(), metrics.height(), 1);
    EXPECT_LE(opposite.right(), 51);
    EXPECT_LE(opposite.bottom(), 41);
}

TEST(PictureSurfaceChart, TextKeepsItsPlaceWhenTheSurfaceGrows)
{
    Surface surface;
    surface.DrawText({50, 40}, u"H"_s, kRed, SmallFont(), Qt::AlignHCenter | Qt::AlignVCenter);
    surface.resize(200, 160);

    // The middle of the text still stands in the middle of the surface.
    EXPECT_NEAR(Inked(surface).center().x(), 100, 1.5);
    EXPECT_NEAR(Inked(surface).center().y(), 80, 3);
}

TEST(PictureSurfaceChart, TurnedTextHasNoBlendsOnTheTwin)
{
    Surface surface;
    surface.DrawTurnedText({30, 70}, u"HHH"_s, kRed, SmallFont(), 90);

    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 100; ++x) {
            const QColor colour = surface.ColourAt({x, y});
            ASSERT_TRUE(colour == kRed || colour == kBack) << x << ", " << y;
        }
    EXPECT_FALSE(Inked(surface).isEmpty());
}

TEST(PictureSurfaceChart, WhatWasDrawnIsReadBackInUserCoordinates)
{
    Surface surface;
    surface.SetScale({-1, 10}, {5, -2});
    surface.DrawLine({0, 0}, {4, 9}, kRed, 2, Qt::DotLine);
    surface.FillBox(QRectF(1, 0, 2, 3), kRed);
    surface.DrawOpenBox(QRectF(1, 0, 2, 8), Qt::blue, 2);
    surface.DrawText({2, 5}, u"H2O"_s, kRed, SmallFont(), Qt::AlignHCenter | Qt::AlignTop);

    const auto lines = surface.Drawn<PictureSurface::Line>();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].to, QPointF(4, 9));
    EXPECT_EQ(lines[0].width, 2);
    EXPECT_EQ(lines[0].style, Qt::DotLine);
    const auto boxes = surface.Drawn<PictureSurface::Box>();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].box, QRectF(1, 0, 2, 3));
    EXPECT_EQ(boxes[0].rim, 0);
    EXPECT_EQ(boxes[1].colour, QColor(Qt::blue));
    EXPECT_EQ(boxes[1].rim, 2);
    const auto texts = surface.Drawn<PictureSurface::Text>();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].text, u"H2O"_s);
    EXPECT_EQ(texts[0].place, QPointF(2, 5));

    surface.Clear();
    EXPECT_TRUE(surface.Drawn<PictureSurface::Line>().empty());
}

} // namespace stoikal
