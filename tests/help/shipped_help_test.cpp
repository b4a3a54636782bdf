#include "chemistry/element_table.h"
#include "help/html_walker.h"
#include "help/page_search.h"
#include "help_support.h"
#include "support/french_typography.h"

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

bool HasAnchor(const QString& html, const QString& anchor)
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
        return address->anchor.isEmpty() || HasAnchor(*file.Text(address->path), address->anchor)
            ? QString()
            : u"no such anchor"_s;
    }
    const QString beside = QFileInfo(file.Path()).path() + u'/' + address->file;
    return OpenedHelp(beside)->Has(address->path) ? QString() : u"not in that file"_s;
}

/// What a page says to its reader, an exponent with "^" before it; examples and
/// the contents of files are left out.
QString RunningText(const QString& html)
{
    static const QStringList kVerbatim{u"code"_s, u"pre"_s, u"kbd"_s};
    static const QStringList kWithinLine{u"a"_s, u"b"_s, u"i"_s, u"em"_s, u"strong"_s, u"span"_s, u"sub"_s};
    HtmlWalker walker(html);
    QString text;
    QString verbatim;
    while (walker.Next()) {
        if (!walker.IsTag()) {
            text += verbatim.isEmpty() ? walker.Text() : u"…"_s;
            continue;
        }
        const QString tag = walker.Tag().startsWith(u'/') ? walker.Tag().sliced(1) : walker.Tag();
        if (kVerbatim.contains(tag))
            verbatim = walker.Tag() == tag ? tag : QString();
        else if (tag == "sup"_L1)
            text += walker.Tag() == tag ? u"^"_s : QString();
        else if (!kWithinLine.contains(tag))
            text += u'\n';
        text += walker.Attribute(u"alt"_s);
    }
    return text;
}

/// The lists beside the pages: titles and keywords, which know no exponents.
QStringList ListedTexts(const HelpFile& file)
{
    QStringList texts{file.Title()};
    const std::function<void(const std::vector<ContentsNode>&)> list = [&](const auto& nodes) {
        for (const ContentsNode& node : nodes) {
            texts << node.title;
            list(node.children);
        }
    };
    list(file.Contents());
    for (const IndexEntry& entry : file.Index())
        texts << entry.keyword << entry.title;
    texts.removeDuplicates();
    return texts;
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

TEST(ShippedHelp, GivesEveryPageATitleOfItsOwnAndALineInTheContents)
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

TEST(ShippedHelp, HasAPageForEveryTopicThatAWindowRequests)
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

TEST(ShippedHelp, IsSetAsFrenchIs)
{
    for (const QString& path : ShippedHelpFiles()) {
        const auto file = OpenedHelp(path);
        const QStringList pages = file->Pages();
        for (const QString& page : pages) {
            const QStringList faults = TypographyFaults(RunningText(*file->Text(page)));
            EXPECT_TRUE(faults.isEmpty()) << file->Title().toStdString() << page.toStdString() << '\n'
                                          << faults.join(u'\n').toStdString();
        }
        const QStringList texts = ListedTexts(*file);
        for (const QString& text : texts) {
            // The contents know no exponents.
            const QStringList faults = TypographyFaults(QString(text).replace(u"VIIIe"_s, u"VIII^e"_s));
            EXPECT_TRUE(faults.isEmpty()) << faults.join(u'\n').toStdString();
        }
    }
}

/// Each rule must see its fault and let the right text pass.
TEST(FrenchTypography, ReportsEachKindOfFault)
{
    const QStringList wrong{u"l'eau"_s,         u"dit \"oui\""_s,  u"à -5\u00A0°C"_s, u"0,5 - 2x"_s,
                            u"SO4^2-"_s,        u"F^-"_s,          u"quoi ?"_s,       u"quoi?"_s,
                            u"voici : l’eau"_s, u"« oui\u00A0»"_s, u"«\u00A0oui »"_s, u"20 °C"_s,
                            u"50 %"_s,          u"2 mol"_s,        u"5 points"_s,     u"10000\u00A0g"_s,
                            u"10 000"_s,        u"2700\u00A0°C"_s, u"plus de 1000"_s, u"VIIIe siècle"_s,
                            u"le 109e"_s};
    for (const QString& text : wrong)
        EXPECT_FALSE(TypographyFaults(text).isEmpty()) << text.toStdString();

    const QStringList right{u"l’eau"_s,
                            u"à −5\u00A0°C"_s,
                            u"0,5 − 2x"_s,
                            u"SO4^2−, F^−"_s,
                            u"quoi\u00A0? «\u00A0oui\u00A0»\u00A0: 00:60,0"_s,
                            u"20\u00A0°C, 50\u00A0%, 2\u00A0mol, 5\u00A0points"_s,
                            u"10\u00A0000, 2\u00A0700\u00A0°C, en 1766, 1771-1774, 3 Suédois, 2 H2"_s,
                            u"le VIII^e siècle, le 109^e, Ile, Fe"_s};
    for (const QString& text : right)
        EXPECT_EQ(TypographyFaults(text), QStringList()) << text.toStdString();
}

TEST(ShippedHelp, DescribesAtLeastFortyScientists)
{
    // One page more is the list of all.
    EXPECT_GE(OpenedHelp(ShippedHelpFiles().at(2))->Pages().size(), 41);
}

} // namespace stoikal
