#include "forms/rotator.h"

#include "forms/picture_surface.h"

#include <algorithm>
#include <cmath>

namespace stoikal {

void Rotator::Device(PictureSurface& surface)
{
    m_device = &surface;
    const QPointF corner = surface.ToUser({0, 0});
    // A surface that has no room yet counts as one pixel.
    const int width = std::max(1, surface.width());
    const int height = std::max(1, surface.height());
    const QPointF opposite = surface.ToUser(QPointF(width, height));
    m_left = static_cast<float>(corner.x());
    m_top = static_cast<float>(corner.y());
    m_xFactor = static_cast<float>(width / (opposite.x() - corner.x()));
    m_yFactor = static_cast<float>(height / (opposite.y() - corner.y()));
}

int Rotator::PixelX(double x) const
{
    return static_cast<int>(
        std::nearbyint((x - static_cast<double>(m_left)) * static_cast<double>(m_xFactor)));
}

int Rotator::PixelY(double y) const
{
    return static_cast<int>(
        std::nearbyint((y - static_cast<double>(m_top)) * static_cast<double>(m_yFactor)));
}

QString Rotator::FaceName(const QString& family)
{
    constexpr qsizetype kLongest = 32;
    return family.left(kLongest);
}

void Rotator::Label(const QString& text) const
{
    Q_ASSERT(m_device != nullptr);
    if (text.isEmpty())
        return;
    QFont font = m_device->font();
    font.setFamily(FaceName(font.family()));
    const QPointF position = m_device->CurrentPosition();
    const QPointF pixel(PixelX(position.x()), PixelY(position.y()));
    m_device->DrawTurnedText(m_device->ToUser(pixel), text, m_device->ForeColour(), font, m_angle);
}

} // namespace stoikal
