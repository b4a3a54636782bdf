#pragma once

#include "forms/form.h"
#include "tools/text_file.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace stoikal {

class Messages;
class Programs;

/// A text file of the teacher's beside the running program: the pupils' results
/// to read, or the tips to add to. It finds words, saves where changes are meant
/// and can hand the file to the desktop's own editor. It closes nothing itself.
class TextWindow final : public Form
{
    Q_OBJECT

public:
    enum class Use { Read, Edit };

    struct Doors {
        Messages& messages;
        Programs& programs;
    };

    /// The window of a file, empty until `Load`.
    TextWindow(const QString& path, const QString& caption, Use use, const Doors& doors, QWidget* parent);

    const QString& Path() const { return m_file.Path(); }

    /// Shows the file as it stands on the disk and goes to its end. False, and
    /// told, when it cannot be read; a missing file is an empty text.
    bool Load();

    /// True while the text differs from what was loaded or saved.
    bool IsModified() const;

    /// True when the window can be closed: nothing in it is unsaved, or the
    /// teacher agrees to lose it.
    bool MayClose();

    /// Where something is unsaved, offers to save it until it is saved or given
    /// up: the program ends.
    void OfferToSave();

protected:
    bool event(QEvent* event) override;

private:
    enum class Direction { Forwards, Backwards, FromHere };

    void Build(Use use);
    void BuildKeys();
    QStringList Lines() const;
    Outcome<QStringList> ReadLines();
    void ShowLines(const QStringList& lines);
    bool Save();
    void RefreshIfChanged();
    void Find(Direction direction);
    void ShowState(const QString& news = {});
    void cmdSave_Click();
    void cmdEditor_Click();

    TextFile m_file;
    Use m_use;
    Doors m_doors;

    QPlainTextEdit* txtTexte;
    QLineEdit* txtFind;
    QPushButton* cmdNext;
    QPushButton* cmdPrevious;
    QLabel* lblState;
    QPushButton* cmdReload;
    QPushButton* cmdSave;
    QPushButton* cmdEditor;
    QPushButton* cmdClose;
};

} // namespace stoikal
