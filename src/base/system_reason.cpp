#include "base/system_reason.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace stoikal {
namespace {

struct Reason {
    int code;
    QString words;
};

} // namespace

QString FrenchReason(int error)
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
    const auto* const known = std::find_if(std::begin(reasons), std::end(reasons),
                                           [error](const Reason& reason) { return reason.code == error; });
    return known == std::end(reasons) ? QStringLiteral("erreur n° %1 du système").arg(error) : known->words;
}

} // namespace stoikal
