#include "platform/qt_platform.h"

#include "support/environment.h"
#include "support/file_bytes.h"
#include "support/ordinary_user.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A user whose data folder lies on the volume of the files, and a file to throw
/// away. The process stands in an empty folder of its own.
class QtTrashTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_environment.Set("XDG_DATA_HOME", DataHome());
        m_here = QDir::currentPath();
        ASSERT_TRUE(QDir().mkpath(Here()));
        ASSERT_TRUE(QDir::setCurrent(Here()));
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        WriteBytes(path, "H2+O2=H2O/2,1,2\r\n");
    }

    void TearDown() override { QDir::setCurrent(m_here); }

    QString DataHome() const { return folder.filePath(u"home/data"_s); }
    QString InTrash(const QString& name) const { return DataHome() + u"/Trash/files/"_s + name; }
    QString Note(const QString& name) const
    {
        return DataHome() + u"/Trash/info/"_s + name + u".trashinfo"_s;
    }
    QString Here() const { return folder.filePath(u"here"_s); }

    QTemporaryDir folder;
    QString path = folder.filePath(u"équations/Série à jeter.Equ"_s);

private:
    Environment m_environment;
    QString m_here;
};

} // namespace

TEST_F(QtTrashTest, MovesAFileToWhereTheDesktopCanRestoreIt)
{
    EXPECT_TRUE(QtTrash().Move(path));

    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(BytesOfFile(InTrash(u"Série à jeter.Equ"_s)), "H2+O2=H2O/2,1,2\r\n");
}

TEST_F(QtTrashTest, NotesWhereTheFileCameFromAndWhen)
{
    ASSERT_TRUE(QtTrash().Move(path));

    const QList<QByteArray> lines = BytesOfFile(Note(u"Série à jeter.Equ"_s)).split('\n');
    ASSERT_GE(lines.size(), 3);
    EXPECT_EQ(lines[0], "[Trash Info]");
    ASSERT_TRUE(lines[1].startsWith("Path="));
    EXPECT_EQ(QUrl::fromPercentEncoding(lines[1].sliced(5)), path);
    EXPECT_TRUE(lines[2].startsWith("DeletionDate=")) << lines[2].toStdString();
}

TEST_F(QtTrashTest, MakesTheFolderOfTheUsersDataFirst)
{
    // The toolkit alone would move the file into the current folder.
    ASSERT_FALSE(QDir(DataHome()).exists());

    EXPECT_TRUE(QtTrash().Move(path));

    EXPECT_TRUE(QDir(Here()).isEmpty());
    EXPECT_TRUE(QFile::exists(InTrash(u"Série à jeter.Equ"_s)));
}

TEST_F(QtTrashTest, KeepsTwoFilesOfOneName)
{
    ASSERT_TRUE(QtTrash().Move(path));
    WriteBytes(path, "C+O2=CO2/1,1,1\r\n");

    EXPECT_TRUE(QtTrash().Move(path));

    EXPECT_EQ(QDir(DataHome() + u"/Trash/files"_s).entryList(QDir::Files).size(), 2);
    EXPECT_EQ(QDir(DataHome() + u"/Trash/info"_s).entryList(QDir::Files).size(), 2);
}

TEST_F(QtTrashTest, LeavesTheFileWhereTheUserCanHaveNoTrash)
{
    // A file stands where the folder of the data would be.
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u"home"_s)));
    WriteBytes(DataHome(), "");

    EXPECT_FALSE(QtTrash().Move(path));

    EXPECT_EQ(BytesOfFile(path), "H2+O2=H2O/2,1,2\r\n");
    EXPECT_TRUE(QDir(Here()).isEmpty());
}

TEST_F(QtTrashTest, LeavesTheFileWhereAFileStandsForTheTrash)
{
    ASSERT_TRUE(QDir().mkpath(DataHome()));
    WriteBytes(DataHome() + u"/Trash"_s, "");

    EXPECT_FALSE(QtTrash().Move(path));

    EXPECT_EQ(BytesOfFile(path), "H2+O2=H2O/2,1,2\r\n");
    EXPECT_TRUE(QDir(Here()).isEmpty());
}

TEST_F(QtTrashTest, LeavesTheFileWhereAFileStandsForAPartOfTheTrash)
{
    for (const QString& part : {u"files"_s, u"info"_s}) {
        ASSERT_TRUE(QDir(DataHome()).removeRecursively());
        ASSERT_TRUE(QDir().mkpath(DataHome() + u"/Trash"_s));
        WriteBytes(DataHome() + u"/Trash/"_s + part, "");

        EXPECT_FALSE(QtTrash().Move(path)) << part.toStdString();

        EXPECT_EQ(BytesOfFile(path), "H2+O2=H2O/2,1,2\r\n");
        EXPECT_TRUE(QDir(Here()).isEmpty());
    }
}

TEST_F(QtTrashTest, LeavesTheFileWhereTheDataOfTheUserCannotBeWritten)
{
    ASSERT_TRUE(QDir().mkpath(DataHome()));
    for (const QString& open : {folder.path(), folder.filePath(u"équations"_s), Here(), path})
        ASSERT_EQ(::chmod(qPrintable(open), 0777), 0);
    ASSERT_EQ(::chmod(qPrintable(DataHome()), 0555), 0);
    const AsOrdinaryUser pupil;
    ASSERT_TRUE(pupil.IsOrdinary());

    EXPECT_FALSE(QtTrash().Move(path));

    EXPECT_EQ(BytesOfFile(path), "H2+O2=H2O/2,1,2\r\n");
    EXPECT_TRUE(QDir(Here()).isEmpty());
}

TEST_F(QtTrashTest, BringsEveryNameBackAsItWas)
{
    for (const QString& name :
         {u"100% juste.Equ"_s, u"a%20b.Equ"_s, u"été.Equ"_s, u"# ? ; =.Equ"_s, u"sans extension"_s}) {
        const QString file = folder.filePath(u"équations/"_s + name);
        WriteBytes(file, "");

        ASSERT_TRUE(QtTrash().Move(file));

        const QByteArray written = BytesOfFile(Note(name)).split('\n').value(1);
        EXPECT_EQ(QUrl::fromPercentEncoding(written.sliced(5)), file) << written.toStdString();
        // A space or an accent as it stands would be read differently by other programs.
        EXPECT_TRUE(std::all_of(written.begin(), written.end(), [](char c) { return c > ' ' && c < 127; }))
            << written.toStdString();
    }
}

TEST_F(QtTrashTest, MovesALinkAndNotWhatItLeadsTo)
{
    const QString link = folder.filePath(u"équations/lien.Equ"_s);
    ASSERT_TRUE(QFile::link(path, link));

    EXPECT_TRUE(QtTrash().Move(link));

    EXPECT_TRUE(QFileInfo(InTrash(u"lien.Equ"_s)).isSymLink());
    EXPECT_FALSE(QFileInfo(link).isSymLink());
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(QtTrashTest, IsForTheUserAlone)
{
    ASSERT_TRUE(QtTrash().Move(path));

    constexpr QFileDevice::Permissions kOthers = QFileDevice::ReadGroup | QFileDevice::WriteGroup
        | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    EXPECT_FALSE(QFile::permissions(DataHome() + u"/Trash"_s) & kOthers);
}

TEST_F(QtTrashTest, CannotMoveWhatIsNotThere)
{
    EXPECT_FALSE(QtTrash().Move(folder.filePath(u"absent.Equ"_s)));
}

} // namespace stoikal
