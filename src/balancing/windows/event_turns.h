#pragma once

#include "platform/doors.h"

#include <QCoreApplication>

namespace stoikal {

/// When the event loop has its turn during the long work of a window.
class EventTurns
{
public:
    explicit EventTurns(const Clock& clock)
        : m_clock(clock)
    {
    }

    /// The work begins, or the event loop has just had its turn.
    void Restart() { m_last = m_clock.Counter(); }

    /// Whether the loop has waited for 20 ms.
    bool IsDue() const
    {
        constexpr double kTurnSeconds = 0.02;
        return static_cast<double>(m_clock.Counter() - m_last)
            / static_cast<double>(m_clock.CountsPerSecond())
            >= kTurnSeconds;
    }

    void Take(QEventLoop::ProcessEventsFlags events = QEventLoop::AllEvents)
    {
        QCoreApplication::processEvents(events);
        Restart();
    }

private:
    const Clock& m_clock;
    std::int64_t m_last = 0;
};

} // namespace stoikal
