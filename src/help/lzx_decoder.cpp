#include "help/lzx_decoder.h"

#include <algorithm>

namespace stoikal {
namespace {

constexpr int kLiterals = 256;
constexpr int kLengthSymbols = 249;
constexpr int kAlignedSymbols = 8;
constexpr int kPreSymbols = 20;
constexpr int kLongHeader = 7; ///< a match whose length goes on in the tree of lengths
constexpr int kShortestMatch = 2;
constexpr int kDamaged = -1;

/// How many classes of match offsets a window has.
int OffsetSlots(int windowBits)
{
    if (windowBits == 20)
        return 42;
    if (windowBits == 21)
        return 50;
    return 2 * windowBits;
}

/// How many bits tell the offset within its class.
int ExtraBits(int slot)
{
    return slot < 4 ? 0 : std::min(slot / 2 - 1, 17);
}

/// The smallest offset of each class, beginning with the class of 0.
std::int64_t FirstOffset(int slot)
{
    std::int64_t first = 0;
    for (int i = 0; i < slot; ++i)
        first += std::int64_t{1} << ExtraBits(i);
    return first;
}

} // namespace

bool LzxTree::Build()
{
    counts.fill(0);
    for (const std::uint8_t length : lengths)
        ++counts.at(length);
    counts[0] = 0;
    std::int64_t room = 1;
    std::array<int, kLongestCode + 2> begins{};
    for (std::size_t length = 1; length <= kLongestCode; ++length) {
        room = room * 2 - counts.at(length);
        if (room < 0)
            return false;
        begins.at(length + 1) = begins.at(length) + counts.at(length);
    }
    symbols.assign(static_cast<std::size_t>(begins.back()), 0);
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (const std::uint8_t length = lengths[symbol]; length != 0)
            symbols[static_cast<std::size_t>(begins.at(length)++)] = static_cast<std::uint16_t>(symbol);
    }
    return true;
}

/// The bits of one packed frame: words of 16 bits, low byte first, high bit
/// first. Behind the end it gives zeros and knows that it did.
class LzxDecoder::Bits
{
public:
    explicit Bits(QByteArrayView bytes)
        : m_bytes(bytes)
    {
    }

    /// The next bits as a number, up to 24 of them.
    int Take(int bits)
    {
        while (m_count < bits) {
            m_buffer = (m_buffer << 16U) | ByteAt(m_next) | (ByteAt(m_next + 1) << 8U);
            m_next += 2;
            m_count += 16;
        }
        m_count -= bits;
        return static_cast<int>((m_buffer >> static_cast<unsigned>(m_count))
                                & ((std::uint64_t{1} << static_cast<unsigned>(bits)) - 1));
    }

    /// The next symbol by a tree; kDamaged where no code fits.
    int TakeSymbol(const LzxTree& tree)
    {
        int code = 0;
        int first = 0;
        int index = 0;
        for (std::size_t length = 1; length <= LzxTree::kLongestCode; ++length) {
            code |= Take(1);
            const int count = tree.counts[length];
            if (code - first < count)
                return tree.symbols[static_cast<std::size_t>(index + code - first)];
            index += count;
            first = (first + count) * 2;
            code *= 2;
        }
        return kDamaged;
    }

    /// Goes on at the next word, at least one bit further, byte by byte.
    void LeaveWord()
    {
        if (m_count == 0)
            Take(16);
        m_next -= 2LL * (m_count / 16);
        m_count = 0;
    }

    QByteArrayView TakeBytes(qsizetype count)
    {
        const QByteArrayView bytes = m_bytes.sliced(std::min(m_next, m_bytes.size()));
        m_next += count;
        return bytes.first(std::min(count, bytes.size()));
    }

    std::int64_t TakeNumber()
    {
        std::uint64_t number = 0;
        for (unsigned i = 0; i < 4; ++i)
            number |= ByteAt(m_next++) << (8U * i);
        return static_cast<std::int64_t>(number);
    }

    /// More was taken than there was.
    bool IsOverrun() const { return m_next * 8 - m_count > (m_bytes.size() + 1) / 2 * 16; }

private:
    std::uint64_t ByteAt(qsizetype place) const
    {
        return place < m_bytes.size() ? static_cast<unsigned char>(m_bytes[place]) : 0U;
    }

    QByteArrayView m_bytes;
    qsizetype m_next = 0;
    std::uint64_t m_buffer = 0;
    int m_count = 0;
};

LzxDecoder::LzxDecoder(int windowBits)
    : m_windowBits(windowBits)
    , m_main(kLiterals + 8 * OffsetSlots(windowBits))
    , m_length(kLengthSymbols)
    , m_aligned(kAlignedSymbols)
{
}

bool LzxDecoder::AppendFrame(QByteArrayView packed, int length)
{
    Bits bits(packed);
    if (!m_hasHead) {
        m_hasHead = true;
        if (bits.Take(1) != 0) {
            const std::int64_t high = bits.Take(16);
            m_callFileSize = high * 0x10000 + bits.Take(16);
        }
    }
    const qsizetype begin = m_history.size();
    const qsizetype end = begin + length;
    m_history.reserve(end);
    while (m_history.size() < end) {
        if ((m_blockLeft == 0 && !ReadBlockHead(bits)) || !UnpackRun(bits, end) || bits.IsOverrun())
            return false;
    }
    // The last frame of a stream may be asked for in part.
    if (m_history.size() > end) {
        if (length == kFrame)
            return false;
        m_history.truncate(end);
    }
    if (m_callFileSize != 0)
        TakeTranslated(begin);
    return true;
}

bool LzxDecoder::ReadBlockHead(Bits& bits)
{
    if (m_kind == BlockKind::Raw && m_blockLength % 2 != 0)
        bits.TakeBytes(1);
    const int kind = bits.Take(3);
    m_blockLength = m_blockLeft = bits.Take(24);
    switch (kind) {
    case 1:
    case 2:
        m_kind = kind == 1 ? BlockKind::Verbatim : BlockKind::Aligned;
        return ReadTrees(bits, kind == 2);
    case 3:
        m_kind = BlockKind::Raw;
        return ReadRawHead(bits);
    default:
        return false;
    }
}

bool LzxDecoder::ReadTrees(Bits& bits, bool isAligned)
{
    if (isAligned) {
        for (std::uint8_t& length : m_aligned.lengths)
            length = static_cast<std::uint8_t>(bits.Take(3));
        if (!m_aligned.Build())
            return false;
    }
    return ReadLengths(bits, m_main, 0, kLiterals)
        && ReadLengths(bits, m_main, kLiterals, m_main.lengths.size()) && m_main.Build()
        && ReadLengths(bits, m_length, 0, kLengthSymbols) && m_length.Build() && !bits.IsOverrun();
}

/// The lengths are told as differences to those of the block before, under a
/// small tree of their own: 0 to 16 is a difference, 17 and 18 are runs of
/// absent symbols, 19 is a run of one difference.
bool LzxDecoder::ReadLengths(Bits& bits, LzxTree& tree, std::size_t from, std::size_t to)
{
    LzxTree pre(kPreSymbols);
    for (std::uint8_t& length : pre.lengths)
        length = static_cast<std::uint8_t>(bits.Take(4));
    if (!pre.Build())
        return false;
    const auto fill = [&](std::size_t& place, int count, int value) {
        for (; count > 0 && place < to; --count)
            tree.lengths[place++] = static_cast<std::uint8_t>(value);
    };
    for (std::size_t place = from; place < to;) {
        int code = bits.TakeSymbol(pre);
        if (code == kDamaged || bits.IsOverrun())
            return false;
        int count = 1;
        if (code == 17 || code == 18) {
            fill(place, code == 17 ? bits.Take(4) + 4 : bits.Take(5) + 20, 0);
            continue;
        }
        if (code == 19) {
            count = bits.Take(1) + 4;
            code = bits.TakeSymbol(pre);
            if (code < 0 || code > LzxTree::kLongestCode)
                return false;
        }
        fill(place, count, (tree.lengths[place] - code + 17) % 17);
    }
    return true;
}

bool LzxDecoder::ReadRawHead(Bits& bits)
{
    bits.LeaveWord();
    for (std::int64_t& offset : m_recent)
        offset = bits.TakeNumber();
    return !bits.IsOverrun();
}

bool LzxDecoder::UnpackRun(Bits& bits, qsizetype end)
{
    return m_kind == BlockKind::Raw ? UnpackRaw(bits, end) : UnpackSymbols(bits, end);
}

bool LzxDecoder::UnpackRaw(Bits& bits, qsizetype end)
{
    const qsizetype count = std::min<qsizetype>(m_blockLeft, end - m_history.size());
    const QByteArrayView bytes = bits.TakeBytes(count);
    m_history.append(bytes.data(), bytes.size());
    m_blockLeft -= count;
    return bytes.size() == count;
}

bool LzxDecoder::UnpackSymbols(Bits& bits, qsizetype end)
{
    while (m_blockLeft > 0 && m_history.size() < end) {
        const int element = bits.TakeSymbol(m_main);
        if (element == kDamaged || bits.IsOverrun())
            return false;
        if (element < kLiterals) {
            m_history.append(static_cast<char>(element));
            --m_blockLeft;
        } else if (!UnpackMatch(bits, element - kLiterals)) {
            return false;
        }
    }
    return true;
}

bool LzxDecoder::UnpackMatch(Bits& bits, int element)
{
    int length = element % 8;
    if (length == kLongHeader) {
        const int more = bits.TakeSymbol(m_length);
        if (more == kDamaged)
            return false;
        length += more;
    }
    length += kShortestMatch;
    const std::int64_t offset = MatchOffset(bits, element / 8);
    if (offset < 1 || offset > m_history.size() || offset > (std::int64_t{1} << m_windowBits)
        || length > m_blockLeft)
        return false;
    m_blockLeft -= length;
    // A match may reach into itself: "abab" is "ab" and a match of offset 2.
    for (qsizetype from = m_history.size() - offset; length > 0; --length)
        m_history.append(m_history.at(from++));
    return true;
}

/// The offset of a match, with the queue of the latest three kept; kDamaged
/// where the tree of low bits has no such code.
std::int64_t LzxDecoder::MatchOffset(Bits& bits, int slot)
{
    if (slot < 3) {
        std::swap(m_recent[0], m_recent.at(static_cast<std::size_t>(slot)));
        return m_recent[0];
    }
    const int extra = ExtraBits(slot);
    std::int64_t offset = FirstOffset(slot) - 2;
    if (m_kind == BlockKind::Aligned && extra >= 3) {
        offset += std::int64_t{bits.Take(extra - 3)} * 8;
        const int low = bits.TakeSymbol(m_aligned);
        if (low == kDamaged)
            return kDamaged;
        offset += low;
    } else {
        offset += bits.Take(extra);
    }
    m_recent = {offset, m_recent[0], m_recent[1]};
    return offset;
}

/// The coder may have turned the relative targets of call instructions (0xE8)
/// into absolute ones. The last ten bytes of a frame are left alone.
void LzxDecoder::TakeTranslated(qsizetype from)
{
    m_translated.append(m_history.constData() + from, m_history.size() - from);
    auto* const bytes = reinterpret_cast<unsigned char*>(m_translated.data());
    for (qsizetype i = from; i < m_translated.size() - 10; ++i) {
        if (bytes[i] != 0xE8)
            continue;
        std::uint32_t target = 0;
        for (unsigned k = 0; k < 4; ++k)
            target |= std::uint32_t{bytes[i + 1 + k]} << (8U * k);
        const std::int64_t absolute = static_cast<std::int32_t>(target);
        if (absolute >= -i && absolute < m_callFileSize) {
            const std::int64_t relative = absolute >= 0 ? absolute - i : absolute + m_callFileSize;
            for (unsigned k = 0; k < 4; ++k)
                bytes[i + 1 + k]
                    = static_cast<unsigned char>(static_cast<std::uint64_t>(relative) >> (8U * k));
        }
        i += 4;
    }
}

} // namespace stoikal
