// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace wallgrid {

// What older standard libraries lack, and what is to hold where a size has 32 bits.

/// std::bit_cast.
template <class To, class From>
constexpr To bitCast(const From& value)
{
    return __builtin_bit_cast(To, value);
}

/// A number of bytes as a size: the largest size for a number that is too large for one, and no memory has that many.
constexpr std::size_t sizeOf64(std::uint64_t bytes)
{
    constexpr std::uint64_t kMost = std::numeric_limits<std::size_t>::max();
    return static_cast<std::size_t>(bytes < kMost ? bytes : kMost);
}

/// The whole text as a finite decimal number, read as std::from_chars does.
inline bool readNumber(std::string_view text, double& number)
{
#ifdef __cpp_lib_to_chars
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
#else
    // strtod(3) reads more than decimal numbers. There is no locale but "C" where this is needed.
    if (text.empty() || text[0] == '+' || text.find_first_not_of("+-.0123456789eE") != text.npos)
        return false;
    const std::string copy(text);
    char* end = nullptr;
    number = std::strtod(copy.c_str(), &end);
    const bool isWhole = end == copy.c_str() + copy.size();
#endif
    return isWhole && number - number == 0;
}

/// A number with ten significant digits, as C's %.10g in the "C" locale.
inline std::string writtenNumber(double number)
{
    std::array<char, 32> digits;
#ifdef __cpp_lib_to_chars
    const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::general, 10).ptr;
    return {digits.begin(), end};
#else
    return {digits.data(), static_cast<std::size_t>(std::snprintf(digits.data(), digits.size(), "%.10g", number))};
#endif
}

} // namespace wallgrid
