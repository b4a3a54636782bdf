#pragma once

#include "forms/form.h"

class QLineEdit;

namespace stoikal {

class Messages;
class PasswordStore;

/// Changes the teacher's password for who knows the old one.
class frmPassWord final : public ModalForm
{
    Q_OBJECT

public:
    frmPassWord(PasswordStore& store, Messages& messages, QWidget* parent);

protected:
    void EscapePressed() override { done(Rejected); }
    bool event(QEvent* event) override;

private:
    void cmdOK_Click();
    void EmptyBoxes();
    void TakeNewPassword();

    PasswordStore& m_store;
    Messages& m_messages;
    QLineEdit* txtOldPassWord;
    QLineEdit* txtNewPassWord;
};

} // namespace stoikal
