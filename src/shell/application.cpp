#include "shell/application.h"

#include "base/fatal_fault.h"
#include "base/full_disk.h"
#include "equation_files/equation_line.h"

#include <QTimer>
#include <QWidget>
#include <cstdlib>

namespace stoikal {

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv)
{
    TreatFileSizeLimitAsFullDisk();
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        // While the last box is open, it stays the last one: the program ends behind it.
        if (m_isEnding)
            return false;
        ReportCurrentException();
    }
}

void Application::RunGuarded(const std::function<void()>& work)
{
    try {
        work();
    } catch (...) {
        ReportCurrentException();
    }
}

void Application::ReportCurrentException()
{
    try {
        throw;
    } catch (const FatalFault& fault) {
        const FatalFault placed = m_place ? m_place(fault) : fault;
        EndByFault(QStringLiteral("Stoikal"), placed.MessageText(), QMessageBox::Critical);
    } catch (const DataSyntaxError& error) {
        EndByFault(error.Title(), error.Text(), QMessageBox::Information);
    } catch (const MissingDataError& error) {
        EndByFault(error.Title(), error.Text(), QMessageBox::Critical);
    } catch (const std::exception& error) {
        const FatalFault fault(QStringLiteral("erreur interne (%1).").arg(QString::fromUtf8(error.what())));
        EndByFault(QStringLiteral("Stoikal"), (m_place ? m_place(fault) : fault).MessageText(),
                   QMessageBox::Critical);
    }
}

void Application::EndByFault(const QString& title, const QString& text, QMessageBox::Icon icon)
{
    m_isEnding = true;
    const auto widgets = topLevelWidgets();
    for (QWidget* const widget : widgets) {
        const auto timers = widget->findChildren<QTimer*>();
        for (QTimer* const timer : timers)
            timer->stop();
        // The exercise and whatever was modal must not stand before the box.
        if (!widget->inherits("QMainWindow"))
            widget->hide();
    }
    if (m_cleaner)
        m_cleaner();
    DesktopMessages messages;
    if (icon == QMessageBox::Critical)
        messages.Critical(nullptr, title, text);
    else
        messages.Information(nullptr, title, text);
    // No unload handlers, no code behind a nested loop: the process is over.
    std::_Exit(EXIT_FAILURE);
}

} // namespace stoikal
