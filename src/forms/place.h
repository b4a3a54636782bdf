#pragma once

#include "base/twips.h"

#include <QPoint>
#include <QRect>

class QWidget;

namespace stoikal {

class Screen;

/// Moves a window to a place in twips from the corner of the work area, and
/// back into the work area when some of it would lie outside.
void PlaceWindow(QWidget& window, const Screen& screen, Twips left, Twips top);

/// Where a window stands, in twips from the corner of the work area.
QPoint PlaceOf(const QWidget& window, const Screen& screen);

/// The rectangle moved, not resized, into the area; one that is larger than the
/// area keeps its upper left corner inside.
QRect MovedInto(const QRect& rectangle, const QRect& area);

} // namespace stoikal
