#pragma once

#include "balancing/balancing_engine.h"
#include "balancing/windows/event_turns.h"

class QProgressBar;
class QWidget;

namespace stoikal {

class Messages;

/// A balancing as a window watches it: its questions are asked over the window,
/// the pointer waits during a search, and a bar shows the attempts while the
/// event loop has its turns. What is done with the texts is the window's matter.
class BalancingWatch : public BalancingObserver
{
public:
    /// `events` are those that the loop takes in its turns.
    BalancingWatch(QWidget& window, Messages& messages, const Clock& clock,
                   QEventLoop::ProcessEventsFlags events);

    bool KeepsUnknownSymbol(const QString& title, const QString& question) final;
    void SearchBegins() final;
    void SearchEnds() final;
    void AttemptsBegin(int attempts) final;
    bool AttemptsDone(int attempts) final;
    void AttemptsEnd() final;

private:
    virtual QProgressBar& AttemptsBar() = 0;
    /// Whether the user has given the search up.
    virtual bool IsGivenUp() const { return false; }

    QWidget& m_window;
    Messages& m_messages;
    EventTurns m_turns;
    QEventLoop::ProcessEventsFlags m_events;
};

} // namespace stoikal
