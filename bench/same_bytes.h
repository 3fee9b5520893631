// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

namespace wallgrid::bench {

/// A yardstick that does other work than ours measures nothing.
inline void requireSame(std::span<const std::uint8_t> ours, std::span<const std::uint8_t> plain,
                        const std::string& what)
{
    if (std::ranges::equal(ours, plain))
        return;
    std::fprintf(stderr, "%s: the bytes differ from those made the plain way\n", what.c_str());
    std::exit(2);
}

} // namespace wallgrid::bench
