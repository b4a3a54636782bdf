#include "help/unpacking_files.h"

#include "base/file_access.h"
#include "help_support.h"

#include <algorithm>
#include <array>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A file of ten bytes, as the library opens it.
class UnpackingSystem : public testing::Test
{
protected:
    void SetUp() override { Open(100); }
    void TearDown() override { m_copy.close(opened); }

    void Open(qint64 mayRead)
    {
        if (opened != nullptr)
            m_copy.close(opened);
        m_file.mayRead = mayRead;
        opened = m_copy.open(&m_copy, m_file.Name(), MSPACK_SYS_OPEN_READ);
    }

    /// The next bytes; "fault" where one is reported to the library.
    QByteArray Next(int count)
    {
        std::array<char, 32> buffer{};
        const int got = m_copy.read(opened, buffer.data(), count);
        return got < 0 ? QByteArray("fault") : QByteArray(buffer.data(), got);
    }

    mspack_system system = stoikal::UnpackingSystem();
    mspack_file* opened = nullptr;

private:
    // The library works on a copy too.
    mspack_system m_copy = system;
    const QTemporaryDir m_folder;
    const QString m_path = [this] {
        WriteBytes(m_folder.filePath(u"a"_s), "0123456789");
        return m_folder.filePath(u"a"_s);
    }();
    Outcome<OpenFile> m_source = OpenForReading(m_path, Links::Refused);
    UnpackingFile m_file{&*m_source};
};

} // namespace

TEST_F(UnpackingSystem, ReadsOnFromWhereItStands)
{
    EXPECT_EQ(Next(4), "0123");
    EXPECT_EQ(Next(4), "4567");
    EXPECT_EQ(system.tell(opened), 8);
    EXPECT_EQ(Next(4), "89");
    EXPECT_EQ(Next(4), "");
}

TEST_F(UnpackingSystem, SeeksFromTheStartThePositionAndTheEnd)
{
    EXPECT_EQ(system.seek(opened, 3, MSPACK_SYS_SEEK_START), 0);
    EXPECT_EQ(Next(1), "3");
    EXPECT_EQ(system.seek(opened, 2, MSPACK_SYS_SEEK_CUR), 0);
    EXPECT_EQ(Next(1), "6");
    EXPECT_EQ(system.seek(opened, -1, MSPACK_SYS_SEEK_END), 0);
    EXPECT_EQ(Next(1), "9");
    EXPECT_NE(system.seek(opened, -1, MSPACK_SYS_SEEK_START), 0);
}

TEST_F(UnpackingSystem, ReadsNoMoreInOneOpeningThanItMay)
{
    Open(6);
    EXPECT_EQ(Next(4), "0123");
    EXPECT_EQ(Next(3), "fault");
    EXPECT_EQ(Next(2), "45");

    Open(6);
    EXPECT_EQ(Next(6), "012345");
}

TEST_F(UnpackingSystem, WritesIntoBytes)
{
    UnpackingFile result;
    mspack_file* const output = system.open(&system, result.Name(), MSPACK_SYS_OPEN_WRITE);
    std::array<char, 3> bytes{'a', 'b', 'c'};

    EXPECT_EQ(system.write(output, bytes.data(), 3), 3);
    EXPECT_EQ(system.write(output, bytes.data(), 1), 1);
    EXPECT_EQ(system.read(output, bytes.data(), 1), -1);
    system.close(output);

    EXPECT_EQ(result.written, "abca");
}

TEST_F(UnpackingSystem, GivesMemoryOfZerosUpTo4Megabytes)
{
    constexpr std::size_t kLimit = std::size_t{4} * 1024 * 1024;
    void* const largest = system.alloc(&system, kLimit);
    ASSERT_NE(largest, nullptr);
    const char* const bytes = static_cast<const char*>(largest);
    EXPECT_TRUE(std::all_of(bytes, bytes + kLimit, [](char byte) { return byte == 0; }));
    system.free(largest);

    EXPECT_EQ(system.alloc(&system, kLimit + 1), nullptr);
}

} // namespace stoikal
