// SPDX-License-Identifier: MIT
#include "base/unicode.h"

#include <cstddef>

namespace wallgrid {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;

void append(std::string& out, char32_t c)
{
    const auto byte = [&](char32_t value) { out.push_back(static_cast<char>(static_cast<unsigned char>(value))); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | c >> 6);
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | c >> 12);
        byte(0x80 | (c >> 6 & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | c >> 18);
        byte(0x80 | (c >> 12 & 0x3F));
        byte(0x80 | (c >> 6 & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

} // namespace

std::string toUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            const char32_t high = unit - 0xD800u;
            const char32_t low = text[++i] - 0xDC00u;
            append(out, 0x10000 + (high << 10) + low);
        } else {
            append(out, isHighSurrogate(unit) || isLowSurrogate(unit) ? kReplacementCharacter : unit);
        }
    }
    return out;
}

} // namespace wallgrid
