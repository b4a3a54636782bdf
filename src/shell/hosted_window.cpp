#include "shell/hosted_window.h"

#include "base/places.h"
#include "forms/place.h"
#include "shell/windows/frm_stoikal.h"

namespace stoikal {
namespace {

constexpr Twips kFirstTop = FromPixels(120);

} // namespace

HostedWindow::HostedWindow(const WindowRow& row, const WindowHost& host)
    : m_row(row)
    , m_host(host)
{
}

void HostedWindow::Toggle()
{
    if (IsOpen())
        Close();
    else
        Open();
}

void HostedWindow::Open()
{
    if (IsOpen())
        return;
    m_window = Make(m_row.standing == Standing::Child ? nullptr : &m_host.mainWindow);
    connect(m_window, &Form::CloseAsked, this, &HostedWindow::Close);
    connect(m_window, &Form::Released, this, &HostedWindow::TakeAway);
    Q_EMIT Opened();
    Show();
}

void HostedWindow::Show()
{
    switch (m_row.standing) {
    case Standing::Child:
        m_host.mainWindow.AddTool(m_window);
        return;
    case Standing::OwnPlace:
        ShowInItsOwnPlace();
        return;
    case Standing::Centred:
        CentreOver(*m_window, m_host.screen, m_host.mainWindow);
        break;
    case Standing::Remembered:
        m_window->adjustSize();
        const Twips centre = (m_host.places.LargeurUtile - FromPixels(m_window->width())) / 2;
        RestorePlace(*m_window, m_host.screen, m_host.settings, QLatin1String(m_row.section),
                     QPoint(centre, kFirstTop));
        break;
    }
    m_window->show();
    m_window->activateWindow();
    if (m_window->focusProxy() != nullptr)
        m_window->setFocus();
}

void HostedWindow::Close()
{
    if (m_window != nullptr)
        m_window->Release();
}

/// A child goes with the frame that the main area has put around it.
QWidget& HostedWindow::Frame() const
{
    return m_row.standing == Standing::Child ? *m_window->parentWidget() : *m_window;
}

void HostedWindow::TakeAway()
{
    if (m_window == nullptr)
        return;
    if (m_row.standing == Standing::Remembered)
        KeepPlace(*m_window, m_host.screen, m_host.settings, QLatin1String(m_row.section));
    QWidget& frame = Frame();
    m_window = nullptr;
    frame.hide();
    frame.deleteLater();
    Q_EMIT Closed();
}

void HostedWindow::HideForRun()
{
    if (m_window != nullptr)
        Frame().hide();
}

void HostedWindow::ShowAfterRun()
{
    if (m_window != nullptr)
        Frame().show();
}

} // namespace stoikal
