#include "shell/windows/password_box.h"

#include "forms/form.h"

#include <QLineEdit>

namespace stoikal {

QLineEdit* MakePasswordBox(QWidget* parent, const QString& name, const QString& accessibleName)
{
    constexpr int kLongestPassword = 8;
    constexpr int kWidth = 160;
    auto* const box = Named(new QLineEdit(parent), name, accessibleName);
    box->setEchoMode(QLineEdit::Password);
    box->setMaxLength(kLongestPassword);
    box->setMinimumWidth(kWidth);
    return box;
}

} // namespace stoikal
