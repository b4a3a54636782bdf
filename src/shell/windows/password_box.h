#pragma once

class QLineEdit;
class QString;
class QWidget;

namespace stoikal {

/// A box for a password: a star for each character, 8 characters at most.
QLineEdit* MakePasswordBox(QWidget* parent, const QString& name, const QString& accessibleName);

} // namespace stoikal
