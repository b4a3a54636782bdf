#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace stoikal {

class Clock;
class frmChrono;
class Regional;
class Screen;
class Sound;
struct StopwatchSeconds;

/// The one stopwatch: its window, loaded on first use, and what the exercise does
/// with it. During a scored run the user may hide the window but not touch the
/// clock, which goes on while it is hidden.
class StopwatchController final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        Clock& clock;
        Sound& sound;
        const Screen& screen;
        const Regional& regional;
        StopwatchSeconds& seconds;
    };

    StopwatchController(const Services& services, QWidget& mainWindow);

    frmChrono& Window();
    bool IsShown() const;

    void Mnu_Chrono_Click();

    /// Back to rest, with buttons that the user can press.
    void Reset();
    /// A run begins: nothing of an earlier one counts.
    void ForgetBanked();
    /// A scored run begins: from 0.
    void BeginRun();
    /// The exercise starts the watch, from the seconds banked.
    void Start();
    /// The exercise stops the display.
    void Stop();
    /// Stops, and keeps the seconds so far for the next start.
    void Bank();
    /// Whether the user is kept from the buttons.
    void Lock(bool isLocked);

Q_SIGNALS:
    /// The window came or went.
    void Changed();
    /// The window's title bar took it away.
    void ClosedByUser();

private:
    void Close();

    Services m_services;
    QWidget& m_mainWindow;
    QPointer<frmChrono> m_window;
    bool m_isLocked = false;
};

} // namespace stoikal
