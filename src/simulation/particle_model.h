#pragma once

#include "simulation/neighbour_grid.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace stoikal {

/// The circle's constants, required as these decimals: not the machine's own.
constexpr double kPi = 3.141592653;
constexpr double kTwoPi = 6.283185306;
constexpr double kThreePi = 9.424777959;

/// The width of the box in box units. Its height is this divided by `AspectRatio`.
constexpr double kBoxWidth = 1000.0;

/// The kinds of particles of A + B = C + D, as places in `KindColor`,
/// `InitialCount` and `KindCount`.
constexpr std::size_t kKindA = 0;
constexpr std::size_t kKindB = 1;
constexpr std::size_t kKindC = 2;
constexpr std::size_t kKindD = 3;
constexpr std::size_t kKindSolvent = 4;
constexpr std::size_t kKinds = 5;

/// The fill colour of each kind, which is at the same time the kind itself: 24
/// bits, red in the low byte.
constexpr std::array<std::uint32_t, kKinds> KindColor{
    0x0000FF, // A: 255, 0, 0
    0xFF0000, // B: 0, 0, 255
    0x00C8FF, // C: 255, 200, 0
    0x64C800, // D: 0, 200, 100
    0x969696, // solvent: 150, 150, 150
};

/// The place of a colour in `KindColor`; `kKinds` for a colour of no kind.
constexpr std::size_t KindOfColor(std::uint32_t color)
{
    std::size_t kind = 0;
    while (kind < kKinds && KindColor[kind] != color)
        ++kind;
    return kind;
}

/// One number a kind, in the order A, B, C, D, solvent.
using KindNumbers = std::array<std::int32_t, kKinds>;

/// All numbers of the simulated box. The six arrays have the places 0 to
/// `ParticleCount`; place 0 is never used.
struct ParticleState {
    std::vector<double> ParticleX; ///< centre, 0 to 1000 from the left
    std::vector<double> ParticleY; ///< centre, from the top, downwards, same units
    std::vector<double> ParticleSpeed; ///< length of a step, box units a tick
    std::vector<double> ParticleAngle; ///< heading in radians, 0 along +x; may be negative
    std::vector<std::uint32_t> ParticleColor; ///< an entry of `KindColor`: the kind
    /// The colour with which the disc stands in the last picture. A disc that
    /// reacted shows its new colour one tick later.
    std::vector<std::uint32_t> DrawnColor;

    KindNumbers InitialCount{}; ///< particles asked for
    KindNumbers KindCount{}; ///< particles at present
    std::int16_t ParticleCount = 0; ///< N, the sum of `InitialCount` at the last placement
    std::int32_t ParticleRadius = 10; ///< of every disc, box units
    double AspectRatio = 1.0; ///< width of the box divided by its height
    float ThermalSpeed = 0.0F; ///< speed given at placement, 5 to 50; the layout sets it first

    std::int32_t ForwardCollisions = 0; ///< pairs A with B met
    std::int32_t ForwardEffective = 0; ///< of these the pairs that reacted
    std::int32_t ReverseCollisions = 0; ///< pairs C with D met
    std::int32_t ReverseEffective = 0; ///< of these the pairs that reacted

    /// Y_MAX, the lower edge of the box in box units.
    double BoxHeight() const { return kBoxWidth / AspectRatio; }
};

/// The share of effective collisions in per cent, 0 to 100: of A with B, of C with D.
struct EffectiveShares {
    int forward = 50;
    int reverse = 50;
};

/// The reversible reaction A + B = C + D as hard discs in a closed flat box.
/// One step a tick; it knows no clock, no timer, no picture and no curve. The
/// window draws `State()`: for i from 1 to `ParticleCount` a disc of radius
/// `ParticleRadius` at (`ParticleX`, `ParticleY`) filled with `DrawnColor`, in
/// this order, on a scale from (0, 0) to (1000, `BoxHeight()`).
///
/// A tick costs about the same for each disc: only the discs near by are tested,
/// yet in the order and with the numbers of a loop over all pairs, bit for bit.
class ParticleModel
{
public:
    /// Uniform random numbers in [0, 1).
    using Uniform = std::function<double()>;

    /// The number of particles asked for, 0 or more; it acts at the next placement.
    void SetInitialCount(std::size_t kind, std::int32_t count);

    /// Box units a tick; it acts at the next placement.
    void SetThermalSpeed(float speed) { m_state.ThermalSpeed = speed; }

    /// Forgets all particles and puts `InitialCount` new ones into a box as wide
    /// and as high as the picture (both above 0, any unit). The kinds come in
    /// blocks of the index; places and headings are random, three numbers a
    /// particle: x, y, heading. The tallies of collisions stay. A picture without
    /// area, a radius below 1 or more than 32767 particles are a FatalFault.
    void PlaceParticles(double width, double height, std::int32_t radius, const Uniform& uniform);

    /// One step of every particle, in the order of the indices, with walls,
    /// collisions and reactions. Throws nothing short of a tally above 2^31 - 1.
    void AnimationTick(const EffectiveShares& shares);

    /// The four tallies of collisions back to 0.
    void ResetTallies();

    /// Goes on from these numbers. The six arrays must have `ParticleCount` + 1
    /// places and the radius be at least 1, else it is a FatalFault.
    void Restore(ParticleState state);

    const ParticleState& State() const { return m_state; }

private:
    void PrepareTicks();
    void MoveAll();
    void Reflect(std::size_t i, double right, double bottom);
    void TakeHeading(std::size_t i, double angle);
    void CountKinds();
    void Collide(std::size_t i, std::size_t j, const EffectiveShares& shares);
    void React(std::size_t i, std::size_t j, const EffectiveShares& shares);
    void Become(std::size_t particle, std::size_t kind);

    ParticleState m_state;
    // Derived from the state, so that a tick neither allocates nor computes the
    // sine of a heading that did not change.
    std::vector<double> m_cosines; ///< of `ParticleAngle`
    std::vector<double> m_sines;
    std::vector<std::uint8_t> m_kinds; ///< `KindOfColor` of `ParticleColor`
    double m_limit = 0.0; ///< two discs touch when their squared distance is below it
    NeighbourGrid m_grid;
};

} // namespace stoikal
