#include "platform/qt_platform.h"

#include "support/environment.h"
#include "support/qt_printers.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

bool Put(const QString& path)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly);
}

} // namespace

TEST(QtFolders, ApplicationDataFolderIsWhatItsVariableSays)
{
    Environment environment;
    environment.Set("STOIKAL_APPDATA_DIR", u"/srv/école/données"_s);

    EXPECT_EQ(QtFolders().CommonAppData(), u"/srv/école/données"_s);
}

TEST(QtFolders, DocumentsFolderIsWhatItsVariableSays)
{
    Environment environment;
    environment.Set("STOIKAL_DOCUMENTS_DIR", u"/srv/classe"_s);

    EXPECT_EQ(QtFolders().CommonDocuments(), u"/srv/classe"_s);
}

TEST(QtFolders, ProgramFolderIsWhatItsVariableSays)
{
    Environment environment;
    environment.Set("STOIKAL_PROGRAM_DIR", u"/opt/stoikal"_s);

    EXPECT_EQ(QtFolders().Program(), u"/opt/stoikal"_s);
}

TEST(QtFolders, NetworkRootIsWhatItsVariableSays)
{
    Environment environment;
    environment.Set("STOIKAL_NETWORK_ROOT", u"/mnt/classe"_s);

    EXPECT_EQ(QtFolders().NetworkRoot(), u"/mnt/classe"_s);
}

TEST(QtFolders, SharesAreKnownByTheTypeOfTheirFileSystem)
{
    for (const char* const type : {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs", "9p", "afs"})
        EXPECT_TRUE(IsNetworkFileSystem(type)) << type;
    for (const char* const type : {"ext4", "btrfs", "xfs", "tmpfs", "overlay", "vfat", "fuseblk", "nfsd", ""})
        EXPECT_FALSE(IsNetworkFileSystem(type)) << type;
}

TEST(QtFolders, WithoutAVariableALocalProgramHasNoNetworkRoot)
{
    const QStorageInfo here(QCoreApplication::applicationDirPath());
    if (IsNetworkFileSystem(here.fileSystemType()))
        GTEST_SKIP() << "these tests run from a share";
    Environment environment;
    environment.Unset("STOIKAL_NETWORK_ROOT");

    EXPECT_EQ(QtFolders().NetworkRoot(), QString());
}

TEST(QtFolders, NoFolderEndsInASeparator)
{
    Environment environment;
    for (const char* const name :
         {"STOIKAL_APPDATA_DIR", "STOIKAL_DOCUMENTS_DIR", "STOIKAL_PROGRAM_DIR", "STOIKAL_NETWORK_ROOT"})
        environment.Set(name, u"/srv//classe/./stoikal/"_s);
    const QtFolders folders;

    EXPECT_EQ(folders.CommonAppData(), u"/srv/classe/stoikal"_s);
    EXPECT_EQ(folders.CommonDocuments(), u"/srv/classe/stoikal"_s);
    EXPECT_EQ(folders.Program(), u"/srv/classe/stoikal"_s);
    EXPECT_EQ(folders.NetworkRoot(), u"/srv/classe/stoikal"_s);
}

TEST(QtFolders, WithoutAVariableTheFoldersAreTheUsers)
{
    if (QFileInfo(u"/var/lib/Tovik_MARLEN/Stoikal"_s).isDir()
        || QFileInfo(u"/srv/documents/Tovik_MARLEN/Stoikal"_s).isDir())
        GTEST_SKIP() << "this machine has folders of its own";
    const QTemporaryDir home;
    Environment environment;
    environment.Unset("STOIKAL_APPDATA_DIR");
    environment.Set("STOIKAL_DOCUMENTS_DIR", QString()); // Empty is as good as none.
    environment.Set("HOME", home.path());
    environment.Set("XDG_DATA_HOME", home.filePath(u"data"_s));
    environment.Set("XDG_CONFIG_HOME", home.filePath(u"config"_s));

    EXPECT_EQ(QtFolders().CommonAppData(), home.filePath(u"data"_s));
    EXPECT_EQ(QtFolders().CommonDocuments(), home.filePath(u"Documents"_s));
}

TEST(QtFolders, WithoutAVariableTheProgramsFilesLieBesideIt)
{
    Environment environment;
    environment.Unset("STOIKAL_PROGRAM_DIR");

    EXPECT_EQ(QtFolders().Program(), QFileInfo(QCoreApplication::applicationFilePath()).absolutePath());
}

TEST(QtFolders, SeedsAreTheShippedExercisesAndTips)
{
    const QTemporaryDir program;
    for (const QString& name : {u"exercises/b.Avt"_s, u"exercises/a.Equ"_s, u"tips/TipOfDayEqChm.txt"_s,
                                u"other/c.Equ"_s, u"d.Equ"_s, u"exercises/below/e.Equ"_s})
        ASSERT_TRUE(Put(program.filePath(name)));
    Environment environment;
    environment.Set("STOIKAL_PROGRAM_DIR", program.path());

    EXPECT_EQ(QtFolders().SeedFiles(),
              QStringList({program.filePath(u"exercises/a.Equ"_s), program.filePath(u"exercises/b.Avt"_s),
                           program.filePath(u"tips/TipOfDayEqChm.txt"_s)}));
}

TEST(QtFolders, ProgramWithoutSeedsHasNone)
{
    const QTemporaryDir program;
    Environment environment;
    environment.Set("STOIKAL_PROGRAM_DIR", program.path());

    EXPECT_TRUE(QtFolders().SeedFiles().isEmpty());
}

TEST(QtFolders, CacheIsTheUsers)
{
    const QTemporaryDir home;
    Environment environment;
    environment.Set("XDG_CACHE_HOME", home.filePath(u"cache"_s));

    EXPECT_EQ(QtFolders().Cache(), home.filePath(u"cache/stoikal"_s));
}

TEST(QtUserAccount, LoginNameIsWhatItsVariableSays)
{
    Environment environment;
    environment.Set("STOIKAL_USER", u"élève12"_s);

    EXPECT_EQ(QtUserAccount().LoginName(), u"élève12"_s);
}

TEST(QtUserAccount, WithoutAVariableItIsTheAccount)
{
    const passwd* const entry = ::getpwuid(::getuid());
    if (entry == nullptr)
        GTEST_SKIP() << "this account has no name";
    Environment environment;
    environment.Unset("STOIKAL_USER");

    EXPECT_EQ(QtUserAccount().LoginName(), QString::fromLocal8Bit(entry->pw_name));
}

} // namespace stoikal
