#include "platform/qt_platform.h"

#include "support/environment.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUrl>
#include <gtest/gtest.h>

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

TEST_F(QtTrashTest, CannotMoveWhatIsNotThere)
{
    EXPECT_FALSE(QtTrash().Move(folder.filePath(u"absent.Equ"_s)));
}

} // namespace stoikal
