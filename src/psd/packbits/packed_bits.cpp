// SPDX-License-Identifier: MIT
#include "psd/packbits/packed_bits.h"

#include "psd/packbits/packets.h"
#include "psd/packbits/repeats.h"

#include <bit>
#include <stdexcept>
#include <vector>

namespace wallgrid {

namespace {

/// The runs among samples that stand next to each other, from where they repeat.
class SampleRuns {
public:
    SampleRuns(const std::uint64_t* repeats, std::size_t count)
        : m_words(repeats)
        , m_count(count)
    {
    }

    Run next()
    {
        const std::size_t begin = runBegin();
        if (begin < m_count)
            m_end = runEnd(begin);
        return {begin, begin < m_count ? m_end : m_count};
    }

private:
    static constexpr std::uint64_t kAll = ~std::uint64_t{0};

    /// The first of three equal samples in a row behind the run before, or the end.
    std::size_t runBegin() const
    {
        std::uint64_t from = kAll << m_end % kRepeatBits;
        for (std::size_t w = m_end / kRepeatBits; w * kRepeatBits < m_count; ++w, from = kAll) {
            const std::uint64_t begins = m_words[w] & (m_words[w] >> 1 | m_words[w + 1] << (kRepeatBits - 1)) & from;
            if (begins != 0)
                return w * kRepeatBits + static_cast<std::size_t>(std::countr_zero(begins));
        }
        return m_count;
    }

    /// The first sample behind `i` that differs from it, or the end. The last sample has no next one to be the same.
    std::size_t runEnd(std::size_t i) const
    {
        std::uint64_t from = kAll << i % kRepeatBits;
        for (std::size_t w = i / kRepeatBits;; ++w, from = kAll) {
            if (const std::uint64_t lasts = ~m_words[w] & from; lasts != 0)
                return w * kRepeatBits + static_cast<std::size_t>(std::countr_zero(lasts)) + 1;
        }
    }

    const std::uint64_t* m_words;
    std::size_t m_count;
    std::size_t m_end = 0; ///< of the run before
};

} // namespace

std::size_t packSamples(std::span<const std::uint8_t> samples, std::uint64_t* repeats, std::uint8_t* packed)
{
    markRepeats(samples, repeats);
    const SampleRuns runs(repeats, samples.size());
    return static_cast<std::size_t>(writePackets(Samples<1>{samples.data(), samples.size()}, runs, packed) - packed);
}

ByteBuffer kpPackedBitsForRange(std::span<const std::uint8_t> bytes, ByteRange range, std::int32_t skip)
{
    if (skip < 1 || range.length == 0)
        throw std::invalid_argument("kpPackedBitsForRange: nothing to pack");
    const auto step = static_cast<std::uint64_t>(skip);
    const std::uint64_t count = (range.length - 1) / step + 1;
    if (range.location >= bytes.size() || (count - 1) * step >= bytes.size() - range.location)
        throw std::out_of_range("kpPackedBitsForRange: the range ends outside the bytes");
    std::vector<std::uint8_t> samples(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = bytes[static_cast<std::size_t>(range.location + i * step)];
    ByteBuffer packed(largestPackedSize(samples.size()));
    std::vector<std::uint64_t> repeats(repeatWords(samples.size()));
    packed.resize(packSamples(samples, repeats.data(), packed.data()));
    return packed;
}

std::string kpPackedBitsDescription(std::span<const std::uint8_t> packed)
{
    std::string text;
    std::size_t total = 0;
    for (std::size_t i = 0; i < packed.size();) {
        const int header = packed[i] < 128 ? packed[i] : packed[i] - 256; // a signed byte
        const std::size_t decoded = static_cast<std::size_t>(header >= 0 ? header + 1 : 1 - header);
        if (header >= 0) {
            text += "Printing " + std::to_string(decoded) + " literal bytes. ";
            i += 1 + decoded;
        } else if (i + 1 < packed.size()) {
            text += "Printing " + std::to_string(packed[i + 1]) + " " + std::to_string(decoded) + " times. ";
            i += 2;
        } else {
            throw std::out_of_range("kpPackedBitsDescription: the stream ends before the byte of a run");
        }
        total += decoded;
    }
    return text + "Total: " + std::to_string(total) + " bytes decoded.";
}

} // namespace wallgrid
