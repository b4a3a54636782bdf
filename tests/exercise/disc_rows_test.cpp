#include "exercise/disc_rows.h"

#include <gtest/gtest.h>

#include <vector>

using namespace stoikal;

namespace {

/// A disc with its place, to be compared.
struct Place {
    int kind = 0;
    Twips x = 0;
    Twips y = 0;
    Twips radius = 0;

    bool operator==(const Place&) const = default;
};

void PrintTo(const Place& place, std::ostream* out)
{
    *out << "kind " << place.kind << " at " << place.x << ", " << place.y << " radius " << place.radius;
}

using Places = std::vector<Place>;

Places LaidOut(const std::vector<DiscKind>& kinds, Twips windowWidth)
{
    Places places;
    for (const Disc& disc : LayOutDiscs(kinds, windowWidth))
        places.push_back({disc.kind, disc.x, disc.y, disc.radius});
    return places;
}

} // namespace

TEST(DiscRadius, IsOneHundredAndFiftyTimesBallRadiusAndScale)
{
    EXPECT_EQ(DiscRadius(3.0, 4), 1800);
    EXPECT_EQ(DiscRadius(0.79, 2), 237);
    EXPECT_EQ(DiscRadius(0.65, 4), 390);
}

TEST(DiscRadius, IsRoundedToTheNearestTwip)
{
    // 0.65 x 150 = 97.5; 1.43 x 150 = 214.5; 1.01 x 150 = 151.5; 1.005 x 150 = 150.75; 1.002 x 150 = 150.3
    EXPECT_EQ(DiscRadius(0.65, 1), 98);
    EXPECT_EQ(DiscRadius(1.43, 1), 215);
    EXPECT_EQ(DiscRadius(1.01, 1), 152);
    EXPECT_EQ(DiscRadius(1.005, 1), 151);
    EXPECT_EQ(DiscRadius(1.002, 1), 150);
}

TEST(DiscRows, StandFiftyTwipsApartInOneRow)
{
    // Each disc takes 2 x 100 + 50; the row stands 100 + 50 below the top.
    EXPECT_EQ(LaidOut({{100, 2}}, 1000), (Places{{0, 150, 150, 100}, {0, 400, 150, 100}}));
}

TEST(DiscRows, BeginANewRowPastTheEdgeLessFifty)
{
    // 250, 500, 750 fit into 950, 1000 does not. The next row: 150 + 100 + 100 + 50.
    EXPECT_EQ(LaidOut({{100, 4}}, 1000),
              (Places{{0, 150, 150, 100}, {0, 400, 150, 100}, {0, 650, 150, 100}, {0, 150, 400, 100}}));
}

TEST(DiscRows, ADiscThatJustReachesTheEdgeStaysInItsRow)
{
    // 3 x 250 = 750 = 800 - 50.
    EXPECT_EQ(LaidOut({{100, 3}}, 800).back(), (Place{0, 650, 150, 100}));
    EXPECT_EQ(LaidOut({{100, 3}}, 799).back(), (Place{0, 150, 400, 100}));
}

TEST(DiscRows, ATallerDiscPushesItsWholeRowDown)
{
    // 250, 500, 500 + 650 = 1150 fit into 1950: the row stands 300 + 50 below the top.
    EXPECT_EQ(LaidOut({{100, 2}, {300, 1}}, 2000),
              (Places{{0, 150, 350, 100}, {0, 400, 350, 100}, {1, 850, 350, 300}}));
}

TEST(DiscRows, ATallerDiscThatJustReachesTheEdgePushesItsRowDown)
{
    // 250 + 650 = 900 = 950 - 50.
    EXPECT_EQ(LaidOut({{100, 1}, {300, 1}}, 950), (Places{{0, 150, 350, 100}, {1, 600, 350, 300}}));
}

TEST(DiscRows, ATallerDiscOfTheNextRowLeavesThisRowAlone)
{
    // 250, 500, 750, then 1400 > 950. Second row: 150 + 100 + 300 + 50 = 600.
    EXPECT_EQ(LaidOut({{100, 3}, {300, 1}}, 1000),
              (Places{{0, 150, 150, 100}, {0, 400, 150, 100}, {0, 650, 150, 100}, {1, 350, 600, 300}}));
}

TEST(DiscRows, ARowMayBeginInTheMiddleOfAKind)
{
    // 650, 900, then 1150 > 950: the second of the small ones begins a row of
    // small ones only, at 350 + 300 + 100 + 50 = 800.
    EXPECT_EQ(LaidOut({{300, 1}, {100, 3}}, 1000),
              (Places{{0, 350, 350, 300}, {1, 800, 350, 100}, {1, 150, 800, 100}, {1, 400, 800, 100}}));
}

TEST(DiscRows, WaterAtTheLargestScaleWraps)
{
    // H 0.79 x 600 = 474 takes 998, O 0.65 x 600 = 390 takes 830; the edge is 1950.
    // H 998, H 1996 > 1950: next row H 998, O 1828.
    // Rows: 474 + 50 = 524, then 524 + 474 + 474 + 50 = 1522.
    EXPECT_EQ(LaidOut({{DiscRadius(0.79, 4), 2}, {DiscRadius(0.65, 4), 1}}, 2000),
              (Places{{0, 524, 524, 474}, {0, 524, 1522, 474}, {1, 1438, 1522, 390}}));
}

TEST(DiscRows, NothingIsDrawnForCountsBelowOne)
{
    // The kind without discs makes no row taller.
    EXPECT_EQ(LaidOut({{500, 0}, {100, 1}, {600, -3}}, 1000), (Places{{1, 150, 150, 100}}));
    EXPECT_EQ(LaidOut({}, 1000), Places{});
}

TEST(DiscRows, DiscsTooWideForTheWindowStandOneBelowTheOther)
{
    // The first finds no room in the first row, which stays empty:
    // 650 + 600 + 600 + 50 = 1900, then 1900 + 600 + 600 + 50 = 3150.
    EXPECT_EQ(LaidOut({{600, 2}}, 1000), (Places{{0, 650, 1900, 600}, {0, 650, 3150, 600}}));
}

TEST(DiscRows, AWindowWithoutWidthStillEnds)
{
    EXPECT_EQ(LaidOut({{100, 3}, {200, 2}}, 0).size(), 5U);
}
