#include "help/page_search.h"

#include "help/folded_text.h"
#include "help_support.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QStringList PathsOf(const std::vector<PageSearch::Hit>& hits)
{
    QStringList paths;
    for (const PageSearch::Hit& hit : hits)
        paths << hit.path;
    return paths;
}

} // namespace

TEST(FoldedText, DropsCaseAndAccentsAndKeepsEveryPosition)
{
    EXPECT_EQ(Folded(u"Éléments à l’Œuvre\u00A0: ÇA"_s), u"elements a l'œuvre : ca"_s);
}

TEST(FoldedText, ComparesTypedCharactersWithThoseOfTypesetting)
{
    // What a keyboard has, and what a page has in its stead.
    EXPECT_EQ(Folded(u"l’eau à −10\u00A0000\u202F°C"_s), Folded(u"l'eau à -10 000 °C"_s));
}

TEST(PageTitle, IsWhatThePageSaysElseItsHeading)
{
    EXPECT_EQ(PageTitle(u"<title> Le fer\n(Fe) </title><h1>x</h1>"_s), u"Le fer (Fe)"_s);
    EXPECT_EQ(PageTitle(u"<h1>Le fer</h1>"_s), u"Le fer"_s);
    EXPECT_EQ(PageTitle(u"<p>rien</p>"_s), QString());
}

TEST(PlainPageText, KeepsFormulasWhole)
{
    EXPECT_EQ(PlainPageText(u"<title>t</title><h1>L'eau</h1><p>H<sub>2</sub>O, <b>un</b> corps</p>"_s),
              u"L'eau H2O, un corps"_s);
}

TEST(PageExcerpt, IsTheWholeOfAShortText)
{
    EXPECT_EQ(PageExcerpt(u"Le fer est un métal."_s, 3), u"Le fer est un métal."_s);
    EXPECT_EQ(PageExcerpt({}, 0), QString());
}

TEST(PageExcerpt, BeginsWithAWholeWordWithinFortyCharactersBeforeThePosition)
{
    // "mot " ten times is 40 characters: from the position 80, 40 is the "m" of a word,
    // and the next word begins at 44.
    const QString text = u"mot "_s.repeated(20) + u"fer"_s;

    EXPECT_EQ(PageExcerpt(text, 80), u"… "_s + u"mot "_s.repeated(9) + u"fer"_s);
    // At 79, a blank, a word may begin after it: 40, ten words before the position.
    EXPECT_EQ(PageExcerpt(text, 79), u"… "_s + u"mot "_s.repeated(10) + u"fer"_s);
    // Nothing is cut where the position is 40 characters from the beginning.
    EXPECT_EQ(PageExcerpt(text, 40), text);
}

TEST(PageExcerpt, BeginsAtThePositionItselfAfterALongWord)
{
    EXPECT_EQ(PageExcerpt(u"mot "_s + u"x"_s.repeated(60) + u"fer"_s, 64), u"… fer"_s);
    EXPECT_EQ(PageExcerpt(u"mot "_s + u"x"_s.repeated(60) + u"-fer au"_s, 65), u"… fer au"_s);
}

TEST(PageExcerpt, EndsWithAWholeWordWithin140Characters)
{
    // 140 characters are 35 times "mot "; the last of them is the blank after a word.
    const QString text = u"mot "_s.repeated(60);

    EXPECT_EQ(PageExcerpt(text, 0), u"mot "_s.repeated(34) + u"mot …"_s);
    EXPECT_EQ(PageExcerpt(u"mot "_s.repeated(35).chopped(1), 0), u"mot "_s.repeated(35).chopped(1));
    EXPECT_EQ(PageExcerpt(u"x"_s + text, 0), u"x"_s + u"mot "_s.repeated(34) + u"mot …"_s);
    EXPECT_EQ(PageExcerpt(u"xy"_s + text, 0), u"xy"_s + u"mot "_s.repeated(33) + u"mot …"_s);
}

TEST(PageExcerpt, CutsAWordThatIsTooLong)
{
    EXPECT_EQ(PageExcerpt(u"le "_s + u"x"_s.repeated(200), 3), u"le "_s + u"x"_s.repeated(137) + u" …"_s);
}

TEST(PageSearch, FindsPagesThatHoldEveryWord)
{
    const auto file = OpenedHelp(ShippedHelpFiles().at(1));
    PageSearch search;

    const auto both = PathsOf(search.Find(*file, u"HYDROGENE cavendish"_s));
    const auto none = search.Find(*file, u"hydrogène motquinexistepas"_s);

    EXPECT_TRUE(both.contains(u"/h.html"_s));
    EXPECT_TRUE(none.empty());
    EXPECT_TRUE(search.Find(*file, u"  "_s).empty());
}

TEST(PageSearch, PutsAWordInTheTitleFirst)
{
    const auto file = OpenedHelp(ShippedHelpFiles().at(1));
    PageSearch search;

    const auto hits = search.Find(*file, u"hydrogène"_s);

    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(hits.front().path, u"/h.html"_s);
    EXPECT_EQ(hits.front().title, u"Hydrogène (H)"_s);
    EXPECT_TRUE(Folded(hits.front().excerpt).contains("hydrogene"_L1));
}

TEST(PageSearch, FindsWhatAKeyboardTypesInATypesetPage)
{
    const auto manual = OpenedHelp(ShippedHelpFiles().at(0));
    const auto atoms = OpenedHelp(ShippedHelpFiles().at(1));
    PageSearch inManual;
    PageSearch inAtoms;

    EXPECT_TRUE(PathsOf(inManual.Find(*manual, u"10 000"_s)).contains(u"/particules.html"_s));
    EXPECT_TRUE(PathsOf(inAtoms.Find(*atoms, u"-269 °C"_s)).contains(u"/he.html"_s));
    EXPECT_TRUE(PathsOf(inAtoms.Find(*atoms, u"l'helium"_s)).contains(u"/he.html"_s));
    EXPECT_TRUE(PathsOf(inAtoms.Find(*atoms, u"l’hélium"_s)).contains(u"/he.html"_s));
}

TEST(PageSearch, ReadsAnotherFileWhenItIsCleared)
{
    PageSearch search;
    search.Find(*OpenedHelp(ShippedHelpFiles().at(1)), u"hydrogène"_s);
    search.Clear();

    const auto hits = search.Find(*OpenedHelp(ShippedHelpFiles().at(2)), u"lavoisier"_s);

    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(hits.front().path, u"/lavoisier_antoine.html"_s);
}

} // namespace stoikal
