#include "editor/loaded_version.h"

#include "editor/equation_file_io.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QByteArray kWater = "H2+O2=H2O/2,1,2\r\n";
const QByteArray kCoal = "C+O2=CO2/1,1,1\r\n";

/// A folder in which the editor took in Serie.Equ.
class WritingTargetTest : public testing::Test
{
protected:
    WritingTargetTest()
    {
        Put(u"Serie.Equ"_s, kWater);
        const auto file = LoadFileIntoEditor(folder.filePath(u"Serie.Equ"_s));
        EXPECT_TRUE(file.Succeeded());
        loaded = file->version;
    }

    void Put(const QString& name, const QByteArray& bytes) const { WriteBytes(folder.filePath(name), bytes); }
    WritingTarget Find(const QString& name) const { return FindWritingTarget(folder.path(), name, loaded); }

    QTemporaryDir folder;
    LoadedVersion loaded;
};

} // namespace

TEST_F(WritingTargetTest, NameThatNoFileHasIsFree)
{
    EXPECT_EQ(Find(u"Autre.Equ"_s), WritingTarget::Free);
    EXPECT_EQ(Find(u"Serie.Avt"_s), WritingTarget::Free);
    loaded = {};
    EXPECT_EQ(Find(u"Nouveau.Equ"_s), WritingTarget::Free);
}

TEST_F(WritingTargetTest, FileAsItWasLoadedOrAnyOtherFileExists)
{
    Put(u"Autre.Equ"_s, kCoal);

    EXPECT_EQ(Find(u"Serie.Equ"_s), WritingTarget::Existing);
    EXPECT_EQ(Find(u"SERIE.Equ"_s), WritingTarget::Existing);
    EXPECT_EQ(Find(u"autre.Equ"_s), WritingTarget::Existing);
    loaded = {};
    EXPECT_EQ(Find(u"Serie.Equ"_s), WritingTarget::Existing);
}

TEST_F(WritingTargetTest, OtherContentIsAChangeWhateverTheTimeOfTheFile)
{
    QFile file(folder.filePath(u"Serie.Equ"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime before = file.fileTime(QFileDevice::FileModificationTime);
    file.resize(0);
    file.write("H2+O2=H2O/4,2,4\r\n");
    ASSERT_TRUE(file.flush());
    ASSERT_TRUE(file.setFileTime(before, QFileDevice::FileModificationTime));
    file.close();

    EXPECT_EQ(Find(u"Serie.Equ"_s), WritingTarget::ChangedSinceLoaded);

    Put(u"Serie.Equ"_s, kWater);
    EXPECT_EQ(Find(u"Serie.Equ"_s), WritingTarget::Existing) << "written anew with the same content";
}

TEST_F(WritingTargetTest, FileThatWasLoadedAndIsNotThereWasDeleted)
{
    ASSERT_TRUE(QFile::remove(folder.filePath(u"Serie.Equ"_s)));

    EXPECT_EQ(Find(u"Serie.Equ"_s), WritingTarget::DeletedSinceLoaded);
    EXPECT_EQ(Find(u"Autre.Equ"_s), WritingTarget::Free);
}

TEST_F(WritingTargetTest, FileRenamedToAnotherSpellingIsNotTheLoadedOne)
{
    ASSERT_TRUE(QFile::rename(folder.filePath(u"Serie.Equ"_s), folder.filePath(u"SERIE.equ"_s)));

    EXPECT_EQ(Find(u"Serie.Equ"_s), WritingTarget::ChangedSinceLoaded);
}

} // namespace stoikal
