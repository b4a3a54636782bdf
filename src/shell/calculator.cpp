#include "shell/calculator.h"

#include "forms/messages.h"
#include "platform/doors.h"

namespace stoikal {

Calculator::Calculator(const Services& services, QWidget& mainWindow)
    : m_services(services)
    , m_mainWindow(mainWindow)
{
}

void Calculator::Mark(bool isMarked)
{
    m_isMarked = isMarked;
    Q_EMIT MarkChanged(isMarked);
}

void Calculator::Mnu_Calc_Click()
{
    if (m_isMarked) {
        Mark(false);
        m_services.programs.CloseCalculator();
    } else if (m_services.programs.StartCalculator()) {
        Mark(true);
    } else {
        m_services.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"),
                                     QStringLiteral("Erreur sur chemin d'accés"));
    }
}

void Calculator::CheckCalculatorClosed()
{
    if (m_isMarked && !m_services.programs.CalculatorRuns())
        Mark(false);
}

} // namespace stoikal
