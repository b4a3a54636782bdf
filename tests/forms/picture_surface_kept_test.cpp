#include "forms/picture_surface.h"

#include "support/window_driver.h"

#include <QPaintEvent>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QColor kRed(200, 30, 40);
const QColor kBlue(30, 60, 210);

/// A shown surface of 60 x 40 pixels that keeps its pixels and notes what of it is
/// painted.
class KeptSurface : public PictureSurface
{
public:
    KeptSurface()
    {
        resize(60, 40);
        KeepPicture();
        show();
        if (!QTest::qWaitForWindowExposed(this))
            throw std::runtime_error("never shown");
        Settle();
        painted = QRegion();
    }

    /// What stands on the screen.
    QImage Shown() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }

    bool PaintComes()
    {
        return QTest::qWaitFor([this] { return !painted.isEmpty(); }, 2000);
    }

    QRegion painted;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        painted += event->region();
        PictureSurface::paintEvent(event);
    }
};

} // namespace

TEST(KeptPicture, ShowsWhatWasDrawnSoFarAndSince)
{
    KeptSurface surface;
    surface.DrawDisc({450, 300}, 200, kRed, u"O"_s);
    surface.Shown();

    surface.DrawLine({0, 0}, {900, 600}, kBlue, 2);
    surface.FillBox(QRectF(30, 30, 60, 90), kRed);

    EXPECT_EQ(surface.Shown(), surface.Picture(surface.devicePixelRatioF()));
}

TEST(KeptPicture, BeginsAnewWhenItIsCleared)
{
    KeptSurface surface;
    surface.FillBox(QRectF(0, 0, 900, 600), kRed);
    surface.Shown();

    surface.Clear();
    surface.DrawLine({0, 0}, {900, 600}, kBlue, 2);

    EXPECT_EQ(surface.Shown(), surface.Picture(surface.devicePixelRatioF()));
}

TEST(KeptPicture, FollowsItsScaleItsSizeAndItsGround)
{
    KeptSurface surface;
    surface.DrawLine({0, 0}, {40, 40}, kBlue, 2);
    surface.Shown();

    surface.SetScale({0, 40}, {40, 0});
    EXPECT_EQ(surface.Shown(), surface.Picture(surface.devicePixelRatioF()));
    surface.resize(80, 50);
    EXPECT_EQ(surface.Shown(), surface.Picture(surface.devicePixelRatioF()));
    surface.SetBackColour(kRed);
    EXPECT_EQ(surface.Shown(), surface.Picture(surface.devicePixelRatioF()));
}

TEST(KeptPicture, PaintsNoMoreThanTheRoomOfANewLine)
{
    KeptSurface surface;

    // From pixel (10, 10) to (20, 16).
    surface.DrawLine({150, 150}, {300, 240}, kBlue, 2);

    ASSERT_TRUE(surface.PaintComes());
    const QRect room = surface.painted.boundingRect();
    EXPECT_TRUE(room.contains(QRect(9, 9, 12, 8)));
    EXPECT_LE(room.width(), 22);
    EXPECT_LE(room.height(), 18);
}

TEST(KeptPicture, PaintsAllForADisc)
{
    KeptSurface surface;

    surface.DrawDisc({450, 300}, 200, kRed);

    ASSERT_TRUE(surface.PaintComes());
    EXPECT_EQ(surface.painted.boundingRect(), surface.rect());
}

TEST(KeptPicture, AsksForEveryPaintAgain)
{
    KeptSurface surface;
    for (int i = 0; i < 3; ++i) {
        surface.Clear();
        surface.DrawDisc({450, 300.0 + i}, 200, kRed);

        ASSERT_TRUE(surface.PaintComes()) << i;
        surface.painted = QRegion();
    }
}

TEST(KeptPicture, ReadsColoursOfWhatWasDrawnSinceTheLastReading)
{
    KeptSurface surface;
    surface.FillBox(QRectF(0, 0, 450, 600), kRed);
    ASSERT_EQ(surface.ColourAt({40, 20}), QColor(Qt::white));

    surface.FillBox(QRectF(450, 0, 450, 600), kBlue);

    EXPECT_EQ(surface.ColourAt({40, 20}), kBlue);
    EXPECT_EQ(surface.ColourAt({10, 20}), kRed);
}

} // namespace stoikal
