#include "balancing/windows/frm_expert.h"
#include "balancing/windows/frm_search.h"
#include "base/settings_store.h"
#include "forms/messages.h"
#include "platform/qt_platform.h"
#include "window_bench.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

using namespace stoikal;

namespace {

constexpr int kFiles = 2000;
constexpr int kLines = 100;

/// 2,000 equation files of 100 lines; one line of each holds the molecule sought.
const QString& Folder()
{
    static QTemporaryDir folder;
    static const QString path = [] {
        for (int i = 0; i < kFiles; ++i) {
            QFile file(folder.filePath(QStringLiteral("Serie_%1.Equ").arg(i, 4, 10, QLatin1Char('0'))));
            if (!file.open(QIODevice::WriteOnly))
                std::abort();
            QByteArray text = "' Une série\r\n";
            for (int line = 1; line < kLines; ++line)
                text += line == 50 ? "KMnO4+HCl=KCl+MnCl2+Cl2/1,1,1,1,1\r\n" : "CH4+O2=CO2+H2O/1,2,1,2\r\n";
            file.write(text);
        }
        return folder.path();
    }();
    return path;
}

/// A window on the screen, over the real desktop and settings that are kept nowhere.
template <typename Window>
struct Shown {
    explicit Shown(const QString& equationFolder)
        : window({clock, dialogs, messages, settings, equationFolder}, nullptr)
    {
        window.resize(1000, 650);
        window.show();
    }

    QtClock clock;
    QtDialogs dialogs;
    DesktopMessages messages;
    SettingsStore store;
    QString none;
    Settings settings{store, none};
    Window window;
};

void SearchFolder(benchmark::State& state)
{
    Shown<frmSearch> shown(Folder());
    frmSearch& window = shown.window;
    window.findChild<QLineEdit*>(QStringLiteral("txtMolecule(0)"))->setText(QStringLiteral("KMnO4"));
    auto* const button = window.findChild<QPushButton*>(QStringLiteral("cmdSearch"));
    auto* const list = window.findChild<QPlainTextEdit*>(QStringLiteral("txtResult"));
    // The longest time in which the window answered nobody.
    QElapsedTimer sinceTurn;
    qint64 longestMs = 0;
    QTimer pulse;
    pulse.setInterval(0);
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        longestMs = std::max(longestMs, sinceTurn.elapsed());
        sinceTurn.restart();
    });
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        list->clear();
        QApplication::processEvents();
        pulse.start();
        sinceTurn.start();
        state.ResumeTiming();
        button->click();
        QApplication::processEvents();
        pulse.stop();
    }
    state.counters["longest_ms"] = static_cast<double>(longestMs);
}
BENCHMARK(SearchFolder)->Unit(benchmark::kMillisecond)->UseRealTime();

void GrepFolder(benchmark::State& state)
{
    const QByteArray command = "grep -rF KMnO4 '" + QFile::encodeName(Folder()) + "' >/dev/null";
    for ([[maybe_unused]] auto _ : state) {
        if (std::system(command.constData()) != 0)
            state.SkipWithError("grep failed");
    }
}
BENCHMARK(GrepFolder)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Two atoms for four molecules, typed and balanced in the shown window: the
/// coefficients are sought, the bar walks to its end, the list shows the result.
void SearchInShownWindow(benchmark::State& state)
{
    Shown<frmExpert> shown{QString()};
    frmExpert& window = shown.window;
    QApplication::processEvents();
    for (const auto& [place, molecule] : {std::pair{0, "C"}, {1, "O2"}, {3, "CO"}, {4, "CO2"}})
        window.findChild<QLineEdit*>(QStringLiteral("txtMolecule(%1)").arg(place))
            ->setText(QLatin1String(molecule));
    auto* const button = window.findChild<QPushButton*>(QStringLiteral("cmdBalance"));
    auto* const list = window.findChild<QPlainTextEdit*>(QStringLiteral("txtResult"));
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        list->clear();
        QApplication::processEvents();
        state.ResumeTiming();
        button->click();
        QApplication::processEvents();
        if (!list->toPlainText().contains(QStringLiteral("3 C + 2 O2")))
            state.SkipWithError("not balanced");
    }
}
BENCHMARK(SearchInShownWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    return stoikal::RunWindowBenchmarks(argc, argv);
}
