#include "balancing/windows/molecule_boxes.h"

#include "chemistry/windows/formula_edit.h"
#include "chemistry/windows/formula_side.h"
#include "forms/form.h"

#include <QHBoxLayout>
#include <algorithm>

namespace stoikal {

MoleculeBoxes::MoleculeBoxes(FormulaField field, Messages& messages, QWidget* parent)
    : QWidget(parent)
{
    auto* const sides = new QHBoxLayout(this);
    sides->setContentsMargins(0, 0, 0, 0);
    sides->setSpacing(16);
    const QString frameNames[]{QStringLiteral("fraReac"), QStringLiteral("fraProd")};
    const QString captions[]{QStringLiteral("Entrez les formules des molécules des réactifs : "),
                             QStringLiteral("Entrez les formules des molécules des produits : ")};
    const QString toolTips[]{
        QStringLiteral("Saisir ici la formule moléculaire d'un des réactifs en respectant la syntaxe"),
        QStringLiteral("Saisir ici la formule moléculaire d'un des produits en respectant la syntaxe")};
    for (int side = 0; side < 2; ++side) {
        auto* const frame = Named(new QGroupBox(captions[side], this), frameNames[side]);
        const auto boxes = MakeFormulaSide(*frame, side, {field, 1}, toolTips[side], messages);
        std::copy(boxes.begin(), boxes.end(), txtMolecule.begin() + std::ptrdiff_t{3} * side);
        sides->addWidget(frame);
    }
    for (FormulaEdit* const box : txtMolecule) {
        connect(box, &FormulaEdit::Edited, this, &MoleculeBoxes::Edited);
        connect(box, &FormulaEdit::FormulaChanged, this, &MoleculeBoxes::FormulaChanged);
    }
    setFocusProxy(txtMolecule[0]);
}

std::array<QString, 6> MoleculeBoxes::Texts() const
{
    std::array<QString, 6> texts;
    std::transform(txtMolecule.begin(), txtMolecule.end(), texts.begin(),
                   [](const FormulaEdit* box) { return box->text(); });
    return texts;
}

bool MoleculeBoxes::HasText(int side) const
{
    const auto from = txtMolecule.begin() + std::ptrdiff_t{3} * side;
    return std::any_of(from, from + 3, [](const FormulaEdit* box) { return !box->text().isEmpty(); });
}

void MoleculeBoxes::Empty()
{
    for (FormulaEdit* const box : txtMolecule)
        box->clear();
    FocusFirst();
}

void MoleculeBoxes::FocusFirst()
{
    txtMolecule[0]->setFocus();
}

} // namespace stoikal
