// SPDX-License-Identifier: MIT
#include "png/run_deflater.h"

#include "base/big_endian.h"
#include "base/portable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <libdeflate.h>
#include <queue>
#include <utility>

namespace wallgrid {

namespace {

/// Runs in a block. Each block has its own code, whose lengths take 150 bytes.
constexpr std::size_t kMostRuns = 16384;

constexpr std::uint64_t kAdlerModulus = 65521; // RFC 1950, 8.2

// RFC 1951, 3.2.5 to 3.2.7
constexpr std::size_t kEndOfBlock = 256;
constexpr std::size_t kSymbols = 286;
constexpr std::size_t kDistanceSymbols = 4;
constexpr unsigned kLongestCode = 15;
constexpr std::uint64_t kShortestMatch = 3;
constexpr std::uint64_t kLongestMatch = 258;

/// The distances that occur, one bit each: symbols 0 and 3, which alone have a code.
enum class Distance { One = 0, Four = 1 };

struct LengthSymbol {
    std::size_t symbol;
    unsigned extraBits;
    std::uint64_t extra;
};

LengthSymbol symbolOf(std::uint64_t matchLength)
{
    if (matchLength == kLongestMatch)
        return {285, 0, 0};
    const auto length = static_cast<std::size_t>(matchLength - kShortestMatch);
    if (length < 8)
        return {257 + length, 0, 0};
    const auto extraBits = static_cast<unsigned>(std::bit_width(length)) - 3;
    return {261 + 4 * extraBits + (length >> extraBits & 3), extraBits, length & ((1U << extraBits) - 1)};
}

/// Tells the sink of literals and matches for so many bytes that repeat what stands a distance before them.
template <class Sink>
void spellRepeats(Sink& sink, Distance distance, std::uint64_t bytes)
{
    std::uint64_t longest = bytes / kLongestMatch;
    std::uint64_t rest = bytes % kLongestMatch;
    if (rest > 0 && rest < kShortestMatch) {
        --longest;
        rest += kShortestMatch;
        sink.match(distance, kLongestMatch - kShortestMatch, 1);
    }
    if (longest > 0)
        sink.match(distance, kLongestMatch, longest);
    if (rest > 0)
        sink.match(distance, rest, 1);
}

template <class Sink, class Run>
void spell(Sink& sink, const Run& run)
{
    const auto bytes = bitCast<std::array<std::uint8_t, 4>>(run.group);
    if (run.count == 0) {
        sink.literal(static_cast<std::uint8_t>(run.group));
    } else if (run.group == 0) {
        sink.literal(0);
        spellRepeats(sink, Distance::One, 4 * std::uint64_t{run.count} - 1);
    } else {
        sink.literals(bytes);
        spellRepeats(sink, Distance::Four, 4 * (std::uint64_t{run.count} - 1));
    }
}

/// How often each symbol occurs, and the bits that stand beside them.
struct Counts {
    std::array<std::uint64_t, kSymbols> symbols{};
    std::uint64_t otherBits = 0;

    void literal(std::uint8_t byte) { ++symbols[byte]; }
    void literals(const std::array<std::uint8_t, 4>& bytes)
    {
        for (const std::uint8_t byte : bytes)
            literal(byte);
    }
    void match(Distance, std::uint64_t length, std::uint64_t times)
    {
        const LengthSymbol code = symbolOf(length);
        symbols[code.symbol] += times;
        otherBits += times * (code.extraBits + 1);
    }
};

/// The lengths of Huffman's code, 0 for what does not occur. Counts are halved until none is too long.
std::array<std::uint8_t, kSymbols> codeLengths(std::array<std::uint64_t, kSymbols> counts)
{
    while (true) {
        using Node = std::pair<std::uint64_t, std::size_t>; // how often, and which
        std::priority_queue<Node, std::vector<Node>, std::greater<>> nodes;
        for (std::size_t symbol = 0; symbol < kSymbols; ++symbol) {
            if (counts[symbol] > 0)
                nodes.emplace(counts[symbol], symbol);
        }
        std::array<std::size_t, 2 * kSymbols> parents{};
        std::size_t root = kSymbols;
        for (; nodes.size() > 1; ++root) {
            const auto [rarest, first] = nodes.top();
            nodes.pop();
            const auto [rare, second] = nodes.top();
            nodes.pop();
            parents[first] = parents[second] = root;
            nodes.emplace(rarest + rare, root);
        }
        --root;
        std::array<std::uint8_t, 2 * kSymbols> depths{};
        for (std::size_t node = root; node-- > kSymbols;)
            depths[node] = static_cast<std::uint8_t>(depths[parents[node]] + 1);
        std::array<std::uint8_t, kSymbols> lengths{};
        for (std::size_t symbol = 0; symbol < kSymbols; ++symbol) {
            if (counts[symbol] > 0)
                lengths[symbol] = static_cast<std::uint8_t>(depths[parents[symbol]] + 1);
        }
        if (*std::max_element(lengths.begin(), lengths.end()) <= kLongestCode)
            return lengths;
        for (std::uint64_t& count : counts)
            count = (count + 1) / 2;
    }
}

std::uint64_t reversed(std::uint64_t code, unsigned length)
{
    std::uint64_t result = 0;
    for (unsigned bit = 0; bit < length; ++bit)
        result |= (code >> bit & 1) << (length - 1 - bit);
    return result;
}

/// Bits one after the other, the lowest of a byte first, into memory that has room for eight bytes more.
class BitWriter {
public:
    BitWriter(std::uint8_t* at, std::uint64_t bits, unsigned count)
        : m_at(at)
        , m_bits(bits)
        , m_count(count)
    {
    }

    /// At most 56.
    void put(std::uint64_t bits, unsigned count)
    {
        m_bits |= bits << m_count;
        m_count += count;
        for (unsigned byte = 0; byte < 8; ++byte)
            m_at[byte] = static_cast<std::uint8_t>(m_bits >> 8 * byte);
        m_at += m_count / 8;
        m_bits >>= m_count / 8 * 8;
        m_count %= 8;
    }

    std::uint8_t* end() const { return m_at; }
    std::uint64_t bits() const { return m_bits; }
    unsigned count() const { return m_count; }

private:
    std::uint8_t* m_at;
    std::uint64_t m_bits;
    unsigned m_count;
};

/// Writes literals and matches in a code.
class Coder {
public:
    Coder(BitWriter& writer, const std::array<std::uint8_t, kSymbols>& lengths)
        : m_writer(writer)
    {
        // The canonical code of 3.2.2: shorter ones first, and in the order of the symbols.
        std::uint64_t next = 0;
        for (unsigned length = 1; length <= kLongestCode; ++length, next <<= 1) {
            for (std::size_t symbol = 0; symbol < kSymbols; ++symbol) {
                if (lengths[symbol] == length)
                    m_codes[symbol] = {reversed(next++, length), length};
            }
        }
    }

    void literal(std::uint8_t byte) { put(m_codes[byte]); }
    void literals(const std::array<std::uint8_t, 4>& bytes)
    {
        // Two at a time: in noise this is what writing costs.
        put(followedBy(m_codes[bytes[0]], m_codes[bytes[1]]));
        put(followedBy(m_codes[bytes[2]], m_codes[bytes[3]]));
    }
    void match(Distance distance, std::uint64_t bytes, std::uint64_t times)
    {
        const LengthSymbol symbol = symbolOf(bytes);
        const Code length = followedBy(m_codes[symbol.symbol], {symbol.extra, symbol.extraBits});
        const Code code = followedBy(length, {static_cast<std::uint64_t>(distance), 1});
        for (; times > 0; --times)
            put(code);
    }
    void endBlock() { put(m_codes[kEndOfBlock]); }

private:
    struct Code {
        std::uint64_t bits;
        unsigned length;
    };

    static Code followedBy(const Code& first, const Code& second)
    {
        return {first.bits | second.bits << first.length, first.length + second.length};
    }
    void put(const Code& code) { m_writer.put(code.bits, code.length); }

    BitWriter& m_writer;
    std::array<Code, kSymbols> m_codes{};
};

/// The head of a block: the lengths of both codes as numbers of four bits, which is the part of 3.2.7 that we need.
void putHead(BitWriter& writer, const std::array<std::uint8_t, kSymbols>& lengths)
{
    writer.put(0b100, 3); // not the last block; with codes of its own
    writer.put(kSymbols - 257, 5);
    writer.put(kDistanceSymbols - 1, 5);
    writer.put(19 - 4, 4);
    // Of the 19 symbols that spell lengths the first three in their order repeat others and have no code.
    for (int symbol = 0; symbol < 19; ++symbol)
        writer.put(symbol < 3 ? 0 : 4, 3);
    for (const std::uint8_t length : lengths)
        writer.put(reversed(length, 4), 4);
    for (const unsigned length : {1U, 0U, 0U, 1U})
        writer.put(reversed(length, 4), 4);
}
constexpr std::size_t kHeadBits = 17 + 19 * 3 + (kSymbols + kDistanceSymbols) * 4;

} // namespace

RunDeflater::RunDeflater()
    : m_output{0x78, 0x01} // deflate with a window of 32 KB, by the fastest of algorithms
    , m_checksum(libdeflate_adler32(0, nullptr, 0))
{
    m_runs.reserve(kMostRuns);
}

void RunDeflater::addByte(std::uint8_t byte)
{
    m_checksum = libdeflate_adler32(m_checksum, &byte, 1);
    if (m_runs.size() == kMostRuns)
        writeBlock();
    m_runs.push_back({byte, 0});
}

void RunDeflater::addZeroGroups(std::size_t count)
{
    // Each zero adds the lower sum to the upper one.
    const std::uint64_t lower = m_checksum & 0xFFFF;
    const std::uint64_t upper = ((m_checksum >> 16) + count % kAdlerModulus * 4 * lower) % kAdlerModulus;
    m_checksum = static_cast<std::uint32_t>(upper << 16 | lower);
    add(0, count);
}

void RunDeflater::addGroups(std::span<const Group> groups)
{
    m_checksum = libdeflate_adler32(m_checksum, groups.data(), groups.size_bytes());
    for (std::size_t i = 0; i < groups.size();) {
        std::size_t end = i + 1;
        while (end < groups.size() && groups[end] == groups[i])
            ++end;
        add(groups[i], end - i);
        i = end;
    }
}

void RunDeflater::add(Group group, std::size_t count)
{
    if (!m_runs.empty() && m_runs.back().count > 0 && m_runs.back().group == group) {
        m_runs.back().count += static_cast<std::uint32_t>(count);
        return;
    }
    if (m_runs.size() == kMostRuns)
        writeBlock();
    m_runs.push_back({group, static_cast<std::uint32_t>(count)});
}

void RunDeflater::writeBlock()
{
    Counts counts;
    counts.symbols[kEndOfBlock] = 1;
    for (const Run& run : m_runs)
        spell(counts, run);
    const auto lengths = codeLengths(counts.symbols);

    std::uint64_t bits = m_bitCount + kHeadBits + counts.otherBits;
    for (std::size_t symbol = 0; symbol < kSymbols; ++symbol)
        bits += counts.symbols[symbol] * lengths[symbol];
    const std::size_t start = m_output.size();
    m_output.resize(sizeOf64(start + bits / 8 + 9));
    BitWriter writer(m_output.data() + start, m_bits, m_bitCount);
    putHead(writer, lengths);
    Coder coder(writer, lengths);
    for (const Run& run : m_runs)
        spell(coder, run);
    coder.endBlock();
    m_output.resize(static_cast<std::size_t>(writer.end() - m_output.data()));
    m_bits = writer.bits();
    m_bitCount = writer.count();
    m_runs.clear();
}

void RunDeflater::finish()
{
    if (!m_runs.empty())
        writeBlock();
    // An empty block in the fixed code ends it: 7 bits of 0.
    std::array<std::uint8_t, 16> last{};
    BitWriter writer(last.data(), m_bits, m_bitCount);
    writer.put(0b011, 3);
    writer.put(0, 7);
    writer.put(0, (8 - writer.count()) % 8);
    m_output.insert(m_output.end(), last.data(), writer.end());
    appendBigEndian(m_output, m_checksum, 4);
}

} // namespace wallgrid
