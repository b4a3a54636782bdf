#pragma once

#include "simulation/simulation_curves.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

inline constexpr KindNumbers kTyped{200, 150, 50, 20, 50};

/// Keeps what stands on the plot, and how often it was begun anew.
struct FakeBoard final : PlotBoard {
    PlotAxes axes;
    std::vector<CurveLine> lines;
    int axesDrawn = 0;

    void DrawAxes(const PlotAxes& newAxes) override
    {
        axes = newAxes;
        lines.clear();
        ++axesDrawn;
    }
    void DrawCurveLine(const CurveLine& line) override { lines.push_back(line); }
};

/// Curves with ten counts a second.
class Curves : public testing::Test
{
protected:
    void Start(const KindNumbers& typed, PlotQuantity quantity = PlotQuantity::ParticleNumbers)
    {
        curves.TakeNumbers(typed);
        curves.optY_Click(quantity);
        curves.StartRun(0, typed);
    }

    /// The tick of a tenth of a second, with the numbers after it.
    void Tick(std::int64_t tenths, const KindNumbers& counts)
    {
        curves.BeginTick(tenths);
        curves.EndTick(counts);
    }

    FakeBoard board;
    SimulationCurves curves{board, 10, u','};
};

} // namespace stoikal
