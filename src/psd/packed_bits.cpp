// SPDX-License-Identifier: MIT
#include "psd/packed_bits.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>

namespace wallgrid {

// Vector lanes are numbered like the bytes of memory.
static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t kLongestLiteral = 128;
constexpr std::size_t kShortestRun = 3;
constexpr std::size_t kLongestRun = 127;

/// 16 bytes as lanes of one sample each.
template <std::size_t kSkip>
struct Lanes;

template <>
struct Lanes<1> {
    using Lane = std::uint8_t;
    using Vector = Lane __attribute__((vector_size(16)));
};

template <>
struct Lanes<4> {
    using Lane = std::uint32_t;
    using Vector = Lane __attribute__((vector_size(16)));
};

/// Samples that stand next to each other or one in every four bytes, compared 16 bytes at a time.
template <std::size_t kSkip>
class Samples {
public:
    Samples(const std::uint8_t* first, std::size_t count)
        : m_first(first)
        , m_count(count)
    {
    }

    std::size_t count() const { return m_count; }
    std::uint8_t at(std::size_t i) const { return m_first[i * kSkip]; }

    /// The first sample from `i` on that differs from `value`.
    std::size_t runEnd(std::size_t i, std::uint8_t value) const
    {
        const Vector values = Lane(value) - Vector{};
        for (; i + kLanes < m_count; i += kLanes) {
            if (const Vector differing = (vectorAt(i) ^ values) & kMask; any(differing))
                return i + firstNonZero(differing);
        }
        while (i < m_count && at(i) == value)
            ++i;
        return i;
    }

    /// The first of three equal samples in a row from `i` on, or the end.
    std::size_t runBegin(std::size_t i) const
    {
        for (; i + kLanes + 2 < m_count; i += kLanes) {
            const Vector a = vectorAt(i), b = vectorAt(i + 1), c = vectorAt(i + 2);
            const Vector differing = ((a ^ b) | (b ^ c)) & kMask;
            if (const auto equal = Vector(differing == Vector{}); any(equal))
                return i + firstNonZero(equal);
        }
        for (; i + 2 < m_count; ++i) {
            if (at(i) == at(i + 1) && at(i) == at(i + 2))
                return i;
        }
        return m_count;
    }

    std::uint8_t* copy(std::size_t i, std::size_t count, std::uint8_t* out) const
    {
        const std::uint8_t* from = m_first + i * kSkip;
        for (std::size_t k = 0; k < count; ++k, from += kSkip)
            out[k] = *from;
        return out + count;
    }

private:
    using Lane = typename Lanes<kSkip>::Lane;
    using Vector = typename Lanes<kSkip>::Vector;
    static constexpr std::size_t kLanes = sizeof(Vector) / sizeof(Lane);
    static constexpr Lane kMask = 0xFF;

    /// Reads up to three bytes past the last of its samples; the loops above keep one more sample behind it.
    Vector vectorAt(std::size_t i) const
    {
        Vector vector;
        std::memcpy(&vector, m_first + i * kSkip, sizeof vector);
        return vector;
    }

    struct Halves {
        std::uint64_t low, high;
    };
    static bool any(const Vector& vector)
    {
        const auto halves = std::bit_cast<Halves>(vector);
        return (halves.low | halves.high) != 0;
    }
    static std::size_t firstNonZero(const Vector& vector)
    {
        constexpr std::size_t kLaneBits = 8 * sizeof(Lane);
        const auto halves = std::bit_cast<Halves>(vector);
        return halves.low != 0 ? static_cast<std::size_t>(std::countr_zero(halves.low)) / kLaneBits
                               : kLanes / 2 + static_cast<std::size_t>(std::countr_zero(halves.high)) / kLaneBits;
    }

    const std::uint8_t* m_first;
    std::size_t m_count;
};

/// Samples at any distance.
class SparseSamples {
public:
    SparseSamples(const std::uint8_t* first, std::size_t count, std::size_t skip)
        : m_first(first)
        , m_count(count)
        , m_skip(skip)
    {
    }

    std::size_t count() const { return m_count; }
    std::uint8_t at(std::size_t i) const { return m_first[i * m_skip]; }

    std::size_t runEnd(std::size_t i, std::uint8_t value) const
    {
        while (i < m_count && at(i) == value)
            ++i;
        return i;
    }

    std::size_t runBegin(std::size_t i) const
    {
        for (; i + 2 < m_count; ++i) {
            if (at(i) == at(i + 1) && at(i) == at(i + 2))
                return i;
        }
        return m_count;
    }

    std::uint8_t* copy(std::size_t i, std::size_t count, std::uint8_t* out) const
    {
        for (std::size_t k = 0; k < count; ++k)
            out[k] = at(i + k);
        return out + count;
    }

private:
    const std::uint8_t* m_first;
    std::size_t m_count;
    std::size_t m_skip;
};

/// Literals up to the next three equal samples, then their run, cut at 127; what a cut leaves over is looked at anew,
/// so that one or two samples of it become literals.
template <class S>
std::uint8_t* pack(const S& samples, std::uint8_t* out)
{
    for (std::size_t i = 0; i < samples.count();) {
        const std::size_t runBegin = samples.runBegin(i);
        while (i < runBegin) {
            const std::size_t literal = std::min(runBegin - i, kLongestLiteral);
            *out++ = static_cast<std::uint8_t>(literal - 1);
            out = samples.copy(i, literal, out);
            i += literal;
        }
        if (i == samples.count())
            break;
        const std::uint8_t value = samples.at(i);
        const std::size_t runEnd = samples.runEnd(i + kShortestRun, value);
        while (runEnd - i >= kShortestRun) {
            const std::size_t run = std::min(runEnd - i, kLongestRun);
            *out++ = static_cast<std::uint8_t>(1 - run);
            *out++ = value;
            i += run;
        }
    }
    return out;
}

} // namespace

std::size_t packSamples(const std::uint8_t* samples, std::size_t count, std::size_t skip, std::uint8_t* packed)
{
    switch (skip) {
    case 1:
        return static_cast<std::size_t>(pack(Samples<1>(samples, count), packed) - packed);
    case 4:
        return static_cast<std::size_t>(pack(Samples<4>(samples, count), packed) - packed);
    default:
        return static_cast<std::size_t>(pack(SparseSamples(samples, count, skip), packed) - packed);
    }
}

ByteBuffer kpPackedBitsForRange(std::span<const std::uint8_t> bytes, ByteRange range, std::int32_t skip)
{
    if (skip < 1 || range.length == 0)
        throw std::invalid_argument("kpPackedBitsForRange: nothing to pack");
    const auto step = static_cast<std::uint64_t>(skip);
    const std::uint64_t count = (range.length - 1) / step + 1;
    if (range.location >= bytes.size() || (count - 1) * step >= bytes.size() - range.location)
        throw std::out_of_range("kpPackedBitsForRange: the range ends outside the bytes");
    ByteBuffer packed(largestPackedSize(count));
    packed.resize(packSamples(bytes.data() + range.location, count, step, packed.data()));
    return packed;
}

std::string kpPackedBitsDescription(std::span<const std::uint8_t> packed)
{
    std::string text;
    std::size_t total = 0;
    for (std::size_t i = 0; i < packed.size();) {
        const int header = static_cast<std::int8_t>(packed[i]);
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
