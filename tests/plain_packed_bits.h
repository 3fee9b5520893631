// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace wallgrid {

/// PackBits the plain way, one byte at a time through a buffer of literals: what the packer of src/psd is compared
/// with, its bytes and its speed. Appends the packed form of every skip-th byte of a range.
inline void packPlainly(std::span<const std::uint8_t> bytes, std::size_t location, std::size_t length, std::size_t skip,
                        std::vector<std::uint8_t>& packed)
{
    constexpr std::size_t kLongestLiteral = 128;
    constexpr std::size_t kLongestRun = 127;
    std::array<std::uint8_t, kLongestLiteral + 2> literals;
    std::size_t n = 0;
    const auto emitLiterals = [&](std::size_t count) {
        packed.push_back(static_cast<std::uint8_t>(count - 1));
        packed.insert(packed.end(), literals.data(), literals.data() + count);
    };
    const std::size_t end = location + length;
    for (std::size_t i = location; i < end;) {
        const std::uint8_t b = bytes[i];
        i += skip;
        literals[n] = b;
        if (n >= 2 && literals[n - 1] == b && literals[n - 2] == b) {
            if (n >= 3)
                emitLiterals(n - 2);
            std::size_t run = 3;
            for (; run < kLongestRun && i < end && bytes[i] == b; i += skip)
                ++run;
            packed.push_back(static_cast<std::uint8_t>(1 - run));
            packed.push_back(b);
            n = 0;
        } else if (++n == literals.size()) {
            // The last two may still begin a run.
            emitLiterals(kLongestLiteral);
            literals[0] = literals[kLongestLiteral];
            literals[1] = literals[kLongestLiteral + 1];
            n = 2;
        }
    }
    if (n > kLongestLiteral) {
        emitLiterals(kLongestLiteral);
        packed.push_back(0);
        packed.push_back(literals[kLongestLiteral]);
    } else if (n > 0) {
        emitLiterals(n);
    }
}

} // namespace wallgrid
