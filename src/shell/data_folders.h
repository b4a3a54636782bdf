#pragma once

#include "base/outcome.h"

#include <QString>

class QWidget;

namespace stoikal {

class Messages;
class Settings;
struct Platform;
struct Places;

/// The folder of the house below the common folders, without outer separators.
QString OwnFolder();

/// Finds the common application data folder, asking the user for a landmark
/// file until it is known, and names this user's settings file.
void FindSettingsFile(Places& places, const Platform& desktop, Messages& messages, QWidget* parent);

/// The outcome of looking where the program runs.
struct ResultFolders {
    QString results; ///< where results, equations and high scores live
    QString programOnNetwork; ///< full network path of the program's folder; empty for a local one
};

/// Decides whether the program runs from a network folder (`ModeReseau`) and
/// where the results go: the network root, or the house's folder in the common
/// documents, which the user is asked for until it is known.
ResultFolders ResolveDataFolders(Places& places, const Platform& desktop, Messages& messages,
                                 QWidget* parent);

/// Makes the folder of equation files when it is missing, filled with the shipped
/// exercises and tips, whole or not at all: two programs that start at once make
/// one. What stands there already is never overwritten. Returns the folder; fails
/// with the reason.
Outcome<QString> SeedEquationFolder(const QString& folder, const Platform& desktop);

/// The folder of a network share that takes the journals, the high scores and
/// the one password; without a separator at its end. Its name is trimmed: one of
/// blanks means the share itself.
QString DepositFolder(const Places& places);

/// The name of that folder as the user's settings have it, empty when it was
/// never asked for.
QString DepositName(const Settings& settings);

/// Stores that name. Fails with French sentences to be shown.
Outcome<QString> StoreDepositName(Settings& settings, const QString& name);

/// A folder's path with the separator at its end.
QString WithSeparator(const QString& folder);

} // namespace stoikal
