#pragma once

#include "balancing/windows/balancing_watch.h"
#include "balancing/windows/searching_form.h"

class QCheckBox;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace stoikal {

class MoleculeBoxes;

/// Balances any equation of up to three reactants and three products, keeps a
/// running list of the results, and adds the last one to a file.
class frmExpert final : public SearchingForm, private BalancingWatch
{
    Q_OBJECT

public:
    frmExpert(const Doors& doors, QWidget* parent);

private:
    void Build();
    void cmdBalance_Click();
    void cmdNewMol_Click();
    void cmdClearList_Click();
    void cmdSave_Click();
    void ShowWhatCanBeDone();

    void Append(const QString& text) override;
    int ResultNumber(int /*numberOfTask*/) const override { return m_equationNumber; }
    void ResultWritten() override;
    QProgressBar& AttemptsBar() override { return *pgbCompteur; }
    bool IsGivenUp() const override { return IsStopped(); }

    int m_equationNumber = 0;
    int m_numberBefore = 0; ///< the number and the list as the last run found them
    QString m_listBefore;
    std::array<QString, 6> m_molecules; ///< of the last run
    std::array<double, 6> m_coefficients{}; ///< of the last run

    MoleculeBoxes* m_boxes;
    QPushButton* cmdBalance;
    QPushButton* cmdNewMol;
    QPushButton* cmdClearList;
    QPushButton* cmdSave;
    QCheckBox* chkOption;
    QPlainTextEdit* txtResult;
    QProgressBar* pgbCompteur;
};

} // namespace stoikal
