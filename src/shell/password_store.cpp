#include "shell/password_store.h"

#include "base/session_state.h"
#include "base/settings_store.h"
#include "base/shown_path.h"
#include "base/system_reason.h"
#include "base/text_lines.h"
#include "base/whole_file.h"
#include "exercise/results_journal.h"
#include "shell/data_folders.h"

#include <QFile>
#include <QFileInfo>

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
                .arg(ShownPath(path), FrenchReason(reason))};
}

Failure CannotWrite(const QString& path, const QString& reason)
{
    return {QStringLiteral("Le nouveau mot de passe n'a pas pu être enregistré :\n%1\n(%2)\n\n"
                           "L'ancien mot de passe reste valable.")
                .arg(ShownPath(path), FrenchReason(reason))};
}

} // namespace

QString PasswordStore::CommonFile() const
{
    // The folder is the one found at start: a share that has gone since must not
    // make the program fall back on another, less guarded place.
    return DepositFolder(m_state) + QStringLiteral("/MotDePasse.txt");
}

Outcome<QString> PasswordStore::Read() const
{
    return m_state.ModeReseau ? ReadCommonFile() : m_settings.Read(Section(), Key());
}

Outcome<QString> PasswordStore::Write(const QString& password)
{
    if (m_state.ModeReseau)
        return WriteCommonFile(password);
    m_settings.Write(Section(), Key(), password);
    return password;
}

Outcome<QString> PasswordStore::ReadCommonFile() const
{
    QFile file(CommonFile());
    // A folder opens for reading on some systems, and then reads as empty.
    if (QFileInfo(file).isDir())
        return CannotRead(file.fileName(), QStringLiteral("c'est un dossier"));
    if (!file.open(QIODevice::ReadOnly))
        return CannotRead(file.fileName(), file.errorString());
    const QByteArray bytes = NormaliseTextBytes(file.readAll());
    if (file.error() != QFileDevice::NoError)
        return CannotRead(file.fileName(), file.errorString());
    LineWalker lines(bytes);
    return lines.AtEnd() ? QString() : DecodeLine(lines.Next());
}

Outcome<QString> PasswordStore::WriteCommonFile(const QString& password) const
{
    const QString path = CommonFile();
    const bool isNew = !QFileInfo::exists(path);
    const auto written = ReplaceFile(path, EncodeLine(password) + "\r\n", [this, isNew](QFileDevice& file) {
        if (isNew)
            ShareWithFolder(file, DepositFolder(m_state));
    });
    if (!written)
        return CannotWrite(path, written.Reason());
    return password;
}

Outcome<QString> PasswordStore::MakeCommonFile() const
{
    QFile file(CommonFile());
    const bool isNew = !file.exists();
    if (file.open(QIODevice::Append)) {
        if (isNew)
            ShareWithFolder(file, DepositFolder(m_state));
        return file.fileName();
    }
    const QString reason = FrenchReason(file.errorString());
    // A teacher may let the pupils' accounts read his file and not write it.
    if (QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly))
        return file.fileName();
    return Failure{reason};
}

} // namespace stoikal
