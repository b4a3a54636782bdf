#include "shell/windows/frm_pass_word.h"

#include "forms/messages.h"
#include "shell/password_store.h"
#include "shell/windows/entry_rows.h"
#include "shell/windows/password_box.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace stoikal {

frmPassWord::frmPassWord(PasswordStore& store, Messages& messages, QWidget* parent)
    : ModalForm(QStringLiteral("frmPassWord"), QStringLiteral("Changer le mot de passe"), parent)
    , m_store(store)
    , m_messages(messages)
    , txtOldPassWord(
          MakePasswordBox(this, QStringLiteral("txtOldPassWord"), QStringLiteral("Ancien mot de passe")))
    , txtNewPassWord(
          MakePasswordBox(this, QStringLiteral("txtNewPassWord"), QStringLiteral("Nouveau mot de passe")))
{
    txtNewPassWord->setToolTip(QStringLiteral("8 caractères au maximum"));
    auto* const lblOld
        = Named(new QLabel(QStringLiteral("Ancien mot de passe :"), this), QStringLiteral("Label1"));
    auto* const lblNew
        = Named(new QLabel(QStringLiteral("Nouveau mot de passe :"), this), QStringLiteral("Label2"));
    auto* const cmdOK
        = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"), QStringLiteral("OK"));
    auto* const cmdCancel = Named(new QPushButton(QStringLiteral("Annuler"), this),
                                  QStringLiteral("cmdCancel"), QStringLiteral("Annuler"));
    LayEntriesOut(*this, {{lblOld, txtOldPassWord}, {lblNew, txtNewPassWord}}, {cmdOK, cmdCancel});
    connect(cmdOK, &QPushButton::clicked, this, &frmPassWord::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { done(Rejected); });
}

bool frmPassWord::event(QEvent* event)
{
    // Nobody shall find here what another began to type and left.
    if (event->type() == QEvent::WindowActivate)
        EmptyBoxes();
    return ModalForm::event(event);
}

void frmPassWord::EmptyBoxes()
{
    txtOldPassWord->clear();
    txtNewPassWord->clear();
    txtOldPassWord->setFocus();
}

void frmPassWord::cmdOK_Click()
{
    const auto password = m_store.Read();
    if (!password) {
        m_messages.Critical(this, QStringLiteral("Stoikal"), password.Reason());
        return;
    }
    if (txtOldPassWord->text() == *password) {
        TakeNewPassword();
        return;
    }
    if (m_messages.AskPresetNo(this, QStringLiteral("Stoikal"),
                               QStringLiteral("L'ancien mot de passe est faux !\n"
                                              "Voulez-vous recommencer ?")))
        EmptyBoxes();
    else
        done(Rejected);
}

void frmPassWord::TakeNewPassword()
{
    // The boxes are emptied when the window comes to the front again behind a message.
    const QString password = txtNewPassWord->text();
    auto written = m_store.Write(password);
    while (!written && m_messages.AskRetry(this, QStringLiteral("Stoikal"), written.Reason()))
        written = m_store.Write(password);
    if (written)
        done(Accepted);
}

} // namespace stoikal
