#include "base/number_text.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QString WithPoint(double value, const char* mask)
{
    return FormatMask(value, QLatin1String(mask).toString(), u'.');
}

} // namespace

TEST(FormatMask, ZeroIsADigitAlways)
{
    EXPECT_EQ(WithPoint(0, "0.0"), u"0.0"_s);
    EXPECT_EQ(WithPoint(5, "0.0"), u"5.0"_s);
    EXPECT_EQ(WithPoint(7, "00.00"), u"07.00"_s);
    EXPECT_EQ(WithPoint(0, "00.00"), u"00.00"_s);
    EXPECT_EQ(WithPoint(12.5, "00.00"), u"12.50"_s);
    EXPECT_EQ(WithPoint(123.5, "00.00"), u"123.50"_s); // A mask never takes digits away.
    EXPECT_EQ(WithPoint(0.01, "0.000"), u"0.010"_s);
}

TEST(FormatMask, HashIsADigitOnlyIfThereIsOne)
{
    EXPECT_EQ(WithPoint(0, "#0.#"), u"0"_s);
    EXPECT_EQ(WithPoint(12.5, "#0.#"), u"12.5"_s);
    EXPECT_EQ(WithPoint(0, "####.0"), u".0"_s);
    EXPECT_EQ(WithPoint(0.4, "####.0"), u".4"_s);
    EXPECT_EQ(WithPoint(12345.6, "####.0"), u"12345.6"_s); // One digit more than marks.
    EXPECT_EQ(WithPoint(1312, "###0.0"), u"1312.0"_s);
    EXPECT_EQ(WithPoint(0.4, "###0.0"), u"0.4"_s);
    EXPECT_EQ(WithPoint(3.25, "#0.0###"), u"3.25"_s);
}

TEST(FormatMask, HalfIsRoundedAwayFromZeroOnTheShortestText)
{
    // The stored binary number is a little below the half that it reads as: 44.1499999999999985...
    EXPECT_EQ(WithPoint(44.15, "0.0"), u"44.2"_s);
    EXPECT_EQ(WithPoint(0.1425, "0.000"), u"0.143"_s);
    EXPECT_EQ(WithPoint(1.005, "0.00"), u"1.01"_s);
    EXPECT_EQ(WithPoint(2.675, "00.00"), u"02.68"_s);
    EXPECT_EQ(WithPoint(18.01525, "#0.0000"), u"18.0153"_s);
    EXPECT_EQ(WithPoint(2.5, "0"), u"3"_s);
    EXPECT_EQ(WithPoint(0.5, "0"), u"1"_s);
}

TEST(FormatMask, BelowTheHalfIsRoundedDown)
{
    EXPECT_EQ(WithPoint(44.149, "0.0"), u"44.1"_s);
    EXPECT_EQ(WithPoint(1013.25, "0"), u"1013"_s);
    EXPECT_EQ(WithPoint(0.4999, "0"), u"0"_s);
    EXPECT_EQ(WithPoint(0.0049, "#0.00"), u"0.00"_s);
}

TEST(FormatMask, NegativeNumbersKeepTheirSign)
{
    EXPECT_EQ(WithPoint(-189.35, "####.0"), u"-189.4"_s); // 0.35 away from zero.
    EXPECT_EQ(WithPoint(-189.34, "####.0"), u"-189.3"_s);
    EXPECT_EQ(WithPoint(-0.5, "####.0"), u"-.5"_s);
    EXPECT_EQ(WithPoint(-7.5, "00.00"), u"-07.50"_s);
    EXPECT_EQ(WithPoint(-2.5, "0"), u"-3"_s);
}

TEST(FormatMask, RoundedToZeroHasNoSign)
{
    EXPECT_EQ(WithPoint(-0.04, "0.0"), u"0.0"_s);
    EXPECT_EQ(WithPoint(-0.0, "0.00"), u"0.00"_s);
    EXPECT_EQ(WithPoint(-0.4, "0"), u"0"_s);
    EXPECT_EQ(WithPoint(-0.05, "0.0"), u"-0.1"_s);
}

TEST(FormatMask, RoundingCarriesThroughAllNines)
{
    EXPECT_EQ(WithPoint(9.995, "0.00"), u"10.00"_s);
    EXPECT_EQ(WithPoint(99.95, "0.0"), u"100.0"_s);
    EXPECT_EQ(WithPoint(0.9996, "0.000"), u"1.000"_s);
    EXPECT_EQ(WithPoint(0.95, "####.0"), u"1.0"_s);
    EXPECT_EQ(WithPoint(999.5, "0"), u"1000"_s);
    EXPECT_EQ(WithPoint(-9.995, "#0.00"), u"-10.00"_s);
    EXPECT_EQ(WithPoint(59.96, "00.0"), u"60.0"_s);
}

TEST(FormatMask, NoDecimalLeftLeavesNoSeparator)
{
    EXPECT_EQ(WithPoint(20, "#0.#"), u"20"_s);
    EXPECT_EQ(WithPoint(19.96, "#0.#"), u"20"_s);
    EXPECT_EQ(WithPoint(19.04, "#0.#"), u"19"_s);
    EXPECT_EQ(FormatMask(19.96, u"#0.#"_s, u','), u"20"_s);
}

TEST(FormatMask, SeparatorTakesThePlaceOfThePoint)
{
    EXPECT_EQ(FormatMask(44.15, u"0.0"_s, u','), u"44,2"_s);
    EXPECT_EQ(FormatMask(-189.35, u"####.0"_s, u','), u"-189,4"_s);
    EXPECT_EQ(FormatMask(7, u"00.00"_s, u','), u"07,00"_s);
    EXPECT_EQ(FormatMask(18.0153, u"#0.0000"_s, u','), u"18,0153"_s);
}

TEST(FormatMask, LargeNumbersHaveNeitherGroupsNorExponent)
{
    EXPECT_EQ(WithPoint(1234567.891, "0.00"), u"1234567.89"_s);
    EXPECT_EQ(WithPoint(1e15, "0.0"), u"1000000000000000.0"_s);
    EXPECT_EQ(WithPoint(1e22, "#0.#"), u"1"_s + QString(22, u'0'));
    EXPECT_EQ(WithPoint(-1e22, "0"), u"-1"_s + QString(22, u'0'));
}

TEST(FormatMask, SmallNumbersHaveNoExponent)
{
    EXPECT_EQ(WithPoint(0.00000012, "0.0000000"), u"0.0000001"_s);
    EXPECT_EQ(WithPoint(1e-300, "0.00"), u"0.00"_s);
}

TEST(FormatMask, NoNumberIsAFault)
{
    EXPECT_THROW(FormatMask(std::nan(""), u"0.0"_s, u'.'), FatalFault);
    EXPECT_THROW(FormatMask(-HUGE_VAL, u"0.0"_s, u'.'), FatalFault);
}

TEST(PlainNumber, IsTheShortestTextThatReadsBack)
{
    EXPECT_EQ(PlainNumber(0.1), u"0.1"_s);
    EXPECT_EQ(PlainNumber(2.2), u"2.2"_s);
    EXPECT_EQ(PlainNumber(-189.35), u"-189.35"_s);
    EXPECT_EQ(PlainNumber(22.413969545014137), u"22.413969545014137"_s);
    EXPECT_EQ(PlainNumber(0.1 + 0.2), u"0.30000000000000004"_s); // Another number than 0.3.
}

TEST(PlainNumber, WholeNumbersHaveNoPoint)
{
    EXPECT_EQ(PlainNumber(1.0), u"1"_s);
    EXPECT_EQ(PlainNumber(0.0), u"0"_s);
    EXPECT_EQ(PlainNumber(-20.0), u"-20"_s);
    EXPECT_EQ(PlainNumber(1.0F), u"1"_s);
}

TEST(PlainNumber, ZeroHasNoSign)
{
    EXPECT_EQ(PlainNumber(-0.0), u"0"_s);
    EXPECT_EQ(PlainNumber(-0.0F), u"0"_s);
}

TEST(PlainNumber, HasNoExponent)
{
    EXPECT_EQ(PlainNumber(1e-7), u"0.0000001"_s);
    EXPECT_EQ(PlainNumber(1e22), u"1"_s + QString(22, u'0'));
    EXPECT_EQ(PlainNumber(1e10F), u"10000000000"_s);
    // The smallest number there is, 5e-324: 323 zeros behind the point, then 5.
    EXPECT_EQ(PlainNumber(std::numeric_limits<double>::denorm_min()), u"0."_s + QString(323, u'0') + u'5');
}

TEST(PlainNumber, OfAFloatReadsBackAsThatFloat)
{
    EXPECT_EQ(PlainNumber(0.1F), u"0.1"_s); // As a double it is 0.10000000149011612.
    EXPECT_EQ(PlainNumber(74.23F), u"74.23"_s);
    EXPECT_EQ(PlainNumber(-6.5F), u"-6.5"_s);
    EXPECT_EQ(PlainNumber(16777216.0F), u"16777216"_s);
}

TEST(PlainNumber, ReadsBackBitForBit)
{
    for (const double value : {1.0 / 3.0, 2.0 / 3.0, 1e-17 / 3.0, 1234567.0 / 7.0,
                               std::numeric_limits<double>::max(), -std::numeric_limits<double>::min()})
        EXPECT_EQ(ReadNumber(PlainNumber(value)), value) << PlainNumber(value).toStdString();
}

TEST(PlainNumber, NoNumberIsAFault)
{
    EXPECT_THROW(PlainNumber(std::nan("")), FatalFault);
    EXPECT_THROW(PlainNumber(HUGE_VAL), FatalFault);
    EXPECT_THROW(PlainNumber(HUGE_VALF), FatalFault);
}

TEST(ReadNumber, ReadsSignDigitsPointDigits)
{
    EXPECT_EQ(ReadNumber(u"12"), 12);
    EXPECT_EQ(ReadNumber(u"12.5"), 12.5);
    EXPECT_EQ(ReadNumber(u"-12.5"), -12.5);
    EXPECT_EQ(ReadNumber(u"+12.5"), 12.5);
    EXPECT_EQ(ReadNumber(u"007"), 7);
    EXPECT_EQ(ReadNumber(u".5"), 0.5);
    EXPECT_EQ(ReadNumber(u"-.5"), -0.5);
    EXPECT_EQ(ReadNumber(u"5."), 5);
}

TEST(ReadNumber, SkipsBlanksBeforeIt)
{
    EXPECT_EQ(ReadNumber(u"   12.5"), 12.5);
    EXPECT_EQ(ReadNumber(u"  -3"), -3);
}

TEST(ReadNumber, StopsAtWhatCannotBelongToIt)
{
    EXPECT_EQ(ReadNumber(u"12.5 g"), 12.5);
    EXPECT_EQ(ReadNumber(u"1 2"), 1);
    EXPECT_EQ(ReadNumber(u"2H2O"), 2);
    EXPECT_EQ(ReadNumber(u"1.2.3"), 1.2); // A second point.
    EXPECT_EQ(ReadNumber(u"1,5"), 1); // The comma is no point.
    EXPECT_EQ(ReadNumber(u"3-2"), 3);
    EXPECT_EQ(ReadNumber(u"1e5"), 1);
    EXPECT_EQ(ReadNumber(u"0x10"), 0);
}

TEST(ReadNumber, NothingReadableIsZero)
{
    for (const QString& text : {u""_s, u"   "_s, u"abc"_s, u"."_s, u"-"_s, u"+"_s, u"-."_s, u"- 2"_s,
                                u"--2"_s, u"+-2"_s, u"e5"_s, u"inf"_s, u"nan"_s, u"²"_s, u"\u0663"_s})
        EXPECT_EQ(ReadNumber(text), 0) << text.toStdString();
}

TEST(ReadNumber, HugeNumberIsHugeAndKeepsItsSign)
{
    const QString huge(400, u'9');

    EXPECT_GE(ReadNumber(huge), std::numeric_limits<double>::max());
    EXPECT_LE(ReadNumber(u'-' + huge), -std::numeric_limits<double>::max());
}

TEST(ReadNumber, NumberTooSmallForTheTypeIsZero)
{
    EXPECT_EQ(ReadNumber(u"0."_s + QString(400, u'0') + u'1'), 0);
    EXPECT_EQ(ReadNumber(u"-0."_s + QString(400, u'0') + u'1'), 0);
}

TEST(ReadFileNumber, TakesACommaForAPoint)
{
    EXPECT_EQ(ReadFileNumber(u"74,23"), 74.23);
    EXPECT_EQ(ReadFileNumber(u"74.23"), 74.23);
    EXPECT_EQ(ReadFileNumber(u" -0,5 s"), -0.5);
    EXPECT_EQ(ReadFileNumber(u"1,2,3"), 1.2);
    EXPECT_EQ(ReadFileNumber(u"1.2,3"), 1.2);
    EXPECT_EQ(ReadFileNumber(u","), 0);
    EXPECT_EQ(ReadFileNumber(u""), 0);
}

TEST(ReadNumber, SignAloneIsZero)
{
    EXPECT_EQ(ReadNumber(u"-"), 0);
    EXPECT_EQ(ReadNumber(u"+"), 0);
    EXPECT_EQ(ReadNumber(u"-x1"), 0);
}

TEST(ReadNumber, PointAloneIsZero)
{
    EXPECT_EQ(ReadNumber(u"."), 0);
    EXPECT_EQ(ReadNumber(u"-."), 0);
    EXPECT_EQ(ReadNumber(u".x5"), 0);
}

} // namespace stoikal
