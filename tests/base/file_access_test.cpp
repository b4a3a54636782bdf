#include "base/file_access.h"

#include "support/file_bytes.h"
#include "support/qt_printers.h"
#include "support/shared_folder.h"

#include <QFileInfo>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FileAccess : public testing::Test
{
protected:
    /// A folder of the victim's with one file in it.
    QString HomeFolder() const
    {
        const QString path = place.home + u"/dossier"_s;
        EXPECT_TRUE(QDir().mkdir(path));
        WriteBytes(path + u"/a.txt"_s, "a");
        return path;
    }

    /// Why a file does not open for the victim; empty when it does.
    static QString Refusal(const QString& path, Links links = Links::Refused)
    {
        const AsOrdinaryUser victim(kVictim);
        const auto file = OpenForReading(path, links);
        return file ? QString() : file.Reason();
    }

    void MakeLink(const QString& target, uid_t owner, const QString& name) const
    {
        ASSERT_EQ(::symlink(qPrintable(target), qPrintable(place.Path(name))), 0);
        if (HasTwoAccounts()) {
            ASSERT_EQ(::lchown(qPrintable(place.Path(name)), owner, owner), 0);
        }
    }

    const SharedFolder place;
};

const QString kForeignLink = u"un des dossiers du chemin est un lien d'un autre compte"_s;

} // namespace

TEST_F(FileAccess, LinkToAFolderIsFollowedWhenTheSuperuserOrTheAccountMadeIt)
{
    const QString folder = HomeFolder();
    MakeLink(folder, 0, u"racine"_s);
    MakeLink(folder, kVictim, u"soi"_s);

    EXPECT_EQ(Refusal(place.Path(u"racine/a.txt"_s)), QString());
    EXPECT_EQ(Refusal(place.Path(u"soi/a.txt"_s)), QString());
}

TEST_F(FileAccess, LinkToAFolderIsNotFollowedWhenAnotherAccountMadeIt)
{
    if (!HasTwoAccounts())
        GTEST_SKIP() << "a link of another account needs the superuser to plant it";
    MakeLink(HomeFolder(), kPlanter, u"autre"_s);

    EXPECT_EQ(Refusal(place.Path(u"autre/a.txt"_s)), kForeignLink);
    // A link of one's own does not make the other's one's own.
    MakeLink(place.Path(u"autre"_s), kVictim, u"soi"_s);
    EXPECT_EQ(Refusal(place.Path(u"soi/a.txt"_s)), kForeignLink);
}

TEST_F(FileAccess, LinkInAFolderThatOnlyItsOwnerWritesIsFollowed)
{
    if (!HasTwoAccounts())
        GTEST_SKIP() << "a folder of another account needs the superuser to make it";
    const QString teachers = place.Path(u"professeur"_s);
    ASSERT_TRUE(QDir().mkdir(teachers));
    MakeLink(HomeFolder(), kPlanter, u"professeur/lien"_s);
    ASSERT_EQ(::chown(qPrintable(teachers), kPlanter, kPlanter), 0);

    ASSERT_EQ(::chmod(qPrintable(teachers), 0755), 0);
    EXPECT_EQ(Refusal(teachers + u"/lien/a.txt"_s), QString());
    ASSERT_EQ(::chmod(qPrintable(teachers), 0775), 0);
    EXPECT_EQ(Refusal(teachers + u"/lien/a.txt"_s), kForeignLink);
}

TEST_F(FileAccess, LinksOfOthersAreFollowedToAFileThatIsOnlyRead)
{
    const QString folder = HomeFolder();
    MakeLink(folder, kPlanter, u"autre"_s);
    MakeLink(u"autre/a.txt"_s, kPlanter, u"lien.Equ"_s);

    EXPECT_EQ(Refusal(place.Path(u"autre/a.txt"_s), Links::Followed), QString());
    EXPECT_EQ(Refusal(place.Path(u"lien.Equ"_s), Links::Followed), QString());
    const auto file = OpenForReading(place.Path(u"lien.Equ"_s), Links::Followed);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Name(), u"a.txt"_s);
}

TEST_F(FileAccess, LinkToItselfComesToAnEnd)
{
    MakeLink(u"anneau"_s, kVictim, u"anneau"_s);

    EXPECT_FALSE(Refusal(place.Path(u"anneau"_s), Links::Followed).isEmpty());
    EXPECT_FALSE(Refusal(place.Path(u"anneau/a.txt"_s), Links::Followed).isEmpty());
}

TEST_F(FileAccess, PathMayBeRelativeAndLeadUpwards)
{
    WriteBytes(place.Path(u"a.txt"_s), "a");
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(place.home));

    EXPECT_EQ(Refusal(u"../partage//./a.txt"_s), QString());
    EXPECT_EQ(Refusal(u"absent/a.txt"_s), u"le fichier ou le dossier n'existe pas"_s);
    EXPECT_EQ(Refusal(u"../partage/a.txt/b"_s), u"un des dossiers du chemin est un fichier"_s);
    EXPECT_EQ(Refusal(u".."_s), u"c'est un dossier"_s);
    EXPECT_EQ(Refusal(QString()), u"le fichier ou le dossier n'existe pas"_s);
    EXPECT_EQ(Refusal(u"../partage/a.txt"_s + QChar(0) + u"b"_s), u"le fichier ou le dossier n'existe pas"_s);

    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST_F(FileAccess, FolderThatMayOnlyBePassedThroughIsNoHindrance)
{
    // A deposit whose content nobody may list.
    const QString folder = HomeFolder();
    ASSERT_EQ(::chmod(qPrintable(folder), 0311), 0);

    EXPECT_EQ(Refusal(folder + u"/a.txt"_s), QString());

    ASSERT_EQ(::chmod(qPrintable(folder), 0755), 0);
}

TEST_F(FileAccess, LockIsOpenToAllWhateverTheMask)
{
    const mode_t mask = ::umask(077);
    const auto made = OpenForLocking(place.Path(u"a.lock"_s));
    ::umask(mask);

    ASSERT_TRUE(made);
    EXPECT_TRUE(made->IsNew());
    EXPECT_EQ(SharedFolder::RightsOf(place.Path(u"a.lock"_s)), 0666U);
}

TEST_F(FileAccess, FileThatIsAppendedToIsSharedOnlyWhenItIsNew)
{
    const mode_t mask = ::umask(022);
    const QString path = place.Path(u"Resultat.txt"_s);
    ASSERT_TRUE(OpenForAppending(path, IfMissing::Make, Sharing::Folder));
    ::umask(mask);
    EXPECT_EQ(SharedFolder::RightsOf(path), 0666U);

    ASSERT_EQ(::chmod(qPrintable(path), 0600), 0);
    const auto again = OpenForAppending(path, IfMissing::Make, Sharing::Folder);

    ASSERT_TRUE(again);
    EXPECT_FALSE(again->IsNew());
    EXPECT_EQ(SharedFolder::RightsOf(path), 0600U);
}

TEST_F(FileAccess, SecondNameIsNoHindranceWhereNobodyElseCouldHaveGivenIt)
{
    const QString folder = HomeFolder();
    ASSERT_EQ(::chmod(qPrintable(folder), 0755), 0);
    ASSERT_EQ(::link(qPrintable(folder + u"/a.txt"_s), qPrintable(folder + u"/b.txt"_s)), 0);

    EXPECT_TRUE(OpenForAppending(folder + u"/b.txt"_s, IfMissing::Refuse, Sharing::Account));
}

TEST_F(FileAccess, SecondNameOfAFileOfAnotherAccountIsHisOwnAffair)
{
    if (!HasTwoAccounts())
        GTEST_SKIP() << "a file of another account needs the superuser to make it";
    const QString path = place.Path(u"Resultat.txt"_s);
    WriteBytes(path, "a");
    ASSERT_EQ(::chown(qPrintable(path), kPlanter, kPlanter), 0);
    ASSERT_EQ(::chmod(qPrintable(path), 0666), 0);
    place.PlantSecondName(path, u"copie.txt"_s);
    const AsOrdinaryUser victim(kVictim);

    EXPECT_TRUE(OpenForAppending(path, IfMissing::Make, Sharing::Folder));
}

TEST_F(FileAccess, FoldersAreMadeOneInTheOther)
{
    EXPECT_TRUE(MakeFolders(place.Path(u"un/deux/trois"_s)));
    EXPECT_TRUE(MakeFolders(place.Path(u"un/deux/trois"_s)));

    EXPECT_TRUE(QFileInfo(place.Path(u"un/deux/trois"_s)).isDir());
    EXPECT_TRUE(QDir(place.Path(u"un/deux/trois"_s)).isEmpty());
    WriteBytes(place.Path(u"fichier"_s), "");
    EXPECT_FALSE(MakeFolders(place.Path(u"fichier"_s)));
    EXPECT_FALSE(MakeNewFolder(place.Path(u"un"_s)));
}

TEST_F(FileAccess, TreeIsTakenAwayWithoutFollowingItsLinks)
{
    const QString folder = HomeFolder();
    ASSERT_TRUE(QDir().mkpath(place.Path(u"arbre/branche"_s)));
    WriteBytes(place.Path(u"arbre/feuille"_s), "x");
    MakeLink(folder, kPlanter, u"arbre/branche/lien"_s);
    MakeLink(folder + u"/a.txt"_s, kPlanter, u"arbre/lien"_s);
    place.Plant(SharedFolder::Kind::Pipe, u"arbre/tube"_s);

    EXPECT_TRUE(RemoveTree(place.Path(u"arbre"_s)));

    EXPECT_FALSE(QFileInfo::exists(place.Path(u"arbre"_s)));
    EXPECT_EQ(BytesOfFile(folder + u"/a.txt"_s), "a");
}

TEST_F(FileAccess, LinkInPlaceOfATreeGoesItself)
{
    const QString folder = HomeFolder();
    MakeLink(folder, kPlanter, u"Stoikal.nouveau"_s);

    EXPECT_TRUE(RemoveTree(place.Path(u"Stoikal.nouveau"_s)));

    EXPECT_FALSE(QFileInfo(place.Path(u"Stoikal.nouveau"_s)).isSymLink());
    EXPECT_EQ(BytesOfFile(folder + u"/a.txt"_s), "a");
}

TEST_F(FileAccess, TreeThatIsNotThereIsGoneAndAFileIsNoTree)
{
    WriteBytes(place.Path(u"fichier"_s), "x");

    EXPECT_TRUE(RemoveTree(place.Path(u"absent"_s)));
    EXPECT_FALSE(RemoveTree(place.Path(u"fichier"_s)));
    EXPECT_EQ(BytesOfFile(place.Path(u"fichier"_s)), "x");
}

TEST_F(FileAccess, FileIsTakenAwayAndALinkItself)
{
    WriteBytes(place.Path(u"fichier"_s), "x");
    MakeLink(place.Path(u"fichier"_s), kPlanter, u"lien"_s);

    EXPECT_TRUE(RemoveFile(place.Path(u"lien"_s)));
    EXPECT_EQ(BytesOfFile(place.Path(u"fichier"_s)), "x");
    EXPECT_TRUE(RemoveFile(place.Path(u"fichier"_s)));
    EXPECT_TRUE(RemoveFile(place.Path(u"fichier"_s)));
    EXPECT_FALSE(RemoveFile(place.shared));
}

TEST_F(FileAccess, FolderTakesAnotherNameBesideItself)
{
    ASSERT_TRUE(QDir().mkdir(place.Path(u"Stoikal.nouveau"_s)));
    MakeLink(place.home, kPlanter, u"pris"_s);

    EXPECT_FALSE(RenameFolder(place.Path(u"Stoikal.nouveau"_s), u"pris"_s));
    EXPECT_TRUE(RenameFolder(place.Path(u"Stoikal.nouveau"_s), u"Stoikal"_s));

    EXPECT_TRUE(QFileInfo(place.Path(u"Stoikal"_s)).isDir());
}

} // namespace stoikal
