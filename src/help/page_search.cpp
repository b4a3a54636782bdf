#include "help/page_search.h"

#include "help/folded_text.h"
#include "help/help_file.h"
#include "help/html_walker.h"

#include <QStringList>
#include <algorithm>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype kLargestPage = qsizetype{2} * 1024 * 1024;
constexpr qsizetype kLargestWhole = qsizetype{32} * 1024 * 1024;
constexpr qsizetype kExcerptBefore = 40;
constexpr qsizetype kExcerptLength = 140;

/// A tag that stands within a line, its end tag too.
bool IsWithinLine(const QString& tag)
{
    static const QStringList kTags{u"a"_s,    u"b"_s,     u"code"_s, u"em"_s,     u"font"_s, u"i"_s,
                                   u"span"_s, u"small"_s, u"sub"_s,  u"strong"_s, u"sup"_s,  u"u"_s};
    return kTags.contains(tag.startsWith(u'/') ? tag.sliced(1) : tag);
}

} // namespace

QString PageTitle(const QString& html)
{
    HtmlWalker walker(html);
    QString heading;
    QString inside;
    while (walker.Next()) {
        if (walker.IsTag()) {
            inside = walker.Tag();
            continue;
        }
        QString text = walker.Text().simplified();
        if (inside == "title"_L1 && !text.isEmpty())
            return text;
        if (inside == "h1"_L1 && heading.isEmpty())
            heading = text;
    }
    return heading;
}

QString PlainPageText(const QString& html)
{
    HtmlWalker walker(html);
    QString text;
    bool isTitle = false;
    while (walker.Next()) {
        if (walker.IsTag()) {
            isTitle = walker.Tag() == "title"_L1;
            // A tag within a line parts no words: H<sub>2</sub>O.
            if (!IsWithinLine(walker.Tag()))
                text += u' ';
        } else if (!isTitle) {
            text += walker.Text();
        }
    }
    // The no-break spaces of the typography count as blanks too.
    return text.simplified();
}

QString PageExcerpt(const QString& text, qsizetype position)
{
    qsizetype from = std::max<qsizetype>(0, position - kExcerptBefore);
    if (from > 0) {
        const qsizetype blank = text.indexOf(u' ', from);
        from = blank < 0 || blank >= position ? position : blank + 1;
    }
    qsizetype to = std::min(text.size(), from + kExcerptLength);
    // A word too long to stand there whole is cut all the same.
    if (const qsizetype blank = text.lastIndexOf(u' ', to); to < text.size() && blank > position)
        to = blank;
    return (from > 0 ? u"… "_s : QString()) + text.sliced(from, to - from)
        + (to < text.size() ? u" …"_s : QString());
}

void PageSearch::Clear()
{
    m_pages.clear();
    m_isRead = false;
}

void PageSearch::ReadPages(const HelpFile& file)
{
    qsizetype whole = 0;
    const QStringList names = file.Pages();
    for (const QString& name : names) {
        const auto html = file.Text(name);
        if (!html || html->size() > kLargestPage || whole + html->size() > kLargestWhole)
            continue;
        whole += html->size();
        const QString text = PlainPageText(*html);
        m_pages.push_back({name, PageTitle(*html), text, Folded(text)});
    }
    m_isRead = true;
}

std::vector<PageSearch::Hit> PageSearch::Find(const HelpFile& file, const QString& request)
{
    const QStringList words = Folded(request).split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    if (!m_isRead)
        ReadPages(file);
    struct Ranked {
        bool isInTitle;
        qsizetype occurrences;
        const Page* page;
        qsizetype first;
    };
    std::vector<Ranked> ranked;
    for (const Page& page : m_pages) {
        const QString title = Folded(page.title);
        const auto holds
            = [&](const QString& word) { return page.folded.contains(word) || title.contains(word); };
        if (!std::all_of(words.begin(), words.end(), holds))
            continue;
        const auto isTitled = [&title](const QString& word) { return title.contains(word); };
        qsizetype occurrences = 0;
        for (const QString& word : words)
            occurrences += page.folded.count(word);
        ranked.push_back({std::any_of(words.begin(), words.end(), isTitled), occurrences, &page,
                          std::max<qsizetype>(0, page.folded.indexOf(words.first()))});
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const Ranked& a, const Ranked& b) {
        return a.isInTitle != b.isInTitle ? a.isInTitle : a.occurrences > b.occurrences;
    });
    std::vector<Hit> hits;
    hits.reserve(ranked.size());
    for (const Ranked& rank : ranked)
        hits.push_back({rank.page->path, rank.page->title, PageExcerpt(rank.page->text, rank.first)});
    return hits;
}

} // namespace stoikal
