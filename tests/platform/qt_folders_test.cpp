#include "platform/qt_platform.h"

#include "support/qt_printers.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Environment variables for one test; what stood there before comes back.
class Environment
{
public:
    Environment() = default;
    ~Environment()
    {
        for (const auto& [name, value] : m_before) {
            if (value.isNull())
                qunsetenv(name.constData());
            else
                qputenv(name.constData(), value);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    void Set(const char* name, const QString& value)
    {
        m_before.insert(m_before.begin(), {name, qgetenv(name)});
        qputenv(name, value.toLocal8Bit());
    }

    void Unset(const char* name)
    {
        m_before.insert(m_before.begin(), {name, qgetenv(name)});
        qunsetenv(name);
    }

private:
    std::vector<std::pair<QByteArray, QByteArray>> m_before; ///< the last change first
};

bool Put(const QString& path)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly);
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// True when a process is over: gone, or waiting only to be counted ("Z").
bool IsOver(const QByteArray& process)
{
    const QByteArray status = Content(u"/proc/%1/stat"_s.arg(QString::fromLatin1(process)));
    return status.isEmpty() || status.sliced(status.lastIndexOf(')')).startsWith(") Z");
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

TEST(QtWebFetch, SiteIsWhatItsVariableSays)
{
    Environment environment;
    environment.Set("STOIKAL_SITE", u"http://chimie.example"_s);
    EXPECT_EQ(QtWebFetch().Site(), u"http://chimie.example"_s);

    environment.Unset("STOIKAL_SITE");
    EXPECT_EQ(QtWebFetch().Site(), QString());
}

TEST(QtPrograms, CalculatorIsTheCommandOfItsVariableWithItsArguments)
{
    const QTemporaryDir folder;
    const QString script = folder.filePath(u"my calculator"_s);
    const QString note = folder.filePath(u"process"_s);
    {
        QFile file(script);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\necho $$ \"$2\" > \"$1.part\"\nmv \"$1.part\" \"$1\"\nexec sleep 60\n");
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    Environment environment;
    environment.Set("STOIKAL_CALCULATOR", u"\"%1\" \"%2\" \"two words\""_s.arg(script, note));
    QtPrograms programs;
    ASSERT_FALSE(programs.CalculatorRuns());

    ASSERT_TRUE(programs.StartCalculator());
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(note); }, 60000));
    const QByteArray said = Content(note).trimmed();
    const QByteArray process = said.split(' ').first();

    EXPECT_EQ(said, process + " two words");
    EXPECT_TRUE(programs.CalculatorRuns());
    EXPECT_FALSE(IsOver(process));

    programs.CloseCalculator();

    EXPECT_FALSE(programs.CalculatorRuns());
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsOver(process); }, 60000));
}

TEST(QtPrograms, CalculatorThatIsNotInstalledIsNotStarted)
{
    Environment environment;
    environment.Set("STOIKAL_CALCULATOR", u"/no/such/calculator"_s);
    QtPrograms programs;

    EXPECT_FALSE(programs.StartCalculator());
    EXPECT_FALSE(programs.CalculatorRuns());
    programs.CloseCalculator(); // Nothing to close, and nothing happens.
    EXPECT_FALSE(programs.CalculatorRuns());
}

TEST(QtPrograms, FirstInstalledCalculatorOfTheListIsStarted)
{
    const QTemporaryDir folder;
    const QString note = folder.filePath(u"process"_s);
    {
        QFile file(folder.filePath(u"galculator"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\necho $$ > '" + note.toLocal8Bit() + ".part'\n/bin/mv '" + note.toLocal8Bit()
                   + ".part' '" + note.toLocal8Bit() + "'\nexec /bin/sleep 60\n");
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    Environment environment;
    environment.Unset("STOIKAL_CALCULATOR");
    environment.Set("PATH", folder.path());
    QtPrograms programs;

    ASSERT_TRUE(programs.StartCalculator());
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(note); }, 60000));

    programs.CloseCalculator();
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsOver(Content(note).trimmed()); }, 60000));
}

} // namespace stoikal
