#pragma once

#include "balancing/findings_file.h"
#include "balancing/windows/event_turns.h"
#include "balancing/windows/searching_form.h"
#include "base/outcome.h"

#include <QByteArray>
#include <QStringList>
#include <optional>

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
    void Build();
    void SearchEquations();
    std::optional<QString> ChooseOutput();
    bool OpenOutput(const QString& path);
    void WriteFindings();
    void Report(const QString& reason);
    /// False when the search ended early: at a wrong line, or given up.
    bool SearchFiles(const QStringList& files);
    bool SearchFile(const QString& name, EquationPattern& pattern);
    Outcome<QByteArray> ReadFile(const QString& path) const;
    void AddToList(const QString& text);
    void ShowList();
    void TakeTurn();

    EventTurns m_turns;
    QStringList m_listed; ///< the files that the list shows
    QString m_unshown; ///< findings that are not in the box yet
    std::optional<FindingsFile> m_findings; ///< of a search that gathers

    MoleculeBoxes* m_boxes;
    QPushButton* cmdSearch;
    QPushButton* cmdNewMol;
    QPushButton* cmdClearList;
    QCheckBox* chkSave;
    QListWidget* flbEQU;
    QPlainTextEdit* txtResult;
};

} // namespace stoikal
