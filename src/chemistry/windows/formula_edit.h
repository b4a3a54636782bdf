#pragma once

#include "chemistry/formula_field.h"
#include "forms/filter_edit.h"

#include <optional>

namespace stoikal {

class Messages;

/// A box for a formula. A character that its window does not take, a leading 0
/// or a 0 without a digit before it is selected, told and taken out again; of a
/// paste only the first is told.
class FormulaEdit final : public FilterEdit
{
    Q_OBJECT

public:
    FormulaEdit(FormulaField field, Messages& messages, QWidget* parent);

Q_SIGNALS:
    /// The text changed, right or wrong; it is not judged yet.
    void Edited();
    /// The text changed and holds no fault.
    void FormulaChanged();

private:
    void KeyPress(QChar key);
    void Change();
    void Repair(const FormulaRepair& repair);

    FormulaField m_field;
    Messages& m_messages;
    std::optional<QChar> m_refusedKey;
    bool m_comesByKey = false; ///< this change is one of a typed or pasted character
};

} // namespace stoikal
