#include "help_support.h"

#include "help/page_search.h"

#include <random>

// No single request for memory may pass 64 MB, whatever a damaged head promises.
// The sanitizer of the test build ends the process at a larger one.
extern "C" const char* __asan_default_options(); // NOLINT(bugprone-reserved-identifier)
const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "max_allocation_size_mb=64";
}

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Reads all that can be read of a file that may be damaged anywhere; the number
/// of pages that could be read, -1 when it cannot be opened at all.
int ReadAll(const QString& path)
{
    const auto archive = HelpArchive::Open(path);
    if (archive) {
        for (const QString& name : (*archive)->Names()) {
            const auto bytes = (*archive)->Read(name);
            EXPECT_TRUE(bytes || !bytes.Reason().isEmpty());
        }
    } else {
        EXPECT_TRUE(archive.Reason().startsWith("Le fichier d'aide"_L1));
    }
    const auto file = HelpFile::Open(path);
    if (!file) {
        EXPECT_TRUE(file.Reason().startsWith("Le fichier d'aide"_L1));
        return -1;
    }
    int pages = 0;
    const QStringList names = (*file)->Pages();
    for (const QString& name : names)
        pages += (*file)->Text(name) ? 1 : 0;
    PageSearch search;
    search.Find(**file, u"atome"_s);
    return pages;
}

class DamagedHelp : public testing::Test
{
protected:
    int ReadDamaged(const QByteArray& bytes)
    {
        WriteBytes(m_path, bytes);
        return ReadAll(m_path);
    }

    const QByteArray m_whole = BytesOf(ShippedHelpFiles().at(2));
    /// A help file of two pages, where many copies are read.
    const QByteArray m_small = BytesOf(QStringLiteral(STOIKAL_SMALL_HELP_FILE));
    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"Aide.chm"_s);
};

void SetNumber(QByteArray& bytes, qsizetype position, qint64 number, int size)
{
    for (int i = 0; i < size && position + i < bytes.size(); ++i)
        bytes[position + i] = static_cast<char>(static_cast<quint64>(number) >> (8 * i));
}

} // namespace

TEST_F(DamagedHelp, IsReadWholeWhenItIsNotDamaged)
{
    EXPECT_GT(ReadDamaged(m_whole), 1);
}

TEST_F(DamagedHelp, CutShortAnywhereIsReportedAndNeverCrashes)
{
    for (qsizetype length = 0; length < m_small.size(); length += 37)
        ReadDamaged(m_small.first(length));
    for (qsizetype length = 4096; length < m_whole.size(); length += m_whole.size() / 29)
        ReadDamaged(m_whole.first(length));
}

TEST_F(DamagedHelp, CutInTheMiddleStillShowsThePagesInFront)
{
    const int whole = ReadDamaged(m_whole);

    const int left = ReadDamaged(m_whole.first(m_whole.size() - m_whole.size() / 4));

    EXPECT_GT(left, 0);
    EXPECT_LT(left, whole);
}

TEST_F(DamagedHelp, InThePageThatIsReadFirstStillShowsTheOneAfterIt)
{
    // The packed part is the last; it can be entered anew every 64 KB of pages. The
    // first begins at 0, the second at 65 509 ends in the next 64 KB.
    QByteArray bytes = m_whole;
    const qsizetype packed = bytes.size() - 21630;
    bytes.replace(packed + 1000, 64, QByteArray(64, '\xFF'));
    WriteBytes(m_path, bytes);
    const auto archive = HelpArchive::Open(m_path);
    ASSERT_TRUE(archive);

    EXPECT_FALSE((*archive)->Read(u"/moissan_henri.html"_s));
    EXPECT_TRUE((*archive)->Read(u"/wohler_friedrich.html"_s));
}

TEST_F(DamagedHelp, WithRandomBytesNeverCrashes)
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        std::mt19937 random(seed);
        QByteArray bytes = seed % 20 == 0 ? m_whole : m_small;
        // Half of the damage goes to the heads and the directory.
        const auto range
            = static_cast<unsigned>(seed % 2 == 0 ? bytes.size() : std::min<qsizetype>(12288, bytes.size()));
        for (unsigned i = 0; i < 1 + seed % 12; ++i)
            bytes[static_cast<qsizetype>(random() % range)] = static_cast<char>(random());
        if (seed % 5 == 0)
            bytes.truncate(static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size())));
        SCOPED_TRACE(seed);
        ReadDamaged(bytes);
    }
}

TEST_F(DamagedHelp, WithExtremeNumbersInItsHeadsRequestsNoMemory)
{
    // The heads of the file and of the directory, and what says how the rest is
    // packed: from "LZXC" and its size, and the reset table after it.
    QList<qsizetype> positions;
    for (qsizetype position = 0; position < 0x60 + 0x18 + 0x54 + 0x14 + 0x200; position += 4)
        positions << position;
    for (qsizetype position = m_small.indexOf("LZXC") - 4; position < m_small.indexOf("LZXC") + 0x120;
         position += 4)
        positions << position;
    for (const qsizetype position : positions) {
        for (const qint64 number : {qint64{0}, qint64{1}, qint64{0x7FFFFFFF}, qint64{0xFFFFFFFF}}) {
            QByteArray bytes = m_small;
            SetNumber(bytes, position, number, 4);
            SCOPED_TRACE(position);
            ReadDamaged(bytes);
        }
        QByteArray bytes = m_small;
        SetNumber(bytes, position, -1, 8);
        ReadDamaged(bytes);
    }
}

TEST_F(DamagedHelp, NothingButNoiseIsNoHelpFile)
{
    std::mt19937 random(7);
    QByteArray noise(50000, '\0');
    for (char& byte : noise)
        byte = static_cast<char>(random());

    EXPECT_EQ(ReadDamaged(noise), -1);
    EXPECT_EQ(ReadDamaged("ITSF" + noise), -1);
    EXPECT_EQ(ReadDamaged({}), -1);
}

} // namespace stoikal
