#pragma once

#include <QColor>
#include <QHash>
#include <QPixmap>
#include <QString>

namespace stoikal {

/// What an atom's disc looks like: its radius in logical pixels, its colour and
/// the symbol on it (which may be empty).
struct DiscLook {
    double radius = 0;
    QRgb colour = 0;
    QString symbol;

    bool operator==(const DiscLook& other) const = default;
};

size_t qHash(const DiscLook& look, size_t seed = 0);

/// Paints a disc with its centre in the middle of a square of `DiscSide` pixels.
/// Smooth: antialiased, with a slightly darker rim. Not smooth: each pixel has
/// either the disc's colour, the symbol's black or nothing, so that colours can
/// be read back.
void PaintDisc(QPainter& painter, const QPointF& centre, const DiscLook& look, bool smooth);

/// Ready-made pictures of discs, one for each look, sharp at one device pixel
/// ratio: copying one costs a tenth of painting it.
class DiscPictures
{
public:
    /// The picture of a disc; its centre is in the middle. The picture is kept.
    const QPixmap& Picture(const DiscLook& look, double devicePixelRatio);

private:
    QHash<DiscLook, QPixmap> m_pictures;
    double m_devicePixelRatio = 0;
};

} // namespace stoikal
