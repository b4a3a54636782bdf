#pragma once

#include "chemistry/formula_field.h"

#include <QGroupBox>
#include <array>

namespace stoikal {

class FormulaEdit;
class Messages;

/// The six boxes for the formulas of an equation, three reactants and three
/// products, each side in a frame.
class MoleculeBoxes final : public QWidget
{
    Q_OBJECT

public:
    MoleculeBoxes(FormulaField field, Messages& messages, QWidget* parent);

    std::array<QString, 6> Texts() const;
    /// Whether some box of a side holds text: 0 the reactants, 1 the products.
    bool HasText(int side) const;
    /// Empties the boxes in order and goes to the first.
    void Empty();
    void FocusFirst();

Q_SIGNALS:
    /// The text of a box changed, right or wrong; it is not judged yet.
    void Edited();
    /// The text of a box changed and holds no fault.
    void FormulaChanged();

private:
    std::array<FormulaEdit*, 6> txtMolecule{};
};

} // namespace stoikal
