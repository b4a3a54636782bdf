#include "base/shared_file.h"

#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/qt_printers.h"
#include "support/school.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A table of the superuser's that a pupil may write over and not replace.
class SharedFile : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!school.IsPlayable())
            GTEST_SKIP() << School::WhyNot();
        PutTable("vieux");
    }

    void PutTable(const QByteArray& bytes) const
    {
        WriteBytes(table, bytes);
        ASSERT_EQ(::chmod(qPrintable(table), 0666), 0);
    }
    void PutCopy(const QByteArray& bytes) const
    {
        WriteBytes(copy, bytes);
        ASSERT_EQ(::chmod(qPrintable(copy), 0666), 0);
    }

    bool Rewrite(const QByteArray& bytes) const
    {
        const AsAccount pupil(kPupilA);
        return RewriteSharedFile(table, copy, bytes).Succeeded();
    }
    bool Finish() const
    {
        const AsAccount pupil(kPupilA);
        return FinishRewriting(table, copy, 1000).Succeeded();
    }

    const School school{03770};
    const QString table = school.Path(u"table.txt"_s);
    const QString copy = school.Path(u"copie.txt"_s);
    /// "neuf" and its checksum, as `printf neuf | sha256sum` tells it.
    const QByteArray wholeCopy
        = "neuf\r\n# a0ad1f02374f9314a7bee2f6e82e44a2e414e0a635f5966f623f737b368f6814\r\n";
};

} // namespace

TEST_F(SharedFile, IsWrittenOverWhereItMayNotBeReplaced)
{
    for (const QByteArray& bytes : {QByteArray("plus long"), QByteArray("bref"), QByteArray()}) {
        EXPECT_TRUE(Rewrite(bytes));

        EXPECT_EQ(BytesOfFile(table), bytes);
        EXPECT_EQ(school.OwnerOf(u"table.txt"_s), 0U);
        EXPECT_FALSE(QFile::exists(copy));
    }
}

TEST_F(SharedFile, IsReplacedWhereItMayBe)
{
    ASSERT_EQ(::chown(qPrintable(table), kPupilA, kClass), 0);
    const auto before = school.StatusOf(u"table.txt"_s).st_ino;

    EXPECT_TRUE(Rewrite("neuf"));

    EXPECT_EQ(BytesOfFile(table), QByteArray("neuf"));
    EXPECT_NE(school.StatusOf(u"table.txt"_s).st_ino, before);
}

TEST_F(SharedFile, TornOneIsMendedFromAWholeCopy)
{
    for (const QByteArray& torn : {QByteArray("neux"), QByteArray("n"), QByteArray("vieux\0\0\0", 8)}) {
        PutTable(torn);
        PutCopy(wholeCopy);

        EXPECT_TRUE(Finish());

        EXPECT_EQ(BytesOfFile(table), QByteArray("neuf"));
        // It belongs to another: it stays, empty.
        EXPECT_EQ(BytesOfFile(copy), QByteArray());
    }
}

TEST_F(SharedFile, CopyThatIsNotWholeChangesNothing)
{
    for (const QByteArray& left : {wholeCopy.chopped(1), "x" + wholeCopy.sliced(1), wholeCopy + "x",
                                   QByteArray(), QByteArray("#a.equ\r\n"), QByteArray(2000, 'x')}) {
        PutCopy(left);

        EXPECT_TRUE(Finish());

        EXPECT_EQ(BytesOfFile(table), QByteArray("vieux")) << left.toStdString();
        EXPECT_EQ(BytesOfFile(copy), QByteArray());
    }
}

TEST_F(SharedFile, WholeCopyOfWhoMayNotWriteTheFileChangesNothing)
{
    ASSERT_EQ(::chown(qPrintable(table), kPupilA, kClass), 0);
    ASSERT_EQ(::chmod(qPrintable(table), 0644), 0);
    PutCopy(wholeCopy);
    ASSERT_EQ(::chown(qPrintable(copy), kPupilB, kClass), 0);

    EXPECT_TRUE(Finish());

    EXPECT_EQ(BytesOfFile(table), QByteArray("vieux"));
}

TEST_F(SharedFile, CopyWithoutItsFileMakesNone)
{
    ASSERT_TRUE(QFile::remove(table));
    PutCopy(wholeCopy);

    EXPECT_TRUE(Finish());

    EXPECT_FALSE(QFile::exists(table));
    EXPECT_EQ(BytesOfFile(copy), QByteArray());
}

TEST_F(SharedFile, DiskWithoutRoomLeavesTheOldOne)
{
    const QByteArray old(3000, 'a');
    PutTable(old);
    // Room for neither the copy nor the file; the file grows last.
    for (const int limit : {0, 100, 3000, 3500}) {
        LimitFileSize(static_cast<rlim_t>(limit));
        EXPECT_FALSE(Rewrite(QByteArray(4000, 'b'))) << limit;
        LimitFileSize(RLIM_INFINITY);

        EXPECT_EQ(BytesOfFile(table), old) << limit;
        EXPECT_FALSE(QFile::exists(copy)) << limit;
    }
}

TEST_F(SharedFile, WithASecondNameIsNotWrittenOver)
{
    ASSERT_EQ(::link(qPrintable(table), qPrintable(school.Path(u"autre.txt"_s))), 0);

    EXPECT_FALSE(Rewrite("neuf"));

    EXPECT_EQ(BytesOfFile(table), QByteArray("vieux"));
}

TEST_F(SharedFile, LinkInPlaceOfTheCopyIsNotFollowed)
{
    const QString other = school.Path(u"autre.txt"_s);
    WriteBytes(other, "autre");
    ASSERT_EQ(::chmod(qPrintable(other), 0666), 0);
    ASSERT_EQ(::symlink(qPrintable(other), qPrintable(copy)), 0);

    EXPECT_FALSE(Finish()); // The link is the superuser's and cannot be taken away.
    EXPECT_FALSE(Rewrite("neuf"));

    EXPECT_EQ(BytesOfFile(other), QByteArray("autre"));
    EXPECT_EQ(BytesOfFile(table), QByteArray("vieux"));
}

} // namespace stoikal
