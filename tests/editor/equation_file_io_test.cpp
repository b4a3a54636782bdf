#include "editor/equation_file_io.h"

#include "base/fatal_fault.h"
#include "support/failing_file.h"
#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using Texts = std::array<QString, WorkEquation::kSlots>;

LoadedFile Read(const QByteArray& bytes)
{
    return ReadEquations(bytes, u"Serie.Equ"_s);
}

WorkEquation ReadOne(const QByteArray& line)
{
    const LoadedFile loaded = Read(line);
    EXPECT_EQ(loaded.equations.size(), 1U);
    return loaded.equations.empty() ? WorkEquation() : loaded.equations.front();
}

/// H2<g> + O2 = H2O with its coefficients and data.
WorkEquation Water()
{
    WorkEquation water;
    water.Molecule = {u"H2"_s, u"O2"_s, u""_s, u"H2O"_s, u""_s, u""_s};
    water.Etat[0] = u"g"_s;
    water.Coeff = {u"2"_s, u"1"_s, u""_s, u"2"_s, u""_s, u""_s};
    water.MVQ = {u"Q1"_s, u"Q2"_s, u""_s, u"Q0"_s, u""_s, u""_s};
    return water;
}

} // namespace

TEST(EditorLoader, CutsALineIntoItsKeys)
{
    const WorkEquation equation
        = ReadOne("Fe{3+} <AQ> + Cu < S > = Fe<aq>{2+} + Cu{2+} / 2, 1,2,1 # q0.5,m2");

    EXPECT_EQ(equation.Molecule, (Texts{u"Fe{3+}"_s, u"Cu"_s, u""_s, u"Fe{2+}"_s, u"Cu{2+}"_s, u""_s}));
    EXPECT_EQ(equation.Etat, (Texts{u"aq"_s, u"s"_s, u""_s, u"aq"_s, u""_s, u""_s}));
    EXPECT_EQ(equation.Coeff, (Texts{u"2"_s, u"1"_s, u""_s, u"2"_s, u"1"_s, u""_s}));
    EXPECT_EQ(equation.MVQ, (Texts{u"Q0.5"_s, u"M2"_s, u""_s, u""_s, u""_s, u""_s}));
    EXPECT_EQ(equation.ECHEC, QString());
}

TEST(EditorLoader, GivesNoCoefficientADefault)
{
    EXPECT_EQ(ReadOne("A=B").Coeff, Texts());
    EXPECT_EQ(ReadOne("A=B/").Coeff, Texts());
    EXPECT_EQ(ReadOne("A+B=C/1,2").Coeff, (Texts{u"1"_s, u"2"_s, u""_s, u""_s, u""_s, u""_s}));
    EXPECT_EQ(ReadOne("A=B/x,1,9,9").Coeff, (Texts{u"x"_s, u""_s, u""_s, u"1"_s, u""_s, u""_s}));
}

TEST(EditorLoader, ReadsDataOnlyIfThereAreSome)
{
    EXPECT_EQ(ReadOne("A=B/1,1").MVQ, Texts());
    EXPECT_EQ(ReadOne("A=B/#q1,v2").MVQ, (Texts{u"Q1"_s, u""_s, u""_s, u"V2"_s, u""_s, u""_s}));
}

TEST(EditorLoader, MoreDataThanSpeciesIsAFaultThatNamesTheLine)
{
    try {
        Read("' head\r\nA=B/1,1#Q1,Q2\r\nA=B/1,1#Q1,Q2,Q3\r\n");
        FAIL() << "no fault";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.File(), u"Serie.Equ"_s);
        EXPECT_EQ(fault.Line(), 3);
        EXPECT_EQ(fault.LineText(), u"A=B/1,1#Q1,Q2,Q3"_s);
    }
    EXPECT_THROW(Read("A=B/1,1#Q1,Q2,Q3,Q4"), FatalFault);
}

TEST(EditorLoader, TakesACommentOnlyAtTheFirstColumn)
{
    EXPECT_EQ(Read("'un\r\nA=B\r\n").head, u"un"_s);
    // A blank before the apostrophe makes an equation line of it.
    EXPECT_THROW(Read(" 'un\r\nA=B\r\n"), FatalFault);
    EXPECT_EQ(ReadOne(" 'A=B").Molecule[0], u"'A"_s);
}

TEST(EditorLoader, CommentsBeforeTheFirstEquationAreTheHead)
{
    const LoadedFile loaded = Read("' un \r\n\r\n'\r\n'deux\r\nA=B\r\n");

    EXPECT_EQ(loaded.head, u"un\n\ndeux"_s);
    EXPECT_EQ(loaded.equations.at(0).Comment, QString());
}

TEST(EditorLoader, OfSeveralCommentsBetweenEquationsTheLastRemains)
{
    const LoadedFile loaded = Read("A=B\r\n'un\r\n' deux \r\nC=D\r\nE=F\r\n'fin\r\n");

    ASSERT_EQ(loaded.equations.size(), 3U);
    EXPECT_EQ(loaded.equations[0].Comment, QString());
    EXPECT_EQ(loaded.equations[1].Comment, u"deux"_s);
    EXPECT_EQ(loaded.equations[2].Comment, QString());
}

TEST(EditorLoader, SkipsEmptyLinesAndLinesOfBlanks)
{
    EXPECT_EQ(Read("\r\n   \r\nA=B\r\n \r\nC=D").equations.size(), 2U);
    EXPECT_TRUE(Read("").equations.empty());
}

TEST(EditorLoader, LineWithoutAnEqualsSignIsAFault)
{
    EXPECT_THROW(Read("A+B\r\n"), FatalFault);
    EXPECT_THROW(Read("A<s=B\r\n"), FatalFault);
}

TEST(EditorLoader, ReadsBothCodes)
{
    EXPECT_EQ(Read("'\xE9t\xE9\r\n").head, u"été"_s);
    EXPECT_EQ(Read("'\xC3\xA9t\xC3\xA9\r\n").head, u"été"_s);
}

TEST(EditorLoader, FileThatIsNotThereIsTold)
{
    const auto loaded = LoadFileIntoEditor(u"/nowhere/Serie.Equ"_s);

    ASSERT_FALSE(loaded.Succeeded());
    EXPECT_TRUE(loaded.Reason().contains(u"Serie.Equ"_s));
}

TEST(EditorLoader, TakesFourThousandEquationsAtMost)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Serie.Equ"_s);
    WriteBytes(path, "'mot\r\n" + QByteArray("A=B/1,1\r\n").repeated(4000));
    EXPECT_TRUE(LoadFileIntoEditor(path));

    WriteBytes(path, "'mot\r\n" + QByteArray("A=B/1,1\r\n").repeated(4001));
    const auto loaded = LoadFileIntoEditor(path);

    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.Reason(),
              u"Le fichier d'équations « %1 » compte 4001 équations\u00A0: l'éditeur en prend 4000 au "
              "plus.\n\nPartagez-le en plusieurs fichiers."_s.arg(path));
}

TEST(EditorLoader, FileThatCannotBeReadToItsEndIsTold)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Serie.Equ"_s);
    ASSERT_TRUE(MakeFailingFile(path));

    const auto loaded = LoadFileIntoEditor(path);

    ASSERT_FALSE(loaded.Succeeded());
    EXPECT_EQ(
        loaded.Reason(),
        u"Le fichier d'équations « %1 » ne peut pas être lu\u00A0: %2."_s.arg(path, FailingFileReason()));
}

TEST(EditorWriter, WritesTheWorkedExample)
{
    EXPECT_EQ(EquationFileBytes({}, {Water()}, FileType::Avt),
              QByteArray("'\r\nH2<g>+O2=H2O/2,1,2#Q1,Q2,Q0\r\n"));
}

TEST(EditorWriter, BalancingFileHasNoData)
{
    EXPECT_EQ(EquationFileBytes({}, {Water()}, FileType::Equ), QByteArray("'\r\nH2<g>+O2=H2O/2,1,2\r\n"));
}

TEST(EditorWriter, HeadIsAlwaysWritten)
{
    EXPECT_EQ(EquationFileBytes({}, {}, FileType::Equ), QByteArray("'\r\n"));
}

TEST(EditorWriter, LinesOfTheHeadButTheLastEndInTwoCarriageReturns)
{
    EXPECT_EQ(EquationFileBytes(u"***\n  titre é\n"_s, {}, FileType::Equ),
              QByteArray("'***\r\r\n'  titre \xE9\r\r\n'\r\n"));
}

TEST(EditorWriter, CommentStandsBeforeItsEquation)
{
    WorkEquation water = Water();
    water.Comment = u"Synthèse de l'eau"_s;

    EXPECT_EQ(EquationFileBytes({}, {water, Water()}, FileType::Equ),
              QByteArray("'\r\n'Synth\xE8se de l'eau\r\nH2<g>+O2=H2O/2,1,2\r\nH2<g>+O2=H2O/2,1,2\r\n"));
}

TEST(EditorWriter, PlusStandsBeforeAllButTheFirstPresent)
{
    WorkEquation equation;
    equation.Molecule = {u""_s, u"A"_s, u"B"_s, u""_s, u""_s, u"C"_s};
    equation.Coeff = {u"9"_s, u"1"_s, u"2"_s, u"9"_s, u"9"_s, u"3"_s};

    EXPECT_EQ(EquationFileBytes({}, {equation}, FileType::Equ), QByteArray("'\r\nA+B=C/1,2,3\r\n"));
}

TEST(EditorWriter, UnbalancedEquationIsWrittenWithTheCoefficientsItHolds)
{
    WorkEquation equation = ReadOne("A+B=C");
    equation.ECHEC = u"1"_s;
    EXPECT_EQ(EquationFileBytes({}, {equation}, FileType::Equ), QByteArray("'\r\nA+B=C/,,\r\n"));

    equation.Coeff[1] = u"4"_s;
    EXPECT_EQ(EquationFileBytes({}, {equation}, FileType::Equ), QByteArray("'\r\nA+B=C/,4,\r\n"));
}

TEST(EditorWriter, LoadingAndWritingMovesTheComments)
{
    const LoadedFile loaded = Read("'un\r\n'deux\r\nA=B/1,1\r\n'trois\r\n'quatre\r\nC=D/1,1\r\n");

    EXPECT_EQ(EquationFileBytes(loaded.head, loaded.equations, FileType::Equ),
              QByteArray("'un\r\r\n'deux\r\nA=B/1,1\r\n'quatre\r\nC=D/1,1\r\n"));
}

TEST(EditorWriter, LoadingItsOwnFileChangesNothing)
{
    const QByteArray bytes = EquationFileBytes(u"a\n\nb"_s, {Water()}, FileType::Avt);

    const LoadedFile loaded = Read(bytes);

    EXPECT_EQ(loaded.head, u"a\n\nb"_s);
    EXPECT_EQ(EquationFileBytes(loaded.head, loaded.equations, FileType::Avt), bytes);
}

TEST(EditorWriter, StateWithoutAButtonIsWrittenAsItIs)
{
    EXPECT_EQ(EquationFileBytes({}, {ReadOne("A<aq>=B/1,1")}, FileType::Equ),
              QByteArray("'\r\nA<aq>=B/1,1\r\n"));
}

TEST(EditorWriter, NameHasTheExtensionInMixedCase)
{
    EXPECT_EQ(EquationFileName(u"Serie"_s, FileType::Equ), u"Serie.Equ"_s);
    EXPECT_EQ(EquationFileName(u"Serie"_s, FileType::Avt), u"Serie.Avt"_s);
}

TEST(WriteEquationFile, MakesTheFolderAndTheFile)
{
    const QTemporaryDir folder;
    const QString place = folder.filePath(u"a/b"_s);

    const auto written = WriteEquationFile(place, u"Série.Equ"_s, "A=B/1,1\r\n");

    ASSERT_TRUE(written.Succeeded());
    EXPECT_EQ(BytesOfFile(place + u"/Série.Equ"_s), QByteArray("A=B/1,1\r\n"));
}

TEST(WriteEquationFile, TakesOtherSpellingsOfTheNameAway)
{
    const QTemporaryDir folder;
    WriteBytes(folder.filePath(u"SERIE.equ"_s), "old");
    WriteBytes(folder.filePath(u"serie.avt"_s), "other kind");
    WriteBytes(folder.filePath(u"serie2.equ"_s), "other name");

    ASSERT_TRUE(WriteEquationFile(folder.path(), u"Serie.Equ"_s, "new").Succeeded());

    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files),
              QStringList({u"serie.avt"_s, u"Serie.Equ"_s, u"serie2.equ"_s}));
    EXPECT_EQ(BytesOfFile(folder.filePath(u"Serie.Equ"_s)), QByteArray("new"));
}

TEST(WriteEquationFile, FullDiskLeavesTheOldFileWhole)
{
    const QTemporaryDir folder;
    WriteBytes(folder.filePath(u"Serie.Equ"_s), "old");
    LimitFileSize(4096);

    const auto written
        = WriteEquationFile(folder.path(), u"Serie.Equ"_s, QByteArray("A=B/1,1\r\n").repeated(11'000));
    LimitFileSize(RLIM_INFINITY);

    EXPECT_FALSE(written.Succeeded());
    EXPECT_TRUE(written.Reason().contains(u"Votre saisie est conservée."_s));
    EXPECT_EQ(BytesOfFile(folder.filePath(u"Serie.Equ"_s)), QByteArray("old"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({u"Serie.Equ"_s}));
}

TEST(WriteEquationFile, FileAboveTheLimitIsNotWrittenForLackOfRoom)
{
    const QTemporaryDir folder;

    const auto written
        = WriteEquationFile(folder.path(), u"Serie.Equ"_s, QByteArray("A=B/1,1\r\n").repeated(500'000));

    ASSERT_FALSE(written);
    EXPECT_EQ(written.Reason(),
              u"Le fichier « %1 » n'a pas été écrit\u00A0:\n"
              "le fichier est trop grand\u00A0: 4096\u00A0Ko au plus\n\n"
              "Votre saisie est conservée. Répartissez-la entre plusieurs fichiers, puis recommencez."_s.arg(
                  folder.filePath(u"Serie.Equ"_s)));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(WriteEquationFile, FolderInPlaceOfTheFileIsTold)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"Serie.Equ/x"_s));

    EXPECT_FALSE(WriteEquationFile(folder.path(), u"Serie.Equ"_s, "new").Succeeded());
}

TEST(WriteEquationFile, FolderThatCannotBeMadeIsTold)
{
    // A file stands where the folder would be.
    const QTemporaryDir place;
    const QString folder = place.filePath(u"Stoikal"_s);
    ASSERT_TRUE(QFile(folder).open(QIODevice::WriteOnly));

    const auto written = WriteEquationFile(folder, u"Serie.Equ"_s, "A=B\r\n");

    ASSERT_FALSE(written.Succeeded());
    EXPECT_TRUE(written.Reason().contains(folder + u"/Serie.Equ"_s)) << written.Reason().toStdString();
    EXPECT_TRUE(written.Reason().contains(u"le dossier n'existe pas."_s)) << written.Reason().toStdString();
}

TEST(SameNames, ComparesWithoutCase)
{
    const QTemporaryDir folder;
    WriteBytes(folder.filePath(u"ÉTÉ.equ"_s), "x");

    EXPECT_EQ(SameNames(folder.path(), u"été.Equ"_s), QStringList({u"ÉTÉ.equ"_s}));
    EXPECT_TRUE(SameNames(folder.path(), u"été.Avt"_s).isEmpty());
}

} // namespace stoikal
