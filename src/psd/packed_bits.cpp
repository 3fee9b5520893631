// SPDX-License-Identifier: MIT
#include "psd/packed_bits.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace wallgrid {

namespace {

constexpr std::size_t kLongestLiteral = 128;
constexpr std::size_t kShortestRun = 3;
constexpr std::size_t kLongestRun = 127;

/// Finds runs among samples, 64 at a time: a word has a bit for each, set where the next sample is the same. Positions
/// asked for never go back.
class Repeats {
public:
    Repeats(const std::uint8_t* samples, std::size_t count)
        : m_samples(samples)
        , m_count(count)
        , m_word(wordAt(0))
        , m_next(wordAt(kBits))
    {
    }

    /// The first of three equal samples in a row from `i` on, or the end.
    std::size_t runBegin(std::size_t i)
    {
        seek(i);
        for (std::uint64_t from = kAll << i % kBits;; from = kAll) {
            if (const std::uint64_t begins = m_word & (m_word >> 1 | m_next << (kBits - 1)) & from; begins != 0)
                return m_begin + static_cast<std::size_t>(std::countr_zero(begins));
            if (m_begin + kBits >= m_count)
                return m_count;
            advance();
        }
    }

    /// The first sample behind `i` that differs from it, or the end.
    std::size_t runEnd(std::size_t i)
    {
        seek(i);
        // The last sample has no next one to be the same.
        for (std::uint64_t from = kAll << i % kBits;; from = kAll) {
            if (const std::uint64_t lasts = ~m_word & from; lasts != 0)
                return m_begin + static_cast<std::size_t>(std::countr_zero(lasts)) + 1;
            advance();
        }
    }

private:
    static constexpr std::size_t kBits = 64;
    static constexpr std::uint64_t kAll = ~std::uint64_t{0};

    void seek(std::size_t i)
    {
        while (i >= m_begin + kBits)
            advance();
    }

    void advance()
    {
        m_begin += kBits;
        m_word = m_next;
        m_next = wordAt(m_begin + kBits);
    }

    std::uint64_t wordAt(std::size_t begin) const
    {
        if (begin + 1 >= m_count)
            return 0;
#ifdef __SSE2__
        if (m_count > kBits) {
            // The last word is cut from the last 64 comparisons there are, so that nothing behind the samples is read.
            const std::size_t from = std::min(begin, m_count - kBits - 1);
            return wholeWord(m_samples + from) >> (begin - from);
        }
#endif
        std::uint64_t word = 0;
        for (std::size_t i = begin; i < std::min(begin + kBits, m_count - 1); ++i)
            word |= std::uint64_t{m_samples[i] == m_samples[i + 1]} << (i - begin);
        return word;
    }

#ifdef __SSE2__
    /// Compares 64 samples with those behind them.
    static std::uint64_t wholeWord(const std::uint8_t* samples)
    {
        std::uint64_t word = 0;
        for (std::size_t k = 0; k < kBits; k += sizeof(__m128i)) {
            const auto* const vector = reinterpret_cast<const __m128i*>(samples + k);
            const auto* const next = reinterpret_cast<const __m128i*>(samples + k + 1);
            const __m128i same = _mm_cmpeq_epi8(_mm_loadu_si128(vector), _mm_loadu_si128(next));
            word |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(same))} << k;
        }
        return word;
    }
#endif

    const std::uint8_t* m_samples;
    std::size_t m_count;
    std::size_t m_begin = 0; ///< of m_word
    std::uint64_t m_word;
    std::uint64_t m_next;
};

/// In place of a plain memcpy, of which GCC makes a string instruction that is slow for so few bytes.
std::uint8_t* copyLiteral(const std::uint8_t* from, std::size_t count, std::uint8_t* to)
{
    constexpr std::size_t kVector = 16;
    if (count < kLongestLiteral)
        return std::copy_n(from, count, to);
    for (std::size_t k = 0; k < kLongestLiteral; k += kVector)
        std::memcpy(to + k, from + k, kVector);
    return to + kLongestLiteral;
}

} // namespace

/// Literals up to the next three equal samples, then their run, cut at 127. When a cut leaves one or two samples of it,
/// they become literals.
std::size_t packSamples(std::span<const std::uint8_t> samples, std::uint8_t* packed)
{
    Repeats repeats(samples.data(), samples.size());
    std::uint8_t* out = packed;
    std::size_t i = 0;
    std::size_t runEnd = 0;
    while (i < samples.size()) {
        const std::size_t runBegin = repeats.runBegin(runEnd);
        while (i < runBegin) {
            const std::size_t literal = std::min(runBegin - i, kLongestLiteral);
            *out++ = static_cast<std::uint8_t>(literal - 1);
            out = copyLiteral(samples.data() + i, literal, out);
            i += literal;
        }
        if (i == samples.size())
            break;
        const std::uint8_t value = samples[i];
        runEnd = repeats.runEnd(i);
        while (runEnd - i >= kShortestRun) {
            const std::size_t run = std::min(runEnd - i, kLongestRun);
            *out++ = static_cast<std::uint8_t>(1 - run);
            *out++ = value;
            i += run;
        }
    }
    return static_cast<std::size_t>(out - packed);
}

ByteBuffer kpPackedBitsForRange(std::span<const std::uint8_t> bytes, ByteRange range, std::int32_t skip)
{
    if (skip < 1 || range.length == 0)
        throw std::invalid_argument("kpPackedBitsForRange: nothing to pack");
    const auto step = static_cast<std::uint64_t>(skip);
    const std::uint64_t count = (range.length - 1) / step + 1;
    if (range.location >= bytes.size() || (count - 1) * step >= bytes.size() - range.location)
        throw std::out_of_range("kpPackedBitsForRange: the range ends outside the bytes");
    std::vector<std::uint8_t> samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = bytes[range.location + i * step];
    ByteBuffer packed(largestPackedSize(count));
    packed.resize(packSamples(samples, packed.data()));
    return packed;
}

std::string kpPackedBitsDescription(std::span<const std::uint8_t> packed)
{
    std::string text;
    std::size_t total = 0;
    for (std::size_t i = 0; i < packed.size();) {
        const int header = packed[i] < 128 ? packed[i] : packed[i] - 256; // a signed byte
        const std::size_t decoded = static_cast<std::size_t>(header >= 0 ? header + 1 : 1 - header);
        const std::size_t size = header >= 0 ? 1 + decoded : 2;
        if (size > packed.size() - i)
            throw std::out_of_range("kpPackedBitsDescription: the stream ends within a packet");
        if (header >= 0)
            text += "Printing " + std::to_string(decoded) + " literal bytes. ";
        else
            text += "Printing " + std::to_string(packed[i + 1]) + " " + std::to_string(decoded) + " times. ";
        i += size;
        total += decoded;
    }
    return text + "Total: " + std::to_string(total) + " bytes decoded.";
}

} // namespace wallgrid
