#pragma once

#include <QMessageBox>
#include <QString>

class QWidget;

namespace stoikal {

struct Message {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::Information;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
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
    /// A fault that ends the operation of a tool window and nothing else.
    void OperationFault(QWidget* parent, const QString& text);

private:
    virtual QMessageBox::StandardButton Show(QWidget* parent, const Message& message) = 0;
};

/// The boxes of the desktop.
class DesktopMessages final : public Messages
{
private:
    QMessageBox::StandardButton Show(QWidget* parent, const Message& message) override;
};

} // namespace stoikal
