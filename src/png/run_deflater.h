// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace wallgrid {

/// Compresses what is mostly runs of equal groups of four bytes: the pixels of a map, each less the one above it. A
/// zlib stream (RFC 1950) of deflate blocks (RFC 1951, 3.2.7) that match nothing but the byte before, which makes
/// zeros, and the four bytes before, which repeat a pixel. Looking no further costs little more than looking at the
/// pixels once.
class RunDeflater {
public:
    using Group = std::uint32_t; ///< four bytes as they stand in memory

    RunDeflater();

    void addByte(std::uint8_t byte);
    void addZeroGroups(std::size_t count);
    void addGroups(std::span<const Group> groups);
    /// Ends the stream. Nothing can be added any more.
    void finish();

    /// What is finished so far and was not taken yet. Blocks end at no particular byte.
    Bytes& output() { return m_output; }

private:
    /// A group so many times; or, without a count, the lowest byte alone.
    struct Run {
        Group group;
        std::uint32_t count;
    };

    void add(Group group, std::size_t count);
    void writeBlock();

    std::vector<Run> m_runs;
    Bytes m_output;
    std::uint64_t m_bits = 0; ///< the last byte, as far as it is known
    unsigned m_bitCount = 0;
    std::uint32_t m_checksum;
};

} // namespace wallgrid
