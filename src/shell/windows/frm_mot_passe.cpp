#include "shell/windows/frm_mot_passe.h"

#include "forms/messages.h"
#include "shell/password_store.h"
#include "shell/windows/entry_rows.h"
#include "shell/windows/password_box.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace stoikal {

frmMotPasse::frmMotPasse(const PasswordStore& store, Messages& messages, QWidget* parent)
    : ModalForm(QStringLiteral("frmMotPasse"), QStringLiteral("Mot de passe"), parent)
    , m_store(store)
    , m_messages(messages)
    , txtPassWord(MakePasswordBox(this, QStringLiteral("txtPassWord"), QStringLiteral("Mot de passe")))
{
    txtPassWord->setToolTip(
        QStringLiteral("Saisir ici le mot de passe en respectant l'écriture majuscule/minuscule"));
    auto* const label
        = Named(new QLabel(QStringLiteral("Entrez le mot de passe :"), this), QStringLiteral("Label1"));
    auto* const cmdOK
        = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"), QStringLiteral("OK"));
    cmdOK->setToolTip(QStringLiteral("Valider pour accéder"));
    auto* const cmdCancel = Named(new QPushButton(QStringLiteral("Annuler"), this),
                                  QStringLiteral("cmdCancel"), QStringLiteral("Annuler"));
    cmdCancel->setToolTip(QStringLiteral("Pour annuler l'opération"));
    LayEntriesOut(*this, {{label, txtPassWord}}, {cmdOK, cmdCancel});
    txtPassWord->setFocus();
    connect(cmdOK, &QPushButton::clicked, this, &frmMotPasse::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { done(Rejected); });
}

void frmMotPasse::cmdOK_Click()
{
    const auto password = m_store.Read();
    if (!password) {
        m_messages.Critical(this, QStringLiteral("Stoikal"), password.Reason());
        txtPassWord->setFocus();
        return;
    }
    if (txtPassWord->text() == *password) {
        done(Accepted);
        return;
    }
    m_messages.Warning(this, QStringLiteral("Erreur sur mot de passe"),
                       QStringLiteral("Ceci n'est pas le mot de passe.\nRecommencez !"));
    txtPassWord->clear();
    txtPassWord->setFocus();
}

} // namespace stoikal
