// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace wallgrid {

// UTF-16 holds a character past U+FFFF as a high surrogate and a low one.
constexpr bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// UTF-8 for people and other programs: a lone surrogate, which UTF-8 cannot hold, becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

} // namespace wallgrid
