// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace wallgrid {

/// Adds the low `width` bytes of a number, 0 to 8, the highest first.
template <class Container>
void appendBigEndian(Container& bytes, std::uint64_t number, unsigned width)
{
    for (unsigned left = width; left > 0; --left)
        bytes.push_back(static_cast<typename Container::value_type>(number >> 8 * (left - 1)));
}

} // namespace wallgrid
