#include "base/litter.h"

#include "base/file_lock.h"
#include "base/unix/lock_kinds.h"
#include "base/whole_file.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class LeftFiles : public testing::Test
{
protected:
    QString Path(const QString& name) const { return folder.filePath(name); }

    /// A file as it was left so long ago.
    void Leave(const QString& name, int secondsAgo = 10)
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("reste");
        file.close();
        const timespec time{::time(nullptr) - secondsAgo, 0};
        const std::array<timespec, 2> times{time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(Path(name)).constData(), times.data(), 0), 0);
    }

    void Sweep() const { SweepLitter(folder.path(), {u"HighScore.txt"_s, u"*.Equ"_s}); }

    QStringList Names() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }

    const QTemporaryDir folder;
};

} // namespace

TEST_F(LeftFiles, LocksAndFilesThatGrewGo)
{
    for (const char* const name : {"HighScore.txt", "HighScore.txt.lock", "HighScore.txt.a4k0z7",
                                   "Série 1.Equ", "Série 1.Equ.lock", "Série 1.Equ.b1b1b1"})
        Leave(QString::fromUtf8(name), 120);

    Sweep();

    EXPECT_EQ(Names(), QStringList({u"HighScore.txt"_s, u"Série 1.Equ"_s}));
}

TEST_F(LeftFiles, WhatHasAnotherNameStays)
{
    const QStringList names{u"Autre.txt.a4k0z7"_s,      u"Autre.txt.lock"_s,       u"HighScore.txt.A4K0Z7"_s,
                            u"HighScore.txt.a4k0z7x"_s, u"HighScore.txt.ancien"_s, u"HighScore.txt.locks"_s,
                            u"Notes.a4k0z7"_s,          u"x.HighScore.txt.lock"_s};
    for (const QString& name : names)
        Leave(name, 120);

    Sweep();

    EXPECT_EQ(Names(), names);
}

TEST_F(LeftFiles, LockThatIsHeldStays)
{
    const FileLock other(Path(u"HighScore.txt"_s), 0);
    ASSERT_TRUE(other.IsHeld());

    Sweep();

    EXPECT_EQ(Names(), QStringList(u"HighScore.txt.lock"_s));
    EXPECT_FALSE(FileLock(Path(u"HighScore.txt"_s), 0).IsHeld());
}

TEST_F(LeftFiles, FileThatIsBeingWrittenStays)
{
    Leave(u"HighScore.txt.a4k0z7"_s, 3600);
    const auto writer = OpenForReading(Path(u"HighScore.txt.a4k0z7"_s), Links::Refused);
    ASSERT_TRUE(writer);
    ASSERT_EQ(LockWhole(writer->Descriptor()), Locking::Held);

    Sweep();

    EXPECT_EQ(Names(), QStringList(u"HighScore.txt.a4k0z7"_s));
}

TEST_F(LeftFiles, FileThatWasMadeAMomentAgoStays)
{
    Leave(u"HighScore.txt.a4k0z7"_s, 0);

    Sweep();

    EXPECT_EQ(Names(), QStringList(u"HighScore.txt.a4k0z7"_s));
}

TEST_F(LeftFiles, LinksAndFoldersStayAndSoDoesWhatTheyLeadTo)
{
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(u"cible"_s);
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    ASSERT_TRUE(QFile::link(target, Path(u"HighScore.txt.a4k0z7"_s)));
    ASSERT_TRUE(QFile::link(target, Path(u"HighScore.txt.lock"_s)));
    ASSERT_TRUE(QDir().mkdir(Path(u"a.Equ.lock"_s)));

    Sweep();

    EXPECT_EQ(Names(), QStringList({u"a.Equ.lock"_s, u"HighScore.txt.a4k0z7"_s, u"HighScore.txt.lock"_s}));
    EXPECT_TRUE(QFile::exists(target));
}

TEST_F(LeftFiles, FolderThatIsNotThereIsNoTrouble)
{
    SweepLitter(Path(u"absent"_s), {u"*.Equ"_s});

    EXPECT_EQ(Names(), QStringList());
}

TEST_F(LeftFiles, FileThatGrewInAProgramThatWasKilledIsOneOfThem)
{
    // The kernel ends a program that goes on writing above its limit.
    const QString path = Path(u"HighScore.txt"_s);
    const pid_t program = ::fork();
    if (program == 0) {
        const rlimit limit{4, 4};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::signal(SIGXFSZ, SIG_DFL);
        (void)ReplaceFile(path, "trop de lettres", Sharing::Account);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(program, &status, 0), program);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(Names().size(), 1);
    const QByteArray left = QFile::encodeName(Path(Names().constFirst()));
    const timespec time{::time(nullptr) - 10, 0};
    const std::array<timespec, 2> times{time, time};
    ASSERT_EQ(::utimensat(AT_FDCWD, left.constData(), times.data(), 0), 0);

    Sweep();

    EXPECT_EQ(Names(), QStringList());
}

} // namespace stoikal
