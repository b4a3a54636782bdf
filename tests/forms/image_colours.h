#pragma once

#include <QImage>
#include <set>

namespace stoikal {

/// All colours of a picture, as 0xAARRGGBB.
inline std::set<QRgb> ColoursOf(const QImage& image)
{
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixelColor(x, y).rgba());
    return colours;
}

} // namespace stoikal
