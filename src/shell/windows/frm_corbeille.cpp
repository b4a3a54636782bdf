#include "shell/windows/frm_corbeille.h"

#include "base/file_access.h"
#include "forms/button_row.h"
#include "forms/messages.h"
#include "platform/doors.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace stoikal {
namespace {

/// A link that leads nowhere is there, too.
bool IsThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

} // namespace

frmCorbeille::frmCorbeille(const QString& folder, const QStringList& names, Trash& trash, Messages& messages,
                           QWidget* parent)
    : ModalForm(QStringLiteral("frmCorbeille"), QStringLiteral("Supprimer un fichier"), parent)
    , m_folder(folder)
    , m_trash(trash)
    , m_messages(messages)
    , flbEQU(Named(new QListWidget(this), QStringLiteral("flbEQU"), QStringLiteral("Fichiers d'équations")))
{
    constexpr QSize kListSize(280, 264);
    flbEQU->addItems(names);
    flbEQU->setSelectionMode(QAbstractItemView::MultiSelection);
    flbEQU->setToolTip(QStringLiteral("Cliquez sur les noms de fichiers pour les sélectionner"));
    flbEQU->setFixedSize(kListSize);
    auto* const Label3
        = Named(new QLabel(QStringLiteral("Cliquez dans la liste ci-contre sur tous les fichiers "
                                          "Stoikal  que vous voulez supprimer."),
                           this),
                QStringLiteral("Label3"));
    Label3->setWordWrap(true);
    Label3->setFixedWidth(200);
    auto* const cmdKill = Named(new QPushButton(QStringLiteral("Supprimer"), this), QStringLiteral("cmdKill"),
                                QStringLiteral("Supprimer"));
    auto* const cmdCancel = Named(new QPushButton(QStringLiteral("Annuler"), this),
                                  QStringLiteral("cmdCancel"), QStringLiteral("Annuler"));
    auto* const side = new QVBoxLayout;
    side->setSpacing(8);
    side->addWidget(Label3);
    side->addStretch();
    AddButtons(*side, {cmdKill, cmdCancel});
    auto* const columns = new QHBoxLayout(this);
    columns->setContentsMargins(16, 16, 16, 16);
    columns->setSpacing(16);
    columns->addLayout(side);
    columns->addWidget(flbEQU);
    columns->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(flbEQU, cmdKill);
    setTabOrder(cmdKill, cmdCancel);
    flbEQU->setFocus();
    connect(cmdKill, &QPushButton::clicked, this, &frmCorbeille::cmdKill_Click);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { done(Rejected); });
}

QString frmCorbeille::PathOf(const QString& name) const
{
    return m_folder + QLatin1Char('/') + name;
}

void frmCorbeille::cmdKill_Click()
{
    QStringList selected;
    for (int row = 0; row < flbEQU->count(); ++row) {
        if (flbEQU->item(row)->isSelected())
            selected << flbEQU->item(row)->text();
    }
    if (selected.isEmpty()) {
        m_messages.Information(this, QStringLiteral("Stoikal"),
                               QStringLiteral("Aucun fichier n'est sélectionné"));
        flbEQU->setFocus();
        return;
    }
    QStringList left;
    for (const QString& name : std::as_const(selected)) {
        // What another program took away meanwhile is gone as it was to be.
        if (!m_trash.Move(PathOf(name)) && IsThere(PathOf(name)))
            left << name;
    }
    if (!left.isEmpty())
        DeleteForGood(left);
    done(Accepted);
}

void frmCorbeille::DeleteForGood(const QStringList& names)
{
    if (!m_messages.AskPresetNo(this, QStringLiteral("Stoikal"),
                                QStringLiteral("La corbeille ne peut pas recevoir :\n%1\n\n"
                                               "Voulez-vous supprimer définitivement\u00A0?")
                                    .arg(names.join(QLatin1Char('\n')))))
        return;
    QStringList left;
    for (const QString& name : names) {
        if (!RemoveFile(PathOf(name)))
            left << name;
    }
    if (!left.isEmpty())
        m_messages.Critical(
            this, QStringLiteral("Stoikal"),
            QStringLiteral("Suppression impossible :\n%1\n\nVérifiez que vous avez le droit de modifier "
                           "ce dossier.")
                .arg(left.join(QLatin1Char('\n'))));
}

} // namespace stoikal
