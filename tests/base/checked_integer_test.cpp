#include "base/checked_integer.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(CheckedInteger, SixteenBitsHoldTheirWholeRange)
{
    EXPECT_EQ(Checked16(0), 0);
    EXPECT_EQ(Checked16(-1), -1);
    EXPECT_EQ(Checked16(32767), 32767);
    EXPECT_EQ(Checked16(-32768), -32768);
}

TEST(CheckedInteger, PastSixteenBitsIsAFaultAndNoWrap)
{
    for (const std::int64_t value :
         {std::int64_t{32768}, std::int64_t{-32769}, std::int64_t{65536},
          std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
        EXPECT_THROW(Checked16(value), FatalFault) << value;
}

TEST(CheckedInteger, ThirtyTwoBitsHoldTheirWholeRange)
{
    EXPECT_EQ(Checked32(2147483647), 2147483647);
    EXPECT_EQ(Checked32(-2147483648LL), std::numeric_limits<std::int32_t>::min());
}

TEST(CheckedInteger, PastThirtyTwoBitsIsAFaultAndNoWrap)
{
    for (const std::int64_t value : {2147483648LL, -2147483649LL, 4294967296LL})
        EXPECT_THROW(Checked32(value), FatalFault) << value;
}

TEST(CheckedInteger, FaultNamesTheNumber)
{
    try {
        Checked16(40000);
        FAIL() << "no fault";
    } catch (const FatalFault& fault) {
        EXPECT_EQ(fault.Cause(), u"un nombre entier dépasse la capacité permise (40000)."_s);
    }
}

TEST(RoundToEven, NearestWholeNumber)
{
    EXPECT_EQ(RoundToEven16(0), 0);
    EXPECT_EQ(RoundToEven16(2.4), 2);
    EXPECT_EQ(RoundToEven16(2.6), 3);
    EXPECT_EQ(RoundToEven16(-2.4), -2);
    EXPECT_EQ(RoundToEven16(-2.6), -3);
}

TEST(RoundToEven, TieGoesToTheEvenNeighbour)
{
    EXPECT_EQ(RoundToEven16(0.5), 0);
    EXPECT_EQ(RoundToEven16(1.5), 2);
    EXPECT_EQ(RoundToEven16(2.5), 2);
    EXPECT_EQ(RoundToEven16(3.5), 4);
    EXPECT_EQ(RoundToEven16(-0.5), 0);
    EXPECT_EQ(RoundToEven16(-1.5), -2);
    EXPECT_EQ(RoundToEven16(-2.5), -2);
}

TEST(RoundToEven, OnlyTheRoundedNumberHasToFit)
{
    EXPECT_EQ(RoundToEven16(32767.4), 32767);
    EXPECT_EQ(RoundToEven16(-32768.5), -32768); // The even one of -32768 and -32769.
    EXPECT_THROW(RoundToEven16(32767.5), FatalFault); // The even one of 32767 and 32768.
    EXPECT_THROW(RoundToEven16(-32768.6), FatalFault);
}

TEST(RoundToEven, HugeNumbersAndNoNumbersAreFaults)
{
    for (const double value : {1e9, -1e9, 1e300, HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_THROW(RoundToEven16(value), FatalFault) << value;
}

TEST(CountOrOne, NothingCountsAsOne)
{
    EXPECT_EQ(CountOrOne(0), 1);
    EXPECT_EQ(CountOrOne(0.9), 1); // 0 whole ones.
    EXPECT_EQ(CountOrOne(-0.5), 1);
}

TEST(CountOrOne, OtherCountsAreTakenWhole)
{
    EXPECT_EQ(CountOrOne(1), 1);
    EXPECT_EQ(CountOrOne(2.9), 2);
    EXPECT_EQ(CountOrOne(99), 99);
    EXPECT_EQ(CountOrOne(-3), -3);
    EXPECT_THROW(CountOrOne(32768), FatalFault);
}

} // namespace stoikal
