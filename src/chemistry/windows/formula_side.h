#pragma once

#include "chemistry/formula_field.h"

#include <array>

class QGroupBox;
class QString;

namespace stoikal {

class FormulaEdit;
class Messages;

/// How the boxes of one side look.
struct FormulaSideLook {
    FormulaField field;
    double larger = 0; ///< by how many points their letters are larger than the window's
};

/// Fills a frame with the boxes of one side of an equation, 0 the reactants or 1
/// the products: "txtMolecule(0)" to "(2)" or "(3)" to "(5)", with plus signs between.
std::array<FormulaEdit*, 3> MakeFormulaSide(QGroupBox& frame, int side, const FormulaSideLook& look,
                                            const QString& toolTip, Messages& messages);

} // namespace stoikal
