#pragma once

#include "base/outcome.h"
#include "help/unpacking_files.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <optional>

namespace stoikal {

/// The files inside a compiled help file. It knows nothing of pages and topics;
/// the format is the library's (libmspack) to know. Every number in such a file
/// may be wrong: what would take too much memory or time is refused before the
/// library sees it.
class HelpArchive
{
public:
    /// No file inside may be larger than this; a help page has some kilobytes.
    static constexpr std::int64_t kLargestFile = std::int64_t{16} * 1024 * 1024;

    /// Opens the file and reads its directory. The reason of a failure is a
    /// French sentence.
    static Outcome<std::shared_ptr<HelpArchive>> Open(const QString& path);
    ~HelpArchive();
    HelpArchive(const HelpArchive&) = delete;
    HelpArchive& operator=(const HelpArchive&) = delete;

    /// The names of all files inside ("/pages/a.html"), in the directory's order.
    const QStringList& Names() const { return m_names; }
    /// Names are found whatever the case of their letters.
    bool Has(const QString& name) const;
    /// The whole file of that name.
    Outcome<QByteArray> Read(const QString& name);

private:
    explicit HelpArchive(OpenFile file);
    bool ReadDirectory();
    std::optional<QByteArray> Unpacked(mschmd_file& file);

    OpenFile m_file;
    UnpackingFile m_source;
    mspack_system m_system;
    mschm_decompressor* m_library = nullptr;
    mschmd_header* m_directory = nullptr;
    QStringList m_names;
    QHash<QString, mschmd_file*> m_files; ///< by lower-case name
};

} // namespace stoikal
