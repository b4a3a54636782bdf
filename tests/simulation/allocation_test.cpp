#include "particle_fixture.h"
#include "simulation/particle_model.h"

#include <cstdlib>
#include <new>
#include <random>

namespace {

int allocations = 0;

} // namespace

// All of this program's memory passes here and is counted.
void* operator new(std::size_t size)
{
    ++allocations;
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace stoikal {

TEST(Tick, AsksForNoMemory)
{
    ParticleModel model;
    for (const std::size_t kind : {kKindA, kKindB, kKindC, kKindD, kKindSolvent})
        model.SetInitialCount(kind, 60);
    model.SetThermalSpeed(15.0F);
    std::mt19937_64 generator(3);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    model.PlaceParticles(620.0, 540.0, 10, [&] { return uniform(generator); });
    const int before = allocations;
    ASSERT_GT(before, 0);

    for (int tick = 0; tick < 200; ++tick)
        model.AnimationTick({50, 50});

    EXPECT_EQ(allocations, before);
    EXPECT_GT(model.State().ForwardEffective, 0);
}

} // namespace stoikal
