#include "shell/shared_folders.h"

#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/litter.h"
#include "base/password_file.h"
#include "base/session_state.h"
#include "shell/data_folders.h"

#include <QDir>
#include <QFileInfo>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QString ScoresFolder(const SessionState& state)
{
    return state.ModeReseau ? DepositFolder(state) : state.DossierResultats;
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

void SweepLeftFiles(const SessionState& state, const QString& cache)
{
    const QFileInfo settings(state.IniUtilisateur);
    SweepLitter(settings.path(), {settings.fileName()});
    SweepLitter(ScoresFolder(state), {u"HighScore.txt"_s, PasswordFileName()});
    const QString equations = state.DossierDocuments + OwnFolder();
    SweepLitter(equations, {u"*.Equ"_s, u"*.Avt"_s, u"TipOfDayEqChm.txt"_s});
    SweepLitter(cache,
                {u"FileTemp.txt"_s, u"FileTemp_?.txt"_s, u"FileTemp_??.txt"_s, u"FileTemp*.txt.editeur"_s,
                 u"Delete_Me.txt"_s});
    if (!state.ModeReseau) {
        SweepHalfFilledFolder(state.DossierResultats);
        const QFileInfo own(state.DossierResultats);
        SweepLitter(own.path(), {own.fileName()});
    }
}

QStringList FoldersWithoutLocks(const SessionState& state)
{
    QStringList folders;
    for (const QString& file : {state.IniUtilisateur, ScoresFolder(state) + u"/HighScore.txt"_s}) {
        const FileLock lock(file, 0);
        if (lock.IsHeld() && !lock.IsProtected())
            folders << QFileInfo(file).path();
    }
    folders.removeDuplicates();
    return folders;
}

} // namespace stoikal
