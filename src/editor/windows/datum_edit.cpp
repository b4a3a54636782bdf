#include "editor/windows/datum_edit.h"

#include "editor/progress_data.h"
#include "forms/messages.h"

#include <QSignalBlocker>
#include <utility>

namespace stoikal {

DatumEdit::DatumEdit(Messages& messages, QWidget* parent)
    : FilterEdit(parent)
    , m_messages(messages)
{
    connect(this, &FilterEdit::KeyPressed, this, &DatumEdit::KeyPress);
    connect(this, &QLineEdit::textChanged, this, &DatumEdit::Change);
}

void DatumEdit::KeyPress(QChar key)
{
    QString before = text();
    if (hasSelectedText())
        before.remove(selectionStart(), selectionLength());
    m_refusal.reset();
    if (const auto message = DatumKeyRefusal(key, before))
        m_refusal = Refusal{*message, text(), selectionStart(), selectionLength(), cursorPosition()};
}

void DatumEdit::Change()
{
    if (const auto refusal = std::exchange(m_refusal, std::nullopt))
        Refuse(*refusal);
    else
        Q_EMIT Edited();
}

void DatumEdit::Refuse(const Refusal& refusal)
{
    {
        // For who listens nothing has changed.
        const QSignalBlocker blocker(this);
        setText(refusal.text);
    }
    if (refusal.selectionStart >= 0)
        setSelection(refusal.selectionStart, refusal.selectionLength);
    else
        setCursorPosition(refusal.caret);
    if (RefusalIsTold())
        return;
    NoteRefusal();
    m_messages.InputError(window(), refusal.message);
}

} // namespace stoikal
