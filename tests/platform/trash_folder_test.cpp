#include "platform/trash_folder.h"

#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A volume with a folder of equations on it.
class VolumeTrash : public testing::Test
{
protected:
    VolumeTrash()
    {
        EXPECT_TRUE(QDir().mkpath(volume.filePath(u"équations"_s)));
        WriteBytes(path, "H2+O2=H2O/2,1,2\r\n");
    }

    QString NotedPath(const QString& name) const
    {
        const QByteArray note = BytesOfFile(place + u"/info/"_s + name + u".trashinfo"_s);
        return QString::fromLatin1(note.split('\n').value(1));
    }

    QTemporaryDir volume;
    QString path = volume.filePath(u"équations/Série.Equ"_s);
    QString place = volume.filePath(u".Trash-1000"_s);
    TrashFolder trash = TrashFolder::OfVolume(place, volume.path());
};

} // namespace

TEST_F(VolumeTrash, NotesThePathFromTheTopOfTheVolumeOn)
{
    ASSERT_TRUE(trash.Prepare());

    EXPECT_TRUE(trash.Receive(path));

    EXPECT_EQ(NotedPath(u"Série.Equ"_s), u"Path=%C3%A9quations/S%C3%A9rie.Equ"_s);
    EXPECT_EQ(BytesOfFile(place + u"/files/Série.Equ"_s), "H2+O2=H2O/2,1,2\r\n");
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(VolumeTrash, DoesNotTakeAFileFromOutsideTheVolume)
{
    const QTemporaryDir elsewhere;
    const QString other = elsewhere.filePath(u"a.Equ"_s);
    WriteBytes(other, "");
    ASSERT_TRUE(trash.Prepare());

    EXPECT_FALSE(trash.Receive(other));

    EXPECT_TRUE(QFile::exists(other));
}

TEST_F(VolumeTrash, IsNoLinkIntoAnotherFolder)
{
    const QTemporaryDir elsewhere;
    ASSERT_TRUE(QFile::link(elsewhere.path(), place));

    EXPECT_FALSE(trash.Prepare());

    EXPECT_TRUE(QDir(elsewhere.path()).isEmpty());
}

TEST_F(VolumeTrash, LeavesNoNoteOfAFileThatCouldNotCome)
{
    ASSERT_TRUE(trash.Prepare());
    ASSERT_TRUE(QDir().rmdir(place + u"/files"_s));

    EXPECT_FALSE(trash.Receive(path));

    EXPECT_TRUE(QFile::exists(path));
    EXPECT_TRUE(QDir(place + u"/info"_s).isEmpty());
}

TEST_F(VolumeTrash, GivesNoNameTwice)
{
    ASSERT_TRUE(trash.Prepare());
    // One was left behind without its note, of another the note alone.
    WriteBytes(place + u"/files/Série.Equ"_s, "vieux");
    WriteBytes(place + u"/info/Série 2.Equ.trashinfo"_s, "note");

    EXPECT_TRUE(trash.Receive(path));

    EXPECT_EQ(BytesOfFile(place + u"/files/Série.Equ"_s), "vieux");
    EXPECT_EQ(BytesOfFile(place + u"/files/Série 3.Equ"_s), "H2+O2=H2O/2,1,2\r\n");
    EXPECT_EQ(NotedPath(u"Série 3.Equ"_s), u"Path=%C3%A9quations/S%C3%A9rie.Equ"_s);
}

} // namespace stoikal
