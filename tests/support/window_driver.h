#pragma once

#include "support/qt_printers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <QWidget>
#include <QWindow>
#include <functional>
#include <stdexcept>

namespace stoikal {

/// The control of that name in a window; a missing one stops the test.
template <typename T>
T& Control(QObject& window, const char* name)
{
    auto* control = window.findChild<T*>(QLatin1String(name));
    if (control == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *control;
}

/// QTest delivers events to hidden widgets and behind modal windows. A person
/// cannot, so a test may not.
inline void ExpectReachable(const QWidget& widget)
{
    const QWidget* const modal = QApplication::activeModalWidget();
    // A modal window leaves its own child windows free.
    const QWidget* own = &widget;
    while (own != nullptr && own != modal)
        own = own->parentWidget();
    const bool isBehind = modal != nullptr && own == nullptr;
    if (!widget.isVisible() || !widget.isEnabled() || isBehind)
        throw std::runtime_error("not reachable: " + widget.objectName().toStdString());
}

/// Types what a person types, accents included: QTest::keyClicks stops the
/// process at any character above 127.
inline void Type(QWidget& widget, const QString& text)
{
    ExpectReachable(widget);
    for (const QChar c : text) {
        if (c.unicode() < 128)
            QTest::keyClick(&widget, c.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

inline void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    ExpectReachable(widget);
    QTest::keyClick(&widget, key, modifiers);
}

/// Clicks where a person clicks. The middle of a check box with a short caption
/// lies outside its click area, so QTest::mouseClick alone would do nothing.
inline void Click(QAbstractButton& button)
{
    ExpectReachable(button);
    QStyleOptionButton option;
    option.initFrom(&button);
    QRect target = button.rect();
    if (qobject_cast<QCheckBox*>(&button) != nullptr)
        target = button.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &button);
    else if (qobject_cast<QRadioButton*>(&button) != nullptr)
        target = button.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &button);
    // What lies over the button would take the click of a person.
    QWidget* const window = button.window();
    const QWidget* const hit = window->childAt(button.mapTo(window, target.center()));
    if (hit != nullptr && hit != &button && !button.isAncestorOf(hit))
        throw std::runtime_error("covered by " + hit->objectName().toStdString() + ": "
                                 + button.objectName().toStdString());
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, target.center());
}

/// Presses and releases the mouse in a widget as the window system does: the press
/// goes to the window, which gives the focus first and passes the press on then.
inline void ClickInto(QWidget& widget, Qt::MouseButton button = Qt::LeftButton)
{
    ExpectReachable(widget);
    QWidget* const window = widget.window();
    QTest::mouseClick(window->windowHandle(), button, Qt::NoModifier,
                      widget.mapTo(window, widget.rect().center()));
}

/// Lets a running timer fire now. A stopped timer does not fire.
inline void Tick(QTimer& timer)
{
    if (!timer.isActive())
        return;
    QTimerEvent event(timer.timerId());
    QCoreApplication::sendEvent(&timer, &event);
}

/// Lets what was posted arrive: queued calls, deferred deletions, paints.
inline void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// A visible top-level window or child window of that name, or null.
inline QWidget* FindWindow(const char* name)
{
    const auto widgets = QApplication::allWidgets();
    for (QWidget* const widget : widgets) {
        if (widget->objectName() == QLatin1String(name) && widget->isVisible())
            return widget;
    }
    return nullptr;
}

/// What a person does in the modal windows that open while a test's call runs:
/// each step waits for the modal window of its name and is done once. A step
/// that never found its window fails the test (see the destructor's caller).
class ModalScript
{
public:
    using Step = std::function<void(QWidget&)>;

    ModalScript()
    {
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { DoNext(); });
    }

    void On(const char* windowName, Step step)
    {
        m_steps.push_back({QLatin1String(windowName), std::move(step)});
        m_timer.start();
    }

    /// How many steps still wait for their window.
    size_t Left() const { return m_steps.size(); }

private:
    struct Waiting {
        QString window;
        Step step;
    };

    void DoNext()
    {
        QWidget* const modal = QApplication::activeModalWidget();
        if (m_steps.empty() || modal == nullptr || modal->objectName() != m_steps.front().window
            || !modal->isVisible())
            return;
        const Step step = m_steps.front().step;
        m_steps.erase(m_steps.begin());
        step(*modal);
    }

    QTimer m_timer;
    std::vector<Waiting> m_steps;
};

} // namespace stoikal
