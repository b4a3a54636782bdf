#include "forms/window_events.h"

#include "forms/form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>

namespace stoikal {
namespace {

bool IsOurs(const QWidget& widget)
{
    return qobject_cast<const Form*>(&widget) != nullptr || qobject_cast<const ModalForm*>(&widget) != nullptr
        || qobject_cast<const QMainWindow*>(&widget) != nullptr;
}

/// The nearest window of ours around a widget, itself included; null for what
/// stands in a window of the toolkit.
const QWidget* WindowAround(const QWidget& widget)
{
    for (const QWidget* around = &widget; around != nullptr; around = around->parentWidget()) {
        if (IsOurs(*around))
            return around;
        if (around->isWindow())
            break;
    }
    return nullptr;
}

/// A child of the main area without a control to type in leaves its keys to the
/// main window.
const QWidget& ChildInFront(const QWidget& window)
{
    const auto* const area = window.findChild<QMdiArea*>(QString(), Qt::FindDirectChildrenOnly);
    const QMdiSubWindow* const child = area == nullptr ? nullptr : area->activeSubWindow();
    return child != nullptr && child->isVisible() && child->widget() != nullptr ? *child->widget() : window;
}

} // namespace

WindowEvents::WindowEvents()
{
    qApp->installEventFilter(this);
}

bool WindowEvents::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if ((type != QEvent::KeyPress && type != QEvent::MouseMove) || !watched->isWidgetType())
        return false;
    const auto& widget = static_cast<const QWidget&>(*watched);
    if (type == QEvent::KeyPress)
        return static_cast<const QKeyEvent*>(event)->key() == Qt::Key_F1 && RequestHelp(widget);
    // A move that a control leaves alone goes on to what it stands in: it is one move.
    const QPoint position = static_cast<const QMouseEvent*>(event)->position().toPoint();
    const QWidget* const window = widget.childAt(position) == nullptr ? WindowAround(widget) : nullptr;
    if (window != nullptr)
        Q_EMIT PointerMoved(window->objectName());
    return false;
}

bool WindowEvents::RequestHelp(const QWidget& focused)
{
    const QWidget* const window = WindowAround(focused);
    if (window == nullptr)
        return false;
    Q_EMIT HelpRequested(ChildInFront(*window).objectName());
    return true;
}

} // namespace stoikal
