#include "help/html_walker.h"

#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The pieces of a text: tags in angle brackets, texts as they are.
QStringList Pieces(const QString& html)
{
    QStringList pieces;
    HtmlWalker walker(html);
    while (walker.Next())
        pieces << (walker.IsTag() ? u'<' + walker.Tag() + u'>' : walker.Text());
    return pieces;
}

} // namespace

TEST(HtmlWalker, PartsTagsFromTexts)
{
    EXPECT_EQ(Pieces(u"<P>Un <B>atome</B></P>"_s),
              (QStringList{u"<p>"_s, u"Un "_s, u"<b>"_s, u"atome"_s, u"</b>"_s, u"</p>"_s}));
}

TEST(HtmlWalker, PassesCommentsScriptsAndSheetsBy)
{
    EXPECT_EQ(Pieces(u"a<!-- <b> -->b<script>if (a<b) c();</script>c<style>p { }</STYLE>d"_s),
              (QStringList{u"a"_s, u"b"_s, u"<script>"_s, u"</script>"_s, u"c"_s, u"<style>"_s, u"</style>"_s,
                           u"d"_s}));
    EXPECT_EQ(Pieces(u"a<!-- never closed"_s), (QStringList{u"a"_s}));
}

TEST(HtmlWalker, ReadsALoneAngleBracketAsText)
{
    EXPECT_EQ(Pieces(u"1 < 2"_s).join(QString()), u"1 < 2"_s);
    EXPECT_EQ(Pieces(u"fin <"_s).join(QString()), u"fin <"_s);
    EXPECT_EQ(Pieces(u"fin <b"_s).join(QString()), u"fin <b"_s);
}

TEST(HtmlWalker, ReadsAttributesHoweverTheyAreWritten)
{
    const QString html = u"<param NAME='Name'  value=\"a > b &amp; c\" x=1 empty>"_s;
    HtmlWalker walker(html);
    ASSERT_TRUE(walker.Next());

    EXPECT_EQ(walker.Attribute(u"name"_s), u"Name"_s);
    EXPECT_EQ(walker.Attribute(u"value"_s), u"a > b & c"_s);
    EXPECT_EQ(walker.Attribute(u"x"_s), u"1"_s);
    EXPECT_EQ(walker.Attribute(u"empty"_s), QString());
    EXPECT_FALSE(walker.Next());
}

TEST(DecodeEntities, KnowsNamesAndNumbers)
{
    EXPECT_EQ(DecodeEntities(u"&eacute;l&egrave;ve &#233; &#xE9; &lt;b&gt; &amp; &oelig;uf &rarr;"_s),
              u"élève é é <b> & œuf →"_s);
}

TEST(DecodeEntities, LeavesWhatIsNone)
{
    EXPECT_EQ(DecodeEntities(u"a & b &; &inconnu; &#0; &#x110000; &#xD800; &eacute"_s),
              u"a & b &; &inconnu; &#0; &#x110000; &#xD800; &eacute"_s);
}

} // namespace stoikal
