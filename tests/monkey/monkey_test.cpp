// A monkey works at the whole program, on a desktop where it can do no harm:
//
//     STOIKAL_MONKEY_ACTIONS=20000 STOIKAL_MONKEY_SEED=1 monkey_test
//
// It fails when the program meets a fault, keeps a person waiting, or grows. Time is
// the monkey's, so a seed gives the same run each time: the number that closes it says so.

#include "monkey.h"

#include "calibration.h"
#include "seen_state.h"
#include "virtual_time.h"

#include "base/fatal_fault.h"
#include "forms/messages.h"
#include "forms/style.h"
#include "shell/shell.h"
#include "support/qt_printers.h"
#include "support/window_driver.h"

#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QHashFunctions>
#include <QPixmapCache>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <execinfo.h>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <malloc.h>
#ifdef STOIKAL_SANITIZED
#include <sanitizer/common_interface_defs.h>
#endif
#include <thread>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Whose diary is told when the process dies.
const Monkey* g_monkey = nullptr;

void TellDiary()
{
    if (g_monkey != nullptr)
        std::cerr << "The last actions:\n" << g_monkey->Diary().join(u'\n').toStdString() << std::endl;
    g_monkey = nullptr;
}

void TellDiaryOfCrash(int signal)
{
    constexpr int kMostFrames = 60;
    std::array<void*, kMostFrames> frames{};
    ::backtrace_symbols_fd(frames.data(), ::backtrace(frames.data(), kMostFrames), STDERR_FILENO);
    TellDiary();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void WatchForCrashes()
{
#ifdef STOIKAL_SANITIZED
    __sanitizer_set_death_callback(TellDiary);
    std::signal(SIGABRT, TellDiaryOfCrash);
#else
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL})
        std::signal(signal, TellDiaryOfCrash);
#endif
}

/// The offscreen platform says each time what it cannot do.
void TellUnlessOffscreen(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(u"This plugin does not support"_s))
        std::cerr << text.toStdString() << std::endl;
}

/// The one fault that the rules ask for, whatever a person does before it.
bool IsAskedFor(const FatalFault& fault)
{
    return fault.Cause().startsWith(u"division par zéro dans la courbe du quotient de réaction"_s);
}

/// A fault that reaches the event loop would end the real program: the monkey's
/// last actions tell how it came to it.
class MonkeyApplication final : public QApplication
{
public:
    using QApplication::QApplication;

    std::function<void()> onEndByTheRules;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const FatalFault& fault) {
            if (!IsAskedFor(fault))
                Die(fault);
            onEndByTheRules();
            return true;
        } catch (const std::exception& fault) {
            Die(fault);
        }
    }

private:
    [[noreturn]] static void Die(const std::exception& fault)
    {
        std::cerr << "FAULT: " << fault.what() << std::endl;
        std::abort();
    }
};

/// Ends a program that hangs for good, with the last actions told.
class Watchdog
{
public:
    explicit Watchdog(const Monkey& monkey)
        : m_thread([this, &monkey] { Watch(monkey); })
    {
    }
    ~Watchdog()
    {
        m_isOver = true;
        m_thread.join();
    }

private:
    void Watch(const Monkey& monkey)
    {
        constexpr int kLongestSeconds = 60;
        int before = -1;
        int quietTenths = 0;
        while (!m_isOver) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            quietTenths = monkey.Done() == before ? quietTenths + 1 : 0;
            before = monkey.Done();
            if (quietTenths < kLongestSeconds * 10)
                continue;
            std::cerr << "The program hangs." << std::endl;
            std::abort();
        }
    }

    std::atomic<bool> m_isOver = false;
    std::thread m_thread;
};

int NumberFrom(const char* variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

/// Memory of this process that is in use, in KiB.
long ResidentKib()
{
    ::malloc_trim(0);
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLong() * (::sysconf(_SC_PAGESIZE) / 1024);
}

/// Starts the program again whenever the monkey ended it, or every 1,000 actions.
class MonkeyRun
{
public:
    /// By then it has seen most windows.
    static constexpr int kWarm = 2000;

    MonkeyRun(int actions, std::uint32_t seed, double limitMs)
        : m_actions(actions)
        , m_dice(seed)
        , monkey(m_dice, limitMs)
    {
        virtual_time::Begin();
        QCursor::setPos(0, 0);
        g_monkey = &monkey;
        QObject::connect(&monkey, &Monkey::IsTired, qApp, [this] { EndSession(); });
    }
    ~MonkeyRun() { g_monkey = nullptr; }

    void Play()
    {
        const Watchdog watchdog(monkey);
        while (monkey.Done() < m_actions) {
            PlaySession();
            ++sessions;
            NoteWidgetsLeft();
            if (kibWhenWarm == 0 && monkey.Done() >= kWarm)
                kibWhenWarm = ResidentKib();
        }
        kibAtEnd = ResidentKib();
    }

private:
    static MonkeyApplication& Application() { return *static_cast<MonkeyApplication*>(qApp); }

    /// The desktop itself is a widget that Qt keeps.
    void NoteWidgetsLeft()
    {
        const auto widgets = QApplication::allWidgets();
        for (const QWidget* const widget : widgets) {
            const QString name
                = QLatin1String(widget->metaObject()->className()) + u' ' + widget->objectName();
            if (widget->windowType() != Qt::Desktop && !widgetsLeft.contains(name))
                widgetsLeft << name;
        }
    }

    /// It may come while the program still starts, before any loop that could be left.
    void EndSession()
    {
        m_hasEnded = true;
        QApplication::exit(0);
    }

    void PlaySession()
    {
        constexpr int kSessionActions = 1000;
        MonkeyDesk desk(m_dice, m_folder.Path());
        DesktopMessages messages;
        auto shell = std::make_unique<Shell>(desk.Doors(), messages);
        m_hasEnded = false;
        QObject::connect(shell.get(), &Shell::EndAsked, qApp, [this] { EndSession(); });
        Application().onEndByTheRules = [this] {
            ++endsByTheRules;
            monkey.End();
            EndSession();
        };
        monkey.Begin(*shell, std::min(m_actions, monkey.Done() + kSessionActions));
        shell->Start();
        EXPECT_TRUE(
            shell->UserSettings().Write(u"Options"_s, u"PassWord"_s, QLatin1String(Monkey::kPassword)));
        if (!m_hasEnded)
            QApplication::exec();
        monkey.End();
        monkey.AddToDigest(SeenState(m_folder.Path()));
        shell.reset();
        Settle();
    }

    RunFolder m_folder;
    int m_actions;
    Dice m_dice;
    bool m_hasEnded = false;

public:
    Monkey monkey;
    int sessions = 0;
    int endsByTheRules = 0;
    QStringList widgetsLeft;
    long kibWhenWarm = 0;
    long kibAtEnd = 0;
};

} // namespace

TEST(Monkey, FindsNoFaultNoHangAndNoGrowth)
{
    constexpr double kPromisedMs = 200;
    const double slowness = SlownessHere();
    MonkeyRun run(NumberFrom("STOIKAL_MONKEY_ACTIONS", 1000),
                  static_cast<std::uint32_t>(NumberFrom("STOIKAL_MONKEY_SEED", 1)), kPromisedMs * slowness);

    run.Play();

    const Monkey& monkey = run.monkey;
    std::cout << monkey.Done() << " actions in " << run.sessions << " sessions (" << run.endsByTheRules
              << " ended by the fault of the quotient's curve) and " << monkey.Seen().size()
              << " windows; the longest " << monkey.LongestMs() << " ms of the processor, the limit "
              << kPromisedMs << " ms, here times " << slowness << "; memory " << run.kibWhenWarm
              << " KiB after " << MonkeyRun::kWarm << " actions, " << run.kibAtEnd << " KiB at the end\n";
    std::cout << "seen: " << monkey.Seen().join(u' ').toStdString() << '\n';
    for (const Monkey::Delay& delay : monkey.Delays())
        std::cout << "  " << delay.ms << " ms: " << delay.action.toStdString() << '\n';
    std::cout << "what it did: " << monkey.Digest().toStdString() << '\n';
    EXPECT_TRUE(monkey.Delays().isEmpty()) << "a person was kept waiting";
    EXPECT_EQ(run.widgetsLeft.join(u", "_s), QString()) << "windows outlive the program";
#ifndef STOIKAL_SANITIZED
    // With sanitizers what was freed is kept for a while.
    if (run.kibWhenWarm > 0) {
        EXPECT_LE(run.kibAtEnd, run.kibWhenWarm + run.kibWhenWarm / 10) << "the program grows";
    }
#endif
}

TEST(Monkey, DoesTheSameForTheSameSeed)
{
    const auto digestOf = [](std::uint32_t seed) {
        MonkeyRun run(150, seed, 1E9);
        run.Play();
        return run.monkey.Digest().toStdString();
    };

    const std::string first = digestOf(11);

    EXPECT_EQ(digestOf(11), first);
    EXPECT_NE(digestOf(12), first);
}

} // namespace stoikal

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The event loop that waits by the system's call alone: its time is the monkey's.
    qputenv("QT_NO_GLIB", "1");
    QHashSeed::setDeterministicGlobalSeed();
    qInstallMessageHandler(stoikal::TellUnlessOffscreen);
    stoikal::WatchForCrashes();
    testing::InitGoogleTest(&argc, argv);
    stoikal::MonkeyApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    stoikal::ApplyStyle();
    // The toolkit sweeps its store of drawn pieces by the clock. A monkey that does an
    // hour's work in a minute would find all of it there.
    QPixmapCache::setCacheLimit(0);
    return RUN_ALL_TESTS();
}
