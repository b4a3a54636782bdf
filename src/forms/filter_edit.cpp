#include "forms/filter_edit.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <algorithm>

namespace stoikal {

namespace {

/// A key with control, alt or the system's key is a command and no character.
/// The third level of a keyboard is reported as control and alt together, or by
/// a modifier of its own.
bool IsCommand(Qt::KeyboardModifiers modifiers)
{
    if (modifiers.testFlag(Qt::GroupSwitchModifier))
        return false;
    return modifiers.testFlag(Qt::MetaModifier)
        || modifiers.testFlag(Qt::ControlModifier) != modifiers.testFlag(Qt::AltModifier);
}

/// The entry that pastes in a box's standard menu. It has no name there.
QAction* FindPaste(const QMenu& menu)
{
    const auto actions = menu.actions();
    const auto paste = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
        return action->text().section(QLatin1Char('\t'), 0, 0) == QLineEdit::tr("&Paste");
    });
    return paste == actions.end() ? nullptr : *paste;
}

} // namespace

FilterEdit::FilterEdit(QWidget* parent)
    : SelectingEdit(parent)
{
}

void FilterEdit::InsertThroughFilter(const QString& text)
{
    m_refusalIsTold = false;
    // A listener may show a box and free this window behind it.
    const QPointer<FilterEdit> alive(this);
    for (const QChar key : text) {
        if (!key.isPrint() || alive.isNull() || isReadOnly() || !isEnabled())
            continue;
        Q_EMIT KeyPressed(key);
        if (!alive.isNull())
            insert(QString(key));
    }
    if (!alive.isNull())
        m_refusalIsTold = false;
}

void FilterEdit::PasteThroughFilter()
{
    InsertThroughFilter(QApplication::clipboard()->text());
}

void FilterEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste)) {
        event->accept();
        PasteThroughFilter();
        return;
    }
    const QString text = event->text();
    const bool isText = !text.isEmpty() && text.front().category() != QChar::Other_Control;
    if (isText && !IsCommand(event->modifiers())) {
        event->accept();
        InsertThroughFilter(text);
        return;
    }
    // Of the other keys with a text the box itself knows those with control as
    // commands; any further one it would type past the filter.
    if (isText && (event->modifiers() | Qt::ShiftModifier) != (Qt::ControlModifier | Qt::ShiftModifier)) {
        event->ignore();
        return;
    }
    SelectingEdit::keyPressEvent(event);
}

void FilterEdit::inputMethodEvent(QInputMethodEvent* event)
{
    const QString committed = event->commitString();
    if (committed.isEmpty()) {
        SelectingEdit::inputMethodEvent(event);
        return;
    }
    // The composition is taken away, and what it became goes the filter's way.
    QInputMethodEvent withoutText;
    SelectingEdit::inputMethodEvent(&withoutText);
    InsertThroughFilter(committed);
}

void FilterEdit::dropEvent(QDropEvent* event)
{
    const QString text = event->mimeData()->text();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    InsertThroughFilter(text);
}

void FilterEdit::mouseReleaseEvent(QMouseEvent* event)
{
    const QClipboard* const clipboard = QApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        setCursorPosition(cursorPositionAt(event->pos()));
        InsertThroughFilter(clipboard->text(QClipboard::Selection));
        return;
    }
    SelectingEdit::mouseReleaseEvent(event);
}

void FilterEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (QAction* const paste = FindPaste(*menu)) {
        paste->setObjectName(QStringLiteral("edit-paste"));
        disconnect(paste, &QAction::triggered, this, nullptr);
        connect(paste, &QAction::triggered, this, &FilterEdit::PasteThroughFilter);
    }
    menu->popup(event->globalPos());
}

void FilterEdit::focusInEvent(QFocusEvent* event)
{
    SelectingEdit::focusInEvent(event);
    Q_EMIT FocusGained();
}

} // namespace stoikal
