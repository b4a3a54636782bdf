#pragma once

#include "monkey_desk.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <atomic>

class QAction;
class QLineEdit;

namespace stoikal {

class Shell;

/// Sits at the program's windows and does one thing after another that a person
/// could do: clicks and keys on what is visible, enabled and not covered, menu
/// entries that can be chosen, windows closed by their cross, time that passes. It
/// has its turn in every event loop, so it also answers modal windows. It judges
/// nothing; it keeps how long each action held the program up.
class Monkey final : public QObject
{
    Q_OBJECT

public:
    static constexpr const char* kPassword = "Sesame";

    struct Delay {
        double ms = 0;
        QString action;
    };

    explicit Monkey(Dice& dice);

    /// Acts on this shell from now on, until so many actions are done altogether.
    void Begin(Shell& shell, int lastAction);
    /// Lets go of the shell.
    void End();

    int Done() const { return m_done; }
    /// Actions that held the program up for more than 200 ms.
    const QList<Delay>& Delays() const { return m_delays; }
    double LongestMs() const { return m_longestMs; }
    /// What it did last, the newest at the end; for the one who looks for a fault.
    const QStringList& Diary() const { return m_diary; }
    /// The names of all windows that it has seen.
    const QStringList& Seen() const { return m_seen; }

Q_SIGNALS:
    /// The last action is done.
    void IsTired();

private:
    void Post();
    void TakeTurn(int generation);
    void NoteDelay();
    void Note(const QString& action);

    void Act();
    void ActInPopup(QWidget& popup);
    bool ActInModal(QWidget& modal);
    void ClickSomething();
    void TypeSomething();
    void PressSomething();
    void ChooseEntry();
    void CloseSomething();
    void LetTimePass();
    void AnswerExercise();
    void DragOrTurn();

    QList<QWidget*> Windows() const;
    QWidget* SomeWindow();
    QList<QWidget*> ControlsOf(QWidget& window) const;
    QWidget* SomeControl();
    bool IsReachable(const QWidget& widget, const QPoint& point) const;
    void ClickAt(QWidget& widget, const QPoint& point, const char* what);
    void Fill(QLineEdit& box, const QString& text);
    bool PressButton(QWidget& window, const char* name);
    QString SomeText();

    Dice& m_dice;
    QPointer<Shell> m_shell;
    int m_generation = 0;
    std::atomic<int> m_done = 0; ///< a watchdog looks at it from beside
    int m_last = 0;
    QElapsedTimer m_sinceTurn;
    double m_longestMs = 0;
    QList<Delay> m_delays;
    QStringList m_diary;
    QStringList m_seen;
};

} // namespace stoikal
