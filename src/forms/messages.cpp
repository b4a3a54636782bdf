#include "forms/messages.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QPointer>
#include <QPushButton>

namespace stoikal {

namespace {

/// A box is as wide as its text: makes room for a title that is longer than
/// that, beside the icon and the buttons of the title bar.
void MakeRoomForTitle(QMessageBox& box)
{
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr)
        return;
    QFont bold = box.font();
    bold.setBold(true);
    constexpr int kIconAndButtons = 100;
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + kIconAndButtons;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

void Messages::InputError(QWidget* parent, const QString& text)
{
    Critical(parent, QStringLiteral("Erreur sur saisie."), text);
}

void Messages::Critical(QWidget* parent, const QString& title, const QString& text)
{
    Show(parent, {title, text, QMessageBox::Critical, QMessageBox::Ok});
}

void Messages::Warning(QWidget* parent, const QString& title, const QString& text)
{
    Show(parent, {title, text, QMessageBox::Warning, QMessageBox::Ok});
}

void Messages::Information(QWidget* parent, const QString& title, const QString& text)
{
    Show(parent, {title, text, QMessageBox::Information, QMessageBox::Ok});
}

bool Messages::Ask(QWidget* parent, const QString& title, const QString& text, QMessageBox::Icon icon)
{
    return Show(parent, {title, text, icon, QMessageBox::Yes | QMessageBox::No}) == QMessageBox::Yes;
}

bool Messages::AskPresetNo(QWidget* parent, const QString& title, const QString& text, QMessageBox::Icon icon)
{
    return Show(parent, {title, text, icon, QMessageBox::Yes | QMessageBox::No, QMessageBox::No})
        == QMessageBox::Yes;
}

bool Messages::AskRetry(QWidget* parent, const QString& title, const QString& text)
{
    return Show(parent, {title, text, QMessageBox::Critical, QMessageBox::Retry | QMessageBox::Cancel})
        == QMessageBox::Retry;
}

void Messages::OperationFault(QWidget* parent, const QString& text)
{
    Critical(parent, QStringLiteral("Stoikal"), text);
}

QMessageBox::StandardButton AttendedMessages::Show(QWidget* parent, const Message& message)
{
    m_before();
    const auto answer = PassOn(m_door, parent, message);
    m_behind();
    return answer;
}

QMessageBox::StandardButton DesktopMessages::Show(QWidget* parent, const Message& message)
{
    const QPointer<QWidget> activeBefore = QApplication::activeWindow();
    QMessageBox box(message.icon, message.title, message.text, message.buttons, parent);
    box.setObjectName(QStringLiteral("MsgBox"));
    // Formulas and file names are shown as they are, never read as mark-up.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    struct Caption {
        QMessageBox::StandardButton button;
        QString text;
    };
    const Caption captions[]{{QMessageBox::Ok, QStringLiteral("OK")},
                             {QMessageBox::Yes, QStringLiteral("Oui")},
                             {QMessageBox::No, QStringLiteral("Non")},
                             {QMessageBox::Retry, QStringLiteral("Réessayer")},
                             {QMessageBox::Cancel, QStringLiteral("Annuler")}};
    for (const Caption& caption : captions) {
        if (QAbstractButton* const button = box.button(caption.button)) {
            button->setText(caption.text);
            button->setObjectName(caption.text);
        }
    }
    // Closing a question by the title bar says no.
    if (message.buttons.testFlag(QMessageBox::No))
        box.setEscapeButton(QMessageBox::No);
    if (message.preset != QMessageBox::NoButton)
        box.setDefaultButton(message.preset);
    MakeRoomForTitle(box);
    box.show();
    box.raise();
    box.activateWindow();
    const auto answer = static_cast<QMessageBox::StandardButton>(box.exec());
    // Some desktops give the keyboard to the main window when a box over a
    // floating window is closed.
    if (activeBefore != nullptr && activeBefore->isVisible())
        activeBefore->activateWindow();
    return answer;
}

} // namespace stoikal
