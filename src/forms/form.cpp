#include "forms/form.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace stoikal {

QString ArrayName(const char* array, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(array), QString::number(index));
}

Form::Form(const QString& name, const QString& caption, Kind kind, QWidget* parent)
    : QWidget(parent,
              kind == Kind::Tool ? Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint : Qt::Widget)
{
    setObjectName(name);
    setWindowTitle(caption);
    setAccessibleName(caption);
}

void Form::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        EscapePressed();
    QWidget::keyPressEvent(event);
}

void Form::closeEvent(QCloseEvent* event)
{
    // Who holds the window decides what closing means.
    event->ignore();
    Q_EMIT CloseAsked();
}

ModalForm::ModalForm(const QString& name, const QString& caption, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setObjectName(name);
    setWindowTitle(caption);
    setAccessibleName(caption);
    setModal(true);
}

void ModalForm::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        EscapePressed();
        return;
    }
    // A dialog would press its default button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return;
    QDialog::keyPressEvent(event);
}

void ModalForm::closeEvent(QCloseEvent* event)
{
    event->ignore();
    TitleBarClosed();
}

void ModalForm::reject()
{
    EscapePressed();
}

} // namespace stoikal
