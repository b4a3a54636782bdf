#include "help/page_address.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// What a link on the page "/pages/a.html" leads to; an empty path for nowhere.
PageAddress Read(const QString& link)
{
    return ReadPageAddress(link, u"/pages/a.html"_s).value_or(PageAddress{});
}

} // namespace

TEST(PageAddress, IsReadFromTheFolderOfItsPage)
{
    EXPECT_EQ(Read(u"b.html"_s).path, u"/pages/b.html"_s);
    EXPECT_EQ(Read(u"sub\\c.html"_s).path, u"/pages/sub/c.html"_s);
    EXPECT_EQ(Read(u"../b.html"_s).path, u"/b.html"_s);
    EXPECT_EQ(Read(u"/b.html"_s).path, u"/b.html"_s);
    EXPECT_EQ(Read(u"./x/../b.html"_s).path, u"/pages/b.html"_s);
}

TEST(PageAddress, HasAPositionOnThePage)
{
    EXPECT_EQ(Read(u"#fin"_s), (PageAddress{{}, u"/pages/a.html"_s, u"fin"_s}));
    EXPECT_EQ(Read(u"b.html#fin"_s), (PageAddress{{}, u"/pages/b.html"_s, u"fin"_s}));
    EXPECT_EQ(Read(u"b.html?x=1"_s).path, u"/pages/b.html"_s);
    EXPECT_EQ(Read(u"l%27%C3%A9t%C3%A9.html"_s).path, u"/pages/l'été.html"_s);
}

TEST(PageAddress, MayLeadToAnotherHelpFileBesideThisOne)
{
    EXPECT_EQ(Read(u"ms-its:Glossaire_Atomes.chm::/fe.html#a"_s),
              (PageAddress{u"Glossaire_Atomes.chm"_s, u"/fe.html"_s, u"a"_s}));
    EXPECT_EQ(Read(u"mk:@MSITStore:Autre.chm::fe.html"_s), (PageAddress{u"Autre.chm"_s, u"/fe.html"_s, {}}));
}

TEST(PageAddress, NeverLeavesTheHelpFiles)
{
    for (const QString& link :
         {u"http://example.org/"_s, u"https://example.org/a.html"_s, u"file:///etc/passwd"_s, u"mailto:a@b"_s,
          u"javascript:alert(1)"_s, u"//example.org/a.html"_s, u"\\\\serveur\\partage\\a.html"_s,
          u"C:\\a.html"_s, u"../../etc/passwd"_s, u"/../a.html"_s, u"%2e%2e/%2e%2e/a.html"_s,
          u"ms-its:../Autre.chm::/a.html"_s, u"ms-its:C:\\Aide\\Autre.chm::/a.html"_s,
          u"ms-its:%2e%2e%2fAutre.chm::/a.html"_s, u"ms-its:Autre.chm::/../a.html"_s})
        EXPECT_FALSE(ReadPageAddress(link, u"/pages/a.html"_s)) << link.toStdString();
}

} // namespace stoikal
