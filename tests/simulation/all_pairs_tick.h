#pragma once

#include "simulation/particle_model.h"

namespace stoikal {

/// One tick as the rules tell it, step by step, with a loop over all pairs of
/// discs: slow and plain. What the engine computes is held against it, bit for bit.
void AllPairsTick(ParticleState& state, const EffectiveShares& shares);

} // namespace stoikal
