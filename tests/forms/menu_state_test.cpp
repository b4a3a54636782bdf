#include "forms/menu_state.h"

#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A state with two entries that keeps the names of those that changed.
struct Sample {
    Sample()
    {
        menus.Add(u"Mnu_Charge"_s, {true, false, true, u"&Charges"_s});
        menus.Add(u"Mnu_Taille(1)"_s, {false, true, false, u"Moyenne"_s});
        QObject::connect(&menus, &MenuState::Changed, &menus,
                         [this](const QString& name) { changed << name; });
    }

    MenuState menus;
    QStringList changed;
};

} // namespace

TEST(MenuState, AnswersForItsEntries)
{
    const Sample sample;

    EXPECT_TRUE(sample.menus.IsEnabled("Mnu_Charge"));
    EXPECT_FALSE(sample.menus.IsChecked("Mnu_Charge"));
    EXPECT_TRUE(sample.menus.Get("Mnu_Charge").visible);
    EXPECT_EQ(sample.menus.Get("Mnu_Charge").caption, u"&Charges"_s);
    EXPECT_FALSE(sample.menus.IsEnabled("Mnu_Taille(1)"));
    EXPECT_TRUE(sample.menus.IsChecked("Mnu_Taille(1)"));
    EXPECT_FALSE(sample.menus.Get("Mnu_Taille(1)").visible);
    EXPECT_EQ(sample.menus.All().size(), 2);
}

TEST(MenuState, ChangesTheOneEntryAndTheOneField)
{
    Sample sample;

    sample.menus.SetChecked("Mnu_Charge", true);

    EXPECT_TRUE(sample.menus.IsChecked("Mnu_Charge"));
    EXPECT_TRUE(sample.menus.IsEnabled("Mnu_Charge"));
    EXPECT_TRUE(sample.menus.Get("Mnu_Charge").visible);
    EXPECT_FALSE(sample.menus.IsEnabled("Mnu_Taille(1)"));
}

TEST(MenuState, TellsEachChangeOnce)
{
    Sample sample;

    sample.menus.SetEnabled("Mnu_Charge", false);
    sample.menus.SetChecked("Mnu_Charge", true);
    sample.menus.SetVisible("Mnu_Taille(1)", true);
    sample.menus.SetCaption("Mnu_Taille(1)", u"Grande"_s);

    EXPECT_EQ(sample.changed,
              QStringList({u"Mnu_Charge"_s, u"Mnu_Charge"_s, u"Mnu_Taille(1)"_s, u"Mnu_Taille(1)"_s}));
}

TEST(MenuState, SameValueTellsNothing)
{
    Sample sample;

    sample.menus.SetEnabled("Mnu_Charge", true);
    sample.menus.SetChecked("Mnu_Charge", false);
    sample.menus.SetVisible("Mnu_Charge", true);
    sample.menus.SetCaption("Mnu_Charge", u"&Charges"_s);

    EXPECT_TRUE(sample.changed.isEmpty());
}

TEST(MenuState, NewValueStandsWhenItIsTold)
{
    Sample sample;
    bool seen = false;
    QObject::connect(&sample.menus, &MenuState::Changed, &sample.menus,
                     [&] { seen = sample.menus.IsChecked("Mnu_Charge"); });

    sample.menus.SetChecked("Mnu_Charge", true);

    EXPECT_TRUE(seen);
}

TEST(MenuStateDeathTest, UnknownEntryIsAMistakeOfOurs)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Sample sample;

    EXPECT_DEATH((void)sample.menus.IsEnabled("Mnu_Chrage"), "no menu entry Mnu_Chrage");
    EXPECT_DEATH(sample.menus.SetChecked("mnu_charge", true), "no menu entry mnu_charge");
}

} // namespace stoikal
