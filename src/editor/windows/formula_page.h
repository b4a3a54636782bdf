#pragma once

#include "editor/work_equation.h"

#include <QWidget>
#include <array>

namespace stoikal {

class FormulaEdit;
class Messages;

/// The tab of formulas: six boxes in a row, written along the equation.
class FormulaPage final : public QWidget
{
    Q_OBJECT

public:
    FormulaPage(Messages& messages, QWidget* parent);

    std::array<QString, WorkEquation::kSlots> Texts() const;
    void Show(const std::array<QString, WorkEquation::kSlots>& texts);
    /// Whether some box of a side holds text: 0 the reactants, 1 the products.
    bool HasText(int side) const;
    void FocusFirst();
    /// The boxes, in the order of the Tab key.
    const std::array<FormulaEdit*, WorkEquation::kSlots>& Boxes() const { return txtMolecule; }

Q_SIGNALS:
    void Edited();
    /// The text of a box changed and holds no fault.
    void FormulaChanged();
    /// The keyboard left a box for another control of the window.
    void BoxLeft(const QString& formula);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::array<FormulaEdit*, WorkEquation::kSlots> txtMolecule{};
};

} // namespace stoikal
