#include "base/whole_file.h"

#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

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
    const auto written = ReplaceFile(path, "nouveau");

    ASSERT_TRUE(written.Succeeded());
    EXPECT_EQ(*written, path);
    EXPECT_EQ(Bytes(), QByteArray("nouveau"));
}

TEST_F(WholeFile, TakesThePlaceOfTheOldOneAndLeavesNothingBeside)
{
    ASSERT_TRUE(ReplaceFile(path, "un ancien, plus long").Succeeded());

    ASSERT_TRUE(ReplaceFile(path, "nouveau").Succeeded());

    EXPECT_EQ(Bytes(), QByteArray("nouveau"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"Serie.Equ"_s});
}

TEST_F(WholeFile, IsPreparedBeforeItHasItsName)
{
    QByteArray stoodThere;

    ASSERT_TRUE(ReplaceFile(path, "nouveau", [&](QFileDevice& file) {
                    stoodThere = Bytes();
                    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
                }).Succeeded());

    EXPECT_EQ(stoodThere, QByteArray("(no file)"));
    EXPECT_EQ(QFile::permissions(path) & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
              QFileDevice::Permissions());
}

TEST_F(WholeFile, TellsWhyItCouldNotBeWritten)
{
    const auto written = ReplaceFile(folder.filePath(u"nowhere/Serie.Equ"_s), "nouveau");

    ASSERT_FALSE(written.Succeeded());
    EXPECT_FALSE(written.Reason().isEmpty());
}

TEST_F(WholeFile, LeavesTheOldOneWhenTheNewCannotTakeItsName)
{
    // The folder gets another name between the writing and the naming.
    const QString away = folder.filePath(u"partie"_s);
    const QString here = folder.filePath(u"classe"_s);
    ASSERT_TRUE(QDir().mkdir(here));
    ASSERT_TRUE(ReplaceFile(here + u"/Serie.Equ"_s, "ancien").Succeeded());

    const auto written = ReplaceFile(here + u"/Serie.Equ"_s, "nouveau",
                                     [&](QFileDevice&) { ASSERT_TRUE(QDir().rename(here, away)); });

    ASSERT_FALSE(written.Succeeded());
    EXPECT_EQ(written.Reason(), u"le fichier ou le dossier n'existe pas"_s);
    QFile old(away + u"/Serie.Equ"_s);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), QByteArray("ancien"));
}

} // namespace stoikal
