#include "base/unix/lock_kinds.h"

#include "base/file_access.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMinute = 60;
constexpr int kDay = 24 * 60 * kMinute;

/// The number of a program that has just ended.
pid_t EndedProgram()
{
    const pid_t program = ::fork();
    if (program == 0)
        ::_exit(0);
    return ::waitpid(program, nullptr, 0) == program ? program : -1;
}

/// A claim beside the file that tells the time.
class LockClaim : public testing::Test
{
protected:
    void Leave(const QByteArray& mark, int secondsAgo)
    {
        QFile left(path);
        ASSERT_TRUE(left.open(QIODevice::WriteOnly));
        left.write(mark);
        left.close();
        const timespec time{::time(nullptr) - secondsAgo, 0};
        const std::array<timespec, 2> times{time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times.data(), 0), 0);
    }

    Locking Make(bool isLongHeld = false) { return MakeClaim(path, clock->Descriptor(), isLongHeld); }

    static QByteArray MarkOf(pid_t program)
    {
        return QSysInfo::machineHostName().toUtf8() + ' ' + QByteArray::number(program) + '\n';
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.txt.lock.own"_s);
    const Outcome<OpenFile> clock = OpenForLocking(folder.filePath(u"a.txt.lock"_s));
};

} // namespace

TEST(LockKinds, EachOfTheKernelsKeepsAnotherOpeningOffUntilTheFileIsClosed)
{
    const QTemporaryDir folder;
    for (const auto lock : {&LockWhole, &LockRange}) {
        const QString path = folder.filePath(u"a.txt.lock"_s);
        auto first = OpenForLocking(path);
        const auto second = OpenForLocking(path);
        ASSERT_TRUE(first && second);

        EXPECT_EQ(lock(first->Descriptor()), Locking::Held);
        EXPECT_EQ(lock(second->Descriptor()), Locking::Busy);
        first->Close();
        EXPECT_EQ(lock(second->Descriptor()), Locking::Held);
    }
}

TEST(LockKinds, FileThatIsNotOpenIsRefusedAndNotTakenForOneWithoutLocks)
{
    EXPECT_EQ(LockWhole(-1), Locking::Refused);
    EXPECT_EQ(LockRange(-1), Locking::Refused);
}

TEST_F(LockClaim, IsMadeByOneProgramOnlyAndTellsWhich)
{
    EXPECT_EQ(Make(), Locking::Held);
    EXPECT_EQ(Make(), Locking::Busy);
    EXPECT_EQ(BytesOfFile(path), MarkOf(::getpid()));
}

TEST_F(LockClaim, MayBeTakenAwayByEveryAccount)
{
    ASSERT_EQ(Make(), Locking::Held);

    struct stat status {
    };
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0666U);
}

TEST_F(LockClaim, OfAProgramThatEndedIsTakenOver)
{
    Leave(MarkOf(EndedProgram()), 0);

    EXPECT_EQ(Make(), Locking::Held);
    EXPECT_EQ(BytesOfFile(path), MarkOf(::getpid()));
}

TEST_F(LockClaim, OfAnotherMachineIsTakenOverAfterAMinute)
{
    Leave("autre-poste 12\n", kMinute - 10);
    EXPECT_EQ(Make(), Locking::Busy);

    Leave("autre-poste 12\n", kMinute + 10);
    EXPECT_EQ(Make(), Locking::Held);
}

TEST_F(LockClaim, WithoutAMarkIsTakenOverAfterAMinute)
{
    Leave("", kMinute - 10);
    EXPECT_EQ(Make(), Locking::Busy);

    Leave("", kMinute + 10);
    EXPECT_EQ(Make(), Locking::Held);
}

TEST_F(LockClaim, ThatMayBeHeldForHoursIsLeftForADay)
{
    Leave("autre-poste 12\n", kDay - kMinute);
    EXPECT_EQ(Make(true), Locking::Busy);

    Leave("autre-poste 12\n", kDay + kMinute);
    EXPECT_EQ(Make(true), Locking::Held);
}

TEST_F(LockClaim, LeavesNothingBesideWhenItIsTakenOver)
{
    Leave(MarkOf(EndedProgram()), 0);
    ASSERT_EQ(Make(), Locking::Held);

    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files),
              QStringList({u"a.txt.lock"_s, u"a.txt.lock.own"_s}));
}

TEST_F(LockClaim, IsNoneWhereNoFileCanBeMade)
{
    const QString elsewhere = folder.filePath(u"absent/a.txt.lock.own"_s);

    EXPECT_EQ(MakeClaim(elsewhere, clock->Descriptor(), false), Locking::Unknown);
}

} // namespace stoikal
