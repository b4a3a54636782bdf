#include "help/help_archive.h"

#include "base/file_access.h"
#include "base/shown_path.h"

#include <limits>
#include <utility>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

constexpr std::int64_t kMegabyte = std::int64_t{1024} * 1024;
/// Ours have some hundred kilobytes.
constexpr std::int64_t kLargestArchive = 64 * kMegabyte;
/// A name takes some 30 bytes of it.
constexpr std::int64_t kLargestDirectory = 4 * kMegabyte;
/// The files of an archive unpack to one stream. Where the table of the points at
/// which it can be entered is unreadable, it is unpacked from its beginning.
constexpr std::int64_t kLongestStream = 512 * kMegabyte;

/// The four files inside that say how the others are packed.
bool KnowsPacking(const mschmd_sec_mscompressed& packed)
{
    return packed.content != nullptr && packed.control != nullptr && packed.rtable != nullptr
        && packed.spaninfo != nullptr;
}

bool IsLibraryUsable()
{
    int result = MSPACK_ERR_OK;
    MSPACK_SYS_SELFTEST(result);
    return result == MSPACK_ERR_OK;
}

} // namespace

HelpArchive::HelpArchive(OpenFile file)
    : m_file(std::move(file))
    , m_source{&m_file}
    , m_system(UnpackingSystem())
    , m_library(mspack_create_chm_decompressor(&m_system))
{
}

HelpArchive::~HelpArchive()
{
    if (m_directory != nullptr)
        m_library->close(m_library, m_directory);
    mspack_destroy_chm_decompressor(m_library);
}

Outcome<std::shared_ptr<HelpArchive>> HelpArchive::Open(const QString& path)
{
    auto file = OpenForReading(path, Links::Followed);
    if (!file || file->Size() > kLargestArchive || !IsLibraryUsable())
        return Failure{u"Le fichier d'aide\n%1\nne peut pas être lu."_s.arg(ShownPath(path))};
    const std::shared_ptr<HelpArchive> archive(new HelpArchive(std::move(*file)));
    if (!archive->ReadDirectory())
        return Failure{
            u"Le fichier d'aide\n%1\nest endommagé ou n'est pas un fichier d'aide."_s.arg(ShownPath(path))};
    return archive;
}

bool HelpArchive::ReadDirectory()
{
    if (m_library == nullptr)
        return false;
    m_source.mayRead = kLargestDirectory;
    m_directory = m_library->open(m_library, m_source.Name());
    m_source.mayRead = std::numeric_limits<qint64>::max();
    if (m_directory == nullptr)
        return false;
    for (mschmd_file* file = m_directory->files; file != nullptr; file = file->next) {
        const QString name = QString::fromUtf8(file->filename);
        m_names << name;
        m_files.insert(name.toLower(), file);
    }
    return !m_names.isEmpty();
}

bool HelpArchive::Has(const QString& name) const
{
    return m_files.contains(name.toLower());
}

Outcome<QByteArray> HelpArchive::Read(const QString& name)
{
    const auto found = m_files.constFind(name.toLower());
    if (found == m_files.constEnd())
        return Failure{u"La page %1 n'existe pas dans ce fichier d'aide."_s.arg(name)};
    if ((*found)->length > kLargestFile)
        return Failure{u"La page %1 est trop grande pour être affichée."_s.arg(name)};
    const auto bytes = Unpacked(**found);
    if (!bytes)
        return Failure{u"La page %1 est endommagée : elle ne peut pas être affichée."_s.arg(name)};
    return *bytes;
}

std::optional<QByteArray> HelpArchive::Unpacked(mschmd_file& file)
{
    // What is missing of the four the library would look for along links inside the
    // directory; in a damaged one these may lead round for ever.
    const bool isPacked = file.section->id != 0;
    if (isPacked && (!KnowsPacking(m_directory->sec1) || file.offset > kLongestStream))
        return std::nullopt;
    // One that has unpacked a file goes on from there to the next one, and so through
    // damage that lies between; a new one enters the stream at the last point before.
    const std::unique_ptr<mschm_decompressor, decltype(&mspack_destroy_chm_decompressor)> library(
        mspack_create_chm_decompressor(&m_system), &mspack_destroy_chm_decompressor);
    UnpackingFile unpacked;
    if (library == nullptr || library->extract(library.get(), &file, unpacked.Name()) != MSPACK_ERR_OK
        || unpacked.written.size() != file.length)
        return std::nullopt;
    return unpacked.written;
}

} // namespace stoikal
