#pragma once

#include "shell/program_state.h"

#include <QHash>
#include <QMainWindow>
#include <QPixmap>

class QMdiArea;
class QMdiSubWindow;
class QMenu;

namespace stoikal {

class Form;
struct MenuNode;

/// The main window: the menu bar and the area of the child windows. The menus
/// only show the state of the program and report which entry was chosen; what
/// it means is the shell's matter.
class frmStoikal final : public QMainWindow
{
    Q_OBJECT

public:
    frmStoikal();

    /// Lets every entry of the menu bar say what is the case.
    void ShowMenu(const ProgramState& state);

    /// The caption while no maximised child adds its own to it.
    void SetCaption(const QString& caption);

    void SetBackground(const QPixmap& picture);

    /// The area of the child windows.
    QMdiArea& Area() { return *m_area; }

    /// Puts a form into the area as a child window that the user cannot close
    /// unless the form lets him.
    void AddChild(Form* form);

    /// Puts a tool into the area as a maximised child window that the user can
    /// move, restore and close.
    void AddTool(Form* form);

Q_SIGNALS:
    void EntryChosen(Command command);
    /// A child window was chosen, which the window itself carried out.
    void ChildChosen();
    void CloseAsked();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddNodes(QMenu& menu, const std::vector<MenuNode>& nodes);
    void AddEntry(QMenu& menu, const MenuNode& node);
    void Keep(const MenuNode& node, QAction& action);
    void ShowEntry(Command command);
    void ListChildren();
    void ChooseChild(QMdiSubWindow& child);
    /// Takes what hidden tools left in the menu bar and in the caption.
    void TidyBehindHiddenTools();

    ProgramState m_state; ///< as it was last shown
    QMdiArea* m_area;
    QString m_caption;
    QHash<Command, QAction*> m_actions;
    QHash<Command, QString> m_captions; ///< of the menu tree
    QMenu* m_viewMenu = nullptr;
    QList<QAction*> m_childActions;
};

} // namespace stoikal
