#pragma once

#include "simulation/plot_scale.h"

#include <QChar>
#include <QString>
#include <vector>

namespace stoikal {

/// What the plot shows over the time: the option pair "Grandeur en ordonnées".
enum class PlotQuantity { ParticleNumbers, Quotient };

/// User coordinates of the plot: (0, top) at its upper left corner, (right, bottom)
/// at its lower right one. The labels beside it run from 0 to 5 across, those
/// under it from 5 down to 0.
struct PlotScale {
    double top = 1;
    double bottom = 0;
    double right = 1;
};

/// The far end of the coordinate across a strip of labels.
constexpr double kLabelStrip = 5;

/// A number at a grid line: y of a level line or x of an upright one.
struct PlotLabel {
    double at = 0;
    QString text;
};

/// All that stands on the plot before a curve does, in user coordinates.
struct PlotAxes {
    PlotScale scale;
    double top = 1; ///< Ymax, where the upright lines end
    double end = 1; ///< TimeMax, where the level lines end
    std::vector<double> levels;
    std::vector<double> times;
    std::vector<PlotLabel> levelLabels; ///< right edge at 5, centred on their line
    std::vector<PlotLabel> timeLabels; ///< centred on their line, at the upper edge
    QString levelTitle; ///< written upwards from x = 0.1, centred on the height
    QString timeTitle; ///< centred on the width, on the lower edge
};

/// Grid, labels and titles. `timeMax` in seconds; the separator is the system's
/// decimal sign.
PlotAxes AxesOf(PlotQuantity quantity, const VerticalScale& vertical, double timeMax, QChar separator);

/// The coordinates that the plot gets from numbers just typed, without a new
/// drawing: what a click on it reads until the axes are drawn again.
PlotScale ScaleOfTypedNumbers(std::int32_t particleMax);

/// The bubble over a curve at a place of the plot: time and value under the mouse.
QString CurveReadOut(PlotQuantity quantity, double x, double y, QChar separator);

} // namespace stoikal
