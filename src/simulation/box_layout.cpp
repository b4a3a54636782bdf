#include "simulation/box_layout.h"

namespace stoikal {
namespace {

constexpr Twips kEdge = 120;
constexpr Twips kGap = 60;
constexpr Twips kUnderNumbers = 100;
constexpr Twips kBelowBox = 700;

} // namespace

std::optional<BoxLayout> LayOutBox(const BoxLayoutInput& in)
{
    const Twips half = in.width / 2;
    const Twips top = in.numbersBottom + kUnderNumbers;
    const Twips height = in.height - kBelowBox - in.numbersBottom - kUnderNumbers;
    const Twips milieuWidth = half - 180 - in.temperature.width();
    const Twips thermoHeight = height - in.temperature.height() - kGap;
    const Twips plotLeft = kEdge + milieuWidth + kGap + in.temperature.width() + kGap + in.labelsWidth;
    const Twips plotWidth = in.width - kEdge - plotLeft;
    const Twips plotHeight = height - in.timesHeight;
    if (half - 240 - in.thermoWidth <= 0)
        return std::nullopt;
    // No picture without area, no scale without length.
    if (milieuWidth <= 0 || thermoHeight <= 240 || plotWidth <= 0 || plotHeight <= 0)
        return std::nullopt;

    BoxLayout out;
    out.milieu = {kEdge, top, milieuWidth, height};
    const Twips temperatureLeft = kEdge + milieuWidth + kGap;
    out.temperature = QRect(QPoint(temperatureLeft, top), in.temperature);
    const Twips thermoTop = top + in.temperature.height() + kGap;
    out.thermo = {temperatureLeft + (in.temperature.width() - in.thermoWidth) / 2, thermoTop, in.thermoWidth,
                  thermoHeight};
    out.cursor = {out.thermo.x() + (in.thermoWidth - in.cursorWidth) / 2, thermoTop + 120, in.cursorWidth,
                  thermoHeight - 240};
    out.waveLeft = out.thermo.x() + (in.thermoWidth - in.wave.width()) / 2;
    const Twips labelsLeft = temperatureLeft + in.temperature.width() + kGap;
    out.labels = {labelsLeft, top, in.labelsWidth, plotHeight};
    out.plot = {plotLeft, top, plotWidth, plotHeight};
    out.times = {plotLeft, top + plotHeight, plotWidth, in.timesHeight};
    out.zero = {labelsLeft, top + plotHeight, in.labelsWidth, in.zeroHeight};
    return out;
}

} // namespace stoikal
