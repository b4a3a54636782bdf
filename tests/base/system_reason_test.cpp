#include "base/system_reason.h"
#include "support/qt_printers.h"

#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QString OfSystem(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

} // namespace

TEST(SystemReason, FolderInTheFilesPlaceIsToldInFrench)
{
    const QTemporaryDir folder;
    QFile file(folder.path());
    ASSERT_FALSE(file.open(QIODevice::Append));

    EXPECT_EQ(FrenchReason(file.errorString()), u"c'est un dossier"_s);
}

TEST(SystemReason, ShareThatWentIsToldInFrench)
{
    EXPECT_EQ(FrenchReason(OfSystem(ESTALE)), u"le partage n'est plus relié"_s);
    EXPECT_EQ(FrenchReason(OfSystem(EIO)), u"le disque ou le partage ne répond pas"_s);
    EXPECT_EQ(FrenchReason(OfSystem(EROFS)), u"le disque est en lecture seule"_s);
}

TEST(SystemReason, FileThatMayGrowNoMoreIsToldInFrench)
{
    EXPECT_EQ(FrenchReason(EFBIG), u"le fichier a atteint la taille permise"_s);
}

TEST(SystemReason, ToolkitsOwnWordsAreToldInFrenchToo)
{
    EXPECT_EQ(FrenchReason(u"Permission denied"_s), u"l'accès est refusé"_s);
    EXPECT_EQ(FrenchReason(u"No such file or directory"_s), u"le fichier ou le dossier n'existe pas"_s);
    EXPECT_EQ(FrenchReason(u"No space left on device"_s), u"le disque est plein"_s);
}

TEST(SystemReason, AnotherReasonStaysAsItIs)
{
    EXPECT_EQ(FrenchReason(u"Permission refusée"_s), u"Permission refusée"_s);
}

} // namespace stoikal
