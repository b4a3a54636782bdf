#include "monkey.h"

#include "exercise/windows/frm_equation.h"
#include "shell/shell.h"
#include "support/window_driver.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTextEdit>
#include <QWheelEvent>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDiaryLength = 40;
constexpr int kShortestPauseMs = 10;
constexpr int kLongestPauseMs = 400;
constexpr int kLongestWaitMs = 20'000;

QString NameOf(const QObject& object)
{
    const QString kind = QString::fromLatin1(object.metaObject()->className());
    return object.objectName().isEmpty() ? kind : kind + u' ' + object.objectName();
}

/// The names of an object and of all that it stands in.
QString PathOf(const QObject& object)
{
    return (object.parent() == nullptr ? QString() : PathOf(*object.parent())) + u'/' + NameOf(object);
}

/// A child window bears the name of what it holds.
QString NameOfWindow(const QWidget& window)
{
    const auto* const child = qobject_cast<const QMdiSubWindow*>(&window);
    return child != nullptr && child->widget() != nullptr ? child->widget()->objectName()
                                                          : window.objectName();
}

bool IsControl(const QWidget& widget)
{
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr
        || qobject_cast<const QLineEdit*>(&widget) != nullptr
        || qobject_cast<const QPlainTextEdit*>(&widget) != nullptr
        || qobject_cast<const QTextEdit*>(&widget) != nullptr
        || qobject_cast<const QComboBox*>(&widget) != nullptr
        || qobject_cast<const QAbstractSlider*>(&widget) != nullptr
        || qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr
        || qobject_cast<const QTabBar*>(&widget) != nullptr || widget.focusPolicy() != Qt::NoFocus
        || widget.objectName().startsWith(u"pic"_s);
}

/// A click brings the focus along. Leaving another box may open a message, behind
/// which this one is gone: then false.
bool TakesFocus(QWidget& widget)
{
    const QPointer<QWidget> there = &widget;
    if ((widget.focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus)
        widget.setFocus(Qt::MouseFocusReason);
    return there != nullptr;
}

} // namespace

Monkey::Monkey(Dice& dice, double limitMs)
    : m_dice(dice)
    , m_limitMs(limitMs)
{
}

void Monkey::Begin(Shell& shell, int lastAction)
{
    m_shell = &shell;
    m_last = lastAction;
    ++m_generation;
    m_turnBegan.reset();
    Post();
}

void Monkey::End()
{
    m_shell = nullptr;
    ++m_generation;
}

void Monkey::Post()
{
    QTimer::singleShot(0, this, [this, generation = m_generation] { TakeTurn(generation); });
}

void Monkey::TakeTurn(int generation)
{
    if (generation != m_generation)
        return;
    NoteDelay();
    if (m_done >= m_last) {
        End();
        Q_EMIT IsTired();
        return;
    }
    ++m_done;
    // Before the action: it may open a modal window, in which the monkey acts on.
    Post();
    m_turnBegan = virtual_time::ProcessorMs();
    // From a key to the next, or to a look at what the program says.
    virtual_time::Advance(kShortestPauseMs + m_dice.Below(kLongestPauseMs));
    Act();
}

void Monkey::NoteDelay()
{
    if (!m_turnBegan)
        return;
    const double ms = virtual_time::ProcessorMs() - *m_turnBegan;
    m_longestMs = std::max(m_longestMs, ms);
    if (ms > m_limitMs)
        m_delays.push_back({ms, m_diary.value(m_diary.size() - 1)});
}

void Monkey::Note(const QString& action)
{
    m_diary << u"%1: %2"_s.arg(Done()).arg(action);
    AddToDigest(m_diary.last());
    if (m_diary.size() > kDiaryLength)
        m_diary.removeFirst();
}

void Monkey::Act()
{
    if (QWidget* const popup = QApplication::activePopupWidget(); popup != nullptr) {
        ActInPopup(*popup);
        return;
    }
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal != nullptr && (modal->inherits("QPrintDialog") || modal->inherits("QFileDialog"))) {
        // Nothing may be printed.
        Note(u"cancels printing"_s);
        QTest::keyClick(modal, Qt::Key_Escape);
        return;
    }
    if (modal != nullptr && m_dice.Percent(50) && ActInModal(*modal))
        return;
    const int throwOfDice = m_dice.Below(100);
    if (throwOfDice < 38)
        ClickSomething();
    else if (throwOfDice < 56)
        TypeSomething();
    else if (throwOfDice < 68)
        PressSomething();
    else if (throwOfDice < 80)
        ChooseEntry();
    else if (throwOfDice < 88)
        LetTimePass();
    else if (throwOfDice < 94)
        AnswerExercise();
    else if (throwOfDice < 96)
        CloseSomething();
    else
        DragOrTurn();
}

void Monkey::ActInPopup(QWidget& popup)
{
    static const std::array kKeys{Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Return, Qt::Key_Escape};
    const Qt::Key key = kKeys.at(static_cast<std::size_t>(m_dice.Below(kKeys.size())));
    Note(u"key %1 in %2"_s.arg(key, 0, 16).arg(NameOf(popup)));
    QWidget* const inside = popup.focusWidget();
    QTest::keyClick(inside == nullptr ? &popup : inside, key);
}

/// What a person does in a window that asks something. False when there is
/// nothing special to do.
bool Monkey::ActInModal(QWidget& modal)
{
    if (modal.objectName() == u"frmSplash"_s) {
        Note(u"the splash is over"_s);
        Tick(Control<QTimer>(modal, "tmrSplash"));
        return true;
    }
    if (modal.objectName() == u"frmMotPasse"_s) {
        Fill(Control<QLineEdit>(modal, "txtPassWord"), QLatin1String(kPassword));
        return PressButton(modal, "cmdOK");
    }
    const auto boxes = modal.findChildren<QLineEdit*>();
    for (QLineEdit* const box : boxes) {
        if (box->isVisible() && box->isEnabled() && !box->isReadOnly() && box->text().isEmpty()) {
            Fill(*box, SomeText());
            return true;
        }
    }
    return m_dice.Percent(30) && PressButton(modal, "cmdOK");
}

bool Monkey::PressButton(QWidget& window, const char* name)
{
    auto* const button = window.findChild<QAbstractButton*>(QLatin1String(name));
    if (button == nullptr || !IsReachable(*button, button->rect().center()))
        return false;
    ClickAt(*button, button->rect().center(), "presses");
    return true;
}

void Monkey::Fill(QLineEdit& box, const QString& text)
{
    Note(u"fills %1 with %2"_s.arg(NameOf(box), text));
    const QPointer<QLineEdit> there = &box;
    if (!TakesFocus(box) || !IsReachable(box, box.rect().center()))
        return;
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    for (const QChar c : text) {
        // A refused key opens a box; what a person types behind it is lost.
        if (there == nullptr || !IsReachable(box, box.rect().center()))
            return;
        Type(box, QString(c));
    }
}

QString Monkey::SomeText()
{
    static const QStringList kTexts{
        u"1"_s,      u"2"_s,      u"3"_s,     u"12"_s,        u"0.5"_s,    u"1,5"_s,   u"-1"_s,
        u"99999"_s,  u"H2O"_s,    u"O2"_s,    u"H2"_s,        u"CH4"_s,    u"CO2"_s,   u"Fe"_s,
        u"Fe{3+}"_s, u"C2H6"_s,   u"NaCl"_s,  u"Al2(SO4)3"_s, u"x"_s,      u"Élève"_s, u"Paul"_s,
        u"3B"_s,     u"Sesame"_s, u"É 2₂+"_s, u"Serie"_s,     u"Essai1"_s, u"aq"_s,    u"g"_s,
        u"Q1.5"_s,   u"(((("_s,   u"#"_s,     u"/"_s,         u"'"_s,      u"<g>"_s,   u"CuSO4.5H2O"_s};
    return kTexts.at(m_dice.Below(kTexts.size()));
}

QList<QWidget*> Monkey::Windows() const
{
    QList<QWidget*> windows;
    const QWidget* const modal = QApplication::activeModalWidget();
    const auto tops = QApplication::topLevelWidgets();
    for (QWidget* const top : tops) {
        const bool isFree
            = modal == nullptr || modal == top || modal->isAncestorOf(top) || top->parentWidget() == modal;
        if (top->isVisible() && top->isEnabled() && isFree && top->windowType() != Qt::ToolTip)
            windows << top;
    }
    if (modal == nullptr && m_shell != nullptr) {
        const auto children = m_shell->MainWindow().Area().subWindowList();
        for (QMdiSubWindow* const child : children) {
            if (child->isVisible())
                windows << child;
        }
    }
    // The order of the application's own list hangs on addresses.
    std::stable_sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        return std::pair(NameOfWindow(*a), a->windowTitle()) < std::pair(NameOfWindow(*b), b->windowTitle());
    });
    return windows;
}

QWidget* Monkey::SomeWindow()
{
    const QList<QWidget*> windows = Windows();
    if (windows.isEmpty())
        return nullptr;
    QWidget* const window = windows.at(m_dice.Below(windows.size()));
    const QString name = NameOfWindow(*window);
    if (!name.isEmpty() && !m_seen.contains(name))
        m_seen << name;
    return window;
}

QList<QWidget*> Monkey::ControlsOf(QWidget& window) const
{
    QList<QWidget*> controls;
    const auto all = window.findChildren<QWidget*>();
    for (QWidget* const widget : all) {
        if (widget->window() == window.window() && IsControl(*widget)
            && IsReachable(*widget, widget->rect().center()))
            controls << widget;
    }
    return controls;
}

QWidget* Monkey::SomeControl()
{
    QWidget* const window = SomeWindow();
    if (window == nullptr)
        return nullptr;
    const QList<QWidget*> controls = ControlsOf(*window);
    return controls.isEmpty() ? window : controls.at(m_dice.Below(controls.size()));
}

bool Monkey::IsReachable(const QWidget& widget, const QPoint& point) const
{
    const QWidget* const modal = QApplication::activeModalWidget();
    const QWidget* own = &widget;
    while (own != nullptr && own != modal)
        own = own->parentWidget();
    if (!widget.isVisible() || !widget.isEnabled() || (modal != nullptr && own == nullptr))
        return false;
    const QWidget* const window = widget.window();
    const QPoint place = widget.mapTo(window, point);
    const QWidget* const hit = window->childAt(place);
    return window->rect().contains(place)
        && (hit == nullptr ? window == &widget : hit == &widget || widget.isAncestorOf(hit));
}

void Monkey::ClickAt(QWidget& widget, const QPoint& point, const char* what)
{
    Note(u"%1 %2 at %3,%4"_s.arg(QLatin1String(what), NameOf(widget)).arg(point.x()).arg(point.y()));
    if (auto* const button = qobject_cast<QAbstractButton*>(&widget); button != nullptr) {
        if (TakesFocus(*button) && IsReachable(*button, button->rect().center()))
            Click(*button);
        return;
    }
    QWidget* const window = widget.window();
    const QPoint inWindow = widget.mapTo(window, point);
    QWidget* const hit = window->childAt(inWindow);
    QWidget& target = hit == nullptr ? widget : *hit;
    if (!TakesFocus(target) || !IsReachable(target, target.mapFrom(window, inWindow)))
        return;
    const QPoint place = target.mapFrom(window, inWindow);
    const Qt::MouseButton button = m_dice.Percent(92) ? Qt::LeftButton : Qt::RightButton;
    if (m_dice.Percent(10))
        QTest::mouseDClick(&target, button, Qt::NoModifier, place);
    else
        QTest::mouseClick(&target, button, Qt::NoModifier, place);
}

void Monkey::ClickSomething()
{
    QWidget* const control = SomeControl();
    if (control == nullptr)
        return;
    QPoint point = control->rect().center();
    const QPoint anywhere(m_dice.Below(control->width()), m_dice.Below(control->height()));
    if (qobject_cast<QAbstractButton*>(control) == nullptr && IsReachable(*control, anywhere))
        point = anywhere;
    ClickAt(*control, point, "clicks");
}

void Monkey::TypeSomething()
{
    QWidget* const control = SomeControl();
    if (control == nullptr)
        return;
    if (auto* const box = qobject_cast<QLineEdit*>(control); box != nullptr) {
        Fill(*box, SomeText());
        return;
    }
    static const QString kLetters = u"0123456789+-=.,;/#'<>(){}[] HCONaFeé€₂"_s;
    const QChar letter = kLetters.at(m_dice.Below(kLetters.size()));
    Note(u"types %1 into %2"_s.arg(letter).arg(NameOf(*control)));
    Type(*control, QString(letter));
}

void Monkey::PressSomething()
{
    struct Combination {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    };
    static const std::vector<Combination> kKeys{{Qt::Key_Tab, {}},
                                                {Qt::Key_Tab, {}},
                                                {Qt::Key_Backtab, Qt::ShiftModifier},
                                                {Qt::Key_Return, {}},
                                                {Qt::Key_Enter, {}},
                                                {Qt::Key_Escape, {}},
                                                {Qt::Key_Space, {}},
                                                {Qt::Key_Delete, {}},
                                                {Qt::Key_Backspace, {}},
                                                {Qt::Key_Left, {}},
                                                {Qt::Key_Right, {}},
                                                {Qt::Key_Up, {}},
                                                {Qt::Key_Down, {}},
                                                {Qt::Key_Home, {}},
                                                {Qt::Key_End, {}},
                                                {Qt::Key_PageUp, {}},
                                                {Qt::Key_PageDown, {}},
                                                {Qt::Key_F1, {}},
                                                {Qt::Key_F10, {}},
                                                {Qt::Key_A, Qt::ControlModifier},
                                                {Qt::Key_C, Qt::ControlModifier},
                                                {Qt::Key_V, Qt::ControlModifier},
                                                {Qt::Key_X, Qt::ControlModifier},
                                                {Qt::Key_Z, Qt::ControlModifier},
                                                {Qt::Key_S, Qt::ControlModifier},
                                                {Qt::Key_Left, Qt::AltModifier},
                                                {Qt::Key_F, Qt::ControlModifier}};
    QWidget* window = SomeWindow();
    if (window == nullptr)
        return;
    QWidget* const inside = window->focusWidget();
    if (inside != nullptr && IsReachable(*inside, inside->rect().center()))
        window = inside;
    const Combination& combination = kKeys.at(static_cast<std::size_t>(m_dice.Below(std::ssize(kKeys))));
    Note(u"key %1 in %2"_s.arg(combination.key, 0, 16).arg(NameOf(*window)));
    QTest::keyClick(window, combination.key, combination.modifiers);
}

void Monkey::ChooseEntry()
{
    if (QApplication::activeModalWidget() != nullptr || m_shell == nullptr) {
        ClickSomething();
        return;
    }
    QList<QAction*> entries;
    const auto actions = m_shell->MainWindow().findChildren<QAction*>();
    for (QAction* const action : actions) {
        bool isReachable = action->isVisible() && action->isEnabled() && !action->isSeparator()
            && action->menu() == nullptr && action->objectName().startsWith(u"Mnu_"_s);
        const auto holders = action->associatedObjects();
        for (QObject* const holder : holders) {
            if (const auto* const menu = qobject_cast<QMenu*>(holder); menu != nullptr)
                isReachable = isReachable && menu->menuAction()->isEnabled();
        }
        // The end comes seldom: there is much else to be done.
        if (isReachable && (action->objectName() != u"Mnu_End"_s || m_dice.Percent(15)))
            entries << action;
    }
    if (entries.isEmpty())
        return;
    QAction* const entry = entries.at(m_dice.Below(entries.size()));
    Note(u"chooses %1"_s.arg(entry->objectName()));
    entry->trigger();
}

void Monkey::CloseSomething()
{
    QWidget* const window = SomeWindow();
    // The main window's cross ends the program, which its menu entry does often enough.
    if (window == nullptr || (qobject_cast<QMainWindow*>(window) != nullptr && !m_dice.Percent(5)))
        return;
    Note(u"closes %1"_s.arg(NameOf(*window)));
    window->close();
}

void Monkey::LetTimePass()
{
    QList<QTimer*> timers;
    const auto tops = QApplication::topLevelWidgets();
    for (QWidget* const top : tops) {
        const auto all = top->findChildren<QTimer*>();
        for (QTimer* const timer : all) {
            if (timer->isActive() && !timer->objectName().isEmpty())
                timers << timer;
        }
    }
    if (timers.isEmpty() || m_dice.Percent(50)) {
        const int ms = m_dice.Below(kLongestWaitMs);
        Note(u"waits %1 ms"_s.arg(ms));
        virtual_time::Advance(ms);
        return;
    }
    std::stable_sort(timers.begin(), timers.end(),
                     [](const QTimer* a, const QTimer* b) { return PathOf(*a) < PathOf(*b); });
    QTimer* const timer = timers.at(m_dice.Below(timers.size()));
    Note(u"waits for %1"_s.arg(timer->objectName()));
    Tick(*timer);
}

/// One coefficient of the exercise in its box, mostly the right one, or the
/// validation of them all.
void Monkey::AnswerExercise()
{
    frmEquation* const exercise = m_shell == nullptr ? nullptr : m_shell->RunWindows().Exercise();
    if (exercise == nullptr || QApplication::activeModalWidget() != nullptr) {
        ClickSomething();
        return;
    }
    const EquationRecord& record = m_shell->Run().Record();
    bool isFilled = false;
    for (std::size_t slot = 0; slot < record.Slots.size(); ++slot) {
        auto* const box = exercise->findChild<QLineEdit*>(ArrayName("txtCoef", static_cast<int>(slot)));
        const QString right = QString::number(record.Slots.at(slot).Coeff);
        if (box == nullptr || box->text() == right || !IsReachable(*box, box->rect().center()))
            continue;
        isFilled = true;
        Fill(*box, m_dice.Percent(90) ? right : u"7"_s);
    }
    if (!isFilled || m_dice.Percent(50))
        PressButton(*exercise, "cmdOther");
}

void Monkey::DragOrTurn()
{
    QWidget* const control = SomeControl();
    if (control == nullptr)
        return;
    const QPoint from(m_dice.Below(control->width()), m_dice.Below(control->height()));
    const QPoint to(m_dice.Below(control->width()), m_dice.Below(control->height()));
    if (m_dice.Percent(40)) {
        Note(u"turns the wheel over %1"_s.arg(NameOf(*control)));
        QWheelEvent event(from, control->mapToGlobal(from), {}, {0, m_dice.Percent(50) ? 120 : -120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &event);
        return;
    }
    Note(u"moves the mouse over %1"_s.arg(NameOf(*control)));
    // A selected text would be dragged away, in a loop of the desktop's.
    const bool isText = qobject_cast<QLineEdit*>(control) != nullptr
        || qobject_cast<QPlainTextEdit*>(control) != nullptr || qobject_cast<QTextEdit*>(control) != nullptr;
    const QPointer<QWidget> there = control;
    if (!isText && IsReachable(*control, from))
        QTest::mousePress(control, Qt::LeftButton, Qt::NoModifier, from);
    if (there != nullptr)
        QTest::mouseMove(control, to);
    if (there != nullptr && !isText)
        QTest::mouseRelease(control, Qt::LeftButton, Qt::NoModifier, to);
}

} // namespace stoikal
