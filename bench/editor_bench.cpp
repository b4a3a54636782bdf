// The editor with a file of 500 equations, in its shown window: what a teacher
// waits for at each step.

#include "base/settings_store.h"
#include "editor/windows/frm_new_file.h"
#include "forms/messages.h"
#include "platform/qt_platform.h"
#include "window_bench.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <memory>

using namespace stoikal;

namespace {

constexpr int kEquations = 500;

/// The editor on the file of 500 equations, every second one with a comment.
class Desk
{
public:
    explicit Desk(bool previews)
    {
        const char* const lines[]{"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2", "Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1",
                                  "KMnO4+HCl=KCl+MnCl2+Cl2/2,16,2,2,5", "Al+O2=Al2O3/4,3,2"};
        QFile file(m_folder.filePath(QStringLiteral("Grand.Equ")));
        if (!file.open(QIODevice::WriteOnly))
            std::abort();
        for (int i = 0; i < kEquations; ++i) {
            if (i % 2 == 0)
                file.write("' Une ligne de commentaire devant\r\n");
            file.write(lines[i % 4]);
            file.write("\r\n");
        }
        file.close();
        m_window = std::make_unique<frmNewFile>(
            frmNewFile::Doors{m_clock, m_messages, m_screen, m_settings, m_store,
                              m_folder.filePath(QStringLiteral("FileTemp.txt")), m_folder.path()},
            nullptr);
        if (!m_window->LoadFileIntoEditor(QStringLiteral("Grand.Equ"), FileType::Equ))
            std::abort();
        m_window->show();
        if (previews)
            Find<QCheckBox>("chkPreview")->setChecked(true);
        QApplication::processEvents();
    }

    template <typename T>
    T* Find(const char* name)
    {
        T* const control = m_window->findChild<T*>(QLatin1String(name));
        if (control == nullptr)
            std::abort();
        return control;
    }

    void GoTo(int number)
    {
        Find<QScrollBar>("hscNumEqu")->setValue(number);
        QApplication::processEvents();
    }

    void Press(const char* button)
    {
        Find<QPushButton>(button)->click();
        QApplication::processEvents();
    }

private:
    QTemporaryDir m_folder;
    QtClock m_clock;
    QtScreen m_screen;
    DesktopMessages m_messages;
    SettingsStore m_store;
    QString m_none;
    Settings m_settings{m_store, m_none};
    std::unique_ptr<frmNewFile> m_window;
};

void EditorMoves(benchmark::State& state)
{
    Desk desk(state.range(0) != 0);
    int number = 1;
    for ([[maybe_unused]] auto _ : state) {
        number = number % kEquations + 1;
        desk.GoTo(number);
    }
}
BENCHMARK(EditorMoves)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void EditorInsertsAtTheFront(benchmark::State& state)
{
    Desk desk(state.range(0) != 0);
    for ([[maybe_unused]] auto _ : state) {
        desk.Press("cmdInsEqu");
        state.PauseTiming();
        desk.Press("cmdSupEqu");
        desk.GoTo(1);
        state.ResumeTiming();
    }
}
BENCHMARK(EditorInsertsAtTheFront)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void EditorDeletesTheFirst(benchmark::State& state)
{
    Desk desk(state.range(0) != 0);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        desk.Press("cmdInsEqu");
        desk.Find<QLineEdit>("txtMolecule(0)")->setText(QStringLiteral("C"));
        desk.Find<QLineEdit>("txtMolecule(3)")->setText(QStringLiteral("C"));
        desk.GoTo(1);
        state.ResumeTiming();
        desk.Press("cmdSupEqu");
    }
}
BENCHMARK(EditorDeletesTheFirst)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void EditorOpensTheFile(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state)
        const Desk desk(false);
}
BENCHMARK(EditorOpensTheFile)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    return stoikal::RunWindowBenchmarks(argc, argv);
}
