#include "exercise/high_score_file.h"

#include "base/file_lock.h"

#include "base/text_lines.h"
#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/ordinary_user.h"
#include "support/qt_printers.h"
#include "support/reachable_folder.h"
#include "support/waiting_program.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A folder for one test, and the high-score file in it.
struct ScoreFolder {
    /// The file lies in the folder itself or in one below, which is not made.
    explicit ScoreFolder(const QString& below = QString())
        : name(folder.path() + below)
    {
    }

    ReachableFolder folder;
    QString name;
    QString path = name + u"/HighScore.txt"_s;
    QString temporaryPath = name + u"/HighScore_Temp.txt"_s;
    HighScoreFile file = HighScoreFile(name);

    /// Records a result that must be refused with the text of the path error.
    void ExpectPathError()
    {
        const auto section = file.Record(u"a.equ"_s, {u"N"_s, 20, 1}, u',');
        ASSERT_FALSE(section);
        EXPECT_EQ(section.Reason(),
                  u"Erreur sur le chemin d'accés des fichiers :\n"_s + path + u"\n"_s + temporaryPath);
    }

    void ExpectPathErrorAsOrdinaryUser()
    {
        if (!folder.IsReachable())
            GTEST_SKIP() << ReachableFolder::WhyNot();
        const AsOrdinaryUser user;
        ASSERT_TRUE(user.IsOrdinary());
        ExpectPathError();
    }

    static bool Allow(const QString& of, mode_t rights) { return ::chmod(qPrintable(of), rights) == 0; }

    /// The bytes of the file, each as the Latin-1 character of its number.
    QString Text() const { return QString::fromLatin1(BytesOfFile(path)); }

    /// Writes the file from such a text.
    bool Put(const QString& text) const
    {
        QFile writer(path);
        return writer.open(QIODevice::WriteOnly) && writer.write(text.toLatin1()) == text.size();
    }

    QStringList Entries() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    auto Section(const QString& title) const
    {
        return HighScoreTable(DecodeLines(Text().toLatin1()), title).Section();
    }
};

/// Another program that records one result and confirms it.
struct Writer final : WaitingProgram {
    Writer(const QString& folder, const QString& title, const QString& name, double mark, double seconds)
        : WaitingProgram(QStringLiteral(STOIKAL_HIGH_SCORE_WRITER),
                         {folder, title, name, QString::number(mark), QString::number(seconds)})
    {
    }

    bool HasConfirmed() const { return HasSaid("recorded"); }
};

class HighScorePrograms : public ProgramsTest
{
protected:
    /// Runs thirty programs that record at the same moment: number i (0 to 29)
    /// has the mark i / 2, and all must confirm.
    void RecordThirty(const std::function<QString(int)>& titleOf)
    {
        std::vector<std::unique_ptr<Writer>> writers;
        for (int i = 0; i < kPrograms; ++i)
            writers.push_back(std::make_unique<Writer>(m_place.folder.path(), titleOf(i), u"Pupil%1"_s.arg(i),
                                                       i / 2.0, 10.0 + i));
        for (const auto& writer : writers)
            ASSERT_TRUE(writer->WaitUntilReady()) << writer->Errors();
        for (const auto& writer : writers)
            writer->Go();
        for (const auto& writer : writers) {
            ASSERT_TRUE(writer->WaitForEnd());
            EXPECT_TRUE(writer->HasConfirmed()) << writer->Errors();
        }
    }

    static constexpr int kPrograms = 30;
    ScoreFolder m_place;
};

} // namespace

TEST(HighScoreFile, MakesTheFileWithTheFirstRecord)
{
    ScoreFolder place;

    const auto section = place.file.Record(u"chimie1.equ"_s, {u"Élodie"_s, 18, 74.23}, u',');

    ASSERT_TRUE(section) << section.Reason().toStdString();
    ASSERT_EQ(section->size(), 1U);
    EXPECT_EQ(section->front().mark, 18.0F);
    EXPECT_EQ(section->front().seconds, 74.23F);
    // In Windows-1252 É is C9 and the sign between the fields is A9.
    EXPECT_EQ(place.Text(), u"#chimie1.equ\r\nÉlodie©18©74,23\r\n"_s);
}

TEST(HighScoreFile, ReturnsTheSectionAsItStandsAfterwards)
{
    ScoreFolder place;
    ASSERT_TRUE(place.file.Record(u"a.equ"_s, {u"A"_s, 12, 50}, u','));
    ASSERT_TRUE(place.file.Record(u"b.equ"_s, {u"B"_s, 20, 5}, u','));

    const auto section = place.file.Record(u"a.equ"_s, {u"C"_s, 15, 60}, u',');

    ASSERT_TRUE(section);
    ASSERT_EQ(section->size(), 2U);
    EXPECT_EQ((*section)[0].name, u"C"_s);
    EXPECT_EQ((*section)[1].name, u"A"_s);
    EXPECT_EQ(place.Text(), u"#a.equ\r\nC©15©60\r\nA©12©50\r\n#b.equ\r\nB©20©5\r\n"_s);
}

TEST(HighScoreFile, KeepsOtherSectionsByteForByte)
{
    ScoreFolder place;
    // Ends of all kinds, UTF-8 ("Ã«" are the bytes of an accent, "Â©" those of the sign), odd blanks,
    // numbers with zeros, no end behind the last line.
    const QString before = u" free text\n#x.equ \r ZoÃ« Â©18.50Â© 7\n\n"_s;
    const QString behind = u"#y.equ\nB©1©2,0\r\r\n\n last"_s;
    ASSERT_TRUE(place.Put(before + u"#a.equ\nA©5.0©6\n"_s + behind));

    ASSERT_TRUE(place.file.Record(u"a.equ"_s, {u"N"_s, 4, 1}, u','));

    EXPECT_EQ(place.Text(), before + u"#a.equ\r\nA©5©6\r\nN©4©1\r\n"_s + behind);
}

TEST(HighScoreFile, NewSectionBeginsOnALineOfItsOwn)
{
    ScoreFolder place;
    ASSERT_TRUE(place.Put(u"#x.equ\nX©1©2"_s));

    ASSERT_TRUE(place.file.Record(u"a.equ"_s, {u"N"_s, 4, 1}, u','));

    EXPECT_EQ(place.Text(), u"#x.equ\nX©1©2\r\n#a.equ\r\nN©4©1\r\n"_s);
}

TEST(HighScoreFile, FindsTheFirstHeaderBehindAByteOrderMark)
{
    ScoreFolder place;
    ASSERT_TRUE(place.Put(u"ï»¿#a.equ\r\nAÂ©5Â©6\r\n"_s));

    const auto section = place.file.Record(u"a.equ"_s, {u"N"_s, 4, 1}, u',');

    ASSERT_TRUE(section);
    EXPECT_EQ(section->size(), 2U);
}

TEST(HighScoreFile, NameOutsideThePageIsNotDamaged)
{
    ScoreFolder place;
    ASSERT_TRUE(place.file.Record(u"a.equ"_s, {u"Łukasz"_s, 5, 6}, u','));

    const auto section = place.file.Record(u"a.equ"_s, {u"N"_s, 4, 1}, u',');

    ASSERT_TRUE(section);
    EXPECT_EQ(section->front().name, u"Łukasz"_s);
    EXPECT_TRUE(place.Text().contains(QString::fromLatin1(u"Łukasz©5©6\r\n"_s.toUtf8())));
}

TEST(HighScoreFile, RemovesALeftoverOfACrash)
{
    ScoreFolder place;
    ASSERT_TRUE(place.Put(u"#a.equ\r\n"_s));
    ASSERT_TRUE(QFile::rename(place.path, place.temporaryPath));

    ASSERT_TRUE(place.file.Record(u"a.equ"_s, {u"N"_s, 20, 1}, u','));

    EXPECT_EQ(place.Entries(), QStringList({u"HighScore.txt"_s}));
}

TEST(HighScoreFile, TemporaryNameThatCannotBeFreedIsAPathError)
{
    ScoreFolder place;
    ASSERT_TRUE(place.Put(u"#a.equ\r\nA©5©6\r\n"_s));
    ASSERT_TRUE(QDir().mkdir(place.temporaryPath));

    place.ExpectPathError();

    EXPECT_EQ(place.Text(), u"#a.equ\r\nA©5©6\r\n"_s);
}

TEST(HighScoreFile, MissingFolderIsAPathErrorAndIsNotMade)
{
    ScoreFolder place(u"/depot 100%1"_s);

    place.ExpectPathError();

    EXPECT_TRUE(place.Entries().isEmpty());
}

TEST(HighScoreFile, FolderWithoutANameIsNotTheCurrentOne)
{
    ScoreFolder place;
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(place.folder.path()));

    EXPECT_FALSE(HighScoreFile(QString()).Record(u"a.equ"_s, {u"N"_s, 20, 1}, u','));

    EXPECT_TRUE(QDir::setCurrent(before));
    EXPECT_TRUE(place.Entries().isEmpty());
}

TEST(HighScoreFile, FolderInPlaceOfTheFileIsAPathError)
{
    ScoreFolder place;
    ASSERT_TRUE(QDir().mkdir(place.path));

    place.ExpectPathError();

    EXPECT_EQ(place.Entries(), QStringList({u"HighScore.txt"_s}));
}

TEST(HighScoreFile, LinkThatLeadsNowhereIsNotReplaced)
{
    // The table lies on a share that is not there at the moment.
    ScoreFolder place;
    ASSERT_TRUE(QFile::link(place.folder.filePath(u"absent.txt"_s), place.path));

    place.ExpectPathError();

    EXPECT_TRUE(QFileInfo(place.path).isSymLink());
    EXPECT_FALSE(QFile::exists(place.folder.filePath(u"absent.txt"_s)));
}

TEST(HighScoreFile, UnreadableOrReadOnlyFileIsNotReplaced)
{
    for (const mode_t rights : {0222U, 0444U}) {
        ScoreFolder place;
        ASSERT_TRUE(place.Put(u"#a.equ\r\nA©5©6\r\n"_s));
        ASSERT_TRUE(place.Allow(place.path, rights));
        ASSERT_TRUE(place.Allow(place.folder.path(), 0777));

        place.ExpectPathErrorAsOrdinaryUser();

        ASSERT_TRUE(place.Allow(place.path, 0666));
        EXPECT_EQ(place.Text(), u"#a.equ\r\nA©5©6\r\n"_s);
    }
}

TEST(HighScoreFile, ReadOnlyFolderIsAPathErrorWithoutWaiting)
{
    ScoreFolder place;
    ASSERT_TRUE(place.Allow(place.folder.path(), 0555));
    QElapsedTimer elapsed;
    elapsed.start();

    place.ExpectPathErrorAsOrdinaryUser();

    EXPECT_LT(elapsed.elapsed(), 1900); // Not the two seconds of a taken lock.
    ASSERT_TRUE(place.Allow(place.folder.path(), 0777));
    EXPECT_TRUE(place.Entries().isEmpty());
}

TEST(HighScoreFile, FullDiskLeavesTheOldFile)
{
    // 400 sections of over 20 bytes, and 4000: below and above what Qt buffers.
    for (const int sections : {400, 4000}) {
        ScoreFolder place;
        QString content;
        for (int i = 0; i < sections; ++i)
            content += u"#serie%1.equ\r\nA©5©6\r\n"_s.arg(i);
        ASSERT_TRUE(place.Put(content));

        LimitFileSize(4096); // Enough for the lock, not for the table.
        place.ExpectPathError();
        LimitFileSize(RLIM_INFINITY);

        EXPECT_EQ(place.Text(), content);
        EXPECT_EQ(place.Entries(), QStringList({u"HighScore.txt"_s}));
    }
}

TEST(HighScoreFile, TableThatCouldNotBeReadAgainIsNotWritten)
{
    // 1 MB but for 14 bytes: lines of 20, and an empty one.
    ScoreFolder place;
    const QString content = u"#serie12345678.equ\r\n"_s.repeated(52'428) + u"\r\n"_s;
    ASSERT_TRUE(place.Put(content));

    place.ExpectPathError();

    EXPECT_EQ(place.Text(), content);
}

TEST(HighScoreFile, LockOfAnotherProgramIsWaitedForTwoSecondsAtMost)
{
    ScoreFolder place;
    auto other = std::make_unique<FileLock>(place.path, 0);
    ASSERT_TRUE(other->IsHeld());
    QElapsedTimer elapsed;
    elapsed.start();

    place.ExpectPathError();

    EXPECT_GE(elapsed.elapsed(), 1990);
    EXPECT_FALSE(QFile::exists(place.path));

    other.reset();
    EXPECT_TRUE(place.file.Record(u"a.equ"_s, {u"N"_s, 20, 1}, u','));
}

TEST(HighScoreFile, NewFileOfASharedFolderIsOpenToItsAccounts)
{
    ScoreFolder place;
    if (!place.folder.IsReachable())
        GTEST_SKIP() << ReachableFolder::WhyNot();
    ASSERT_TRUE(place.Allow(place.folder.path(), 0777));

    ASSERT_TRUE(place.file.Record(u"a.equ"_s, {u"N"_s, 20, 1}, u','));
    {
        const AsOrdinaryUser user;
        ASSERT_TRUE(user.IsOrdinary());
        EXPECT_TRUE(place.file.Record(u"a.equ"_s, {u"M"_s, 20, 1}, u','));
    }

    EXPECT_EQ(place.Section(u"a.equ"_s).size(), 2U);
}

TEST_F(HighScorePrograms, ThirtyAtTheSameMomentAllLeaveTheirRecord)
{
    RecordThirty([](int i) { return u"serie%1.equ"_s.arg(i); });

    for (int i = 0; i < kPrograms; ++i) {
        const std::vector<HighScore> section = m_place.Section(u"serie%1.equ"_s.arg(i));
        ASSERT_EQ(section.size(), 1U) << i;
        EXPECT_EQ(section.front().name, u"Pupil%1"_s.arg(i));
    }
    EXPECT_EQ(m_place.Text().count(u'\n'), 2 * kPrograms); // A header and a record each.
    EXPECT_EQ(m_place.Entries(), QStringList({u"HighScore.txt"_s}));
}

TEST_F(HighScorePrograms, OfThirtyAtTheSameMomentTheTenBestRemain)
{
    RecordThirty([](int) { return u"a.equ"_s; });

    const std::vector<HighScore> section = m_place.Section(u"a.equ"_s);
    ASSERT_EQ(section.size(), 10U);
    for (int place = 0; place < 10; ++place) {
        // The mark rises with the number: the best are 29, 28, ... 20.
        const HighScore& record = section[static_cast<std::size_t>(place)];
        EXPECT_EQ(record.name, u"Pupil%1"_s.arg(29 - place));
        EXPECT_EQ(record.mark, static_cast<float>((29 - place) / 2.0));
        EXPECT_EQ(record.seconds, static_cast<float>(39 - place)); // 10 s + the number.
    }
}

TEST_F(HighScorePrograms, KilledAtAnyPointLeavesTheOldFileOrTheNewOne)
{
    // A large table before it, so that there is something to break.
    QString before;
    for (int i = 0; i < 5000; ++i)
        before += u"#old%1.equ\r\nA©5©6\r\n"_s.arg(i);
    ASSERT_TRUE(m_place.Put(before));
    const QRegularExpression goodLine(u"^(#\\w+\\.equ|\\w+©\\d+(,\\d+)?©\\d+(,\\d+)?)$"_s);

    std::mt19937 random(20160305); // The same delays in each run of the test.
    std::vector<int> confirmed;
    constexpr int kRounds = 60;
    for (int round = 0; round < kRounds; ++round) {
        // Half of the delays in the first 5 ms, where the work is done.
        const unsigned long delayUs = random() % (round % 2 == 0 ? 5000 : 20000);
        Writer writer(m_place.folder.path(), u"new%1.equ"_s.arg(round), u"Pupil%1"_s.arg(round), 10, 12.5);
        ASSERT_TRUE(writer.WaitUntilReady()) << writer.Errors();

        writer.Go();
        if (round != kRounds - 1)
            writer.KillAfter(delayUs);
        ASSERT_TRUE(writer.WaitForEnd());
        if (writer.HasConfirmed())
            confirmed.push_back(round);

        const QString content = m_place.Text();
        ASSERT_TRUE(content.startsWith(before)) << round;
        const QStringList lines = DecodeLines(content.sliced(before.size()).toLatin1());
        for (const QString& line : lines)
            ASSERT_TRUE(goodLine.match(line).hasMatch()) << round << ": " << line.toStdString();
        ASSERT_EQ(lines.size() % 2, 0) << round; // Each new section is whole.
        for (const int number : confirmed) {
            const auto section = HighScoreTable(lines, u"new%1.equ"_s.arg(number)).Section();
            ASSERT_EQ(section.size(), 1U) << round << ", " << number;
            ASSERT_EQ(section.front().name, u"Pupil%1"_s.arg(number));
        }
        ASSERT_TRUE(writer.HasConfirmed() || round != kRounds - 1) << writer.Errors();
    }
}

} // namespace stoikal
