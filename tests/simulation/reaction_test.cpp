#include "base/fatal_fault.h"
#include "particle_fixture.h"
#include "simulation/particle_model.h"

#include <algorithm>
#include <limits>
#include <random>

namespace stoikal {
namespace {

constexpr EffectiveShares kAlways{100, 100};
constexpr EffectiveShares kNever{0, 0};

/// Two discs 15 apart, at rest: they meet in the tick, and after it no more.
ParticleState Pair(std::size_t first, std::size_t second)
{
    return StateOf({{.x = 500, .y = 500, .angle = 0.1, .kind = first},
                    {.x = 515, .y = 500, .angle = 0.0, .kind = second}});
}

/// Whether A with B reacts after so many pairs and effective pairs, at this share.
bool ForwardReacts(std::int32_t effective, std::int32_t collisions, int share)
{
    ParticleState state = Pair(kKindA, kKindB);
    state.ForwardEffective = effective;
    state.ForwardCollisions = collisions;
    state = Ticked(state, {share, 0});
    EXPECT_EQ(state.ForwardCollisions, collisions + 1);
    EXPECT_EQ(state.ForwardEffective, effective + state.KindCount[kKindC]);
    return state.KindCount[kKindC] == 1;
}

bool ReverseReacts(std::int32_t effective, std::int32_t collisions, int share)
{
    ParticleState state = Pair(kKindC, kKindD);
    state.ReverseEffective = effective;
    state.ReverseCollisions = collisions;
    state = Ticked(state, {0, share});
    EXPECT_EQ(state.ReverseCollisions, collisions + 1);
    EXPECT_EQ(state.ReverseEffective, effective + state.KindCount[kKindA]);
    return state.KindCount[kKindA] == 1;
}

} // namespace

TEST(Reaction, TheHigherNumberOfAAndBBecomesCTheLowerD)
{
    for (const auto& [first, second] : {std::pair{kKindA, kKindB}, std::pair{kKindB, kKindA}}) {
        const ParticleState state = Ticked(Pair(first, second), kAlways);

        EXPECT_EQ(state.ParticleColor[2], KindColor[kKindC]);
        EXPECT_EQ(state.ParticleColor[1], KindColor[kKindD]);
        EXPECT_EQ(state.KindCount, (KindNumbers{0, 0, 1, 1, 0}));
        EXPECT_EQ(state.ForwardCollisions, 1);
        EXPECT_EQ(state.ForwardEffective, 1);
        EXPECT_EQ(state.ReverseCollisions, 0);
    }
}

TEST(Reaction, TheHigherNumberOfCAndDBecomesATheLowerB)
{
    for (const auto& [first, second] : {std::pair{kKindC, kKindD}, std::pair{kKindD, kKindC}}) {
        const ParticleState state = Ticked(Pair(first, second), kAlways);

        EXPECT_EQ(state.ParticleColor[2], KindColor[kKindA]);
        EXPECT_EQ(state.ParticleColor[1], KindColor[kKindB]);
        EXPECT_EQ(state.KindCount, (KindNumbers{1, 1, 0, 0, 0}));
        EXPECT_EQ(state.ReverseCollisions, 1);
        EXPECT_EQ(state.ReverseEffective, 1);
        EXPECT_EQ(state.ForwardCollisions, 0);
    }
}

TEST(Reaction, EveryOtherPairOnlyExchangesHeadings)
{
    for (std::size_t first = 0; first < kKinds; ++first) {
        for (std::size_t second = 0; second < kKinds; ++second) {
            const bool isForward = first + second == kKindA + kKindB;
            const bool isReverse
                = first != second && std::min(first, second) == kKindC && std::max(first, second) == kKindD;
            if (isForward || isReverse)
                continue;
            SCOPED_TRACE(testing::Message() << first << " with " << second);
            const ParticleState before = Pair(first, second);

            const ParticleState state = Ticked(before, kAlways);

            EXPECT_EQ(state.ParticleAngle[1], 0.0);
            EXPECT_EQ(state.ParticleAngle[2], 0.1);
            EXPECT_EQ(state.ParticleColor, before.ParticleColor);
            EXPECT_EQ(state.KindCount, before.KindCount);
            EXPECT_EQ(state.ForwardCollisions, 0);
            EXPECT_EQ(state.ReverseCollisions, 0);
        }
    }
}

TEST(Reaction, AnIneffectivePairIsCountedAndKeepsItsKinds)
{
    const ParticleState state = Ticked(Pair(kKindA, kKindB), kNever);

    EXPECT_EQ(state.ForwardCollisions, 1);
    EXPECT_EQ(state.ForwardEffective, 0);
    EXPECT_EQ(state.KindCount, (KindNumbers{1, 1, 0, 0, 0}));
    EXPECT_EQ(state.ParticleAngle[1], 0.0);
}

TEST(Reaction, AtHalfTheFirstAndTheThirdPairReactNotTheSecond)
{
    EXPECT_TRUE(ForwardReacts(0, 0, 50)); // 0 of 1: 0
    EXPECT_FALSE(ForwardReacts(1, 1, 50)); // 1 of 2: 50
    EXPECT_TRUE(ForwardReacts(1, 2, 50)); // 1 of 3: 33
    EXPECT_TRUE(ReverseReacts(0, 0, 50));
    EXPECT_FALSE(ReverseReacts(1, 1, 50));
    EXPECT_TRUE(ReverseReacts(1, 2, 50));
}

TEST(Reaction, AtZeroNoPairReacts)
{
    EXPECT_FALSE(ForwardReacts(0, 0, 0));
    EXPECT_FALSE(ForwardReacts(0, 100000, 0));
    EXPECT_FALSE(ReverseReacts(0, 0, 0));
}

TEST(Reaction, AtAHundredPairsReactUntilThe200th)
{
    EXPECT_TRUE(ForwardReacts(0, 0, 100));
    EXPECT_TRUE(ForwardReacts(198, 198, 100)); // 198 of 199: 99.497, rounds to 99
    EXPECT_FALSE(ForwardReacts(199, 199, 100)); // 199 of 200: 99.5, rounds to 100
    EXPECT_TRUE(ForwardReacts(199, 200, 100)); // 199 of 201: 99.005
    EXPECT_TRUE(ReverseReacts(198, 198, 100));
    EXPECT_FALSE(ReverseReacts(199, 199, 100));
}

TEST(Reaction, TiesOfTheProportionGoToTheEvenNumber)
{
    EXPECT_TRUE(ForwardReacts(1, 199, 1)); // 1 of 200: 0.5, rounds to 0
    EXPECT_FALSE(ForwardReacts(3, 199, 2)); // 3 of 200: 1.5, rounds to 2
    EXPECT_TRUE(ForwardReacts(5, 199, 3)); // 5 of 200: 2.5, rounds to 2
}

TEST(Reaction, EachDirectionHasItsOwnShare)
{
    ParticleState state = Ticked(Pair(kKindA, kKindB), {100, 0});
    EXPECT_EQ(state.ForwardEffective, 1);
    state = Ticked(Pair(kKindC, kKindD), {100, 0});
    EXPECT_EQ(state.ReverseEffective, 0);
    EXPECT_EQ(state.ReverseCollisions, 1);
}

TEST(Reaction, ADiscThatReactedShowsItsNewColourOneTickLater)
{
    ParticleModel model;
    model.Restore(Pair(kKindA, kKindB));

    model.AnimationTick(kAlways);
    EXPECT_EQ(model.State().ParticleColor[2], KindColor[kKindC]);
    EXPECT_EQ(model.State().DrawnColor[2], KindColor[kKindB]);
    EXPECT_EQ(model.State().DrawnColor[1], KindColor[kKindA]);

    model.AnimationTick(kAlways);
    EXPECT_EQ(model.State().DrawnColor[2], KindColor[kKindC]);
    EXPECT_EQ(model.State().DrawnColor[1], KindColor[kKindD]);
}

TEST(Reaction, ASecondCollisionOfATickHasTheKindThatTheFirstLeft)
{
    // The third, B, meets A 15 above it, becomes C and is pushed 5 to the right; D
    // stands 15 below, 15.8 away: a reverse pair of the same tick.
    const ParticleState state = Ticked({{.x = 500, .y = 500, .kind = kKindA},
                                        {.x = 500, .y = 530, .kind = kKindD},
                                        {.x = 500, .y = 515, .kind = kKindB}},
                                       kAlways);

    EXPECT_EQ(state.ForwardEffective, 1);
    EXPECT_EQ(state.ReverseEffective, 1);
    EXPECT_EQ(state.ParticleColor[1], KindColor[kKindD]);
    EXPECT_EQ(state.ParticleColor[2], KindColor[kKindB]);
    EXPECT_EQ(state.ParticleColor[3], KindColor[kKindA]);
    EXPECT_EQ(state.KindCount, (KindNumbers{1, 1, 0, 1, 0}));
}

TEST(Reaction, WithoutAAndBOnlyReversePairsOccurUntilAnAMeetsAB)
{
    // 5 apart and both heading down: pushed by 15 to (505, 515), 15.8 apart, so that
    // they meet again in the next tick.
    ParticleModel model;
    model.Restore(StateOf({{.x = 500, .y = 500, .angle = kDown, .kind = kKindC},
                           {.x = 505, .y = 500, .angle = kDown, .kind = kKindD}}));

    model.AnimationTick(kAlways);
    EXPECT_EQ(model.State().ForwardCollisions, 0);
    EXPECT_EQ(model.State().ReverseEffective, 1);

    model.AnimationTick(kAlways);
    EXPECT_EQ(model.State().ForwardEffective, 1);
    EXPECT_EQ(model.State().KindCount, (KindNumbers{0, 0, 1, 1, 0}));
}

TEST(Reaction, OverlappingDiscsMeetInEveryTickUntilTheyPart)
{
    ParticleState state = StateOf({{.x = 500, .y = 500, .angle = kDown, .kind = kKindA},
                                   {.x = 505, .y = 500, .angle = kDown, .kind = kKindB}});
    state = Ticked(state, kNever);
    EXPECT_EQ(state.ForwardCollisions, 1);
    state = Ticked(state, kNever);
    EXPECT_EQ(state.ForwardCollisions, 2);

    // The second leaves: sqrt(5² + 519²) and more.
    state.ParticleSpeed[2] = 50.0;
    state = Ticked(state, kNever);
    EXPECT_EQ(state.ForwardCollisions, 2);
}

TEST(Counts, AreTakenAnewInEveryTick)
{
    ParticleState state = Pair(kKindSolvent, kKindA);
    state.KindCount = {9, 9, 9, 9, 9};

    EXPECT_EQ(Ticked(state).KindCount, (KindNumbers{1, 0, 0, 0, 1}));
}

TEST(Counts, AColourOutsideTheTableCountsNowhereAndReactsWithNothing)
{
    ParticleState state = Pair(kKindA, kKindB);
    state.ParticleColor[2] = 1234567;

    state = Ticked(state, kAlways);

    EXPECT_EQ(state.KindCount, (KindNumbers{1, 0, 0, 0, 0}));
    EXPECT_EQ(state.DrawnColor[2], 1234567U);
    EXPECT_EQ(state.ParticleAngle[1], 0.0);
    EXPECT_EQ(state.ForwardCollisions, 0);
}

TEST(Counts, SumToTheNumberOfParticlesAfterEveryTick)
{
    ParticleModel model;
    const KindNumbers counts{60, 50, 20, 10, 20};
    for (std::size_t kind = 0; kind < kKinds; ++kind)
        model.SetInitialCount(kind, counts.at(kind));
    model.SetThermalSpeed(30.0F);
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    model.PlaceParticles(300.0, 400.0, 14, [&] { return uniform(generator); });

    for (int tick = 0; tick < 500; ++tick) {
        model.AnimationTick({80, 30});
        const KindNumbers& now = model.State().KindCount;
        ASSERT_EQ(Total(now), 160);
        // Every reaction changes A and B alike, and C and D.
        ASSERT_EQ(now[kKindA] - now[kKindB], 10);
        ASSERT_EQ(now[kKindC] - now[kKindD], 10);
        ASSERT_EQ(now[kKindSolvent], 20);
    }
    EXPECT_GT(model.State().ForwardEffective, 0);
    EXPECT_GT(model.State().ReverseEffective, 0);
}

TEST(Counts, ATallyPastItsRangeIsAFault)
{
    ParticleState state = Pair(kKindA, kKindB);
    state.ForwardCollisions = std::numeric_limits<std::int32_t>::max();
    ParticleModel model;
    model.Restore(state);

    EXPECT_THROW(model.AnimationTick(kAlways), FatalFault);
}

} // namespace stoikal
