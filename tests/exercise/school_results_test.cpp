#include "exercise/high_score_file.h"
#include "exercise/results_journal.h"

#include "base/file_access.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"
#include "support/school.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The folder in which the accounts of a machine work together: each takes away and
/// renames its own files alone.
class SchoolResults : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!school.IsPlayable())
            GTEST_SKIP() << School::WhyNot();
    }

    /// Whether an account's result comes into the table.
    bool Record(uid_t account, const QString& name, double mark) const
    {
        const AsAccount pupil(account);
        const auto section = HighScoreFile(school.shared).Record(u"a.equ"_s, {name, mark, 60}, u',');
        return section.Succeeded();
    }

    QString Table() const { return QString::fromLatin1(BytesOfFile(school.Path(u"HighScore.txt"_s))); }

    void WriteAnswer(uid_t account, const QString& line) const
    {
        const AsAccount pupil(account);
        ResultsJournal journal;
        ASSERT_TRUE(journal.Open(school.Path(u"Resultat.txt"_s)));
        EXPECT_TRUE(journal.WriteLines({line}));
    }

    const School school{03770};
};

} // namespace

TEST_F(SchoolResults, RecordsOfTwoPupilsStandInOneTable)
{
    for (const mode_t mask : {0022U, 0077U, 0002U}) {
        const WithMask with(mask);
        const School place(03770);
        {
            const AsAccount pupil(kPupilA);
            ASSERT_TRUE(HighScoreFile(place.shared).Record(u"a.equ"_s, {u"Anna"_s, 12, 60}, u','));
        }
        {
            const AsAccount pupil(kPupilB);
            ASSERT_TRUE(HighScoreFile(place.shared).Record(u"a.equ"_s, {u"Bruno"_s, 15, 60}, u','));
        }

        EXPECT_EQ(BytesOfFile(place.Path(u"HighScore.txt"_s)),
                  QByteArray("#a.equ\r\nBruno\xA9"
                             "15\xA9"
                             "60\r\nAnna\xA9"
                             "12\xA9"
                             "60\r\n"))
            << mask;
        EXPECT_EQ(place.OwnerOf(u"HighScore.txt"_s), kPupilA);
    }
}

TEST_F(SchoolResults, TableGoesOnWhoeverRecords)
{
    ASSERT_TRUE(Record(kPupilA, u"A1"_s, 1));
    ASSERT_TRUE(Record(kPupilB, u"B2"_s, 2));
    ASSERT_TRUE(Record(kTeacher, u"P3"_s, 3));
    ASSERT_TRUE(Record(kPupilA, u"A4"_s, 4));
    ASSERT_TRUE(Record(kPupilB, u"B5"_s, 5));

    EXPECT_EQ(Table(), u"#a.equ\r\nB5©5©60\r\nA4©4©60\r\nP3©3©60\r\nB2©2©60\r\nA1©1©60\r\n"_s);
    EXPECT_EQ(QDir(school.shared).entryList(QDir::Files | QDir::Hidden), QStringList{u"HighScore.txt"_s});
}

TEST_F(SchoolResults, LeftoverOfAnotherAccountIsTakenOver)
{
    // Empty, as an account leaves it that may not take it away, and torn by a cut.
    for (const QByteArray& left : {QByteArray(), QByteArray("#a.equ\r\nAn")}) {
        ASSERT_TRUE(Record(kPupilA, u"Anna"_s, 12));
        {
            const AsAccount pupil(kPupilA);
            WriteBytes(school.Path(u"HighScore_Temp.txt"_s), left);
            ASSERT_EQ(::chmod(qPrintable(school.Path(u"HighScore_Temp.txt"_s)), 0664), 0);
        }

        EXPECT_TRUE(Record(kPupilB, u"Bruno"_s, 15));

        EXPECT_EQ(BytesOfFile(school.Path(u"HighScore_Temp.txt"_s)), QByteArray());
        EXPECT_TRUE(Table().startsWith(u"#a.equ\r\nBruno©15©60\r\n"_s)) << Table().toStdString();
    }
}

TEST_F(SchoolResults, LockThatAnotherAccountLeftIsUsed)
{
    {
        const AsAccount pupil(kPupilA);
        WriteBytes(school.Path(u"HighScore.txt.lock"_s), "1234");
        ASSERT_EQ(::chmod(qPrintable(school.Path(u"HighScore.txt.lock"_s)), 0666), 0);
    }

    EXPECT_TRUE(Record(kPupilB, u"Bruno"_s, 15));
}

TEST_F(SchoolResults, PupilNeitherTakesAwayNorRenamesAnothersFiles)
{
    ASSERT_TRUE(Record(kPupilA, u"Anna"_s, 12));
    WriteAnswer(kPupilA, u"Anna"_s);

    for (const QString& name : {u"HighScore.txt"_s, u"Resultat.txt"_s}) {
        EXPECT_FALSE(school.TakesAway(kPupilB, name)) << name.toStdString();
        EXPECT_FALSE(school.Renames(kPupilB, name)) << name.toStdString();
    }
}

TEST_F(SchoolResults, AnswersOfTwoPupilsStandInOneJournal)
{
    const WithMask with(0077);
    WriteAnswer(kPupilA, u"de A"_s);
    WriteAnswer(kPupilB, u"de B"_s);
    WriteAnswer(kPupilA, u"encore A"_s);

    EXPECT_EQ(BytesOfFile(school.Path(u"Resultat.txt"_s)), QByteArray("de A\r\nde B\r\nencore A\r\n"));
    const AsAccount teacher(kTeacher);
    EXPECT_TRUE(OpenForReading(school.Path(u"Resultat.txt"_s), Links::Refused));
}

TEST_F(SchoolResults, JournalOfOneStartIsItsAccountsAndTheTeachersToRead)
{
    for (const mode_t mask : {0022U, 0077U, 0000U}) {
        const WithMask with(mask);
        // A folder into which pupils only put files, and do not look.
        const School deposit(03730);
        const QString name = u"EQU_anna_5_3_2016_14_7.txt"_s;
        {
            const AsAccount pupil(kPupilA);
            ResultsJournal journal;
            ASSERT_TRUE(journal.Open(deposit.Path(name), Sharing::FolderReads));
            EXPECT_TRUE(journal.WriteLines({u"de A"_s}));
        }

        EXPECT_EQ(deposit.RightsOf(name), 0644U) << mask;
        EXPECT_FALSE(deposit.MayOpen(kPupilB, name, O_WRONLY)) << mask;
        EXPECT_FALSE(deposit.Renames(kPupilB, name)) << mask;
        EXPECT_FALSE(deposit.TakesAway(kPupilB, name)) << mask;
        EXPECT_FALSE(deposit.MayOpen(kPupilB, u"."_s, O_RDONLY | O_DIRECTORY)) << mask;
        EXPECT_TRUE(deposit.MayOpen(kTeacher, name, O_RDONLY)) << mask;
        EXPECT_TRUE(deposit.TakesAway(kTeacher, name)) << mask;
    }
}

TEST_F(SchoolResults, JournalThatAnotherPupilPutThereIsNotWrittenTo)
{
    const School deposit(03730);
    const QString name = u"EQU_anna_5_3_2016_14_7.txt"_s;
    {
        const AsAccount pupil(kPupilB);
        WriteBytes(deposit.Path(name), "");
        ASSERT_EQ(::chmod(qPrintable(deposit.Path(name)), 0666), 0);
    }
    const AsAccount pupil(kPupilA);
    ResultsJournal journal;

    const auto opened = journal.Open(deposit.Path(name), Sharing::FolderReads);

    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.Reason(), u"ce fichier appartient à un autre compte"_s);
}

TEST_F(SchoolResults, TeacherEmptiesTheJournalOfAll)
{
    // The folder is his, or the superuser's as the package makes it.
    for (const uid_t owner : {kTeacher, uid_t{0}}) {
        const School place(03770, owner);
        {
            const AsAccount pupil(kPupilA);
            ResultsJournal journal;
            ASSERT_TRUE(journal.Open(place.Path(u"Resultat.txt"_s)));
            EXPECT_TRUE(journal.WriteLines({u"de A"_s}));
        }
        const AsAccount teacher(kTeacher);

        EXPECT_TRUE(EmptyFile(place.Path(u"Resultat.txt"_s)));

        EXPECT_EQ(QFile::exists(place.Path(u"Resultat.txt"_s)), owner == 0);
        EXPECT_NE(BytesOfFile(place.Path(u"Resultat.txt"_s)), QByteArray("de A\r\n"));
    }
}

} // namespace stoikal
