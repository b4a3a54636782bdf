#include "shell/windows/frm_name.h"

#include "forms/messages.h"
#include "forms/selecting_edit.h"
#include "platform/doors.h"
#include "shell/windows/entry_rows.h"

#include <QLabel>
#include <QPushButton>

namespace stoikal {
frmName::frmName(Messages& messages, Sound& sound, QWidget* parent)
    : ModalForm(QStringLiteral("frmName"), QStringLiteral("Qui êtes-vous ?"), parent)
    , m_messages(messages)
    , m_sound(sound)
    , cmdOK(
          Named(new QPushButton(QStringLiteral("&OK"), this), QStringLiteral("cmdOK"), QStringLiteral("OK")))
    , cmdAnnul(Named(new QPushButton(QStringLiteral("&Annuler"), this), QStringLiteral("cmdAnnul"),
                     QStringLiteral("Annuler")))
    , cmdEnd(Named(new QPushButton(QStringLiteral("&Quitter"), this), QStringLiteral("cmdEnd"),
                   QStringLiteral("Quitter")))
{
    struct Row {
        QString labelName;
        QString label;
        QString accessibleName;
        QString toolTip;
    };
    const Row texts[]{
        {QStringLiteral("lblName"), QStringLiteral("Votre nom :"), QStringLiteral("Votre nom"),
         QStringLiteral("Saisissez ici votre nom")},
        {QStringLiteral("Label1"), QStringLiteral("Votre prénom :"), QStringLiteral("Votre prénom"),
         QStringLiteral("Saisissez ici votre prénom")},
        {QStringLiteral("lblClasse"), QStringLiteral("Votre classe :"), QStringLiteral("Votre classe"),
         QStringLiteral("Saisissez ici votre numéro de classe")},
    };
    QLabel* labels[3]{};
    for (int i = 0; i < 3; ++i) {
        txtIdent[i] = Named(new SelectingEdit(this), ArrayName("txtIdent", i + 1), texts[i].accessibleName);
        txtIdent[i]->setToolTip(texts[i].toolTip);
        txtIdent[i]->setMinimumWidth(240);
        labels[i] = Named(new QLabel(texts[i].label, this), texts[i].labelName);
    }
    cmdOK->setToolTip(QStringLiteral("Pour commencer les exercices"));
    cmdAnnul->setToolTip(QStringLiteral("Pour revenir à l'accueil"));
    cmdEnd->setToolTip(QStringLiteral("Pour quitter le programme"));
    LayEntriesOut(*this, {{labels[0], txtIdent[0]}, {labels[1], txtIdent[1]}, {labels[2], txtIdent[2]}},
                  {cmdOK, cmdAnnul, cmdEnd});
    txtIdent[0]->setFocus();
    connect(cmdOK, &QPushButton::clicked, this, &frmName::cmdOK_Click);
    connect(cmdAnnul, &QPushButton::clicked, this, &frmName::cmdAnnul_Click);
    connect(cmdEnd, &QPushButton::clicked, this, &frmName::cmdEnd_Click);
}

QString frmName::Nom() const
{
    return txtIdent[0]->text();
}

QString frmName::Prenom() const
{
    return txtIdent[1]->text();
}

QString frmName::Classe() const
{
    return txtIdent[2]->text();
}

void frmName::cmdOK_Click()
{
    const QString toolTips[]{QStringLiteral("Entrer ici votre nom"),
                             QStringLiteral("Entrer ici votre prénom"),
                             QStringLiteral("Entrer ici votre classe")};
    const QString questions[]{QStringLiteral("Quel est votre nom ?"),
                              QStringLiteral("Quel est votre prénom ?"),
                              QStringLiteral("Quelle est votre classe ?")};
    for (int i = 0; i < 3; ++i)
        txtIdent[i]->setToolTip(toolTips[i]);
    cmdOK->setToolTip(QStringLiteral("Pour ouvrir un fichier, une fois les nom, prénom et classe saisis"));
    cmdAnnul->setToolTip(QStringLiteral("Pour revenir au mode libre"));
    cmdEnd->setToolTip(QStringLiteral("Pour fermer le logiciel Stoikal"));
    for (int i = 0; i < 3; ++i) {
        if (txtIdent[i]->text().isEmpty()) {
            m_messages.Critical(this, QStringLiteral("Saisie incomplète"), questions[i]);
            txtIdent[i]->setFocus();
            return;
        }
    }
    done(Identified);
}

void frmName::cmdAnnul_Click()
{
    done(Cancelled);
}

void frmName::cmdEnd_Click()
{
    m_sound.Beep();
    if (m_messages.Ask(this, QStringLiteral("Stoikal"), QStringLiteral("Voulez-vous quitter ce programme ?")))
        done(EndOfProgram);
}

} // namespace stoikal
