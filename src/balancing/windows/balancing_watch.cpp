#include "balancing/windows/balancing_watch.h"

#include "forms/messages.h"

#include <QProgressBar>

namespace stoikal {

BalancingWatch::BalancingWatch(QWidget& window, Messages& messages, const Clock& clock,
                               QEventLoop::ProcessEventsFlags events)
    : m_window(window)
    , m_messages(messages)
    , m_turns(clock)
    , m_events(events)
{
}

bool BalancingWatch::KeepsUnknownSymbol(const QString& title, const QString& question)
{
    return m_messages.Ask(&m_window, title, question, QMessageBox::Warning);
}

void BalancingWatch::SearchBegins()
{
    m_window.setCursor(Qt::WaitCursor);
}

void BalancingWatch::SearchEnds()
{
    m_window.unsetCursor();
}

void BalancingWatch::AttemptsBegin(int attempts)
{
    QProgressBar& bar = AttemptsBar();
    bar.setRange(0, attempts);
    bar.setValue(0);
    bar.show();
    m_turns.Restart();
}

bool BalancingWatch::AttemptsDone(int attempts)
{
    QProgressBar& bar = AttemptsBar();
    if (m_turns.IsDue() || attempts == bar.maximum()) {
        bar.setValue(attempts);
        m_turns.Take(m_events);
    }
    return !IsGivenUp();
}

void BalancingWatch::AttemptsEnd()
{
    AttemptsBar().hide();
}

} // namespace stoikal
