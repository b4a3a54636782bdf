#pragma once

#include "forms/messages.h"

#include <QApplication>
#include <functional>

namespace stoikal {

/// The application object. Its `notify` is the one place that catches: a fault
/// that reaches it is told once, and the process ends with code 1. Nothing of
/// the interrupted code runs on, not even behind a nested event loop.
class Application final : public QApplication
{
public:
    Application(int& argc, char** argv);

    /// What is to be saved or closed before the process ends by a fault.
    void SetFaultCleaner(std::function<void()> cleaner) { m_cleaner = std::move(cleaner); }
    /// Gives a fault its place where it has none: the line being worked.
    void SetFaultPlace(std::function<class FatalFault(const class FatalFault&)> place)
    {
        m_place = std::move(place);
    }

    /// Runs a piece of work under the same roof, before the event loop stands.
    void RunGuarded(const std::function<void()>& work);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    [[noreturn]] void EndByFault(const QString& title, const QString& text, QMessageBox::Icon icon);
    [[noreturn]] void ReportCurrentException();

    std::function<void()> m_cleaner;
    std::function<class FatalFault(const class FatalFault&)> m_place;
    bool m_isEnding = false;
};

} // namespace stoikal
