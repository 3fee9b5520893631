// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace wallgrid {

// The packets of PackBits (see packed_bits.h), for those who know where the runs are.

inline constexpr std::size_t kLongestLiteral = 128;
inline constexpr std::size_t kShortestRun = 3;
inline constexpr std::size_t kLongestRun = 127;

/// Equal samples in a row, at least kShortestRun of them, with other ones on both sides.
struct Run {
    std::size_t begin = 0;
    std::size_t end = 0; ///< behind the last
};

/// Every `kStep`-th byte, and `count` of them.
template <std::size_t kStep>
struct Samples {
    const std::uint8_t* first = nullptr;
    std::size_t count = 0;

    std::uint8_t operator[](std::size_t i) const { return first[i * kStep]; }
};

template <std::size_t kStep>
std::uint8_t* copyLiteral(Samples<kStep> samples, std::size_t begin, std::size_t count, std::uint8_t* to)
{
    if (kStep == 1 && count == kLongestLiteral) {
        // In place of one memcpy, of which GCC makes a string instruction that is slow for so few bytes.
        constexpr std::size_t kVector = 16;
        for (std::size_t k = 0; k < kLongestLiteral; k += kVector)
            std::memcpy(to + k, samples.first + begin + k, kVector);
    } else {
        for (std::size_t k = 0; k < count; ++k)
            to[k] = samples[begin + k];
    }
    return to + count;
}

inline std::uint8_t* writeRun(std::size_t length, std::uint8_t value, std::uint8_t* to)
{
    *to++ = static_cast<std::uint8_t>(1 - length);
    *to++ = value;
    return to;
}

/// Literals up to the next run, then that, cut at 127. When a cut leaves one or two samples of it, they become
/// literals. `runs.next()` gives one run after the other, and an empty one behind the last sample when there are no
/// more. Returns the end of what it wrote.
template <std::size_t kStep, class Runs>
std::uint8_t* writePackets(Samples<kStep> samples, Runs runs, std::uint8_t* out)
{
    for (std::size_t i = 0; i < samples.count;) {
        const Run run = runs.next();
        while (i < run.begin) {
            const std::size_t literal = std::min(run.begin - i, kLongestLiteral);
            *out++ = static_cast<std::uint8_t>(literal - 1);
            out = copyLiteral(samples, i, literal, out);
            i += literal;
        }
        if (i == samples.count)
            break;
        const std::uint8_t value = samples[i];
        for (; run.end - i >= kLongestRun; i += kLongestRun)
            out = writeRun(kLongestRun, value, out);
        if (run.end - i >= kShortestRun) {
            out = writeRun(run.end - i, value, out);
            i = run.end;
        }
    }
    return out;
}

} // namespace wallgrid
