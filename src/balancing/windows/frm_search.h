#pragma once

#include "base/outcome.h"
#include "forms/form.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

class QCheckBox;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace stoikal {

class Clock;
class Dialogs;
class EquationPattern;
class Messages;
class MoleculeBoxes;
class Settings;

/// Finds the equations of all files of the folder that hold given molecules, and
/// can gather them in a file.
class frmSearch final : public Form
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

    frmSearch(const Doors& doors, QWidget* parent);

    void StopSearch() { m_isStopped = true; }
    /// Asks for the window's end; a search is given up first.
    void Close();
    /// Lists the files of the folder anew.
    void ShowFiles(const Outcome<QStringList>& files);

Q_SIGNALS:
    /// The window can be freed: nothing of it is running.
    void Unloaded();
    /// The equations found were written to this file and the user may want it open.
    void FileGathered(const QString& path);
    void MouseMovedOver();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
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

    Doors m_doors;
    QString m_unshown; ///< findings that are not in the box yet
    bool m_isBusy = false;
    bool m_isStopped = false;
    bool m_closesBehind = false;
    std::int64_t m_lastTurn = 0;

    MoleculeBoxes* m_boxes;
    QPushButton* cmdSearch;
    QPushButton* cmdNewMol;
    QPushButton* cmdClearList;
    QCheckBox* chkSave;
    QListWidget* flbEQU;
    QPlainTextEdit* txtResult;
};

} // namespace stoikal
