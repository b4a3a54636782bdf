#include "editor/windows/formula_page.h"

#include "chemistry/windows/formula_edit.h"
#include "chemistry/windows/formula_side.h"
#include "forms/form.h"

#include <QFocusEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace stoikal {

FormulaPage::FormulaPage(Messages& messages, QWidget* parent)
    : QWidget(parent)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(16);
    auto* const sides = new QHBoxLayout;
    sides->setSpacing(8);
    const QString captions[]{QStringLiteral("Réactifs"), QStringLiteral("Produits")};
    const QString toolTips[]{QStringLiteral("Saisir la formule d'un réactif"),
                             QStringLiteral("Saisir la formule d'un produit")};
    for (int side = 0; side < 2; ++side) {
        if (side == 1)
            sides->addWidget(new QLabel(QStringLiteral("\u2192"), this), 0, Qt::AlignVCenter);
        auto* const frame = new QGroupBox(captions[side], this);
        const auto boxes
            = MakeFormulaSide(*frame, side, {FormulaField::NewFile, 2}, toolTips[side], messages);
        std::copy(boxes.begin(), boxes.end(), txtMolecule.begin() + std::ptrdiff_t{3} * side);
        sides->addWidget(frame, 1);
    }
    for (FormulaEdit* const box : txtMolecule) {
        box->installEventFilter(this);
        connect(box, &FormulaEdit::Edited, this, &FormulaPage::Edited);
        connect(box, &FormulaEdit::FormulaChanged, this, &FormulaPage::FormulaChanged);
    }
    auto* const advice = new QLabel(
        QStringLiteral(
            "Une charge s'écrit entre accolades\u00A0: Fe{3+}, SO4{2-}. Les coefficients sont calculés "
            "par le logiciel.\nLes touches Page préc. et Page suiv. passent d'une équation à l'autre."),
        this);
    advice->setWordWrap(true);
    advice->setForegroundRole(QPalette::PlaceholderText);
    rows->addLayout(sides);
    rows->addWidget(advice);
    rows->addStretch();
}

std::array<QString, WorkEquation::kSlots> FormulaPage::Texts() const
{
    std::array<QString, WorkEquation::kSlots> texts;
    std::transform(txtMolecule.begin(), txtMolecule.end(), texts.begin(),
                   [](const FormulaEdit* box) { return box->text(); });
    return texts;
}

void FormulaPage::Show(const std::array<QString, WorkEquation::kSlots>& texts)
{
    for (std::size_t slot = 0; slot < texts.size(); ++slot)
        txtMolecule.at(slot)->setText(texts.at(slot));
}

bool FormulaPage::HasText(int side) const
{
    const auto* const from = txtMolecule.begin() + 3 * static_cast<std::ptrdiff_t>(side);
    return std::any_of(from, from + 3, [](const FormulaEdit* box) { return !box->text().isEmpty(); });
}

void FormulaPage::FocusFirst()
{
    txtMolecule[0]->setFocus();
}

bool FormulaPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // A message or a menu over the window is no leaving of the box.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            Q_EMIT BoxLeft(static_cast<FormulaEdit*>(watched)->text());
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace stoikal
