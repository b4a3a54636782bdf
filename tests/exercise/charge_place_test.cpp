#include "exercise/charge_place.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <ostream>

inline void PrintTo(const QPoint& point, std::ostream* out)
{
    *out << point.x() << ", " << point.y();
}

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A window of 3000 x 1500, the exercise at the lower edge of a usable area of
/// 15310 x 10770. The gap above the exercise gives (9045 - 1500) / 2 + 400,
/// rounded down: 4172.
ChargePlaceInput Input(const QString& left, const QString& top)
{
    return {left, top, QSize(3000, 1500), QRect(4000, 9045, 6000, 2025), 15310, 10770};
}

constexpr int kCentre = 6155; // (15310 - 3000) / 2
constexpr int kAbove = 4172;

} // namespace

TEST(ChargePlace, IsCentredAboveTheExerciseWithoutAMemory)
{
    EXPECT_EQ(ChargePlace(Input(u""_s, u""_s)), QPoint(kCentre, kAbove));
}

TEST(ChargePlace, IsTheRememberedOne)
{
    EXPECT_EQ(ChargePlace(Input(u"1500"_s, u"900"_s)), QPoint(1500, 900));
}

TEST(ChargePlace, TakesARememberedLeftOfZero)
{
    EXPECT_EQ(ChargePlace(Input(u"0"_s, u"900"_s)), QPoint(0, 900));
}

TEST(ChargePlace, TakesATopOfZeroForNone)
{
    EXPECT_EQ(ChargePlace(Input(u"1500"_s, u"0"_s)), QPoint(1500, kAbove));
}

TEST(ChargePlace, RaisesANegativeLeftToZero)
{
    EXPECT_EQ(ChargePlace(Input(u"-200"_s, u"900"_s)), QPoint(0, 900));
}

TEST(ChargePlace, TakesANegativeTopForNone)
{
    EXPECT_EQ(ChargePlace(Input(u"1500"_s, u"-10"_s)), QPoint(1500, kAbove));
}

TEST(ChargePlace, KeepsTheRightEdgeInTheUsableArea)
{
    EXPECT_EQ(ChargePlace(Input(u"12310"_s, u"900"_s)), QPoint(12310, 900)); // 15310 - 3000: just fits
    EXPECT_EQ(ChargePlace(Input(u"12311"_s, u"900"_s)), QPoint(12310, 900));
    EXPECT_EQ(ChargePlace(Input(u"99999"_s, u"900"_s)), QPoint(12310, 900));
}

TEST(ChargePlace, KeepsTheBottomEdgeNearTheUsableArea)
{
    // 10770 + 700 - 1500 = 9970. Beside the exercise, which ends at 10000.
    EXPECT_EQ(ChargePlace(Input(u"11000"_s, u"9970"_s)), QPoint(11000, 9970));
    EXPECT_EQ(ChargePlace(Input(u"11000"_s, u"9971"_s)), QPoint(11000, 9970));
    EXPECT_EQ(ChargePlace(Input(u"11000"_s, u"50000"_s)), QPoint(11000, 9970));
}

TEST(ChargePlace, IsNeverOverTheExercise)
{
    EXPECT_EQ(ChargePlace(Input(u"5000"_s, u"9000"_s)), QPoint(5000, kAbove));
    // The lower edge at 9000 + 1500 would reach into it from above, too.
    EXPECT_EQ(ChargePlace(Input(u"5000"_s, u"7600"_s)), QPoint(5000, kAbove));
    EXPECT_EQ(ChargePlace(Input(u"5000"_s, u"7545"_s)), QPoint(5000, 7545)); // ends where it begins
}

TEST(ChargePlace, TakesAMemoryThatIsNoNumberForZero)
{
    EXPECT_EQ(ChargePlace(Input(u"left"_s, u"top"_s)), QPoint(0, kAbove));
}

TEST(ChargePlace, StaysOnTheScreenAboveAHighExercise)
{
    ChargePlaceInput input = Input(u""_s, u""_s);
    input.exercise.moveTop(500);

    EXPECT_EQ(ChargePlace(input).y(), 0); // (500 - 1500) / 2 + 400 is negative
}

} // namespace stoikal
