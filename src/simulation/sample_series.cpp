#include "simulation/sample_series.h"

#include "simulation/run_clock.h"

namespace stoikal {

void SampleSeries::Reset(const KindNumbers& typed)
{
    m_samples.fill({});
    m_samples[0].counts = typed;
    m_sampleIndex = 1;
}

bool SampleSeries::IsDue(double runSeconds, double gap) const
{
    return Tenths(runSeconds) - Tenths(At(m_sampleIndex - 1).seconds) >= Tenths(gap);
}

void SampleSeries::Store(const KindNumbers& counts, double runSeconds)
{
    m_samples.at(static_cast<std::size_t>(m_sampleIndex)) = {counts, runSeconds};
}

void SampleSeries::Advance()
{
    ++m_sampleIndex;
    if (m_sampleIndex < kCapacity)
        return;
    CompactSimHistory();
    m_sampleIndex /= 2;
}

void SampleSeries::CompactSimHistory()
{
    // What lies behind the first half is left, to be written over.
    for (std::size_t k = 0; k < kCapacity / 2; ++k)
        m_samples.at(k) = m_samples.at(2 * k);
}

} // namespace stoikal
