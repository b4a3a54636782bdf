#include "chemistry/windows/frm_cal_mol.h"

#include "base/fatal_fault.h"
#include "base/number_text.h"
#include "chemistry/formula.h"
#include "chemistry/windows/formula_edit.h"
#include "forms/messages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace stoikal {

frmCalMol::frmCalMol(Messages& messages, QChar separator, QWidget* parent)
    : Form(QStringLiteral("frmCalMol"), QStringLiteral("Calcul masse molaire"), Kind::Tool, parent)
    , m_messages(messages)
    , m_separator(separator)
    , txtMolecule(Named(new FormulaEdit(FormulaField::CalMol, messages, this), QStringLiteral("txtMolecule"),
                        QStringLiteral("Formule chimique de la molécule")))
    , lblCalMol(Named(new QLabel(this), QStringLiteral("lblCalMol")))
{
    Build();
    connect(txtMolecule, &FormulaEdit::FormulaChanged, this, &frmCalMol::txtMolecule_Change);
    ShowMass(0);
    setFocusProxy(txtMolecule);
    setMouseTracking(true);
}

void frmCalMol::Build()
{
    auto* const question = Named(
        new QLabel(QStringLiteral("Veuillez saisir ci-dessous la formule chimique de votre molécule : "),
                   this),
        QStringLiteral("Label1"));
    auto* const caption
        = Named(new QLabel(QStringLiteral("Masse molaire : "), this), QStringLiteral("Label2"));
    txtMolecule->setToolTip(QStringLiteral("Saisissez ici la formule moléculaire en respectant la syntaxe."));
    QFont large = txtMolecule->font();
    large.setPointSizeF(large.pointSizeF() + 2);
    txtMolecule->setFont(large);
    large.setBold(true);
    lblCalMol->setFont(large);
    lblCalMol->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const result = new QHBoxLayout;
    result->setSpacing(8);
    result->addWidget(caption);
    result->addWidget(lblCalMol, 1);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    rows->addWidget(question);
    rows->addWidget(txtMolecule);
    rows->addSpacing(4);
    rows->addLayout(result);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

void frmCalMol::txtMolecule_Change()
{
    try {
        ShowMass(MassOfFormula());
    } catch (const FatalFault& fault) {
        // The operation is over without a result; what was typed stays.
        ShowMass(0);
        m_messages.OperationFault(this, fault.OperationText());
    }
}

double frmCalMol::MassOfFormula()
{
    QStringList unknown;
    const MolarMassResult result = MolarMass(txtMolecule->text(), [&unknown](const QString& symbol) {
        if (!unknown.contains(symbol))
            unknown << symbol;
    });
    for (const QString& symbol : unknown)
        m_messages.Warning(this, QStringLiteral("Symbole d'atome inconnu"), UnknownAtomMessage(symbol));
    return result.gramsPerMole;
}

void frmCalMol::ShowMass(double gramsPerMole)
{
    const QString number
        = gramsPerMole == 0 ? QStringLiteral("-") : FormatMask(gramsPerMole, u"#0.0000", m_separator);
    lblCalMol->setText(QStringLiteral("%1 g/mol").arg(number));
    lblCalMol->setAccessibleName(QStringLiteral("Masse molaire\u00A0: %1").arg(lblCalMol->text()));
}

} // namespace stoikal
