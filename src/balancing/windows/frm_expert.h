#pragma once

#include "balancing/balancing_engine.h"
#include "forms/form.h"

class QCheckBox;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace stoikal {

class Clock;
class Dialogs;
class Messages;
class MoleculeBoxes;
class Settings;

/// Balances any equation of up to three reactants and three products, keeps a
/// running list of the results, and adds the last one to a file.
class frmExpert final : public Form, private BalancingObserver
{
    Q_OBJECT

public:
    struct Doors {
        Clock& clock;
        Dialogs& dialogs;
        Messages& messages;
        Settings& settings;
        QString equationFolder;
    };

    frmExpert(const Doors& doors, QWidget* parent);

    /// Gives up a search that is going on.
    void StopSearch() { m_isStopped = true; }

    /// Asks for the window's end; a search is given up first.
    void Close();

Q_SIGNALS:
    /// The window can be freed: nothing of it is running.
    void Unloaded();
    void MouseMovedOver();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void Build();
    void cmdBalance_Click();
    void cmdNewMol_Click();
    void cmdClearList_Click();
    void cmdSave_Click();
    void ShowWhatCanBeDone();

    void Append(const QString& text) override;
    void ResultWritten() override;
    bool KeepsUnknownSymbol(const QString& title, const QString& question) override;
    void SearchBegins() override;
    void SearchEnds() override;
    void AttemptsBegin(int attempts) override;
    bool AttemptsDone(int attempts) override;
    void AttemptsEnd() override;

    Doors m_doors;
    int m_equationNumber = 0;
    int m_numberBefore = 0; ///< the number and the list as the last run found them
    QString m_listBefore;
    bool m_isBusy = false;
    bool m_isStopped = false;
    bool m_closesBehind = false;
    std::int64_t m_lastTurn = 0;
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
