// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
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

/// The first `most` units of a text, or one fewer where these would cut a character in two.
constexpr std::u16string_view startOfText(std::u16string_view text, std::size_t most)
{
    const bool cutsPair =
        most > 0 && text.size() > most && isHighSurrogate(text[most - 1]) && isLowSurrogate(text[most]);
    return text.substr(0, cutsPair ? most - 1 : most);
}

/// UTF-8 for people and other programs: a lone surrogate, which UTF-8 cannot hold, becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

} // namespace wallgrid
