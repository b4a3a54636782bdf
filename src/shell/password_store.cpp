#include "shell/password_store.h"

#include "base/file_access.h"
#include "base/file_stamp.h"
#include "base/password_file.h"
#include "base/places.h"
#include "base/profile_text.h"
#include "base/settings_store.h"
#include "base/shown_path.h"
#include "base/text_lines.h"
#include "base/whole_file.h"
#include "shell/data_folders.h"

#include <QDir>
#include <algorithm>

namespace stoikal {
namespace {

QString Section()
{
    return QStringLiteral("Options");
}

QString Key()
{
    return QStringLiteral("PassWord");
}

Failure CannotRead(const QString& path, const QString& reason)
{
    return {QStringLiteral("Le fichier du mot de passe ne peut pas être lu :\n%1\n(%2)\n\n"
                           "Vérifiez que le dossier de dépôt est accessible, puis recommencez.")
                .arg(ShownPath(path), reason)};
}

/// An unread file does not say that no password was set.
Failure CannotReadSettings(const QString& path, const QString& reason)
{
    return {
        QStringLiteral(
            "Le fichier des réglages, qui contient le mot de passe, ne peut pas être lu\u00A0:\n%1\n(%2)\n\n"
            "Vérifiez que ce fichier peut être lu, puis recommencez.")
            .arg(ShownPath(path), reason)};
}

Failure CannotWrite(const QString& path, const QString& reason)
{
    return {QStringLiteral("Le nouveau mot de passe n'a pas pu être enregistré :\n%1\n(%2)\n\n"
                           "L'ancien mot de passe reste valable. Vérifiez que ce fichier et son dossier "
                           "peuvent être modifiés et que le disque n'est pas plein, puis recommencez.")
                .arg(ShownPath(path), reason)};
}

/// The file has it, the disk has not promised to keep it.
Failure NotSureToBeKept()
{
    return {
        QStringLiteral("Le nouveau mot de passe est écrit et valable, mais le disque n'a pas confirmé qu'il "
                       "le garde\u00A0: après une coupure de courant, l'ancien pourrait revenir.\n\n"
                       "Réessayez pour vous en assurer.")};
}

} // namespace

QString CommonPasswordFile(const Places& places)
{
    if (!places.ModeReseau)
        return {};
    // The folder is the one found at start: a share that has gone since must not
    // make the program fall back on another, less guarded place.
    return DepositFolder(places) + QLatin1Char('/') + PasswordFileName();
}

Outcome<QString> PasswordStore::Read() const
{
    return m_places.ModeReseau ? ReadCommonFile() : ReadFromSettings();
}

Outcome<QString> PasswordStore::ReadFromSettings() const
{
    const QString& path = m_places.IniUtilisateur;
    const auto bytes = ReadOwnFile(path, kSettingsLimit);
    if (!bytes && !bytes.IsMissing())
        return CannotReadSettings(path, bytes.Reason());
    return bytes ? ProfileText(*bytes).Read(Section(), Key()) : QString();
}

Outcome<QString> PasswordStore::Write(const QString& password)
{
    auto written = m_places.ModeReseau ? WriteCommonFile(password) : WriteToSettings(password);
    if (written)
        return written;
    // Nobody is to be told that the old one is valid when it is not.
    const auto stored = Read();
    return stored && *stored == password ? NotSureToBeKept() : written;
}

Outcome<QString> PasswordStore::WriteToSettings(const QString& password)
{
    const auto written = m_settings.Write(Section(), Key(), password);
    if (!written)
        return Failure{QStringLiteral("Le nouveau mot de passe n'a pas été enregistré\u00A0: l'ancien reste "
                                      "valable.\n\n%1")
                           .arg(written.Reason())};
    return password;
}

Outcome<QString> PasswordStore::ReadCommonFile() const
{
    const auto bytes = ReadWholeFile(CommonPasswordFile(m_places), kPasswordLimit, Links::Refused);
    if (!bytes)
        return CannotRead(CommonPasswordFile(m_places), bytes.Reason());
    const QByteArray text = NormaliseTextBytes(*bytes);
    LineWalker lines(text);
    return lines.AtEnd() ? QString() : DecodeLine(lines.Next());
}

Outcome<QString> PasswordStore::WriteCommonFile(const QString& password) const
{
    const auto written
        = ReplaceFile(CommonPasswordFile(m_places), EncodeLine(password) + "\r\n", Sharing::FolderReads);
    if (!written)
        return CannotWrite(CommonPasswordFile(m_places), written.Reason());
    return password;
}

bool PasswordStore::HasBeenLost() const
{
    const FileStamp file = m_places.ModeReseau ? StampOf(CommonPasswordFile(m_places)) : FileStamp();
    // An empty password that somebody set is a line that is empty.
    if (!file.exists || file.size != 0)
        return false;
    const QDir deposit(DepositFolder(m_places));
    const QStringList journals = deposit.entryList({QStringLiteral("EQU_*.txt")}, QDir::Files);
    return std::any_of(journals.begin(), journals.end(), [&](const QString& name) {
        return StampOf(deposit.filePath(name)).changedNs < file.changedNs;
    });
}

Outcome<QString> PasswordStore::MakeCommonFile() const
{
    const QString path = CommonPasswordFile(m_places);
    const auto made = OpenForAppending(path, IfMissing::Make, Sharing::FolderReads);
    // A teacher may let the pupils' accounts read his file and not write it.
    if (made || OpenForReading(path, Links::Refused))
        return path;
    return made.Why();
}

} // namespace stoikal
