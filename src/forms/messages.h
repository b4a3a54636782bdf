#pragma once

#include <QMessageBox>
#include <QString>
#include <functional>
#include <utility>

class QWidget;

namespace stoikal {

struct Message {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::Information;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton preset = QMessageBox::NoButton; ///< the one that has the focus
};

/// The only door to message boxes. Windows speak in kinds; how a kind looks is
/// decided here. Every box is modal and comes to the foreground.
class Messages
{
public:
    virtual ~Messages() = default;

    /// A refused key or value: critical, titled "Erreur sur saisie.".
    void InputError(QWidget* parent, const QString& text);
    void Critical(QWidget* parent, const QString& title, const QString& text);
    void Warning(QWidget* parent, const QString& title, const QString& text);
    void Information(QWidget* parent, const QString& title, const QString& text);
    /// A question with "Oui" and "Non"; true for "Oui".
    bool Ask(QWidget* parent, const QString& title, const QString& text,
             QMessageBox::Icon icon = QMessageBox::Question);
    /// The same with "Non" preset, so that a key pressed in haste says no.
    bool AskPresetNo(QWidget* parent, const QString& title, const QString& text,
                     QMessageBox::Icon icon = QMessageBox::Question);
    /// Something failed that may go well at another time: critical, with "Réessayer"
    /// and "Annuler"; true for the first.
    bool AskRetry(QWidget* parent, const QString& title, const QString& text);
    /// A fault that ends the operation of a tool window and nothing else.
    void OperationFault(QWidget* parent, const QString& text);

protected:
    /// For a door that stands before another one.
    static QMessageBox::StandardButton PassOn(Messages& door, QWidget* parent, const Message& message)
    {
        return door.Show(parent, message);
    }

private:
    virtual QMessageBox::StandardButton Show(QWidget* parent, const Message& message) = 0;
};

/// The boxes of another door, with something to be done before each of them opens
/// and behind it, such as taking a window out of its way.
class AttendedMessages final : public Messages
{
public:
    AttendedMessages(Messages& door, std::function<void()> before, std::function<void()> behind)
        : m_door(door)
        , m_before(std::move(before))
        , m_behind(std::move(behind))
    {
    }

private:
    QMessageBox::StandardButton Show(QWidget* parent, const Message& message) override;

    Messages& m_door;
    std::function<void()> m_before;
    std::function<void()> m_behind;
};

/// The boxes of the desktop.
class DesktopMessages final : public Messages
{
private:
    QMessageBox::StandardButton Show(QWidget* parent, const Message& message) override;
};

} // namespace stoikal
