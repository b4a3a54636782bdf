#pragma once

#include <QPixmap>

class QWidget;

namespace stoikal {

/// A window as it stands, without a frame; what a window of another shape cuts off
/// is white paper.
QPixmap Grabbed(QWidget& window);

/// Is it the window that has the keyboard? Its title bar is coloured.
enum class InFront { Yes, No };

/// The same with the title bar that a desktop gives it, drawn by the program's own
/// style. A window that asked for no frame gets none; one of the main area has
/// its own, and the main window's when it fills that area.
QPixmap GrabbedWithFrame(QWidget& window, InFront inFront);

/// So far the frame of a window of the desktop stands out over its inside.
QMargins FrameMargins(const QWidget& window);

} // namespace stoikal
