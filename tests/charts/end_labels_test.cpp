#include "charts/end_labels.h"

#include <gtest/gtest.h>

namespace stoikal {
namespace {

const QRectF kRoom(0, 0, 400, 300);

/// A name of 30 x 16 pixels at an end.
EndLabel At(double x, double y)
{
    return {QPointF(x, y), QSizeF(30, 16)};
}

} // namespace

TEST(EndLabels, StandBehindTheEnd)
{
    const auto places = PlaceEndLabels({At(100, 150)}, {QLineF(0, 50, 100, 150)}, kRoom);

    // 5 pixels behind the end, its middle on the end's height: 150 - 16 / 2.
    EXPECT_EQ(places.at(0).value(), QRectF(105, 142, 30, 16));
}

TEST(EndLabels, GiveWayToALine)
{
    // A line passes just behind the end, on its height and below: above it is free.
    const auto places = PlaceEndLabels({At(100, 150)}, {QLineF(102, 150, 300, 170)}, kRoom);

    // 8 pixels up: from 134 to 150, just above the line. 4 would not do.
    EXPECT_EQ(places.at(0).value(), QRectF(105, 134, 30, 16));
}

TEST(EndLabels, ALineThatOnlyPassesThroughCountsToo)
{
    // No end of the line lies in the box; it cuts right through.
    const auto places = PlaceEndLabels({At(100, 150)}, {QLineF(110, 0, 111, 300)}, kRoom);

    // Left of the end, above it: 100 - 5 - 30.
    EXPECT_EQ(places.at(0).value(), QRectF(65, 132, 30, 16));
}

TEST(EndLabels, GiveWayToANameBefore)
{
    const auto places = PlaceEndLabels({At(100, 150), At(100, 156)}, {}, kRoom);

    EXPECT_EQ(places.at(0).value(), QRectF(105, 142, 30, 16));
    // Taken from 142 to 158. From 148 on, steps of 4 up and down: 160 is the first that is free.
    EXPECT_EQ(places.at(1).value(), QRectF(105, 160, 30, 16));
}

TEST(EndLabels, StayInsideTheRoom)
{
    // 380 + 5 + 30 is outside: left of the end.
    EXPECT_EQ(PlaceEndLabels({At(380, 150)}, {}, kRoom).at(0).value(), QRectF(345, 132, 30, 16));
    // On the lower edge: 292 - 8.
    EXPECT_EQ(PlaceEndLabels({At(100, 300)}, {}, kRoom).at(0).value(), QRectF(105, 284, 30, 16));
}

TEST(EndLabels, WithoutAFreePlaceThereIsNone)
{
    const std::vector<QLineF> bars{QLineF(108, 0, 108, 300), QLineF(92, 0, 92, 300)};

    EXPECT_FALSE(PlaceEndLabels({At(100, 150)}, bars, kRoom).at(0).has_value());
}

TEST(EndLabels, ALineThatEndsWithinTheNameCountsToo)
{
    // All of the line lies in the box from 142 to 158 and crosses no edge of it.
    const auto places = PlaceEndLabels({At(100, 150)}, {QLineF(110, 145, 120, 147)}, kRoom);

    // 4 up: 138 to 154, 4 down: 146 to 162, 8 up: 134 to 150, each holds an end of
    // it; 8 down is the first that is free.
    EXPECT_EQ(places.at(0).value(), QRectF(105, 150, 30, 16));
}

TEST(EndLabels, GiveWayByTheirHeightAtMost)
{
    // The one line keeps a name from rising, the other from standing at the end's
    // height and from sinking by 4, 8 and 12: 154 to 170 still holds 157.
    const std::vector<QLineF> lines{QLineF(102, 141, 300, 141), QLineF(102, 157, 300, 157)};

    EXPECT_EQ(PlaceEndLabels({At(100, 150)}, lines, kRoom).at(0).value(), QRectF(105, 158, 30, 16));

    // Two pixels lower it would have to sink by 20, more than it is high: left of the end.
    const std::vector<QLineF> wider{QLineF(102, 141, 300, 141), QLineF(102, 159, 300, 159)};
    EXPECT_EQ(PlaceEndLabels({At(100, 150)}, wider, kRoom).at(0).value(), QRectF(105, 142, 30, 16));
    const std::vector<QLineF> three{QLineF(102, 141, 300, 141), QLineF(102, 150, 300, 150),
                                    QLineF(102, 159, 300, 159)};
    EXPECT_EQ(PlaceEndLabels({At(100, 150)}, three, kRoom).at(0).value(), QRectF(65, 132, 30, 16));
}

TEST(EndLabels, StandInFrontOfTheEndBelowItWhereAboveIsTaken)
{
    // Behind the end a line passes from top to bottom; in front a short one lies above.
    const std::vector<QLineF> lines{QLineF(110, 0, 111, 300), QLineF(70, 140, 80, 141)};

    // 2 pixels below the end's height.
    EXPECT_EQ(PlaceEndLabels({At(100, 150)}, lines, kRoom).at(0).value(), QRectF(65, 152, 30, 16));
}

TEST(EndLabels, WithoutAPlaceHinderNoOther)
{
    const std::vector<QLineF> bars{QLineF(108, 0, 108, 300), QLineF(92, 0, 92, 300)};

    const auto places = PlaceEndLabels({At(100, 150), At(300, 50)}, bars, kRoom);

    EXPECT_FALSE(places.at(0).has_value());
    EXPECT_EQ(places.at(1).value(), QRectF(305, 42, 30, 16));
}

} // namespace stoikal
