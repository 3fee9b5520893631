// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tl/expected.hpp>

namespace wallgrid {

/// A whole number as a person types it: digits, or a sum such as "11*192", "1920 - 2 x 128" or "(3840-512)/2", in
/// pixels
/// ("128 px") or not. It is computed exactly and rounded down at the end.
struct TypedNumber {
    std::int32_t value = 0;
    bool relative = false; ///< to be added to what is there: the text begins with "+", "+=" or "-="
};

enum class NumberFault {
    Unfinished, ///< the end is missing, or all of it
    Unreadable,
    DividesByZero,
    TooLarge, ///< no 32-bit number, at the end or on the way
    TooLong,
};

inline constexpr std::size_t kLongestTypedNumber = 200; ///< in UTF-16 units

tl::expected<TypedNumber, NumberFault> readTypedNumber(std::u16string_view text);

} // namespace wallgrid
