#include "simulation/number_entry.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(JudgeCountKey, AcceptsTheTenDigitsAlone)
{
    for (const QChar key : u"0123456789"_s)
        EXPECT_EQ(JudgeCountKey(key, 3), CountKey::Accepted) << int(key.unicode());
    for (const QChar key : u"a-+ éx²/:"_s)
        EXPECT_EQ(JudgeCountKey(key, 3), CountKey::NoDigit) << int(key.unicode());
    EXPECT_EQ(JudgeCountKey(QChar(0x0663), 0), CountKey::NoDigit); // An Arabic three.
}

TEST(JudgeCountKey, TellsADecimalSignFromOtherKeys)
{
    EXPECT_EQ(JudgeCountKey(u',', 0), CountKey::DecimalSign);
    EXPECT_EQ(JudgeCountKey(u'.', 3), CountKey::DecimalSign);
}

TEST(JudgeCountKey, DoesNotJudgeAKeyInABoxOf4Characters)
{
    EXPECT_EQ(JudgeCountKey(u'1', 4), CountKey::NotJudged);
    EXPECT_EQ(JudgeCountKey(u'x', 4), CountKey::NotJudged);
    EXPECT_EQ(JudgeCountKey(u',', 5), CountKey::NotJudged);
}

TEST(WithoutKey, TakesTheFirstOccurrenceOut)
{
    EXPECT_EQ(WithoutKey(u"1x5x"_s, u'x'), u"15x"_s);
    EXPECT_EQ(WithoutKey(u"15,"_s, u','), u"15"_s);
}

TEST(WithoutKey, LeavesA0InPlaceOfNothing)
{
    EXPECT_EQ(WithoutKey(u"x"_s, u'x'), u"0"_s);
}

TEST(WithoutKey, LeavesATextThatLacksTheKey)
{
    EXPECT_EQ(WithoutKey(u"15"_s, u'x'), u"15"_s);
}

TEST(TypedCount, ReadsTheNumberOfABox)
{
    EXPECT_EQ(TypedCount(u"730"), 730);
    EXPECT_EQ(TypedCount(u"0730"), 730);
    EXPECT_EQ(TypedCount(u"1500"), 1500);
}

TEST(TypedCount, TakesAnEmptyBoxFor0)
{
    EXPECT_EQ(TypedCount(u""), 0);
}

TEST(TypedCount, NeverCountsBelow0)
{
    // Into a full box any key goes: a sign before the number counts as none.
    EXPECT_EQ(TypedCount(u"-0730"), 0);
    EXPECT_EQ(TypedCount(u"0730x"), 730);
}

} // namespace stoikal
