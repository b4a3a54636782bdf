#pragma once

#include "forms/menu_state.h"

#include <QMainWindow>
#include <QPixmap>

class QMdiArea;
class QMdiSubWindow;
class QMenu;

namespace stoikal {

class Form;
struct MenuNode;

/// The main window: the menu bar and the area of the child windows. The menus
/// only show the menu state and say which entry was chosen; what it means is
/// the shell's matter.
class frmStoikal final : public QMainWindow
{
    Q_OBJECT

public:
    explicit frmStoikal(MenuState& state);

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
    /// An entry was chosen; without a name one that the window itself carried out.
    void EntryChosen(const QString& name);
    void CloseAsked();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddNodes(QMenu& menu, const std::vector<MenuNode>& nodes);
    void AddEntry(QMenu& menu, const MenuNode& node);
    void ShowEntry(const QString& name);
    void ListChildren();
    void ChooseChild(QMdiSubWindow& child);
    /// Takes what hidden tools left in the menu bar and in the caption.
    void TidyBehindHiddenTools();

    MenuState& m_state;
    QMdiArea* m_area;
    QString m_caption;
    QHash<QString, QAction*> m_actions;
    QMenu* m_viewMenu = nullptr;
    QList<QAction*> m_childActions;
};

} // namespace stoikal
