#pragma once

#include <QString>
#include <vector>

namespace stoikal {

class HelpFile;

/// The title that a page gives itself, else its first heading, else empty.
QString PageTitle(const QString& html);

/// What a page says, without its tags, one blank between two words.
QString PlainPageText(const QString& html);

/// The words around a position in a text, cut between words: from 40 characters before
/// the position at most, 140 characters at most, with "…" where it is cut.
QString PageExcerpt(const QString& text, qsizetype position);

/// Finds the pages of a help file that hold some words. The texts are read once,
/// by the first search.
class PageSearch
{
public:
    struct Hit {
        QString path;
        QString title;
        QString excerpt; ///< some words around the first occurrence, "…" where it is cut
    };

    /// Forgets what it read: another help file is open.
    void Clear();

    /// The pages that hold every word of the request, whatever its case and its
    /// accents, those with a word in the title first, then those with the most
    /// occurrences. Nothing for a request without a word. Pages that cannot be read
    /// and pages above 2 MB are passed by.
    std::vector<Hit> Find(const HelpFile& file, const QString& request);

private:
    struct Page {
        QString path;
        QString title;
        QString text;
        QString folded;
    };

    void ReadPages(const HelpFile& file);

    std::vector<Page> m_pages;
    bool m_isRead = false;
};

} // namespace stoikal
