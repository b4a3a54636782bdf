#include "tools/text_file.h"

#include "support/failing_file.h"
#include "support/file_bytes.h"
#include "support/ordinary_user.h"
#include "support/qt_printers.h"
#include "support/reachable_folder.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

struct OneFile {
    ReachableFolder folder;
    QString path = folder.filePath(u"texte.txt"_s);

    void Write(const QByteArray& bytes) const { WriteBytes(path, bytes); }
    QByteArray Bytes() const { return BytesOfFile(path); }
};

} // namespace

TEST(TextFile, ReadsEachLineInItsOwnEncoding)
{
    const OneFile place;
    place.Write("\xE9t\xE9\r\n\xC3\xA9t\xC3\xA9 \xC5\x81\nfin");
    TextFile file(place.path);

    const auto lines = file.Load();

    ASSERT_TRUE(lines);
    EXPECT_EQ(*lines, QStringList({u"été"_s, u"été Ł"_s, u"fin"_s}));
}

TEST(TextFile, WritesThePageAndOnlyWhereItMustUtf8)
{
    const OneFile place;
    TextFile file(place.path);

    ASSERT_TRUE(file.Save({u"été"_s, u"Ł"_s, QString()}));

    EXPECT_EQ(place.Bytes().toStdString(), "\xE9t\xE9\r\n\xC5\x81\r\n\r\n");
}

TEST(TextFile, MissingFileHasNoLines)
{
    const OneFile place;
    TextFile file(place.path);

    const auto lines = file.Load();

    ASSERT_TRUE(lines);
    EXPECT_TRUE(lines->isEmpty());
    EXPECT_FALSE(QFile::exists(place.path));
}

TEST(TextFile, FolderCannotBeRead)
{
    const OneFile place;
    ASSERT_TRUE(QDir().mkdir(place.path));

    EXPECT_FALSE(TextFile(place.path).Load());
}

TEST(TextFile, IntoAMissingFolderNothingIsSaved)
{
    const OneFile place;
    TextFile file(place.folder.filePath(u"absent/texte.txt"_s));

    const auto saved = file.Save({u"a"_s});

    ASSERT_FALSE(saved);
    EXPECT_FALSE(saved.Reason().isEmpty());
    EXPECT_FALSE(QDir(place.folder.filePath(u"absent"_s)).exists());
}

TEST(TextFile, NoticesThatAnotherProgramChangedIt)
{
    const OneFile place;
    place.Write("a\r\n");
    TextFile file(place.path);
    ASSERT_TRUE(file.Load());
    EXPECT_FALSE(file.HasChangedOutside());

    place.Write("a\r\nb\r\n");
    EXPECT_TRUE(file.HasChangedOutside());
    ASSERT_TRUE(file.Load());
    EXPECT_FALSE(file.HasChangedOutside());

    ASSERT_TRUE(QFile::remove(place.path));
    EXPECT_TRUE(file.HasChangedOutside());
}

TEST(TextFile, ItsOwnSavingIsNoChangeFromOutside)
{
    const OneFile place;
    TextFile file(place.path);
    ASSERT_TRUE(file.Load());

    ASSERT_TRUE(file.Save({u"a"_s}));

    EXPECT_FALSE(file.HasChangedOutside());
}

TEST(TextFile, TellsThatItCannotBeReadToItsEnd)
{
    const auto lines = TextFile(FailingFile()).Load();

    ASSERT_FALSE(lines);
    EXPECT_EQ(lines.Reason(), FailingFileReason());
}

TEST(TextFile, LinkInItsPlaceIsNotFollowed)
{
    const OneFile place;
    WriteBytes(place.folder.filePath(u"ailleurs.txt"_s), "mine");
    ASSERT_TRUE(QFile::link(place.folder.filePath(u"ailleurs.txt"_s), place.path));
    TextFile file(place.path);

    EXPECT_FALSE(file.Load());
    EXPECT_FALSE(file.Save({u"a"_s}));

    EXPECT_EQ(BytesOfFile(place.folder.filePath(u"ailleurs.txt"_s)), QByteArray("mine"));
}

TEST(TextFile, WhatIsNoFileIsNotWaitedFor)
{
    const OneFile place;
    ASSERT_EQ(::mkfifo(qPrintable(place.path), 0666), 0);

    const auto lines = TextFile(place.path).Load();

    ASSERT_FALSE(lines);
    EXPECT_EQ(lines.Reason(), u"ce n'est pas un fichier"_s);
}

TEST(TextFile, EndOfAShortOneIsTheWhole)
{
    const OneFile place;
    place.Write("a\r\n\xE9\r\nb");
    TextFile file(place.path);

    const auto lines = file.LoadEnd();

    ASSERT_TRUE(lines);
    EXPECT_EQ(*lines, QStringList({u"a"_s, u"é"_s, u"b"_s}));
    EXPECT_FALSE(file.IsCut());
}

TEST(TextFile, EndOfALongOneBeginsWithAWholeLine)
{
    const OneFile place;
    QByteArray bytes = "premier\r\n";
    for (int i = 0; i < 100'000; ++i)
        bytes += "ligne " + QByteArray::number(i).rightJustified(8, '0') + "\r\n";
    place.Write(bytes);
    TextFile file(place.path);

    const auto lines = file.LoadEnd();

    ASSERT_TRUE(lines);
    EXPECT_TRUE(file.IsCut());
    // 512 KB are 32,768 such lines, of which the last 20,000 are shown.
    EXPECT_EQ(lines->size(), 20'000);
    EXPECT_EQ(lines->first(), u"ligne 00080000"_s);
    EXPECT_EQ(lines->last(), u"ligne 00099999"_s);
}

TEST(TextFile, EndBeginsBehindTheLineThatItCuts)
{
    const OneFile place;
    // Lines of 1,024 bytes behind one of 9: the end holds 511 whole ones.
    place.Write("premier\r\n" + (QByteArray(1022, 'x') + "\r\n").repeated(600) + "la fin");
    TextFile file(place.path);

    const auto lines = file.LoadEnd();

    ASSERT_TRUE(lines);
    EXPECT_TRUE(file.IsCut());
    EXPECT_EQ(lines->size(), 512);
    EXPECT_EQ(lines->first().size(), 1022);
    EXPECT_EQ(lines->last(), u"la fin"_s);
}

TEST(TextFile, EndOfAGigabyteIsReadAlone)
{
    const OneFile place;
    QFile writer(place.path);
    ASSERT_TRUE(writer.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writer.resize(qint64{8} * 1024 * 1024 * 1024));
    ASSERT_TRUE(writer.seek(writer.size()));
    ASSERT_EQ(writer.write("\r\nla fin\r\n"), 10);
    writer.close();

    const auto lines = TextFile(place.path).LoadEnd();

    ASSERT_TRUE(lines);
    EXPECT_EQ(*lines, QStringList{u"la fin"_s});
}

TEST(TextFile, LinesOfTheEndAreCutWhereNobodyReadsOn)
{
    const OneFile place;
    place.Write(QByteArray(2001, 'x') + "\r\n" + QByteArray(2000, 'y'));

    const auto lines = TextFile(place.path).LoadEnd();

    ASSERT_TRUE(lines);
    EXPECT_EQ(*lines, QStringList({QString(1999, u'x') + u"…"_s, QString(2000, u'y')}));
}

TEST(TextFile, GiantIsNotLoadedToBeChanged)
{
    const OneFile place;
    QFile writer(place.path);
    ASSERT_TRUE(writer.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writer.resize(qint64{8} * 1024 * 1024 * 1024));

    const auto lines = TextFile(place.path).Load();

    ASSERT_FALSE(lines);
    EXPECT_EQ(lines.Reason(), u"le fichier est trop grand\u00A0: 1024\u00A0Ko au plus"_s);
}

TEST(TextFile, SavesNothingThatItCouldNotLoadAgain)
{
    const OneFile place;
    place.Write("a\r\n");

    const auto saved = TextFile(place.path).Save({QString(8 * 1024 + 1, u'x')});

    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.Reason(), u"la ligne 1 est trop longue\u00A0: 8\u00A0Ko au plus"_s);
    EXPECT_EQ(place.Bytes(), "a\r\n");
}

TEST(TextFile, TellsThatItMayNotBeRead)
{
    const OneFile place;
    if (!place.folder.IsReachable())
        GTEST_SKIP() << ReachableFolder::WhyNot();
    place.Write("secret");
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0755), 0);
    ASSERT_EQ(::chmod(qPrintable(place.path), 0200), 0);
    const AsOrdinaryUser user;
    ASSERT_TRUE(user.IsOrdinary());

    const auto lines = TextFile(place.path).Load();

    ASSERT_FALSE(lines);
    EXPECT_EQ(lines.Reason(), u"l'accès est refusé"_s);
}

} // namespace stoikal
