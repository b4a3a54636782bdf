#include "forms/disc_pictures.h"

#include "image_colours.h"
#include "support/window_driver.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kColour = 0xFFD03020;

QImage Painted(const DiscLook& look, bool smooth)
{
    QImage image(60, 60, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PaintDisc(painter, {30, 30}, look, smooth);
    return image;
}

/// True when nothing was drawn on the outermost pixels.
bool HasFreeBorder(const QImage& image)
{
    const int last = image.width() - 1;
    for (int i = 0; i <= last; ++i) {
        for (const QPoint& pixel : {QPoint(i, 0), QPoint(i, last), QPoint(0, i), QPoint(last, i)}) {
            if (image.pixelColor(pixel).alpha() != 0)
                return false;
        }
    }
    return true;
}

} // namespace

TEST(PaintDisc, ExactDiscHasOneColourAndNothing)
{
    for (const double radius : {3.0, 7.5, 12.25, 25.0})
        EXPECT_EQ(ColoursOf(Painted({radius, kColour, QString()}, false)), (std::set<QRgb>{0, kColour}))
            << radius;
}

TEST(PaintDisc, SymbolOfAnExactDiscIsPureBlack)
{
    const auto colours = ColoursOf(Painted({20, kColour, u"Na"_s}, false));

    EXPECT_EQ(colours, (std::set<QRgb>{0, kColour, qRgb(0, 0, 0)}));
}

TEST(PaintDisc, SmoothDiscHasItsColourInsideAndADarkerRim)
{
    const QImage image = Painted({20, kColour, QString()}, true);

    EXPECT_EQ(image.pixelColor(30, 30), QColor::fromRgb(kColour));
    EXPECT_EQ(image.pixelColor(45, 30), QColor::fromRgb(kColour));
    // The pixel from 49 to 50 holds the outermost 1 of the radius 20: the rim.
    EXPECT_LT(image.pixelColor(49, 30).lightness(), QColor::fromRgb(kColour).lightness() - 10);
    EXPECT_EQ(image.pixelColor(51, 30).alpha(), 0);
    EXPECT_GT(ColoursOf(image).size(), 10U); // Its edge is antialiased.
}

TEST(PaintDisc, SymbolStandsInTheMiddle)
{
    const QImage image = Painted({20, kColour, u"H"_s}, false);

    QRect inked;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x)
            if (image.pixel(x, y) == qRgb(0, 0, 0))
                inked |= QRect(x, y, 1, 1);

    ASSERT_FALSE(inked.isEmpty());
    EXPECT_NEAR((inked.left() + inked.right() + 1) / 2.0, 30, 1.1);
    EXPECT_NEAR((inked.top() + inked.bottom() + 1) / 2.0, 30, 1.1);
}

TEST(DiscPictures, PictureHasTheDiscInItsMiddle)
{
    DiscPictures pictures;

    const QImage image = pictures.Picture({20, kColour, QString()}, 1).toImage();

    EXPECT_EQ(image.width(), image.height());
    EXPECT_EQ(image.width() % 2, 0);
    const int middle = image.width() / 2;
    EXPECT_EQ(image.pixelColor(middle, middle), QColor::fromRgb(kColour));
    // The radius is 20: ink on the 20 pixels to each side, none on the next.
    for (const int inside : {middle - 20, middle + 19}) {
        EXPECT_GT(image.pixelColor(inside, middle).alpha(), 0);
        EXPECT_GT(image.pixelColor(middle, inside).alpha(), 0);
    }
    EXPECT_EQ(image.pixelColor(middle + 20, middle).alpha(), 0);
    EXPECT_TRUE(HasFreeBorder(image));
}

TEST(DiscPictures, PictureIsSharpAtItsRatio)
{
    DiscPictures pictures;

    const QPixmap picture = pictures.Picture({20, kColour, QString()}, 2);
    const QImage image = picture.toImage();

    EXPECT_EQ(picture.devicePixelRatio(), 2.0);
    const int middle = image.width() / 2;
    EXPECT_EQ(image.pixelColor(middle + 36, middle), QColor::fromRgb(kColour)); // 18 of 20 at twice the size.
    EXPECT_EQ(image.pixelColor(middle + 41, middle).alpha(), 0);
}

TEST(DiscPictures, NothingIsCutOff)
{
    DiscPictures pictures;

    // Small discs whose symbol is wider than they are, and large ones.
    for (const double ratio : {1.0, 1.25, 1.5, 2.0})
        for (const double radius : {0.5, 2.0, 6.0, 11.5, 40.0})
            EXPECT_TRUE(HasFreeBorder(pictures.Picture({radius, kColour, u"Uuo"_s}, ratio).toImage()))
                << radius;
}

TEST(DiscPictures, EachLookHasItsPictureAndKeepsIt)
{
    DiscPictures pictures;
    const DiscLook look{10, kColour, u"O"_s};

    const QPixmap first = pictures.Picture(look, 1);
    const QPixmap again = pictures.Picture(look, 1);
    const QPixmap larger = pictures.Picture({20, kColour, u"O"_s}, 1);
    const QPixmap green = pictures.Picture({10, 0xFF20D020, u"O"_s}, 1);
    const QPixmap other = pictures.Picture({10, kColour, u"H"_s}, 1);

    EXPECT_EQ(first.cacheKey(), again.cacheKey());
    EXPECT_NE(larger.toImage(), first.toImage());
    EXPECT_NE(green.toImage(), first.toImage());
    EXPECT_NE(other.toImage(), first.toImage());
    EXPECT_EQ(pictures.Picture(look, 1).cacheKey(), first.cacheKey());
}

TEST(DiscPictures, AnotherRatioMakesAnotherPicture)
{
    DiscPictures pictures;
    const DiscLook look{10, kColour, u"O"_s};

    const QPixmap coarse = pictures.Picture(look, 1);
    const QPixmap fine = pictures.Picture(look, 2);

    EXPECT_EQ(coarse.devicePixelRatio(), 1.0);
    EXPECT_EQ(fine.devicePixelRatio(), 2.0);
    EXPECT_EQ(fine.width(), 2 * coarse.width());
}

} // namespace stoikal
