#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <array>
#include <cstdint>
#include <vector>

namespace stoikal {

/// The code lengths of one Huffman tree of the LZX format, and what decodes
/// with them: shorter codes come first, and of one length in symbol order.
class LzxTree
{
public:
    static constexpr int kLongestCode = 16;

    explicit LzxTree(int symbolCount)
        : lengths(static_cast<std::size_t>(symbolCount))
    {
    }

    /// Builds the tables from the lengths. False when there are more codes of a
    /// length than it has room for. A tree without any code is no fault until
    /// one is asked for.
    [[nodiscard]] bool Build();

    /// How many codes there are of each length, and the symbols in code order.
    std::array<int, kLongestCode + 1> counts{};
    std::vector<std::uint16_t> symbols;
    std::vector<std::uint8_t> lengths; ///< 0: the symbol does not occur
};

/// Unpacks one interval of the LZX stream of a help file: from a place where
/// the coder started anew up to the next one. It knows no file and asks for no
/// more memory than it has unpacked; every byte of the stream may be wrong.
class LzxDecoder
{
public:
    /// What a frame unpacks to, except the last one of a stream.
    static constexpr int kFrame = 0x8000;

    /// The window is 2 to the power of these bits, 15 to 21.
    explicit LzxDecoder(int windowBits);

    /// Unpacks the next frame behind those before it. `length` is at most
    /// kFrame; false when the bytes are damaged, and nothing more can follow.
    [[nodiscard]] bool AppendFrame(QByteArrayView packed, int length);

    /// All that was unpacked so far.
    const QByteArray& Unpacked() const { return m_callFileSize == 0 ? m_history : m_translated; }

private:
    enum class BlockKind { None, Verbatim, Aligned, Raw };

    class Bits;
    bool ReadBlockHead(Bits& bits);
    bool ReadTrees(Bits& bits, bool isAligned);
    bool ReadLengths(Bits& bits, LzxTree& tree, std::size_t from, std::size_t to);
    bool ReadRawHead(Bits& bits);
    bool UnpackRun(Bits& bits, qsizetype end);
    bool UnpackRaw(Bits& bits, qsizetype end);
    bool UnpackSymbols(Bits& bits, qsizetype end);
    bool UnpackMatch(Bits& bits, int element);
    std::int64_t MatchOffset(Bits& bits, int slot);
    void TakeTranslated(qsizetype from);

    int m_windowBits;
    QByteArray m_history; ///< as the matches see it
    QByteArray m_translated; ///< with machine code put back; only where there is some
    bool m_hasHead = false;
    std::int64_t m_callFileSize = 0; ///< 0: machine code was not translated
    BlockKind m_kind = BlockKind::None;
    std::int64_t m_blockLength = 0;
    std::int64_t m_blockLeft = 0;
    std::array<std::int64_t, 3> m_recent{1, 1, 1}; ///< the latest three match offsets
    LzxTree m_main;
    LzxTree m_length;
    LzxTree m_aligned;
};

} // namespace stoikal
