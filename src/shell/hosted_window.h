#pragma once

#include "forms/form.h"
#include "shell/command.h"

#include <QPointer>
#include <functional>
#include <optional>

namespace stoikal {

class frmStoikal;
class Screen;
class Settings;
struct Places;

/// How a window stands on the screen.
enum class Standing {
    Child, ///< maximised in the main area
    Remembered, ///< floats where it stood last; the first time in the upper middle
    Centred, ///< floats over the middle of the main window
    OwnPlace ///< floats where it decides itself
};

/// What a run does with a window that was open before it.
enum class InARun {
    Stays,
    Closes, ///< at its start and at its end
    Hides, ///< at both; the next choice of its entry takes it away
    Pauses ///< stands still and hidden as long as the run, and comes back
};

/// A row of the table of windows.
struct WindowRow {
    std::optional<Command> entry; ///< the entry that opens, marks and closes it
    Standing standing;
    InARun inARun;
    const char* section = nullptr; ///< of the settings that keeps the place; with Remembered
};

/// Where windows are hosted.
struct WindowHost {
    frmStoikal& mainWindow;
    const Screen& screen;
    Settings& settings;
    const Places& places;
};

/// A window that comes and goes: there is one at most. It makes the window, puts
/// it where its row says, and takes it away once it is released. What the window
/// shows and reports is others'.
class HostedWindow : public QObject
{
    Q_OBJECT

public:
    const WindowRow& Row() const { return m_row; }
    bool IsOpen() const { return m_window != nullptr; }

    void Toggle();
    /// Nothing happens when it is open.
    void Open();
    /// Nothing happens when it is not open. A window that is working goes later.
    void Close();

    void HideForRun();
    void ShowAfterRun();

Q_SIGNALS:
    /// The window is made and not yet shown.
    void Opened();
    /// The window is gone.
    void Closed();

protected:
    HostedWindow(const WindowRow& row, const WindowHost& host);

    virtual Form* Make(QWidget* parent) = 0;
    virtual void ShowInItsOwnPlace() = 0;
    Form* Current() const { return m_window; }

private:
    void Show();
    void TakeAway();
    QWidget& Frame() const;

    WindowRow m_row;
    WindowHost m_host;
    QPointer<Form> m_window;
};

/// One of a known class. `make` gets the parent; `show` is asked for a window
/// that knows its place.
template <typename Window>
class Hosted final : public HostedWindow
{
public:
    using Maker = std::function<Window*(QWidget* parent)>;
    using Shower = std::function<void(Window& window)>;

    Hosted(const WindowRow& row, const WindowHost& host, Maker make, Shower show = {})
        : HostedWindow(row, host)
        , m_make(std::move(make))
        , m_show(std::move(show))
    {
    }

    /// Null while it is not open.
    Window* Get() const { return static_cast<Window*>(Current()); }

private:
    Form* Make(QWidget* parent) override { return m_make(parent); }
    void ShowInItsOwnPlace() override { m_show(*Get()); }

    Maker m_make;
    Shower m_show;
};

} // namespace stoikal
