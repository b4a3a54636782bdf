#include "all_pairs_tick.h"
#include "particle_fixture.h"
#include "simulation/particle_model.h"

#include <cstring>
#include <random>

namespace stoikal {
namespace {

struct Case {
    std::int16_t discs;
    std::int32_t radius;
    double width; ///< of the picture
    double height;
    float speed;
    EffectiveShares shares;
    int ticks;
};

template <typename Number>
bool SameBits(const std::vector<Number>& one, const std::vector<Number>& other)
{
    return one.size() == other.size()
        && std::memcmp(one.data(), other.data(), one.size() * sizeof(Number)) == 0;
}

/// Every number of both, the floats by their bits.
testing::AssertionResult Same(const ParticleState& engine, const ParticleState& plain)
{
    const bool isSame = SameBits(engine.ParticleX, plain.ParticleX)
        && SameBits(engine.ParticleY, plain.ParticleY) && SameBits(engine.ParticleSpeed, plain.ParticleSpeed)
        && SameBits(engine.ParticleAngle, plain.ParticleAngle)
        && SameBits(engine.ParticleColor, plain.ParticleColor)
        && SameBits(engine.DrawnColor, plain.DrawnColor) && engine.KindCount == plain.KindCount
        && engine.ForwardCollisions == plain.ForwardCollisions
        && engine.ForwardEffective == plain.ForwardEffective
        && engine.ReverseCollisions == plain.ReverseCollisions
        && engine.ReverseEffective == plain.ReverseEffective;
    if (isSame)
        return testing::AssertionSuccess();
    for (std::size_t i = 1; i < engine.ParticleX.size(); ++i) {
        if (engine.ParticleX[i] != plain.ParticleX[i] || engine.ParticleY[i] != plain.ParticleY[i]
            || engine.ParticleAngle[i] != plain.ParticleAngle[i])
            return testing::AssertionFailure() << "first at disc " << i;
    }
    return testing::AssertionFailure() << "in colours, counts or tallies";
}

/// Runs both from one state and compares them after every tick.
void ExpectSameRun(const ParticleState& start, const EffectiveShares& shares, int ticks)
{
    ParticleModel model;
    model.Restore(start);
    ParticleState plain = start;
    for (int tick = 1; tick <= ticks; ++tick) {
        model.AnimationTick(shares);
        AllPairsTick(plain, shares);
        ASSERT_TRUE(Same(model.State(), plain)) << "in tick " << tick;
    }
}

/// A box of a tenth of solvent and the rest of all kinds, placed at random.
ParticleState RandomBox(const Case& box, unsigned seed)
{
    ParticleModel model;
    const std::int32_t tenth = box.discs / 10;
    model.SetInitialCount(kKindA, box.discs - 6 * tenth);
    model.SetInitialCount(kKindB, 2 * tenth);
    model.SetInitialCount(kKindC, 2 * tenth);
    model.SetInitialCount(kKindD, tenth);
    model.SetInitialCount(kKindSolvent, tenth);
    model.SetThermalSpeed(box.speed);
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    model.PlaceParticles(box.width, box.height, box.radius, [&] { return uniform(generator); });
    return model.State();
}

void ExpectSameRuns(const std::vector<Case>& boxes, unsigned seeds)
{
    for (const Case& box : boxes) {
        for (unsigned seed = 1; seed <= seeds; ++seed) {
            SCOPED_TRACE(testing::Message() << box.discs << " discs of radius " << box.radius << " in "
                                            << box.width << " x " << box.height << ", seed " << seed);
            ExpectSameRun(RandomBox(box, seed), box.shares, box.ticks);
            if (testing::Test::HasFatalFailure())
                return;
        }
    }
}

} // namespace

TEST(EngineEqualsAllPairs, InBoxesOfEveryShape)
{
    ExpectSameRuns(
        {
            {30, 10, 400, 400, 15, {50, 50}, 2000},
            {40, 14, 700, 400, 50, {100, 0}, 2000},
            {40, 6, 400, 700, 5, {0, 100}, 2000},
            {40, 12, 1000, 100, 31, {70, 30}, 2000}, // 100 high
            {40, 9, 100, 1000, 22, {30, 70}, 1000}, // 10,000 high
            {20, 7, 1, 2000, 22, {50, 50}, 500}, // 2,000,000 high
        },
        6);
}

TEST(EngineEqualsAllPairs, InBoxesThatAreTooSmallForTheirDiscs)
{
    ExpectSameRuns(
        {
            {100, 14, 2000, 80, 15, {50, 50}, 1000}, // 40 high: 61,575 of discs on 40,000
            {60, 14, 2000, 58, 9, {100, 100}, 1000}, // 29 high: a disc and a bit
            {60, 14, 1000, 20, 40, {50, 50}, 1000}, // 20 high: lower than a disc
            {60, 10, 1000, 10, 40, {50, 50}, 1000}, // as high as a radius
            {40, 400, 400, 400, 30, {50, 50}, 1000}, // all within reach of all
            {20, 600, 400, 400, 30, {50, 50}, 1000}, // wider than the box
        },
        2);
}

TEST(EngineEqualsAllPairs, WithAClassroomsNumbers)
{
    ExpectSameRuns(
        {
            {200, 10, 620, 540, 15, {50, 50}, 1500},
            {470, 10, 620, 540, 15, {50, 50}, 400},
            {470, 14, 300, 540, 50, {85, 20}, 300},
        },
        2);
}

TEST(EngineEqualsAllPairs, WithAThousandDiscs)
{
    ExpectSameRuns(
        {
            {1000, 6, 620, 540, 5, {50, 50}, 50},
            {1000, 10, 620, 540, 15, {50, 50}, 100},
            {1000, 14, 620, 540, 50, {50, 50}, 70},
            {1000, 14, 1200, 400, 26, {100, 100}, 50}, // 615,752 of discs on 333,333
        },
        1);
}

TEST(EngineEqualsAllPairs, WithDiscsInOnePlace)
{
    std::vector<Disc> discs;
    for (int i = 0; i < 50; ++i)
        discs.push_back(
            {.x = 500, .y = 500, .angle = 0.7 * i, .kind = static_cast<std::size_t>(i % 5), .speed = 1});

    ExpectSameRun(StateOf(discs), {50, 50}, 2000);
}

TEST(EngineEqualsAllPairs, WithDiscsInARowThatJustTouch)
{
    // 20 apart, in the corners of cells whatever their size.
    std::vector<Disc> discs;
    for (int i = 0; i < 49; ++i)
        discs.push_back(
            {.x = 20.0 * (i % 7) + 10, .y = 20.0 * (i / 7) + 10, .angle = kDown * i, .speed = 20});

    ExpectSameRun(StateOf(discs), {50, 50}, 2000);
}

TEST(EngineEqualsAllPairs, WithSpeedsThatCrossTheBoxInOneStep)
{
    ExpectSameRuns({{60, 10, 620, 540, 5000, {50, 50}, 1000}}, 3);
}

TEST(EngineEqualsAllPairs, WithColoursOfNoKind)
{
    ParticleState state = RandomBox({60, 14, 400, 400, 30, {}, 0}, 4);
    for (std::size_t i = 3; i < state.ParticleColor.size(); i += 3)
        state.ParticleColor[i] = 1234567;

    ExpectSameRun(state, {50, 50}, 1000);
}

} // namespace stoikal
