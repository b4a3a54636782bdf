#include "forms/colours.h"
#include "forms/disc_pictures.h"
#include "forms/filter_edit.h"
#include "forms/messages.h"
#include "forms/picture_surface.h"
#include "platform/qt_platform.h"
#include "simulation/windows/frm_simul_anim.h"
#include "window_bench.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTimer>
#include <QTimerEvent>
#include <QWindow>
#include <random>

using namespace stoikal;

namespace {

/// What a screen of 1920 x 1080 leaves to the window.
constexpr QSize kWindow(1920, 1010);

/// A tenth of a second passes between two looks.
class SteppingClock final : public Clock
{
public:
    std::int64_t Counter() const override { return ++m_counter; }
    std::int64_t CountsPerSecond() const override { return 10; }
    QDateTime Now() const override { return {}; }

private:
    mutable std::int64_t m_counter = 0;
};

class SameDice final : public Randomness
{
public:
    double Uniform() override { return m_uniform(m_generator); }

private:
    std::mt19937_64 m_generator{20};
    std::uniform_real_distribution<double> m_uniform{0.0, 1.0};
};

/// Counts how often a widget was really painted.
class PaintCounter final : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

/// The window with 1000 particles, running.
struct RunningWindow {
    RunningWindow()
    {
        window.resize(kWindow);
        window.show();
        while (!window.windowHandle()->isExposed())
            QCoreApplication::processEvents();
        box.installEventFilter(&paints);
        // With the 420 of the other kinds.
        window.findChild<FilterEdit*>(QStringLiteral("txtMol(4)"))->setText(QStringLiteral("580"));
        window.findChild<QAbstractButton*>(QStringLiteral("chkStart"))->setChecked(true);
        Paint();
    }

    /// One firing of the timer.
    void Tick()
    {
        QTimerEvent event(timer.timerId());
        QCoreApplication::sendEvent(&timer, &event);
    }

    /// What the event loop does next: layouts, and all that has to be drawn again.
    void Paint()
    {
        QCoreApplication::sendPostedEvents();
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&window, &request);
    }

    PaintCounter paints;
    SteppingClock clock;
    DesktopMessages messages;
    QtSound sound;
    QtClipboard clipboard;
    SameDice dice;
    frmSimulAnim window{{clock, messages, sound, clipboard, dice, QLatin1Char(',')}, nullptr};
    QTimer& timer = *window.findChild<QTimer*>(QStringLiteral("tmrAnim"));
    PictureSurface& box = *window.findChild<PictureSurface*>(QStringLiteral("picMilieu"));
};

/// A whole tick of the running window: particles, numbers, curves, and the drawing.
void TickWithDrawing(benchmark::State& state)
{
    RunningWindow running;
    running.paints.count = 0;
    for ([[maybe_unused]] auto _ : state) {
        running.Tick();
        running.Paint();
    }
    if (running.paints.count < state.iterations())
        state.SkipWithError("a tick was not painted");
    state.counters["discs"] = double(running.box.DiscCount());
    state.counters["samples"] = running.window.Curves().Samples().SampleIndex();
}
BENCHMARK(TickWithDrawing)->Unit(benchmark::kMicrosecond);

/// The same discs, ready made, copied to the same places and nothing else.
void CopyBarePictures(benchmark::State& state)
{
    RunningWindow running;
    for (int tick = 0; tick < 50; ++tick)
        running.Tick();
    const ParticleState& particles = running.window.Particles().State();
    const double pixelsPerUnit = running.box.width() / kBoxWidth;
    QImage screen(running.box.size(), QImage::Format_RGB32);
    DiscPictures pictures;
    for ([[maybe_unused]] auto _ : state) {
        QPainter painter(&screen);
        painter.fillRect(screen.rect(), Qt::white);
        for (std::size_t i = 1; i <= static_cast<std::size_t>(particles.ParticleCount); ++i) {
            const DiscLook look{
                particles.ParticleRadius * pixelsPerUnit, FromBgr(particles.DrawnColor[i]).rgb(), {}};
            const QPixmap& picture = pictures.Picture(look, 1);
            painter.drawPixmap(
                QPoint(static_cast<int>(particles.ParticleX[i] * pixelsPerUnit) - picture.width() / 2,
                       static_cast<int>(particles.ParticleY[i] * pixelsPerUnit) - picture.height() / 2),
                picture);
        }
    }
    state.counters["discs"] = double(particles.ParticleCount);
}
BENCHMARK(CopyBarePictures)->Unit(benchmark::kMicrosecond);

/// All curves of a full history drawn again, as when an axis grows.
void DrawFullHistoryAgain(benchmark::State& state)
{
    RunningWindow running;
    while (running.window.Curves().Samples().SampleIndex() < 999)
        running.Tick();
    auto* const numbers = running.window.findChild<QAbstractButton*>(QStringLiteral("optY(0)"));
    auto* const quotient = running.window.findChild<QAbstractButton*>(QStringLiteral("optY(1)"));
    running.Paint();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        quotient->setChecked(true);
        running.Paint();
        state.ResumeTiming();
        numbers->setChecked(true);
        running.Paint();
    }
}
BENCHMARK(DrawFullHistoryAgain)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    return stoikal::RunWindowBenchmarks(argc, argv);
}
