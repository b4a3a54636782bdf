#include "shell/data_folders.h"

#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/places.h"
#include "base/settings_store.h"
#include "base/shown_path.h"
#include "base/whole_file.h"
#include "forms/messages.h"
#include "platform/doors.h"

#include <QDir>
#include <QFileInfo>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QString NetworkSection()
{
    return u"Réseau"_s;
}

QString DepositKey()
{
    return u"Dossier Dépôt"_s;
}

/// What the user is asked for when the desktop does not tell a folder.
struct Landmark {
    QString shownPath; ///< as the message names it
    QString startFolder;
    QString filter;
    QString fileName;
    QString tail; ///< what stands behind the folder in the chosen path
};

/// Asks until a file is chosen whose path ends as the landmark's does. There is
/// no other way out: without the folder nothing can be read or written.
QString AskForFolder(const Landmark& landmark, const Platform& desktop, Messages& messages, QWidget* parent)
{
    for (;;) {
        messages.Critical(parent, QStringLiteral("Stoikal - Gestion erreurs"),
                          QStringLiteral("Le fichier suivant est introuvable :\n%1\nVeuillez le localiser.")
                              .arg(ShownPath(landmark.shownPath)));
        const auto choice = desktop.dialogs.OpenFile(parent,
                                                     {QStringLiteral("cdgOpen"),
                                                      QStringLiteral("Localiser %1").arg(landmark.fileName),
                                                      landmark.startFolder,
                                                      {landmark.filter},
                                                      0,
                                                      landmark.fileName});
        if (!choice)
            continue;
        const qsizetype tail = choice->path.indexOf(landmark.tail, 0, Qt::CaseInsensitive);
        if (tail >= 0)
            return choice->path.first(tail);
    }
}

/// A copy that the user may change, whatever the rights of the shipped file.
Outcome<QString> CopyFile(const QString& from, const QString& to)
{
    const auto bytes = ReadWholeFile(from, kExerciseLimit, Links::Followed);
    if (!bytes)
        return Failure{u"«\u00A0%1\u00A0»\u00A0: %2"_s.arg(ShownPath(from), bytes.Reason())};
    return ReplaceFile(to, *bytes, Sharing::Account);
}

} // namespace

QString OwnFolder()
{
    return QStringLiteral("Tovik_MARLEN/Stoikal");
}

QString WithSeparator(const QString& folder)
{
    return folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

QString DepositFolder(const Places& places)
{
    const QString name = places.DossierDepot.trimmed();
    return name.isEmpty() ? places.DossierResultats : WithSeparator(places.DossierResultats) + name;
}

QString DepositName(const Settings& settings)
{
    return settings.Read(NetworkSection(), DepositKey());
}

Outcome<QString> StoreDepositName(Settings& settings, const QString& name)
{
    return settings.Write(NetworkSection(), DepositKey(), name);
}

void FindSettingsFile(Places& places, const Platform& desktop, Messages& messages, QWidget* parent)
{
    QString user = desktop.user.LoginName();
    if (user.isEmpty())
        user = QStringLiteral("Inconnu");
    QString folder = desktop.folders.CommonAppData();
    if (folder.isEmpty()) {
        const QString base
            = QStringLiteral("/Documents and Settings/All Users/Application Data/%1/").arg(OwnFolder());
        folder = AskForFolder({base + QStringLiteral("Conf_EQU.ini"), base,
                               QStringLiteral("Fichier configuration (*.ini)"),
                               QStringLiteral("Conf_EQU.ini"), OwnFolder() + QStringLiteral("/Conf_EQU.ini")},
                              desktop, messages, parent);
    }
    places.DossierDonnees = WithSeparator(folder);
    const QString own = places.DossierDonnees + OwnFolder();
    MakeFolders(own);
    // A user name is a bare name; anything else must not lead out of the folder.
    user.replace(QLatin1Char('/'), QLatin1Char('_'));
    places.IniUtilisateur = own + QStringLiteral("/ConfEQU_") + user + QStringLiteral(".ini");
}

ResultFolders ResolveDataFolders(Places& places, const Platform& desktop, Messages& messages, QWidget* parent)
{
    const QString root = desktop.folders.NetworkRoot();
    places.ModeReseau = !root.isEmpty();
    if (places.ModeReseau) {
        const QString program = desktop.folders.Program();
        const QString below = QDir(root).relativeFilePath(program);
        return {root,
                below.startsWith(QLatin1String("..")) ? program
                                                      : QDir::cleanPath(WithSeparator(root) + below)};
    }
    QString documents = desktop.folders.CommonDocuments();
    if (documents.isEmpty() && places.DossierDocuments.isEmpty()) {
        const QString base
            = QStringLiteral("/Documents and Settings/All Users/Documents partagés/%1/").arg(OwnFolder());
        documents = AskForFolder({base + QStringLiteral("Resultat.txt"), base,
                                  QStringLiteral("Fichier texte (*.txt)"), QStringLiteral("Resultat.txt"),
                                  OwnFolder() + QStringLiteral("/Resultat.txt")},
                                 desktop, messages, parent);
    }
    if (!documents.isEmpty())
        places.DossierDocuments = WithSeparator(documents);
    return {places.DossierDocuments + OwnFolder(), {}};
}

Outcome<QString> SeedEquationFolder(const QString& folder, const Platform& desktop)
{
    if (QFileInfo::exists(folder))
        return folder;
    MakeFolders(QFileInfo(folder).absolutePath());
    // Another start may be filling it, from a slow disk.
    constexpr int kLockWaitMs = 5000;
    const FileLock lock(folder, kLockWaitMs);
    if (!lock.IsHeld())
        return Failure{lock.IsBusy() ? lock.Reason()
                                     : u"le dossier qui doit le contenir ne peut pas être écrit"_s};
    // Filled under another name: a start that is cut short leaves no folder that
    // would pass for the whole one, and the next start begins again.
    const QString growing = folder + u".nouveau"_s;
    if (QFileInfo::exists(folder))
        return folder;
    if (!RemoveTree(growing) || !MakeNewFolder(growing))
        return Failure{u"le dossier «\u00A0%1\u00A0» ne peut pas être créé"_s.arg(ShownPath(growing))};
    const QStringList seeds = desktop.folders.SeedFiles();
    for (const QString& seed : seeds) {
        auto copied = CopyFile(seed, WithSeparator(growing) + QFileInfo(seed).fileName());
        if (!copied) {
            RemoveTree(growing);
            return copied;
        }
    }
    if (!RenameFolder(growing, QFileInfo(folder).fileName())) {
        RemoveTree(growing);
        return Failure{u"le dossier «\u00A0%1\u00A0» ne peut pas prendre son nom"_s.arg(ShownPath(growing))};
    }
    return folder;
}

} // namespace stoikal
