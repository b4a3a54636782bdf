#pragma once

#include <QObject>

class QWidget;

namespace stoikal {

class Messages;
class Programs;

/// The desktop's calculator: the one that starts it, closes it and looks whether
/// it still runs, since nobody reports that the user closed it.
class CalculatorWatch final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        Programs& programs;
        Messages& messages;
    };

    CalculatorWatch(const Services& services, QWidget& mainWindow);

    /// Starts it, or closes the one that was started; no calculator on this
    /// machine is told in a box.
    void Mnu_Calc_Click();

    bool IsMarked() const { return m_isMarked; }

    /// A movement of the pointer: the mark goes once the calculator is gone.
    void CheckCalculatorClosed();

Q_SIGNALS:
    /// It was started, or it is gone.
    void Changed();

private:
    void Mark(bool isMarked);

    Services m_services;
    QWidget& m_mainWindow;
    bool m_isMarked = false;
};

} // namespace stoikal
