// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace wallgrid {

/// PackBits the plain way, one byte after the other: what the packer of src/psd is compared with, its bytes and its
/// speed. Appends the packed form of every skip-th byte of a range.
inline void packPlainly(std::span<const std::uint8_t> bytes, std::size_t location, std::size_t length, std::size_t skip,
                        std::vector<std::uint8_t>& packed)
{
    constexpr std::size_t kLongestLiteral = 128, kLongestRun = 127;
    const std::size_t end = location + length;
    std::size_t literals = 0; // of the packet that is open
    for (std::size_t i = location; i < end;) {
        const std::uint8_t byte = bytes[i];
        std::size_t run = 1;
        while (run < kLongestRun && i + run * skip < end && bytes[i + run * skip] == byte)
            ++run;
        if (run >= 3) {
            packed.insert(packed.end(), {static_cast<std::uint8_t>(1 - run), byte});
            literals = 0;
            i += run * skip;
            continue;
        }
        if (literals == 0)
            packed.push_back(0);
        packed.push_back(byte);
        packed[packed.size() - 2 - literals] = static_cast<std::uint8_t>(literals);
        literals = (literals + 1) % kLongestLiteral;
        i += skip;
    }
}

} // namespace wallgrid
