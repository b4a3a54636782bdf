#include "exercise/journal_lines.h"
#include "exercise/results_journal.h"

#include "journal_folder.h"
#include "support/file_size_limit.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A disk that takes a given number of bytes, then no more.
class LimitedJournal final : public ResultsJournal
{
public:
    qint64 room = 0;
    int calls = 0;

protected:
    qint64 WriteBytes(const char* bytes, qint64 count) override
    {
        ++calls;
        const qint64 taken = std::min(room, count);
        if (taken == 0)
            return -1;
        room -= taken;
        return ResultsJournal::WriteBytes(bytes, taken);
    }
};

/// Water from hydrogen and oxygen, answered as the file has it.
std::array<JournalTerm, 6> Water()
{
    return {{{u"2"_s, u"H2"_s, 2}, {u"1"_s, u"O2"_s, 1}, {}, {u"2"_s, u"H2O"_s, 2}, {}, {}}};
}

} // namespace

TEST(JournalLines, IdentityBeginsWithAnEmptyLineAndStars)
{
    const QStringList lines = IdentityLines(u"DUPONT"_s, u"Paul"_s, u"3B"_s);

    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[0], QString());
    EXPECT_EQ(lines[1], u"**************************************"_s);
    EXPECT_EQ(lines[1].size(), 38);
    EXPECT_EQ(lines[2], u"Nom élève :DUPONT"_s);
    EXPECT_EQ(lines[3], u"Prénom élève :Paul"_s);
    EXPECT_EQ(lines[4], u"Classe élève :3B"_s);
}

TEST(JournalLines, IdentityStandsAsTyped)
{
    EXPECT_EQ(IdentityLines(u" de la Tour "_s, u"%1"_s, QString()).mid(2),
              QStringList({u"Nom élève : de la Tour "_s, u"Prénom élève :%1"_s, u"Classe élève :"_s}));
}

TEST(JournalLines, HeaderTellsFileCountDayAndHour)
{
    const QDateTime now(QDate(2016, 3, 5), QTime(14, 7, 12));

    const QStringList lines = HeaderLines(u"Serie1.Equ"_s, 2, now);

    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], u"**************************************"_s);
    EXPECT_EQ(lines[1], u"Nom du fichier : Serie1.Equ - 2 équations"_s);
    EXPECT_EQ(lines[2], u"Jour et Heure :05/03/2016 14:07:12"_s);
    EXPECT_EQ(lines[3], u"--------------------------------------"_s);
    EXPECT_EQ(lines[3].size(), 38);
}

TEST(JournalLines, HeaderKeepsSignsOfATitleAndShowsLargeCountsPlain)
{
    const QDateTime midnight(QDate(2024, 12, 31), QTime(0, 0, 0));

    const QStringList lines = HeaderLines(u"100%1 %2.Equ"_s, 1234, midnight);

    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[1], u"Nom du fichier : 100%1 %2.Equ - 1234 équations"_s);
    EXPECT_EQ(lines[2], u"Jour et Heure :31/12/2024 00:00:00"_s);
}

TEST(JournalLines, AnswerStandsOnTwoLines)
{
    EXPECT_EQ(AnswerLines(1, Water(), 5),
              QStringList({u"  N°1 : "_s, u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s}));
}

TEST(JournalLines, AnswerOtherThanTheFileIsFaux)
{
    std::array<JournalTerm, 6> terms = Water();
    terms[0].coefficient = u"4"_s; // 4, 2, 4 balances but is not what the file says.
    terms[1].coefficient = u"2"_s;
    terms[3].coefficient = u"4"_s;

    EXPECT_EQ(AnswerLines(12, terms, 0),
              QStringList({u"  N°12 : "_s, u"4 H2 + 2 O2 ---> 4 H2O : FAUX - Score : 0"_s}));
}

TEST(JournalLines, EmptyBoxCountsOneAndPrintsNothing)
{
    std::array<JournalTerm, 6> terms = Water();
    terms[1].coefficient = QString();

    EXPECT_EQ(AnswerLines(1, terms, 5).value(1), u"2 H2 +  O2 ---> 2 H2O : CORRECT - Score : 5"_s);
}

TEST(JournalLines, EmptyBoxIsFauxWhereTheFileSaysTwo)
{
    std::array<JournalTerm, 6> terms = Water();
    terms[0].coefficient = QString();

    EXPECT_EQ(AnswerLines(1, terms, 3).value(1), u" H2 + 1 O2 ---> 2 H2O : FAUX - Score : 3"_s);
}

TEST(JournalLines, EmptySecondReactantStillPrintsItsPlaceAndItsHiddenBox)
{
    // Plus sign, the box's "1", the blank, and the empty formula before " ---> ".
    const std::array<JournalTerm, 6> terms{{{u"2"_s, u"H2O2"_s, 2},
                                            {u"1"_s, QString(), 0},
                                            {},
                                            {u"2"_s, u"H2O"_s, 2},
                                            {u"1"_s, u"O2"_s, 1},
                                            {}}};

    EXPECT_EQ(AnswerLines(3, terms, 10).value(1), u"2 H2O2 + 1  ---> 2 H2O + 1 O2 : CORRECT - Score : 10"_s);
}

TEST(JournalLines, HiddenBoxesTakeNoPartInTheComparison)
{
    std::array<JournalTerm, 6> terms = Water();
    terms[2].coefficient = u"7"_s; // Coefficient 0 in the file: ignored.

    EXPECT_EQ(AnswerLines(1, terms, 5).value(1), u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s);
}

TEST(JournalLines, SixTermsStandWithPlusSignsAndOneArrow)
{
    const std::array<JournalTerm, 6> terms{{{u"1"_s, u"A"_s, 1},
                                            {u"2"_s, u"B"_s, 2},
                                            {u"3"_s, u"Fe3+"_s, 3},
                                            {u"4"_s, u"D"_s, 4},
                                            {u"5"_s, u"E"_s, 5},
                                            {u"6"_s, u"F"_s, 5}}};

    EXPECT_EQ(AnswerLines(2, terms, 8).value(1),
              u"1 A + 2 B + 3 Fe3+ ---> 4 D + 5 E + 6 F : FAUX - Score : 8"_s);
}

TEST(JournalLines, SixthTermStandsOnlyBehindAFifth)
{
    std::array<JournalTerm, 6> terms = Water();
    terms[5] = {u"1"_s, u"O3"_s, 1};

    EXPECT_EQ(AnswerLines(1, terms, 5).value(1), u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s);
}

TEST(JournalLines, MarkLineHasTwoPlacesOnEitherSide)
{
    EXPECT_EQ(MarkLine(20, 12.3, u','), u" -------> Note : 20,00/20 - Temps écoulé : 12,30 s"_s);
    EXPECT_EQ(MarkLine(140.0 / 15.0, 5, u'.'), u" -------> Note : 09.33/20 - Temps écoulé : 05.00 s"_s);
    EXPECT_EQ(MarkLine(0, 1234.567, u','), u" -------> Note : 00,00/20 - Temps écoulé : 1234,57 s"_s);
}

TEST(ResultsJournal, HoldsTheWorkOfOnePupilAndOneEquation)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));

    EXPECT_TRUE(journal.WriteLines(IdentityLines(u"DUPONT"_s, u"Paul"_s, u"3B"_s)));
    EXPECT_TRUE(
        journal.WriteLines(HeaderLines(u"Serie1.Equ"_s, 2, QDateTime(QDate(2016, 3, 5), QTime(14, 7, 12)))));
    EXPECT_TRUE(journal.WriteLines(AnswerLines(1, Water(), 5)));
    EXPECT_TRUE(journal.WriteLines({MarkLine(20, 12.3, u',')}));

    // The Latin-1 bytes of these letters are those of Windows-1252.
    EXPECT_EQ(
        QString::fromLatin1(place.Content()).split(u"\r\n"_s),
        QStringList({u""_s, u"**************************************"_s, u"Nom élève :DUPONT"_s,
                     u"Prénom élève :Paul"_s, u"Classe élève :3B"_s,
                     u"**************************************"_s,
                     u"Nom du fichier : Serie1.Equ - 2 équations"_s, u"Jour et Heure :05/03/2016 14:07:12"_s,
                     u"--------------------------------------"_s, u"  N°1 : "_s,
                     u"2 H2 + 1 O2 ---> 2 H2O : CORRECT - Score : 5"_s,
                     u" -------> Note : 20,00/20 - Temps écoulé : 12,30 s"_s, u""_s}));
}

TEST(ResultsJournal, WritesALineOutsideThePageInUtf8)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));

    EXPECT_TRUE(journal.WriteLines({u"Nom élève :Łukasz"_s, u"Prénom élève :é"_s}));

    EXPECT_EQ(place.Content().toStdString(),
              "Nom \xC3\xA9l\xC3\xA8ve :\xC5\x81ukasz\r\nPr\xE9nom \xE9l\xE8ve :\xE9\r\n");
}

TEST(ResultsJournal, LetsNoNameForgeALine)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));

    const QDateTime now(QDate(2016, 3, 5), QTime(14, 7, 12));
    EXPECT_TRUE(journal.WriteLines(HeaderLines(u"A\r\n -------> Note : 20.00\u2028B.Equ"_s, 2, now)));

    EXPECT_EQ(QString::fromLatin1(place.Content()).split(u"\r\n"_s).value(1),
              u"Nom du fichier : A   -------> Note : 20.00 B.Equ - 2 équations"_s);
    EXPECT_EQ(place.Content().count('\n'), 4);
}

TEST(ResultsJournal, GoesOnOnALineOfItsOwnBehindATornOne)
{
    for (const QByteArray& torn : {QByteArray("whole\r\ncut of"), QByteArray("whole\r\n\0\0\0", 10)}) {
        JournalFolder place;
        WriteBytes(place.path, torn);
        ResultsJournal journal;
        ASSERT_TRUE(journal.Open(place.path));

        EXPECT_TRUE(journal.HadTornEnd());
        EXPECT_TRUE(journal.WriteLines({u"next"_s}));
        EXPECT_EQ(place.Content(), torn + "\r\nnext\r\n");
    }
}

TEST(ResultsJournal, FindsNoTornEndInAWholeAnEmptyOrANewFile)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_FALSE(journal.HadTornEnd());
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_FALSE(journal.HadTornEnd());
    EXPECT_TRUE(journal.WriteLines({u"whole"_s}));
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_FALSE(journal.HadTornEnd());
}

TEST(ResultsJournal, StandsInTheFileAtOnce)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));

    EXPECT_TRUE(journal.WriteLines({u"first"_s}));
    EXPECT_EQ(place.Content().toStdString(), "first\r\n");
    EXPECT_TRUE(journal.WriteLines({u"second"_s}));
    EXPECT_EQ(place.Content().toStdString(), "first\r\nsecond\r\n");
}

TEST(ResultsJournal, AppendsToWhatIsThere)
{
    JournalFolder place;
    for (const QString& line : {u"morning"_s, u"afternoon"_s}) {
        ResultsJournal journal;
        ASSERT_TRUE(journal.Open(place.path));
        EXPECT_TRUE(journal.WriteLines({line}));
        EXPECT_TRUE(journal.Close());
    }

    EXPECT_EQ(place.Content().toStdString(), "morning\r\nafternoon\r\n");
}

TEST(ResultsJournal, SharesTheFileWithAnotherProgram)
{
    JournalFolder place;
    ResultsJournal one;
    ResultsJournal other;
    ASSERT_TRUE(one.Open(place.path));
    ASSERT_TRUE(other.Open(place.path));

    EXPECT_TRUE(one.WriteLines({u"a"_s}));
    EXPECT_TRUE(other.WriteLines({u"b"_s}));
    EXPECT_TRUE(one.WriteLines({u"c"_s}));

    EXPECT_EQ(place.Content().toStdString(), "a\r\nb\r\nc\r\n");
}

TEST(ResultsJournal, OpeningMakesTheFile)
{
    JournalFolder place;
    ResultsJournal journal;

    const auto outcome = journal.Open(place.path);

    ASSERT_TRUE(outcome);
    EXPECT_EQ(*outcome, place.path);
    EXPECT_TRUE(journal.IsOpen());
    EXPECT_EQ(journal.Path(), place.path);
    EXPECT_EQ(place.Content().toStdString(), "");
}

TEST(ResultsJournal, OpeningDoesNotMakeTheFolder)
{
    JournalFolder place;
    ResultsJournal journal;
    const QString path = place.folder.filePath(u"depot/Resultat.txt"_s);

    const auto outcome = journal.Open(path);

    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.Reason(), u"le fichier ou le dossier n'existe pas"_s);
    EXPECT_FALSE(journal.IsOpen());
    EXPECT_FALSE(QDir(place.folder.filePath(u"depot"_s)).exists());
}

TEST(ResultsJournal, RefusesAFolderInPlaceOfAFile)
{
    JournalFolder place;
    ASSERT_TRUE(QDir().mkdir(place.path));
    ResultsJournal journal;

    EXPECT_FALSE(journal.Open(place.path));
    EXPECT_FALSE(journal.IsOpen());
}

TEST(ResultsJournal, OpensAnewAfterTheFileWasTakenAway)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.WriteLines({u"old"_s}));

    EXPECT_TRUE(journal.Close());
    ASSERT_TRUE(QFile::remove(place.path));
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.WriteLines({u"new"_s}));

    EXPECT_EQ(place.Content().toStdString(), "new\r\n");
}

TEST(ResultsJournal, OpeningASecondFileClosesTheFirst)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.folder.filePath(u"other.txt"_s)));

    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.WriteLines({u"here"_s}));

    EXPECT_EQ(place.Content().toStdString(), "here\r\n");
    EXPECT_EQ(QFileInfo(place.folder.filePath(u"other.txt"_s)).size(), 0);
}

TEST(ResultsJournal, HandsAllLinesOfACallOverInOneWrite)
{
    JournalFolder place;
    LimitedJournal journal;
    journal.room = 1000;
    ASSERT_TRUE(journal.Open(place.path));

    EXPECT_TRUE(journal.WriteLines({u"one"_s, u"two"_s, u"three"_s}));

    EXPECT_EQ(journal.calls, 1);
    EXPECT_EQ(place.Content().toStdString(), "one\r\ntwo\r\nthree\r\n");
}

TEST(ResultsJournal, KeepsWhatAFullDiskRefuses)
{
    const JournalFolder place;
    const FullFile full(place.path);
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));

    EXPECT_FALSE(journal.WriteLines({u"abc"_s}));
    EXPECT_EQ(journal.PendingBytes(), 5); // Three letters and the line end.
    EXPECT_FALSE(journal.WriteLines({u"d"_s}));
    EXPECT_EQ(journal.PendingBytes(), 8);
    EXPECT_FALSE(journal.Close());
    EXPECT_EQ(journal.PendingBytes(), 8);
}

TEST(ResultsJournal, WritesTheRestBeforeTheNextLines)
{
    JournalFolder place;
    LimitedJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    journal.room = 4;

    EXPECT_FALSE(journal.WriteLines({u"first"_s})); // 7 bytes, 4 taken.
    EXPECT_EQ(place.Content().toStdString(), "firs");
    EXPECT_EQ(journal.PendingBytes(), 3);

    EXPECT_FALSE(journal.WriteLines({u"second"_s})); // 3 + 8 bytes, none taken.
    EXPECT_EQ(journal.PendingBytes(), 11);

    journal.room = 1000;
    EXPECT_TRUE(journal.WriteLines({u"third"_s}));
    EXPECT_EQ(place.Content().toStdString(), "first\r\nsecond\r\nthird\r\n");
    EXPECT_EQ(journal.PendingBytes(), 0);
}

TEST(ResultsJournal, ClosingWritesTheRest)
{
    JournalFolder place;
    LimitedJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_FALSE(journal.WriteLines({u"late"_s}));

    journal.room = 1000;
    EXPECT_TRUE(journal.Close());

    EXPECT_EQ(place.Content().toStdString(), "late\r\n");
    EXPECT_FALSE(journal.IsOpen());
}

TEST(ResultsJournal, CarriesTheRestOverAClosing)
{
    JournalFolder place;
    LimitedJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    journal.room = 2;
    EXPECT_FALSE(journal.WriteLines({u"abcd"_s}));
    EXPECT_FALSE(journal.Close());

    journal.room = 1000;
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.WriteLines({}));

    EXPECT_EQ(place.Content().toStdString(), "abcd\r\n");
}

TEST(ResultsJournal, KeepsLinesGivenWhileClosed)
{
    JournalFolder place;
    ResultsJournal journal;

    EXPECT_FALSE(journal.WriteLines({u"early"_s}));
    EXPECT_EQ(journal.PendingBytes(), 7);
    ASSERT_TRUE(journal.Open(place.path));
    EXPECT_TRUE(journal.WriteLines({u"later"_s}));

    EXPECT_EQ(place.Content().toStdString(), "early\r\nlater\r\n");
}

TEST(ResultsJournal, WritesNothingTwiceWhateverTheDiskTakesAtATime)
{
    // Every size of a bite from 1 to 20 bytes, until the 3 x 10 bytes are out.
    for (qint64 bite = 1; bite <= 20; ++bite) {
        JournalFolder place;
        LimitedJournal journal;
        ASSERT_TRUE(journal.Open(place.path));
        for (const QString& line : {u"aaaaaaaa"_s, u"bbbbbbbb"_s, u"cccccccc"_s}) {
            journal.room = bite;
            journal.WriteLines({line});
        }
        for (int i = 0; i < 30; ++i) {
            journal.room = bite;
            journal.WriteLines({});
        }
        EXPECT_EQ(place.Content().toStdString(), "aaaaaaaa\r\nbbbbbbbb\r\ncccccccc\r\n") << bite;
    }
}

TEST(ResultsJournal, SeesAShortWriteOfTheSystem)
{
    JournalFolder place;
    ResultsJournal journal;
    ASSERT_TRUE(journal.Open(place.path));
    LimitFileSize(10);
    EXPECT_TRUE(journal.WriteLines({u"123456"_s})); // 8 bytes stand.
    EXPECT_FALSE(journal.WriteLines({u"abcdef"_s})); // 2 of 8 fit.
    EXPECT_EQ(journal.PendingBytes(), 6);
    LimitFileSize(RLIM_INFINITY);
    EXPECT_EQ(place.Content().toStdString(), "123456\r\nab");

    EXPECT_TRUE(journal.WriteLines({u"end"_s}));
    EXPECT_EQ(place.Content().toStdString(), "123456\r\nabcdef\r\nend\r\n");
}

TEST(ResultsJournal, DestructionWritesTheRest)
{
    JournalFolder place;
    {
        ResultsJournal journal;
        ASSERT_TRUE(journal.Open(place.path));
        LimitFileSize(3);
        EXPECT_FALSE(journal.WriteLines({u"abcd"_s}));
        EXPECT_EQ(journal.PendingBytes(), 3);
        LimitFileSize(RLIM_INFINITY);
    }
    EXPECT_EQ(place.Content().toStdString(), "abcd\r\n");
}

TEST(ResultsJournal, NewFileOfASharedFolderIsOpenToItsAccounts)
{
    JournalFolder place;
    ASSERT_EQ(::chmod(qPrintable(place.folder.path()), 0777), 0);
    ResultsJournal journal;

    ASSERT_TRUE(journal.Open(place.path));

    const QFileDevice::Permissions permissions = QFile::permissions(place.path);
    EXPECT_TRUE(permissions.testFlag(QFileDevice::WriteGroup));
    EXPECT_TRUE(permissions.testFlag(QFileDevice::WriteOther));
}

TEST(ResultsJournal, NewFileOfAPrivateFolderStaysPrivate)
{
    JournalFolder place; // Made with rights for its owner only.
    ResultsJournal journal;

    ASSERT_TRUE(journal.Open(place.path));

    EXPECT_FALSE(QFile::permissions(place.path).testFlag(QFileDevice::WriteOther));
}

} // namespace stoikal
