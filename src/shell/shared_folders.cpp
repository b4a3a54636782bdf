#include "shell/shared_folders.h"

#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/litter.h"
#include "base/password_file.h"
#include "base/places.h"
#include "shell/data_folders.h"

#include <QDir>
#include <QFileInfo>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QString ScoresFolder(const Places& places)
{
    return places.ModeReseau ? DepositFolder(places) : places.DossierResultats;
}

/// A start that was cut short has filled it no further.
void SweepHalfFilledFolder(const QString& folder)
{
    const QString growing = folder + u".nouveau"_s;
    if (!QFileInfo::exists(growing))
        return;
    const FileLock lock(folder, 0);
    if (lock.IsHeld())
        RemoveTree(growing);
}

} // namespace

void SweepLeftFiles(const Places& places, const QString& cache)
{
    const QFileInfo settings(places.IniUtilisateur);
    SweepLitter(settings.path(), {settings.fileName()});
    SweepLitter(ScoresFolder(places), {u"HighScore.txt"_s, PasswordFileName()});
    const QString equations = places.DossierDocuments + OwnFolder();
    SweepLitter(equations, {u"*.Equ"_s, u"*.Avt"_s, u"TipOfDayEqChm.txt"_s});
    SweepLitter(cache,
                {u"FileTemp.txt"_s, u"FileTemp_?.txt"_s, u"FileTemp_??.txt"_s, u"FileTemp*.txt.editeur"_s,
                 u"Delete_Me.txt"_s});
    if (!places.ModeReseau) {
        SweepHalfFilledFolder(places.DossierResultats);
        const QFileInfo own(places.DossierResultats);
        SweepLitter(own.path(), {own.fileName()});
    }
}

QStringList FoldersWithoutLocks(const Places& places)
{
    QStringList folders;
    for (const QString& file : {places.IniUtilisateur, ScoresFolder(places) + u"/HighScore.txt"_s}) {
        const FileLock lock(file, 0);
        if (lock.IsHeld() && !lock.IsProtected())
            folders << QFileInfo(file).path();
    }
    folders.removeDuplicates();
    return folders;
}

} // namespace stoikal
