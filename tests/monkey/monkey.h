#pragma once

#include "monkey_desk.h"

#include <QCryptographicHash>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <atomic>
#include <optional>

class QAction;
class QLineEdit;

namespace stoikal {

class Shell;

/// Sits at the program's windows and does one thing after another that a person
/// could do: clicks and keys on what is visible, enabled and not covered, menu
/// entries that can be chosen, windows closed by their cross, time that passes. It
/// has its turn in every event loop, so it also answers modal windows. Between two
/// actions a moment passes, by the dice. It judges nothing; it keeps how much processor
/// time each action took.
class Monkey final : public QObject
{
    Q_OBJECT

public:
    static constexpr const char* kPassword = "Sesame";

    struct Delay {
        double ms = 0;
        QString action;
    };

    /// An action that takes longer than the limit, in processor time, is a delay.
    Monkey(Dice& dice, double limitMs);

    /// Acts on this shell from now on, until so many actions are done altogether.
    void Begin(Shell& shell, int lastAction);
    /// Lets go of the shell.
    void End();

    int Done() const { return m_done; }
    /// Actions that took more than the limit.
    const QList<Delay>& Delays() const { return m_delays; }
    double LongestMs() const { return m_longestMs; }
    /// What it did last, the newest at the end; for the one who looks for a fault.
    const QStringList& Diary() const { return m_diary; }
    /// One number for all actions so far: runs that do the same have the same.
    QByteArray Digest() const { return m_digest.result().toHex().first(16); }
    /// Makes a state part of that number.
    void AddToDigest(const QString& state) { m_digest.addData(state.toUtf8()); }
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
    double m_limitMs;
    std::optional<double> m_turnBegan; ///< processor time at the last turn
    QCryptographicHash m_digest{QCryptographicHash::Sha1};
    double m_longestMs = 0;
    QList<Delay> m_delays;
    QStringList m_diary;
    QStringList m_seen;
};

} // namespace stoikal
