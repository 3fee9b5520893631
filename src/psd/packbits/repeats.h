// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace wallgrid {

// Where neighbours are equal, as one bit for each value: set when the next value is the same, and so 0 for the last
// one. Bit i % 64 of word i / 64 belongs to value i. The search uses the widest vectors that the processor has.

inline constexpr std::size_t kRepeatBits = 64;

/// The words that so many values need, one with no bit set behind them included.
constexpr std::size_t repeatWords(std::size_t values)
{
    return values / kRepeatBits + 2;
}

/// Writes repeatWords() words and returns how many bits are set.
std::size_t markRepeats(std::span<const std::uint8_t> values, std::uint64_t* words);
std::size_t markRepeats(std::span<const Pixel> values, std::uint64_t* words);

/// How many kinds of vectors this processor has, and which of them the search uses, 0 for the widest: for tests.
std::size_t vectorKinds();
void useVectors(std::size_t kind);

/// One word of what these find, a value at a time, for values that are not enough for vectors and for tests.
template <class Value>
std::uint64_t repeatWord(std::span<const Value> values, std::size_t begin)
{
    std::uint64_t word = 0;
    for (std::size_t bit = 0; bit < kRepeatBits && begin + bit + 1 < values.size(); ++bit)
        word |= std::uint64_t{values[begin + bit] == values[begin + bit + 1]} << bit;
    return word;
}

} // namespace wallgrid
