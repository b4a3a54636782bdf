#include "chemistry/formula.h"
#include "chemistry/windows/frm_tableau_periodique.h"
#include "window_bench.h"

#include <QApplication>
#include <QImage>
#include <QResizeEvent>

using namespace stoikal;

namespace {

/// The periodic table of a large screen: every cell placed and painted.
void PeriodicTableLaidOutAndPainted(benchmark::State& state)
{
    constexpr QSize kScreen(1920, 1080);
    frmTableauPeriodique window(nullptr);
    window.resize(kScreen);
    window.show();
    QImage screen(kScreen, QImage::Format_ARGB32_Premultiplied);
    for ([[maybe_unused]] auto _ : state) {
        QResizeEvent resized(kScreen, QSize());
        QCoreApplication::sendEvent(&window, &resized);
        window.render(&screen);
    }
}
BENCHMARK(PeriodicTableLaidOutAndPainted)->Unit(benchmark::kMillisecond);

void MolarMassOfFortyCharacters(benchmark::State& state)
{
    const QString formula = QStringLiteral("K3[Fe(CN)6]Ca3(PO4)2(NH4)2Cr2O7Fe2(PO4)3");
    const UnknownAtomReport report = [](const QString&) {};
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(MolarMass(formula, report).gramsPerMole);
    state.counters["characters"] = static_cast<double>(formula.size());
}
BENCHMARK(MolarMassOfFortyCharacters)->Unit(benchmark::kNanosecond);

} // namespace

int main(int argc, char** argv)
{
    return stoikal::RunWindowBenchmarks(argc, argv);
}
