#pragma once

#include "balancing/windows/balancing_watch.h"
#include "editor/equation_balancing.h"
#include "editor/work_file.h"
#include "forms/form.h"

#include <QStringList>
#include <optional>
#include <vector>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QScrollBar;
class QTabWidget;
class QTimer;

namespace stoikal {

class Clock;
class CommentPage;
class DataPage;
class FormulaPage;
class frmPreview;
class Messages;
class Screen;
class Settings;
class SettingsStore;
class StatePage;

/// The teacher's editor of equation files, one equation at a time. The equations
/// live in the work file; what stands in the boxes follows them there within a
/// moment, so that nothing is lost with the process.
class frmNewFile final : public ModalForm, private BalancingWatch
{
    Q_OBJECT

public:
    struct Doors {
        Clock& clock;
        Messages& messages;
        const Screen& screen;
        Settings& settings;
        SettingsStore& store;
        QString workFile; ///< path of the work file
        QString equationFolder;
    };

    frmNewFile(const Doors& doors, QWidget* parent);
    ~frmNewFile() override;

    /// A new file: the ready-made head and a blank equation. False, told to the
    /// user, when there can be no work file.
    bool StartNew();
    /// A file of the equation folder. FatalFault when a line of it cannot be
    /// taken in; false, told to the user, when it cannot be read.
    bool LoadFileIntoEditor(const QString& fileName, FileType type);
    /// What an earlier editor left behind in the work file.
    void TakeUp(const WorkDesk& desk);

Q_SIGNALS:
    /// The help button was pressed.
    void HelpRequested();

protected:
    void EscapePressed() override;
    void TitleBarClosed() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void setVisible(bool visible) override;

private:
    void MakeControls();
    void Build();
    void Connect();
    QGroupBox* MakeFileFrame();

    bool CheckEquationEntry();
    bool CheckData();
    bool StoreEquation(int number);
    void ShowEquation(int number);
    void RefreshPreview(int count);
    void RefreshMVQCaptions();
    void InsertEquation(int number);
    void DeleteEquation(int number);
    bool CheckAndStore();
    void GoTo(int number);
    void Edited();
    void SaveDraft();
    WorkEquation Entered() const;
    void ShowUse();
    void ShowDesk(const WorkDesk& desk, bool takesComments);
    WorkDesk DeskNow() const;
    void SetBar();
    void FocusFirstFormula();
    void FocusPage();
    bool Kept(const Outcome<QString>& written);
    void CheckLeftFormulas();
    void ReportUnknownSymbols();
    bool MayStore();
    bool AButtonIsDown() const;
    FileType Type() const;

    void txtNameFile_Change();
    bool TakesAsExtension(const QString& text);
    void hscNumEqu_Change();
    void hscNumEqu_GotFocus();
    void cmdInsEqu_Click();
    void cmdSupEqu_Click();
    void chkPreview_Click();
    void cmdValid_Click();
    bool NameIsFit(const QString& name);
    bool MayWrite(const QString& fileName);
    bool MayLackData(const std::vector<WorkEquation>& equations);
    void WriteFile(const QString& fileName);
    void CloseUnlessWorkIsKept();
    void Unload(int result);
    void UnloadPreview();

    void Append(const QString& text) override;
    QProgressBar& AttemptsBar() override { return *pgbCompteur; }

    Doors m_doors;
    WorkFile m_work;
    WorkDesk m_desk;
    WorkEquation m_stored; ///< the equation shown, as it was stored or loaded last
    PreviewListing m_listing;
    std::vector<int> m_failed;
    QStringList m_leftFormulas; ///< of boxes that the keyboard left, their symbols not checked yet
    bool m_isShowing = false; ///< the boxes are being filled by program
    bool m_isBusy = false; ///< the engine is at work
    bool m_focusWaits = false;
    std::optional<QString> m_nameBeforePoint; ///< a point was typed behind it, and the extension may follow
    QString m_extensionTyped; ///< what of the extension was typed behind the point
    bool m_draftFailed = false; ///< it was told that the work file cannot be written
    bool m_isUnloaded = false;

    QLineEdit* txtNameFile = nullptr;
    QRadioButton* optType[2]{};
    QListWidget* flbAllFilesEQU = nullptr;
    QTabWidget* sstEdit = nullptr;
    FormulaPage* m_formulas = nullptr;
    StatePage* m_states = nullptr;
    CommentPage* m_comments = nullptr;
    DataPage* m_data = nullptr;
    QScrollArea* m_sheet = nullptr;
    QScrollBar* hscNumEqu = nullptr;
    QLineEdit* txtNumEqu = nullptr;
    QLabel* lblCount = nullptr;
    QPushButton* cmdInsEqu = nullptr;
    QPushButton* cmdSupEqu = nullptr;
    QCheckBox* chkPreview = nullptr;
    QPushButton* cmdValid = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdHelp = nullptr;
    QLabel* imgECHEC = nullptr;
    QLabel* lblECHEC = nullptr;
    QProgressBar* pgbCompteur = nullptr;
    QTimer* tmrDraft = nullptr;
    frmPreview* m_preview = nullptr;
};

} // namespace stoikal
