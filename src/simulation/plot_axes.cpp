#include "simulation/plot_axes.h"

#include "base/number_text.h"
#include "simulation/run_clock.h"

namespace stoikal {
namespace {

constexpr double kRoomAtEnd = 1.01;
constexpr int kUprightSteps = 10;

PlotScale ScaleFor(PlotQuantity quantity, double top, double timeMax)
{
    const double right = timeMax * kRoomAtEnd;
    if (quantity == PlotQuantity::Quotient)
        return {top * 1.01, -0.01 * top, right};
    const double margin = 0.02 * top;
    return {top + margin, -0.5 * margin, right};
}

QString LevelText(PlotQuantity quantity, double y, double step, QChar separator)
{
    if (quantity == PlotQuantity::ParticleNumbers)
        return PlainNumber(y);
    return FormatMask(y, step < 1 ? QStringView(u"0.0") : QStringView(u"0"), separator);
}

} // namespace

PlotAxes AxesOf(PlotQuantity quantity, const VerticalScale& vertical, double timeMax, QChar separator)
{
    const bool isQuotient = quantity == PlotQuantity::Quotient;
    PlotAxes axes;
    axes.top = static_cast<double>(vertical.top);
    axes.end = timeMax;
    axes.scale = ScaleFor(quantity, axes.top, timeMax);
    const double lastLevel = axes.top + (isQuotient ? vertical.step / 2 : 0);
    for (int i = 0; i * vertical.step <= lastLevel; ++i) {
        const double y = i * vertical.step;
        axes.levels.push_back(y);
        if (i > 0)
            axes.levelLabels.push_back({y, LevelText(quantity, y, vertical.step, separator) + u' '});
    }
    for (int i = 0; i <= kUprightSteps; ++i) {
        const double x = i * timeMax / kUprightSteps;
        axes.times.push_back(x);
        if (i > 0)
            axes.timeLabels.push_back({x, PlainNumber(x)});
    }
    axes.levelTitle
        = isQuotient ? QStringLiteral("Quotient de réaction Qr") : QStringLiteral("Nombre de particules");
    axes.timeTitle = QStringLiteral("Temps (en s)");
    return axes;
}

PlotScale ScaleOfTypedNumbers(std::int32_t particleMax)
{
    return ScaleFor(PlotQuantity::ParticleNumbers, particleMax, kFirstTimeMax);
}

QString CurveReadOut(PlotQuantity quantity, double x, double y, QChar separator)
{
    const QString time = FormatMask(x, u"0", separator);
    if (quantity == PlotQuantity::ParticleNumbers)
        return QStringLiteral("Temps : %1 s ; Nombre de particules : %2")
            .arg(time, FormatMask(y, u"0", separator));
    const QStringView mask = y >= 2 ? QStringView(u"0") : QStringView(u"0.00");
    return QStringLiteral("Temps : %1 s ; Quotient de réaction : %2")
        .arg(time, FormatMask(y, mask, separator));
}

} // namespace stoikal
