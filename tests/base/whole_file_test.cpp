#include "base/whole_file.h"

#include "support/failing_file.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"
#include "support/shared_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class WholeFile : public testing::Test
{
protected:
    QByteArray Bytes() const { return BytesOfFile(path); }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"Serie.Equ"_s);
};

} // namespace

TEST_F(WholeFile, IsMadeWhenItIsMissing)
{
    const auto written = ReplaceFile(path, "nouveau", Sharing::Account);

    ASSERT_TRUE(written.Succeeded());
    EXPECT_EQ(*written, path);
    EXPECT_EQ(Bytes(), QByteArray("nouveau"));
}

TEST_F(WholeFile, TakesThePlaceOfTheOldOneAndLeavesNothingBeside)
{
    ASSERT_TRUE(ReplaceFile(path, "un ancien, plus long", Sharing::Account).Succeeded());

    ASSERT_TRUE(ReplaceFile(path, "nouveau", Sharing::Account).Succeeded());

    EXPECT_EQ(Bytes(), QByteArray("nouveau"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"Serie.Equ"_s});
}

TEST_F(WholeFile, KeepsTheRightsOfTheOldOne)
{
    for (const mode_t rights : {0600U, 0664U}) {
        ASSERT_TRUE(ReplaceFile(path, "ancien", Sharing::Account).Succeeded());
        ASSERT_EQ(::chmod(qPrintable(path), rights), 0);

        ASSERT_TRUE(ReplaceFile(path, "nouveau", Sharing::Folder).Succeeded());

        EXPECT_EQ(SharedFolder::RightsOf(path), rights);
    }
}

TEST_F(WholeFile, NewOneBelongsToTheAccountOrToAllOfItsFolder)
{
    const mode_t mask = ::umask(022);
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0770), 0);
    ASSERT_TRUE(ReplaceFile(path, "à moi", Sharing::Account).Succeeded());
    ASSERT_TRUE(ReplaceFile(folder.filePath(u"HighScore.txt"_s), "à tous", Sharing::Folder).Succeeded());
    ::umask(mask);

    EXPECT_EQ(SharedFolder::RightsOf(path), 0644U);
    EXPECT_EQ(SharedFolder::RightsOf(folder.filePath(u"HighScore.txt"_s)), 0664U);
}

TEST_F(WholeFile, TellsWhyItCouldNotBeWritten)
{
    const auto written = ReplaceFile(folder.filePath(u"nowhere/Serie.Equ"_s), "nouveau", Sharing::Account);

    ASSERT_FALSE(written.Succeeded());
    EXPECT_FALSE(written.Reason().isEmpty());
}

TEST_F(WholeFile, LeavesTheOldOneWhenTheNewCannotTakeItsName)
{
    if (!HasTwoAccounts())
        GTEST_SKIP() << "only a file of another account keeps its name, in a folder like /tmp";
    const SharedFolder place;
    const QString others = place.Path(u"HighScore.txt"_s);
    WriteBytes(others, "ancien");
    ASSERT_EQ(::chown(qPrintable(others), kPlanter, kPlanter), 0);
    ASSERT_EQ(::chmod(qPrintable(others), 0666), 0);
    ASSERT_EQ(::chmod(qPrintable(place.shared), 01777), 0);
    const AsOrdinaryUser victim(kVictim);

    const auto written = ReplaceFile(others, "nouveau", Sharing::Folder);

    ASSERT_FALSE(written.Succeeded());
    EXPECT_EQ(written.Reason(), u"l'opération n'est pas permise"_s);
    EXPECT_EQ(BytesOfFile(others), QByteArray("ancien"));
    EXPECT_EQ(QDir(place.shared).entryList(QDir::Files | QDir::Hidden), QStringList{u"HighScore.txt"_s});
}

TEST_F(WholeFile, TakesThePlaceOfNothingButAFile)
{
    const SharedFolder place;
    const QString mine = place.PrivateFile("à moi");
    place.PlantLink(mine, u"lien"_s);
    place.Plant(SharedFolder::Kind::Pipe, u"tube"_s);
    const AsOrdinaryUser victim(kVictim);

    EXPECT_EQ(ReplaceFile(place.Path(u"lien"_s), "nouveau", Sharing::Account).Reason(),
              u"ce nom est celui d'un lien, et non d'un fichier"_s);
    EXPECT_EQ(ReplaceFile(place.Path(u"tube"_s), "nouveau", Sharing::Account).Reason(),
              u"ce n'est pas un fichier"_s);
    EXPECT_EQ(ReplaceFile(place.shared, "nouveau", Sharing::Account).Reason(), u"c'est un dossier"_s);

    EXPECT_EQ(BytesOfFile(mine), "à moi");
}

TEST_F(WholeFile, IsReadUpToItsLimit)
{
    constexpr FileLimit kLimit{2 * kKilobyte, 2 * kKilobyte};
    WriteBytes(path, QByteArray(2048, 'x'));
    EXPECT_EQ(ReadWholeFile(path, kLimit, Links::Refused)->size(), 2048);

    WriteBytes(path, QByteArray(2049, 'x'));
    EXPECT_EQ(ReadWholeFile(path, kLimit, Links::Refused).Reason(),
              u"le fichier est trop grand\u00A0: 2\u00A0Ko au plus"_s);
}

TEST_F(WholeFile, GigabyteThatIsNotOnTheDiskIsRefusedWithoutReadingIt)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(qint64{64} * 1024 * 1024 * 1024));

    EXPECT_FALSE(ReadWholeFile(path, kSettingsLimit, Links::Refused));
}

TEST_F(WholeFile, IsReadWithLinesUpToTheirLimit)
{
    const QByteArray longest(64 * 1024, 'x');
    WriteBytes(path, "a\r\n" + longest + "\r\n" + longest);
    EXPECT_TRUE(ReadWholeFile(path, kSettingsLimit, Links::Refused));

    WriteBytes(path, "a\r\n" + longest + "x\r\nb\r\n");
    EXPECT_EQ(ReadWholeFile(path, kSettingsLimit, Links::Refused).Reason(),
              u"la ligne 2 est trop longue\u00A0: 64\u00A0Ko au plus"_s);
}

TEST_F(WholeFile, IsReadWithSoManyLinesAtMost)
{
    constexpr FileLimit kLimit{kKilobyte, kKilobyte, 3};
    WriteBytes(path, "a\r\n\r\nc");
    EXPECT_TRUE(ReadWholeFile(path, kLimit, Links::Refused));

    WriteBytes(path, "a\r\n\r\nc\r\nd");
    EXPECT_EQ(ReadWholeFile(path, kLimit, Links::Refused).Reason(),
              u"le fichier compte trop de lignes\u00A0: 3 au plus"_s);
}

TEST_F(WholeFile, LinesOfATextInUtf16AreThoseOfTheText)
{
    // U+0A0A holds twice the byte of a line feed; in UTF-8 it takes three bytes.
    WriteBytes(path, "\xFF\xFE" + QByteArray(2 * 22000, '\n'));

    EXPECT_EQ(ReadWholeFile(path, kSettingsLimit, Links::Refused).Reason(),
              u"la ligne 1 est trop longue\u00A0: 64\u00A0Ko au plus"_s);
}

TEST_F(WholeFile, FileOfTheSystemThatTellsNoSizeIsReadToItsEnd)
{
    const auto bytes = ReadWholeFile(u"/proc/self/stat"_s, kSettingsLimit, Links::Refused);

    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->startsWith(QByteArray::number(::getpid())));
}

TEST_F(WholeFile, TellsThatItCannotBeReadToItsEnd)
{
    EXPECT_EQ(ReadWholeFile(FailingFile(), kSettingsLimit, Links::Refused).Reason(), FailingFileReason());
}

TEST_F(WholeFile, MissingOneIsToldFromOneThatCannotBeRead)
{
    EXPECT_TRUE(ReadWholeFile(path, kSettingsLimit, Links::Refused).IsMissing());
    EXPECT_FALSE(ReadWholeFile(folder.path(), kSettingsLimit, Links::Refused).IsMissing());
}

} // namespace stoikal
