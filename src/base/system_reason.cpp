#include "base/system_reason.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace stoikal {
namespace {

struct Reason {
    int code;
    QString words;
};

/// For these the toolkit has words of its own, whatever the system's language.
struct ToolkitReason {
    const char* text;
    int code;
};
constexpr std::array kToolkitReasons{
    ToolkitReason{QT_TRANSLATE_NOOP("QIODevice", "Permission denied"), EACCES},
    ToolkitReason{QT_TRANSLATE_NOOP("QIODevice", "No such file or directory"), ENOENT},
    ToolkitReason{QT_TRANSLATE_NOOP("QIODevice", "No space left on device"), ENOSPC}};

/// Whether the system or the toolkit tells this failure so.
bool Tells(const QString& text, int code)
{
    if (text == QString::fromLocal8Bit(std::strerror(code)))
        return true;
    return std::any_of(kToolkitReasons.begin(), kToolkitReasons.end(), [&](const ToolkitReason& reason) {
        return reason.code == code
            && (text == QLatin1String(reason.text)
                || text == QCoreApplication::translate("QIODevice", reason.text));
    });
}

} // namespace

QString FrenchReason(const QString& systemReason)
{
    const Reason reasons[]{
        {EACCES, QStringLiteral("l'accès est refusé")},
        {EAGAIN, QStringLiteral("le fichier est occupé")},
        {EBUSY, QStringLiteral("le fichier est occupé")},
        {EDQUOT, QStringLiteral("la place allouée sur le disque est épuisée")},
        {EEXIST, QStringLiteral("le nom est déjà pris")},
        {EFBIG, QStringLiteral("le fichier a atteint la taille permise")},
        {EHOSTDOWN, QStringLiteral("le serveur ne répond pas")},
        {EHOSTUNREACH, QStringLiteral("le serveur ne répond pas")},
        {EINTR, QStringLiteral("l'opération a été interrompue")},
        {EIO, QStringLiteral("le disque ou le partage ne répond pas")},
        {EISDIR, QStringLiteral("c'est un dossier")},
        {ELOOP, QStringLiteral("ce nom est celui d'un lien, et non d'un fichier")},
        {EMFILE, QStringLiteral("trop de fichiers sont ouverts")},
        {ENAMETOOLONG, QStringLiteral("le nom est trop long")},
        {ENODEV, QStringLiteral("le disque ou le partage n'est plus là")},
        {ENOLCK, QStringLiteral("le fichier ne peut pas être réservé")},
        {ENOENT, QStringLiteral("le fichier ou le dossier n'existe pas")},
        {ENOSPC, QStringLiteral("le disque est plein")},
        {ENOTCONN, QStringLiteral("le partage n'est plus relié")},
        {ENOTDIR, QStringLiteral("un des dossiers du chemin est un fichier")},
        {ENXIO, QStringLiteral("le disque ou le partage n'est plus là")},
        {EPERM, QStringLiteral("l'opération n'est pas permise")},
        {EROFS, QStringLiteral("le disque est en lecture seule")},
        {ESTALE, QStringLiteral("le partage n'est plus relié")},
        {ETIMEDOUT, QStringLiteral("le serveur ne répond pas")},
    };
    for (const Reason& reason : reasons) {
        if (Tells(systemReason, reason.code))
            return reason.words;
    }
    return systemReason;
}

QString FrenchReason(int error)
{
    return FrenchReason(QString::fromLocal8Bit(std::strerror(error)));
}

} // namespace stoikal
