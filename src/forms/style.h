#pragma once

class QWidget;

namespace stoikal {

/// The one look of all windows: Qt's Fusion style with the house's palette, or
/// a dark one when the desktop is dark; and the one way of pressing a button by
/// Enter. Called once, behind the making of the
/// application object and before the first window.
void ApplyStyle();

/// Keeps a window on light paper whatever the desktop's palette is: exercise
/// bands and drawings carry fixed colours.
void StayOnPaper(QWidget& window);

} // namespace stoikal
