// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace wallgrid {

/// The components of a colour in an archive: ASCII numbers with a space between them, each as C's %.10g in the "C"
/// locale, alpha last and left out when it is 1, one NUL at the end.
struct ComponentText {
    std::array<double, 4> components = {};
    double alpha = 1;

    /// Reads `count` components and alpha. A number that is missing, longer than 63 characters, not finite or no number
    /// at all reads as 0, an alpha as 1. Looks at no more bytes than that needs.
    static ComponentText parse(std::span<const std::uint8_t> bytes, int count);

    std::string format(int count) const;
};

} // namespace wallgrid
