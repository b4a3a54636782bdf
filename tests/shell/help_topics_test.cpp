#include "shell/help_topics.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace stoikal {

TEST(HelpTopics, EveryWindowHasItsPage)
{
    const std::map<const char16_t*, int> pages{
        {u"frmAbout", 100},
        {u"frmCharge", 200},
        {u"frmChrono", 300},
        {u"frmPassWord", 400},
        {u"frmEquation", 500},
        {u"frmNote", 600},
        {u"frmPref", 700},
        {u"frmReactif", 800},
        {u"frmProduit", 800},
        {u"frmTip", 900},
        {u"frmExpert", 1000},
        {u"frmSearch", 1100},
        {u"frmTableauPeriodique", 1200},
        {u"frmDataAtomes", 1300},
        {u"frmMassMol", 1400},
        {u"frmCalMol", 1500},
        {u"frmHistoMol", 1600},
        {u"frmNewFile", 1700},
        {u"frmPreview", 1700},
        {u"frmSimulAnim", 1800},
        {u"frmHelp", 1900},
    };
    for (const auto& [window, page] : pages)
        EXPECT_EQ(help_topics::TopicOf(window), page) << page;
}

TEST(HelpTopics, WindowWithoutAPageOpensTheContents)
{
    for (const char16_t* const window : {u"frmStoikal", u"frmName", u"frmEtude", u"frmChoixSimul",
                                         u"frmDepot", u"frmMotPasse", u"frmCorbeille", u"frmTexte"})
        EXPECT_EQ(help_topics::TopicOf(window), 0);
}

TEST(HelpTopics, SplashAndWhatIsNoWindowHaveNone)
{
    EXPECT_EQ(help_topics::TopicOf(u"frmSplash"), std::nullopt);
    EXPECT_EQ(help_topics::TopicOf(u"txtCoef(0)"), std::nullopt);
    EXPECT_EQ(help_topics::TopicOf(u""), std::nullopt);
}

} // namespace stoikal
