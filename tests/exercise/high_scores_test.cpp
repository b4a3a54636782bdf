#include "exercise/high_scores.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QStringList Texts(const HighScoreTable& table, QChar separator = u'.')
{
    QStringList texts;
    for (const HighScoreTable::Line& line : table.Lines(separator))
        texts << line.text;
    return texts;
}

/// The lines of the new text after one result.
QStringList After(const QStringList& lines, const QString& title, const NewResult& result,
                  QChar separator = u'.')
{
    HighScoreTable table(lines, title);
    table.Insert(result);
    return Texts(table, separator);
}

const QStringList& TwoFiles()
{
    static const QStringList lines{u"#chimie1.equ"_s, u"Dupont©18©74.23"_s, u"Martin©12.5©80.1"_s,
                                   u"#acide.equ"_s, u"Durand©20©51.33"_s};
    return lines;
}

/// Ten records with the marks 20, 19, ... 11 and the time 100.
QStringList TenRecords()
{
    QStringList lines{u"#a.equ"_s};
    for (int i = 0; i < 10; ++i)
        lines << u"P%1©%2©100"_s.arg(i).arg(20 - i);
    return lines;
}

} // namespace

TEST(HighScores, ReadsTheRecordsOfOneSection)
{
    const HighScoreTable table(TwoFiles(), u"chimie1.equ"_s);

    ASSERT_EQ(table.Section().size(), 2U);
    EXPECT_EQ(table.Section()[0].name, u"Dupont"_s);
    EXPECT_EQ(table.Section()[0].mark, 18.0F);
    EXPECT_EQ(table.Section()[0].seconds, 74.23F);
    EXPECT_EQ(table.Section()[1].name, u"Martin"_s);
    EXPECT_EQ(table.Section()[1].mark, 12.5F);
    EXPECT_EQ(table.Section()[1].seconds, 80.1F);
}

TEST(HighScores, LastSectionReachesToTheEnd)
{
    const HighScoreTable table(TwoFiles(), u"acide.equ"_s);

    ASSERT_EQ(table.Section().size(), 1U);
    EXPECT_EQ(table.Section()[0].name, u"Durand"_s);
}

TEST(HighScores, ComparesHeadersWithoutRegardToCase)
{
    EXPECT_EQ(HighScoreTable(TwoFiles(), u"CHIMIE1.Equ"_s).Section().size(), 2U);
    EXPECT_EQ(HighScoreTable({u"#ÉTÉ.equ"_s, u"A©1©2"_s}, u"été.Equ"_s).Section().size(), 1U);
}

TEST(HighScores, ReadsACommaLikeAPoint)
{
    const HighScoreTable table({u"#a.equ"_s, u"Dupont©12,5©74,23"_s}, u"a.equ"_s);

    ASSERT_EQ(table.Section().size(), 1U);
    EXPECT_EQ(table.Section()[0].mark, 12.5F);
    EXPECT_EQ(table.Section()[0].seconds, 74.23F);
}

TEST(HighScores, CutsARecordAtItsFirstAndSecondSign)
{
    const HighScoreTable table({u"#a.equ"_s, u" Dupont ©12©7©9"_s}, u"a.equ"_s);

    ASSERT_EQ(table.Section().size(), 1U);
    EXPECT_EQ(table.Section()[0].name, u"Dupont"_s);
    EXPECT_EQ(table.Section()[0].mark, 12.0F);
    EXPECT_EQ(table.Section()[0].seconds, 7.0F);
}

TEST(HighScores, NewFileGetsItsSectionAtTheEnd)
{
    EXPECT_EQ(After(TwoFiles(), u"Serie1.Equ"_s, {u"Petit"_s, 10, 30}),
              TwoFiles() + QStringList({u"#Serie1.Equ"_s, u"Petit©10©30"_s}));
}

TEST(HighScores, EmptyTextGetsItsFirstSection)
{
    EXPECT_EQ(After({}, u"a.equ"_s, {u"Petit"_s, 10, 30.5}, u','),
              QStringList({u"#a.equ"_s, u"Petit©10©30,5"_s}));
}

TEST(HighScores, OtherSectionsAndUnknownLinesStay)
{
    const QStringList lines{u"a line before"_s, u"#x.equ"_s,    u"X©1,0©2,50"_s, u""_s,         u"#a.equ"_s,
                            u"A©5©6"_s,         u"no record"_s, u"#y.equ"_s,     u" Y ©1©2©3"_s};

    EXPECT_EQ(After(lines, u"a.equ"_s, {u"B"_s, 4, 9}),
              QStringList({u"a line before"_s, u"#x.equ"_s, u"X©1,0©2,50"_s, u""_s, u"#a.equ"_s, u"A©5©6"_s,
                           u"B©4©9"_s, u"no record"_s, u"#y.equ"_s, u" Y ©1©2©3"_s}));
}

TEST(HighScores, UnknownLinesTakeNoPlaceAmongTheTen)
{
    QStringList lines = TenRecords();
    lines.removeLast();
    lines.insert(1, u"no record"_s);

    const QStringList after = After(lines, u"a.equ"_s, {u"N"_s, 1, 1});

    EXPECT_EQ(after.size(), 12); // The header, ten records, the unknown line.
    EXPECT_EQ(after.value(10), u"N©1©1"_s);
    EXPECT_EQ(after.value(11), u"no record"_s);
}

TEST(HighScores, KeptLinesAreKnownByTheirPlace)
{
    HighScoreTable table(TwoFiles(), u"chimie1.equ"_s);
    table.Insert({u"Petit"_s, 1, 1});

    const std::vector<HighScoreTable::Line> lines = table.Lines(u'.');

    ASSERT_EQ(lines.size(), 6U); // Header and three records are new, lines 3 and 4 are kept.
    EXPECT_EQ(lines[3].keptFrom, -1);
    EXPECT_EQ(lines[4].keptFrom, 3);
    EXPECT_EQ(lines[5].keptFrom, 4);
}

TEST(HighScores, OnlyTheFirstOfTwoEqualHeadersIsUsed)
{
    EXPECT_EQ(After({u"#a.equ"_s, u"A©5©6"_s, u"#a.equ"_s, u"B©5©6"_s}, u"a.equ"_s, {u"C"_s, 9, 9}),
              QStringList({u"#a.equ"_s, u"C©9©9"_s, u"A©5©6"_s, u"#a.equ"_s, u"B©5©6"_s}));
}

TEST(HighScores, HigherMarkRanksFirst)
{
    EXPECT_EQ(After(TwoFiles(), u"chimie1.equ"_s, {u"Petit"_s, 15, 500}).value(2), u"Petit©15©500"_s);
}

TEST(HighScores, BestMarkRanksBeforeAll)
{
    EXPECT_EQ(After(TwoFiles(), u"chimie1.equ"_s, {u"Petit"_s, 19, 500}).value(1), u"Petit©19©500"_s);
}

TEST(HighScores, LowestMarkIsAppendedWhileThereIsRoom)
{
    EXPECT_EQ(After(TwoFiles(), u"chimie1.equ"_s, {u"Petit"_s, 2, 5}).value(3), u"Petit©2©5"_s);
}

TEST(HighScores, EqualMarksRankTheShorterTimeFirst)
{
    EXPECT_EQ(After(TwoFiles(), u"chimie1.equ"_s, {u"Petit"_s, 18, 74.22}).value(1), u"Petit©18©74.22"_s);
}

TEST(HighScores, EqualMarkAndTimeRankTheLaterComerBehind)
{
    const QStringList after = After(TwoFiles(), u"chimie1.equ"_s, {u"Petit"_s, 18, 74.23});

    EXPECT_EQ(after.value(1), u"Dupont©18©74.23"_s);
    EXPECT_EQ(after.value(2), u"Petit©18©74.23"_s);
}

TEST(HighScores, LongerTimeRanksBehindItsRunAndBeforeTheNextMark)
{
    const QStringList lines{u"#a.equ"_s, u"A©18©10"_s, u"B©18©20"_s, u"C©18©30"_s, u"D©5©1"_s};

    EXPECT_EQ(After(lines, u"a.equ"_s, {u"N"_s, 18, 25}).value(3), u"N©18©25"_s);
    EXPECT_EQ(After(lines, u"a.equ"_s, {u"N"_s, 18, 31}).value(4), u"N©18©31"_s);
}

TEST(HighScores, NewTimeIsComparedAsItIsAndStoredRounded)
{
    // 51.332 is shorter than 51.334, but that one is stored as 51.33, and 51.332 is not below 51.33.
    const QStringList first = After({}, u"a.equ"_s, {u"A"_s, 20, 51.334});
    EXPECT_EQ(first, QStringList({u"#a.equ"_s, u"A©20©51.33"_s}));
    EXPECT_EQ(After(first, u"a.equ"_s, {u"B"_s, 20, 51.332}),
              QStringList({u"#a.equ"_s, u"A©20©51.33"_s, u"B©20©51.33"_s}));

    // 51.328 reads 51.33 too, but is shorter.
    EXPECT_EQ(After(first, u"a.equ"_s, {u"B"_s, 20, 51.328}),
              QStringList({u"#a.equ"_s, u"B©20©51.33"_s, u"A©20©51.33"_s}));
}

TEST(HighScores, NewMarkIsComparedAndStoredRounded)
{
    // 7 of 15 points: 9.3333... is 9.33 and so equals the mark that stands; its time is shorter.
    EXPECT_EQ(After({u"#a.equ"_s, u"A©9.33©50"_s}, u"a.equ"_s, {u"B"_s, 140.0 / 15.0, 40}),
              QStringList({u"#a.equ"_s, u"B©9.33©40"_s, u"A©9.33©50"_s}));
    EXPECT_EQ(After({u"#a.equ"_s, u"A©9.33©50"_s}, u"a.equ"_s, {u"B"_s, 140.0 / 15.0, 60}),
              QStringList({u"#a.equ"_s, u"A©9.33©50"_s, u"B©9.33©60"_s}));
}

TEST(HighScores, MarkAndTimeRoundHalfAwayFromZero)
{
    EXPECT_EQ(After({}, u"a.equ"_s, {u"A"_s, 12.345, 74.235}),
              QStringList({u"#a.equ"_s, u"A©12.35©74.24"_s}));
}

TEST(HighScores, EleventhResultPushesTheTenthOut)
{
    const QStringList after = After(TenRecords(), u"a.equ"_s, {u"N"_s, 12.5, 1}); // Between 13 and 12.

    EXPECT_EQ(after.size(), 11);
    EXPECT_EQ(after.value(8), u"P7©13©100"_s);
    EXPECT_EQ(after.value(9), u"N©12.5©1"_s);
    EXPECT_EQ(after.value(10), u"P8©12©100"_s);
}

TEST(HighScores, EqualToTheTenthWithAWorseTimeIsNotStored)
{
    const NewResult late{u"N"_s, 11, 101};
    HighScoreTable table(TenRecords(), u"a.equ"_s);

    table.Insert(late);

    EXPECT_EQ(Texts(table), TenRecords());
    for (const HighScoreRow& row : HighScoreRows(table.Section(), late, u','))
        EXPECT_FALSE(row.isPupil) << row.name.toStdString();
}

TEST(HighScores, EqualToTheTenthWithABetterTimeTakesItsPlace)
{
    EXPECT_EQ(After(TenRecords(), u"a.equ"_s, {u"N"_s, 11, 99}).value(10), u"N©11©99"_s);
}

TEST(HighScores, EqualToTheNinthWithAWorseTimeIsTheTenth)
{
    const QStringList after = After(TenRecords(), u"a.equ"_s, {u"N"_s, 12, 101});

    EXPECT_EQ(after.size(), 11);
    EXPECT_EQ(after.value(9), u"P8©12©100"_s);
    EXPECT_EQ(after.value(10), u"N©12©101"_s);
}

TEST(HighScores, LowerThanTheTenthIsNotStored)
{
    EXPECT_EQ(After(TenRecords(), u"a.equ"_s, {u"N"_s, 10.99, 1}), TenRecords());
}

TEST(HighScores, NinthRecordLeavesRoomForATenth)
{
    QStringList lines = TenRecords();
    lines.removeLast();

    EXPECT_EQ(After(lines, u"a.equ"_s, {u"N"_s, 1, 1}), lines + QStringList({u"N©1©1"_s}));
}

TEST(HighScores, RecordsPastTheTenthAreDropped)
{
    const QStringList lines
        = TenRecords() + QStringList({u"P10©10©100"_s, u"P11©9©100"_s, u"#b.equ"_s, u"B©1©1"_s});

    EXPECT_EQ(HighScoreTable(lines, u"a.equ"_s).Section().size(), 10U);
    EXPECT_EQ(After(lines, u"a.equ"_s, {u"N"_s, 1, 1}),
              TenRecords() + QStringList({u"#b.equ"_s, u"B©1©1"_s}));
}

TEST(HighScores, HeaderWithoutRecordsStaysEmptyForEver)
{
    const QStringList lines{u"#a.equ"_s, u"#b.equ"_s, u"B©1©1"_s};
    HighScoreTable table(lines, u"a.equ"_s);

    table.Insert({u"N"_s, 20, 1});

    EXPECT_TRUE(table.Section().empty());
    EXPECT_EQ(Texts(table), lines);
}

TEST(HighScores, SameNameAndResultTwiceGivesTwoRecords)
{
    EXPECT_EQ(After({u"#a.equ"_s, u"A©5©6"_s}, u"a.equ"_s, {u"A"_s, 5, 6}),
              QStringList({u"#a.equ"_s, u"A©5©6"_s, u"A©5©6"_s}));
}

TEST(HighScores, SignBetweenFieldsIsStoredAsABlankInAName)
{
    EXPECT_EQ(After({}, u"a.equ"_s, {u"Du©pont"_s, 5, 6}).value(1), u"Du pont©5©6"_s);
}

TEST(HighScores, NameWithALeadingHeaderSignGetsABlankBeforeIt)
{
    const QStringList after = After({}, u"a.equ"_s, {u"#1"_s, 5, 6});
    EXPECT_EQ(after, QStringList({u"#a.equ"_s, u" #1©5©6"_s}));

    // And keeps it when the section is written again.
    EXPECT_EQ(After(after, u"a.equ"_s, {u"B"_s, 4, 6}), QStringList({u"#a.equ"_s, u" #1©5©6"_s, u"B©4©6"_s}));
}

TEST(HighScores, NameCannotBecomeAHeaderByTrimming)
{
    EXPECT_EQ(After({}, u"a.equ"_s, {u"  #1 "_s, 5, 6}).value(1), u" #1©5©6"_s);
    EXPECT_EQ(After({}, u"a.equ"_s, {u"©#1"_s, 5, 6}).value(1), u" #1©5©6"_s);
}

TEST(HighScores, NamesAreTrimmedWhenWritten)
{
    EXPECT_EQ(After({u"#a.equ"_s, u"  A  ©5©6"_s}, u"a.equ"_s, {u"  B "_s, 4, 6}),
              QStringList({u"#a.equ"_s, u"A©5©6"_s, u"B©4©6"_s}));
}

TEST(HighScores, NameStaysOnOneLine)
{
    EXPECT_EQ(After({}, u"a.equ"_s, {u"A\r\nB"_s, 4, 6}).value(1), u"A  B©4©6"_s);
}

TEST(HighScores, LongNameIsStoredWhole)
{
    EXPECT_EQ(After({}, u"a.equ"_s, {u"abcdefghijklmnopqrst"_s, 4, 6}).value(1),
              u"abcdefghijklmnopqrst©4©6"_s);
}

TEST(HighScores, HeaderIsWrittenTrimmedInTheSpellingOfTheOpenFile)
{
    EXPECT_EQ(After({u"#a.equ "_s, u"A©5©6"_s}, u"A.Equ "_s, {u"B"_s, 4, 6}).value(0), u"#A.Equ"_s);
}

TEST(HighScores, NumbersAreWrittenPlainlyWithTheSystemsSign)
{
    // 12.50 becomes 12,5 and 80.10 becomes 80,1; a whole number has no sign.
    EXPECT_EQ(After({u"#a.equ"_s, u"A©12.50©80.10"_s}, u"a.equ"_s, {u"B"_s, 12, 1234.5}, u','),
              QStringList({u"#a.equ"_s, u"A©12,5©80,1"_s, u"B©12©1234,5"_s}));
}

TEST(HighScores, SignThatCouldNotBeReadBackGivesWayToThePoint)
{
    EXPECT_EQ(After({}, u"a.equ"_s, {u"B"_s, 12.5, 6}, QChar(0x066B)).value(1), u"B©12.5©6"_s);
}

TEST(HighScores, NumberTooLargeForItsTypeStaysWritable)
{
    // Largest 32-bit float: (2 - 2^-23) * 2^127 = 3.4028235e38.
    const QString huge = u"A©"_s + QString(400, u'9') + u"©1"_s;

    const QString line = After({u"#a.equ"_s, huge}, u"a.equ"_s, {u"B"_s, 1, 1}).value(1);

    EXPECT_TRUE(line.startsWith(u"A©34028234"_s) || line.startsWith(u"A©34028235"_s)) << line.toStdString();
    EXPECT_EQ(line.indexOf(u'©', 2), 2 + 39); // 39 digits.
}

TEST(HighScoreRows, ShowNameMarkAndTime)
{
    const std::vector<HighScoreRow> rows
        = HighScoreRows({{u"DUPONT"_s, 18, 74.23F}, {u"martin"_s, 9.33F, 8}}, {u"x"_s, 1, 1}, u',');

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, u"Dupont"_s);
    EXPECT_EQ(rows[0].mark, u"18,00"_s);
    EXPECT_EQ(rows[0].time, u"74,23"_s);
    EXPECT_FALSE(rows[0].isPupil);
    EXPECT_EQ(rows[1].name, u"Martin"_s);
    EXPECT_EQ(rows[1].mark, u"09,33"_s);
    EXPECT_EQ(rows[1].time, u"08,00"_s);
}

TEST(HighScoreRows, CutALongNameToFifteenCharacters)
{
    const std::vector<HighScoreRow> rows = HighScoreRows({{u"ABCDEFGHIJKLMNOPQRST"_s, 18, 74}}, {}, u',');

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].name, u"Abcdefghijklmno"_s); // a to o are 15 letters.
}

TEST(HighScoreRows, DoNotCutACharacterInTwo)
{
    // 14 letters, then one character of two units.
    const std::vector<HighScoreRow> rows = HighScoreRows({{u"abcdefghijklmn\U0001F600"_s, 18, 74}}, {}, u',');

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].name, u"Abcdefghijklmn"_s);
}

TEST(HighScoreRows, CapitalAndSmallLettersKnowAccents)
{
    const std::vector<HighScoreRow> rows = HighScoreRows({{u"éLODIE-ÉVE"_s, 18, 74}}, {}, u',');

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].name, u"Élodie-éve"_s);
}

TEST(HighScoreRows, PupilIsKnownWhateverTheCase)
{
    const std::vector<HighScoreRow> rows
        = HighScoreRows({{u"Dupont"_s, 18, 74.23F}}, {u"DUPONT"_s, 18, 74.2312}, u',');

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_TRUE(rows[0].isPupil);
}

TEST(HighScoreRows, PupilNeedsNameMarkAndTime)
{
    const std::vector<HighScore> section{
        {u"Durand"_s, 18, 74}, {u"Dupont"_s, 17, 74}, {u"Dupont"_s, 18, 75}, {u"Dupont"_s, 18, 74}};

    const std::vector<HighScoreRow> rows = HighScoreRows(section, {u"Dupont"_s, 18, 74}, u',');

    ASSERT_EQ(rows.size(), 4U);
    EXPECT_FALSE(rows[0].isPupil);
    EXPECT_FALSE(rows[1].isPupil);
    EXPECT_FALSE(rows[2].isPupil);
    EXPECT_TRUE(rows[3].isPupil);
}

TEST(HighScoreRows, SameNameAndResultTwiceAreBothThePupils)
{
    const std::vector<HighScoreRow> rows
        = HighScoreRows({{u"Dupont"_s, 18, 74}, {u"Dupont"_s, 18, 74}}, {u"Dupont"_s, 18, 74}, u',');

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_TRUE(rows[0].isPupil);
    EXPECT_TRUE(rows[1].isPupil);
}

TEST(HighScoreRows, PupilIsKnownByTheNameAsItIsStored)
{
    const NewResult own{u" #Du©pont "_s, 140.0 / 15.0, 12.345};
    HighScoreTable table({}, u"a.equ"_s);
    table.Insert(own);
    const HighScoreTable readAgain(Texts(table), u"a.equ"_s);

    const std::vector<HighScoreRow> rows = HighScoreRows(readAgain.Section(), own, u',');

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_TRUE(rows[0].isPupil);
    EXPECT_EQ(rows[0].name, u"#du pont"_s);
    EXPECT_EQ(rows[0].mark, u"09,33"_s);
    EXPECT_EQ(rows[0].time, u"12,35"_s); // 12.345, half away from zero.
}

TEST(HighScoreRows, RoundOnTheShortestTextOfTheFloat)
{
    // The 32-bit float nearest 0.145 is 0.14499999582767487, and its text is 0.145.
    const std::vector<HighScoreRow> rows = HighScoreRows({{u"A"_s, 0.145F, 1}}, {}, u',');

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].mark, u"00,15"_s);
}

} // namespace stoikal
