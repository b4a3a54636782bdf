#include "forms/place.h"

#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QRect kArea(100, 50, 800, 600); // Its last column is 899, its last row 649.

/// A window that is not shown yet, of an owner that is: what a frame takes is known.
struct OwnedWindow {
    OwnedWindow(const QRect& ownerPlace, const QSize& size)
    {
        screen.area = kArea;
        owner.setGeometry(ownerPlace);
        owner.show();
        Settle();
        frame = owner.frameGeometry().size() - owner.size();
        window.resize(size);
    }

    FakeScreen screen;
    QWidget owner;
    QWidget window{&owner, Qt::Tool};
    QSize frame;
};

} // namespace

TEST(Twips, AreFifteenToAPixel)
{
    EXPECT_EQ(FromPixels(0), 0);
    EXPECT_EQ(FromPixels(10), 150);
    EXPECT_EQ(FromPixels(-3), -45);
    EXPECT_EQ(FromPixels(3840), 57600); // More than 16 bits hold.
    EXPECT_EQ(ToPixels(57600), 3840);
}

TEST(Twips, GoToTheNearestPixel)
{
    EXPECT_EQ(ToPixels(7), 0);
    EXPECT_EQ(ToPixels(8), 1);
    EXPECT_EQ(ToPixels(22), 1);
    EXPECT_EQ(ToPixels(23), 2);
    EXPECT_EQ(ToPixels(-7), 0);
    EXPECT_EQ(ToPixels(-8), -1);
    EXPECT_EQ(ToPixels(-23), -2);
}

TEST(MovedInto, WhatLiesInsideStays)
{
    EXPECT_EQ(MovedInto({200, 100, 300, 200}, kArea), QRect(200, 100, 300, 200));
    EXPECT_EQ(MovedInto({100, 50, 800, 600}, kArea), kArea);
    EXPECT_EQ(MovedInto({600, 450, 300, 200}, kArea), QRect(600, 450, 300, 200)); // Just in the corner.
}

TEST(MovedInto, WhatLiesOutsideIsMovedAndNotResized)
{
    EXPECT_EQ(MovedInto({0, 0, 300, 200}, kArea), QRect(100, 50, 300, 200));
    EXPECT_EQ(MovedInto({601, 100, 300, 200}, kArea), QRect(600, 100, 300, 200)); // 900 - 300.
    EXPECT_EQ(MovedInto({200, 451, 300, 200}, kArea), QRect(200, 450, 300, 200)); // 650 - 200.
    EXPECT_EQ(MovedInto({30000, -30000, 300, 200}, kArea), QRect(600, 50, 300, 200));
}

TEST(MovedInto, WhatIsTooLargeKeepsItsUpperLeftCornerInside)
{
    EXPECT_EQ(MovedInto({500, 300, 1000, 700}, kArea), QRect(100, 50, 1000, 700));
    EXPECT_EQ(MovedInto({-500, 300, 1000, 100}, kArea), QRect(100, 300, 1000, 100));
}

TEST(PlaceWindow, CountsFromTheCornerOfTheWorkArea)
{
    FakeScreen screen;
    screen.area = kArea;
    QWidget window;
    window.resize(300, 200);

    PlaceWindow(window, screen, 1500, 750); // 100 and 50 pixels.

    EXPECT_EQ(window.pos(), QPoint(200, 100));
    EXPECT_EQ(window.size(), QSize(300, 200));
}

TEST(PlaceWindow, BringsALostWindowBack)
{
    FakeScreen screen;
    screen.area = kArea;
    QWidget window;
    window.resize(300, 200);

    PlaceWindow(window, screen, 57600, -4500);

    EXPECT_EQ(window.pos(), QPoint(600, 50)); // 900 - 300; the upper edge.
}

TEST(PlaceWindow, CountsTheFrameOfAWindowNotShownYet)
{
    OwnedWindow owned({200, 100, 400, 300}, {300, 200});
    ASSERT_GT(owned.frame.height(), 0);

    PlaceWindow(owned.window, owned.screen, 57600, 57600);
    owned.window.show();
    Settle();

    // 900 - 300, 650 - 200.
    EXPECT_EQ(owned.window.pos(), QPoint(600 - owned.frame.width(), 450 - owned.frame.height()));
    EXPECT_EQ(owned.window.frameGeometry().bottomRight(), QPoint(899, 649));
}

TEST(CentreOver, PutsAWindowOverTheMiddleOfAnother)
{
    FakeScreen screen;
    screen.area = kArea;
    QWidget other;
    other.setGeometry(300, 150, 400, 300);
    QWidget window;
    window.resize(100, 80);

    CentreOver(window, screen, other);

    // The middle of the other is 500, 300: half of 100 and of 80 less.
    EXPECT_NEAR(window.pos().x(), 450, 1);
    EXPECT_NEAR(window.pos().y(), 260, 1);
}

TEST(CentreOver, KeepsAWindowInsideTheWorkAreaAndNoLarger)
{
    FakeScreen screen;
    screen.area = kArea;
    QWidget other;
    other.setGeometry(850, 60, 400, 40);
    QWidget window;
    window.resize(1000, 100);

    CentreOver(window, screen, other);

    EXPECT_EQ(window.size(), QSize(800, 100));
    EXPECT_EQ(window.pos(), QPoint(100, 50));
}

TEST(CentreOver, CountsTheFrameOfAWindowNotShownYet)
{
    OwnedWindow owned({200, 400, 400, 240}, {300, 2000});
    ASSERT_GT(owned.frame.height(), 0);

    CentreOver(owned.window, owned.screen, owned.owner);
    owned.window.show();
    Settle();

    EXPECT_EQ(owned.window.height(), 600 - owned.frame.height());
    EXPECT_EQ(owned.window.frameGeometry().top(), 50);
    EXPECT_EQ(owned.window.frameGeometry().bottom(), 649);
}

TEST(PlaceOf, IsWhatPlaceWindowTakes)
{
    FakeScreen screen;
    screen.area = kArea;
    QWidget window;
    window.resize(300, 200);

    PlaceWindow(window, screen, 1500, 750);

    EXPECT_EQ(PlaceOf(window, screen), QPoint(1500, 750));
}

TEST(PlaceOf, GoesPastSixteenBits)
{
    FakeScreen screen;
    screen.area = QRect(0, 0, 3840, 2160);
    QWidget window;
    window.resize(300, 200);
    window.move(3000, 100);

    EXPECT_EQ(PlaceOf(window, screen), QPoint(45000, 1500));
}

} // namespace stoikal
