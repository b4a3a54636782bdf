#pragma once

#include "simulation/particle_model.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <numeric>

namespace stoikal {

/// A disc as a test wants it. At rest and heading to the right unless told.
struct Disc {
    double x = 0.0;
    double y = 0.0;
    double angle = 0.0;
    std::size_t kind = kKindSolvent;
    double speed = 0.0;
};

/// Discs of radius 10 in a square box of 1000, numbered from 1.
inline ParticleState StateOf(const std::vector<Disc>& discs)
{
    ParticleState state;
    state.ParticleCount = static_cast<std::int16_t>(discs.size());
    state.ParticleRadius = 10;
    for (auto* const array : {&state.ParticleX, &state.ParticleY, &state.ParticleSpeed, &state.ParticleAngle})
        array->push_back(0.0);
    state.ParticleColor.push_back(0);
    state.DrawnColor.push_back(0);
    for (const Disc& disc : discs) {
        state.ParticleX.push_back(disc.x);
        state.ParticleY.push_back(disc.y);
        state.ParticleSpeed.push_back(disc.speed);
        state.ParticleAngle.push_back(disc.angle);
        state.ParticleColor.push_back(KindColor.at(disc.kind));
        state.DrawnColor.push_back(KindColor.at(disc.kind));
        ++state.KindCount.at(disc.kind);
    }
    return state;
}

/// The state after one tick.
inline ParticleState Ticked(ParticleState state, const EffectiveShares& shares = {})
{
    ParticleModel model;
    model.Restore(std::move(state));
    model.AnimationTick(shares);
    return model.State();
}

inline ParticleState Ticked(const std::vector<Disc>& discs, const EffectiveShares& shares = {})
{
    return Ticked(StateOf(discs), shares);
}

inline std::int32_t Total(const KindNumbers& numbers)
{
    return std::accumulate(numbers.begin(), numbers.end(), 0);
}

/// A quarter of a turn as the headings have it: along +y, downwards.
constexpr double kDown = kPi / 2.0;

} // namespace stoikal
