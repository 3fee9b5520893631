// SPDX-License-Identifier: MIT
#include "psd/fields/pascal_string.h"

#include "base/unicode.h"

#include <cmath>
#include <cstddef>
#include <stdexcept>

namespace wallgrid {

std::int32_t kpPascalStringLengthPaddedTo(std::u16string_view text, std::int32_t padding)
{
    if (padding <= 0)
        throw std::invalid_argument("kpPascalStringLengthPaddedTo: the padding is above 0");
    const float multiples = std::ceil(static_cast<float>(text.size()) / static_cast<float>(padding));
    return static_cast<std::int32_t>(multiples) * padding;
}

std::string kpPascalStringPaddedTo(std::u16string_view text, std::int32_t padding, std::u16string_view paddingString)
{
    const auto length = static_cast<std::size_t>(kpPascalStringLengthPaddedTo(text, padding));
    std::u16string padded(text.substr(0, length));
    if (padded.size() < length && paddingString.empty())
        throw std::invalid_argument("kpPascalStringPaddedTo: there is nothing to pad with");
    for (std::size_t i = 0; padded.size() < length; ++i)
        padded.push_back(paddingString[i % paddingString.size()]);
    return toUtf8(padded);
}

std::string kpPascalStringPaddedTo(std::u16string_view text, std::int32_t padding)
{
    using namespace std::string_view_literals;
    return kpPascalStringPaddedTo(text, padding, u"\0"sv);
}

} // namespace wallgrid
