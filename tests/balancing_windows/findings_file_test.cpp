#include "balancing/findings_file.h"

#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/qt_printers.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class Findings : public testing::Test
{
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(u"sortie.Equ"_s);
};

} // namespace

TEST_F(Findings, MakeTheirFileAtOnce)
{
    const auto file = FindingsFile::Open(path, {});

    ASSERT_TRUE(file);
    EXPECT_EQ(BytesOfFile(path), "");
    EXPECT_EQ(file->SizeBefore(), 0);
    EXPECT_TRUE(file->IsAt(folder.filePath(u"./sortie.Equ"_s)));
}

TEST_F(Findings, StandBehindWhatTheFileHeld)
{
    WriteBytes(path, "A=B/1,1");
    auto opened = FindingsFile::Open(path, {});
    ASSERT_TRUE(opened);
    FindingsFile file = *opened;

    file.Add("C=D/1,1");
    ASSERT_TRUE(file.WriteOut());
    file.Add("E=F/1,1");
    ASSERT_TRUE(file.WriteOut());

    EXPECT_EQ(BytesOfFile(path), "A=B/1,1\r\nC=D/1,1\r\nE=F/1,1\r\n");
    EXPECT_EQ(file.SizeBefore(), 7);
}

TEST_F(Findings, AreEncodedAsAllTextFilesAre)
{
    FindingsFile file = *FindingsFile::Open(path, {});

    // "é" in both encodings comes out in one byte; a character that the code page
    // lacks keeps its line in UTF-8.
    file.Add("A=B/1 \xE9");
    file.Add("A=B/1 \xC3\xA9");
    file.Add("A=B/1 \xE2\x82\x82 \xC3\xA9");
    ASSERT_TRUE(file.WriteOut());

    EXPECT_EQ(BytesOfFile(path), "A=B/1 \xE9\r\nA=B/1 \xE9\r\nA=B/1 \xE2\x82\x82 \xC3\xA9\r\n");
}

TEST_F(Findings, WaitForTheNextTimeWhenTheDiskIsFull)
{
    FindingsFile file = *FindingsFile::Open(path, {});
    file.Add("A=B/1,1");

    LimitFileSize(0);
    EXPECT_FALSE(file.WriteOut());
    LimitFileSize(RLIM_INFINITY);

    EXPECT_TRUE(file.WriteOut());
    EXPECT_EQ(BytesOfFile(path), "A=B/1,1\r\n");
}

TEST_F(Findings, AreNeverPutIntoTheFileOfThePassword)
{
    const QString password = folder.filePath(u"MotDePasse.txt"_s);
    WriteBytes(password, "Sesame\r\n");
    ASSERT_TRUE(QFile::link(password, path));

    EXPECT_FALSE(FindingsFile::Open(path, password));

    EXPECT_EQ(BytesOfFile(password), "Sesame\r\n");
}

} // namespace stoikal
