#pragma once

#include "base/open_file.h"
#include "base/outcome.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace stoikal {

/// What tells how the packed part is packed.
struct HelpPacking {
    int windowBits = 0;
    std::int64_t framesPerInterval = 0;
    std::int64_t unpackedLength = 0;
    std::int64_t packedLength = 0;
    std::int64_t contentStart = 0; ///< in the file
    std::vector<std::int64_t> frameStarts; ///< from the content's start
};

/// The files inside a compiled help file. It knows nothing of pages and topics.
/// Every number in such a file may be wrong: no size is believed before it has
/// been compared with the size of the file itself, so that a damaged head never
/// asks for memory.
class HelpArchive
{
public:
    /// No file inside may be larger than this; a help page has some kilobytes.
    static constexpr std::int64_t kLargestFile = std::int64_t{16} * 1024 * 1024;

    /// Opens the file and reads its directory. The reason of a failure is a
    /// French sentence.
    static Outcome<std::shared_ptr<HelpArchive>> Open(const QString& path);

    /// The names of all files inside ("/pages/a.html"), in the directory's order.
    const QStringList& Names() const { return m_names; }
    /// Names are found whatever the case of their letters.
    bool Has(const QString& name) const;
    /// The whole file of that name.
    Outcome<QByteArray> Read(const QString& name);

private:
    struct Entry {
        bool isPacked = false;
        std::int64_t start = 0;
        std::int64_t length = 0;
    };

    explicit HelpArchive(OpenFile file);
    bool ReadDirectory();
    bool ReadDirectoryBlock(const QByteArray& block);
    bool ReadPacking();
    bool ReadResetTable(const QByteArray& table, std::int64_t contentLength);
    QByteArray BytesAt(std::int64_t start, std::int64_t length);
    std::optional<QByteArray> Unpacked(std::int64_t start, std::int64_t length);
    bool UnpackInterval(std::int64_t interval);

    OpenFile m_file;
    std::int64_t m_fileSize = 0;
    std::int64_t m_dataStart = 0;
    QStringList m_names;
    QHash<QString, Entry> m_entries; ///< by lower-case name
    std::optional<HelpPacking> m_packing;
    std::int64_t m_interval = -1; ///< the one that is unpacked
    QByteArray m_intervalBytes;
};

} // namespace stoikal
