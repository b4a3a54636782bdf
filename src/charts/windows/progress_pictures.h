#pragma once

#include "charts/histogram.h"
#include "charts/progress_curves.h"

#include <QColor>

namespace stoikal {

class PictureSurface;

/// The fixed colour of a slot's bar and curve.
QColor SlotColour(int slot);

/// Draws a histogram from nothing, at the size that the surface has now. The
/// separator is the decimal sign of the labels.
void PaintHistogram(PictureSurface& surface, const Histogram& histogram, QChar separator);

/// The same for the curves.
void PaintProgressCurves(PictureSurface& surface, const ProgressCurves& drawing, QChar separator);

} // namespace stoikal
