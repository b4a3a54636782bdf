#pragma once

#include "charts/chart_scale.h"
#include "charts/reaction_levels.h"

#include <QPointF>
#include <array>
#include <optional>
#include <vector>

namespace stoikal {

/// The line of one species, in units of both axes: sloping from the beginning to
/// the present progress or, past the greatest one, to that, and level from there.
struct ProgressCurve {
    int slot = 0;
    QPointF from;
    QPointF to;
    std::optional<QPointF> levelTo;
    QString label;

    QPointF End() const { return levelTo.value_or(to); }
};

/// The curves of the species up to one progress, before anything is painted.
struct ProgressCurves {
    AxisScale horizontal;
    AxisScale vertical;
    std::vector<ProgressCurve> curves; ///< the slots in use, reactants first
    QString verticalTitle;
    QString horizontalTitle;
    std::array<QString, 2> heading;
};

/// The curves of a table up to a progress in mol, not negative.
ProgressCurves ProgressCurvesAt(const ProgressTable& table, double progress, Ordinate ordinate);

} // namespace stoikal
