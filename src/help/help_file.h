#pragma once

#include "base/outcome.h"
#include "help/page_address.h"
#include "help/sitemap.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace stoikal {

class HelpArchive;

/// A help file as its reader sees it: a title, contents, an index, pages, and
/// the pages' topic numbers. A damaged part is left out and reported in Remarks();
/// only what is no help file at all cannot be opened.
class HelpFile
{
public:
    static Outcome<std::shared_ptr<HelpFile>> Open(const QString& path);

    const QString& Path() const { return m_path; }
    const QString& Title() const { return m_title; }
    /// The page shown first, empty when there is none.
    const QString& StartPage() const { return m_startPage; }
    const std::vector<ContentsNode>& Contents() const { return m_contents; }
    const std::vector<IndexEntry>& Index() const { return m_index; }
    /// The pages by their topic numbers.
    const QMap<qint64, PageAddress>& Topics() const { return m_topics; }
    /// The title of a window type that the file defines, empty without.
    QString WindowTitle(const QString& windowType) const { return m_windowTitles.value(windowType); }
    /// What of the file cannot be shown, in French sentences.
    const QStringList& Remarks() const { return m_remarks; }

    /// The names of all pages in alphabetical order.
    QStringList Pages() const;
    bool Has(const QString& path) const;
    /// Any file inside: a picture, a style sheet.
    Outcome<QByteArray> Read(const QString& path) const;
    /// A text inside, decoded.
    Outcome<QString> Text(const QString& path) const;

private:
    /// The names of the lists, as the system part and the window types give them.
    struct Lists {
        QString contents;
        QString index;
        QString startPage;
    };

    HelpFile(const QString& path, std::shared_ptr<HelpArchive> archive);
    void ReadSystem(Lists& lists);
    void ReadWindowTypes(Lists& lists);
    void ReadTopics();
    void ReadLists(const Lists& lists);
    void FindStartPage(const QString& named);
    QString StringAt(qint64 position) const;
    PageAddress Located(const QString& written) const;

    QString m_path;
    std::shared_ptr<HelpArchive> m_archive;
    QByteArray m_strings;
    QString m_title;
    QString m_startPage;
    std::vector<ContentsNode> m_contents;
    std::vector<IndexEntry> m_index;
    QMap<qint64, PageAddress> m_topics;
    QHash<QString, QString> m_windowTitles;
    QStringList m_remarks;
};

/// The bytes of a text in a help file: UTF-8 when they are valid UTF-8, else
/// Windows-1252; a byte order mark decides for UTF-16.
QString DecodeHelpText(const QByteArray& bytes);

} // namespace stoikal
