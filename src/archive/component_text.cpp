// SPDX-License-Identifier: MIT
#include "archive/component_text.h"

#include "base/portable.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace wallgrid {

namespace {

/// No finite number needs more: the longest that %.10g writes has 17.
constexpr std::size_t kLongestNumber = 63;

/// Takes the next number off the text.
double takeNumber(std::string_view& text, double fallback)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    if (word.size() > kLongestNumber)
        return fallback;
    double number = 0;
    return readNumber(word, number) ? number : fallback;
}

} // namespace

ComponentText ComponentText::parse(std::span<const std::uint8_t> bytes, int count)
{
    const auto longest = static_cast<std::size_t>(count + 1) * (kLongestNumber + 1);
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), std::min(bytes.size(), longest));
    text = text.substr(0, text.find('\0'));

    ComponentText result;
    for (int i = 0; i < count; ++i)
        result.components[static_cast<std::size_t>(i)] = takeNumber(text, 0);
    result.alpha = takeNumber(text, 1);
    return result;
}

std::string ComponentText::format(int count) const
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        const double component = components[static_cast<std::size_t>(i)];
        text += writtenNumber(std::isfinite(component) ? component : 0);
        text += ' ';
    }
    const std::size_t alphaAt = text.size();
    text += writtenNumber(std::isfinite(alpha) ? alpha : 1);
    if (std::string_view(text).substr(alphaAt) == "1")
        text.resize(alphaAt - 1);
    text += '\0';
    return text;
}

} // namespace wallgrid
