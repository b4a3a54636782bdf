#include "equation_files/equation_file.h"

#include "base/fatal_fault.h"
#include "equation_files/equation_line.h"
#include "support/failing_file.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <sys/stat.h>
#include <vector>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

/// A line of a file as the reader gave it.
struct GivenLine {
    int number = 0;
    QString text;

    bool operator==(const GivenLine&) const = default;
};

void PrintTo(const GivenLine& line, std::ostream* out)
{
    *out << line.number << ": " << line.text.toStdString();
}

class EquationFileTest : public testing::Test
{
protected:
    QString Written(const QByteArray& bytes)
    {
        const QString path = m_folder.filePath(u"Essai.Equ"_s);
        WriteBytes(path, bytes);
        return path;
    }

    EquationFile Opened(const QByteArray& bytes)
    {
        const Outcome<EquationFile> file = EquationFile::Open(Written(bytes));
        EXPECT_TRUE(file.Succeeded());
        return *file;
    }

    std::vector<GivenLine> LinesOf(const QByteArray& bytes)
    {
        EquationFile file = Opened(bytes);
        std::vector<GivenLine> lines;
        while (file.NextLine())
            lines.push_back({file.LineNumber(), file.Line()});
        return lines;
    }

    QTemporaryDir m_folder;
};

} // namespace

// The first pass.

TEST(FirstPass, CountsEquationLines)
{
    EXPECT_EQ(CountEquations("A=B/1,1\r\nC=D/1,1\r\n").equationCount, 2);
}

TEST(FirstPass, CountsALastLineWithoutEnd)
{
    EXPECT_EQ(CountEquations("A=B/1,1\r\nC=D/1,1").equationCount, 2);
}

TEST(FirstPass, TakesAllThreeLineEnds)
{
    EXPECT_EQ(CountEquations("A=B\nC=D\n").equationCount, 2);
    EXPECT_EQ(CountEquations("A=B\rC=D\r").equationCount, 2);
    EXPECT_EQ(CountEquations("A=B\rC=D\nE=F\r\nG=H").equationCount, 4);
}

TEST(FirstPass, DoesNotCountEmptyLines)
{
    EXPECT_EQ(CountEquations("\r\n\r\nA=B\r\n\r\n").equationCount, 1);
    EXPECT_EQ(CountEquations("A=B\r\r\nC=D\n\n").equationCount, 2);
}

TEST(FirstPass, DoesNotCountComments)
{
    EXPECT_EQ(CountEquations("' un\r\nA=B\r\n'deux").equationCount, 1);
}

TEST(FirstPass, DoesNotCountCommentsBehindBlanks)
{
    EXPECT_EQ(CountEquations("   ' un\r\nA=B\r\n").equationCount, 1);
}

TEST(FirstPass, OnlyBlanksAreTrimmedFromAComment)
{
    EXPECT_EQ(CountEquations("\t' un\r\n").equationCount, 1);
}

TEST(FirstPass, CountsALineOfBlanks)
{
    EXPECT_EQ(CountEquations(" ").equationCount, 1);
    EXPECT_EQ(CountEquations("' a\r\n   \r\n").equationCount, 1);
}

TEST(FirstPass, FindsNoEquationInAnEmptyFileOrInCommentsAlone)
{
    EXPECT_EQ(CountEquations("").equationCount, 0);
    EXPECT_EQ(CountEquations(QByteArrayView()).equationCount, 0);
    EXPECT_EQ(CountEquations("' un\r\n'\r\n\r\n").equationCount, 0);
}

TEST(FirstPass, FindsTextBehindAHash)
{
    EXPECT_TRUE(CountEquations("A=B\r\nA=B/1,1#Q1,Q2\r\nC=D\r\n").hasProgressData);
    EXPECT_TRUE(CountEquations("A=B/1,1# \r\n").hasProgressData);
    EXPECT_FALSE(CountEquations("A=B/1,1\r\nC=D\r\n").hasProgressData);
}

TEST(FirstPass, HashAtTheEndOfItsLineIsNoData)
{
    EXPECT_FALSE(CountEquations("A=B/1,1#\r\nC=D\r\n").hasProgressData);
    EXPECT_FALSE(CountEquations("A=B/1,1#\nC=D").hasProgressData);
    EXPECT_FALSE(CountEquations("A=B/1,1#\rC=D").hasProgressData);
    EXPECT_FALSE(CountEquations("A=B/1,1#").hasProgressData);
}

TEST(FirstPass, SecondHashIsTextBehindTheFirst)
{
    EXPECT_TRUE(CountEquations("A=B/1,1##").hasProgressData);
}

TEST(FirstPass, LooksOnBehindAHashWithoutText)
{
    EXPECT_TRUE(CountEquations("A=B/1,1#\r\nA=B/1,1#Q1\r\n").hasProgressData);
}

TEST(FirstPass, HashInACommentMakesAProgressFile)
{
    const FirstPass pass = CountEquations("' exercice #2\r\nA=B/1,1\r\n");

    EXPECT_TRUE(pass.hasProgressData);
    EXPECT_EQ(pass.equationCount, 1);
}

// The reader of a run.

TEST_F(EquationFileTest, GivesLinesInFileOrderWithTheirNumbers)
{
    EXPECT_EQ(LinesOf("' tete\r\nA=B/1,1\r\n\r\n' note\r\nC=D/1,1\r\n"),
              (std::vector<GivenLine>{{2, u"A=B/1,1"_s}, {5, u"C=D/1,1"_s}}));
}

TEST_F(EquationFileTest, SkipsACommentBehindBlanks)
{
    EXPECT_EQ(LinesOf("  ' note\r\nA=B\r\n"), (std::vector<GivenLine>{{2, u"A=B"_s}}));
}

TEST_F(EquationFileTest, KeepsTheBlanksOfALine)
{
    EXPECT_EQ(LinesOf("  A = B \r\n"), (std::vector<GivenLine>{{1, u"  A = B "_s}}));
}

TEST_F(EquationFileTest, EndsBehindLastComments)
{
    EXPECT_EQ(LinesOf("A=B\r\n' fin\r\n'\r\n"), (std::vector<GivenLine>{{1, u"A=B"_s}}));
}

TEST_F(EquationFileTest, GivesNothingMoreAtTheEnd)
{
    EquationFile file = Opened("A=B\r\n' fin\r\n");
    EXPECT_EQ(file.LineNumber(), 0);
    EXPECT_EQ(file.Line(), u""_s);
    ASSERT_TRUE(file.NextLine());

    EXPECT_FALSE(file.NextLine());
    EXPECT_FALSE(file.NextLine());
    EXPECT_EQ(file.Line(), u""_s);
    EXPECT_EQ(file.LineNumber(), 2);
}

TEST_F(EquationFileTest, LineOfBlanksIsGivenAndCannotBeRead)
{
    EquationFile file = Opened("  \r\nA=B\r\n");

    ASSERT_TRUE(file.NextLine());
    EXPECT_EQ(file.Line(), u"  "_s);
    EXPECT_THROW(ParseEquationLine(file.Line()), FatalFault);
}

TEST_F(EquationFileTest, HeadWrittenWithTwoCarriageReturnsHasEmptyLinesThatAreSkipped)
{
    // "'un" CR CR LF is two lines, so the equation stands on the fourth.
    EXPECT_EQ(LinesOf("'un\r\r\n'deux\r\nA=B/1,1\r\n"), (std::vector<GivenLine>{{4, u"A=B/1,1"_s}}));
}

TEST_F(EquationFileTest, DecodesEachLineByItself)
{
    // The first in Windows-1252, the second in UTF-8.
    EXPECT_EQ(LinesOf("\xE9=B\r\n\xC3\xA9=B\r\n"), (std::vector<GivenLine>{{1, u"é=B"_s}, {2, u"é=B"_s}}));
}

TEST_F(EquationFileTest, ByteOrderMarkIsNoPartOfTheFirstLine)
{
    EquationFile file = Opened("\xEF\xBB\xBF' tete\r\nA=B\r\n");

    EXPECT_EQ(file.Pass().equationCount, 1);
    ASSERT_TRUE(file.NextLine());
    EXPECT_EQ(file.Line(), u"A=B"_s);
}

TEST_F(EquationFileTest, PassTellsOfTheWholeFileAtAnyMoment)
{
    EquationFile file = Opened("A=B\r\nC=D/1,1#Q1\r\n");
    ASSERT_TRUE(file.NextLine());

    EXPECT_EQ(file.Pass().equationCount, 2);
    EXPECT_TRUE(file.Pass().hasProgressData);
}

TEST_F(EquationFileTest, ACopyReadsOnByItself)
{
    EquationFile first = Opened("A=B\r\nC=D\r\nE=F\r\n");
    ASSERT_TRUE(first.NextLine());
    EquationFile copy = first;
    first = Opened("X=Y\r\n");

    ASSERT_TRUE(copy.NextLine());
    EXPECT_EQ(copy.Line(), u"C=D"_s);
    ASSERT_TRUE(first.NextLine());
    EXPECT_EQ(first.Line(), u"X=Y"_s);
}

TEST_F(EquationFileTest, ChangeOfTheFileDoesNotDisturbTheRun)
{
    EquationFile file = Opened("A=B\r\nC=D\r\n");
    ASSERT_TRUE(file.NextLine());
    Written("");

    ASSERT_TRUE(file.NextLine());
    EXPECT_EQ(file.Line(), u"C=D"_s);
}

TEST_F(EquationFileTest, MissingFileIsAFailureThatNamesIt)
{
    const QString path = m_folder.filePath(u"absent.Equ"_s);

    const Outcome<EquationFile> file = EquationFile::Open(path);

    ASSERT_FALSE(file.Succeeded());
    EXPECT_EQ(
        file.Reason(),
        u"Le fichier d'équations « %1 » ne peut pas être lu\u00A0: le fichier ou le dossier n'existe pas."_s
            .arg(path));
}

TEST_F(EquationFileTest, FolderIsAFailure)
{
    EXPECT_FALSE(EquationFile::Open(m_folder.path()).Succeeded());
}

TEST_F(EquationFileTest, LinkIsFollowedToAFileKeptElsewhere)
{
    const QString elsewhere = m_folder.filePath(u"ailleurs.txt"_s);
    WriteBytes(elsewhere, "A=B\r\n");
    ASSERT_TRUE(QFile::link(elsewhere, m_folder.filePath(u"lien.Equ"_s)));

    EXPECT_EQ(*ReadEquationBytes(m_folder.filePath(u"lien.Equ"_s)), QByteArray("A=B\r\n"));
}

TEST_F(EquationFileTest, LinkToThePasswordIsNotRead)
{
    WriteBytes(m_folder.filePath(u"motdepasse.txt"_s), "secret\r\n");
    ASSERT_TRUE(QFile::link(m_folder.filePath(u"motdepasse.txt"_s), m_folder.filePath(u"lien.Equ"_s)));

    const auto bytes = ReadEquationBytes(m_folder.filePath(u"lien.Equ"_s));

    ASSERT_FALSE(bytes);
    EXPECT_EQ(bytes.Reason(), u"ce n'est pas un fichier d'équations"_s);
}

TEST_F(EquationFileTest, WhatIsNoFileIsNotWaitedForEvenBehindALink)
{
    const QString pipe = m_folder.filePath(u"tube"_s);
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0666), 0);
    ASSERT_TRUE(QFile::link(pipe, m_folder.filePath(u"lien.Equ"_s)));

    const auto bytes = ReadEquationBytes(m_folder.filePath(u"lien.Equ"_s));

    ASSERT_FALSE(bytes);
    EXPECT_EQ(bytes.Reason(), u"ce n'est pas un fichier"_s);
}

TEST_F(EquationFileTest, OnlyWhatIsNoFileOrAboveTheLimitIsNoExerciseAtAll)
{
    const QString pipe = m_folder.filePath(u"tube.Equ"_s);
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0666), 0);
    const QString failing = m_folder.filePath(u"disque.Equ"_s);
    ASSERT_TRUE(MakeFailingFile(failing));
    const QString large = m_folder.filePath(u"grande.Equ"_s);
    WriteBytes(large, QByteArray("A=B/1,1\r\n").repeated(466'034)); // 4 MB and 2 bytes
    const QString plain = m_folder.filePath(u"simple.Equ"_s);
    WriteBytes(plain, "A=B/1,1\r\n");

    EXPECT_TRUE(EquationFile::IsNone(pipe));
    EXPECT_TRUE(EquationFile::IsNone(m_folder.path()));
    EXPECT_TRUE(EquationFile::IsNone(large));
    EXPECT_FALSE(EquationFile::IsNone(plain));
    EXPECT_FALSE(EquationFile::IsNone(failing));
    EXPECT_FALSE(EquationFile::IsNone(m_folder.filePath(u"partie.Equ"_s)));
}

TEST_F(EquationFileTest, FileThatCannotBeReadToItsEndIsAFailure)
{
    const QString path = m_folder.filePath(u"Serie.Equ"_s);
    ASSERT_TRUE(MakeFailingFile(path));

    const Outcome<EquationFile> file = EquationFile::Open(path);

    ASSERT_FALSE(file.Succeeded());
    EXPECT_EQ(
        file.Reason(),
        u"Le fichier d'équations « %1 » ne peut pas être lu\u00A0: %2."_s.arg(path, FailingFileReason()));
}
