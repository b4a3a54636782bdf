#pragma once

#include "forms/form.h"

class QLabel;

namespace stoikal {

class FormulaEdit;
class Messages;

/// Gives the molar mass of a formula at each key. Where the window stands and
/// what its boxes must not cover is who holds it to see to.
class frmCalMol final : public Form
{
    Q_OBJECT

public:
    frmCalMol(Messages& messages, QChar separator, QWidget* parent);

private:
    void Build();
    void txtMolecule_Change();
    double MassOfFormula();
    void ShowMass(double gramsPerMole);

    Messages& m_messages;
    QChar m_separator;

    FormulaEdit* txtMolecule;
    QLabel* lblCalMol;
};

} // namespace stoikal
