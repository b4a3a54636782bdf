#include "help/help_archive.h"

#include "base/file_access.h"
#include "base/shown_path.h"
#include "help/lzx_decoder.h"
#include "help/packed_number.h"

#include <algorithm>
#include <utility>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

constexpr std::int64_t kFileHead = 0x60;
constexpr std::int64_t kDirectoryHead = 0x54;
constexpr std::int64_t kListHead = 0x14;
constexpr std::int64_t kLargestBlock = std::int64_t{1024} * 1024;
/// An interval of 4 MB is far above what any compiler writes.
constexpr std::int64_t kMostFramesPerInterval = 128;
constexpr qsizetype kLongestName = 512;
/// Ours have some hundred kilobytes.
constexpr std::int64_t kLargestArchive = std::int64_t{64} * 1024 * 1024;

QString PackedStore()
{
    return u"::DataSpace/Storage/MSCompressed/"_s;
}

} // namespace

HelpArchive::HelpArchive(OpenFile file)
    : m_file(std::move(file))
    , m_fileSize(m_file.Size())
{
}

Outcome<std::shared_ptr<HelpArchive>> HelpArchive::Open(const QString& path)
{
    auto file = OpenForReading(path, Links::Followed);
    if (!file || file->Size() > kLargestArchive)
        return Failure{u"Le fichier d'aide\n%1\nne peut pas être lu."_s.arg(ShownPath(path))};
    const std::shared_ptr<HelpArchive> archive(new HelpArchive(std::move(*file)));
    if (!archive->ReadDirectory())
        return Failure{
            u"Le fichier d'aide\n%1\nest endommagé ou n'est pas un fichier d'aide."_s.arg(ShownPath(path))};
    if (!archive->ReadPacking())
        archive->m_packing.reset();
    return archive;
}

QByteArray HelpArchive::BytesAt(std::int64_t start, std::int64_t length)
{
    if (start < 0 || length < 0 || start > m_fileSize || length > m_fileSize - start)
        return {};
    const auto bytes = m_file.Read(start, length);
    return bytes ? *bytes : QByteArray();
}

bool HelpArchive::ReadDirectory()
{
    const QByteArray head = BytesAt(0, kFileHead);
    if (head.size() != kFileHead || !head.startsWith("ITSF"))
        return false;
    const std::int64_t version = NumberAt(head, 4, 4);
    const std::int64_t directory = NumberAt(head, 0x48, 8);
    // Version 2 has no field for the start of the data: they follow the directory.
    m_dataStart = version >= 3 ? NumberAt(head, 0x58, 8) : directory + NumberAt(head, 0x50, 8);
    const QByteArray list = BytesAt(directory, kDirectoryHead);
    if (list.size() != kDirectoryHead || !list.startsWith("ITSP"))
        return false;
    const std::int64_t listHead = NumberAt(list, 8, 4);
    const std::int64_t block = NumberAt(list, 0x10, 4);
    const std::int64_t blocks = NumberAt(list, 0x2C, 4);
    if (m_dataStart < 0 || listHead < kDirectoryHead || block <= kListHead || block > kLargestBlock
        || blocks < 1)
        return false;
    for (std::int64_t i = 0; i < blocks; ++i) {
        const QByteArray bytes = BytesAt(directory + listHead + i * block, block);
        if (bytes.size() != block || !ReadDirectoryBlock(bytes))
            return false;
    }
    return !m_names.isEmpty();
}

/// A block of the list holds names with their section, start and length; the
/// blocks of the tree over the list are passed by.
bool HelpArchive::ReadDirectoryBlock(const QByteArray& block)
{
    if (!block.startsWith("PMGL"))
        return true;
    const qsizetype end = block.size() - NumberAt(block, 4, 4);
    qsizetype place = kListHead;
    while (place < end) {
        const auto length = TakePackedNumber(block, end, place);
        if (!length || *length > kLongestName || *length > end - place)
            return false;
        const QString name = QString::fromUtf8(block.constData() + place, *length);
        place += *length;
        const auto section = TakePackedNumber(block, end, place);
        const auto start = TakePackedNumber(block, end, place);
        const auto size = TakePackedNumber(block, end, place);
        if (!section || !start || !size)
            return false;
        if (*section > 1)
            continue;
        m_names << name;
        m_entries.insert(name.toLower(), {*section == 1, *start, *size});
    }
    return true;
}

bool HelpArchive::ReadPacking()
{
    const auto find = [this](const QString& name) {
        const auto place = m_entries.constFind((PackedStore() + name).toLower());
        return place == m_entries.constEnd() || place->isPacked ? Entry{} : *place;
    };
    const Entry content = find(u"Content"_s);
    const Entry control = find(u"ControlData"_s);
    const Entry reset = find(u"Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable"_s);
    const QByteArray how = BytesAt(m_dataStart + control.start, std::min<std::int64_t>(control.length, 0x1C));
    if (how.size() < 0x18 || how.sliced(4, 4) != "LZXC")
        return false;
    // Since version 2 sizes are told in frames.
    const std::int64_t unit = NumberAt(how, 8, 4) >= 2 ? LzxDecoder::kFrame : 1;
    const std::int64_t interval = NumberAt(how, 0x0C, 4) * unit / LzxDecoder::kFrame;
    const std::int64_t window = NumberAt(how, 0x10, 4) * unit;
    int bits = 15;
    while (bits <= 21 && (std::int64_t{1} << bits) != window)
        ++bits;
    if (bits > 21 || interval < 1 || interval > kMostFramesPerInterval)
        return false;
    m_packing.emplace();
    m_packing->windowBits = bits;
    m_packing->framesPerInterval = interval;
    m_packing->contentStart = m_dataStart + content.start;
    return ReadResetTable(BytesAt(m_dataStart + reset.start, reset.length), content.length);
}

bool HelpArchive::ReadResetTable(const QByteArray& table, std::int64_t contentLength)
{
    if (table.size() < 0x28)
        return false;
    const std::int64_t count = NumberAt(table, 4, 4);
    const std::int64_t entrySize = NumberAt(table, 8, 4);
    const std::int64_t first = NumberAt(table, 0x0C, 4);
    m_packing->unpackedLength = NumberAt(table, 0x10, 8);
    m_packing->packedLength = std::min(NumberAt(table, 0x18, 8), contentLength);
    if (NumberAt(table, 0x20, 8) != LzxDecoder::kFrame || entrySize != 8 || first > table.size()
        || count > (table.size() - first) / entrySize || m_packing->unpackedLength < 0
        || m_packing->unpackedLength > count * LzxDecoder::kFrame)
        return false;
    for (std::int64_t i = 0; i < count; ++i)
        m_packing->frameStarts.push_back(NumberAt(table, first + i * entrySize, 8));
    return true;
}

bool HelpArchive::Has(const QString& name) const
{
    return m_entries.contains(name.toLower());
}

Outcome<QByteArray> HelpArchive::Read(const QString& name)
{
    const auto place = m_entries.constFind(name.toLower());
    if (place == m_entries.constEnd())
        return Failure{u"La page %1 n'existe pas dans ce fichier d'aide."_s.arg(name)};
    const Entry entry = *place;
    if (entry.length > kLargestFile)
        return Failure{u"La page %1 est trop grande pour être affichée."_s.arg(name)};
    std::optional<QByteArray> bytes;
    if (entry.isPacked)
        bytes = Unpacked(entry.start, entry.length);
    else
        bytes = BytesAt(m_dataStart + entry.start, entry.length);
    if (!bytes || bytes->size() != entry.length)
        return Failure{u"La page %1 est endommagée : elle ne peut pas être affichée."_s.arg(name)};
    return *bytes;
}

std::optional<QByteArray> HelpArchive::Unpacked(std::int64_t start, std::int64_t length)
{
    if (!m_packing || start < 0 || length < 0 || start > m_packing->unpackedLength
        || length > m_packing->unpackedLength - start)
        return std::nullopt;
    const std::int64_t size = m_packing->framesPerInterval * LzxDecoder::kFrame;
    QByteArray bytes;
    while (bytes.size() < length) {
        const std::int64_t place = start + bytes.size();
        if (m_interval != place / size && !UnpackInterval(place / size))
            return std::nullopt;
        const std::int64_t from = place % size;
        const std::int64_t count = std::min(m_intervalBytes.size() - from, length - bytes.size());
        if (count <= 0)
            return std::nullopt;
        bytes.append(m_intervalBytes.constData() + from, count);
    }
    return bytes;
}

/// What could be unpacked of a damaged interval is kept: the pages in front of
/// the damage can still be read.
bool HelpArchive::UnpackInterval(std::int64_t interval)
{
    const HelpPacking& packing = *m_packing;
    LzxDecoder decoder(packing.windowBits);
    const std::int64_t first = interval * packing.framesPerInterval;
    for (std::int64_t frame = first; frame < first + packing.framesPerInterval; ++frame) {
        const std::int64_t left = packing.unpackedLength - frame * LzxDecoder::kFrame;
        if (left <= 0)
            break;
        const auto place = static_cast<std::size_t>(frame);
        const std::int64_t from = packing.frameStarts.at(place);
        const std::int64_t to = place + 1 < packing.frameStarts.size() ? packing.frameStarts.at(place + 1)
                                                                       : packing.packedLength;
        if (from < 0 || to < from || to > packing.packedLength)
            break;
        const QByteArray packed = BytesAt(packing.contentStart + from, to - from);
        if (packed.size() != to - from
            || !decoder.AppendFrame(packed,
                                    static_cast<int>(std::min<std::int64_t>(left, LzxDecoder::kFrame))))
            break;
    }
    m_interval = interval;
    m_intervalBytes = decoder.Unpacked();
    return !m_intervalBytes.isEmpty();
}

} // namespace stoikal
