#include "shell/stopwatch_controller.h"

#include "platform/doors.h"
#include "tools/windows/frm_chrono.h"

namespace stoikal {
namespace {

/// Pixels between the window and the edges of the work area, the first time.
constexpr QPoint kFirstMargin(24, 64);

} // namespace

StopwatchController::StopwatchController(const Services& services, QWidget& mainWindow)
    : m_services(services)
    , m_mainWindow(mainWindow)
{
}

frmChrono& StopwatchController::Window()
{
    if (m_window == nullptr) {
        m_window = new frmChrono(m_services.seconds, m_services.clock, m_services.sound,
                                 m_services.regional.DecimalSeparator(), &m_mainWindow);
        connect(m_window, &Form::CloseAsked, this, &StopwatchController::Close);
        const QRect area = m_services.screen.WorkArea();
        m_window->move(area.right() - m_window->width() - kFirstMargin.x(), area.top() + kFirstMargin.y());
        m_window->SetButtonsEnabled(!m_isLocked);
    }
    return *m_window;
}

bool StopwatchController::IsShown() const
{
    return m_window != nullptr && !m_window->isHidden();
}

void StopwatchController::Mnu_Chrono_Click()
{
    if (IsShown()) {
        m_window->hide();
    } else {
        Window().show();
        Window().raise();
    }
    Q_EMIT Changed();
}

void StopwatchController::Reset()
{
    Lock(false);
    Window().Reset();
}

void StopwatchController::ForgetBanked()
{
    m_services.seconds.BankedSeconds = 0;
}

void StopwatchController::BeginRun()
{
    Window().Reset();
    Window().StartRun();
}

void StopwatchController::Start()
{
    Window().StartRun();
}

void StopwatchController::Stop()
{
    Window().StopRun();
}

void StopwatchController::Bank()
{
    Stop();
    m_services.seconds.BankedSeconds = m_services.seconds.ElapsedSeconds;
}

void StopwatchController::Lock(bool isLocked)
{
    m_isLocked = isLocked;
    Window().SetButtonsEnabled(!isLocked);
}

void StopwatchController::Close()
{
    Q_EMIT ClosedByUser();
    m_window->hide();
    if (!m_isLocked) {
        m_window->deleteLater();
        m_window = nullptr;
    }
    Q_EMIT Changed();
}

} // namespace stoikal
