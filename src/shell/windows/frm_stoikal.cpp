#include "shell/windows/frm_stoikal.h"

#include "forms/colours.h"
#include "forms/form.h"
#include "shell/menu_tree.h"
#include "shell/product.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <algorithm>

namespace stoikal {
namespace {

/// The area of the child windows, with the background picture scaled to fill it.
class MainArea final : public QMdiArea
{
public:
    using QMdiArea::QMdiArea;

    void SetPicture(const QPixmap& picture)
    {
        m_picture = picture;
        m_scaled = QPixmap();
    }

    /// A child that is hidden, to be freed a moment later, no longer counts
    /// for the scroll bars: they are measured at a change of their policy.
    void MeasureScrollBars()
    {
        for (const auto policy : {Qt::ScrollBarAlwaysOff, Qt::ScrollBarAsNeeded}) {
            setHorizontalScrollBarPolicy(policy);
            setVerticalScrollBarPolicy(policy);
        }
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(viewport());
        painter.fillRect(viewport()->rect(), background());
        if (m_picture.isNull())
            return;
        const QSize filled = m_picture.size().scaled(viewport()->size(), Qt::KeepAspectRatioByExpanding);
        const double ratio = devicePixelRatioF();
        if (m_scaled.size() != filled * ratio) {
            m_scaled = m_picture.scaled(filled * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            m_scaled.setDevicePixelRatio(ratio);
        }
        QRect target(QPoint(), filled);
        // The signature stands at the lower right: what is cut off is cut elsewhere.
        target.moveBottomRight(viewport()->rect().bottomRight());
        painter.drawPixmap(target.topLeft(), m_scaled);
    }

private:
    QPixmap m_picture;
    QPixmap m_scaled; ///< the picture at the size of the area, made once a size
};

/// The frame of a child window. A restored child is hidden for a moment by its
/// frame, and the focus would wander on to the next control.
class ChildFrame final : public QMdiSubWindow
{
public:
    using QMdiSubWindow::QMdiSubWindow;

protected:
    void changeEvent(QEvent* event) override
    {
        const QPointer<QWidget> focused
            = event->type() == QEvent::WindowStateChange ? focusWidget() : nullptr;
        QMdiSubWindow::changeEvent(event);
        // It comes back as behind a menu: nobody chose it anew.
        if (focused != nullptr && focused != focusWidget() && !isMinimized())
            focused->setFocus(Qt::PopupFocusReason);
    }
};

} // namespace

frmStoikal::frmStoikal()
    : m_area(new MainArea(this))
{
    setObjectName(QStringLiteral("frmStoikal"));
    SetCaption(product::Caption());
    m_area->setObjectName(QStringLiteral("mdiArea"));
    m_area->setAccessibleName(QStringLiteral("Espace de travail"));
    // A window that comes over a maximised tool keeps its own size.
    m_area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    m_area->setBackground(palette().window());
    menuBar()->setObjectName(QStringLiteral("menuBar"));
    static_cast<MainArea*>(m_area)->MeasureScrollBars();
    setCentralWidget(m_area);
    for (const MenuNode& node : MenuTree()) {
        QMenu* const menu = menuBar()->addMenu(node.caption);
        menu->setObjectName(node.name);
        menu->menuAction()->setObjectName(node.name);
        if (node.command == Command::ViewMenu)
            m_viewMenu = menu;
        AddNodes(*menu, node.children);
    }
    connect(m_viewMenu, &QMenu::aboutToShow, this, &frmStoikal::ListChildren);
    ShowMenu({});
    setMouseTracking(true);
    m_area->viewport()->setMouseTracking(true);
    menuBar()->setMouseTracking(true);
}

void frmStoikal::AddNodes(QMenu& menu, const std::vector<MenuNode>& nodes)
{
    for (const MenuNode& node : nodes) {
        if (node.IsSeparator()) {
            menu.addSeparator()->setObjectName(node.name);
        } else if (node.children.empty()) {
            AddEntry(menu, node);
        } else {
            QMenu* const sub = menu.addMenu(node.caption);
            sub->setObjectName(node.name);
            sub->menuAction()->setObjectName(node.name);
            Keep(node, *sub->menuAction());
            AddNodes(*sub, node.children);
        }
    }
}

void frmStoikal::AddEntry(QMenu& menu, const MenuNode& node)
{
    QAction* const action = menu.addAction(node.caption);
    action->setObjectName(node.name);
    action->setMenuRole(QAction::NoRole);
    action->setCheckable(node.canBeMarked);
    Keep(node, *action);
    connect(action, &QAction::triggered, this, [this, command = *node.command] {
        // The mark follows the state alone: a click does not set it by itself.
        ShowEntry(command);
        Q_EMIT EntryChosen(command);
    });
}

void frmStoikal::Keep(const MenuNode& node, QAction& action)
{
    m_actions.insert(*node.command, &action);
    m_captions.insert(*node.command, node.caption);
}

void frmStoikal::ShowMenu(const ProgramState& state)
{
    m_state = state;
    for (auto entry = m_actions.constBegin(); entry != m_actions.constEnd(); ++entry)
        ShowEntry(entry.key());
}

void frmStoikal::ShowEntry(Command command)
{
    QAction& action = *m_actions.value(command);
    const EntryState entry = EntryFor(command, m_state);
    action.setEnabled(entry.isEnabled);
    action.setVisible(entry.isVisible);
    action.setText(entry.caption.isEmpty() ? m_captions.value(command) : entry.caption);
    if (action.isCheckable())
        action.setChecked(entry.isMarked);
}

void frmStoikal::ListChildren()
{
    qDeleteAll(m_childActions);
    m_childActions.clear();
    int number = 0;
    const auto children = m_area->subWindowList();
    for (QMdiSubWindow* const child : children) {
        if (!child->isVisible())
            continue;
        if (m_childActions.isEmpty())
            m_childActions << m_viewMenu->addSeparator();
        QAction* const action = m_viewMenu->addAction(
            QStringLiteral("&%1 %2").arg(QString::number(++number), child->windowTitle()));
        action->setObjectName(QStringLiteral("Mnu_Fenetre(%1)").arg(number));
        connect(action, &QAction::triggered, child, [this, child] { ChooseChild(*child); });
        m_childActions << action;
    }
}

void frmStoikal::ChooseChild(QMdiSubWindow& child)
{
    m_area->setActiveSubWindow(&child);
    // A child of the run has nothing to type in: the keyboard goes on as after
    // any other entry.
    if (dynamic_cast<ChildFrame*>(&child) == nullptr)
        Q_EMIT ChildChosen();
}

void frmStoikal::SetBackground(const QPixmap& picture)
{
    static_cast<MainArea*>(m_area)->SetPicture(picture);
    m_area->viewport()->update();
}

void frmStoikal::SetCaption(const QString& caption)
{
    m_caption = caption;
    setWindowTitle(caption);
}

void frmStoikal::TidyBehindHiddenTools()
{
    const auto children = m_area->subWindowList();
    const bool isOneMaximised = std::any_of(children.begin(), children.end(), [](const QMdiSubWindow* child) {
        return !child->isHidden() && child->isMaximized();
    });
    if (isOneMaximised)
        return;
    // A maximised tool puts its buttons into the menu bar; when it goes, those
    // of the one before come back, though that one may have gone first. So does
    // the caption that it met.
    for (const Qt::Corner corner : {Qt::TopLeftCorner, Qt::TopRightCorner}) {
        if (QWidget* const left = menuBar()->cornerWidget(corner)) {
            menuBar()->setCornerWidget(nullptr, corner);
            left->hide();
        }
    }
    setWindowTitle(m_caption);
}

void frmStoikal::AddChild(Form* form)
{
    auto* const child
        = new QMdiSubWindow(m_area, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    child->setWidget(form);
    child->setAttribute(Qt::WA_DeleteOnClose);
    child->installEventFilter(this);
    m_area->addSubWindow(child);
    child->show();
}

void frmStoikal::AddTool(Form* form)
{
    auto* const child = new ChildFrame(m_area);
    child->setWidget(form);
    child->installEventFilter(this);
    m_area->addSubWindow(child);
    child->showMaximized();
    form->setFocus();
}

void frmStoikal::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Q_EMIT CloseAsked();
}

bool frmStoikal::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && qobject_cast<QMdiSubWindow*>(watched) != nullptr) {
        static_cast<MainArea*>(m_area)->MeasureScrollBars();
        // The child itself has still to take what is its own out of the menu bar.
        QMetaObject::invokeMethod(this, &frmStoikal::TidyBehindHiddenTools, Qt::QueuedConnection);
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace stoikal
