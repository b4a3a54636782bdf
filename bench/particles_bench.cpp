#include "simulation/all_pairs_tick.h"
#include "simulation/particle_model.h"

#include <benchmark/benchmark.h>

#include <random>

using namespace stoikal;

namespace {

/// The radius that fills about the same share of the box with so many discs.
std::int32_t RadiusFor(std::int64_t discs)
{
    switch (discs) {
    case 100:
        return 32;
    case 300:
        return 18;
    case 3000:
        return 6;
    case 10000:
        return 3;
    default:
        return 10;
    }
}

/// Discs of all kinds that fill 31 % of the box at every number: the height of the
/// box makes up for the radius being a whole number. A step is as long as at the
/// first position of the thermometer, in radii.
ParticleModel Box(std::int64_t discs)
{
    const std::int32_t radius = RadiusFor(discs);
    ParticleModel model;
    const auto tenth = static_cast<std::int32_t>(discs / 10);
    model.SetInitialCount(kKindA, 4 * tenth);
    model.SetInitialCount(kKindB, 3 * tenth);
    model.SetInitialCount(kKindC, tenth);
    model.SetInitialCount(kKindD, tenth);
    model.SetInitialCount(kKindSolvent, tenth);
    model.SetThermalSpeed(1.5F * static_cast<float>(radius));
    std::mt19937_64 generator(20); // Any number: the same box in every run.
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    const double height = static_cast<double>(discs) * radius * radius / 100.0;
    model.PlaceParticles(1000.0, height, radius, [&] { return uniform(generator); });
    // The overlaps of the start part in the first ticks.
    for (int tick = 0; tick < 50; ++tick)
        model.AnimationTick({});
    return model;
}

void EngineTick(benchmark::State& state)
{
    ParticleModel model = Box(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        model.AnimationTick({});
        benchmark::DoNotOptimize(model.State().ParticleX.data());
        benchmark::ClobberMemory();
    }
    state.SetComplexityN(state.range(0));
    state.counters["discs"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                 benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(EngineTick)
    ->Arg(100)
    ->Arg(300)
    ->Arg(1000)
    ->Arg(3000)
    ->Arg(10000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

/// The same ticks by the loop over all pairs, built with the same options.
void AllPairs(benchmark::State& state)
{
    ParticleState particles = Box(state.range(0)).State();
    for ([[maybe_unused]] auto _ : state) {
        AllPairsTick(particles, {});
        benchmark::DoNotOptimize(particles.ParticleX.data());
        benchmark::ClobberMemory();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AllPairs)
    ->Arg(100)
    ->Arg(300)
    ->Arg(1000)
    ->Arg(3000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oNSquared);

} // namespace

BENCHMARK_MAIN();
