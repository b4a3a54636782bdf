#include "balancing/equation_search.h"

#include "base/fatal_fault.h"
#include "base/file_lock.h"
#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

/// Whether a pattern of six molecules finds a line.
bool Finds(const std::array<QString, 6>& molecules, const char* line)
{
    return EquationPattern(molecules).Matches(line);
}

bool FindsReactant(const QString& molecule, const char* line)
{
    return Finds({molecule, {}, {}, {}, {}, {}}, line);
}

bool FindsProduct(const QString& molecule, const char* line)
{
    return Finds({{{}, {}, {}, molecule, {}, {}}}, line);
}

QString CauseOf(const char* line)
{
    try {
        FindsReactant(u"H2"_s, line);
    } catch (const FatalFault& fault) {
        return fault.Cause();
    }
    return u"(no fault)"_s;
}

/// A folder of files to be listed and completed.
class EquationFolder : public testing::Test
{
protected:
    QString Path(const QString& name) const { return folder.filePath(name); }

    void Write(const QString& name, const QByteArray& bytes = {}) { WriteBytes(Path(name), bytes); }

    QByteArray Bytes(const QString& name) const { return BytesOfFile(Path(name)); }

    QTemporaryDir folder;
};

class EquationFilesOfAFolder : public EquationFolder
{
};

class AppendingLines : public EquationFolder
{
};

class AppendingAnEquation : public EquationFolder
{
};

} // namespace

TEST(EquationPattern, FindsAMoleculeInAnyPlaceOfItsSide)
{
    const char* const line = "Al+Fe+Cu=H2+O2+N2/1,1,1,1,1,1";
    EXPECT_TRUE(FindsReactant(u"Al"_s, line));
    EXPECT_TRUE(FindsReactant(u"Fe"_s, line));
    EXPECT_TRUE(FindsReactant(u"Cu"_s, line));
    EXPECT_TRUE(FindsProduct(u"H2"_s, line));
    EXPECT_TRUE(FindsProduct(u"O2"_s, line));
    EXPECT_TRUE(FindsProduct(u"N2"_s, line));
}

TEST(EquationPattern, FindsNoMoleculeOnTheOtherSide)
{
    const char* const line = "H2+O2=H2O/2,1,2";
    EXPECT_FALSE(FindsProduct(u"H2"_s, line));
    EXPECT_FALSE(FindsReactant(u"H2O"_s, line));
}

TEST(EquationPattern, SeeksFromEachOfItsSixPlaces)
{
    for (size_t place = 0; place < 6; ++place) {
        std::array<QString, 6> molecules;
        molecules.at(place) = u"Xe"_s;
        EXPECT_EQ(Finds(molecules, "Xe+H2=O2+N2/1,1,1,1"), place < 3) << place;
        EXPECT_EQ(Finds(molecules, "O2+N2=Xe+H2/1,1,1,1"), place >= 3) << place;
    }
}

TEST(EquationPattern, NeedsAllItsMolecules)
{
    const char* const line = "CH4+O2=CO2+H2O/1,2,1,2";
    EXPECT_TRUE(Finds({u"O2"_s, {}, u"CH4"_s, {}, u"H2O"_s, u"CO2"_s}, line));
    EXPECT_FALSE(Finds({u"O2"_s, {}, u"CH4"_s, {}, u"H2O"_s, u"CO"_s}, line));
    EXPECT_FALSE(Finds({u"O2"_s, u"N2"_s, u"CH4"_s, {}, u"H2O"_s, u"CO2"_s}, line));
}

TEST(EquationPattern, LetsSeveralMoleculesFindTheSamePlace)
{
    EXPECT_TRUE(Finds({u"H2"_s, u"H2"_s, u"H2"_s, {}, {}, {}}, "H2+O2=H2O/2,1,2"));
}

TEST(EquationPattern, FindsNoPartOfAMolecule)
{
    EXPECT_FALSE(FindsReactant(u"H2O"_s, "H2O2=H2O+O2/2,2,1"));
    EXPECT_FALSE(FindsReactant(u"H2O2"_s, "H2O=H2+O2/2,2,1"));
    EXPECT_FALSE(FindsReactant(u"H2"_s, "H2<g>+O2<g>=H2O<l>/2,1,2"));
}

TEST(EquationPattern, CountsCase)
{
    EXPECT_FALSE(FindsReactant(u"CO"_s, "Co+O2=CoO/2,1,2"));
    EXPECT_TRUE(FindsReactant(u"Co"_s, "Co+O2=CoO/2,1,2"));
}

TEST(EquationPattern, DoesNotSplitAtThePlusOfACharge)
{
    const char* const line = "Fe{3+}+Cu{+2}=Fe{2+}+Cu{+}/2,1,2,1";
    EXPECT_TRUE(Finds({u"Fe{3+}"_s, u"Cu{+2}"_s, {}, u"Fe{2+}"_s, u"Cu{+}"_s, {}}, line));
    EXPECT_FALSE(FindsReactant(u"Fe{3"_s, line));
    EXPECT_FALSE(FindsReactant(u"2}"_s, line));
}

TEST(EquationPattern, DoesNotSplitAtAChargeWrittenWithBlanks)
{
    EXPECT_TRUE(FindsReactant(u"Fe{3+}"_s, "Fe{3+ } + Cu = Fe{2+} + Cu{2+} / 2,1,2,1"));
    EXPECT_TRUE(FindsReactant(u"Cu{+2}"_s, "Fe+Cu{ +2}=FeCu/1,1,1"));
}

TEST(EquationPattern, PassesOverBlanksOfTheLine)
{
    EXPECT_TRUE(Finds({u"H2"_s, u"O2"_s, {}, u"H2O"_s, {}, {}}, "  H 2  + O2 =  H2 O  / 2, 1, 2"));
}

TEST(EquationPattern, StopsAtTheSlashOfTheProducts)
{
    EXPECT_TRUE(FindsProduct(u"H2O"_s, "H2+O2=H2O/2,1,2#Q1,Q1,Q0"));
    EXPECT_FALSE(FindsProduct(u"N2"_s, "H2+O2=H2O/+N2"));
    EXPECT_TRUE(FindsProduct(u"H2O"_s, "H2+O2=H2O"));
}

TEST(EquationPattern, TakesTheFirstEqualsForTheArrow)
{
    // What stands behind it is a product, the second "=" included.
    EXPECT_TRUE(FindsProduct(u"B=C"_s, "A=B=C/1,1"));
}

TEST(EquationPattern, WritesAFourthReactantIntoTheProducts)
{
    // A, B, C, D, E lie in the places 0 to 4; then F overwrites place 3.
    const char* const line = "A+B+C+D+E=F/1";
    EXPECT_TRUE(FindsProduct(u"E"_s, line));
    EXPECT_TRUE(FindsProduct(u"F"_s, line));
    EXPECT_FALSE(FindsProduct(u"D"_s, line));
    EXPECT_FALSE(FindsReactant(u"D"_s, line));
}

TEST(EquationPattern, ForgetsTheLineBefore)
{
    EquationPattern pattern({{{}, {}, {}, {}, u"E"_s, {}}});
    EXPECT_TRUE(pattern.Matches("A=D+E/1"));
    EXPECT_FALSE(pattern.Matches("A=D/1"));
}

TEST(EquationPattern, RefusesALineWithoutEquals)
{
    EXPECT_TRUE(CauseOf("H2+O2").contains(u"« = »"_s)) << CauseOf("H2+O2").toStdString();
    EXPECT_TRUE(CauseOf("  ").contains(u"« = »"_s));
}

TEST(EquationPattern, RefusesASeventhFormula)
{
    // Six reactants just fit the six places, and so do three products.
    EXPECT_EQ(CauseOf("A+B+C+D+E+F=G+H+I/1"), u"(no fault)"_s);
    EXPECT_TRUE(CauseOf("A+B+C+D+E+F+G=H/1").contains(u"six formules"_s));
    EXPECT_TRUE(CauseOf("A=B+C+D+E/1").contains(u"six formules"_s));
}

TEST_F(EquationFilesOfAFolder, AreThoseOfBothKindsInAnyCaseByName)
{
    for (const auto& name : {u"b.Equ"_s, u"C.EQU"_s, u"a.equ"_s, u"D.Avt"_s, u"e.AVT"_s, u"Equ"_s,
                             u"f.Equ.txt"_s, u"Resultat.txt"_s})
        Write(name);

    const auto files = EquationFilesOf(folder.path());

    ASSERT_TRUE(files);
    EXPECT_EQ(*files, QStringList({u"a.equ"_s, u"b.Equ"_s, u"C.EQU"_s, u"D.Avt"_s, u"e.AVT"_s}));
}

TEST_F(EquationFilesOfAFolder, AreNotFoldersNorInThem)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"Dossier.Equ"_s));
    Write(u"Dossier.Equ/dedans.Equ"_s);
    Write(u"seul.Equ"_s);

    const auto files = EquationFilesOf(folder.path());

    ASSERT_TRUE(files);
    EXPECT_EQ(*files, QStringList{u"seul.Equ"_s});
}

TEST_F(EquationFilesOfAFolder, NameALinkThatLeadsNowhere)
{
    ASSERT_TRUE(QFile::link(Path(u"nulle part"_s), Path(u"lien.Equ"_s)));
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, Path(u"rien.Equ"_s)));

    const auto files = EquationFilesOf(folder.path());

    ASSERT_TRUE(files);
    EXPECT_EQ(*files, QStringList{u"lien.Equ"_s});
}

TEST_F(EquationFilesOfAFolder, MustStandInAFolder)
{
    Write(u"fichier"_s);

    for (const auto& name : {u"absent"_s, u"fichier"_s}) {
        const auto files = EquationFilesOf(Path(name));
        ASSERT_FALSE(files);
        EXPECT_EQ(files.Reason(),
                  u"Le dossier des fichiers d'équations est introuvable ou illisible :\n"_s + Path(name));
    }
}

TEST_F(AppendingLines, MakesANewFile)
{
    EXPECT_TRUE(EquationAppender::AppendLines(Path(u"neuf.Equ"_s), {"H2+O2=H2O/2,1,2", " A = B /1,1"}));
    EXPECT_EQ(Bytes(u"neuf.Equ"_s), "H2+O2=H2O/2,1,2\r\n A = B /1,1\r\n");
}

TEST_F(AppendingLines, EndsTheLastLineOfAFileFirst)
{
    Write(u"ouvert.Equ"_s, "'un\r\nA=B/1,1");
    EXPECT_TRUE(EquationAppender::AppendLines(Path(u"ouvert.Equ"_s), {"C=D/1,1"}));
    EXPECT_EQ(Bytes(u"ouvert.Equ"_s), "'un\r\nA=B/1,1\r\nC=D/1,1\r\n");
}

TEST_F(AppendingLines, AddsNoLineEndToAFileThatHasOne)
{
    for (const QByteArray& before :
         {QByteArray("A=B/1,1\r\n"), QByteArray("A=B/1,1\n"), QByteArray("A=B/1,1\r")}) {
        Write(u"clos.Equ"_s, before);
        EXPECT_TRUE(EquationAppender::AppendLines(Path(u"clos.Equ"_s), {"C=D/1,1"}));
        EXPECT_EQ(Bytes(u"clos.Equ"_s), before + "C=D/1,1\r\n");
    }
}

TEST_F(AppendingLines, KeepsTheBytesOfALine)
{
    // In both encodings: the second line is "é" in UTF-8.
    EXPECT_TRUE(EquationAppender::AppendLines(Path(u"accents.Equ"_s), {"A=\xE9/1", "A=\xC3\xA9/1"}));
    EXPECT_EQ(Bytes(u"accents.Equ"_s), "A=\xE9/1\r\nA=\xC3\xA9/1\r\n");
}

TEST_F(AppendingLines, TellsWhatCannotBeWritten)
{
    const auto written = EquationAppender::AppendLines(folder.path(), {"A=B/1,1"});
    ASSERT_FALSE(written);
    EXPECT_TRUE(
        written.Reason().startsWith(u"Le fichier %1 n'a pas pu être complété :\n"_s.arg(folder.path())))
        << written.Reason().toStdString();
}

TEST_F(AppendingLines, MakesNoFileThatCouldNotBeReadAgain)
{
    const QByteArray before = QByteArray("A=B/1,1\r\n").repeated(466'033); // 4 MB but for 7 bytes.
    Write(u"grand.Equ"_s, before);

    const auto written = EquationAppender::AppendLines(Path(u"grand.Equ"_s), {"C=D/1,1"});

    ASSERT_FALSE(written);
    EXPECT_TRUE(written.Reason().endsWith(u"\nle fichier deviendrait trop grand pour être lu"_s));
    EXPECT_EQ(Bytes(u"grand.Equ"_s), before);
}

TEST_F(AppendingLines, AddsNoLineThatCouldNotBeReadAgain)
{
    Write(u"serie.Equ"_s, "A=B/1,1\r\n");

    const auto written
        = EquationAppender::AppendLines(Path(u"serie.Equ"_s), {"C=D/1,1", "'" + QByteArray(8192, 'x')});

    ASSERT_FALSE(written);
    EXPECT_TRUE(
        written.Reason().endsWith(u"\nune ligne à ajouter est trop longue\u00A0: 8\u00A0Ko au plus"_s))
        << written.Reason().toStdString();
    EXPECT_EQ(Bytes(u"serie.Equ"_s), "A=B/1,1\r\n");
}

TEST_F(AppendingLines, AddsTheLongestLineThatCanBeRead)
{
    const QByteArray longest = "'" + QByteArray(8191, 'x');

    EXPECT_TRUE(EquationAppender::AppendLines(Path(u"serie.Equ"_s), {longest}));

    EXPECT_EQ(Bytes(u"serie.Equ"_s), longest + "\r\n");
}

TEST_F(AppendingLines, TellsThatTheDiskIsFull)
{
    const FullFile full(Path(u"plein.Equ"_s));
    EXPECT_FALSE(EquationAppender::AppendLines(Path(u"plein.Equ"_s), {"A=B/1,1"}));
}

TEST_F(AppendingAnEquation, AddsALineEndAnApostropheAndTheLineWithoutEnd)
{
    Write(u"serie.Equ"_s, "'un\r\nA=B/1,1");
    EXPECT_TRUE(EquationAppender::AppendEquation(Path(u"serie.Equ"_s), u"H2+O2=H2O/2,1,2"_s));
    EXPECT_EQ(Bytes(u"serie.Equ"_s), "'un\r\nA=B/1,1\r\n'\r\nH2+O2=H2O/2,1,2");
}

TEST_F(AppendingAnEquation, AddsNoneThatCouldNotBeReadAgain)
{
    Write(u"serie.Equ"_s, "A=B/1,1");

    EXPECT_FALSE(EquationAppender::AppendEquation(Path(u"serie.Equ"_s), QString(8193, u'C')));

    EXPECT_EQ(Bytes(u"serie.Equ"_s), "A=B/1,1");
}

TEST_F(AppendingAnEquation, StartsWithALineEndInAnyFile)
{
    Write(u"vide.Equ"_s);
    EXPECT_TRUE(EquationAppender::AppendEquation(Path(u"vide.Equ"_s), u"A=B/1,1"_s));
    EXPECT_EQ(Bytes(u"vide.Equ"_s), "\r\n'\r\nA=B/1,1");

    Write(u"clos.Equ"_s, "A=B/1,1\r\n");
    EXPECT_TRUE(EquationAppender::AppendEquation(Path(u"clos.Equ"_s), u"C=D/1,1"_s));
    EXPECT_EQ(Bytes(u"clos.Equ"_s), "A=B/1,1\r\n\r\n'\r\nC=D/1,1");
}

TEST_F(AppendingAnEquation, MakesNoFile)
{
    EXPECT_FALSE(EquationAppender::AppendEquation(Path(u"absent.Equ"_s), u"A=B/1,1"_s));
    EXPECT_FALSE(QFile::exists(Path(u"absent.Equ"_s)));
}

TEST_F(AppendingAnEquation, TellsWhatCannotBeWritten)
{
    const auto written = EquationAppender::AppendEquation(folder.path(), u"A=B/1,1"_s);
    ASSERT_FALSE(written);
    EXPECT_TRUE(written.Reason().contains(folder.path()));
}

TEST_F(AppendingLines, TellsThatAnotherProgramWritesTheFile)
{
    Write(u"serie.Equ"_s, "A=B/1,1\r\n");
    const FileLock other(Path(u"serie.Equ"_s), 0);
    ASSERT_TRUE(other.IsHeld());

    const auto written = EquationAppender::AppendLines(Path(u"serie.Equ"_s), {"C=D/1,1"});

    ASSERT_FALSE(written);
    EXPECT_EQ(written.Reason(),
              u"Le fichier %1 n'a pas pu être complété :\nun autre programme l'écrit en ce moment"_s.arg(
                  Path(u"serie.Equ"_s)));
    EXPECT_EQ(Bytes(u"serie.Equ"_s), "A=B/1,1\r\n");
}

TEST_F(AppendingAnEquation, TellsThatAnotherProgramWritesTheFile)
{
    Write(u"serie.Equ"_s, "A=B/1,1\r\n");
    const FileLock other(Path(u"serie.Equ"_s), 0);
    ASSERT_TRUE(other.IsHeld());

    const auto written = EquationAppender::AppendEquation(Path(u"serie.Equ"_s), u"C=D/1,1"_s);

    ASSERT_FALSE(written);
    EXPECT_TRUE(written.Reason().contains(u"un autre programme l'écrit en ce moment"_s));
    EXPECT_EQ(Bytes(u"serie.Equ"_s), "A=B/1,1\r\n");
}

} // namespace stoikal
