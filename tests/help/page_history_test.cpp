#include "help/page_history.h"

#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

PageHistory Visited(const QStringList& pages)
{
    PageHistory history;
    for (const QString& page : pages)
        history.Visit(u"Aide.chm"_s, {{}, page, {}});
    return history;
}

} // namespace

TEST(PageHistory, GoesBackAndForth)
{
    PageHistory history = Visited({u"/a"_s, u"/b"_s, u"/c"_s});

    EXPECT_EQ(history.Back().page.path, u"/b"_s);
    EXPECT_EQ(history.Back().page.path, u"/a"_s);
    EXPECT_FALSE(history.CanGoBack());
    EXPECT_EQ(history.Forward().page.path, u"/b"_s);
    EXPECT_TRUE(history.CanGoForward());
}

TEST(PageHistory, ForgetsWhatLayAheadOfANewTurn)
{
    PageHistory history = Visited({u"/a"_s, u"/b"_s});
    history.Back();

    history.Visit(u"Aide.chm"_s, {{}, u"/d"_s, {}});

    EXPECT_FALSE(history.CanGoForward());
    EXPECT_EQ(history.Back().page.path, u"/a"_s);
}

TEST(PageHistory, AddsNothingForThePageWhereTheReaderStands)
{
    const PageHistory history = Visited({u"/a"_s, u"/a"_s});

    EXPECT_FALSE(history.CanGoBack());
}

TEST(PageHistory, KeepsHowFarDownAPageWasLeft)
{
    PageHistory history = Visited({u"/a"_s});
    history.StoreScroll(120);
    history.Visit(u"Aide.chm"_s, {{}, u"/b"_s, {}});

    EXPECT_EQ(history.Back().scroll, 120);
}

TEST(PageHistory, KeepsTheLatestFiveHundred)
{
    PageHistory history;
    for (int i = 0; i < 600; ++i)
        history.Visit(u"Aide.chm"_s, {{}, QString::number(i), {}});
    int steps = 0;
    while (history.CanGoBack()) {
        history.Back();
        ++steps;
    }

    EXPECT_EQ(steps, 499);
    EXPECT_EQ(history.Current().page.path, u"100"_s);
}

} // namespace stoikal
