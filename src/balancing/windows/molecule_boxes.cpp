#include "balancing/windows/molecule_boxes.h"

#include "chemistry/windows/formula_edit.h"
#include "forms/form.h"

#include <QHBoxLayout>
#include <QLabel>
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
    const QString names[]{QStringLiteral("Formule du réactif %1"), QStringLiteral("Formule du produit %1")};
    for (int side = 0; side < 2; ++side) {
        auto* const frame = Named(new QGroupBox(captions[side], this), frameNames[side]);
        auto* const row = new QHBoxLayout(frame);
        row->setContentsMargins(12, 12, 12, 12);
        row->setSpacing(8);
        for (int i = 0; i < 3; ++i) {
            const int position = 3 * side + i;
            if (i > 0)
                row->addWidget(new QLabel(QStringLiteral("+"), frame));
            auto* const box = Named(new FormulaEdit(field, messages, frame),
                                    ArrayName("txtMolecule", position), names[side].arg(i + 1));
            box->setToolTip(toolTips[side]);
            QFont large = box->font();
            large.setPointSizeF(large.pointSizeF() + 1);
            box->setFont(large);
            box->setMinimumWidth(90);
            row->addWidget(box);
            connect(box, &FormulaEdit::Edited, this, &MoleculeBoxes::Edited);
            connect(box, &FormulaEdit::FormulaChanged, this, &MoleculeBoxes::FormulaChanged);
            txtMolecule.at(static_cast<size_t>(position)) = box;
        }
        sides->addWidget(frame);
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
    const auto from = txtMolecule.begin() + 3 * side;
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
