#include "simulation/thermometer.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr float kSpeedRange = 45;
constexpr float kLeastSpeed = 5;
constexpr float kFirstSpeedAboveLeast = 10;

} // namespace

void Thermometer::LayOut(Twips scaleTop, Twips scaleHeight, Twips waveHeight)
{
    m_waveHalfHeight = waveHeight / 2;
    m_scaleTop = scaleTop;
    m_scaleBottom = scaleTop + scaleHeight;
    m_scaleHeight = scaleHeight;
    m_speedPerTwip = kSpeedRange / static_cast<float>(scaleHeight);
    MoveToSpeed(kFirstSpeedAboveLeast);
}

void Thermometer::MoveTo(Twips top)
{
    m_waveTop = std::clamp(top, m_scaleTop - m_waveHalfHeight, m_scaleBottom - m_waveHalfHeight);
}

void Thermometer::MoveToSpeed(float aboveLeast)
{
    // Upwards to the whole twip, so that the speed is not cut to the one below.
    auto fromBottom = static_cast<Twips>(std::ceil(aboveLeast / m_speedPerTwip));
    if (m_speedPerTwip * static_cast<float>(fromBottom) < aboveLeast)
        ++fromBottom;
    MoveTo(m_scaleBottom - m_waveHalfHeight - fromBottom);
}

void Thermometer::Drag(Twips y, Twips rememberedY)
{
    MoveTo(m_waveTop + y - rememberedY);
}

void Thermometer::Step(int steps)
{
    MoveToSpeed(ThermalSpeed() - kLeastSpeed + static_cast<float>(steps));
}

float Thermometer::ThermalSpeed() const
{
    const auto fromBottom = static_cast<float>(m_scaleHeight + m_scaleTop - m_waveTop - m_waveHalfHeight);
    return std::floor(m_speedPerTwip * fromBottom) + kLeastSpeed;
}

std::uint32_t ThermometerColour(int row, int height)
{
    const int blue = 255 * row / height;
    return static_cast<std::uint32_t>(255 - blue) | (static_cast<std::uint32_t>(blue) << 16U);
}

} // namespace stoikal
