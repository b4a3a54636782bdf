#include "help/sitemap.h"

#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QString Object(const QString& params)
{
    return u"<LI><OBJECT type=\"text/sitemap\">"_s + params + u"</OBJECT>\n"_s;
}

QString Param(const QString& name, const QString& value)
{
    return u"<param name=\"%1\" value=\"%2\">"_s.arg(name, value);
}

QString Entry(const QString& name, const QString& local)
{
    return Object(Param(u"Name"_s, name) + (local.isEmpty() ? QString() : Param(u"Local"_s, local)));
}

/// A tree on one line: "A(B,C),D".
QString Shown(const std::vector<ContentsNode>& nodes)
{
    QStringList all;
    for (const ContentsNode& node : nodes)
        all << node.title + (node.children.empty() ? QString() : u'(' + Shown(node.children) + u')');
    return all.join(u',');
}

} // namespace

TEST(ReadContents, BuildsTheTree)
{
    const auto contents
        = ReadContents(u"<UL>"_s + Entry(u"A"_s, u"a.html"_s) + u"<UL>"_s + Entry(u"B"_s, u"b.html#x"_s)
                       + Entry(u"C &eacute;"_s, {}) + u"</UL>"_s + Entry(u"D"_s, u"d.html"_s) + u"</UL>"_s);

    EXPECT_EQ(Shown(contents), u"A(B,C é),D"_s);
    EXPECT_EQ(contents.at(0).link, u"a.html"_s);
    EXPECT_EQ(contents.at(0).children.at(0).link, u"b.html#x"_s);
    EXPECT_EQ(contents.at(0).children.at(1).link, QString());
}

TEST(ReadContents, LeavesTheSettingsOfTheListOut)
{
    EXPECT_EQ(
        Shown(ReadContents(
            u"<OBJECT type=\"text/site properties\"><param name=\"Window Styles\" value=\"0\"></OBJECT><UL>"_s
            + Entry(u"A"_s, u"a.html"_s))),
        u"A"_s);
}

TEST(ReadContents, BringsTooDeepEntriesUp)
{
    QString text;
    for (int i = 0; i < 1000; ++i)
        text += u"<UL>"_s + Entry(u"x"_s, u"x.html"_s);
    int depth = 0;
    const std::vector<ContentsNode> contents = ReadContents(text);
    for (const auto* nodes = &contents; !nodes->empty(); nodes = &nodes->back().children)
        ++depth;

    EXPECT_EQ(depth, 16);
}

TEST(ReadContents, ReadsAnythingElseAsAnEmptyTree)
{
    EXPECT_TRUE(
        ReadContents(u"<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"never closed\">"_s)
            .empty());
    EXPECT_TRUE(ReadContents(u"</UL></UL>"_s).empty());
    EXPECT_TRUE(ReadContents({}).empty());
}

TEST(ReadIndex, SortsWithoutAccents)
{
    const auto index = ReadIndex(u"<UL>"_s + Entry(u"zinc"_s, u"z.html"_s) + Entry(u"équation"_s, u"e.html"_s)
                                 + Entry(u"Fer"_s, u"f.html"_s) + u"</UL>"_s);

    ASSERT_EQ(index.size(), 3U);
    EXPECT_EQ(index[0].keyword, u"équation"_s);
    EXPECT_EQ(index[1].keyword, u"Fer"_s);
    EXPECT_EQ(index[2].keyword, u"zinc"_s);
}

TEST(ReadIndex, KeepsEveryTargetOfAKeyword)
{
    const auto index = ReadIndex(u"<UL>"_s
                                 + Object(Param(u"Name"_s, u"charge"_s) + Param(u"Name"_s, u"La fenêtre"_s)
                                          + Param(u"Local"_s, u"a.html"_s) + Param(u"Name"_s, u"Le fichier"_s)
                                          + Param(u"Local"_s, u"b.html"_s)));

    ASSERT_EQ(index.size(), 2U);
    EXPECT_EQ(index[0].keyword, u"charge"_s);
    EXPECT_EQ(index[0].title, u"La fenêtre"_s);
    EXPECT_EQ(index[1].title, u"Le fichier"_s);
    EXPECT_EQ(index[1].link, u"b.html"_s);
}

TEST(ReadIndex, JoinsSubKeywords)
{
    const auto index = ReadIndex(u"<UL>"_s + Entry(u"atome"_s, {}) + u"<UL>"_s
                                 + Entry(u"couleur"_s, u"c.html"_s) + u"</UL></UL>"_s);

    ASSERT_EQ(index.size(), 1U);
    EXPECT_EQ(index[0].keyword, u"atome, couleur"_s);
    EXPECT_EQ(index[0].title, u"couleur"_s);
}

} // namespace stoikal
