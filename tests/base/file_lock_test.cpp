#include "base/file_lock.h"

#include "support/ordinary_user.h"
#include "support/qt_printers.h"
#include "support/reachable_folder.h"
#include "support/shared_folder.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// How another program that does this ends.
int ExitCodeOf(const std::function<void()>& work)
{
    const pid_t program = ::fork();
    if (program == 0) {
        work();
        ::_exit(0);
    }
    int status = 0;
    return ::waitpid(program, &status, 0) == program && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST(FileLock, StandsBesideTheFileWhileItLives)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.ini"_s);
    {
        const FileLock lock(path, 0);

        EXPECT_TRUE(lock.IsHeld());
        EXPECT_TRUE(QFile::exists(path + u".lock"_s));
        EXPECT_FALSE(QFile::exists(path));
    }
    EXPECT_FALSE(QFile::exists(path + u".lock"_s));
}

TEST(FileLock, IsGivenUpAfterTheWait)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.ini"_s);
    const FileLock other(path, 0);
    ASSERT_TRUE(other.IsHeld());
    QElapsedTimer elapsed;
    elapsed.start();

    const FileLock lock(path, 100);

    EXPECT_FALSE(lock.IsHeld());
    EXPECT_GE(elapsed.elapsed(), 100);
    EXPECT_TRUE(other.IsHeld());
}

TEST(FileLock, GivingUpLeavesTheLockToItsHolder)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.ini"_s);
    auto other = std::make_unique<FileLock>(path, 0);
    ASSERT_TRUE(other->IsHeld());

    EXPECT_FALSE(FileLock(path, 0).IsHeld());

    EXPECT_TRUE(QFile::exists(path + u".lock"_s));
    EXPECT_FALSE(FileLock(path, 0).IsHeld());
    other.reset();
    EXPECT_TRUE(FileLock(path, 0).IsHeld());
}

TEST(FileLock, FileLeftByAProgramThatDiedHoldsNobodyOff)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.ini"_s);
    QFile left(path + u".lock"_s);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.close();

    EXPECT_TRUE(FileLock(path, 0).IsHeld());
}

TEST(FileLock, LeftByAnotherAccountOfASharedFolderHoldsNobodyOff)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can be two accounts";
    const ReachableFolder place;
    if (!place.IsReachable())
        GTEST_SKIP() << ReachableFolder::WhyNot();
    ASSERT_EQ(::chmod(QFile::encodeName(place.path()).constData(), 0777), 0);
    const QString path = place.filePath(u"shared.txt"_s);
    const auto dieWithTheLock = [&path] {
        ::umask(077); // An account that keeps its files to itself.
        const AsOrdinaryUser first(65534);
        const FileLock lock(path, 0);
        ::_exit(first.IsOrdinary() && lock.IsHeld() ? 0 : 1); // It takes nothing away any more.
    };
    ASSERT_EQ(ExitCodeOf(dieWithTheLock), 0);
    ASSERT_TRUE(QFile::exists(path + u".lock"_s));

    const AsOrdinaryUser second(65533);
    ASSERT_TRUE(second.IsOrdinary());
    EXPECT_TRUE(FileLock(path, 0).IsHeld());
}

TEST(FileLock, FreedWhileWaitingIsTaken)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.ini"_s);
    auto other = std::make_unique<FileLock>(path, 0);
    ASSERT_TRUE(other->IsHeld());
    std::thread holder([&other] {
        QThread::msleep(30);
        other.reset();
    });

    const FileLock lock(path, 60000);

    holder.join();
    EXPECT_TRUE(lock.IsHeld());
    EXPECT_TRUE(QFile::exists(path + u".lock"_s));
}

TEST(FileLock, QueueThatMovesOnIsWaitedFor)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"shared.txt"_s);
    // Sixteen holders of 50 ms each, one behind the other: 800 ms in all.
    const int descriptor = ::open(QFile::encodeName(path + u".lock"_s).constData(), O_RDWR | O_CREAT, 0666);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);
    std::int32_t holder = 1;
    ASSERT_EQ(::pwrite(descriptor, &holder, sizeof holder, 0), ssize_t{sizeof holder});
    std::thread others([&] {
        for (; holder <= 16; ++holder) {
            if (::pwrite(descriptor, &holder, sizeof holder, 0) != ssize_t{sizeof holder})
                std::abort();
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        ::close(descriptor);
    });

    const FileLock lock(path, 500);
    others.join();

    EXPECT_TRUE(lock.IsHeld());
}

TEST(FileLock, HoldersThatChangeWithoutEndAreWaitedForFiveSecondsAtMost)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"shared.txt"_s);
    const int descriptor = ::open(QFile::encodeName(path + u".lock"_s).constData(), O_RDWR | O_CREAT, 0666);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);
    std::atomic<bool> goesOn = true;
    std::thread others([&] {
        for (std::int32_t holder = 1; goesOn; ++holder) {
            if (::pwrite(descriptor, &holder, sizeof holder, 0) != ssize_t{sizeof holder})
                std::abort();
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        ::close(descriptor);
    });
    QElapsedTimer elapsed;
    elapsed.start();

    const FileLock lock(path, 1000);

    const qint64 waitedMs = elapsed.elapsed();
    goesOn = false;
    others.join();
    EXPECT_FALSE(lock.IsHeld());
    EXPECT_TRUE(lock.IsBusy());
    EXPECT_GE(waitedMs, 4990);
    EXPECT_LT(waitedMs, 5500);
}

TEST(FileLock, ThatAnotherAccountIsJustMakingIsWaitedFor)
{
    if (!HasTwoAccounts())
        GTEST_SKIP() << "only the superuser can be two accounts";
    const SharedFolder place;
    const QString path = place.Path(u"shared.txt"_s);
    const QByteArray lock = QFile::encodeName(path + u".lock"_s);
    ::close(::open(lock.constData(), O_RDWR | O_CREAT, 0600));
    ASSERT_EQ(::chown(lock.constData(), kPlanter, kPlanter), 0);
    const pid_t maker = ::fork();
    if (maker == 0) {
        ::usleep(30'000);
        ::_exit(::chmod(lock.constData(), 0666));
    }

    {
        const AsOrdinaryUser victim(kVictim);
        EXPECT_TRUE(FileLock(path, 0).IsHeld());
    }

    int status = 0;
    ASSERT_EQ(::waitpid(maker, &status, 0), maker);
    EXPECT_EQ(status, 0);
}

TEST(FileLock, TwoFilesHaveTwoLocks)
{
    const QTemporaryDir folder;

    const FileLock first(folder.filePath(u"a.ini"_s), 0);
    const FileLock second(folder.filePath(u"b.ini"_s), 0);

    EXPECT_TRUE(first.IsHeld());
    EXPECT_TRUE(second.IsHeld());
}

TEST(FileLock, WhereNoLockCanStandItIsGivenUpWithoutWaiting)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QElapsedTimer elapsed;
    elapsed.start();

    const FileLock insideAFile(folder.filePath(u"file/a.ini"_s), 60000);
    const FileLock inNoFolder(folder.filePath(u"absent/a.ini"_s), 60000);

    EXPECT_FALSE(insideAFile.IsHeld());
    EXPECT_FALSE(inNoFolder.IsHeld());
    EXPECT_LT(elapsed.elapsed(), 30000);
}

} // namespace stoikal
