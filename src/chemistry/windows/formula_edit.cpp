#include "chemistry/windows/formula_edit.h"

#include "forms/messages.h"

namespace stoikal {

FormulaEdit::FormulaEdit(FormulaField field, Messages& messages, QWidget* parent)
    : FilterEdit(parent)
    , m_field(field)
    , m_messages(messages)
{
    connect(this, &FilterEdit::KeyPressed, this, &FormulaEdit::KeyPress);
    connect(this, &QLineEdit::textChanged, this, &FormulaEdit::Change);
}

void FormulaEdit::KeyPress(QChar key)
{
    // A key that replaces a selection is judged as on the shorter text.
    QString before = text();
    if (hasSelectedText())
        before.remove(selectionStart(), selectedText().size());
    m_refusedKey = FormulaKeyAllowed(m_field, key, before) ? std::nullopt : std::optional(key);
    m_comesByKey = true;
}

void FormulaEdit::Change()
{
    Q_EMIT Edited();
    const auto repair = FormulaFieldCheck(text(), m_refusedKey);
    m_refusedKey.reset();
    if (repair)
        Repair(*repair);
    m_comesByKey = false;
    if (!repair)
        Q_EMIT FormulaChanged();
}

void FormulaEdit::Repair(const FormulaRepair& repair)
{
    const auto position = static_cast<int>(repair.position);
    const int caret = cursorPosition();
    // Only keys come in rows: what a deletion leaves behind is always told.
    if (!m_comesByKey || !RefusalIsTold()) {
        NoteRefusal();
        setSelection(position, 1);
        m_messages.Warning(this, QStringLiteral("Erreur sur saisie."), repair.message);
    }
    QString repaired = text();
    repaired.remove(position, 1);
    setText(repaired);
    setCursorPosition(position < caret ? caret - 1 : caret);
}

} // namespace stoikal
