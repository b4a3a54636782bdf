#pragma once

#include "base/twips.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

class QWidget;

namespace stoikal {

class Screen;
class Settings;

/// What the desktop's frame adds to the size of a window, in pixels. It is known
/// only some time after the window is shown; until then that of the window which
/// owns it stands for it.
QSize FrameAround(const QWidget& window);

/// Moves a window to a place in twips from the corner of the work area, and
/// back into the work area when some of it, or of its frame, would lie outside.
void PlaceWindow(QWidget& window, const Screen& screen, Twips left, Twips top);

/// Where a window stands, in twips from the corner of the work area.
QPoint PlaceOf(const QWidget& window, const Screen& screen);

/// Puts a window back to the place that a section of the settings keeps ("Left",
/// "Top"), brought back into the work area; without one to the place given.
void RestorePlace(QWidget& window, const Screen& screen, const Settings& settings, const QString& section,
                  QPoint otherwise);

/// Puts a window over the middle of another, inside the work area, and no larger
/// than that with its frame.
void CentreOver(QWidget& window, const Screen& screen, const QWidget& other);

/// Keeps the place of a window in a section of the settings.
void KeepPlace(const QWidget& window, const Screen& screen, Settings& settings, const QString& section);

/// The size that a section of the settings keeps ("Width", "Height", in twips as the
/// place); without one the size given. No smaller than the window may be.
QSize RememberedSize(const QWidget& window, const Settings& settings, const QString& section, QSize fallback);

/// Keeps the place and the size of a window in a section of the settings.
void KeepPlaceAndSize(const QWidget& window, const Screen& screen, Settings& settings,
                      const QString& section);

/// The rectangle moved, not resized, into the area; one that is larger than the
/// area keeps its upper left corner inside.
QRect MovedInto(const QRect& rectangle, const QRect& area);

} // namespace stoikal
