#include "base/system_reason.h"
#include "support/qt_printers.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(SystemReason, FolderInTheFilesPlaceIsToldInFrench)
{
    EXPECT_EQ(FrenchReason(EISDIR), u"c'est un dossier"_s);
}

TEST(SystemReason, ShareThatWentIsToldInFrench)
{
    EXPECT_EQ(FrenchReason(ESTALE), u"le partage n'est plus relié"_s);
    EXPECT_EQ(FrenchReason(EIO), u"le disque ou le partage ne répond pas"_s);
    EXPECT_EQ(FrenchReason(EROFS), u"le disque est en lecture seule"_s);
}

TEST(SystemReason, FileThatMayGrowNoMoreIsToldInFrench)
{
    EXPECT_EQ(FrenchReason(EFBIG), u"le fichier a atteint la taille permise"_s);
}

TEST(SystemReason, CommonRefusalsAreToldInFrench)
{
    EXPECT_EQ(FrenchReason(EACCES), u"l'accès est refusé"_s);
    EXPECT_EQ(FrenchReason(ENOENT), u"le fichier ou le dossier n'existe pas"_s);
    EXPECT_EQ(FrenchReason(ENOSPC), u"le disque est plein"_s);
}

TEST(SystemReason, UncommonOneIsToldByItsNumberAndNotInAnotherLanguage)
{
    // No file is ever refused so: "Multihop attempted".
    EXPECT_EQ(FrenchReason(EMULTIHOP), u"erreur n° 72 du système"_s);
}

} // namespace stoikal
