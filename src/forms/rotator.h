#pragma once

#include <QString>
#include <cstdint>

namespace stoikal {

class PictureSurface;

/// Prints a text at any angle on a drawing surface: at its current position, in
/// its font and its ink. Attach the surface, set the angle, set the surface's
/// font and position, then call `Label`. Nothing is kept from one text to the next.
class Rotator final
{
public:
    /// Attaches a surface, which must outlive the use of it, and reads its
    /// scale. The surface's scale stays as it was.
    void Device(PictureSurface& surface);

    /// The angle of the next text, in whole degrees, counter-clockwise.
    void angle(std::int16_t degrees) { m_angle = degrees; }
    std::int16_t angle() const { return m_angle; }

    /// Prints the text, its upper left corner at the surface's current position
    /// to the whole pixel, at the angle: at 90 it runs upwards from there. An
    /// empty text prints nothing. A surface must be attached.
    void Label(const QString& text) const;

    /// The name of a font as it is asked for: 32 characters at most.
    static QString FaceName(const QString& family);

private:
    int PixelX(double x) const;
    int PixelY(double y) const;

    PictureSurface* m_device = nullptr;
    float m_left = 0; ///< the user coordinates of the surface's corner
    float m_top = 0;
    float m_xFactor = 1; ///< pixels to a user unit; negative where the scale runs backwards
    float m_yFactor = 1;
    std::int16_t m_angle = 0;
};

} // namespace stoikal
