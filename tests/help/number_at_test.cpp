#include "help/number_at.h"

#include <QByteArray>
#include <gtest/gtest.h>

namespace stoikal {

TEST(NumberAt, HasItsLowByteFirst)
{
    const QByteArray bytes("x\x01\x02\x03\x04\0\0\0\0", 9);

    EXPECT_EQ(NumberAt(bytes, 1, 4), 0x04030201);
    EXPECT_EQ(NumberAt(bytes, 1, 8), 0x04030201);
}

TEST(NumberAt, OutsideTheBytesIsTooLarge)
{
    const QByteArray bytes("\x01\x02\x03\x04", 4);

    EXPECT_EQ(NumberAt(bytes, 1, 4), kTooLarge);
    EXPECT_EQ(NumberAt(bytes, -1, 4), kTooLarge);
    EXPECT_EQ(NumberAt(bytes, kTooLarge, 4), kTooLarge);
}

TEST(NumberAt, OfMoreThanSixtyBitsIsTooLarge)
{
    // 2^60 - 1 is the largest that counts.
    EXPECT_EQ(NumberAt(QByteArray(8, '\xFF'), 0, 8), kTooLarge);
    EXPECT_EQ(NumberAt(QByteArray(7, '\xFF') + '\x0F', 0, 8), kTooLarge - 1);
}

} // namespace stoikal
