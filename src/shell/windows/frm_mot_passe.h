#pragma once

#include "forms/form.h"

class QLineEdit;

namespace stoikal {

class Messages;
class PasswordStore;

/// Asks for the teacher's password, as often as it takes. Ends accepted once it
/// was right; what it protects is carried out by others.
class frmMotPasse final : public ModalForm
{
    Q_OBJECT

public:
    frmMotPasse(const PasswordStore& store, Messages& messages, QWidget* parent);

protected:
    void EscapePressed() override { done(Rejected); }

private:
    void cmdOK_Click();

    const PasswordStore& m_store;
    Messages& m_messages;
    QLineEdit* txtPassWord;
};

} // namespace stoikal
