#include "help/lzx_decoder.h"

#include <gtest/gtest.h>

namespace stoikal {

namespace {

/// Writes the bits of a packed frame: words of 16 bits, the high bit first, the
/// low byte first.
class BitWriter
{
public:
    void Put(unsigned value, int bits)
    {
        for (int i = bits - 1; i >= 0; --i)
            m_bits.push_back((value >> static_cast<unsigned>(i)) & 1U);
    }

    QByteArray Bytes() const
    {
        QByteArray bytes;
        for (std::size_t word = 0; word < m_bits.size(); word += 16) {
            unsigned value = 0;
            for (std::size_t i = word; i < word + 16; ++i)
                value = value * 2 + (i < m_bits.size() ? m_bits[i] : 0U);
            bytes.append(static_cast<char>(value & 0xFFU));
            bytes.append(static_cast<char>(value >> 8U));
        }
        return bytes;
    }

private:
    std::vector<unsigned> m_bits;
};

/// Writes the code lengths of a tree whose lengths were all 0 before. Of the 20
/// symbols of the small tree, the first 12 have codes of 4 bits (0 to 11) and
/// the last 8 codes of 5 bits (24 to 31): 12/16 + 8/32 = 1. A difference d from 0
/// to a length is (0 - length) modulo 17, so the symbol is 17 - length.
void PutLengths(BitWriter& bits, const std::vector<int>& lengths)
{
    for (int i = 0; i < 20; ++i)
        bits.Put(i < 12 ? 4 : 5, 4);
    for (const int length : lengths) {
        const unsigned symbol = length == 0 ? 0U : 17U - static_cast<unsigned>(length);
        if (symbol < 12)
            bits.Put(symbol, 4);
        else
            bits.Put(24 + symbol - 12, 5);
    }
}

/// The window of 32 KB has 30 classes of offsets: 256 + 8 * 30 = 496 symbols.
constexpr int kMainSymbols = 496;

/// The head of a block with these four symbols of the main tree, each with a code
/// of 2 bits in the order of their numbers.
void PutBlock(BitWriter& bits, unsigned kind, unsigned length, const std::vector<int>& symbols,
              int mainSymbols = kMainSymbols, unsigned lowBits = 3)
{
    bits.Put(kind, 3);
    bits.Put(length, 24);
    if (kind == 2) {
        // Eight low bits of an offset, each with its own number as code.
        for (int i = 0; i < 8; ++i)
            bits.Put(lowBits, 3);
    }
    std::vector<int> lengths(static_cast<std::size_t>(mainSymbols), 0);
    for (const int symbol : symbols)
        lengths.at(static_cast<std::size_t>(symbol)) = 2;
    PutLengths(bits, std::vector<int>(lengths.begin(), lengths.begin() + 256));
    PutLengths(bits, std::vector<int>(lengths.begin() + 256, lengths.end()));
    PutLengths(bits, std::vector<int>(249, 0));
}

/// A block of 8 bytes that are not packed: "0" no machine code, "011" its kind, 24
/// bits of length, 4 bits up to the word; three offsets; the bytes.
QByteArray RawFrame(const QByteArray& bytes)
{
    BitWriter bits;
    bits.Put(0, 1);
    bits.Put(3, 3);
    bits.Put(static_cast<unsigned>(bytes.size()), 24);
    return bits.Bytes() + QByteArray("\1\0\0\0\1\0\0\0\1\0\0\0", 12) + bytes;
}

} // namespace

TEST(LzxDecoder, CopiesABlockThatIsNotPacked)
{
    LzxDecoder decoder(15);

    EXPECT_TRUE(decoder.AppendFrame(RawFrame("Stoikal."), 8));

    EXPECT_EQ(decoder.Unpacked(), "Stoikal.");
}

TEST(LzxDecoder, RepeatsWhatAMatchPointsAt)
{
    // "ab", then a match of length 2 + 4 = 6 at offset 2: class 3 is offset 1, and
    // class 4 begins at 2 with one bit behind; "0" makes it 2. abababab
    BitWriter bits;
    bits.Put(0, 1);
    const int match = 256 + 4 * 8 + 4;
    PutBlock(bits, 1, 8, {'a', 'b', 'c', match});
    bits.Put(0, 2);
    bits.Put(1, 2);
    bits.Put(3, 2);
    bits.Put(0, 1);
    LzxDecoder decoder(15);

    EXPECT_TRUE(decoder.AppendFrame(bits.Bytes(), 8));

    EXPECT_EQ(decoder.Unpacked(), "abababab");
}

TEST(LzxDecoder, TakesTheLowBitsOfAnOffsetFromTheirOwnTree)
{
    // Class 8 begins at 16 - 2 = 14 and has three low bits: 14 + 2 = 16 back.
    // Sixteen letters, then "abcabc" again from the beginning.
    BitWriter bits;
    bits.Put(0, 1);
    const int match = 256 + 8 * 8 + 4;
    PutBlock(bits, 2, 22, {'a', 'b', 'c', match});
    for (unsigned i = 0; i < 16; ++i)
        bits.Put(i % 3, 2);
    bits.Put(3, 2);
    bits.Put(2, 3);
    LzxDecoder decoder(15);

    EXPECT_TRUE(decoder.AppendFrame(bits.Bytes(), 22));

    EXPECT_EQ(decoder.Unpacked(), "abcabcabcabcabcaabcabc");
}

TEST(LzxDecoder, PutsTheTargetsOfCallsBack)
{
    // "1" and the size 0x00000100 say that calls were translated. The call at
    // place 2 has the absolute target 0x10, relative 0x10 - 2 = 0x0E.
    const QByteArray code = QByteArray("xx\xE8\x10\0\0\0", 7) + QByteArray(13, 'y');
    BitWriter bits;
    bits.Put(1, 1);
    bits.Put(0, 16);
    bits.Put(0x100, 16);
    bits.Put(3, 3);
    bits.Put(20, 24);
    LzxDecoder decoder(15);

    EXPECT_TRUE(decoder.AppendFrame(bits.Bytes() + QByteArray("\1\0\0\0\1\0\0\0\1\0\0\0", 12) + code, 20));

    EXPECT_EQ(decoder.Unpacked(), QByteArray("xx\xE8\x0E\0\0\0", 7) + QByteArray(13, 'y'));
}

TEST(LzxDecoder, RefusesAMatchThatPointsInFrontOfTheBeginning)
{
    BitWriter bits;
    bits.Put(0, 1);
    const int match = 256 + 8 * 8 + 4;
    PutBlock(bits, 2, 22, {'a', 'b', 'c', match});
    bits.Put(0, 2);
    bits.Put(3, 2);
    bits.Put(2, 3);
    LzxDecoder decoder(15);

    EXPECT_FALSE(decoder.AppendFrame(bits.Bytes(), 22));
}

TEST(LzxDecoder, RefusesAnOffsetOfARawBlockThatPointsNowhere)
{
    BitWriter head;
    head.Put(0, 1);
    head.Put(3, 3);
    head.Put(4, 24);
    // The latest offset is 0xFFFFFFFF; a match that repeats it follows (class 0).
    BitWriter bits;
    PutBlock(bits, 1, 4, {'a', 'b', 'c', 256 + 2});
    bits.Put(3, 2);
    LzxDecoder decoder(15);

    EXPECT_FALSE(decoder.AppendFrame(
        head.Bytes() + QByteArray("\xFF\xFF\xFF\xFF\1\0\0\0\1\0\0\0", 12) + "abcd" + bits.Bytes(), 8));
}

TEST(LzxDecoder, RefusesAStreamThatEndsTooEarly)
{
    const QByteArray frame = RawFrame("Stoikal.");
    for (qsizetype length = 0; length < frame.size(); ++length) {
        LzxDecoder decoder(15);
        EXPECT_FALSE(decoder.AppendFrame(frame.first(length), 8)) << length;
    }
}

TEST(LzxDecoder, RefusesATreeWithTooManyCodes)
{
    LzxTree tree(3);
    tree.lengths = {1, 1, 1};
    EXPECT_FALSE(tree.Build());

    tree.lengths = {1, 2, 2};
    EXPECT_TRUE(tree.Build());
    // One code of one bit, two of two.
    EXPECT_EQ(tree.symbols, (std::vector<std::uint16_t>{0, 1, 2}));
}

TEST(LzxDecoder, LargestWindowsHaveMoreClassesOfOffsets)
{
    // 1 MB has 42 classes of offsets: 256 + 8 * 42 = 592 symbols; 2 MB has 50: 656.
    const std::pair<int, int> windows[]{{20, 592}, {21, 656}};
    for (const auto& [windowBits, symbols] : windows) {
        BitWriter bits;
        bits.Put(0, 1);
        const int match = 256 + 4 * 8 + 4;
        PutBlock(bits, 1, 8, {'a', 'b', 'c', match}, symbols);
        bits.Put(0, 2);
        bits.Put(1, 2);
        bits.Put(3, 2);
        bits.Put(0, 1);
        LzxDecoder decoder(windowBits);

        EXPECT_TRUE(decoder.AppendFrame(bits.Bytes(), 8)) << windowBits;

        EXPECT_EQ(decoder.Unpacked(), "abababab") << windowBits;
    }
}

TEST(LzxDecoder, PassesOverTheByteBehindAnOddBlock)
{
    // Three bytes that are not packed and one up to the word; then a block of four:
    // "011", 24 bits of length, 5 bits up to the word.
    BitWriter next;
    next.Put(3, 3);
    next.Put(4, 24);
    const QByteArray offsets("\1\0\0\0\1\0\0\0\1\0\0\0", 12);
    LzxDecoder decoder(15);

    EXPECT_TRUE(decoder.AppendFrame(RawFrame("Sto") + 'X' + next.Bytes() + offsets + "ikal", 7));

    EXPECT_EQ(decoder.Unpacked(), "Stoikal");
}

TEST(LzxDecoder, RefusesATreeOfLowBitsWithTooManyCodes)
{
    // Eight codes of three bits fill their room; eight of one bit want four times as
    // much, and this even where no match asks for them.
    for (const unsigned length : {3U, 1U}) {
        BitWriter bits;
        bits.Put(0, 1);
        PutBlock(bits, 2, 2, {'a', 'b', 'c', 'd'}, kMainSymbols, length);
        bits.Put(0, 2);
        bits.Put(1, 2);
        LzxDecoder decoder(15);

        EXPECT_EQ(decoder.AppendFrame(bits.Bytes(), 2), length == 3) << length;
    }
}

} // namespace stoikal
