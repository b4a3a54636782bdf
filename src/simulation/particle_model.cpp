#include "simulation/particle_model.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace stoikal {
namespace {

/// A touching disc is set this many times the two radii away at placement.
constexpr double kClearance = 1.01;

struct Point {
    double x;
    double y;
};

/// The place with the whole disc inside the box. The far edges are tested last:
/// a box lower than a disc leaves the disc above its lower edge.
Point Inside(Point point, double radius, double boxHeight)
{
    if (point.x <= radius)
        point.x = radius;
    if (point.x >= kBoxWidth - radius)
        point.x = kBoxWidth - radius;
    if (point.y <= radius)
        point.y = radius;
    if (point.y >= boxHeight - radius)
        point.y = boxHeight - radius;
    return point;
}

/// Where a new disc that touches `other` goes. The angle's odd grouping is the
/// rule: the difference in x is divided by y alone and the other's y is taken off
/// afterwards, so it is not the angle between the centres.
Point Cleared(Point point, Point other, double radius)
{
    // Straight above or below, the quotient is 0 at any height, and at y = 0 too:
    // a box just as high as a radius has its discs there.
    const double quotient = point.x == other.x ? 0.0 : (point.x - other.x) / point.y;
    const double angle = std::atan(quotient - other.y);
    const double away = 2.0 * radius * kClearance;
    return {other.x + away * std::cos(angle), other.y + away * std::sin(angle)};
}

double WithinOneTurn(double angle)
{
    return angle > kTwoPi ? angle - kTwoPi : angle;
}

/// The least square whose root, as the machine rounds it, is not below the reach:
/// "root < reach" is then "square < limit", without a root for each pair.
double LimitOfSquare(double reach)
{
    double limit = reach * reach;
    for (double below = std::nextafter(limit, 0.0); std::sqrt(below) >= reach;
         below = std::nextafter(limit, 0.0))
        limit = below;
    return limit;
}

/// Counts a pair that met and decides whether it reacts: not by chance but by the
/// running proportion, so that the share of effective collisions stays as near as
/// possible to the one asked for. At 50 %: 0 of 1 reacts, 1 of 2 does not, 1 of 3
/// (33) reacts.
bool PairReacts(std::int32_t& collisions, std::int32_t& effective, int share)
{
    collisions = Checked32(std::int64_t{collisions} + 1);
    // The machine rounds to nearest, ties to the even integer: 99.5 is 100.
    const double percent
        = std::nearbyint(static_cast<double>(effective) / static_cast<double>(collisions) * 100.0);
    if (!(percent < static_cast<double>(share)))
        return false;
    effective = Checked32(std::int64_t{effective} + 1);
    return true;
}

void ResizeArrays(ParticleState& state)
{
    const auto places = static_cast<std::size_t>(state.ParticleCount) + 1;
    state.ParticleX.assign(places, 0.0);
    state.ParticleY.assign(places, 0.0);
    state.ParticleSpeed.assign(places, 0.0);
    state.ParticleAngle.assign(places, 0.0);
    state.ParticleColor.assign(places, 0);
    state.DrawnColor.assign(places, 0);
}

bool ArraysFit(const ParticleState& state)
{
    const auto places = static_cast<std::size_t>(state.ParticleCount) + 1;
    return state.ParticleX.size() == places && state.ParticleY.size() == places
        && state.ParticleSpeed.size() == places && state.ParticleAngle.size() == places
        && state.ParticleColor.size() == places && state.DrawnColor.size() == places;
}

/// One pass over the discs placed before: a move that clears one of them is not
/// tested again against those passed already.
Point PlaceOne(const ParticleState& state, std::size_t i, const ParticleModel::Uniform& uniform)
{
    const double radius = state.ParticleRadius;
    const double boxHeight = state.BoxHeight();
    // The range ends a radius too late; the clamp takes what is beyond.
    const double range = kBoxWidth - radius + 1.0;
    const double x = std::floor(uniform() * range + radius);
    const double y = std::floor(uniform() * range + radius) / state.AspectRatio;
    Point point = Inside({x, y}, radius, boxHeight);
    for (std::size_t j = 1; j < i; ++j) {
        const Point other{state.ParticleX[j], state.ParticleY[j]};
        const double acrossY = point.y - other.y;
        const double acrossX = point.x - other.x;
        if (std::sqrt(acrossY * acrossY + acrossX * acrossX) <= 2.0 * radius)
            point = Inside(Cleared(point, other, radius), radius, boxHeight);
    }
    return point;
}

} // namespace

void ParticleModel::SetInitialCount(std::size_t kind, std::int32_t count)
{
    if (count < 0)
        throw FatalFault::WithoutFile(QStringLiteral("un nombre de particules est négatif (%1).").arg(count));
    m_state.InitialCount.at(kind) = count;
}

void ParticleModel::PlaceParticles(double width, double height, std::int32_t radius, const Uniform& uniform)
{
    if (!(width > 0.0) || !(height > 0.0))
        throw FatalFault::WithoutFile(QStringLiteral("le cadre des particules est sans surface."));
    ParticleState next = m_state;
    next.AspectRatio = width / height;
    next.ParticleRadius = radius;
    next.ParticleCount
        = Checked16(std::accumulate(next.InitialCount.begin(), next.InitialCount.end(), std::int64_t{0}));
    next.KindCount.fill(0);
    ResizeArrays(next);
    std::size_t i = 1;
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
        for (; next.KindCount[kind] < next.InitialCount[kind]; ++next.KindCount[kind], ++i) {
            const Point point = PlaceOne(next, i, uniform);
            next.ParticleX[i] = point.x;
            next.ParticleY[i] = point.y;
            next.ParticleSpeed[i] = static_cast<double>(next.ThermalSpeed);
            next.ParticleAngle[i] = uniform() * kTwoPi;
            next.ParticleColor[i] = KindColor[kind];
            next.DrawnColor[i] = KindColor[kind];
        }
    }
    Restore(std::move(next));
}

void ParticleModel::Restore(ParticleState state)
{
    if (state.ParticleCount < 0 || !ArraysFit(state))
        throw FatalFault::WithoutFile(
            QStringLiteral("les tableaux des particules n'ont pas la bonne taille."));
    if (state.ParticleRadius < 1)
        throw FatalFault::WithoutFile(
            QStringLiteral("le rayon des particules est nul (%1).").arg(state.ParticleRadius));
    if (!(state.AspectRatio > 0.0) || !std::isfinite(state.AspectRatio))
        throw FatalFault::WithoutFile(QStringLiteral("le cadre des particules est sans surface."));
    m_state = std::move(state);
    PrepareTicks();
}

void ParticleModel::PrepareTicks()
{
    const std::size_t places = m_state.ParticleAngle.size();
    m_cosines.resize(places);
    m_sines.resize(places);
    m_kinds.resize(places);
    for (std::size_t i = 0; i < places; ++i) {
        TakeHeading(i, m_state.ParticleAngle[i]);
        m_kinds[i] = static_cast<std::uint8_t>(KindOfColor(m_state.ParticleColor[i]));
    }
    const double reach = 2.0 * m_state.ParticleRadius;
    m_limit = LimitOfSquare(reach);
    m_grid.Prepare(kBoxWidth, m_state.BoxHeight(), reach, places - 1);
}

void ParticleModel::ResetTallies()
{
    m_state.ForwardCollisions = 0;
    m_state.ForwardEffective = 0;
    m_state.ReverseCollisions = 0;
    m_state.ReverseEffective = 0;
}

void ParticleModel::AnimationTick(const EffectiveShares& shares)
{
    // A disc's own step depends on no other disc of this tick: only later indices
    // can turn it, and they come after its step. So all steps come first.
    MoveAll();
    CountKinds();
    m_grid.Clear();
    const std::size_t places = m_state.ParticleX.size();
    for (std::size_t i = 1; i < places; ++i) {
        // The grid holds the lower indices only, where they stand in this tick.
        // The search begins anew at the place where each collision left the disc.
        std::size_t j = 0;
        while ((j = m_grid.FirstNear(j, m_state.ParticleX[i], m_state.ParticleY[i], m_limit)) != 0)
            Collide(i, j, shares);
        m_grid.Add(i, m_state.ParticleX[i], m_state.ParticleY[i]);
    }
}

void ParticleModel::MoveAll()
{
    const double radius = m_state.ParticleRadius;
    const double right = kBoxWidth - radius;
    const double bottom = m_state.BoxHeight() - radius;
    const std::size_t places = m_state.ParticleX.size();
    for (std::size_t i = 1; i < places; ++i) {
        // Units are square, yet the vertical step is divided by the ratio: in a wide
        // box discs are slower upwards than sideways. That is wanted.
        const double speed = m_state.ParticleSpeed[i];
        const double x = m_state.ParticleX[i] + speed * m_cosines[i];
        const double y = m_state.ParticleY[i] + speed * m_sines[i] / m_state.AspectRatio;
        m_state.ParticleX[i] = x;
        m_state.ParticleY[i] = y;
        if (x <= radius || x >= right || y <= radius || y >= bottom)
            Reflect(i, right, bottom);
    }
}

void ParticleModel::Reflect(std::size_t i, double right, double bottom)
{
    const double radius = m_state.ParticleRadius;
    double& x = m_state.ParticleX[i];
    double& y = m_state.ParticleY[i];
    double angle = m_state.ParticleAngle[i];
    if (x <= radius) {
        x = radius;
        angle = WithinOneTurn(kPi - angle);
    }
    if (x >= right) {
        x = right;
        angle = WithinOneTurn(kThreePi - angle);
    }
    if (y <= radius) {
        y = radius;
        // Equal to 2 pi less the angle but for rounding, which is part of the rule.
        angle = WithinOneTurn(kPi / 2.0 - (angle - kThreePi / 2.0));
    }
    if (y >= bottom) {
        y = bottom;
        angle = WithinOneTurn(-angle);
    }
    TakeHeading(i, angle);
}

void ParticleModel::TakeHeading(std::size_t i, double angle)
{
    m_state.ParticleAngle[i] = angle;
    m_cosines[i] = std::cos(angle);
    m_sines[i] = std::sin(angle);
}

void ParticleModel::CountKinds()
{
    m_state.DrawnColor = m_state.ParticleColor;
    // The last place takes the discs of a colour that is no kind.
    std::array<std::int32_t, kKinds + 1> counts{};
    const std::size_t places = m_kinds.size();
    for (std::size_t i = 1; i < places; ++i)
        ++counts[m_kinds[i]];
    std::copy_n(counts.begin(), kKinds, m_state.KindCount.begin());
}

void ParticleModel::Collide(std::size_t i, std::size_t j, const EffectiveShares& shares)
{
    const double acrossX = m_state.ParticleX[j] - m_state.ParticleX[i];
    const double acrossY = m_state.ParticleY[j] - m_state.ParticleY[i];
    const double radius = m_state.ParticleRadius;
    const double push = 2.0 * radius - std::sqrt(acrossX * acrossX + acrossY * acrossY);
    // Onward along its own heading, not along the line of the centres; a disc
    // pushed into a wall stops there and turns back at its next step.
    const Point pushed{m_state.ParticleX[i] + push * m_cosines[i], m_state.ParticleY[i] + push * m_sines[i]};
    const Point inside = Inside(pushed, radius, m_state.BoxHeight());
    m_state.ParticleX[i] = inside.x;
    m_state.ParticleY[i] = inside.y;
    std::swap(m_state.ParticleAngle[i], m_state.ParticleAngle[j]);
    std::swap(m_cosines[i], m_cosines[j]);
    std::swap(m_sines[i], m_sines[j]);
    React(i, j, shares);
}

void ParticleModel::React(std::size_t i, std::size_t j, const EffectiveShares& shares)
{
    const auto meet = [&](std::size_t one, std::size_t other) {
        return (m_kinds[i] == one && m_kinds[j] == other) || (m_kinds[i] == other && m_kinds[j] == one);
    };
    if (meet(kKindA, kKindB)) {
        if (PairReacts(m_state.ForwardCollisions, m_state.ForwardEffective, shares.forward)) {
            Become(i, kKindC);
            Become(j, kKindD);
        }
    } else if (meet(kKindC, kKindD)) {
        if (PairReacts(m_state.ReverseCollisions, m_state.ReverseEffective, shares.reverse)) {
            Become(i, kKindA);
            Become(j, kKindB);
        }
    }
}

void ParticleModel::Become(std::size_t particle, std::size_t kind)
{
    --m_state.KindCount[m_kinds[particle]];
    ++m_state.KindCount[kind];
    m_state.ParticleColor[particle] = KindColor[kind];
    m_kinds[particle] = static_cast<std::uint8_t>(kind);
}

} // namespace stoikal
