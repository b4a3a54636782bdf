#pragma once

#include "forms/selecting_edit.h"

namespace stoikal {

/// A box whose keys pass a filter, one character after another, whether they
/// are typed, pasted, dropped or come from an input method. It judges nothing
/// itself: before a character goes in it emits `KeyPressed`; the character then
/// goes in, and who listens to `textChanged` takes it out again if it was
/// refused. Of several characters that come at once only the first refusal is
/// to be told: `RefusalIsTold` says whether that has happened.
class FilterEdit : public SelectingEdit
{
    Q_OBJECT

public:
    explicit FilterEdit(QWidget* parent = nullptr);

    /// The length that the text will have before the next character goes in: a
    /// character that replaces a selection is judged as on the shorter text.
    qsizetype LengthBeforeKey() const { return text().size() - selectedText().size(); }

    /// True when a refusal of this paste or input was told already.
    bool RefusalIsTold() const { return m_refusalIsTold; }
    void NoteRefusal() { m_refusalIsTold = true; }

    /// Passes each printable character of a text through the filter.
    void InsertThroughFilter(const QString& text);

Q_SIGNALS:
    void KeyPressed(QChar key);
    void FocusGained();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void PasteThroughFilter();

    bool m_refusalIsTold = false;
};

} // namespace stoikal
