#pragma once

#include "balancing/windows/event_turns.h"
#include "balancing/windows/searching_form.h"
#include "base/outcome.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

class QCheckBox;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace stoikal {

class EquationPattern;
class MoleculeBoxes;

/// Finds the equations of all files of the folder that hold given molecules, and
/// can gather them in a file.
class frmSearch final : public SearchingForm
{
    Q_OBJECT

public:
    frmSearch(const Doors& doors, QWidget* parent);

    /// Lists the files of the folder anew.
    void ShowFiles(const Outcome<QStringList>& files);

Q_SIGNALS:
    /// The equations found were written to this file and the user may want it open.
    void FileGathered(const QString& path);

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Gathering {
        QString path; ///< empty: nothing is gathered
        QList<QByteArray> lines;
    };

    void Build();
    void SearchEquations();
    bool ChooseOutput(Gathering& gathering);
    /// False when the search ended early: by a fault, or given up.
    bool SearchFiles(const Outcome<QStringList>& files, Gathering& gathering);
    void SearchFile(const QString& name, EquationPattern& pattern, Gathering& gathering);
    void AddToList(const QString& text);
    void ShowList();
    void TakeTurn();

    EventTurns m_turns;
    QStringList m_listed; ///< the files that the list shows
    QString m_unshown; ///< findings that are not in the box yet

    MoleculeBoxes* m_boxes;
    QPushButton* cmdSearch;
    QPushButton* cmdNewMol;
    QPushButton* cmdClearList;
    QCheckBox* chkSave;
    QListWidget* flbEQU;
    QPlainTextEdit* txtResult;
};

} // namespace stoikal
