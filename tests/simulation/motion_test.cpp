#include "particle_fixture.h"
#include "simulation/particle_model.h"

namespace stoikal {

TEST(Motion, StepsAlongTheHeading)
{
    // cos 1 = 0.5403023, sin 1 = 0.8414710, ten times each.
    const ParticleState state = Ticked({{.x = 500, .y = 500, .angle = 1.0, .speed = 10}});

    EXPECT_NEAR(state.ParticleX[1], 505.403023, 1e-6);
    EXPECT_NEAR(state.ParticleY[1], 508.414710, 1e-6);
    EXPECT_EQ(state.ParticleAngle[1], 1.0);
    EXPECT_EQ(state.ParticleSpeed[1], 10.0);
}

TEST(Motion, DividesTheVerticalStepByTheRatio)
{
    ParticleState state = StateOf({{.x = 500, .y = 200, .angle = 1.0, .speed = 10}});
    state.AspectRatio = 2.0;

    state = Ticked(state);

    // 10 cos 1 as before, 10 sin 1 / 2 = 4.2073549.
    EXPECT_NEAR(state.ParticleX[1], 505.403023, 1e-6);
    EXPECT_NEAR(state.ParticleY[1], 204.207355, 1e-6);
}

TEST(Motion, TakesANegativeHeadingAsItIs)
{
    const ParticleState state = Ticked({{.x = 500, .y = 500, .angle = -1.0, .speed = 10}});

    EXPECT_NEAR(state.ParticleY[1], 491.585290, 1e-6);
    EXPECT_EQ(state.ParticleAngle[1], -1.0);
}

TEST(Walls, LeftWallTurnsTheHeadingToPiLessIt)
{
    // 12 + 10 cos 2.5 = 12 - 8.01 is left of 10.
    const ParticleState state = Ticked({{.x = 12, .y = 500, .angle = 2.5, .speed = 10}});

    EXPECT_EQ(state.ParticleX[1], 10.0);
    EXPECT_EQ(state.ParticleAngle[1], 3.141592653 - 2.5); // 0.641592653
    EXPECT_NEAR(state.ParticleY[1], 505.984721, 1e-6); // 500 + 10 sin 2.5
}

TEST(Walls, ReachingTheWallExactlyIsEnough)
{
    // 15 - 5 = 10, the radius.
    const ParticleState state = Ticked({{.x = 15, .y = 500, .angle = kPi, .speed = 5}});

    EXPECT_EQ(state.ParticleX[1], 10.0);
    EXPECT_EQ(state.ParticleAngle[1], 0.0);
}

TEST(Walls, RightWallTurnsTheHeadingToThreePiLessItWithinOneTurn)
{
    // 9.424777959 - 0.5 = 8.924777959, above one turn: less 6.283185306.
    const ParticleState state = Ticked({{.x = 985, .y = 500, .angle = 0.5, .speed = 10}});

    EXPECT_EQ(state.ParticleX[1], 990.0);
    EXPECT_EQ(state.ParticleAngle[1], (9.424777959 - 0.5) - 6.283185306);
    EXPECT_NEAR(state.ParticleAngle[1], 2.641592653, 1e-12);
}

TEST(Walls, RightWallKeepsAHeadingThatIsWithinOneTurn)
{
    // 9.424777959 - 5.5 = 3.924777959.
    const ParticleState state = Ticked({{.x = 985, .y = 500, .angle = 5.5, .speed = 10}});

    EXPECT_EQ(state.ParticleAngle[1], 9.424777959 - 5.5);
}

TEST(Walls, OneTurnIsTakenOffOnlyOnce)
{
    // 9.424777959 + 8 = 17.424777959; 11.141592653 stays, though above one turn.
    const ParticleState state = Ticked({{.x = 990, .y = 500, .angle = -8.0}});

    EXPECT_NEAR(state.ParticleAngle[1], 11.141592653, 1e-9);
}

TEST(Walls, TopWallTurnsTheHeadingInItsOwnForm)
{
    // pi/2 - (4 - 3 pi/2) = 1.5707963265 - (4 - 4.7123889795) = 2.283185306.
    const ParticleState state = Ticked({{.x = 500, .y = 15, .angle = 4.0, .speed = 10}});

    EXPECT_EQ(state.ParticleY[1], 10.0);
    EXPECT_EQ(state.ParticleAngle[1], 3.141592653 / 2 - (4.0 - 9.424777959 / 2));
    EXPECT_NEAR(state.ParticleAngle[1], 2.283185306, 1e-12);
}

TEST(Walls, BottomWallNegatesTheHeadingAndLeavesItNegative)
{
    const ParticleState state = Ticked({{.x = 500, .y = 985, .angle = 1.0, .speed = 10}});

    EXPECT_EQ(state.ParticleY[1], 990.0);
    EXPECT_EQ(state.ParticleAngle[1], -1.0);
}

TEST(Walls, BottomLiesAtTheHeightOfTheBox)
{
    // Y_MAX = 1000 / 2.5 = 400, less the radius 390. The step is 10 / 2.5 = 4 at most.
    ParticleState state = StateOf({{.x = 500, .y = 388, .angle = kDown, .speed = 10}});
    state.AspectRatio = 2.5;

    state = Ticked(state);

    EXPECT_EQ(state.ParticleY[1], 390.0);
    EXPECT_EQ(state.ParticleAngle[1], -kDown);
}

TEST(Walls, ACornerTurnsTheHeadingAtOneWallAfterTheOther)
{
    // Left: 3.141592653 - 3.9 = -0.758407347, left negative. Then top:
    // 1.5707963265 - (-0.758407347 - 4.7123889795) = 7.041592653, less one turn.
    const ParticleState state = Ticked({{.x = 12, .y = 12, .angle = 3.9, .speed = 10}});

    EXPECT_EQ(state.ParticleX[1], 10.0);
    EXPECT_EQ(state.ParticleY[1], 10.0);
    EXPECT_NEAR(state.ParticleAngle[1], 0.758407347, 1e-9);
}

TEST(Walls, ABoxLowerThanADiscTurnsItAtBothEdges)
{
    // Y_MAX = 16: y <= 10 gives 10, then 10 >= 16 - 10 gives 6. The heading 1 becomes
    // 1.5707963265 - (1 - 4.7123889795) = 5.283185306, then its negative.
    ParticleState state = StateOf({{.x = 500, .y = 6, .angle = 1.0}});
    state.AspectRatio = 62.5;

    state = Ticked(state);

    EXPECT_EQ(state.ParticleY[1], 6.0);
    EXPECT_NEAR(state.ParticleAngle[1], -5.283185306, 1e-9);
}

TEST(Motion, TheHeadingAfterAWallLeadsTheNextStep)
{
    ParticleModel model;
    model.Restore(StateOf({{.x = 985, .y = 500, .angle = 0.5, .speed = 10}}));
    model.AnimationTick({});

    model.AnimationTick({});

    // From 990 by 10 cos 2.641592653 = -10 cos 0.5 = -8.7758256.
    EXPECT_NEAR(model.State().ParticleX[1], 981.2241744, 1e-6);
}

} // namespace stoikal
