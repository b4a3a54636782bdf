#include "shell/calculator_watch.h"

#include "forms/messages.h"
#include "platform/doors.h"

namespace stoikal {

CalculatorWatch::CalculatorWatch(const Services& services, QWidget& mainWindow)
    : m_services(services)
    , m_mainWindow(mainWindow)
{
}

void CalculatorWatch::Mark(bool isMarked)
{
    m_isMarked = isMarked;
    Q_EMIT Changed();
}

void CalculatorWatch::Mnu_Calc_Click()
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

void CalculatorWatch::CheckCalculatorClosed()
{
    if (m_isMarked && !m_services.programs.CalculatorRuns())
        Mark(false);
}

} // namespace stoikal
