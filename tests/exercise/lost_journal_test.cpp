#include "exercise/results_journal.h"

#include "journal_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The descriptor by which this process has a file open, -1 for none.
int DescriptorOf(const QString& path)
{
    const QDir descriptors(u"/proc/self/fd"_s);
    const QStringList numbers = descriptors.entryList(QDir::System | QDir::Files);
    for (const QString& number : numbers) {
        if (QFile::symLinkTarget(descriptors.filePath(number)) == path)
            return number.toInt();
    }
    return -1;
}

/// From now on each write by this descriptor is refused, as on a share that was away
/// and is back: the file is there, and the open one is not known any more.
bool MakeStale(int descriptor)
{
    const int unwritable = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const bool isDone = unwritable >= 0 && descriptor >= 0 && ::dup2(unwritable, descriptor) == descriptor;
    ::close(unwritable);
    return isDone;
}

} // namespace

TEST(LostJournal, IsMadeAnewWhenAnotherProgramTakesItAwayMeanwhile)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.WriteLines({u"old"_s}));

    ASSERT_TRUE(QFile::remove(place.path));
    EXPECT_TRUE(journal.WriteLines({u"new"_s}));

    EXPECT_EQ(place.Content().toStdString(), "new\r\n");
}

TEST(LostJournal, KeepsItsLinesWhileItsFolderIsAway)
{
    JournalFolder place;
    const QString folder = place.folder.filePath(u"depot"_s);
    ASSERT_TRUE(QDir().mkdir(folder));
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(folder + u"/EQU.txt"_s));
    EXPECT_TRUE(journal.WriteLines({u"one"_s}));
    ASSERT_TRUE(QDir(folder).removeRecursively());

    EXPECT_FALSE(journal.WriteLines({u"two"_s}));
    EXPECT_EQ(journal.PendingBytes(), 5);
    ASSERT_TRUE(QDir().mkdir(folder));
    EXPECT_TRUE(journal.WriteLines({u"three"_s}));

    QFile file(folder + u"/EQU.txt"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), "two\r\nthree\r\n");
}

TEST(LostJournal, TriesAgainToOpenWhatFailedToOpen)
{
    JournalFolder place;
    const QString folder = place.folder.filePath(u"depot"_s);
    ResultsJournal journal;
    ASSERT_FALSE(journal.Open(folder + u"/EQU.txt"_s));
    EXPECT_FALSE(journal.WriteLines({u"one"_s}));

    ASSERT_TRUE(QDir().mkdir(folder));
    EXPECT_TRUE(journal.WriteLines({u"two"_s}));

    EXPECT_TRUE(journal.IsOpen());
    QFile file(folder + u"/EQU.txt"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), "one\r\ntwo\r\n");
}

TEST(LostJournal, StaysClosedOnceItWasClosed)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.Close());

    EXPECT_FALSE(journal.WriteLines({u"late"_s}));

    EXPECT_FALSE(journal.IsOpen());
    EXPECT_EQ(place.Content().toStdString(), "");
}

TEST(LostJournal, IsOpenedAnewWhereTheOpenFileIsNotKnownAnyMore)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.WriteLines({u"one"_s}));
    ASSERT_TRUE(MakeStale(DescriptorOf(QFileInfo(place.path).canonicalFilePath())));

    EXPECT_TRUE(journal.WriteLines({u"two"_s}));

    EXPECT_EQ(journal.PendingBytes(), 0);
    EXPECT_EQ(place.Content().toStdString(), "one\r\ntwo\r\n");
}

} // namespace stoikal
