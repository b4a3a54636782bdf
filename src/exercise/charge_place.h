#pragma once

#include "base/twips.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

namespace stoikal {

/// Where the window of the charge totals opens, all in twips from the corner of
/// the work area: at its remembered place, else centred above the exercise;
/// never outside the work area, and off the exercise where the room allows it.
struct ChargePlaceInput {
    QString leftSetting;
    QString topSetting;
    QSize window;
    QRect exercise; ///< the exercise's window
    Twips usableWidth = 0; ///< work area less 50
    Twips usableHeight = 0; ///< work area less 750
};

QPoint ChargePlace(const ChargePlaceInput& input);

} // namespace stoikal
