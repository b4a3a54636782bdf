#pragma once

#include <QLineEdit>

namespace stoikal {

/// A field whose whole text is selected when the user or the program comes to it,
/// by a click too, so that the next key begins anew. Where the keyboard was only
/// lent, to a message box, a menu or another window, text, selection and caret
/// are as they were. A drag, a double click and a click into a field that has the
/// keyboard select as everywhere.
class SelectingEdit : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    /// Empties the field for good: QLineEdit's own leaves the text to be brought
    /// back by Ctrl+Z.
    void clear() { setText({}); }

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void KeepSelectionOver(QFocusEvent* event);

    enum class Absence { None, Lent, LentToModal };

    Absence m_absence = Absence::None; ///< where the keyboard went, if it will come back
    bool m_awaitsPress = false; ///< the next press is the one that the user comes by
    bool m_selectsOnRelease = false; ///< unless the mouse selects something itself
};

} // namespace stoikal
