#pragma once

#include <QString>
#include <QStringList>

namespace stoikal {

struct Places;

/// Takes away what programs that were killed have left in the folders of this run.
/// `cache` is the account's own folder for passing things.
void SweepLeftFiles(const Places& places, const QString& cache);

/// Those of the folders of settings and results where no lock of any kind can be had:
/// two programs that write at the same moment may lose what one of them writes.
QStringList FoldersWithoutLocks(const Places& places);

} // namespace stoikal
