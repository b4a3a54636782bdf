#pragma once

#include <QObject>

namespace stoikal {

/// What every window of the program has, handled once for all of them: F1 asks
/// for help, and the pointer moves. It watches the events of the whole
/// application as long as it lives and knows nothing of what follows from them.
class WindowEvents final : public QObject
{
    Q_OBJECT

public:
    WindowEvents();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// F1 was pressed in the window of this name, or in the child of the main area
    /// that is in front. A message box or a file dialog is none of ours.
    void HelpRequested(const QString& window);
    /// The pointer moved over the window or the child of this name, or over one of
    /// its controls that follow the pointer.
    void PointerMoved(const QString& window);

private:
    bool RequestHelp(const QWidget& focused);
};

} // namespace stoikal
