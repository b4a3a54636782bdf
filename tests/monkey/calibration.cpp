#include "calibration.h"

#include "base/number_text.h"
#include "virtual_time.h"

#include <QTextDocument>
#include <algorithm>
#include <vector>

namespace stoikal {

namespace {

/// What the work below takes in the optimised program: the median of 20 measurements
/// on a processor of 2 GHz.
constexpr double kPlainMs = 12.0;
constexpr int kMeasurements = 9;
constexpr int kNumbers = 10000;
constexpr int kParagraphs = 190;

/// About half of it is our own, numbers that are written and read, and half the
/// toolkit's, a text that is laid out: sanitizers watch the one and not the other.
double MsOfTheWork()
{
    const double before = virtual_time::ProcessorMs();
    double sum = 0;
    for (int i = 0; i < kNumbers; ++i)
        sum += ReadNumber(FormatMask(i * 0.37, u"#0.00", QLatin1Char('.')));
    QTextDocument text;
    text.setHtml(
        QStringLiteral("<p>H<sub>2</sub>O et <b>CO<sub>2</sub></b> se forment.</p>").repeated(kParagraphs));
    sum += text.size().height();
    return sum > 0 ? virtual_time::ProcessorMs() - before : 0;
}

} // namespace

double SlownessHere()
{
    std::vector<double> measured(kMeasurements);
    std::generate(measured.begin(), measured.end(), MsOfTheWork);
    std::nth_element(measured.begin(), measured.begin() + kMeasurements / 2, measured.end());
    return std::max(1.0, measured[kMeasurements / 2] / kPlainMs);
}

} // namespace stoikal
