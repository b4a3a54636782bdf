#include "help/help_archive.h"

#include "help_support.h"

#include <chm_lib.h>
#include <map>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The files inside, as the peer finds and unpacks them.
std::map<QString, QByteArray> FilesByPeer(const QString& path)
{
    std::map<QString, QByteArray> files;
    chmFile* const file = chm_open(path.toLocal8Bit().constData());
    if (file == nullptr)
        throw std::runtime_error("the peer cannot open " + path.toStdString());
    const auto take = [](chmFile* from, chmUnitInfo* unit, void* context) {
        QByteArray bytes(static_cast<qsizetype>(unit->length), '\0');
        if (!bytes.isEmpty())
            bytes.truncate(chm_retrieve_object(from, unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                                               static_cast<LONGINT64>(unit->length)));
        (*static_cast<std::map<QString, QByteArray>*>(context))[QString::fromUtf8(unit->path)] = bytes;
        return CHM_ENUMERATOR_CONTINUE;
    };
    chm_enumerate(file, CHM_ENUMERATE_ALL, take, &files);
    chm_close(file);
    return files;
}

void PutNumber(QByteArray& bytes, qsizetype place, quint64 number, int size)
{
    for (int i = 0; i < size; ++i)
        bytes[place + i] = static_cast<char>(number >> (8 * i));
}

/// A number in groups of 7 bits, the high group first.
QByteArray PackedNumber(quint64 number)
{
    QByteArray bytes(1, static_cast<char>(number & 0x7FU));
    while ((number >>= 7U) != 0)
        bytes.prepend(static_cast<char>((number & 0x7FU) | 0x80U));
    return bytes;
}

/// A help file of one page that is not packed: blanks of memory, as many as wished.
void WriteArchiveOfOnePage(const QString& path, const QByteArray& name, qint64 length)
{
    constexpr int kFileHead = 0x60;
    constexpr int kListHead = 0x54;
    constexpr int kBlock = 0x1000;
    constexpr int kData = kFileHead + kListHead + kBlock;
    QByteArray bytes(kData, '\0');
    bytes.replace(0, 4, "ITSF");
    PutNumber(bytes, 4, 3, 4);
    PutNumber(bytes, 0x48, kFileHead, 8);
    PutNumber(bytes, 0x50, kListHead + kBlock, 8);
    PutNumber(bytes, 0x58, kData, 8);
    bytes.replace(kFileHead, 4, "ITSP");
    PutNumber(bytes, kFileHead + 8, kListHead, 4);
    PutNumber(bytes, kFileHead + 0x10, kBlock, 4);
    PutNumber(bytes, kFileHead + 0x2C, 1, 4);
    const QByteArray entry = PackedNumber(static_cast<quint64>(name.size())) + name + PackedNumber(0)
        + PackedNumber(0) + PackedNumber(static_cast<quint64>(length));
    constexpr int kEntries = 0x14;
    bytes.replace(kFileHead + kListHead, 4, "PMGL");
    PutNumber(bytes, kFileHead + kListHead + 4, static_cast<quint64>(kBlock - kEntries - entry.size()), 4);
    bytes.replace(kFileHead + kListHead + kEntries, entry.size(), entry);
    WriteBytes(path, bytes);
    if (!QFile::resize(path, kData + length))
        throw std::runtime_error("no room for " + path.toStdString());
}

} // namespace

TEST(HelpArchive, UnpacksEveryFileAsThePeerDoes)
{
    for (const QString& path : ShippedHelpFiles()) {
        const auto expected = FilesByPeer(path);
        const auto archive = HelpArchive::Open(path);
        ASSERT_TRUE(archive) << path.toStdString();
        ASSERT_GT(expected.size(), 10U);
        EXPECT_EQ(static_cast<std::size_t>((*archive)->Names().size()), expected.size());
        for (const auto& [name, bytes] : expected) {
            const auto read = (*archive)->Read(name);
            ASSERT_TRUE(read) << name.toStdString();
            EXPECT_TRUE(*read == bytes) << name.toStdString();
        }
    }
}

TEST(HelpArchive, FindsNamesWhateverTheCase)
{
    const auto archive = HelpArchive::Open(ShippedHelpFiles().first());
    ASSERT_TRUE(archive);

    EXPECT_TRUE((*archive)->Has(u"/ACCUEIL.html"_s));
    EXPECT_EQ(*(*archive)->Read(u"/ACCUEIL.html"_s), *(*archive)->Read(u"/accueil.html"_s));
}

TEST(HelpArchive, TellsWhichPageIsMissing)
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

TEST(HelpArchive, TellsThatAFileCannotBeRead)
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
