#pragma once

#include "charts/chart_scale.h"
#include "charts/reaction_levels.h"

#include <array>
#include <optional>
#include <vector>

namespace stoikal {

/// One species of the histogram. Levels are in units of the vertical axis.
struct Bar {
    int slot = 0;
    double left = 0; ///< species stand 1 apart, the first between 0 and 1
    double right = 0;
    std::optional<double> initial; ///< the level of a reactant at the beginning
    double present = 0;
    QString label;
};

/// The histogram of the species at one progress, before anything is painted.
struct Histogram {
    AxisScale scale;
    std::vector<Bar> bars; ///< the slots in use, reactants first
    QString verticalTitle;
    QString horizontalTitle;
    std::array<QString, 2> heading;
};

/// The histogram of a table at a progress in mol. A reactant that is used up has
/// the level 0.
Histogram HistogramAt(const ProgressTable& table, double progress, Ordinate ordinate);

} // namespace stoikal
