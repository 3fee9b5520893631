// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace wallgrid::test {

/// "00 1F": how the tests write bytes out.
inline std::string hex(std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += text.empty() ? "" : " ";
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return text;
}

inline ByteBuffer bytes(std::string_view hexText)
{
    ByteBuffer buffer;
    for (std::size_t i = 0; i < hexText.size(); i += 3)
        buffer.push_back(static_cast<std::uint8_t>(std::stoi(std::string(hexText.substr(i, 2)), nullptr, 16)));
    return buffer;
}

/// What a function appends.
inline std::string written(const std::function<void(ByteBuffer&)>& write)
{
    ByteBuffer buffer;
    write(buffer);
    return hex(buffer);
}

} // namespace wallgrid::test
