#pragma once

#include "base/outcome.h"

#include <QString>

namespace stoikal {

class Settings;
struct Places;

/// The path of the file with the one password of all who run the program from a
/// network folder; empty for a program of one machine.
QString CommonPasswordFile(const Places& places);

/// Where the teacher's password stands: in the settings of the user, or, when
/// the program runs from a network folder, as the first line of one file of the
/// deposit folder, so that one password serves all. It is kept as it was typed;
/// until one is set it is the empty text. Asks nobody and shows nothing.
class PasswordStore
{
public:
    PasswordStore(const Places& places, Settings& settings)
        : m_places(places)
        , m_settings(settings)
    {
    }

    /// The password as it stands now, read anew each time: another program may
    /// have changed it. Fails with a French sentence when the common file cannot
    /// be read; nothing may then be opened, least of all with an empty text.
    Outcome<QString> Read() const;

    /// Sets the password and returns it. Its file is replaced whole or not at all;
    /// fails with French sentences to be shown, the old password then holds.
    Outcome<QString> Write(const QString& password);

    /// Whether the common file holds nothing though results of an earlier time stand
    /// beside it: it was taken away and made anew, or emptied. Not to be seen by an
    /// account that may not look into the deposit folder.
    bool HasBeenLost() const;

    /// Makes the common file, empty, when it is missing, and returns its path.
    /// One that can only be read is as good. Fails with the system's reason.
    Outcome<QString> MakeCommonFile() const;

private:
    Outcome<QString> ReadCommonFile() const;
    Outcome<QString> ReadFromSettings() const;
    Outcome<QString> WriteToSettings(const QString& password);
    Outcome<QString> WriteCommonFile(const QString& password) const;

    const Places& m_places;
    Settings& m_settings;
};

} // namespace stoikal
