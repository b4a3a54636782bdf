#include "help/help_archive.h"

#include "help_support.h"

#include <QDirIterator>
#include <map>
#include <vector>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The files that a help file was compiled from, by the names that they have in it.
QStringList SourcesIn(const QString& folder)
{
    QStringList names;
    for (QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        const QString name = files.next().sliced(folder.size());
        if (!name.endsWith(".hhp"_L1))
            names << name;
    }
    names.sort();
    return names;
}

/// The compiler adds tables and a note.
bool IsCompilersOwn(const QString& name)
{
    return name.startsWith("/#"_L1) || name.startsWith("/$"_L1) || name == "/_#_README_#_"_L1;
}

void PutNumber(QByteArray& bytes, qsizetype at, quint64 number, int size)
{
    for (int i = 0; i < size; ++i)
        bytes[at + i] = static_cast<char>(number >> (8 * i));
}

/// A number in groups of 7 bits, the high group first.
QByteArray PackedNumber(quint64 number)
{
    QByteArray bytes(1, static_cast<char>(number & 0x7FU));
    while ((number >>= 7U) != 0)
        bytes.prepend(static_cast<char>((number & 0x7FU) | 0x80U));
    return bytes;
}

/// A file inside: in section 0 it stands as it is, in section 1 packed.
struct InnerFile {
    QByteArray name;
    quint64 section = 0;
    quint64 start = 0;
    quint64 length = 0;
};

/// The bytes of a help file in front of its data. Each block of the directory holds
/// the same files and says that the next one follows, the last one that the first does.
QByteArray ArchiveHead(const std::vector<InnerFile>& files, int blocks = 1)
{
    constexpr int kFileHead = 0x60;
    constexpr int kLengthPart = 0x18;
    constexpr int kListStart = kFileHead + kLengthPart;
    constexpr int kListHead = 0x54;
    constexpr int kBlock = 0x2000;
    constexpr int kEntries = 0x14;
    constexpr unsigned kNone = 0xFFFFFFFF;
    const int dataStart = kListStart + kListHead + blocks * kBlock;
    QByteArray head(kListStart + kListHead, '\0');
    head.replace(0, 4, "ITSF");
    PutNumber(head, 4, 3, 4);
    head.replace(0x18, 32,
                 QByteArray::fromHex("10fd017caa7bd0119e0c00a0c922e6ec11fd017caa7bd0119e0c00a0c922e6ec"));
    PutNumber(head, 0x38, kFileHead, 8);
    PutNumber(head, 0x40, kLengthPart, 8);
    PutNumber(head, 0x48, kListStart, 8);
    PutNumber(head, 0x50, static_cast<quint64>(dataStart - kListStart), 8);
    PutNumber(head, 0x58, static_cast<quint64>(dataStart), 8);
    // The length of the whole file is only compared with the numbers of the head.
    PutNumber(head, kFileHead + 8, static_cast<quint64>(dataStart), 8);
    head.replace(kListStart, 4, "ITSP");
    PutNumber(head, kListStart + 8, kListHead, 4);
    PutNumber(head, kListStart + 0x10, kBlock, 4);
    PutNumber(head, kListStart + 0x1C, kNone, 4);
    PutNumber(head, kListStart + 0x24, static_cast<quint64>(blocks - 1), 4);
    PutNumber(head, kListStart + 0x2C, static_cast<quint64>(blocks), 4);
    QByteArray entries;
    for (const InnerFile& file : files)
        entries += PackedNumber(static_cast<quint64>(file.name.size())) + file.name
            + PackedNumber(file.section) + PackedNumber(file.start) + PackedNumber(file.length);
    for (int i = 0; i < blocks; ++i) {
        QByteArray block(kBlock, '\0');
        block.replace(0, 4, "PMGL");
        PutNumber(block, 4, static_cast<quint64>(kBlock - kEntries - entries.size()), 4);
        PutNumber(block, 0x10, static_cast<quint64>((i + 1) % blocks), 4);
        block.replace(kEntries, entries.size(), entries);
        PutNumber(block, kBlock - 2, files.size(), 2);
        head += block;
    }
    return head;
}

/// A help file of one page that is not packed: blanks of memory, as many as wished.
void WriteArchiveOfOnePage(const QString& path, const QByteArray& name, qint64 length)
{
    const QByteArray head = ArchiveHead({{name, 0, 0, static_cast<quint64>(length)}});
    WriteBytes(path, head);
    if (!QFile::resize(path, head.size() + length))
        throw std::runtime_error("no room for " + path.toStdString());
}

constexpr int kFrame = 0x8000; ///< what packed files are unpacked by

/// Four files say how the others are packed. Here the packed part is one frame, kept
/// as it is: bits "0" (no machine code), "011" (its kind), 24 bits of its length, 4 up
/// to the word, each word with its low byte first; three offsets; the bytes.
std::map<QByteArray, QByteArray> Packing(const QByteArray& frame)
{
    QByteArray content = QByteArray::fromHex("08300000") + QByteArray("\1\0\0\0\1\0\0\0\1\0\0\0", 12) + frame;
    QByteArray control(28, '\0');
    PutNumber(control, 0, 6, 4);
    control.replace(4, 4, "LZXC");
    for (const int at : {8, 12, 16, 20})
        PutNumber(control, at, at == 8 ? 2 : 1, 4); // the version, then sizes in frames
    QByteArray span(8, '\0');
    PutNumber(span, 0, kFrame, 8);
    QByteArray points(0x30, '\0'); // where a frame begins: one, at 0
    PutNumber(points, 0, 2, 4);
    PutNumber(points, 4, 1, 4);
    PutNumber(points, 8, 8, 4);
    PutNumber(points, 0x0C, 0x28, 4);
    PutNumber(points, 0x10, kFrame, 8);
    PutNumber(points, 0x18, static_cast<quint64>(content.size()), 8);
    PutNumber(points, 0x20, kFrame, 8);
    const QByteArray folder = "::DataSpace/Storage/MSCompressed/";
    return {{folder + "Content", content},
            {folder + "ControlData", control},
            {folder + "SpanInfo", span},
            {folder + "Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable", points}};
}

/// A help file of one packed page, "/page.html". Its directory has two blocks, each
/// of which is followed by the other.
void WritePackedArchive(const QString& path, const std::map<QByteArray, QByteArray>& packing)
{
    std::vector<InnerFile> files{{"/page.html", 1, 0, kFrame}};
    QByteArray data;
    for (const auto& [name, bytes] : packing) {
        files.push_back({name, 0, static_cast<quint64>(data.size()), static_cast<quint64>(bytes.size())});
        data += bytes;
    }
    WriteBytes(path, ArchiveHead(files, 2) + data);
}

} // namespace

TEST(HelpArchive, GivesEveryFileAsItWasCompiled)
{
    const QStringList folders{u"manuel"_s, u"atomes"_s, u"scientifiques"_s};
    for (qsizetype i = 0; i < folders.size(); ++i) {
        const QString folder = QStringLiteral(STOIKAL_HELP_SOURCES_DIR "/") + folders.at(i);
        const auto archive = HelpArchive::Open(ShippedHelpFiles().at(i));
        ASSERT_TRUE(archive) << folder.toStdString();
        QStringList names = (*archive)->Names();
        names.removeIf(IsCompilersOwn);
        names.sort();
        ASSERT_GT(names.size(), 40);
        EXPECT_EQ(names, SourcesIn(folder));
        for (const QString& name : names) {
            const auto read = (*archive)->Read(name);
            ASSERT_TRUE(read) << name.toStdString();
            EXPECT_TRUE(*read == BytesOf(folder + name)) << name.toStdString();
        }
    }
}

TEST(HelpArchive, UnpacksAPage)
{
    const QByteArray frame = QByteArray("Stoikal ").repeated(kFrame / 8);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Aide.chm"_s);
    WritePackedArchive(path, Packing(frame));
    const auto archive = HelpArchive::Open(path);
    ASSERT_TRUE(archive);

    const auto page = (*archive)->Read(u"/page.html"_s);

    ASSERT_TRUE(page) << page.Reason().toStdString();
    EXPECT_TRUE(*page == frame);
}

TEST(HelpArchive, ShowsNoPackedPageWhereAFileOfThePackingIsMissing)
{
    const auto packing = Packing(QByteArray(kFrame, ' '));
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Aide.chm"_s);
    for (const auto& [name, bytes] : packing) {
        auto rest = packing;
        rest.erase(name);
        WritePackedArchive(path, rest);
        const auto archive = HelpArchive::Open(path);
        ASSERT_TRUE(archive) << name.toStdString();

        const auto page = (*archive)->Read(u"/page.html"_s);

        ASSERT_FALSE(page) << name.toStdString();
        EXPECT_EQ(page.Reason(), u"La page /page.html est endommagée : elle ne peut pas être affichée."_s);
    }
}

TEST(HelpArchive, RefusesADirectoryAbove4Megabytes)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Aide.chm"_s);
    // Blocks have 8 KB: 511 of them and the head are just below.
    WriteBytes(path, ArchiveHead({{"/page.html", 0, 0, 0}}, 511));
    EXPECT_TRUE(HelpArchive::Open(path));

    WriteBytes(path, ArchiveHead({{"/page.html", 0, 0, 0}}, 512));
    const auto archive = HelpArchive::Open(path);

    ASSERT_FALSE(archive);
    EXPECT_EQ(archive.Reason(),
              u"Le fichier d'aide\n%1\nest endommagé ou n'est pas un fichier d'aide."_s.arg(path));
}

TEST(HelpArchive, FindsNamesWhateverTheCase)
{
    const auto archive = HelpArchive::Open(ShippedHelpFiles().first());
    ASSERT_TRUE(archive);

    EXPECT_TRUE((*archive)->Has(u"/ACCUEIL.html"_s));
    EXPECT_EQ(*(*archive)->Read(u"/ACCUEIL.html"_s), *(*archive)->Read(u"/accueil.html"_s));
}

TEST(HelpArchive, ReportsWhichPageIsMissing)
{
    const auto archive = HelpArchive::Open(ShippedHelpFiles().first());
    ASSERT_TRUE(archive);

    const auto page = (*archive)->Read(u"/nulle_part.html"_s);

    ASSERT_FALSE(page);
    EXPECT_EQ(page.Reason(), u"La page /nulle_part.html n'existe pas dans ce fichier d'aide."_s);
}

TEST(HelpArchive, ShowsAPageOf16MegabytesAndNoneAbove)
{
    constexpr qint64 kLimit = 16 * 1024 * 1024;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Aide.chm"_s);
    WriteArchiveOfOnePage(path, "/page.html", kLimit);
    const auto largest = HelpArchive::Open(path);
    ASSERT_TRUE(largest);
    const auto shown = (*largest)->Read(u"/page.html"_s);
    ASSERT_TRUE(shown) << shown.Reason().toStdString();
    EXPECT_EQ(shown->size(), kLimit);

    WriteArchiveOfOnePage(path, "/page.html", kLimit + 1);
    const auto tooLarge = HelpArchive::Open(path);
    ASSERT_TRUE(tooLarge);
    const auto refused = (*tooLarge)->Read(u"/page.html"_s);

    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.Reason(), u"La page /page.html est trop grande pour être affichée."_s);
}

TEST(HelpArchive, ReportsThatAFileCannotBeRead)
{
    const auto archive = HelpArchive::Open(u"/nowhere/Aide.chm"_s);

    ASSERT_FALSE(archive);
    EXPECT_EQ(archive.Reason(), u"Le fichier d'aide\n/nowhere/Aide.chm\nne peut pas être lu."_s);
}

TEST(HelpArchive, RefusesWhatIsNoHelpFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Aide.chm"_s);
    WriteBytes(path, QByteArray("<html>not compiled</html>").repeated(100));

    const auto archive = HelpArchive::Open(path);

    ASSERT_FALSE(archive);
    EXPECT_EQ(archive.Reason(),
              u"Le fichier d'aide\n%1\nest endommagé ou n'est pas un fichier d'aide."_s.arg(path));
}

} // namespace stoikal
