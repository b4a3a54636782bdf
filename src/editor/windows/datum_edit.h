#pragma once

#include "forms/filter_edit.h"

#include <optional>

namespace stoikal {

class Messages;

/// A box for the number of a datum. A character that does not belong to one is
/// refused with a message, of a paste the first; the box is then as it was.
class DatumEdit final : public FilterEdit
{
    Q_OBJECT

public:
    DatumEdit(Messages& messages, QWidget* parent);

Q_SIGNALS:
    /// The text changed and holds no refused character.
    void Edited();

private:
    struct Refusal {
        QString message;
        QString text; ///< the box before the character went in
        int selectionStart = -1;
        int selectionLength = 0;
        int caret = 0;
    };

    void KeyPress(QChar key);
    void Change();
    void Refuse(const Refusal& refusal);

    Messages& m_messages;
    std::optional<Refusal> m_refusal;
};

} // namespace stoikal
