// SPDX-License-Identifier: MIT
#include "psd/fields/append_value.h"

#include "base/big_endian.h"

#include <cstddef>
#include <stdexcept>

namespace wallgrid {

namespace {

constexpr std::int32_t kWidest = 8;
constexpr std::int64_t kRGB = 0;

/// A component of 0 to 1 in 16 bits; half a step is taken off before the fraction is.
std::int64_t colorSample(double component)
{
    return static_cast<std::int64_t>(component * 65536.0 - 0.5);
}

} // namespace

void kpAppendValue(ByteBuffer& buffer, std::int64_t value, std::int32_t length)
{
    if (length < 0 || length > kWidest)
        throw std::invalid_argument("kpAppendValue: an integer has 0 to 8 bytes");
    appendBigEndian(buffer, static_cast<std::uint64_t>(value), static_cast<unsigned>(length));
}

void kpAppendUTF8String(ByteBuffer& buffer, std::string_view text, std::int32_t /*length*/)
{
    buffer.insert(buffer.end(), text.begin(), text.end());
}

void kpAppendCGColorRef(ByteBuffer& buffer, const ColorRef& color, std::int32_t /*length*/)
{
    constexpr int kComponents = 3;
    if (!color || color->componentCount() != kComponents)
        throw std::invalid_argument("kpAppendCGColorRef: the colour is not an RGB colour");
    const Color::RGBA rgba = color->rgba();
    kpAppendValue(buffer, kRGB, 2);
    for (const double component : {rgba.r, rgba.g, rgba.b})
        kpAppendValue(buffer, colorSample(component), 2);
    kpAppendValue(buffer, 0, 2);
}

} // namespace wallgrid
