#include "base/settings_store.h"
#include "equation_files/equation_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstring>

using namespace stoikal;

namespace {

constexpr int kLines = 100000;

/// A file of 100,000 lines, every tenth of them a comment.
const QString& LargeFile()
{
    static QTemporaryDir folder;
    static const QString path = [] {
        const QString name = folder.filePath(QStringLiteral("Grand.Equ"));
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly))
            std::abort();
        for (int i = 0; i < kLines; ++i)
            file.write(i % 10 == 0 ? "' une ligne de commentaire\r\n"
                                   : "CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2\r\n");
        return name;
    }();
    return path;
}

void FirstPassOverFile(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto file = EquationFile::Open(LargeFile());
        benchmark::DoNotOptimize(file->Pass().equationCount);
    }
}
BENCHMARK(FirstPassOverFile)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The peer as a user would run it.
void WcAsProcess(benchmark::State& state)
{
    const QByteArray command = "wc -l '" + QFile::encodeName(LargeFile()) + "' >/dev/null";
    for ([[maybe_unused]] auto _ : state) {
        if (std::system(command.constData()) != 0)
            state.SkipWithError("wc failed");
    }
}
BENCHMARK(WcAsProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The peer without its process: reading the file and looking for line ends.
void CountLineEnds(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        QFile file(LargeFile());
        if (!file.open(QIODevice::ReadOnly))
            state.SkipWithError("no file");
        const QByteArray bytes = file.readAll();
        int lines = 0;
        const char* place = bytes.constData();
        const char* const end = place + bytes.size();
        while ((place = static_cast<const char*>(std::memchr(place, '\n', static_cast<size_t>(end - place))))
               != nullptr) {
            ++lines;
            ++place;
        }
        benchmark::DoNotOptimize(lines);
    }
}
BENCHMARK(CountLineEnds)->Unit(benchmark::kMillisecond)->UseRealTime();

void ReadASetting(benchmark::State& state)
{
    QTemporaryDir folder;
    SettingsStore store;
    const QString path = folder.filePath(QStringLiteral("ConfEQU_dupont.ini"));
    for (int i = 0; i < 30; ++i) {
        if (!store.WriteSetting(path, QStringLiteral("Options"), QStringLiteral("Key %1").arg(i),
                                QStringLiteral("%1").arg(i))) {
            state.SkipWithError("the settings cannot be written");
            return;
        }
    }
    const QString section = QStringLiteral("Options");
    const QString key = QStringLiteral("Key 17");
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(store.ReadSetting(path, section, key));
}
BENCHMARK(ReadASetting)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
