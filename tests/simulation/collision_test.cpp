#include "particle_fixture.h"
#include "simulation/particle_model.h"

#include <cmath>

namespace stoikal {

TEST(Collision, ExchangesTheHeadingsAndNothingElse)
{
    const ParticleState state
        = Ticked({{.x = 500, .y = 500, .angle = 0.1}, {.x = 519, .y = 500, .angle = 0.2}});

    EXPECT_EQ(state.ParticleAngle[1], 0.2);
    EXPECT_EQ(state.ParticleAngle[2], 0.1);
    EXPECT_EQ(state.KindCount, (KindNumbers{0, 0, 0, 0, 2}));
}

TEST(Collision, LeavesTheSpeeds)
{
    // After the step at 505 and 517: 12 apart.
    const ParticleState state = Ticked({{.x = 500, .y = 500, .speed = 5}, {.x = 510, .y = 500, .speed = 7}});

    EXPECT_EQ(state.ParticleSpeed[1], 5.0);
    EXPECT_EQ(state.ParticleSpeed[2], 7.0);
    EXPECT_EQ(state.ParticleX[2], 525.0); // 517 + (20 - 12)
}

TEST(Collision, AnExactContactIsNone)
{
    // 12² + 16² = 20².
    const ParticleState state
        = Ticked({{.x = 500, .y = 500, .angle = 0.1}, {.x = 512, .y = 516, .angle = 0.2}});

    EXPECT_EQ(state.ParticleAngle[1], 0.1);
    EXPECT_EQ(state.ParticleX[2], 512.0);
}

TEST(Collision, ADistanceThatRoundsUpToTheContactIsNone)
{
    // The square just below 400 has the root 20 in the machine's numbers.
    const double square = std::nextafter(400.0, 0.0);
    ASSERT_EQ(std::sqrt(square), 20.0);
    double x = 0.0;
    double y = 0.0;
    bool isFound = false;
    for (int i = 0; i < 10000 && !isFound; ++i) {
        x = 512.0 + i / 4096.0;
        y = 500.0 + std::sqrt(400.0 - (x - 500.0) * (x - 500.0));
        isFound = (y - 500.0) * (y - 500.0) + (x - 500.0) * (x - 500.0) == square;
    }
    ASSERT_TRUE(isFound);

    const ParticleState state = Ticked({{.x = 500, .y = 500, .angle = 0.1}, {.x = x, .y = y, .angle = 0.2}});

    EXPECT_EQ(state.ParticleAngle[1], 0.1);
    EXPECT_EQ(state.ParticleAngle[2], 0.2);
}

TEST(Collision, PushesTheHigherNumberAlongItsOwnHeading)
{
    const ParticleState state
        = Ticked({{.x = 512, .y = 500, .angle = 1.0}, {.x = 500, .y = 500, .angle = kDown}});

    // 12 apart: 20 - 12 = 8 straight down, not away from the other disc.
    EXPECT_NEAR(state.ParticleX[2], 500.0, 1e-6);
    EXPECT_NEAR(state.ParticleY[2], 508.0, 1e-6);
    EXPECT_EQ(state.ParticleX[1], 512.0);
    EXPECT_EQ(state.ParticleY[1], 500.0);
}

TEST(Collision, ThePushIsNotDividedByTheRatio)
{
    ParticleState state = StateOf({{.x = 512, .y = 200, .angle = 1.0}, {.x = 500, .y = 200, .angle = kDown}});
    state.AspectRatio = 2.0;

    state = Ticked(state);

    EXPECT_NEAR(state.ParticleY[2], 208.0, 1e-6);
}

TEST(Collision, APushIntoAWallStopsThereWithoutReflection)
{
    // 19 apart: a push of 1 along -1.2, by 0.362 and -0.932.
    ParticleState state
        = Ticked({{.x = 989.9, .y = 481, .angle = 0.1}, {.x = 989.9, .y = 500, .angle = -1.2}});

    EXPECT_EQ(state.ParticleX[2], 990.0);
    EXPECT_NEAR(state.ParticleY[2], 499.067961, 1e-6);
    EXPECT_EQ(state.ParticleAngle[2], 0.1);

    // At its next step it still heads to the wall and turns: 3 pi - 0.1 - 2 pi. The
    // other disc has left upwards: 481 - 5 sin 1.2 = 476.34, more than 20 away.
    state.ParticleSpeed = {0.0, 5.0, 5.0};
    state = Ticked(state);
    EXPECT_EQ(state.ParticleX[2], 990.0);
    EXPECT_NEAR(state.ParticleAngle[2], 3.041592653, 1e-9);
}

TEST(Collision, APushIsHeldAtEveryWall)
{
    // 5 apart each: a push of 15 over the wall.
    const std::vector<Disc> left{{.x = 20, .y = 505}, {.x = 20, .y = 500, .angle = kPi}};
    const std::vector<Disc> top{{.x = 505, .y = 20}, {.x = 500, .y = 20, .angle = -kDown}};
    const std::vector<Disc> bottom{{.x = 505, .y = 980}, {.x = 500, .y = 980, .angle = kDown}};

    EXPECT_EQ(Ticked(left).ParticleX[2], 10.0);
    EXPECT_EQ(Ticked(top).ParticleY[2], 10.0);
    EXPECT_EQ(Ticked(bottom).ParticleY[2], 990.0);
}

TEST(Collision, SeesLowerNumbersWhereTheyStandInThisTick)
{
    // The first disc comes from 29 to 19 units.
    const ParticleState state
        = Ticked({{.x = 500, .y = 500, .angle = 0.0, .speed = 10}, {.x = 529, .y = 500, .angle = 0.2}});

    EXPECT_EQ(state.ParticleX[1], 510.0);
    EXPECT_EQ(state.ParticleAngle[1], 0.2);
    EXPECT_EQ(state.ParticleAngle[2], 0.0);
}

TEST(Collision, ADiscTurnedInItsTickTakesTheNewHeadingAtTheNextStep)
{
    ParticleModel model;
    model.Restore(StateOf(
        {{.x = 500, .y = 500, .angle = 0.0, .speed = 10}, {.x = 529, .y = 500, .angle = kDown, .speed = 0}}));
    model.AnimationTick({});

    model.AnimationTick({});

    // Straight down now, to (510, 510); the second was pushed to (529, 501), 21 away.
    EXPECT_NEAR(model.State().ParticleX[1], 510.0, 1e-6);
    EXPECT_NEAR(model.State().ParticleY[1], 510.0, 1e-6);
}

TEST(Collision, SeveralInOneTickGoOnFromWhatTheLastOneLeft)
{
    const ParticleState state = Ticked({{.x = 500, .y = 500, .angle = kDown},
                                        {.x = 500, .y = 530, .angle = 2.0},
                                        {.x = 500, .y = 515, .angle = 0.0}});

    // With the first, 15 away: 5 to the right, to (505, 515), now heading down.
    // With the second, sqrt(5² + 15²) = 15.811388 away: 4.188612 down.
    EXPECT_NEAR(state.ParticleX[3], 505.0, 1e-6);
    EXPECT_NEAR(state.ParticleY[3], 519.188612, 1e-6);
    EXPECT_EQ(state.ParticleAngle[1], 0.0);
    EXPECT_EQ(state.ParticleAngle[2], kDown);
    EXPECT_EQ(state.ParticleAngle[3], 2.0);
}

TEST(Collision, APushOutOfReachSparesTheNext)
{
    // 10 from the first: pushed left by 10, to (490, 510). The second was
    // sqrt(15² + 10²) = 18 away and is sqrt(25² + 10²) = 27 away now.
    const ParticleState state = Ticked({{.x = 500, .y = 500, .angle = 0.1},
                                        {.x = 515, .y = 520, .angle = 0.2},
                                        {.x = 500, .y = 510, .angle = kPi}});

    EXPECT_EQ(state.ParticleX[3], 490.0);
    EXPECT_EQ(state.ParticleAngle[2], 0.2);
    EXPECT_EQ(state.ParticleAngle[3], 0.1);
}

TEST(Collision, APushIntoReachMeetsTheNext)
{
    // The second at 475 was 25 away and is 15 away after the push to (490, 510): a
    // push of 5 along the heading 0.1 that the first one left.
    const ParticleState state = Ticked({{.x = 500, .y = 500, .angle = 0.1},
                                        {.x = 475, .y = 510, .angle = 0.2},
                                        {.x = 500, .y = 510, .angle = kPi}});

    EXPECT_NEAR(state.ParticleX[3], 490.0 + 5.0 * 0.995004165, 1e-6); // cos 0.1
    EXPECT_EQ(state.ParticleAngle[1], kPi);
    EXPECT_EQ(state.ParticleAngle[2], 0.1);
    EXPECT_EQ(state.ParticleAngle[3], 0.2);
}

TEST(Collision, APushOntoALowerNumberAlreadyPassedIsNotSeen)
{
    // The first, 25 away, is passed before the second's push to (490, 510).
    const ParticleState state = Ticked({{.x = 475, .y = 510, .angle = 0.2},
                                        {.x = 500, .y = 500, .angle = 0.1},
                                        {.x = 500, .y = 510, .angle = kPi}});

    EXPECT_EQ(state.ParticleX[3], 490.0);
    EXPECT_EQ(state.ParticleAngle[1], 0.2);
    EXPECT_EQ(state.ParticleAngle[2], kPi);
    EXPECT_EQ(state.ParticleAngle[3], 0.1);
}

TEST(Collision, AFarPushMeetsWhatLiesWhereItEnds)
{
    // On top of the first: a push of 20 to (520, 500), where the second stands 5 off,
    // 25 from where the push began.
    const ParticleState state = Ticked({{.x = 500, .y = 500, .angle = 0.1},
                                        {.x = 525, .y = 500, .angle = 0.2},
                                        {.x = 500, .y = 500, .angle = 0.0}});

    EXPECT_EQ(state.ParticleAngle[1], 0.0);
    EXPECT_EQ(state.ParticleAngle[2], 0.1);
    EXPECT_EQ(state.ParticleAngle[3], 0.2);
}

} // namespace stoikal
