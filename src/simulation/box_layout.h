#pragma once

#include "base/twips.h"

#include <QRect>
#include <optional>

namespace stoikal {

/// What the layout of the simulation's window starts from, in twips.
struct BoxLayoutInput {
    Twips width = 0; ///< of the window
    Twips height = 0;
    Twips numbersBottom = 0; ///< lower edge of the frame with the numbers
    QSize temperature; ///< the label above the thermometer
    Twips thermoWidth = 0; ///< the coloured tube
    Twips cursorWidth = 0; ///< the scale in it
    QSize wave; ///< the cursor on the scale
    Twips labelsWidth = 0; ///< the strip of labels to the left of the plot
    Twips timesHeight = 0; ///< the strip of labels under it
    Twips zeroHeight = 0; ///< the corner between them
};

/// Where the box, the thermometer and the plot stand, in twips.
struct BoxLayout {
    QRect milieu;
    QRect temperature;
    QRect thermo;
    QRect cursor;
    Twips waveLeft = 0;
    QRect labels; ///< picY
    QRect plot; ///< picCourbe
    QRect times; ///< picX
    QRect zero; ///< picZero
};

/// The box in the left half, the thermometer beside it, the plot in the right
/// half. Nothing when the window is too small for it.
std::optional<BoxLayout> LayOutBox(const BoxLayoutInput& input);

} // namespace stoikal
