#include "forms/enter_key.h"

#include "forms/form.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

namespace stoikal {
namespace {

bool IsEnterAlone(const QKeyEvent& event)
{
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isEnter && !(event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier));
}

/// The button itself, where it is one that is pushed and stands in a window of ours.
QAbstractButton* OwnButton(QObject* object)
{
    auto* const button = qobject_cast<QAbstractButton*>(object);
    const bool isPushed
        = qobject_cast<QPushButton*>(button) != nullptr || qobject_cast<QToolButton*>(button) != nullptr;
    if (!isPushed)
        return nullptr;
    const QWidget* const window = button->window();
    const bool isForeign = qobject_cast<const QDialog*>(window) != nullptr
        && qobject_cast<const ModalForm*>(window) == nullptr;
    return isForeign ? nullptr : button;
}

} // namespace

bool EnterKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    QAbstractButton* const button = IsEnterAlone(key) ? OwnButton(watched) : nullptr;
    if (button == nullptr)
        return false;
    event->accept();
    // A key that is held presses once.
    if (!key.isAutoRepeat())
        button->click();
    return true;
}

} // namespace stoikal
