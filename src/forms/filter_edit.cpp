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

namespace stoikal {

FilterEdit::FilterEdit(QWidget* parent)
    : QLineEdit(parent)
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
    const bool isShortcut
        = event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)
        && !event->modifiers().testFlag(Qt::GroupSwitchModifier) && text.size() == 1
        && !text.front().isPrint();
    if (!text.isEmpty() && text.front().isPrint() && !isShortcut
        && !(event->modifiers().testFlag(Qt::AltModifier)
             && !event->modifiers().testFlag(Qt::ControlModifier))) {
        event->accept();
        InsertThroughFilter(text);
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void FilterEdit::inputMethodEvent(QInputMethodEvent* event)
{
    const QString committed = event->commitString();
    if (committed.isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    // The composition is taken away, and what it became goes the filter's way.
    QInputMethodEvent withoutText;
    QLineEdit::inputMethodEvent(&withoutText);
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
    QLineEdit::mouseReleaseEvent(event);
}

void FilterEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* const paste = menu->findChild<QAction*>(QStringLiteral("edit-paste"))) {
        paste->disconnect();
        connect(paste, &QAction::triggered, this, &FilterEdit::PasteThroughFilter);
    }
    menu->popup(event->globalPos());
}

void FilterEdit::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    Q_EMIT FocusGained();
}

} // namespace stoikal
