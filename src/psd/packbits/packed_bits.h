// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace wallgrid {

// PackBits run lengths (Apple, "Technical Note TN1023: Understanding PackBits"): a header byte h of 0 to 127 and h + 1
// literal bytes, or a header h of -126 to -2 and one byte that is repeated 1 - h times. Runs have 3 to 127 bytes; two
// equal bytes stay literal. The writer packs with packSamples(); the functions named kp… are part of the library's
// interface.

/// Bytes of a buffer.
struct ByteRange {
    std::uint64_t location = 0;
    std::uint64_t length = 0;
};

/// Packs every skip-th byte of a range: with skip 4 one channel of a row of pixels. The range may end past the buffer
/// as long as its last sample does not. Throws std::invalid_argument for a skip below 1 or an empty range and
/// std::out_of_range for a sample outside the bytes.
ByteBuffer kpPackedBitsForRange(std::span<const std::uint8_t> bytes, ByteRange range, std::int32_t skip);

/// A packed stream in words, for logs. Only headers and the bytes of runs are read: literal bytes may be missing at the
/// end. Throws std::out_of_range when the byte of a run is missing.
std::string kpPackedBitsDescription(std::span<const std::uint8_t> packed);

/// The most bytes that so many samples can be packed into.
constexpr std::size_t largestPackedSize(std::size_t samples)
{
    constexpr std::size_t kLongestLiteral = 128;
    return samples + samples / kLongestLiteral + 1;
}

/// Packs samples that stand next to each other and returns how many bytes it wrote at `packed`, where there is room for
/// largestPackedSize(). `repeats` is room for repeatWords() words.
std::size_t packSamples(std::span<const std::uint8_t> samples, std::uint64_t* repeats, std::uint8_t* packed);

} // namespace wallgrid
