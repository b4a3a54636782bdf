#include "help/help_file.h"

#include "base/shown_path.h"
#include "base/text_lines.h"
#include "help/help_archive.h"
#include "help/number_at.h"

#include <QFileInfo>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

/// The parts of "/#SYSTEM" that matter here.
enum SystemPart { ContentsList = 0, IndexList = 1, DefaultPage = 2, FileTitle = 3 };

/// The fields of a window type in "/#WINDOWS" that matter here.
constexpr qint64 kWindowName = 0x08;
constexpr qint64 kWindowTitle = 0x14;
constexpr qint64 kWindowContents = 0x60;
constexpr qint64 kWindowIndex = 0x64;
constexpr qint64 kWindowPage = 0x68;
constexpr std::int64_t kMaximumWindowTypes = 256;

bool IsPage(const QString& name)
{
    return name.endsWith(".html"_L1, Qt::CaseInsensitive) || name.endsWith(".htm"_L1, Qt::CaseInsensitive);
}

/// The text up to the first zero byte.
QByteArray CString(const QByteArray& bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    return end < 0 ? bytes : bytes.first(end);
}

QString FromRoot(const QString& name)
{
    return name.isEmpty() || name.startsWith(u'/') ? name : u'/' + name;
}

} // namespace

QString DecodeHelpText(const QByteArray& bytes)
{
    return DecodeLine(NormaliseTextBytes(bytes));
}

Outcome<std::shared_ptr<HelpFile>> HelpFile::Open(const QString& path)
{
    const auto archive = HelpArchive::Open(path);
    if (!archive)
        return Failure{archive.Reason()};
    const std::shared_ptr<HelpFile> file(new HelpFile(path, *archive));
    if (file->m_startPage.isEmpty())
        return Failure{u"Le fichier d'aide\n%1\nne contient aucune page."_s.arg(ShownPath(path))};
    return file;
}

HelpFile::HelpFile(const QString& path, std::shared_ptr<HelpArchive> archive)
    : m_path(path)
    , m_archive(std::move(archive))
{
    if (const auto strings = Read(u"/#STRINGS"_s))
        m_strings = *strings;
    Lists lists;
    ReadSystem(lists);
    ReadWindowTypes(lists);
    if (m_title.isEmpty())
        m_title = QFileInfo(path).completeBaseName();
    ReadTopics();
    ReadLists(lists);
    FindStartPage(lists.startPage);
}

void HelpFile::ReadSystem(Lists& lists)
{
    const auto system = Read(u"/#SYSTEM"_s);
    if (!system) {
        m_remarks << u"Le titre du fichier d'aide est illisible."_s;
        return;
    }
    qsizetype position = 4;
    while (position + 4 <= system->size()) {
        const qint64 part = NumberAt(system->sliced(position, 2) + QByteArray(2, '\0'), 0, 4);
        const qint64 size = NumberAt(system->sliced(position + 2, 2) + QByteArray(2, '\0'), 0, 4);
        const QString text = DecodeHelpText(CString(system->mid(position + 4, size)));
        if (part == ContentsList)
            lists.contents = FromRoot(text);
        else if (part == IndexList)
            lists.index = FromRoot(text);
        else if (part == DefaultPage)
            lists.startPage = text;
        else if (part == FileTitle)
            m_title = text.trimmed();
        position += 4 + size;
    }
}

void HelpFile::ReadWindowTypes(Lists& lists)
{
    if (!Has(u"/#WINDOWS"_s))
        return;
    const auto windows = Read(u"/#WINDOWS"_s);
    if (!windows)
        return;
    const std::int64_t count = std::min(NumberAt(*windows, 0, 4), kMaximumWindowTypes);
    const qint64 size = NumberAt(*windows, 4, 4);
    for (qint64 i = 0; i < count && 8 + (i + 1) * size <= windows->size(); ++i) {
        const qint64 entry = 8 + i * size;
        const auto text = [&](qint64 field) { return StringAt(NumberAt(*windows, entry + field, 4)); };
        m_windowTitles.insert(text(kWindowName), text(kWindowTitle));
        if (lists.contents.isEmpty())
            lists.contents = FromRoot(text(kWindowContents));
        if (lists.index.isEmpty())
            lists.index = FromRoot(text(kWindowIndex));
        if (lists.startPage.isEmpty())
            lists.startPage = text(kWindowPage);
        if (m_title.isEmpty())
            m_title = text(kWindowTitle).trimmed();
    }
}

QString HelpFile::StringAt(qint64 position) const
{
    return position >= m_strings.size() ? QString() : DecodeHelpText(CString(m_strings.mid(position)));
}

/// A page by the name that the file's maker wrote. A compiler may have put its
/// own folder in front of it ("/home/me/help/pages/a.html"): the longest end of
/// the name that is a page of this file is meant.
PageAddress HelpFile::Located(const QString& written) const
{
    const auto address = ReadPageAddress(written, u"/"_s);
    if (!address || !address->file.isEmpty())
        return {};
    for (qsizetype from = 0; from >= 0; from = address->path.indexOf(u'/', from + 1)) {
        const QString name = address->path.sliced(from);
        if (name.size() > 1 && Has(name))
            return {{}, name, address->anchor};
    }
    return {};
}

void HelpFile::ReadTopics()
{
    if (!Has(u"/#IVB"_s))
        return;
    const auto table = Read(u"/#IVB"_s);
    if (!table || m_strings.isEmpty()) {
        m_remarks << u"La table des numéros de page est illisible."_s;
        return;
    }
    for (qint64 position = 4; position + 8 <= table->size(); position += 8) {
        const PageAddress page = Located(StringAt(NumberAt(*table, position + 4, 4)));
        if (!page.path.isEmpty())
            m_topics.insert(NumberAt(*table, position, 4), page);
    }
}

void HelpFile::ReadLists(const Lists& lists)
{
    const auto named = [this](const QString& name, QLatin1String extension) {
        if (!name.isEmpty())
            return name;
        const auto& names = m_archive->Names();
        const auto found = std::find_if(names.begin(), names.end(), [extension](const QString& other) {
            return other.endsWith(extension, Qt::CaseInsensitive);
        });
        return found == names.end() ? QString() : *found;
    };
    if (const QString name = named(lists.contents, ".hhc"_L1); !name.isEmpty()) {
        if (const auto text = Text(name))
            m_contents = ReadContents(*text);
        else
            m_remarks << u"Le sommaire du fichier d'aide est illisible."_s;
    }
    if (const QString name = named(lists.index, ".hhk"_L1); !name.isEmpty()) {
        if (const auto text = Text(name))
            m_index = ReadIndex(*text);
        else
            m_remarks << u"L'index du fichier d'aide est illisible."_s;
    }
}

void HelpFile::FindStartPage(const QString& named)
{
    m_startPage = Located(named).path;
    for (const ContentsNode& node : m_contents) {
        if (!m_startPage.isEmpty())
            return;
        m_startPage = Located(node.link).path;
    }
    const QStringList pages = Pages();
    if (m_startPage.isEmpty() && !pages.isEmpty())
        m_startPage = pages.first();
}

QStringList HelpFile::Pages() const
{
    QStringList pages;
    for (const QString& name : m_archive->Names()) {
        if (IsPage(name))
            pages << name;
    }
    pages.sort();
    pages.removeDuplicates();
    return pages;
}

bool HelpFile::Has(const QString& path) const
{
    return m_archive->Has(path);
}

Outcome<QByteArray> HelpFile::Read(const QString& path) const
{
    return m_archive->Read(path);
}

Outcome<QString> HelpFile::Text(const QString& path) const
{
    const auto bytes = Read(path);
    if (!bytes)
        return Failure{bytes.Reason()};
    return DecodeHelpText(*bytes);
}

} // namespace stoikal
