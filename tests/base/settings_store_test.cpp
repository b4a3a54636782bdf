#include "base/settings_store.h"

#include "base/file_lock.h"
#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/ordinary_user.h"
#include "support/qt_printers.h"
#include "support/waiting_program.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A folder for one test, and a settings file that is not made yet.
struct SettingsFolder {
    QTemporaryDir folder;
    QString path = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;

    QString Read(const QString& section, const QString& key) const
    {
        return store.ReadSetting(path, section, key);
    }

    QByteArray Bytes() const { return BytesOfFile(path); }

    /// Writes the file in its place, as another program would.
    bool Put(const QByteArray& bytes) const
    {
        QFile writer(path);
        return writer.open(QIODevice::WriteOnly) && writer.write(bytes) == bytes.size();
    }

    bool PutAt(const QDateTime& time, const QByteArray& bytes) const
    {
        QFile file(path);
        return Put(bytes) && file.open(QIODevice::ReadWrite)
            && file.setFileTime(time, QFileDevice::FileModificationTime);
    }

    QStringList Entries() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
};

/// Another program that writes one setting.
struct Writer final : WaitingProgram {
    Writer(const QString& file, const QString& key, const QString& value)
        : WaitingProgram(QStringLiteral(STOIKAL_SETTINGS_WRITER), {file, u"Options"_s, key, value})
    {
    }
};

class SettingsPrograms : public ProgramsTest
{
protected:
    SettingsFolder m_place;
};

} // namespace

TEST(SettingsStore, FreshUserReadsNothing)
{
    const SettingsFolder place;

    EXPECT_TRUE(place.Read(u"Options"_s, u"PassWord"_s).isEmpty());
    EXPECT_TRUE(place.Entries().isEmpty()); // Reading makes no file.
}

TEST(SettingsStore, FirstWriteMakesFileAndSection)
{
    SettingsFolder place;

    EXPECT_TRUE(place.store.WriteSetting(place.path, u"Réseau"_s, u"Dossier Dépôt"_s, u"/srv/dépôt"_s));

    EXPECT_EQ(place.Bytes(), QByteArray("[R\xE9seau]\r\nDossier D\xE9p\xF4t=/srv/d\xE9p\xF4t\r\n"));
    EXPECT_EQ(place.Read(u"Réseau"_s, u"Dossier Dépôt"_s), u"/srv/dépôt"_s);
    // Neither a lock nor a temporary file is left.
    EXPECT_EQ(place.Entries(), QStringList({u"ConfEQU_dupont.ini"_s}));
}

TEST(SettingsStore, FirstWriteMakesTheFolder)
{
    SettingsFolder place;
    const QString path = place.folder.filePath(u"Tovik_MARLEN/Stoikal/ConfEQU_é.ini"_s);

    EXPECT_TRUE(place.store.WriteSetting(path, u"Options"_s, u"PassWord"_s, u"x"_s));

    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(place.store.ReadSetting(path, u"Options"_s, u"PassWord"_s), u"x"_s);
}

TEST(SettingsStore, WriteLeavesEveryOtherLineByteForByte)
{
    SettingsFolder place;
    const QByteArray before(
        "; Salle 12, caf\xE9\r\n\r\n[Charge Window]\r\n  LEFT =\t\" 7 \"\r\n[Options]\r\n");
    const QByteArray behind("anything at all\r\n[Donn\xC3\xA9"
                            "es]\r\nPression=1013\r\n");
    ASSERT_TRUE(place.Put(before + "passWORD = old\r\n" + behind));

    EXPECT_TRUE(place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"new"_s));

    EXPECT_EQ(place.Bytes(), before + "PassWord=new\r\n" + behind);
    EXPECT_EQ(place.Read(u"charge window"_s, u"left"_s), u" 7 "_s);
}

TEST(SettingsStore, FilesDoNotMix)
{
    SettingsFolder place;
    const QString other = place.folder.filePath(u"ConfEQU_martin.ini"_s);

    EXPECT_TRUE(place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"a"_s));
    EXPECT_TRUE(place.store.WriteSetting(other, u"Options"_s, u"PassWord"_s, u"b"_s));

    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"a"_s);
    EXPECT_EQ(place.store.ReadSetting(other, u"Options"_s, u"PassWord"_s), u"b"_s);
}

TEST(SettingsStore, WritesAndDeletesAWholeSection)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[1]\r\nold=1\r\n[2]\r\nk=2\r\n"));

    EXPECT_TRUE(place.store.WriteSection(place.path, u"1"_s, {u"Molecule0=H2"_s, u"Molecule1=O2"_s}));
    EXPECT_TRUE(place.store.DeleteSection(place.path, u"2"_s));

    EXPECT_EQ(place.Bytes(), QByteArray("[1]\r\nMolecule0=H2\r\nMolecule1=O2\r\n"));
    EXPECT_EQ(place.Read(u"1"_s, u"Molecule1"_s), u"O2"_s);
    EXPECT_TRUE(place.Read(u"2"_s, u"k"_s).isEmpty());
}

TEST(SettingsStore, ChangeByAnotherProgramIsSeenAtTheNextRead)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=a\r\n"));
    ASSERT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"a"_s);

    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=longer\r\n"));

    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"longer"_s);
}

TEST(SettingsStore, ChangeOfTheSameLengthUnderTheSameTimeIsSeen)
{
    // The clock of a file system goes in steps, and that of a server may be ahead.
    SettingsFolder place;
    const QDateTime aheadByAnHour = QDateTime::currentDateTime().addSecs(3600);
    ASSERT_TRUE(place.PutAt(aheadByAnHour, "[Options]\r\nPassWord=a\r\n"));
    ASSERT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"a"_s);

    ASSERT_TRUE(place.PutAt(aheadByAnHour, "[Options]\r\nPassWord=b\r\n"));

    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"b"_s);
}

TEST(SettingsStore, FileThatCameOrWentIsSeenAtTheNextRead)
{
    const SettingsFolder place;
    ASSERT_TRUE(place.Read(u"Options"_s, u"PassWord"_s).isEmpty());

    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=a\r\n"));
    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"a"_s);

    ASSERT_TRUE(QFile::remove(place.path));
    EXPECT_TRUE(place.Read(u"Options"_s, u"PassWord"_s).isEmpty());
}

TEST(SettingsStore, TwoStoresThatWriteInTurnLoseNothing)
{
    SettingsFolder place;
    SettingsStore other;

    for (int i = 0; i < 10; ++i) {
        // Each knows the file as it was before the other's write.
        EXPECT_TRUE(place.store.WriteSetting(place.path, u"A"_s, u"a%1"_s.arg(i), u"%1"_s.arg(i)));
        EXPECT_TRUE(other.WriteSetting(place.path, u"B"_s, u"b%1"_s.arg(i), u"%1"_s.arg(i)));
    }

    for (int i = 0; i < 10; ++i) {
        const QString value = u"%1"_s.arg(i);
        EXPECT_EQ(place.Read(u"A"_s, u"a%1"_s.arg(i)), value);
        EXPECT_EQ(place.Read(u"B"_s, u"b%1"_s.arg(i)), value);
        EXPECT_EQ(other.ReadSetting(place.path, u"A"_s, u"a%1"_s.arg(i)), value);
        EXPECT_EQ(other.ReadSetting(place.path, u"B"_s, u"b%1"_s.arg(i)), value);
    }
}

TEST(SettingsStore, FailedWriteIsReportedAndTheOldValueStays)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=old\r\n"));
    // A folder inside a file can be made by nobody.
    const QString impossible = place.path + u"/inside/a.ini"_s;

    EXPECT_FALSE(place.store.WriteSetting(impossible, u"Options"_s, u"PassWord"_s, u"new"_s));
    EXPECT_FALSE(place.store.WriteSection(impossible, u"Options"_s, {u"PassWord=new"_s}));
    EXPECT_FALSE(place.store.DeleteSection(impossible, u"Options"_s));

    EXPECT_TRUE(place.store.ReadSetting(impossible, u"Options"_s, u"PassWord"_s).isEmpty());
    EXPECT_EQ(place.Bytes(), QByteArray("[Options]\r\nPassWord=old\r\n"));
    EXPECT_EQ(place.Entries(), QStringList({u"ConfEQU_dupont.ini"_s}));
}

TEST(SettingsStore, FolderInPlaceOfTheFileIsAFailedWrite)
{
    SettingsFolder place;
    ASSERT_TRUE(QDir().mkdir(place.path));

    EXPECT_FALSE(place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"new"_s));

    EXPECT_TRUE(place.Read(u"Options"_s, u"PassWord"_s).isEmpty());
    EXPECT_EQ(place.Entries(), QStringList({u"ConfEQU_dupont.ini"_s}));
}

TEST(SettingsStore, FileWithoutANameIsAFailedWrite)
{
    SettingsFolder place;
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(place.folder.path()));

    EXPECT_FALSE(place.store.WriteSetting(QString(), u"Options"_s, u"PassWord"_s, u"new"_s));

    EXPECT_TRUE(QDir::setCurrent(before));
    EXPECT_TRUE(place.Entries().isEmpty());
    EXPECT_TRUE(place.store.ReadSetting(QString(), u"Options"_s, u"PassWord"_s).isEmpty());
}

TEST(SettingsStore, ReadOnlyFolderIsAFailedWrite)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=old\r\n"));
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0555), 0);
    {
        const AsOrdinaryUser user;
        ASSERT_TRUE(user.IsOrdinary());
        EXPECT_FALSE(place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"new"_s));
        EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"old"_s);
    }
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0755), 0);

    EXPECT_EQ(place.Bytes(), QByteArray("[Options]\r\nPassWord=old\r\n"));
}

TEST(SettingsStore, FileThatCannotBeReadIsNotReplaced)
{
    // It may be written but not read: what it holds would be lost.
    SettingsFolder place;
    const QByteArray bytes("[Options]\r\nPassWord=old\r\n");
    ASSERT_TRUE(place.Put(bytes));
    ASSERT_EQ(::chmod(qPrintable(place.path), 0222), 0);
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0777), 0);
    {
        const AsOrdinaryUser user;
        ASSERT_TRUE(user.IsOrdinary());
        EXPECT_FALSE(place.store.WriteSetting(place.path, u"Options"_s, u"Other"_s, u"new"_s));
    }
    ASSERT_EQ(::chmod(qPrintable(place.path), 0644), 0);

    EXPECT_EQ(place.Bytes(), bytes);
}

TEST(SettingsStore, ReadThatFailedIsTriedAgain)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=old\r\n"));
    const timespec time{::time(nullptr) - 3600, 0};
    const std::array<timespec, 2> times{time, time};
    ASSERT_EQ(::utimensat(AT_FDCWD, qPrintable(place.path), times.data(), 0), 0);
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0755), 0);
    ASSERT_EQ(::chmod(qPrintable(place.path), 0), 0);
    {
        const AsOrdinaryUser user;
        ASSERT_TRUE(user.IsOrdinary());
        ASSERT_EQ(place.Read(u"Options"_s, u"PassWord"_s), QString());
    }

    ASSERT_EQ(::chmod(qPrintable(place.path), 0644), 0);

    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"old"_s);
}

TEST(SettingsStore, ReadThatFailsLeavesWhatWasKnownLast)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=old\r\n"));
    ASSERT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"old"_s);
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=newer\r\n"));
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0755), 0);
    ASSERT_EQ(::chmod(qPrintable(place.path), 0), 0);
    {
        const AsOrdinaryUser user;
        ASSERT_TRUE(user.IsOrdinary());
        EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"old"_s);
    }

    ASSERT_EQ(::chmod(qPrintable(place.path), 0644), 0);

    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"newer"_s);
}

TEST(SettingsStore, FullDiskLeavesTheOldFile)
{
    // Lines of 10 bytes, 6000 and 60000 in all: below and above what Qt buffers.
    for (const int lines : {600, 6000}) {
        SettingsFolder place;
        const QByteArray bytes = "[Options]\r\n" + QByteArray("; 345678\r\n").repeated(lines);
        ASSERT_TRUE(place.Put(bytes));

        LimitFileSize(4096);
        EXPECT_FALSE(place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"new"_s));
        LimitFileSize(RLIM_INFINITY);

        EXPECT_EQ(place.Bytes(), bytes);
        EXPECT_EQ(place.Entries(), QStringList({u"ConfEQU_dupont.ini"_s}));
    }
}

TEST(SettingsStore, LockOfAnotherProgramIsGivenUpAfterASecond)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=old\r\n"));
    auto other = std::make_unique<FileLock>(place.path, 0);
    ASSERT_TRUE(other->IsHeld());
    QElapsedTimer elapsed;
    elapsed.start();

    EXPECT_FALSE(place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"new"_s));

    EXPECT_GE(elapsed.elapsed(), 1000);
    EXPECT_EQ(place.Bytes(), QByteArray("[Options]\r\nPassWord=old\r\n"));
    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"old"_s);

    other.reset();
    EXPECT_TRUE(place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"new"_s));
    EXPECT_EQ(place.Read(u"Options"_s, u"PassWord"_s), u"new"_s);
}

TEST(SettingsStore, GiantInPlaceOfTheSettingsReadsAsNothingAndStays)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\nPassWord=old\r\n"));
    QFile file(place.path);
    ASSERT_TRUE(file.resize(qint64{8} * 1024 * 1024 * 1024));

    EXPECT_FALSE(place.store.Change(
        place.path, [](ProfileText& text) { text.Write(u"Options"_s, u"PassWord"_s, u"new"_s); }));

    EXPECT_TRUE(place.Read(u"Options"_s, u"PassWord"_s).isEmpty());
    EXPECT_EQ(QFileInfo(place.path).size(), qint64{8} * 1024 * 1024 * 1024);
}

TEST(SettingsStore, WritesNothingThatItCouldNotReadAgain)
{
    // Lines of 10 bytes: 2 MB but for 21 bytes, of which the new line takes more.
    SettingsFolder place;
    const QByteArray bytes = "[Options]\r\n" + QByteArray("; 345678\r\n").repeated(209'712);
    ASSERT_TRUE(place.Put(bytes));

    EXPECT_FALSE(place.store.Change(
        place.path, [](ProfileText& text) { text.Write(u"Options"_s, u"a"_s, QString(60, u'x')); }));

    EXPECT_EQ(place.Bytes(), bytes);
}

TEST(Settings, BelongToTheFileOfTheSession)
{
    SettingsFolder place;
    QString file;
    Settings settings(place.store, file);

    file = place.path; // Known only once the folders are found.
    EXPECT_TRUE(settings.Write(u"Options"_s, u"PassWord"_s, u"secret"_s));

    EXPECT_EQ(settings.Read(u"OPTIONS"_s, u"password"_s), u"secret"_s);
    EXPECT_EQ(place.Bytes(), QByteArray("[Options]\r\nPassWord=secret\r\n"));
}

TEST_F(SettingsPrograms, TwentyThatWriteDifferentKeysAtOnceLoseNone)
{
    constexpr int kPrograms = 20;
    std::vector<std::unique_ptr<Writer>> writers;
    for (int i = 0; i < kPrograms; ++i)
        writers.push_back(std::make_unique<Writer>(m_place.path, u"key%1"_s.arg(i), u"value %1"_s.arg(i)));
    for (const auto& writer : writers)
        ASSERT_TRUE(writer->WaitUntilReady()) << writer->Errors();

    for (const auto& writer : writers)
        writer->Go();
    for (const auto& writer : writers)
        ASSERT_TRUE(writer->HasSucceeded()) << writer->Errors();

    for (int i = 0; i < kPrograms; ++i)
        EXPECT_EQ(m_place.Read(u"Options"_s, u"key%1"_s.arg(i)), u"value %1"_s.arg(i));
    EXPECT_EQ(m_place.Entries(), QStringList({u"ConfEQU_dupont.ini"_s}));
}

TEST(SettingsStore, ManyChangesAreOneWrite)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[1]\r\na=one\r\n"));

    const auto changed = place.store.Change(place.path, [](ProfileText& text) {
        text.Write(u"1"_s, u"b"_s, u"two"_s);
        text.RenameSections({{u"1"_s, u"2"_s}});
    });

    EXPECT_TRUE(changed);
    EXPECT_EQ(place.Bytes(), QByteArray("[2]\r\na=one\r\nb=two\r\n"));
    EXPECT_EQ(place.store.Contents(place.path).Read(u"2"_s, u"b"_s), u"two"_s);
}

TEST(SettingsStore, ChangesThatCannotBeWrittenAreReportedAndNoneIsMade)
{
    SettingsFolder place;
    const QByteArray bytes = "[Options]\r\n" + QByteArray("; 345678\r\n").repeated(600);
    ASSERT_TRUE(place.Put(bytes));

    LimitFileSize(4096);
    const auto changed
        = place.store.Change(place.path, [](ProfileText& text) { text.Write(u"Options"_s, u"a"_s, u"1"_s); });
    LimitFileSize(RLIM_INFINITY);

    EXPECT_FALSE(changed);
    EXPECT_EQ(place.Bytes(), bytes);
    EXPECT_TRUE(place.Read(u"Options"_s, u"a"_s).isEmpty());
}

TEST(SettingsStore, FailedWriteSaysWhy)
{
    SettingsFolder place;
    ASSERT_TRUE(place.Put("[Options]\r\n"));
    const auto reason = [&place](const QString& path) {
        return place.store.WriteSetting(path, u"Options"_s, u"PassWord"_s, u"new"_s).Reason();
    };

    EXPECT_EQ(reason(place.path + u"/inside/a.ini"_s), u"son dossier ne peut pas être créé"_s);
    EXPECT_EQ(reason(place.folder.path()), u"c'est un dossier"_s);
    const FileLock other(place.path, 0);
    EXPECT_EQ(reason(place.path), u"un autre programme l'écrit en ce moment"_s);
}

TEST(SettingsStore, WriteWithoutTheRightSaysSo)
{
    SettingsFolder place;
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0555), 0);
    const AsOrdinaryUser user;
    ASSERT_TRUE(user.IsOrdinary());

    const auto written = place.store.WriteSetting(place.path, u"Options"_s, u"PassWord"_s, u"new"_s);

    ASSERT_FALSE(written);
    EXPECT_EQ(written.Reason(), u"l'accès est refusé"_s);
}

TEST(Settings, WriteThatFailsSaysWhatWhyAndWhatToDo)
{
    SettingsFolder place;
    ASSERT_TRUE(QDir().mkdir(place.path));
    Settings settings(place.store, place.path);

    const auto written = settings.Write(u"Options"_s, u"PassWord"_s, u"new"_s);

    ASSERT_FALSE(written);
    EXPECT_EQ(written.Reason(),
              u"Le fichier des réglages n'a pas pu être écrit\u00A0:\n%1\n(c'est un dossier)\n\n"
              "Vérifiez que ce fichier et son dossier peuvent être modifiés et que le disque n'est pas "
              "plein, puis recommencez."_s.arg(place.path));
}

TEST(Settings, ValuesWrittenTogetherAreAllStoredOrNone)
{
    SettingsFolder place;
    Settings settings(place.store, place.path);
    ASSERT_TRUE(settings.Write({{u"A"_s, u"a"_s, u"1"_s}, {u"B"_s, u"b"_s, u"2"_s}}));
    EXPECT_EQ(settings.Read(u"A"_s, u"a"_s), u"1"_s);
    EXPECT_EQ(settings.Read(u"B"_s, u"b"_s), u"2"_s);

    LimitFileSize(20);
    const auto written = settings.Write({{u"A"_s, u"a"_s, u"3"_s}, {u"C"_s, u"c"_s, u"4"_s}});
    LimitFileSize(RLIM_INFINITY);

    EXPECT_FALSE(written);
    EXPECT_EQ(settings.Read(u"A"_s, u"a"_s), u"1"_s);
    EXPECT_EQ(settings.Read(u"C"_s, u"c"_s), QString());
}

TEST(Settings, WhatTheProgramRemembersIsStoredAndItsFailureSilent)
{
    SettingsFolder place;
    Settings settings(place.store, place.path);
    settings.Remember(u"Charge Window"_s, u"Left"_s, u"150"_s);
    EXPECT_EQ(settings.Read(u"Charge Window"_s, u"Left"_s), u"150"_s);

    LimitFileSize(0);
    settings.Remember(u"Charge Window"_s, u"Left"_s, u"300"_s);
    LimitFileSize(RLIM_INFINITY);

    EXPECT_EQ(settings.Read(u"Charge Window"_s, u"Left"_s), u"150"_s);
}

} // namespace stoikal
