#include "chemistry/element_table.h"
#include "help/html_walker.h"
#include "help/page_search.h"
#include "help_support.h"

#include <QFileInfo>
#include <QSet>
#include <functional>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The links and pictures of a page, as they stand there.
QStringList LinksOf(const QString& html)
{
    QStringList links;
    HtmlWalker walker(html);
    while (walker.Next()) {
        if (!walker.IsTag())
            continue;
        for (const QString& name : {u"href"_s, u"src"_s}) {
            if (const QString link = walker.Attribute(name); !link.isEmpty())
                links << link;
        }
    }
    return links;
}

bool HasPlace(const QString& html, const QString& anchor)
{
    return anchor.isEmpty() || html.contains(u"name=\"%1\""_s.arg(anchor));
}

/// An empty text when the link leads to something that is there, else why not.
QString FaultOf(const HelpFile& file, const QString& page, const QString& link)
{
    const auto address = ReadPageAddress(link, page);
    if (!address)
        return u"leads out of the help"_s;
    if (address->file.isEmpty()) {
        if (!file.Has(address->path))
            return u"leads nowhere"_s;
        return address->anchor.isEmpty() || HasPlace(*file.Text(address->path), address->anchor)
            ? QString()
            : u"no such place"_s;
    }
    const QString beside = QFileInfo(file.Path()).path() + u'/' + address->file;
    return OpenedHelp(beside)->Has(address->path) ? QString() : u"not in that file"_s;
}

} // namespace

TEST(ShippedHelp, HasNoLinkThatLeadsNowhere)
{
    for (const QString& path : ShippedHelpFiles()) {
        const auto file = OpenedHelp(path);
        const QStringList pages = file->Pages();
        for (const QString& page : pages) {
            const QStringList links = LinksOf(*file->Text(page));
            for (const QString& link : links)
                EXPECT_EQ(FaultOf(*file, page, link), QString())
                    << page.toStdString() << " to " << link.toStdString();
        }
        const std::function<void(const std::vector<ContentsNode>&)> check = [&](const auto& nodes) {
            for (const ContentsNode& node : nodes) {
                EXPECT_EQ(node.link.isEmpty() ? QString() : FaultOf(*file, u"/"_s, node.link), QString())
                    << node.title.toStdString();
                check(node.children);
            }
        };
        check(file->Contents());
        for (const IndexEntry& entry : file->Index())
            EXPECT_EQ(FaultOf(*file, u"/"_s, entry.link), QString()) << entry.keyword.toStdString();
    }
}

TEST(ShippedHelp, GivesEveryPageATitleOfItsOwnAndAPlaceInTheContents)
{
    for (const QString& path : ShippedHelpFiles()) {
        const auto file = OpenedHelp(path);
        QSet<QString> listed;
        const std::function<void(const std::vector<ContentsNode>&)> list = [&](const auto& nodes) {
            for (const ContentsNode& node : nodes) {
                listed << u'/' + node.link;
                list(node.children);
            }
        };
        list(file->Contents());
        QSet<QString> titles;
        const QStringList pages = file->Pages();
        for (const QString& page : pages) {
            const QString title = PageTitle(*file->Text(page));
            EXPECT_FALSE(title.isEmpty()) << page.toStdString();
            EXPECT_FALSE(titles.contains(title)) << title.toStdString();
            EXPECT_TRUE(listed.contains(page)) << page.toStdString();
            titles << title;
        }
    }
}

TEST(ShippedHelp, HasAPageForEveryTopicThatAWindowAsksFor)
{
    const auto manual = OpenedHelp(ShippedHelpFiles().first());

    for (const int topic :
         {100, 200, 300, 400, 500, 600, 700, 800, 900, 1000, 1100, 1200, 1300, 1400, 1500, 1600, 1700, 1800})
        EXPECT_TRUE(manual->Topics().contains(topic)) << topic;
    EXPECT_GE(manual->Pages().size(), 20);
}

TEST(ShippedHelp, HasAnEntryForEachOfThe118Elements)
{
    const auto glossary = OpenedHelp(ShippedHelpFiles().at(1));

    for (const ElementRecord& element : kElementRows) {
        const QString page = u'/' + element.symbol.toString().toLower() + u".html"_s;
        ASSERT_TRUE(glossary->Has(page)) << page.toStdString();
        const QString html = *glossary->Text(page);
        EXPECT_TRUE(PageTitle(html).endsWith(u" (%1)"_s.arg(element.symbol))) << page.toStdString();
        EXPECT_TRUE(PlainPageText(html).contains(u"Numéro atomique %1 "_s.arg(element.atomicNumber)))
            << page.toStdString();
    }
}

TEST(ShippedHelp, TellsOfAtLeastFortyScientists)
{
    // One page more is the list of all.
    EXPECT_GE(OpenedHelp(ShippedHelpFiles().at(2))->Pages().size(), 41);
}

} // namespace stoikal
