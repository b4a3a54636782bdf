#include "all_pairs_tick.h"

#include <cmath>

namespace stoikal {
namespace {

void TakeOffOneTurn(double& angle)
{
    if (angle > 6.283185306)
        angle = angle - 6.283185306;
}

void ChangeKind(ParticleState& state, std::size_t particle, std::size_t kind)
{
    --state.KindCount.at(KindOfColor(state.ParticleColor[particle]));
    ++state.KindCount.at(kind);
    state.ParticleColor[particle] = KindColor[kind];
}

void ForwardPair(ParticleState& state, std::size_t i, std::size_t j, int share)
{
    ++state.ForwardCollisions;
    const double p
        = std::nearbyint(static_cast<double>(state.ForwardEffective) / state.ForwardCollisions * 100);
    if (p < share) {
        ++state.ForwardEffective;
        ChangeKind(state, i, kKindC);
        ChangeKind(state, j, kKindD);
    }
}

void ReversePair(ParticleState& state, std::size_t i, std::size_t j, int share)
{
    ++state.ReverseCollisions;
    const double p
        = std::nearbyint(static_cast<double>(state.ReverseEffective) / state.ReverseCollisions * 100);
    if (p < share) {
        ++state.ReverseEffective;
        ChangeKind(state, i, kKindA);
        ChangeKind(state, j, kKindB);
    }
}

void DecideReaction(ParticleState& state, std::size_t i, std::size_t j, const EffectiveShares& shares)
{
    const std::uint32_t ki = state.ParticleColor[i];
    const std::uint32_t kj = state.ParticleColor[j];
    const std::uint32_t a = KindColor[kKindA];
    const std::uint32_t b = KindColor[kKindB];
    const std::uint32_t c = KindColor[kKindC];
    const std::uint32_t d = KindColor[kKindD];
    if (ki == kj)
        return;
    if (ki == a || ki == b) {
        if ((ki == a && kj == b) || (ki == b && kj == a))
            ForwardPair(state, i, j, shares.forward);
    } else if ((ki == c && kj == d) || (ki == d && kj == c)) {
        ReversePair(state, i, j, shares.reverse);
    }
}

} // namespace

void AllPairsTick(ParticleState& state, const EffectiveShares& shares)
{
    const double r = state.ParticleRadius;
    const double yMax = 1000 / state.AspectRatio;
    state.KindCount.fill(0);
    for (std::size_t i = 1; i <= static_cast<std::size_t>(state.ParticleCount); ++i) {
        double xn = state.ParticleX[i] + state.ParticleSpeed[i] * std::cos(state.ParticleAngle[i]);
        double yn = state.ParticleY[i]
            + state.ParticleSpeed[i] * std::sin(state.ParticleAngle[i]) / state.AspectRatio;
        if (xn <= r) {
            xn = r;
            state.ParticleAngle[i] = 3.141592653 - state.ParticleAngle[i];
            TakeOffOneTurn(state.ParticleAngle[i]);
        }
        if (xn >= 1000 - r) {
            xn = 1000 - r;
            state.ParticleAngle[i] = 9.424777959 - state.ParticleAngle[i];
            TakeOffOneTurn(state.ParticleAngle[i]);
        }
        if (yn <= r) {
            yn = r;
            state.ParticleAngle[i] = 3.141592653 / 2 - (state.ParticleAngle[i] - 9.424777959 / 2);
            TakeOffOneTurn(state.ParticleAngle[i]);
        }
        if (yn >= yMax - r) {
            yn = yMax - r;
            state.ParticleAngle[i] = -state.ParticleAngle[i];
            TakeOffOneTurn(state.ParticleAngle[i]);
        }
        state.DrawnColor[i] = state.ParticleColor[i];
        const std::size_t kind = KindOfColor(state.ParticleColor[i]);
        if (kind < kKinds)
            ++state.KindCount.at(kind);
        for (std::size_t j = 1; j < i; ++j) {
            const double d = std::sqrt((state.ParticleY[j] - yn) * (state.ParticleY[j] - yn)
                                       + (state.ParticleX[j] - xn) * (state.ParticleX[j] - xn));
            if (d < 2 * r) {
                xn = xn + (2 * r - d) * std::cos(state.ParticleAngle[i]);
                yn = yn + (2 * r - d) * std::sin(state.ParticleAngle[i]);
                if (xn <= r)
                    xn = r;
                if (xn >= 1000 - r)
                    xn = 1000 - r;
                if (yn <= r)
                    yn = r;
                if (yn >= yMax - r)
                    yn = yMax - r;
                std::swap(state.ParticleAngle[i], state.ParticleAngle[j]);
                DecideReaction(state, i, j, shares);
            }
        }
        state.ParticleX[i] = xn;
        state.ParticleY[i] = yn;
    }
}

} // namespace stoikal
