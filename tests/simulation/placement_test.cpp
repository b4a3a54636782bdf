#include "base/fatal_fault.h"
#include "particle_fixture.h"
#include "simulation/particle_model.h"

#include <cmath>

namespace stoikal {
namespace {

/// Random numbers told beforehand, one after another.
class Script
{
public:
    explicit Script(std::vector<double> numbers)
        : m_numbers(std::move(numbers))
    {
    }
    double operator()() { return m_numbers.at(m_next++); }
    std::size_t Taken() const { return m_next; }

private:
    std::vector<double> m_numbers;
    std::size_t m_next = 0;
};

/// The middle of the random numbers that give the whole place `place` with the
/// radius 10: u x 991 + 10 = place + 0.5.
double Number(double place)
{
    return (place + 0.5 - 10.0) / 991.0;
}

/// Places discs of radius 10 in a square box at these points, with heading 0.
ParticleState Placed(const std::vector<std::pair<double, double>>& points)
{
    std::vector<double> numbers;
    for (const auto& [x, y] : points)
        numbers.insert(numbers.end(), {Number(x), Number(y), 0.0});
    Script script(numbers);
    ParticleModel model;
    model.SetInitialCount(kKindA, static_cast<std::int32_t>(points.size()));
    model.PlaceParticles(400.0, 400.0, 10, std::ref(script));
    return model.State();
}

/// Places one disc of radius 10 by these random numbers, with heading 0, in a box
/// twice as wide as high.
ParticleState PlacedAlone(double x, double y)
{
    Script script({x, y, 0.0});
    ParticleModel model;
    model.SetInitialCount(kKindA, 1);
    model.PlaceParticles(800.0, 400.0, 10, std::ref(script));
    return model.State();
}

/// Where a disc stands, in the order of placing from 1.
std::pair<double, double> PlaceOf(const ParticleState& state, std::size_t disc)
{
    return {state.ParticleX[disc], state.ParticleY[disc]};
}

/// Nothing but collisions: 7 and 5, of which 3 and 2 were effective.
ParticleState WithTallies()
{
    ParticleState state = StateOf({});
    state.ForwardCollisions = 7;
    state.ForwardEffective = 3;
    state.ReverseCollisions = 5;
    state.ReverseEffective = 2;
    return state;
}

double Middle()
{
    return 0.5;
}

} // namespace

TEST(KindColor, HasRedInTheLowByte)
{
    EXPECT_EQ(KindColor[kKindA], 255U);
    EXPECT_EQ(KindColor[kKindB], 255U * 65536U);
    EXPECT_EQ(KindColor[kKindC], 255U + 200U * 256U);
    EXPECT_EQ(KindColor[kKindD], 200U * 256U + 100U * 65536U);
    EXPECT_EQ(KindColor[kKindSolvent], 150U + 150U * 256U + 150U * 65536U);
}

TEST(KindColor, ColourOfNoKindHasNoPlace)
{
    EXPECT_EQ(KindOfColor(255U + 200U * 256U), kKindC);
    EXPECT_EQ(KindOfColor(0U), kKinds);
}

TEST(Placement, KindsComeInBlocksOfTheIndex)
{
    ParticleModel model;
    const KindNumbers counts{2, 1, 0, 1, 2};
    for (std::size_t kind = 0; kind < kKinds; ++kind)
        model.SetInitialCount(kind, counts.at(kind));

    model.PlaceParticles(400.0, 300.0, 10, Middle);

    const ParticleState& state = model.State();
    EXPECT_EQ(state.ParticleCount, 6);
    EXPECT_EQ(state.KindCount, counts);
    const std::vector<std::uint32_t> colours(state.ParticleColor.begin() + 1, state.ParticleColor.end());
    EXPECT_EQ(colours,
              (std::vector<std::uint32_t>{KindColor[0], KindColor[0], KindColor[1], KindColor[3],
                                          KindColor[4], KindColor[4]}));
    EXPECT_EQ(state.DrawnColor, state.ParticleColor);
}

TEST(Placement, TakesThreeNumbersAParticleForXThenYThenHeading)
{
    Script script({Number(300), Number(200), 0.25, Number(700), Number(600), 0.5});
    ParticleModel model;
    model.SetInitialCount(kKindB, 2);

    model.PlaceParticles(400.0, 400.0, 10, std::ref(script));

    EXPECT_EQ(script.Taken(), 6U);
    EXPECT_EQ(PlaceOf(model.State(), 1), std::pair(300.0, 200.0));
    EXPECT_EQ(model.State().ParticleAngle[1], 1.5707963265); // 0.25 x 6.283185306
    EXPECT_EQ(PlaceOf(model.State(), 2), std::pair(700.0, 600.0));
    EXPECT_EQ(model.State().ParticleAngle[2], 3.141592653);
}

TEST(Placement, DividesTheWholeYByTheRatioWithoutRounding)
{
    const ParticleState state = PlacedAlone(Number(300), Number(301));

    EXPECT_EQ(state.AspectRatio, 2.0);
    EXPECT_EQ(state.BoxHeight(), 500.0);
    EXPECT_EQ(PlaceOf(state, 1), std::pair(300.0, 150.5));
}

TEST(Placement, RangeEndsARadiusTooLateAndTheClampTakesTheRest)
{
    // floor(0.9999 x 991 + 10) = floor(1000.9009) = 1000, in y / 2 = 500.
    const ParticleState state = PlacedAlone(0.9999, 0.9999);

    EXPECT_EQ(PlaceOf(state, 1), std::pair(990.0, 490.0));
}

TEST(Placement, RangeBeginsAtTheRadius)
{
    // In y the radius is divided by 2 as well: 5, clamped to 10.
    const ParticleState state = PlacedAlone(0.0, 0.0);

    EXPECT_EQ(PlaceOf(state, 1), std::pair(10.0, 10.0));
}

TEST(Placement, MovesATouchingDiscByTheOddAngle)
{
    const ParticleState state = Placed({{500, 500}, {510, 500}});

    // a = arctan(10 / 500 - 500) = arctan(-499.98), cos a = 1 / 499.981 = 0.002000076,
    // sin a = -499.98 / 499.981 = -0.999998; 20.2 of it from the first disc. The true
    // angle of the centres is 0 and would give (520.2, 500).
    EXPECT_NEAR(state.ParticleX[2], 500.0404015, 1e-6);
    EXPECT_NEAR(state.ParticleY[2], 479.8000404, 1e-6);
    EXPECT_EQ(PlaceOf(state, 1), std::pair(500.0, 500.0));
}

TEST(Placement, CountsAnExactContactAsTouching)
{
    // 12² + 16² = 20². a = arctan(12 / 516 - 500): straight up but for 0.04.
    const ParticleState state = Placed({{500, 500}, {512, 516}});

    EXPECT_NEAR(state.ParticleX[2], 500.04, 1e-3);
    EXPECT_NEAR(state.ParticleY[2], 479.80, 1e-3);
}

TEST(Placement, LeavesADiscThatDoesNotTouch)
{
    const ParticleState state = Placed({{500, 500}, {521, 500}});

    EXPECT_EQ(PlaceOf(state, 2), std::pair(521.0, 500.0));
}

TEST(Placement, GoesOnWithTheNextDiscFromTheMovedPlace)
{
    const ParticleState state = Placed({{500, 500}, {500, 470}, {505, 500}});

    // Off the first disc to (500.0404, 479.8); that touches the second disc, 9.8 away:
    // a = arctan(0.0404 / 479.8 - 470) = arctan(-469.9999), cos a = 0.00212766,
    // sin a = -0.99999774: (500 + 20.2 x 0.00212766, 470 - 20.2 x 0.99999774).
    EXPECT_NEAR(state.ParticleX[3], 500.04298, 1e-5);
    EXPECT_NEAR(state.ParticleY[3], 449.80005, 1e-5);
}

TEST(Placement, MakesOnePassAndLeavesOverlapsBehind)
{
    const ParticleState state = Placed({{500, 479}, {500, 500}, {505, 505}});

    // 26.5 from the first disc; moved off the second to (500.04, 479.80), which is
    // 0.8 from the first: not tested again.
    EXPECT_NEAR(state.ParticleX[3], 500.0404, 1e-4);
    EXPECT_NEAR(state.ParticleY[3], 479.8, 1e-4);
}

TEST(Placement, ClampsAMovedDiscAgain)
{
    const ParticleState state = Placed({{500, 12}, {505, 12}});

    // a = arctan(5 / 12 - 12) = arctan(-11.58333), cos a = 1 / 11.62642 = 0.0860110;
    // y = 12 - 20.2 x 0.9963 is above the box.
    EXPECT_NEAR(state.ParticleX[2], 501.73742, 1e-4);
    EXPECT_EQ(state.ParticleY[2], 10.0);
}

TEST(Placement, GivesTheSpeedOfThatMoment)
{
    ParticleModel model;
    model.SetInitialCount(kKindA, 1);
    model.SetThermalSpeed(15.0F);
    model.PlaceParticles(400.0, 400.0, 10, Middle);

    model.SetThermalSpeed(50.0F);

    EXPECT_EQ(model.State().ParticleSpeed[1], 15.0);
    model.PlaceParticles(400.0, 400.0, 10, Middle);
    EXPECT_EQ(model.State().ParticleSpeed[1], 50.0);
}

TEST(Placement, ForgetsTheParticlesOfBefore)
{
    ParticleModel model;
    model.SetInitialCount(kKindA, 30);
    model.PlaceParticles(400.0, 400.0, 14, Middle);
    model.SetInitialCount(kKindA, 0);
    model.SetInitialCount(kKindD, 2);

    model.PlaceParticles(400.0, 400.0, 6, Middle);

    EXPECT_EQ(model.State().ParticleCount, 2);
    EXPECT_EQ(model.State().ParticleRadius, 6);
    EXPECT_EQ(model.State().ParticleX.size(), 3U);
    EXPECT_EQ(model.State().KindCount, (KindNumbers{0, 0, 0, 2, 0}));
}

TEST(Placement, KeepsTheTalliesOfCollisions)
{
    ParticleModel model;
    model.Restore(WithTallies());

    model.PlaceParticles(400.0, 400.0, 10, Middle);

    EXPECT_EQ(model.State().ForwardCollisions, 7);
    EXPECT_EQ(model.State().ForwardEffective, 3);
    EXPECT_EQ(model.State().ReverseCollisions, 5);
    EXPECT_EQ(model.State().ReverseEffective, 2);
}

TEST(Placement, ResetSetsAllFourTalliesToZero)
{
    ParticleModel model;
    model.Restore(WithTallies());

    model.ResetTallies();

    EXPECT_EQ(model.State().ForwardCollisions, 0);
    EXPECT_EQ(model.State().ForwardEffective, 0);
    EXPECT_EQ(model.State().ReverseCollisions, 0);
    EXPECT_EQ(model.State().ReverseEffective, 0);
}

TEST(Placement, AnEmptyBoxTakesNoNumberAndTicks)
{
    Script script({});
    ParticleModel model;

    model.PlaceParticles(400.0, 400.0, 10, std::ref(script));
    model.AnimationTick({});

    EXPECT_EQ(script.Taken(), 0U);
    EXPECT_EQ(model.State().ParticleCount, 0);
    EXPECT_EQ(Total(model.State().KindCount), 0);
}

TEST(Placement, ABoxAsHighAsARadiusHoldsItsDiscsOnItsUpperEdge)
{
    // Y_MAX = 1000 x 10 / 1000 = 10: the last clamp sets y to 10 - 10 = 0. Two discs
    // at one x: the quotient counts as 0, a = arctan(0 - 0) = 0, x = 500 + 20.2.
    Script script({Number(500), Number(500), 0.0, Number(500), Number(500), 0.0});
    ParticleModel model;
    model.SetInitialCount(kKindA, 2);

    model.PlaceParticles(1000.0, 10.0, 10, std::ref(script));

    EXPECT_EQ(PlaceOf(model.State(), 1), std::pair(500.0, 0.0));
    EXPECT_DOUBLE_EQ(model.State().ParticleX[2], 520.2);
    EXPECT_EQ(model.State().ParticleY[2], 0.0);
}

TEST(Placement, RefusesAPictureWithoutAreaAndKeepsTheParticles)
{
    ParticleModel model;
    model.SetInitialCount(kKindA, 3);
    model.PlaceParticles(400.0, 400.0, 10, Middle);

    EXPECT_THROW(model.PlaceParticles(400.0, 0.0, 10, Middle), FatalFault);
    EXPECT_THROW(model.PlaceParticles(-1.0, 400.0, 10, Middle), FatalFault);
    EXPECT_THROW(model.PlaceParticles(400.0, std::nan(""), 10, Middle), FatalFault);
    EXPECT_THROW(model.PlaceParticles(400.0, 400.0, 0, Middle), FatalFault);

    EXPECT_EQ(model.State().ParticleCount, 3);
    EXPECT_EQ(model.State().AspectRatio, 1.0);
}

TEST(Placement, RefusesNumbersThatAreNone)
{
    ParticleModel model;

    EXPECT_THROW(model.SetInitialCount(kKindA, -1), FatalFault);
    // 20,000 + 20,000 is more than the 16 bits of the total.
    model.SetInitialCount(kKindA, 20000);
    model.SetInitialCount(kKindB, 20000);
    EXPECT_THROW(model.PlaceParticles(400.0, 400.0, 10, Middle), FatalFault);
    EXPECT_EQ(model.State().ParticleCount, 0);
}

TEST(Restore, RefusesArraysOfAnotherLengthAndABoxThatIsNone)
{
    ParticleModel model;
    ParticleState shortArray = StateOf({{500, 500}});
    shortArray.DrawnColor.pop_back();
    ParticleState noRadius = StateOf({{500, 500}});
    noRadius.ParticleRadius = 0;
    ParticleState noRatio = StateOf({{500, 500}});
    noRatio.AspectRatio = 0.0;

    EXPECT_THROW(model.Restore(shortArray), FatalFault);
    EXPECT_THROW(model.Restore(noRadius), FatalFault);
    EXPECT_THROW(model.Restore(noRatio), FatalFault);
}

} // namespace stoikal
