#include "shell/windows/frm_depot.h"

#include "forms/messages.h"
#include "shell/data_folders.h"
#include "shell/product.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace stoikal {

frmDepot::frmDepot(Settings& settings, Messages& messages, QWidget* parent)
    : ModalForm(QStringLiteral("frmDepot"), product::Title() + QStringLiteral(" - Réseau"), parent)
    , m_settings(settings)
    , m_messages(messages)
    , txtDepot(Named(new QLineEdit(QStringLiteral("Dépôt"), this), QStringLiteral("txtDepot"),
                     QStringLiteral("Nom du dossier")))
{
    auto* const lblInfo
        = Named(new QLabel(QStringLiteral("Pour une utilisation en réseau, vous avez créé\n"
                                          "au préalable un répertoire sans droit pour les élèves.\n\n"
                                          "Par défaut, ce répertoire a pour nom 'Dépôt'\n"
                                          "Si vous souhaitez le changer, saisissez le nouveau nom\n"
                                          "dans la zone de texte ci-dessous."),
                           this),
                QStringLiteral("lblInfo"));
    auto* const lblTexte
        = Named(new QLabel(QStringLiteral("Nom du dossier  : "), this), QStringLiteral("lblTexte"));
    lblTexte->setBuddy(txtDepot);
    auto* const cmdOK
        = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"), QStringLiteral("OK"));
    cmdOK->setAutoDefault(false);
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->setSpacing(8);
    grid->addWidget(lblInfo, 0, 0, 1, 2);
    grid->addWidget(lblTexte, 1, 0);
    grid->addWidget(txtDepot, 1, 1);
    grid->addWidget(cmdOK, 2, 1, Qt::AlignRight);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    txtDepot->setFocus();
    connect(cmdOK, &QPushButton::clicked, this, &frmDepot::cmdOK_Click);
}

QString frmDepot::FolderName() const
{
    return txtDepot->text();
}

void frmDepot::cmdOK_Click()
{
    if (txtDepot->text().isEmpty()) {
        m_messages.Critical(this, QStringLiteral("Stoikal - Erreur"),
                            QStringLiteral("Veuillez saisir un nom valide"));
        txtDepot->setFocus();
        return;
    }
    StoreName();
}

void frmDepot::TitleBarClosed()
{
    // An empty name is asked for again by who opened the window.
    if (txtDepot->text().isEmpty())
        done(Rejected);
    else
        StoreName();
}

void frmDepot::StoreName()
{
    const auto written = StoreDepositName(m_settings, txtDepot->text());
    if (!written
        && m_messages.Ask(
            this, QStringLiteral("Stoikal - Erreur"),
            QStringLiteral("Le nom du dossier n'a pas été enregistré.\n\n%1\n\n"
                           "Voulez-vous recommencer\u00A0?\n"
                           "Si vous répondez «\u00A0Non\u00A0», ce nom sert pour cette fois et la "
                           "question sera posée de nouveau au prochain démarrage.")
                .arg(written.Reason()),
            QMessageBox::Critical)) {
        txtDepot->setFocus();
        return;
    }
    done(Accepted);
}

} // namespace stoikal
