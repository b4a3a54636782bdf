#include "shell/version_check.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(ReplaceAll, ReplacesEachOccurrenceFromLeftToRight)
{
    EXPECT_EQ(ReplaceAll(u"1.2.3"_s, u"."_s, QString()), u"123"_s);
    EXPECT_EQ(ReplaceAll(u"abab"_s, u"ab"_s, u"c"_s), u"cc"_s);
}

TEST(ReplaceAll, GoesOnBehindThePlaceReplaced)
{
    // What was put in is not searched again: "aa" becomes "aaaa", no more.
    EXPECT_EQ(ReplaceAll(u"aa"_s, u"a"_s, u"aa"_s), u"aaaa"_s);
    // "aaa" holds "aa" once from the left; the third letter stays.
    EXPECT_EQ(ReplaceAll(u"aaa"_s, u"aa"_s, u"b"_s), u"ba"_s);
}

TEST(RemoveLineBreaks, JoinsTheLinesTrimmed)
{
    EXPECT_EQ(RemoveLineBreaks(u"4 \r\n .1\r\n"_s), u"4.1"_s);
    EXPECT_EQ(RemoveLineBreaks(u"4.1"_s), u"4.1"_s);
}

TEST(RemoteVersion, IsWhatStandsBehindTheFirstEqualsSign)
{
    EXPECT_EQ(RemoteVersion(u"version=4.1"_s), u"4.1"_s);
    EXPECT_EQ(RemoteVersion(u"a=b=4"_s), u"b=4"_s);
}

TEST(RemoteVersion, IsTrimmed)
{
    EXPECT_EQ(RemoteVersion(u"version = 4.1 \r\n"_s), u"4.1"_s);
}

TEST(RemoteVersion, JoinsItsLines)
{
    EXPECT_EQ(RemoteVersion(u"version=4\r\n.1\r\n"_s), u"4.1"_s);
}

TEST(RemoteVersion, IsTheWholeTextWithoutAnEqualsSign)
{
    EXPECT_EQ(RemoteVersion(u"4.1\r\n"_s), u"4.1"_s);
    EXPECT_EQ(RemoteVersion(QString()), QString());
}

TEST(IsNewer, ComparesTheNumbersWithoutTheirPoints)
{
    EXPECT_TRUE(IsNewer(u"4.1"_s, u"4.0"_s)); // 41 > 40
    EXPECT_TRUE(IsNewer(u"1.10"_s, u"1.9"_s)); // 110 > 19
    EXPECT_TRUE(IsNewer(u"2.10"_s, u"3.0"_s)); // 210 > 30
    EXPECT_TRUE(IsNewer(u"3.10"_s, u"4.0"_s)); // 310 > 40
    EXPECT_FALSE(IsNewer(u"3.9"_s, u"4.0"_s)); // 39 < 40
    EXPECT_FALSE(IsNewer(u"5"_s, u"4.0"_s)); // 5 < 40
}

TEST(IsNewer, IsFalseForTheSameVersion)
{
    EXPECT_FALSE(IsNewer(u"4.0"_s, u"4.0"_s));
}

TEST(IsNewer, IsFalseForATextThatIsTooLongForAVersion)
{
    EXPECT_TRUE(IsNewer(QString(32, u'9'), u"4.0"_s));
    EXPECT_FALSE(IsNewer(QString(33, u'9'), u"4.0"_s));
    // What a hotel's network answers with, whatever was asked for.
    EXPECT_FALSE(
        IsNewer(RemoteVersion(u"<html lang=\"fr\" id=90><body>Connectez-vous à notre réseau</body></html>"_s),
                u"4.0"_s));
    EXPECT_FALSE(IsNewer(RemoteVersion(u"<p id=90>Connectez-vous à notre réseau sans fil</p>"_s), u"4.0"_s));
}

TEST(IsNewer, IsFalseForATextOfNoDigits)
{
    EXPECT_FALSE(IsNewer(u"bientôt"_s, u"4.0"_s));
    EXPECT_FALSE(IsNewer(QString(), u"4.0"_s));
}

} // namespace stoikal
