#include "base/password_file.h"

#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A deposit folder with its password, and a folder of equations.
class PasswordFile : public testing::Test
{
protected:
    PasswordFile()
    {
        EXPECT_TRUE(QDir().mkpath(folder.filePath(u"Dépôt"_s)));
        EXPECT_TRUE(QDir().mkpath(folder.filePath(u"équations"_s)));
        WriteBytes(common, "Sesame\r\n");
    }

    QTemporaryDir folder;
    QString common = folder.filePath(u"Dépôt/MotDePasse.txt"_s);
    QString exercise = folder.filePath(u"équations/Serie.Equ"_s);
};

} // namespace

TEST_F(PasswordFile, IsKnownByItsNameInAnyFolder)
{
    EXPECT_TRUE(IsPasswordFile(common, {}));
    EXPECT_TRUE(IsPasswordFile(u"/nulle/part/MotDePasse.txt"_s, {}));
    EXPECT_TRUE(IsPasswordFile(u"MotDePasse.txt"_s, {}));
    EXPECT_FALSE(IsPasswordFile(u"/nulle/part/MotDePasse.Equ"_s, {}));
    EXPECT_FALSE(IsPasswordFile(QString(), {}));
}

TEST_F(PasswordFile, IsKnownInAnySpelling)
{
    EXPECT_TRUE(IsPasswordFile(u"/nulle/part/motdepasse.TXT"_s, {}));
}

TEST_F(PasswordFile, IsKnownByALinkAndByALinkToALink)
{
    ASSERT_TRUE(QFile::link(common, exercise));
    const QString second = folder.filePath(u"équations/Autre.Equ"_s);
    ASSERT_TRUE(QFile::link(exercise, second));

    EXPECT_TRUE(IsPasswordFile(exercise, {}));
    EXPECT_TRUE(IsPasswordFile(second, {}));
}

TEST_F(PasswordFile, IsKnownByALinkOfItsFolder)
{
    ASSERT_TRUE(QFile::link(folder.filePath(u"Dépôt"_s), folder.filePath(u"ailleurs"_s)));
    EXPECT_TRUE(IsPasswordFile(folder.filePath(u"ailleurs/../ailleurs/MotDePasse.txt"_s), {}));
}

TEST_F(PasswordFile, IsKnownByASecondNameOfTheSameFile)
{
    ASSERT_EQ(::link(QFile::encodeName(common), QFile::encodeName(exercise)), 0);

    EXPECT_TRUE(IsPasswordFile(exercise, common));
}

TEST_F(PasswordFile, IsNoOtherFile)
{
    WriteBytes(exercise, "H2+O2=H2O/2,1,2\r\n");

    EXPECT_FALSE(IsPasswordFile(exercise, common));
    EXPECT_FALSE(IsPasswordFile(folder.filePath(u"équations/absent.Equ"_s), common));
}

} // namespace stoikal
