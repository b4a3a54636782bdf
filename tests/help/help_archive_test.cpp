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
