#include "forms/rotator.h"

#include "forms/picture_surface.h"
#include "support/window_driver.h"

#include <QFontMetricsF>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QColor kInk(10, 20, 120);

/// A surface of 120 x 120 pixels, one user unit a pixel, with a font of 16.
struct Surface : PictureSurface {
    Surface()
    {
        resize(120, 120);
        SetScale({0, 0}, {120, 120});
        SetForeColour(kInk);
        QFont font(u"Liberation Sans"_s);
        font.setPixelSize(16);
        setFont(font);
    }
};

/// The pixels of a surface that have its ink.
QRect Inked(const PictureSurface& surface)
{
    QRect inked;
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.width(); ++x)
            if (surface.ColourAt({x, y}) == kInk)
                inked |= QRect(x, y, 1, 1);
    return inked;
}

void Print(Surface& surface, std::int16_t angle, const QPointF& place, const QString& text)
{
    Rotator rotator;
    rotator.Device(surface);
    rotator.angle(angle);
    surface.MoveTo(place);
    rotator.Label(text);
}

} // namespace

TEST(Rotator, KeepsItsAngle)
{
    Rotator rotator;
    EXPECT_EQ(rotator.angle(), 0);

    rotator.angle(-45);

    EXPECT_EQ(rotator.angle(), -45);
}

TEST(Rotator, AngleZeroPrintsLikeTheSurfacesOwnText)
{
    Surface turned;
    Print(turned, 0, {20, 30}, u"Masse (g)"_s);
    Surface own;
    own.DrawText({20, 30}, u"Masse (g)"_s, kInk, own.font());

    EXPECT_EQ(turned.Picture(), own.Picture());
    EXPECT_FALSE(Inked(turned).isEmpty());
}

TEST(Rotator, AngleNinetyRunsFromBottomToTop)
{
    Surface surface;
    Print(surface, 90, {40, 100}, u"Masse"_s);

    const QFontMetricsF metrics(surface.font());
    const QRect inked = Inked(surface);
    // Upwards from the place by the length of the text, to its right by its height.
    EXPECT_TRUE(QRectF(39, 99 - metrics.horizontalAdvance(u"Masse"_s), metrics.height() + 2,
                       metrics.horizontalAdvance(u"Masse"_s) + 2)
                    .contains(QRectF(inked)));
    EXPECT_GT(inked.height(), 2 * inked.width());
    // The letters stand on a base line one ascent to the right of the place.
    EXPECT_NEAR(inked.right() + 1, 40 + metrics.ascent(), 1.5);
    // The first letter is at the place: "M" fills the lower end.
    EXPECT_NEAR(inked.bottom(), 98, 2);
}

TEST(Rotator, OtherAnglesTurnCounterClockwise)
{
    Surface down;
    Print(down, -90, {60, 10}, u"Masse"_s);
    const QRect downwards = Inked(down);
    EXPECT_GE(downwards.top(), 9);
    EXPECT_LE(downwards.right(), 60);

    Surface over;
    Print(over, 180, {100, 60}, u"Masse"_s);
    const QRect reversed = Inked(over);
    EXPECT_LE(reversed.right(), 100);
    EXPECT_LE(reversed.bottom(), 60);

    Surface slanted;
    Print(slanted, 45, {30, 90}, u"Masse"_s);
    const QRect up = Inked(slanted);
    EXPECT_LT(up.top(), 70);
    EXPECT_GT(up.right(), 60);
}

TEST(Rotator, FontNameIsCutAtThirtyTwoCharacters)
{
    const QString longName = u"A Font Name That Is Much Too Long For It"_s;
    ASSERT_GT(longName.size(), 32);
    // A Font Name That Is Much Too Lon: 32 characters.
    EXPECT_EQ(Rotator::FaceName(longName), u"A Font Name That Is Much Too Lon"_s);
    EXPECT_EQ(Rotator::FaceName(u"Liberation Sans"_s), u"Liberation Sans"_s);

    Surface surface;
    QFont font = surface.font();
    font.setFamily(longName);
    surface.setFont(font);
    Print(surface, 90, {40, 100}, u"m"_s);

    EXPECT_EQ(surface.Drawn<PictureSurface::Text>().at(0).font.family(),
              u"A Font Name That Is Much Too Lon"_s);
}

TEST(Rotator, TextHasTheFontOfTheSurface)
{
    Surface surface;
    QFont font(u"Liberation Serif"_s, 14);
    font.setItalic(true);
    font.setUnderline(true);
    font.setStrikeOut(true);
    font.setWeight(QFont::Bold);
    surface.setFont(font);
    Print(surface, 90, {40, 100}, u"m"_s);

    const QFont printed = surface.Drawn<PictureSurface::Text>().at(0).font;
    EXPECT_EQ(printed.family(), u"Liberation Serif"_s);
    EXPECT_EQ(printed.pointSize(), 14);
    EXPECT_TRUE(printed.italic());
    EXPECT_TRUE(printed.underline());
    EXPECT_TRUE(printed.strikeOut());
    EXPECT_EQ(printed.weight(), QFont::Bold);
}

TEST(Rotator, AttachingKeepsTheUserScale)
{
    Surface surface;
    surface.SetScale({-0.6, 5.5}, {4.5, -0.5});
    const QPointF before = surface.ToPixel({1, 2});

    Rotator rotator;
    rotator.Device(surface);

    EXPECT_EQ(surface.ToPixel({1, 2}), before);
    EXPECT_EQ(surface.ToUser({0, 0}), QPointF(-0.6, 5.5));
}

TEST(Rotator, AttachingKeepsTwips)
{
    Surface surface;
    surface.ResetScale();

    Rotator rotator;
    rotator.Device(surface);

    EXPECT_EQ(surface.ToPixel({150, 300}), QPointF(10, 20)); // 15 to a pixel.
}

TEST(Rotator, PrintsAtTheWholePixelOfAScaleThatGrowsUpwards)
{
    Surface surface;
    surface.SetScale({-10, 50}, {50, -10}); // 2 pixels a unit both ways, y upwards.
    Print(surface, 90, {0.3, 5.2}, u"m"_s);

    // (0.3 + 10) x 2 = 20.6, so 21; (5.2 - 50) x -2 = 89.6, so 90.
    const auto text = surface.Drawn<PictureSurface::Text>().at(0);
    const QPointF pixel = surface.ToPixel(text.place);
    EXPECT_NEAR(pixel.x(), 21, 1e-4);
    EXPECT_NEAR(pixel.y(), 90, 1e-4);
    EXPECT_EQ(text.degrees, 90);
    EXPECT_EQ(text.colour, kInk);
}

TEST(Rotator, EmptyTextPrintsNothing)
{
    Surface surface;
    Print(surface, 90, {40, 100}, u""_s);

    EXPECT_TRUE(surface.Drawn<PictureSurface::Text>().empty());
}

TEST(Rotator, SurfaceWithoutRoomIsNoFault)
{
    Surface surface;
    surface.resize(0, 0);
    Print(surface, 90, {0, 0}, u"m"_s);

    EXPECT_EQ(surface.Drawn<PictureSurface::Text>().size(), 1U);
}

TEST(Rotator, KeepsNothingBetweenTwoTexts)
{
    Surface surface;
    Print(surface, 90, {20, 100}, u"un"_s);
    const QFont before = surface.font();
    surface.DrawText({60, 20}, u"deux"_s, kInk, surface.font());

    const auto texts = surface.Drawn<PictureSurface::Text>();
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[1].degrees, 0);
    EXPECT_EQ(surface.font(), before);
    EXPECT_EQ(surface.CurrentPosition(), QPointF(20, 100));
}

} // namespace stoikal
