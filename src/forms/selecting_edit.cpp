#include "forms/selecting_edit.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <utility>

namespace stoikal {
namespace {

/// The keyboard goes to a menu, or comes back from there.
bool IsByMenu(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

} // namespace

bool SelectingEdit::event(QEvent* event)
{
    // Who types is already there: a click then places the caret.
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::InputMethod)
        m_awaitsPress = false;
    return QLineEdit::event(event);
}

void SelectingEdit::focusInEvent(QFocusEvent* event)
{
    const Absence absence = std::exchange(m_absence, Absence::None);
    // In a window that was not in front the program may have come to the field.
    const bool comesBackWithWindow
        = absence != Absence::None && event->reason() == Qt::ActiveWindowFocusReason;
    QLineEdit::focusInEvent(event);
    if (!comesBackWithWindow && !IsByMenu(event->reason()))
        selectAll();
    // The press follows the focus that it brings. One that brings the whole window
    // to the front cannot be told from a first press after the window has come;
    // behind a message box the user is where he was.
    m_awaitsPress = event->reason() == Qt::MouseFocusReason
        || (absence == Absence::Lent && event->reason() == Qt::ActiveWindowFocusReason);
}

void SelectingEdit::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason && !IsByMenu(event->reason())) {
        m_absence = Absence::None;
        QLineEdit::focusOutEvent(event);
        return;
    }
    const QWidget* const modal = QApplication::activeModalWidget();
    m_absence = modal == nullptr || modal == window() ? Absence::Lent : Absence::LentToModal;
    KeepSelectionOver(event);
}

/// The base takes the selection away where the keyboard goes to the menu bar.
void SelectingEdit::KeepSelectionOver(QFocusEvent* event)
{
    const int start = selectionStart();
    const int length = selectionLength();
    const bool isBackward = length > 0 && cursorPosition() == start;
    QLineEdit::focusOutEvent(event);
    if (length > 0 && !hasSelectedText())
        setSelection(isBackward ? start + length : start, isBackward ? -length : length);
}

void SelectingEdit::mousePressEvent(QMouseEvent* event)
{
    // In a window that is still to come to the front the press is first.
    m_selectsOnRelease = event->button() == Qt::LeftButton && (m_awaitsPress || !hasFocus());
    m_awaitsPress = false;
    QLineEdit::mousePressEvent(event);
}

void SelectingEdit::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(m_selectsOnRelease, false) && !hasSelectedText())
        selectAll();
}

} // namespace stoikal
