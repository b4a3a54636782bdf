#include "simulation/neighbour_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <utility>

namespace stoikal {
namespace {

constexpr double kReach = 20.0;
constexpr double kLimit = 400.0;

NeighbourGrid GridOf(const std::vector<std::pair<double, double>>& places, double height = 1000.0)
{
    NeighbourGrid grid;
    grid.Prepare(1000.0, height, kReach, places.size());
    std::size_t index = 0;
    for (const auto& [x, y] : places)
        grid.Add(++index, x, y);
    return grid;
}

} // namespace

TEST(NeighbourGrid, FindsNothingInAnEmptyBox)
{
    EXPECT_EQ(GridOf({}).FirstNear(0, 500, 500, kLimit), 0U);
}

TEST(NeighbourGrid, FindsTheLowestIndexOfThoseNear)
{
    // In the cells to the right, above, and in the point's own.
    const NeighbourGrid grid = GridOf({{900, 900}, {515, 500}, {500, 485}, {501, 501}});

    EXPECT_EQ(grid.FirstNear(0, 500, 500, kLimit), 2U);
}

TEST(NeighbourGrid, GoesOnAboveTheIndexTold)
{
    const NeighbourGrid grid = GridOf({{500, 500}, {501, 500}, {502, 500}});

    EXPECT_EQ(grid.FirstNear(1, 500, 500, kLimit), 2U);
    EXPECT_EQ(grid.FirstNear(2, 500, 500, kLimit), 3U);
    EXPECT_EQ(grid.FirstNear(3, 500, 500, kLimit), 0U);
}

TEST(NeighbourGrid, TheLimitItselfIsNotNear)
{
    const NeighbourGrid grid = GridOf({{520, 500}});

    EXPECT_EQ(grid.FirstNear(0, 500, 500, kLimit), 0U);
    EXPECT_EQ(grid.FirstNear(0, std::nextafter(500.0, 501.0), 500, kLimit), 1U);
}

TEST(NeighbourGrid, FindsDiscsAtAndOutsideTheEdges)
{
    const NeighbourGrid grid = GridOf({{0, 0}, {1000, 1000}, {-8, 500}, {1500, 500}});

    EXPECT_EQ(grid.FirstNear(0, 5, 5, kLimit), 1U);
    EXPECT_EQ(grid.FirstNear(0, 995, 995, kLimit), 2U);
    EXPECT_EQ(grid.FirstNear(0, 8, 500, kLimit), 3U);
    EXPECT_EQ(grid.FirstNear(0, 1505, 500, kLimit), 4U);
}

TEST(NeighbourGrid, APlaceThatIsNoNumberIsNearNothing)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const NeighbourGrid grid = GridOf({{none, 500}, {500, infinity}, {500, -infinity}});

    EXPECT_EQ(grid.FirstNear(0, 500, 500, kLimit), 0U);
    EXPECT_EQ(grid.FirstNear(0, none, none, kLimit), 0U);
}

TEST(NeighbourGrid, ClearForgetsAllDiscs)
{
    NeighbourGrid grid = GridOf({{500, 500}, {501, 500}});

    grid.Clear();
    EXPECT_EQ(grid.FirstNear(0, 500, 500, kLimit), 0U);

    grid.Add(1, 505, 500);
    EXPECT_EQ(grid.FirstNear(0, 500, 500, kLimit), 1U);
}

TEST(NeighbourGrid, GivesWhatALookAtAllGives)
{
    for (const double height : {5.0, 300.0, 1000.0, 1e5, 1e9}) {
        std::mt19937_64 generator(7);
        std::uniform_real_distribution<double> across(0.0, 1000.0);
        // Dense near the top also in boxes that are high.
        std::uniform_real_distribution<double> down(0.0, std::min(height, 1000.0));
        std::vector<std::pair<double, double>> places;
        for (int i = 0; i < 400; ++i)
            places.emplace_back(across(generator), down(generator));
        const NeighbourGrid grid = GridOf(places, height);

        for (int i = 0; i < 2000; ++i) {
            const double x = across(generator);
            const double y = down(generator);
            const auto after = static_cast<std::size_t>(i % 400);
            std::size_t expected = 0;
            for (std::size_t j = after + 1; j <= places.size() && expected == 0; ++j) {
                const auto& [otherX, otherY] = places[j - 1];
                if ((otherX - x) * (otherX - x) + (otherY - y) * (otherY - y) < kLimit)
                    expected = j;
            }
            ASSERT_EQ(grid.FirstNear(after, x, y, kLimit), expected)
                << "height " << height << ", point " << i;
        }
    }
}

} // namespace stoikal
