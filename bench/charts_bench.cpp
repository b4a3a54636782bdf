#include "charts/windows/frm_histo_mol.h"
#include "charts/windows/progress_pictures.h"
#include "forms/picture_surface.h"
#include "platform/doors.h"
#include "window_bench.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QSlider>

using namespace stoikal;

namespace {

/// Each picture of a window that fills a screen of 1920 x 1080.
constexpr QSize kPicture(960, 880);

/// 2 KMnO4 + 5 H2C2O4 + 6 H{+} = 2 Mn{2+} + 10 CO2 + 8 H2O: all six slots.
ProgressTable SixSpecies()
{
    ProgressTable table;
    table.Molecule = {QStringLiteral("KMnO4"), QStringLiteral("H2C2O4"), QStringLiteral("H"),
                      QStringLiteral("Mn"),    QStringLiteral("CO2"),    QStringLiteral("H2O")};
    table.Charge = {0, 0, 1, 2, 0, 0};
    table.Coeff = {2, 5, 6, 2, 10, 8};
    table.MolarMass = {158, 90, 1, 55, 44, 18};
    table.InitialAmount = {0.2, 0.65, 0.7, 0, 0, 0};
    table.FinalAmount = {0, 0.15, 0.1, 0.2, 1, 0.8};
    table.Mass = {31.6, 58.5, 0.7, 11, 44, 14.4};
    table.Xmax = 0.1;
    return table;
}

/// A progress that changes from one turn to the next.
double Progress(int turn)
{
    return (turn % 100) / 1000.0;
}

QImage Screen(const QSize& size)
{
    return QImage(size, QImage::Format_ARGB32_Premultiplied);
}

/// Both pictures from the table to the screen.
void BothPictures(benchmark::State& state)
{
    const ProgressTable table = SixSpecies();
    PictureSurface histogram;
    PictureSurface curves;
    histogram.resize(kPicture);
    curves.resize(kPicture);
    QImage screen = Screen(kPicture);
    int turn = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double progress = Progress(++turn);
        PaintHistogram(histogram, HistogramAt(table, progress, Ordinate::Amount), QLatin1Char(','));
        PaintProgressCurves(curves, ProgressCurvesAt(table, progress, Ordinate::Amount), QLatin1Char(','));
        histogram.render(&screen);
        curves.render(&screen);
    }
}
BENCHMARK(BothPictures)->Unit(benchmark::kMicrosecond);

/// What a surface holds, painted straight by QPainter without any bookkeeping.
class BareDrawing
{
public:
    explicit BareDrawing(const PictureSurface& surface)
        : m_lines(surface.Drawn<PictureSurface::Line>())
        , m_boxes(surface.Drawn<PictureSurface::Box>())
        , m_texts(surface.Drawn<PictureSurface::Text>())
    {
        for (auto& line : m_lines) {
            line.from = surface.ToPixel(line.from).toPoint();
            line.to = surface.ToPixel(line.to).toPoint();
        }
        for (auto& box : m_boxes)
            box.box = QRectF(surface.ToPixel(box.box.topLeft()), surface.ToPixel(box.box.bottomRight()))
                          .normalized()
                          .toRect();
        for (auto& text : m_texts)
            text.place = surface.ToPixel(text.place).toPoint();
    }

    void Paint(QImage& screen) const
    {
        QPainter painter(&screen);
        painter.fillRect(screen.rect(), Qt::white);
        for (const auto& line : m_lines) {
            painter.setRenderHint(QPainter::Antialiasing,
                                  line.from.x() != line.to.x() && line.from.y() != line.to.y());
            painter.setPen(QPen(line.colour, line.width, line.style));
            painter.drawLine(line.from, line.to);
        }
        for (const auto& box : m_boxes) {
            if (box.rim <= 0) {
                painter.fillRect(box.box, box.colour);
                continue;
            }
            painter.setPen(QPen(box.colour, box.rim));
            painter.drawRect(box.box);
        }
        for (const auto& text : m_texts) {
            painter.setFont(text.font);
            painter.setPen(text.colour);
            painter.save();
            painter.translate(text.place);
            painter.rotate(-text.degrees);
            painter.drawText(QPointF(0, 10), text.text);
            painter.restore();
        }
    }

private:
    std::vector<PictureSurface::Line> m_lines;
    std::vector<PictureSurface::Box> m_boxes;
    std::vector<PictureSurface::Text> m_texts;
};

/// The peer: the same lines, boxes and texts by QPainter alone.
void BarePainter(benchmark::State& state)
{
    const ProgressTable table = SixSpecies();
    PictureSurface histogram;
    PictureSurface curves;
    histogram.resize(kPicture);
    curves.resize(kPicture);
    PaintHistogram(histogram, HistogramAt(table, 0.05, Ordinate::Amount), QLatin1Char(','));
    PaintProgressCurves(curves, ProgressCurvesAt(table, 0.05, Ordinate::Amount), QLatin1Char(','));
    const BareDrawing left(histogram);
    const BareDrawing right(curves);
    QImage screen = Screen(kPicture);
    for ([[maybe_unused]] auto _ : state) {
        left.Paint(screen);
        right.Paint(screen);
    }
}
BENCHMARK(BarePainter)->Unit(benchmark::kMicrosecond);

struct NoClipboard final : Clipboard {
    void SetText(const QString&) override { }
    void SetImage(const QImage&) override { }
};

/// One movement of the slider in the whole window, up to the painted screen.
void OneSliderStep(benchmark::State& state)
{
    const ProgressTable table = SixSpecies();
    NoClipboard clipboard;
    frmHistoMol window(table, {clipboard, QLatin1Char(',')}, nullptr);
    window.resize(1920, 1016);
    window.show();
    QApplication::processEvents();
    auto* const slider = window.findChild<QSlider*>(QStringLiteral("sldAnim"));
    int turn = 0;
    for ([[maybe_unused]] auto _ : state) {
        slider->setValue(++turn % 100);
        QApplication::processEvents();
    }
}
BENCHMARK(OneSliderStep)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    return stoikal::RunWindowBenchmarks(argc, argv);
}
