#include "help/packed_number.h"

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

TEST(TakePackedNumber, HasItsHighSevenBitsFirst)
{
    // 0x82 0x01 is 2 * 128 + 1.
    const QByteArray bytes("\x82\x01\x05", 3);
    qsizetype place = 0;

    EXPECT_EQ(TakePackedNumber(bytes, 3, place), 257);
    EXPECT_EQ(place, 2);
    EXPECT_EQ(TakePackedNumber(bytes, 3, place), 5);
    EXPECT_EQ(place, 3);
}

TEST(TakePackedNumber, ThatDoesNotEndIsNone)
{
    qsizetype place = 0;
    EXPECT_EQ(TakePackedNumber(QByteArray("\x82\x01", 2), 1, place), std::nullopt);
    // Nine groups at most.
    place = 0;
    EXPECT_EQ(TakePackedNumber(QByteArray(9, '\x80') + '\x01', 10, place), std::nullopt);
    // 9 * 7 = 63 bits are above 2^60.
    place = 0;
    EXPECT_EQ(TakePackedNumber(QByteArray(8, '\xFF') + '\x7F', 9, place), kTooLarge);
}

} // namespace stoikal
