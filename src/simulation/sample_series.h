#pragma once

#include "simulation/particle_model.h"

#include <array>

namespace stoikal {

/// The history of a run: at most 1000 samples, whatever its length. When they are
/// full every other one is dropped, so that the period of sampling doubles by
/// itself. It knows no clock and draws nothing.
class SampleSeries
{
public:
    static constexpr int kCapacity = 1000;

    /// The numbers of all kinds at a time of the run.
    struct Sample {
        KindNumbers counts{};
        double seconds = 0;
    };

    /// Forgets all; sample 0 is the numbers typed, at time 0.
    void Reset(const KindNumbers& typed);

    /// The place of the next sample to be stored, 1 to 999; 1 after a reset.
    int SampleIndex() const { return m_sampleIndex; }

    /// Seconds between samples 0 and 1, which is the period of sampling: 0 until
    /// the first one is stored.
    double Gap() const { return At(1).seconds - At(0).seconds; }

    /// Whether that long, in seconds, has passed since the newest sample.
    bool IsDue(double runSeconds, double gap) const;

    /// Stores a sample at `SampleIndex`, which stays.
    void Store(const KindNumbers& counts, double runSeconds);

    /// Steps on from the sample stored; after number 999 the history is halved.
    void Advance();

    /// The sample at a place, 0 to 999.
    const Sample& At(int place) const { return m_samples.at(static_cast<std::size_t>(place)); }

private:
    void CompactSimHistory();

    std::array<Sample, kCapacity> m_samples{};
    int m_sampleIndex = 1;
};

} // namespace stoikal
