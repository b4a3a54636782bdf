#pragma once

#include <QDialog>
#include <QWidget>

namespace stoikal {

/// Gives a control its name, by which tests and accessibility tools find it,
/// and its accessible name in French. An element of an array is "txtCoef(0)".
template <typename Control>
Control* Named(Control* control, const QString& name, const QString& accessibleName = {})
{
    control->setObjectName(name);
    if constexpr (requires { control->setAccessibleName(accessibleName); }) {
        if (!accessibleName.isEmpty())
            control->setAccessibleName(accessibleName);
    }
    return control;
}

/// The name of an element of an array of controls: "txtCoef(0)".
QString ArrayName(const char* array, int index);

/// A window that is not modal: a tool window kept above its parent, or, when it
/// is handed to the main area, a child there.
class Form : public QWidget
{
    Q_OBJECT

public:
    enum class Kind { Tool, Child };

    Form(const QString& name, const QString& caption, Kind kind, QWidget* parent);

    /// The window is to go: it gives up what it is doing, stores what it keeps, and
    /// says `Released`, at once or as soon as it can.
    virtual void Release() { Q_EMIT Released(); }

Q_SIGNALS:
    /// The title bar's cross, or Alt+F4. The window itself stays.
    void CloseAsked();
    /// Nothing of the window is running any more: it can be taken away.
    void Released();

protected:
    /// By Escape: only a window that holds nothing to lose answers.
    virtual void EscapePressed() { }
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
};

/// A modal window. Enter presses no hidden default button; Escape and the title
/// bar's cross do what `Cancelled` does.
class ModalForm : public QDialog
{
    Q_OBJECT

public:
    ModalForm(const QString& name, const QString& caption, QWidget* parent);

    void reject() final;

protected:
    /// By Escape: only windows with a cancel button or with nothing to lose answer.
    virtual void EscapePressed() { }
    /// By the title bar.
    virtual void TitleBarClosed() { done(Rejected); }
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
};

} // namespace stoikal
