#include "chemistry/windows/formula_side.h"

#include "chemistry/windows/formula_edit.h"
#include "forms/form.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

namespace stoikal {

std::array<FormulaEdit*, 3> MakeFormulaSide(QGroupBox& frame, int side, const FormulaSideLook& look,
                                            const QString& toolTip, Messages& messages)
{
    const QString name
        = side == 0 ? QStringLiteral("Formule du réactif %1") : QStringLiteral("Formule du produit %1");
    auto* const row = new QHBoxLayout(&frame);
    row->setContentsMargins(12, 12, 12, 12);
    row->setSpacing(8);
    std::array<FormulaEdit*, 3> boxes{};
    for (int i = 0; i < 3; ++i) {
        if (i > 0)
            row->addWidget(new QLabel(QStringLiteral("+"), &frame));
        auto* const box = Named(new FormulaEdit(look.field, messages, &frame),
                                ArrayName("txtMolecule", 3 * side + i), name.arg(i + 1));
        box->setToolTip(toolTip);
        QFont large = box->font();
        large.setPointSizeF(large.pointSizeF() + look.larger);
        box->setFont(large);
        box->setMinimumWidth(90);
        row->addWidget(box);
        boxes.at(static_cast<std::size_t>(i)) = box;
    }
    return boxes;
}

} // namespace stoikal
