#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <cstdlib>

/// Ends the process when something in the window of that name was painted for the first time,
/// so that the life of the process is the time from exec to the first paint.
class FirstPaint final : public QObject
{
public:
    explicit FirstPaint(const char* name)
        : m_name(QLatin1String(name))
    {
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // A window that its contents cover wholly is never painted itself.
        auto* const widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(watched) : nullptr;
        if (widget != nullptr && widget->window()->objectName() == m_name) {
            QMetaObject::invokeMethod(
                qApp, [] { std::_Exit(EXIT_SUCCESS); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    QString m_name;
};
